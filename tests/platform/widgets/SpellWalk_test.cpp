#include "platform/spelling/Speller.h"
#include "platform/widgets/SpellMarks.h"
#include "platform/widgets/SpellWalk.h"
#include "platform/widgets/Theme.h"
#include "support/TempFolder.h"

#include <QTextDocument>
#include <QTextEdit>

#include <gmock/gmock.h>

using platform::AddResult;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class SpellWalk : public ::testing::Test
{
protected:
    SpellWalk() { speller.SetUserDictionary(folder.File("Custom.dct")); }

    void Show(const char* text) { editor.setPlainText(QString::fromUtf8(text)); }
    std::string Text() const { return editor.toPlainText().toStdString(); }
    platform::SpellWalk Begin() { return platform::SpellWalk(editor, speller); }
    /// All wrong words from the start, each left as it is.
    std::vector<std::string> All()
    {
        platform::SpellWalk walk = Begin();
        std::vector<std::string> words;
        while (walk.Next()) {
            words.push_back(walk.Word().toStdString());
            walk.Ignore();
        }
        return words;
    }

    support::TempFolder folder;
    platform::Speller speller;
    QTextEdit editor;
};

TEST_F(SpellWalk, WholeText_FromItsStartWhereverTheCaretIs)
{
    Show("First fier.\n\nSecnd line.");
    editor.moveCursor(QTextCursor::End);
    EXPECT_THAT(All(), ElementsAre("fier", "Secnd"));
}

TEST_F(SpellWalk, Tables_TheirCellsToo)
{
    editor.setHtml(QStringLiteral("<p>fier</p><table><tr><td>secnd</td><td>ridge</td></tr></table>thrid"));
    EXPECT_THAT(All(), ElementsAre("fier", "secnd", "thrid"));
}

TEST_F(SpellWalk, CharactersBeyondAscii_RightPlaces)
{
    speller.Add("Añasco");
    Show("\U0001F525 Añasco \u201Cfier\u201D \u2014 can\u2019t secnd");
    EXPECT_THAT(All(), ElementsAre("fier", "secnd"));
}

TEST_F(SpellWalk, Next_SelectsTheWordInTheEditor)
{
    Show("The fier burned.");
    platform::SpellWalk walk = Begin();
    ASSERT_TRUE(walk.Next());
    EXPECT_EQ(editor.textCursor().selectedText().toStdString(), "fier");
}

TEST_F(SpellWalk, NothingWrong_NoStop)
{
    Show("The fire burned.");
    EXPECT_FALSE(Begin().Next());
    Show("");
    EXPECT_FALSE(Begin().Next());
}

TEST_F(SpellWalk, Sentence_TheOneAroundTheWord)
{
    Show("All is calm. The fier burned hot! Crews left.\nNext.");
    platform::SpellWalk walk = Begin();
    ASSERT_TRUE(walk.Next());
    EXPECT_EQ(walk.Sentence().toStdString(), "The fier burned hot!");
    EXPECT_EQ(walk.PlaceInSentence(), 4);
}

TEST_F(SpellWalk, Sentence_WholeParagraphWithoutMarks)
{
    Show("fier in drainage 4.5 miles out");
    platform::SpellWalk walk = Begin();
    ASSERT_TRUE(walk.Next());
    EXPECT_EQ(walk.Sentence().toStdString(), "fier in drainage 4.5 miles out");
    EXPECT_EQ(walk.PlaceInSentence(), 0);
}

TEST_F(SpellWalk, Sentence_LineBreakEndsIt)
{
    Show("x");
    editor.setPlainText(QStringLiteral("one line\u2028the fier here\u2028last line"));
    platform::SpellWalk walk = Begin();
    ASSERT_TRUE(walk.Next());
    EXPECT_EQ(walk.Sentence().toStdString(), "the fier here");
    EXPECT_EQ(walk.PlaceInSentence(), 4);
}

TEST_F(SpellWalk, Sentence_OfAnEndlessParagraphIsCut)
{
    QString text;
    for (int i = 0; i < 500; ++i)
        text += QStringLiteral("ridge ");
    editor.setPlainText(text + QStringLiteral("fier ") + text);
    platform::SpellWalk walk = Begin();
    ASSERT_TRUE(walk.Next());
    EXPECT_LT(walk.Sentence().size(), 420);
    EXPECT_EQ(walk.Sentence().mid(walk.PlaceInSentence(), 4).toStdString(), "fier");
}

TEST_F(SpellWalk, Change_InTheDocumentWithTheWordsFormat)
{
    editor.setHtml(QStringLiteral("<p>The <b>fier</b> burned</p>"));
    int changes = 0;
    QObject::connect(&editor, &QTextEdit::textChanged, [&changes] { ++changes; });
    platform::SpellWalk walk = Begin();
    ASSERT_TRUE(walk.Next());
    walk.Change(QStringLiteral("wildfire"));
    EXPECT_EQ(Text(), "The wildfire burned");
    EXPECT_GE(changes, 1);
    EXPECT_TRUE(editor.document()->isModified());
    QTextCursor in(editor.document());
    in.setPosition(5);
    EXPECT_EQ(in.charFormat().fontWeight(), QFont::Bold);
    in.setPosition(14);
    EXPECT_NE(in.charFormat().fontWeight(), QFont::Bold);
    EXPECT_FALSE(walk.Next());
}

TEST_F(SpellWalk, Change_OfAFirstWordInBoldKeepsItBold)
{
    editor.setHtml(QStringLiteral("<p><b>Fier</b> burned</p>"));
    platform::SpellWalk walk = Begin();
    ASSERT_TRUE(walk.Next());
    walk.Change(QStringLiteral("Fire"));
    QTextCursor in(editor.document());
    in.setPosition(1);
    EXPECT_EQ(in.charFormat().fontWeight(), QFont::Bold);
}

TEST_F(SpellWalk, Change_EditorsUndoTakesBackThatWordOnly)
{
    Show("fier secnd");
    editor.moveCursor(QTextCursor::End);
    editor.insertPlainText(QStringLiteral(" x"));
    platform::SpellWalk walk = Begin();
    ASSERT_TRUE(walk.Next());
    walk.Change(QStringLiteral("fire"));
    ASSERT_TRUE(walk.Next());
    walk.Change(QStringLiteral("second"));
    EXPECT_EQ(Text(), "fire second x");
    editor.undo();
    EXPECT_EQ(Text(), "fire secnd x");
    editor.undo();
    EXPECT_EQ(Text(), "fier secnd x");
}

TEST_F(SpellWalk, ChangeToAnotherWrongWord_NotAskedAgain)
{
    Show("fier secnd");
    platform::SpellWalk walk = Begin();
    ASSERT_TRUE(walk.Next());
    walk.Change(QStringLiteral("fyre qzx"));
    ASSERT_TRUE(walk.Next());
    EXPECT_EQ(walk.Word().toStdString(), "secnd");
}

TEST_F(SpellWalk, ChangeAll_FromHereOnInOneUndo)
{
    Show("fier, secnd fier\nFier fier's fier");
    platform::SpellWalk walk = Begin();
    ASSERT_TRUE(walk.Next());
    walk.Ignore();
    ASSERT_TRUE(walk.Next());
    walk.Ignore();
    ASSERT_TRUE(walk.Next());
    walk.ChangeAll(QStringLiteral("wildfire"));
    EXPECT_EQ(Text(), "fier, secnd wildfire\nFier fier's wildfire");
    ASSERT_TRUE(walk.Next());
    EXPECT_EQ(walk.Word().toStdString(), "Fier");
    editor.undo();
    EXPECT_EQ(Text(), "fier, secnd fier\nFier fier's fier");
}

TEST_F(SpellWalk, IgnoreAll_NoFurtherStopAtThatWord)
{
    Show("fier secnd fier");
    platform::SpellWalk walk = Begin();
    ASSERT_TRUE(walk.Next());
    walk.IgnoreAll();
    EXPECT_THAT(All(), ElementsAre("secnd"));
}

TEST_F(SpellWalk, Add_NoFurtherStopAndInTheFile)
{
    Show("fier secnd fier");
    platform::SpellWalk walk = Begin();
    ASSERT_TRUE(walk.Next());
    EXPECT_EQ(walk.Add(), AddResult::KeptInNewFile);
    EXPECT_THAT(All(), ElementsAre("secnd"));
    EXPECT_EQ(support::ReadFile(folder.File("Custom.dct")), "fier\n");
}

TEST_F(SpellWalk, HyphenatedWord_OnlyItsWrongPart)
{
    Show("hand-cruw");
    platform::SpellWalk walk = Begin();
    ASSERT_TRUE(walk.Next());
    EXPECT_EQ(walk.Word().toStdString(), "cruw");
    walk.Change(QStringLiteral("crew"));
    EXPECT_EQ(Text(), "hand-crew");
    EXPECT_FALSE(walk.Next());
}

TEST_F(SpellWalk, Undo_EachStepInTurn)
{
    Show("fier secnd thrid fier");
    platform::SpellWalk walk = Begin();
    EXPECT_FALSE(walk.CanUndo());
    ASSERT_TRUE(walk.Next());
    walk.ChangeAll(QStringLiteral("fire"));
    ASSERT_TRUE(walk.Next());
    walk.IgnoreAll();
    ASSERT_TRUE(walk.Next());
    walk.Ignore();
    EXPECT_FALSE(walk.Next());
    for (const char* word : {"thrid", "secnd", "fier"}) {
        ASSERT_TRUE(walk.CanUndo());
        walk.Undo();
        ASSERT_TRUE(walk.Next());
        EXPECT_EQ(walk.Word().toStdString(), word);
    }
    EXPECT_FALSE(walk.CanUndo());
    EXPECT_EQ(Text(), "fier secnd thrid fier");
}

TEST_F(SpellWalk, Suggestions_OfTheWord)
{
    Show("rigde");
    platform::SpellWalk walk = Begin();
    ASSERT_TRUE(walk.Next());
    EXPECT_EQ(walk.Suggestions().front().toStdString(), "ridge");
}

TEST(SpellMarks, Underline_ReadableOnLightAndDark)
{
    for (const QPalette& palette : {QPalette(Qt::white, Qt::white), platform::Theme::DarkPalette()}) {
        const QTextCharFormat mark = platform::WrongWordFormat(palette);
        EXPECT_EQ(mark.underlineStyle(), QTextCharFormat::SpellCheckUnderline);
        EXPECT_GE(platform::Theme::Contrast(mark.underlineColor(), palette.color(QPalette::Base)), 3.0);
    }
}

} // namespace
