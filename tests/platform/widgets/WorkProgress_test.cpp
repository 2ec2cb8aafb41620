#include "platform/base/LongWork.h"
#include "platform/widgets/WorkProgress.h"

#include <QApplication>
#include <QLabel>
#include <QMainWindow>
#include <QProgressBar>
#include <QProgressDialog>
#include <QTest>
#include <gtest/gtest.h>

namespace {

class WorkProgressTest : public ::testing::Test
{
protected:
    WorkProgressTest() { window.show(); }

    QProgressDialog* Shown()
    {
        auto* dialog = window.findChild<QProgressDialog*>(QStringLiteral("dlgProgress"));
        return dialog != nullptr && dialog->isVisible() ? dialog : nullptr;
    }
    /// Half of the work for so long.
    void WorkFor(int milliseconds)
    {
        QElapsedTimer timer;
        timer.start();
        while (timer.elapsed() < milliseconds) {
            platform::TellProgress("Items", 0.5);
            QTest::qSleep(10);
        }
    }

    QMainWindow window;
    platform::WorkProgress progress{window};
};

} // namespace

TEST_F(WorkProgressTest, ShortWork_ShowsNothing)
{
    platform::TellProgress("Items", 0.5);
    EXPECT_EQ(Shown(), nullptr);
    platform::TellProgress("", 1.0);
    EXPECT_EQ(Shown(), nullptr);
}

TEST_F(WorkProgressTest, LongWork_ShowsWhatIsDoneAndHowMuchOfItUntilItsEnd)
{
    WorkFor(1500);
    QProgressDialog* dialog = Shown();
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->windowModality(), Qt::ApplicationModal);
    EXPECT_TRUE(dialog->labelText().contains(QStringLiteral("Items")));
    EXPECT_EQ(dialog->value(), dialog->maximum() / 2);
    platform::TellProgress("", 1.0);
    EXPECT_EQ(Shown(), nullptr);
}

TEST_F(WorkProgressTest, NextWork_BeginsAnew)
{
    WorkFor(1500);
    platform::TellProgress("", 1.0);
    platform::TellProgress("Outcomes", 0.1);
    EXPECT_EQ(Shown(), nullptr) << "it has lasted no time yet";
    platform::TellProgress("", 1.0);
}
