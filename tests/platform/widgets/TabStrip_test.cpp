#include "platform/widgets/TabStrip.h"

#include <QTest>
#include <QWheelEvent>

#include <gmock/gmock.h>
#include <string>
#include <vector>

using platform::TabStrip;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

/// A strip "|A|B|C" that writes its events down.
class TabStripTest : public ::testing::Test
{
protected:
    TabStripTest() : strip(QStringLiteral("vsTab"), TabStrip::Captions::Plain, nullptr)
    {
        strip.SetCaptions("|A|B|C");
        strip.SetTabHidden(0);
        strip.PutBack(1);
        strip.Switch = [this](int tab) {
            events.push_back("Switch " + std::to_string(tab) + " at " + std::to_string(strip.CurrTab()));
            return !refuses;
        };
        strip.Click = [this] { events.push_back("Click at " + std::to_string(strip.CurrTab())); };
        strip.resize(400, 30);
        strip.show();
    }
    void ClickOn(int number)
    {
        QTest::mouseClick(&strip, Qt::LeftButton, {}, strip.tabRect(strip.IndexOf(number)).center());
    }

    TabStrip strip;
    std::vector<std::string> events;
    bool refuses = false;
};

TEST_F(TabStripTest, SetCurrTab_SwitchBeforeAndClickAfterTheChange)
{
    EXPECT_TRUE(strip.SetCurrTab(3));
    EXPECT_THAT(events, ElementsAre("Switch 3 at 1", "Click at 3"));
    EXPECT_EQ(strip.tabText(strip.currentIndex()), QStringLiteral("C"));
}

TEST_F(TabStripTest, MouseAndKeys_TheSameOrder)
{
    ClickOn(2);
    EXPECT_THAT(events, ElementsAre("Switch 2 at 1", "Click at 2"));
    events.clear();
    QTest::keyClick(&strip, Qt::Key_Right);
    EXPECT_THAT(events, ElementsAre("Switch 3 at 2", "Click at 3"));
}

TEST_F(TabStripTest, TabShown_NothingIsRaised)
{
    strip.SetCurrTab(1);
    ClickOn(1);
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(TabStripTest, NoSuchTab_NothingIsRaised)
{
    EXPECT_TRUE(strip.SetCurrTab(9));
    EXPECT_THAT(events, IsEmpty());
    EXPECT_EQ(strip.CurrTab(), 1);
}

TEST_F(TabStripTest, SwitchRefuses_TheStripStays)
{
    refuses = true;
    EXPECT_FALSE(strip.SetCurrTab(2));
    ClickOn(3);
    EXPECT_THAT(events, ElementsAre("Switch 2 at 1", "Switch 3 at 1"));
    EXPECT_EQ(strip.CurrTab(), 1);
    EXPECT_EQ(strip.tabText(strip.currentIndex()), QStringLiteral("A"));
}

TEST_F(TabStripTest, ChangeWithinItsOwnEvents_IsIgnored)
{
    strip.Click = [this] { strip.SetCurrTab(3); };
    strip.SetCurrTab(2);
    EXPECT_EQ(strip.CurrTab(), 2);
}

TEST_F(TabStripTest, HandlerThrows_TheNextChangeStillWorks)
{
    strip.Click = [] { throw std::runtime_error("cause"); };
    EXPECT_THROW(strip.SetCurrTab(2), std::runtime_error);
    strip.Click = nullptr;
    EXPECT_TRUE(strip.SetCurrTab(3));
    EXPECT_EQ(strip.CurrTab(), 3);
}

TEST_F(TabStripTest, PutBack_RaisesNothing)
{
    strip.PutBack(2);
    EXPECT_THAT(events, IsEmpty());
    EXPECT_EQ(strip.tabText(strip.currentIndex()), QStringLiteral("B"));
}

TEST_F(TabStripTest, HiddenTabs_AreNotThereForAnybody)
{
    strip.SetTabHidden(2);
    EXPECT_EQ(strip.count(), 2);
    EXPECT_EQ(strip.Neighbour(1), 3);
    EXPECT_EQ(strip.Neighbour(-1), 1);
    QTest::keyClick(&strip, Qt::Key_Right);
    EXPECT_EQ(strip.CurrTab(), 3);
}

TEST_F(TabStripTest, NewCaptions_TheNumberStaysAndNothingIsRaised)
{
    strip.SetCaptions("|A|X|Y|Z");
    EXPECT_EQ(strip.count(), 4);
    EXPECT_EQ(strip.CurrTab(), 1);
    strip.SetCaptions("|A|X");
    EXPECT_EQ(strip.count(), 2);
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(TabStripTest, Wheel_ChangesNothing)
{
    QWheelEvent wheel(
        QPointF(5, 5), QPointF(5, 5), {}, QPoint(0, -120), Qt::NoButton, {}, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&strip, &wheel);
    EXPECT_EQ(strip.CurrTab(), 1);
}

TEST_F(TabStripTest, ChangeOfTheTabShown_MovesNoTab)
{
    const QRect before = strip.tabRect(2);
    strip.SetCurrTab(2);
    EXPECT_EQ(strip.tabRect(2), before);
}

} // namespace
