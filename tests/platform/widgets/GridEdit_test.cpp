#include "GridFixture.h"
#include "platform/widgets/EditCommands.h"

#include <QClipboard>
#include <QDialog>
#include <QInputMethodEvent>
#include <QPushButton>

namespace {

class GridEdit : public GridFixture
{
protected:
    using Log = GridFixture::Log;
    static void Copied(const char* text) { QGuiApplication::clipboard()->setText(QString::fromUtf8(text)); }
};

TEST_F(GridEdit, Escape_PutsTheOldTextBackIntoTheModelToo)
{
    EditAt(1, 3);
    Type("9");
    EXPECT_EQ(Taken(), (Log{"Change 9"}));
    Key(Qt::Key_Escape);
    EXPECT_EQ(Taken(), (Log{"Change 5", "After 1,3 5"}));
    EXPECT_EQ(grid->Text(1, 3), "5");
    EXPECT_FALSE(grid->IsEditing());
    EXPECT_TRUE(grid->hasFocus());
}

TEST_F(GridEdit, EscapeWithAnOldTextBeyondTheLimit_PutsItBackWhole)
{
    grid->SetText(1, 3, "123456.75");
    EditAt(1, 3);
    Type("9");
    Taken();
    Key(Qt::Key_Escape);
    EXPECT_EQ(Taken(), (Log{"Change 123456.75", "After 1,3 123456.75"}));
}

TEST_F(GridEdit, OldTextBeyondTheLimit_IsNotCutByLookingAtIt)
{
    grid->SetText(1, 3, "123456.75");
    EditAt(1, 3);
    Key(Qt::Key_Down);
    EXPECT_EQ(grid->Text(1, 3), "123456.75");
    EditAt(1, 3);
    Key(Qt::Key_End);
    Type("9"); // no room
    EXPECT_EQ(grid->EditText(), "123456.75");
    Key(Qt::Key_Backspace);
    Type("9"); // still too long
    EXPECT_EQ(grid->EditText(), "123456.7");
}

TEST_F(GridEdit, KeyFilter_DropsPrintableCharactersOnly)
{
    logsKeys = true;
    EditAt(1, 3);
    Type("a1.5-");
    EXPECT_EQ(Taken(),
              (Log{"Key a", "Key 1", "Change 1", "Key .", "Change 1.", "Key 5", "Change 1.5", "Key -"}));
    Key(Qt::Key_Backspace);
    EXPECT_EQ(Taken(), (Log{"Change 1."}));
    Key(Qt::Key_A, Qt::ControlModifier);
    Key(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(Taken(), (Log{"Change "}));
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("1."));
}

TEST_F(GridEdit, KeyFilter_HoldsForInputMethodsToo)
{
    EditAt(1, 3);
    QInputMethodEvent event;
    event.setCommitString(QStringLiteral("x4y"));
    QCoreApplication::sendEvent(Editor(), &event);
    EXPECT_EQ(grid->EditText(), "4");
}

TEST_F(GridEdit, Paste_PassesTheFilterButNotTheLimit)
{
    EditAt(1, 3);
    Copied("-12,345.678");
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Taken(), (Log{"Change -12,"}));
}

TEST_F(GridEdit, EditMenuPaste_GoesIntoTheOpenEditorAtItsSelection)
{
    EditAt(1, 3);
    Type("12");
    Editor()->setSelection(0, 1);
    Copied("34");
    platform::EditCommands::Paste(QApplication::focusWidget());
    EXPECT_EQ(grid->EditText(), "342");
}

TEST_F(GridEdit, EditMenuWithoutAnEdit_CopiesTheCellAndCutsItAsAnEditDoes)
{
    grid->setFocus();
    grid->Select(1, 3);
    Taken();
    platform::EditCommands::Copy(grid);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("5"));
    platform::EditCommands::Paste(grid);
    EXPECT_EQ(Taken(), Log{});
    platform::EditCommands::Cut(grid);
    EXPECT_EQ(Taken(), (Log{"Before 1,3", "Change ", "After 1,3 "}));
    grid->Select(1, 1);
    Taken();
    platform::EditCommands::Cut(grid);
    EXPECT_EQ(grid->Text(1, 1), "Target");
    EXPECT_EQ(Taken(), Log{});
}

TEST_F(GridEdit, EditCell_IsQueuedAndOpensOnce)
{
    grid->Select(1, 3);
    Taken();
    grid->EditCell();
    grid->EditCell();
    EXPECT_EQ(Taken(), Log{});
    EXPECT_FALSE(grid->IsEditing());
    Settle();
    grid->EditCell();
    Settle();
    EXPECT_EQ(Taken(), (Log{"Before 1,3"}));
    EXPECT_TRUE(grid->IsEditing());
}

TEST_F(GridEdit, EditCell_IsDroppedWhenTheCellIsLeftMeanwhile)
{
    grid->Select(1, 3);
    grid->EditCell();
    grid->Select(2, 3);
    Settle();
    EXPECT_FALSE(grid->IsEditing());
}

TEST_F(GridEdit, EditCellOfTheNextCell_TakesThePlaceOfTheFirst)
{
    grid->Select(1, 3);
    grid->EditCell();
    grid->Select(2, 3);
    grid->EditCell();
    Taken();
    Settle();
    EXPECT_EQ(Taken(), (Log{"Before 2,3"}));
}

TEST_F(GridEdit, EditCell_OpensNothingWhileBusyHiddenDisabledOrOnAHeader)
{
    grid->Select(1, 3);
    busy = true;
    grid->EditCell();
    busy = false;
    Settle();
    EXPECT_FALSE(grid->IsEditing());
    grid->EditCell();
    busy = true;
    Settle();
    EXPECT_FALSE(grid->IsEditing());
    busy = false;
    grid->EditCell();
    grid->setEnabled(false);
    Settle();
    EXPECT_FALSE(grid->IsEditing());
    grid->setEnabled(true);
    grid->EditCell();
    grid->hide();
    Settle();
    EXPECT_FALSE(grid->IsEditing());
    grid->show();
    grid->SetRow(0);
    grid->EditCell();
    Settle();
    EXPECT_FALSE(grid->IsEditing());
}

TEST_F(GridEdit, RefusedCell_DoesNotOpen)
{
    grid->Select(1, 1);
    grid->EditCell();
    Taken();
    Settle();
    EXPECT_EQ(Taken(), (Log{"Before 1,1"}));
    EXPECT_FALSE(grid->IsEditing());
}

TEST_F(GridEdit, F2_EditsEditableColumnsOnly)
{
    grid->setFocus();
    grid->Select(1, 1);
    Taken();
    Key(Qt::Key_F2);
    EXPECT_EQ(Taken(), Log{});
    grid->Select(1, 3);
    Taken();
    Key(Qt::Key_F2);
    EXPECT_EQ(Taken(), (Log{"Before 1,3"}));
    EXPECT_EQ(Editor()->selectedText(), QStringLiteral("5"));
}

TEST_F(GridEdit, TypingOnACell_ReplacesItsTextThroughTheFilter)
{
    grid->setFocus();
    grid->Select(2, 3);
    Taken();
    Type("x");
    EXPECT_EQ(Taken(), (Log{"Before 2,3"}));
    EXPECT_EQ(grid->EditText(), "6");
    Type("42");
    EXPECT_EQ(Taken(), (Log{"Change 4", "Change 42"}));
    Key(Qt::Key_Return);
    EXPECT_EQ(grid->Text(2, 3), "42");
}

TEST_F(GridEdit, TypingAheadOfTheQueuedEditor_LosesNothing)
{
    EditOnEntering();
    grid->setFocus();
    grid->Select(2, 3);
    QTest::keyClick(grid, Qt::Key_4, {}, 0); // before the queue has run
    Settle();
    EXPECT_EQ(grid->EditText(), "4");
    EXPECT_EQ(Taken(), (Log{"Leave 0,0", "Enter 2,3", "Before 2,3", "Change 4"}));
}

TEST_F(GridEdit, ClearedBox_IsAnEmptyText)
{
    EditAt(1, 3);
    Key(Qt::Key_Backspace);
    Key(Qt::Key_Return);
    EXPECT_EQ(grid->Text(1, 3), "");
    EXPECT_EQ(grid->Value(1, 3), 0.0);
}

TEST_F(GridEdit, SetEditText_IsAChange)
{
    EditAt(1, 3);
    grid->SetEditText("10");
    EXPECT_EQ(Taken(), (Log{"Change 10"}));
    grid->FinishEdit();
    EXPECT_EQ(Taken(), (Log{"After 1,3 10"}));
    grid->SetEditText("11"); // no editor is open
    EXPECT_EQ(grid->EditText(), "10");
}

TEST_F(GridEdit, EditorShowsTheTextNotItsFormat)
{
    grid->SetColFormat(3, "$#,0");
    grid->SetText(1, 3, "1234.5");
    EXPECT_EQ(grid->model()->index(0, 3).data().toString(), QStringLiteral("$1,235"));
    EditAt(1, 3);
    EXPECT_EQ(grid->EditText(), "1234.5");
    Key(Qt::Key_Escape);
    EXPECT_EQ(grid->Text(1, 3), "1234.5");
}

TEST_F(GridEdit, FillWhileEditing_DropsTheEdit)
{
    EditAt(1, 3);
    Type("9");
    Taken();
    FillRows();
    Settle();
    EXPECT_EQ(Taken(), Log{});
    EXPECT_FALSE(grid->IsEditing());
    EXPECT_EQ(grid->Text(1, 3), "5");
    EXPECT_EQ(grid->Row(), 1);
    EXPECT_TRUE(grid->hasFocus());
}

TEST_F(GridEdit, HandlerThatFillsAtAKey_DropsTheEditAndTheGridGoesOn)
{
    QObject::connect(grid, &platform::Grid::ChangeEdit, [this] { FillRows(); });
    EditAt(1, 3);
    Type("9");
    EXPECT_EQ(Taken(), (Log{"Change 9"}));
    EXPECT_FALSE(grid->IsEditing());
    EXPECT_TRUE(grid->hasFocus());
    EditAt(2, 3);
}

TEST_F(GridEdit, HandlerThatEndsTheEditAtAKey_EndsItOnce)
{
    QObject::connect(grid, &platform::Grid::ChangeEdit, [this] { grid->FinishEdit(); });
    EditAt(1, 3);
    Type("9");
    EXPECT_EQ(Taken(), (Log{"Change 9", "After 1,3 9"}));
    Key(Qt::Key_F2);
    Taken();
    Key(Qt::Key_Escape);
    EXPECT_EQ(Taken(), (Log{"Change 9", "After 1,3 9"}));
}

TEST_F(GridEdit, DoubleClick_OpensAnEditableCell)
{
    QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, PointIn(1, 3));
    Settle();
    EXPECT_TRUE(grid->IsEditing());
    QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, PointIn(1, 1));
    Settle();
    EXPECT_FALSE(grid->IsEditing());
}

TEST_F(GridEdit, EscapeOrEnterInADialog_EndTheEditAndNotTheDialog)
{
    QDialog dialog;
    auto* column = new QVBoxLayout(&dialog);
    auto* close = new QPushButton(QStringLiteral("Close"), &dialog);
    column->addWidget(grid);
    column->addWidget(close);
    close->setDefault(true);
    QObject::connect(close, &QPushButton::clicked, &dialog, &QDialog::accept);
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    grid->setFocus();
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return}) {
        EditAt(1, 3);
        Key(key);
        EXPECT_FALSE(grid->IsEditing());
        EXPECT_TRUE(dialog.isVisible());
    }
    Key(Qt::Key_Escape); // nothing is edited
    EXPECT_FALSE(dialog.isVisible());
    grid->setParent(&form);
}

TEST_F(GridEdit, RemovingTheEditedRow_DropsTheEdit)
{
    EditAt(2, 3);
    grid->RemoveItem(2);
    EXPECT_FALSE(grid->IsEditing());
    EXPECT_EQ(grid->Row(), 2);
    EXPECT_EQ(grid->Text(2, 3), "7");
    EXPECT_EQ(Taken(), Log{});
}

TEST_F(GridEdit, RemovingARowAbove_EditsOn)
{
    EditAt(3, 3);
    Type("9");
    Taken();
    grid->RemoveItem(1);
    ASSERT_TRUE(grid->IsEditing());
    grid->FinishEdit();
    EXPECT_EQ(Taken(), (Log{"After 2,3 9"}));
    EXPECT_EQ(grid->Text(2, 0), "B");
}

TEST_F(GridEdit, ChangesOfOtherCellsWhileTyping_LeaveTheEditorAlone)
{
    QObject::connect(grid, &platform::Grid::ChangeEdit, [this] {
        grid->SetBar(1, 4, 90);
        grid->SetText(1, 2, "12345678");
    });
    EditAt(1, 3);
    Type("12");
    EXPECT_EQ(grid->EditText(), "12");
    EXPECT_EQ(Editor()->x(), grid->columnViewportPosition(3)); // it moved with its column
}

TEST_F(GridEdit, LongestEntry_HasRoomInItsColumn)
{
    grid->SetLongestEntry(3, 12);
    EXPECT_GE(grid->columnWidth(3), grid->fontMetrics().horizontalAdvance(QStringLiteral("000000000000")));
}

TEST_F(GridEdit, Limit_WidensItsColumnAtTheFirstEdit)
{
    QObject::connect(
        grid, &platform::Grid::BeforeEdit, [this](Long, Long, bool&) { grid->SetEditMaxLength(12); });
    EditAt(1, 3);
    const QString longest(12, QLatin1Char('8'));
    EXPECT_GE(Editor()->width(), grid->fontMetrics().horizontalAdvance(longest));
}

TEST_F(GridEdit, Editor_IsNamedByItsColumnAndRow)
{
    EditAt(2, 3);
    EXPECT_EQ(Editor()->accessibleName(), QStringLiteral("Score, A, Fallback"));
}

TEST_F(GridEdit, TextGivenByAScreenReader_IsAnEdit)
{
    QAbstractItemModel* model = grid->model();
    EXPECT_TRUE(model->setData(model->index(1, 3), QStringLiteral("9")));
    EXPECT_EQ(Taken(), (Log{"Leave 0,0", "Enter 2,3", "Before 2,3", "Change 9", "After 2,3 9"}));
    EXPECT_FALSE(model->setData(model->index(1, 1), QStringLiteral("9")));
}

} // namespace
