#include "RichTextFixture.h"

#include <QTextBlock>
#include <QTextList>

namespace {

constexpr auto kCtrlShift = Qt::ControlModifier | Qt::ShiftModifier;

class RichTextLists : public RichTextFixture
{
protected:
    void Bullets() { Press(Qt::Key_L, kCtrlShift); }
    void Numbers() { Press(Qt::Key_N, kCtrlShift); }
    QTextBlock Line(int number) { return body.document()->findBlockByNumber(number); }
};

/// The toolkit's numbers of styles fall from the disc on: numbered ones are below.
bool Numbered(const QTextList* list) { return list->format().style() <= QTextListFormat::ListDecimal; }

TEST_F(RichTextLists, Enter_GoesOnWithTheList)
{
    Numbers();
    Type("one");
    Press(Qt::Key_Return);
    Type("two");
    EXPECT_EQ(Line(0).textList()->itemText(Line(0)), QStringLiteral("1."));
    EXPECT_EQ(Line(1).textList()->itemText(Line(1)), QStringLiteral("2."));
    EXPECT_TRUE(Numbered(Line(1).textList()));
    EXPECT_EQ(StoredAgain(), body.SaveToMemory());
}

TEST_F(RichTextLists, EnterOnAnEmptyItem_EndsTheList)
{
    Bullets();
    Type("one");
    Press(Qt::Key_Return);
    Press(Qt::Key_Return);
    Type("after");
    EXPECT_NE(Line(0).textList(), nullptr);
    EXPECT_EQ(Line(1).textList(), nullptr);
    EXPECT_EQ(body.Text(), "one\nafter");
    EXPECT_EQ(Line(1).blockFormat().leftMargin(), 0.0);
    EXPECT_EQ(StoredAgain(), body.SaveToMemory());
}

TEST_F(RichTextLists, EnterOnAnEmptyInnerItem_MovesItOut)
{
    Numbers();
    Type("one");
    Press(Qt::Key_Return);
    Press(Qt::Key_Tab);
    Type("a");
    Press(Qt::Key_Return);
    Press(Qt::Key_Return);
    Type("two");
    EXPECT_EQ(Line(1).textList()->itemText(Line(1)), QStringLiteral("a."));
    EXPECT_EQ(Line(2).textList()->itemText(Line(2)), QStringLiteral("2."));
    EXPECT_EQ(StoredAgain(), body.SaveToMemory());
}

TEST_F(RichTextLists, BackspaceAtTheStart_TakesTheMarkerThenJoins)
{
    Bullets();
    Type("one");
    Press(Qt::Key_Return);
    Type("two");
    Press(Qt::Key_Home);
    Press(Qt::Key_Backspace);
    EXPECT_EQ(Line(1).textList(), nullptr);
    EXPECT_EQ(body.Text(), "one\ntwo");
    Press(Qt::Key_Backspace);
    EXPECT_EQ(body.Text(), "onetwo");
    EXPECT_NE(Line(0).textList(), nullptr);
}

TEST_F(RichTextLists, TabAtTheStart_ChangesTheLevelAndElsewhereIsACharacter)
{
    Numbers();
    Type("one");
    Press(Qt::Key_Return);
    Press(Qt::Key_Tab);
    Type("in");
    EXPECT_EQ(Line(1).textList()->itemText(Line(1)), QStringLiteral("a."));
    EXPECT_EQ(platform::RichTextDocument::LevelOf(Line(1)), 1);
    Press(Qt::Key_Tab);
    EXPECT_EQ(body.Text(), "one\nin\t");
    Press(Qt::Key_Home);
    Press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(Line(1).textList()->itemText(Line(1)), QStringLiteral("2."));
    EXPECT_EQ(StoredAgain(), body.SaveToMemory());
}

TEST_F(RichTextLists, ShiftTabOnAnOutermostItem_LeavesIt)
{
    Bullets();
    Press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_NE(Line(0).textList(), nullptr);
    EXPECT_TRUE(body.hasFocus());
}

TEST_F(RichTextLists, TabOverSeveralItems_MovesAllOfThem)
{
    Bullets();
    Type("one");
    Press(Qt::Key_Return);
    Type("two");
    SelectAll();
    Press(Qt::Key_Tab);
    EXPECT_EQ(body.Text(), "one\ntwo");
    EXPECT_EQ(platform::RichTextDocument::LevelOf(Line(0)), 1);
    EXPECT_EQ(platform::RichTextDocument::LevelOf(Line(1)), 1);
}

TEST_F(RichTextLists, ButtonAgain_TakesTheListAway)
{
    Type("word");
    const std::string before = body.SaveToMemory();
    Bullets();
    EXPECT_NE(body.SaveToMemory(), before);
    Bullets();
    EXPECT_EQ(body.SaveToMemory(), before);
}

TEST_F(RichTextLists, OtherKind_KeepsTheLevels)
{
    Bullets();
    Type("one");
    Press(Qt::Key_Return);
    Press(Qt::Key_Tab);
    Type("in");
    SelectAll();
    Numbers();
    EXPECT_EQ(Line(0).textList()->itemText(Line(0)), QStringLiteral("1."));
    EXPECT_EQ(Line(1).textList()->itemText(Line(1)), QStringLiteral("a."));
    EXPECT_EQ(StoredAgain(), body.SaveToMemory());
}

TEST_F(RichTextLists, ParagraphBesideAList_GoesOnWithIt)
{
    Numbers();
    Type("one");
    Press(Qt::Key_Return);
    Press(Qt::Key_Return);
    Type("two");
    Numbers();
    EXPECT_EQ(Line(1).textList()->itemText(Line(1)), QStringLiteral("2."));
}

TEST_F(RichTextLists, OneUndo_TakesBackOneCommand)
{
    Type("one");
    Press(Qt::Key_Return);
    Type("two");
    const std::string before = body.SaveToMemory();
    SelectAll();
    Numbers();
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(body.SaveToMemory(), before);
    Press(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(Line(1).textList()->itemText(Line(1)), QStringLiteral("2."));
}

TEST_F(RichTextLists, IndentButtons_MoveParagraphsByAStep)
{
    Type("word");
    Press(Qt::Key_M, Qt::ControlModifier);
    Press(Qt::Key_M, Qt::ControlModifier);
    EXPECT_EQ(Stored(), "\\pard\\li720 word\\par }");
    Press(Qt::Key_M, kCtrlShift);
    Press(Qt::Key_M, kCtrlShift);
    Press(Qt::Key_M, kCtrlShift);
    EXPECT_EQ(Stored(), "\\pard word\\par }");
}

} // namespace
