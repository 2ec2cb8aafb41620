#include "platform/widgets/Application.h"
#include "platform/widgets/TabStrip.h"
#include "session/SessionState.h"
#include "session/UIMode.h"
#include "session/g0Items.h"
#include "worksheets/WindowTest.h"
#include "worksheets/Worksheet.h"
#include "worksheets/a3VEXAforms.h"

#include <QTest>
#include <QTimer>

#include <gmock/gmock.h>
#include <stdexcept>

using ::testing::HasSubstr;

namespace {

/// The General worksheet with a fire name just typed, on a drive that takes no more writes.
class Unsaved : public WindowTest
{
protected:
    void StartUnsaved()
    {
        StartWithSample();
        GoTo(2, 2);
        m_form = a3VEXAforms::CurrentWorksheet();
        g0Items::GetItem(g0Items::FireName)->SetBody("Typed");
        ForbidWrites();
    }
    void ExpectAllStays()
    {
        EXPECT_EQ(Sections().CurrTab(), 2);
        EXPECT_EQ(Sections().currentIndex(), 0);
        EXPECT_EQ(Worksheets().CurrTab(), 2);
        EXPECT_EQ(Worksheets().currentIndex(), 1);
        EXPECT_EQ(gCurrentSection, 2);
        EXPECT_EQ(gCurrentTab, "tab22");
        EXPECT_EQ(a3VEXAforms::CurrentWorksheet(), m_form);
        EXPECT_TRUE(Shown().isVisible());
        EXPECT_TRUE(Entry("mnuWorksheet", 2)->isChecked());
        EXPECT_FALSE(Entry("mnuSection", 3)->isChecked());
        EXPECT_TRUE(gDatabaseOpen);
        EXPECT_EQ(g0Items::GetItem(g0Items::FireName)->Body(), "Typed");
    }

    const Worksheet* m_form = nullptr;
};

TEST_F(Unsaved, WorksheetSwitch_IsStoppedBeforeTheUnload)
{
    StartUnsaved();
    Mark();
    ExpectNotLeft();
    ClickTab(Worksheets(), 3);
    ExpectAllStays();
    EXPECT_THAT(
        NewLines(),
        ::testing::ElementsAre(" Start switch to worksheet 3",
                               "   a3VEXAforms.UpdateCurrentWorksheet tab22",
                               "* * * ERROR * * *",
                               "   UpdateCurrentWorksheet tab22: attempt to write a readonly database"));
    EXPECT_THAT(ErrorLog(), HasSubstr("attempt to write a readonly database"));
}

TEST_F(Unsaved, SectionSwitch_IsStopped)
{
    StartUnsaved();
    ExpectNotLeft();
    ClickTab(Sections(), 3);
    ExpectAllStays();
}

TEST_F(Unsaved, MenuAndKeys_AreStopped)
{
    StartUnsaved();
    for (int i = 0; i < 3; ++i)
        ExpectNotLeft();
    Pick("mnuSection", 4);
    Pick("mnuWorksheet", 3);
    QTest::keyClick(window.get(), Qt::Key_PageUp, Qt::ControlModifier);
    ExpectAllStays();
}

TEST_F(Unsaved, FileCommands_AreStoppedBeforeTheirDialogs)
{
    StartUnsaved();
    for (const int command : {1, 2, 4, 8}) {
        ExpectNotLeft();
        Pick("mnuFile", command);
        ExpectAllStays();
    }
}

TEST_F(Unsaved, TheDriveIsBack_TheNextLeaveSaves)
{
    StartUnsaved();
    ExpectNotLeft();
    ClickTab(Worksheets(), 3);
    AllowWrites();
    ClickTab(Worksheets(), 3);
    EXPECT_EQ(gCurrentTab, "tab23");
    EXPECT_EQ(Query("SELECT Body FROM Items WHERE ItemKey = 11"), (support::Rows{{"Typed"}}));
}

TEST_F(Unsaved, ClosingTheWindowAndStay_WindowAndTextStay)
{
    StartUnsaved();
    ExpectStayOrLeave(kNotLeft, platform::Answer::Stay);
    EXPECT_FALSE(window->close());
    EXPECT_TRUE(window->isVisible());
    ExpectAllStays();
    AllowWrites();
    EXPECT_TRUE(window->close());
    EXPECT_EQ(Query("SELECT Body FROM Items WHERE ItemKey = 11"), (support::Rows{{"Typed"}}));
}

TEST_F(Unsaved, ClosingTheWindowAndLeave_EndsWithoutSaving)
{
    StartUnsaved();
    ExpectStayOrLeave(kNotLeft, platform::Answer::Leave);
    EXPECT_TRUE(window->close());
    EXPECT_FALSE(gDatabaseOpen);
    EXPECT_EQ(Lines().back(), "* * * * * Program End * * * * *");
    EXPECT_NE(Query("SELECT Body FROM Items WHERE ItemKey = 11"), (support::Rows{{"Typed"}}));
}

TEST_F(Unsaved, ExitEntryAndLeave_AsksOnce)
{
    StartUnsaved();
    ExpectStayOrLeave(kNotLeft, platform::Answer::Leave);
    Pick("mnuFile", 9);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(Unsaved, ExitEntryAndStay_WindowStays)
{
    StartUnsaved();
    ExpectStayOrLeave(kNotLeft, platform::Answer::Stay);
    Pick("mnuFile", 9);
    EXPECT_TRUE(window->isVisible());
    ExpectAllStays();
}

TEST_F(Unsaved, SaveFailsWithinTheSectionsClick_TheSectionStripGoesBack)
{
    StartWithSample();
    GoTo(2, 2);
    m_form = a3VEXAforms::CurrentWorksheet();
    // Typed between the strip's Switch, which saved, and its Click, which saves again.
    const auto saveOnce = Sections().Switch;
    Sections().Switch = [&](int tab) {
        const bool goes = saveOnce(tab);
        g0Items::GetItem(g0Items::FireName)->SetBody("Typed");
        ForbidWrites();
        return goes;
    };
    ExpectNotLeft();
    ClickTab(Sections(), 3);
    ExpectAllStays();
}

// ---- What nobody handled

class Guard : public WindowTest
{};

TEST_F(Guard, ErrorInAnEvent_LoggedToldAndTheSessionGoesOn)
{
    StartWithSample();
    ExpectReport("the cause");
    bool later = false;
    QTimer::singleShot(0, window.get(), [] { throw std::runtime_error("the cause"); });
    QTimer::singleShot(1, window.get(), [&later] { later = true; });
    EXPECT_TRUE(QTest::qWaitFor([&later] { return later; }));
    EXPECT_THAT(ErrorLog(), HasSubstr("the cause"));
    EXPECT_THAT(Lines(), ::testing::Contains("   the cause"));
    ClickTab(Worksheets(), 2);
    EXPECT_EQ(gCurrentTab, "tab22");
}

TEST_F(Guard, ErrorWhileBusy_BusyAndHourglassEnd)
{
    StartWithSample();
    ExpectReport("the cause");
    platform::Guarded([] {
        UIMode::BeginBusy();
        UIMode::BeginBusy();
        throw std::runtime_error("the cause");
    });
    EXPECT_TRUE(UIMode::NotBusy());
    EXPECT_EQ(desktop.pointer, platform::Pointer::Default);
}

TEST_F(Guard, ErrorWithinABusyCaller_BusyStaysItsCallers)
{
    StartWithSample();
    ExpectReport("the cause");
    {
        const UIMode::Busy busy;
        platform::Guarded([] { throw std::runtime_error("the cause"); });
        EXPECT_FALSE(UIMode::NotBusy());
    }
    EXPECT_TRUE(UIMode::NotBusy());
}

TEST_F(Guard, WorksheetThatFailsToLoad_StripsWorkOn)
{
    StartWithSample("smith-creek", "DROP TABLE Outcomes");
    ClickTab(Sections(), 6);
    ExpectReport("There is no table Outcomes");
    ClickTab(Worksheets(), 2);
    QCoreApplication::processEvents();
    EXPECT_TRUE(Find<QWidget>("frm02Tabs")->isEnabled());
    EXPECT_TRUE(UIMode::NotBusy());
    EXPECT_EQ(desktop.pointer, platform::Pointer::Default);
    ClickTab(Sections(), 2);
    EXPECT_EQ(Title(), "Situation Section");
}

} // namespace
