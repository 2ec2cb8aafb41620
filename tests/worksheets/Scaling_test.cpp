#include "worksheets/EveryPlace.h"
#include "worksheets/WholeControls.h"

#include <QApplication>
#include <QProcess>

#include <gmock/gmock.h>

namespace {

class Scaling : public EveryPlace
{
protected:
    static void Check(QWidget& shown, const std::string& place)
    {
        EXPECT_THAT(WholeControls::Complaints(shown), ::testing::IsEmpty()) << place;
    }
    /// Checks that each window takes the size wanted: none grows beyond it for want of room.
    void CheckSize(QWidget& shown, const std::string& place)
    {
        Check(shown, place);
        if (shown.isWindow() && &shown == window.get()) {
            EXPECT_EQ(shown.size().width(), windowSize.width()) << place;
            EXPECT_EQ(shown.size().height(), windowSize.height()) << place;
        } else {
            EXPECT_LE(shown.width(), windowSize.width()) << place;
            EXPECT_LE(shown.height(), windowSize.height()) << place;
        }
    }
    static void SetFontSize(double points)
    {
        QFont font = QApplication::font();
        font.setPointSizeF(points);
        QApplication::setFont(font);
    }
};

TEST_F(Scaling, SmallestWindow_EveryControlOfASampleIsWhole)
{
    VisitAll([this](QWidget& shown, const std::string& place) { CheckSize(shown, place); });
}

TEST_F(Scaling, SmallestWindow_EveryControlOfAnEmptyFileIsWhole)
{
    VisitEmptyFile([this](QWidget& shown, const std::string& place) { CheckSize(shown, place); });
}

TEST_F(Scaling, LargeWindow_EveryControlIsWhole)
{
    windowSize = {1600, 1000};
    VisitAll(Check);
}

/// The same checks on a screen of twice as many dots, in a process of its own.
TEST_F(Scaling, TwoHundredPercent_EveryControlIsWhole)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_SCALE_FACTOR"), QStringLiteral("2"));
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(
        QCoreApplication::applicationFilePath(),
        {QStringLiteral("--gtest_filter=TwiceAsLarge.*:Scaling.SmallestWindow*:Scaling.LargeWindow*")});
    process.waitForFinished(-1);
    const std::string written = process.readAll().toStdString();
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 0) << written;
    EXPECT_THAT(written, ::testing::HasSubstr("[       OK ] TwiceAsLarge.ScreenHasTwoDotsForOne"));
    EXPECT_THAT(written, ::testing::HasSubstr("[  PASSED  ] 4 tests"));
}

/// Checked in the process above; elsewhere there is nothing to check.
class TwiceAsLarge : public EveryPlace
{
protected:
    void SetUp() override
    {
        if (qEnvironmentVariableIsEmpty("QT_SCALE_FACTOR")) GTEST_SKIP() << "run by the test Scaling";
    }
};

TEST_F(TwiceAsLarge, ScreenHasTwoDotsForOne)
{
    EXPECT_EQ(qApp->devicePixelRatio(), 2.0);
    Start();
    window->resize(800, 600);
    EXPECT_EQ(window->grab().size(), QSize(1600, 1200));
}

TEST_F(Scaling, FontOfTwentyPoints_EveryControlIsWhole)
{
    const QFont before = QApplication::font();
    SetFontSize(20);
    windowSize = {1600, 1200};
    VisitAll(Check);
    QApplication::setFont(before);
}

} // namespace
