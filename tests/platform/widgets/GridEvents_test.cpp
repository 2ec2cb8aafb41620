#include "GridFixture.h"
#include "platform/base/Errors.h"

namespace {

class GridEvents : public GridFixture
{
protected:
    using Log = GridFixture::Log;
    void ExpectError(const std::string& cause)
    {
        desktop.ExpectText({"Something went wrong: " + cause + ".",
                            "You can go on working; what was saved before is safe."});
    }
};

TEST_F(GridEvents, Click_LeavesAndEntersBeforeTheMouse)
{
    ClickOn(1, 0);
    EXPECT_EQ(Taken(), (Log{"Leave 0,0", "Enter 1,0", "Down 1,0", "Up 1,0", "Click"}));
    ClickOn(3, 1);
    EXPECT_EQ(Taken(), (Log{"Leave 1,0", "Enter 3,1", "Down 3,1", "Up 3,1", "Click"}));
}

TEST_F(GridEvents, ClickOnTheCurrentCell_EntersNothing)
{
    ClickOn(2, 1);
    Taken();
    ClickOn(2, 1);
    EXPECT_EQ(Taken(), (Log{"Down 2,1", "Up 2,1", "Click"}));
}

TEST_F(GridEvents, ClickOnTheSecondRowOfAMergedCell_IsThatRow)
{
    ASSERT_EQ(grid->rowSpan(0, 0), 2);
    ClickOn(2, 0);
    EXPECT_EQ(Taken(), (Log{"Leave 0,0", "Enter 2,0", "Down 2,0", "Up 2,0", "Click"}));
    ClickOn(4, 1); // merged across
    EXPECT_EQ(grid->Row(), 4);
    EXPECT_EQ(grid->Col(), 1);
}

TEST_F(GridEvents, PressBelowTheRows_IsNoCell)
{
    grid->Select(1, 0);
    Taken();
    const QPoint below(10, grid->viewport()->height() - 4);
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, below);
    EXPECT_EQ(Taken(), (Log{"Down -1,-1", "Up -1,-1"}));
    EXPECT_EQ(grid->Row(), 1);
}

TEST_F(GridEvents, RightButton_RaisesNothing)
{
    QTest::mouseClick(grid->viewport(), Qt::RightButton, {}, PointIn(1, 1));
    EXPECT_EQ(Taken(), Log{});
}

TEST_F(GridEvents, SelectInCode_RaisesTheSameOnceItMoves)
{
    grid->Select(2, 3);
    EXPECT_EQ(Taken(), (Log{"Leave 0,0", "Enter 2,3"}));
    grid->Select(2, 3);
    EXPECT_EQ(Taken(), Log{});
    grid->SetRow(0);
    EXPECT_EQ(Taken(), (Log{"Leave 2,3", "Enter 0,3"}));
    grid->SetCol(1);
    EXPECT_EQ(Taken(), (Log{"Leave 0,3", "Enter 0,1"}));
}

TEST_F(GridEvents, SelectOutside_ThrowsAndRaisesNothing)
{
    EXPECT_THROW(grid->Select(5, 0), platform::OutOfBounds);
    EXPECT_THROW(grid->Select(-1, 0), platform::OutOfBounds);
    EXPECT_THROW(grid->Select(1, 5), platform::OutOfBounds);
    EXPECT_EQ(Taken(), Log{});
}

TEST_F(GridEvents, Busy_MovesAreTold)
{
    busy = true;
    grid->Select(2, 3);
    EXPECT_EQ(Taken(), (Log{"Leave 0,0", "Enter 2,3"}));
}

TEST_F(GridEvents, LeavingAnEditedCell_EndsTheEditFirst)
{
    EditAt(1, 3);
    Type("9");
    Taken();
    ClickOn(2, 1);
    EXPECT_EQ(Taken(), (Log{"After 1,3 9", "Leave 1,3", "Enter 2,1", "Down 2,1", "Up 2,1", "Click"}));
}

TEST_F(GridEvents, EnteringByAPress_OpensTheEditorAndTheReleaseLeavesItOpen)
{
    EditOnEntering();
    Press(1, 3);
    EXPECT_FALSE(grid->IsEditing()); // queued
    EXPECT_EQ(Taken(), (Log{"Leave 0,0", "Enter 1,3", "Down 1,3"}));
    Settle();
    EXPECT_TRUE(grid->IsEditing());
    Release(1, 3);
    Settle();
    EXPECT_EQ(Taken(), (Log{"Before 1,3", "Up 1,3", "Click"}));
    ASSERT_TRUE(grid->IsEditing());
    EXPECT_EQ(Editor()->selectedText(), QStringLiteral("5"));
    Type("7");
    EXPECT_EQ(Taken(), (Log{"Change 7"}));
}

TEST_F(GridEvents, FromEditedCellToEditedCell_InOrder)
{
    EditOnEntering();
    ClickOn(1, 3);
    Taken();
    ClickOn(2, 3);
    EXPECT_EQ(Taken(),
              (Log{"After 1,3 5", "Leave 1,3", "Enter 2,3", "Down 2,3", "Up 2,3", "Click", "Before 2,3"}));
    EXPECT_TRUE(grid->IsEditing());
}

TEST_F(GridEvents, PressOnTheCellBeingEdited_GoesOnEditing)
{
    EditAt(1, 3);
    Type("9");
    Taken();
    ClickOn(1, 3);
    EXPECT_EQ(Taken(), (Log{"Down 1,3", "Up 1,3", "Click"}));
    EXPECT_TRUE(grid->IsEditing());
    ASSERT_NE(Editor(), nullptr);
    EXPECT_EQ(grid->EditText(), "9");
}

TEST_F(GridEvents, Enter_CommitsAndGoesDown)
{
    EditOnEntering();
    EditAt(1, 3);
    Type("8");
    Taken();
    Key(Qt::Key_Return);
    EXPECT_EQ(Taken(), (Log{"After 1,3 8", "Leave 1,3", "Enter 2,3", "Before 2,3"}));
    EXPECT_TRUE(grid->IsEditing());
}

TEST_F(GridEvents, EnterInTheLastRow_CommitsAndStays)
{
    EditAt(4, 3);
    Key(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(Taken(), (Log{"After 4,3 8"}));
    EXPECT_TRUE(grid->hasFocus());
}

TEST_F(GridEvents, UpAndDownWhileEditing_LeaveToTheNextRow)
{
    EditAt(2, 3);
    Key(Qt::Key_Down);
    EXPECT_EQ(Taken(), (Log{"After 2,3 6", "Leave 2,3", "Enter 3,3"}));
    EditAt(2, 3);
    Key(Qt::Key_Up);
    EXPECT_EQ(Taken(), (Log{"After 2,3 6", "Leave 2,3", "Enter 1,3"}));
    EditAt(1, 3);
    Key(Qt::Key_Up); // there is no row above
    EXPECT_EQ(Taken(), Log{});
    EXPECT_TRUE(grid->IsEditing());
}

TEST_F(GridEvents, Tab_WalksTheEditableCellsAndLeavesAtTheEnd)
{
    grid->setFocus();
    Key(Qt::Key_Tab);
    EXPECT_EQ(Taken(), (Log{"Leave 0,0", "Enter 1,3"}));
    for (int row = 2; row <= 4; ++row)
        Key(Qt::Key_Tab);
    EXPECT_EQ(grid->Row(), 4);
    Taken();
    Key(Qt::Key_Tab);
    EXPECT_TRUE(after->hasFocus());
    EXPECT_EQ(Taken(), (Log{"LostFocus"}));
}

TEST_F(GridEvents, TabWhileEditingTheLastCell_EndsTheEditAndLeaves)
{
    EditAt(4, 3);
    Key(Qt::Key_Tab);
    EXPECT_EQ(Taken(), (Log{"After 4,3 8", "LostFocus"}));
    EXPECT_TRUE(after->hasFocus());
}

TEST_F(GridEvents, BackTab_WalksBackAndLeavesAtTheTop)
{
    EditOnEntering();
    EditAt(2, 3);
    Key(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(Taken(), (Log{"After 2,3 6", "Leave 2,3", "Enter 1,3", "Before 1,3"}));
    Key(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(Taken(), (Log{"After 1,3 5", "LostFocus"}));
    EXPECT_TRUE(before->hasFocus());
}

TEST_F(GridEvents, TabWithNothingToEdit_LeavesAtOnce)
{
    grid->SetEditable(3, false);
    grid->setFocus();
    Key(Qt::Key_Tab);
    EXPECT_TRUE(after->hasFocus());
}

TEST_F(GridEvents, Arrows_MoveByCellsIgnoringMerges)
{
    grid->setFocus();
    Key(Qt::Key_Down); // from none to the first row
    Key(Qt::Key_Down);
    Key(Qt::Key_Right);
    Key(Qt::Key_Left);
    Key(Qt::Key_Left); // there is none
    EXPECT_EQ(Taken(),
              (Log{"Leave 0,0",
                   "Enter 1,0",
                   "Leave 1,0",
                   "Enter 2,0",
                   "Leave 2,0",
                   "Enter 2,1",
                   "Leave 2,1",
                   "Enter 2,0"}));
    Key(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(grid->Row(), 4);
    Key(Qt::Key_Home);
    Key(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(grid->Row(), 1);
    Key(Qt::Key_PageDown);
    EXPECT_EQ(grid->Row(), 4);
}

TEST_F(GridEvents, EnterWhileNotEditing_GoesDownWhereThereIsAnythingToEdit)
{
    grid->setFocus();
    grid->Select(1, 1);
    Key(Qt::Key_Return);
    EXPECT_EQ(grid->Row(), 2);
    grid->SetEditable(3, false);
    Key(Qt::Key_Return);
    EXPECT_EQ(grid->Row(), 2);
}

TEST_F(GridEvents, KeyDown_ComesFirstAndMaySwallow)
{
    bool swallows = true;
    QObject::connect(grid, &platform::Grid::KeyDown, [&](int key, bool& swallow) {
        Note("KeyDown " + std::to_string(key == Qt::Key_Delete));
        swallow = swallows;
    });
    grid->setFocus();
    grid->Select(1, 3);
    Taken();
    Key(Qt::Key_Delete);
    EXPECT_EQ(Taken(), (Log{"KeyDown 1"}));
    swallows = false;
    Key(Qt::Key_Delete); // empties the cell, as an edit does
    EXPECT_EQ(Taken(), (Log{"KeyDown 1", "Before 1,3", "Change ", "After 1,3 "}));
    EXPECT_EQ(grid->Text(1, 3), "");
    Key(Qt::Key_Up);
    EXPECT_EQ(Taken(), (Log{"KeyDown 0"}));
}

TEST_F(GridEvents, KeyDown_IsNotRaisedWhileEditing)
{
    QObject::connect(grid, &platform::Grid::KeyDown, [&](int, bool&) { Note("KeyDown"); });
    EditAt(1, 3);
    Key(Qt::Key_Delete);
    EXPECT_EQ(Taken(), (Log{"Change "}));
}

TEST_F(GridEvents, FocusToAnotherControl_EndsTheEditThenTellsIt)
{
    EditAt(1, 3);
    Type("3");
    Taken();
    QTest::mouseClick(after, Qt::LeftButton);
    EXPECT_EQ(Taken(), (Log{"After 1,3 3", "LostFocus"}));
    EXPECT_TRUE(after->hasFocus());
}

TEST_F(GridEvents, FocusToAnotherWindow_KeepsTheEdit)
{
    EditAt(1, 3);
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_EQ(Taken(), Log{});
    EXPECT_TRUE(grid->IsEditing());
    form.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    Type("4");
    EXPECT_EQ(Taken(), (Log{"Change 4"}));
}

TEST_F(GridEvents, Disabled_EndsTheEditWithTheTextKept)
{
    EditAt(1, 3);
    Type("3");
    Taken();
    form.setEnabled(false);
    EXPECT_EQ(Taken().front(), "After 1,3 3");
    EXPECT_FALSE(grid->IsEditing());
    grid->EditCell();
    Settle();
    EXPECT_FALSE(grid->IsEditing());
}

TEST_F(GridEvents, HiddenOrClosed_EndsTheEditWithTheTextKept)
{
    EditAt(1, 3);
    Type("3");
    Taken();
    form.close();
    EXPECT_EQ(Taken().front(), "After 1,3 3");
    EXPECT_EQ(grid->Text(1, 3), "3");
}

TEST_F(GridEvents, ErrorInAHandler_IsToldAndTheGridGoesOn)
{
    bool fails = true;
    QObject::connect(grid, &platform::Grid::LeaveCell, [&](Long, Long) {
        if (fails) throw platform::OutOfBounds("test", 7);
    });
    const std::string cause = platform::OutOfBounds("test", 7).what();
    ExpectError(cause);
    ClickOn(1, 1);
    EXPECT_EQ(Taken(), (Log{"Leave 0,0", "Enter 1,1", "Down 1,1", "Up 1,1", "Click"}));
    EXPECT_EQ(errors, (Log{cause}));
    fails = false;
    ClickOn(2, 1);
    EXPECT_EQ(grid->Row(), 2);
}

TEST_F(GridEvents, ErrorInAfterEdit_TheTextStandsAndTheCellIsLeft)
{
    QObject::connect(grid, &platform::Grid::AfterEdit, [](Long, Long) { throw platform::Overflow("score"); });
    EditAt(1, 3);
    Type("9");
    Taken();
    ExpectError(platform::Overflow("score").what());
    ClickOn(2, 1);
    EXPECT_EQ(grid->Text(1, 3), "9");
    EXPECT_EQ(grid->Row(), 2);
    EXPECT_FALSE(grid->IsEditing());
}

TEST_F(GridEvents, ErrorInBeforeEdit_NoEditorOpens)
{
    QObject::connect(
        grid, &platform::Grid::BeforeEdit, [](Long, Long, bool&) { throw platform::Overflow("limit"); });
    ExpectError(platform::Overflow("limit").what());
    grid->Select(1, 3);
    grid->EditCell();
    Settle();
    EXPECT_FALSE(grid->IsEditing());
}

TEST_F(GridEvents, HandlerThatSelects_HasTheLastWord)
{
    bool once = true;
    QObject::connect(grid, &platform::Grid::AfterEdit, [&](Long, Long) {
        if (std::exchange(once, false)) grid->Select(4, 0);
    });
    EditAt(1, 3);
    Press(2, 1);
    EXPECT_EQ(Taken(), (Log{"After 1,3 5", "Leave 1,3", "Enter 4,0", "Down 2,1"}));
    EXPECT_EQ(grid->Row(), 4);
}

TEST_F(GridEvents, HandlerOfEnterThatSelects_GoesThere)
{
    QObject::connect(grid, &platform::Grid::EnterCell, [this] {
        if (grid->Row() == 2) grid->SetRow(3);
    });
    grid->Select(2, 1);
    EXPECT_EQ(Taken(), (Log{"Leave 0,0", "Enter 2,1", "Leave 2,1", "Enter 3,1"}));
}

TEST_F(GridEvents, HandlerThatFillsInAfterEdit_EntersWhatIsThere)
{
    QObject::connect(grid, &platform::Grid::AfterEdit, [this](Long, Long) {
        grid->Fill([](platform::GridContents& contents) { contents.SetRows(3); });
    });
    EditAt(1, 3);
    Press(4, 1);
    EXPECT_EQ(Taken(), (Log{"After 1,3 5", "Leave 1,3", "Enter 2,1", "Down 4,1"}));
    EXPECT_EQ(grid->Row(), 2);
}

TEST_F(GridEvents, HandlerThatRemovesTheRowItEnters_LeavesAWholeGrid)
{
    bool once = true;
    QObject::connect(grid, &platform::Grid::EnterCell, [&] {
        if (std::exchange(once, false)) grid->RemoveItem(grid->Row());
    });
    ClickOn(4, 1);
    EXPECT_EQ(grid->Rows(), 4);
    EXPECT_EQ(grid->Row(), 3);
    ClickOn(1, 1);
    EXPECT_EQ(grid->Row(), 1);
}

TEST_F(GridEvents, HandlerThatDestroysTheGrid_EndsThere)
{
    QObject::connect(grid, &platform::Grid::LeaveCell, [this](Long, Long) { delete grid; });
    grid->Select(2, 1);
    EXPECT_EQ(Taken(), (Log{"Leave 0,0"}));
}

} // namespace
