#include "RichTextFixture.h"

#include <QTextTable>

namespace {

const std::string kTable =
    "{\\rtf1\\uc0\\pard before\\par\\trowd\\cellx2000\\cellx4000\\pard\\intbl a\\cell b\\cell\\row"
    "\\trowd\\cellx2000\\cellx4000\\pard\\intbl c\\cell d\\cell\\row}";

class RichTextTables : public RichTextFixture
{
protected:
    RichTextTables() { body.LoadFromMemory(kTable); }
    QTextTable& Table()
    {
        auto* table = qobject_cast<QTextTable*>(body.document()->rootFrame()->childFrames().first());
        EXPECT_NE(table, nullptr);
        return *table;
    }
    void PutInto(int row, int column)
    {
        body.setTextCursor(Table().cellAt(row, column).lastCursorPosition());
    }
};

TEST_F(RichTextTables, TypedIntoACell_IsTheCells)
{
    PutInto(1, 0);
    Type("x");
    EXPECT_EQ(body.Text(), "before\na\tb\ncx\td");
    EXPECT_EQ(StoredAgain(), body.SaveToMemory());
}

TEST_F(RichTextTables, TabAndShiftTab_LeadFromCellToCell)
{
    PutInto(0, 0);
    Press(Qt::Key_Tab);
    Type("x");
    Press(Qt::Key_Tab);
    Type("y");
    Press(Qt::Key_Backtab, Qt::ShiftModifier);
    Type("z");
    EXPECT_NE(body.Text().find("xb"), std::string::npos) << body.Text();
    EXPECT_EQ(body.Text().find('\t', body.Text().find("d")), std::string::npos);
    EXPECT_EQ(body.Text().find("  "), std::string::npos);
    EXPECT_EQ(StoredAgain(), body.SaveToMemory());
}

TEST_F(RichTextTables, TypedBehindTheTable_IsAParagraph)
{
    Press(Qt::Key_End, Qt::ControlModifier);
    Type("after");
    EXPECT_EQ(body.Text(), "before\na\tb\nc\td\nafter");
    Press(Qt::Key_Return);
    Press(Qt::Key_Return);
    Type("more");
    EXPECT_EQ(body.Text(), "before\na\tb\nc\td\nafter\n\nmore");
    EXPECT_EQ(StoredAgain(), body.SaveToMemory());
}

TEST_F(RichTextTables, ClearFormatting_LeavesTheTableWhole)
{
    SelectAll();
    Press(Qt::Key_B, Qt::ControlModifier);
    Press(Qt::Key_Space, Qt::ControlModifier);
    EXPECT_EQ(body.Text(), "before\na\tb\nc\td");
    EXPECT_EQ(Table().columns(), 2);
    EXPECT_EQ(StoredAgain(), body.SaveToMemory());
}

TEST_F(RichTextTables, TableDeleted_TheTextBesideStays)
{
    SelectAll();
    Press(Qt::Key_Delete);
    EXPECT_EQ(body.Text(), "");
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(body.Text(), "before\na\tb\nc\td");
    EXPECT_EQ(StoredAgain(), body.SaveToMemory());
}

TEST_F(RichTextTables, CopiedTable_IsPastedAsATable)
{
    SelectAll();
    body.Clip(2);
    body.LoadFromMemory("");
    body.Clip(3);
    EXPECT_EQ(body.Text(), "before\na\tb\nc\td\n"); // the paragraph that it was put into goes on behind it
    EXPECT_EQ(StoredAgain(), body.SaveToMemory());
}

} // namespace
