#include "GridFixture.h"
#include "platform/base/Formats.h"
#include "platform/base/Texts.h"
#include "platform/widgets/GridDelegate.h"
#include "platform/widgets/GridLooks.h"
#include "platform/widgets/Theme.h"

#include <QAccessible>
#include <QImage>

#include <algorithm>
#include <cmath>

namespace {

/// Dragged as a worksheet does it: whole steps, on the row where the drag began.
class GridBar : public GridFixture
{
protected:
    using Log = GridFixture::Log;
    GridBar()
    {
        using platform::Grid;
        QObject::connect(grid, &Grid::MouseDown, [this](Long row, Long column, float place) {
            began = column == 4 ? row : 0;
            Step(row, column, place);
        });
        QObject::connect(grid, &Grid::MouseMove, [this](Long r, Long c, float place) { Step(r, c, place); });
        QObject::connect(grid, &Grid::MouseUp, [this](Long row, Long column, float place) {
            Step(row, column, place);
            began = 0;
        });
    }
    void Step(Long row, Long column, float place)
    {
        places.push_back(place);
        if (column != 4 || row != began || row < 1) return;
        const std::string score = platform::Format(10 * std::clamp(place, 0.0F, 1.0F), "0");
        if (score == grid->Text(row, 3)) return;
        grid->SetText(row, 3, score);
        grid->SetBar(row, 4, 10 * grid->Value(row, 3));
    }
    QImage Picture() const { return grid->viewport()->grab().toImage(); }
    /// The colour of a bar at so much of its width, above the marks.
    QColor ColorAt(Long row, double place) const
    {
        QPoint point = PointIn(row, 4, place);
        point.ry() -= grid->rowHeight(row - 1) / 4;
        return Picture().pixelColor(point);
    }

    Long began = 0;
    std::vector<float> places;
};

TEST_F(GridBar, Press_SetsTheBarWhereThePointerIs)
{
    Press(1, 4, 0.72);
    Release(1, 4, 0.72);
    EXPECT_EQ(grid->Text(1, 3), "7");
    EXPECT_EQ(AccessibleText(1, 4), QStringLiteral("70 %"));
}

TEST_F(GridBar, Drag_FollowsInWholeSteps)
{
    Press(1, 4, 0.5);
    std::vector<std::string> scores;
    for (const double place : {0.54, 0.56, 0.64, 0.66, 0.31}) {
        Drag(1, 4, place);
        scores.push_back(grid->Text(1, 3));
    }
    Release(1, 4, 0.31);
    EXPECT_EQ(scores, (Log{"5", "6", "6", "7", "3"}));
}

TEST_F(GridBar, DragPastTheEnds_IsNoneOrAll)
{
    Press(1, 4, 0.5);
    Drag(1, 4, 1.4);
    EXPECT_GT(places.back(), 1.0F);
    EXPECT_EQ(grid->Text(1, 3), "10");
    Drag(1, 4, -0.3); // over the column beside it
    EXPECT_LT(places.back(), 0.0F);
    EXPECT_EQ(grid->Text(1, 3), "0");
    Release(1, 4, -0.3);
    EXPECT_EQ(grid->Text(1, 3), "0");
    EXPECT_EQ(AccessibleText(1, 4), QStringLiteral("0 %"));
}

TEST_F(GridBar, DragThatEndsInAnotherRow_IsToldOfThatRow)
{
    Press(1, 4, 0.5);
    Taken();
    Drag(2, 4, 0.9);
    Release(2, 4, 0.9);
    EXPECT_EQ(Taken(), (Log{"Move 2,4", "Up 2,4"}));
    EXPECT_EQ(grid->Text(1, 3), "5");
    EXPECT_EQ(grid->Text(2, 3), "6");
    EXPECT_EQ(grid->Row(), 1);
}

TEST_F(GridBar, DragOutOfTheRowAndBack_GoesOn)
{
    Press(1, 4, 0.5);
    Drag(2, 4, 0.9);
    Drag(1, 4, 0.8);
    EXPECT_EQ(grid->Text(1, 3), "8");
    QTest::mouseMove(grid->viewport(), QPoint(PointIn(1, 4).x(), -40)); // over the header
    Taken();
    QTest::mouseRelease(grid->viewport(), Qt::LeftButton, {}, QPoint(PointIn(1, 4).x(), -40));
    EXPECT_EQ(Taken(), (Log{"Up -1,-1"}));
    EXPECT_EQ(grid->Text(1, 3), "8");
}

TEST_F(GridBar, MoveWithoutTheButton_IsNotTold)
{
    QTest::mouseMove(grid->viewport(), PointIn(1, 4));
    QTest::mouseMove(grid->viewport(), PointIn(2, 1));
    EXPECT_EQ(Taken(), Log{});
}

TEST_F(GridBar, DragFromAPlainCell_TellsTheCellUnderThePointer)
{
    Press(1, 1);
    Taken();
    Drag(2, 4, 0.5);
    Release(2, 4, 0.5);
    EXPECT_EQ(Taken(), (Log{"Move 2,4", "Up 2,4"}));
    EXPECT_EQ(grid->Text(2, 3), "6");
}

TEST_F(GridBar, Pointer_SaysThatABarCanBeDragged)
{
    QTest::mouseMove(grid->viewport(), PointIn(1, 4));
    EXPECT_EQ(grid->viewport()->cursor().shape(), Qt::SplitHCursor);
    QTest::mouseMove(grid->viewport(), PointIn(1, 1));
    EXPECT_EQ(grid->viewport()->cursor().shape(), Qt::ArrowCursor);
}

TEST_F(GridBar, Keys_StepTheBarAndLeaveOtherCellsToTheArrows)
{
    grid->setFocus();
    grid->Select(1, 4);
    Taken();
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Home, Qt::Key_End})
        Key(key);
    EXPECT_EQ(Taken(), (Log{"Step -1", "Step 1", "Step -10", "Step 10"}));
    Key(Qt::Key_Down);
    EXPECT_EQ(grid->Row(), 2);
    grid->Select(1, 2);
    Taken();
    Key(Qt::Key_Left);
    EXPECT_EQ(Taken(), (Log{"Leave 1,2", "Enter 1,1"}));
}

TEST_F(GridBar, Value_IsReadAsShownAndChangesAreAnnounced)
{
    grid->SetBar(1, 4, 55.5);
    EXPECT_EQ(AccessibleText(1, 4), QStringLiteral("55.5 %"));
    grid->SetBar(1, 4, 250);
    EXPECT_EQ(AccessibleText(1, 4), QStringLiteral("100 %"));
    grid->SetBar(1, 4, -1);
    EXPECT_EQ(AccessibleText(1, 4), QString());
    QAccessibleInterface* table = QAccessible::queryAccessibleInterface(grid);
    ASSERT_NE(table, nullptr);
    ASSERT_NE(table->tableInterface(), nullptr);
    EXPECT_EQ(table->tableInterface()->cellAt(1, 4)->text(QAccessible::Name), QStringLiteral("60 %"));
}

TEST_F(GridBar, Picture_IsFilledUpToItsValue)
{
    const QColor fill = platform::GridLooks::BarFill(grid->palette(), true);
    for (const double percent : {0.0, 30.0, 75.0, 100.0}) {
        grid->SetBar(1, 4, percent);
        for (const double place : {0.05, 0.25, 0.35, 0.55, 0.72, 0.78, 0.95})
            EXPECT_EQ(ColorAt(1, place) == fill, place * 100 < percent) << percent << " at " << place;
    }
}

TEST_F(GridBar, Picture_HasAMarkAtEveryWholeStep)
{
    grid->SetBar(1, 4, 0);
    const QImage picture = Picture();
    const QColor ground = platform::GridLooks::BarTrack(grid->palette());
    int marks = 0;
    for (int x = grid->columnViewportPosition(4); x < grid->viewport()->width(); ++x) {
        const int foot = grid->rowViewportPosition(0) + grid->rowHeight(0) - platform::Theme::Gap() / 2 - 3;
        marks += picture.pixelColor(x, foot) != ground ? 1 : 0;
    }
    EXPECT_EQ(marks, 9 + 1); // and the line between the cells
}

TEST_F(GridBar, LightAndDark_ContrastHolds)
{
    for (const QPalette& palette : {QPalette(QColor(0xef, 0xef, 0xef)), platform::Theme::DarkPalette()}) {
        const QColor track = platform::GridLooks::BarTrack(palette);
        const QColor fill = platform::GridLooks::BarFill(palette, true);
        EXPECT_GE(platform::Theme::Contrast(fill, track), 3.0);
        for (const QColor& ground : {track, fill}) {
            const QColor ink = platform::GridLooks::TextOn(palette, ground, true);
            EXPECT_GE(platform::Theme::Contrast(ink, ground), 4.5);
        }
    }
}

} // namespace
