#include "RichTextFixture.h"

#include <QScrollBar>
#include <QTemporaryDir>
#include <QTextBlock>
#include <QTextList>

namespace {

using RichTextEdit = RichTextFixture;

TEST_F(RichTextEdit, DefaultBody_ComesBackToTheLetter) { EXPECT_EQ(body.SaveToMemory(), kEmptyBody); }

TEST_F(RichTextEdit, EmptyString_IsSavedAsTheDefaultBody)
{
    body.LoadFromMemory("");
    EXPECT_EQ(body.SaveToMemory(), kEmptyBody);
}

TEST_F(RichTextEdit, Loading_IsNoChangeAndNoStepOfUndo)
{
    body.LoadFromMemory("This is plain.\nTwo lines {of} it\\");
    EXPECT_EQ(changes, 0);
    EXPECT_FALSE(body.document()->isUndoAvailable());
    EXPECT_FALSE(body.document()->isModified());
    EXPECT_EQ(body.Text(), "This is plain.\nTwo lines {of} it\\");
    body.undo();
    EXPECT_EQ(body.Text(), "This is plain.\nTwo lines {of} it\\");
}

TEST_F(RichTextEdit, UndoAfterTyping_StopsAtWhatWasLoaded)
{
    body.LoadFromMemory("loaded");
    Press(Qt::Key_End);
    Type(" typed");
    for (int i = 0; i < 10; ++i)
        body.undo();
    EXPECT_EQ(body.Text(), "loaded");
}

TEST_F(RichTextEdit, EachKey_IsOneChange)
{
    Type("ab");
    EXPECT_EQ(changes, 2);
    EXPECT_EQ(Stored(), "\\pard ab\\par }");
}

TEST_F(RichTextEdit, SavedForm_EndsInParAndReloadsEqual)
{
    Type("one");
    Press(Qt::Key_Return);
    Type("two");
    EXPECT_EQ(Stored(), "\\pard one\\par \\pard two\\par }");
    EXPECT_EQ(StoredAgain(), body.SaveToMemory());
}

TEST_F(RichTextEdit, FirstKeyAfterLoading_LooksLikeTheTextThere)
{
    body.LoadFromMemory("{\\rtf1\\pard\\b\\fs20 old\\par }");
    Type("x");
    EXPECT_EQ(Stored(), "\\pard \\b xold\\b0\\par }");
}

TEST_F(RichTextEdit, EnterAfterAPageBreak_BreaksThePageOnce)
{
    body.LoadFromMemory("{\\rtf1\\pard\\pagebb\\fs20 first\\par }");
    Press(Qt::Key_End);
    Press(Qt::Key_Return);
    Type("second");
    EXPECT_EQ(Stored(), "\\pard\\pagebb first\\par \\pard second\\par }");
}

TEST_F(RichTextEdit, LookAlone_IsAChange)
{
    body.LoadFromMemory("word");
    SelectAll();
    Press(Qt::Key_B, Qt::ControlModifier);
    EXPECT_GE(changes, 1);
    EXPECT_EQ(Stored(), "\\pard \\b word\\b0\\par }");
}

TEST_F(RichTextEdit, CtrlBIU_HoldForWhatIsTypedNext)
{
    Type("a");
    Press(Qt::Key_B, Qt::ControlModifier);
    Type("b");
    Press(Qt::Key_B, Qt::ControlModifier);
    Press(Qt::Key_I, Qt::ControlModifier);
    Type("c");
    Press(Qt::Key_I, Qt::ControlModifier);
    Press(Qt::Key_U, Qt::ControlModifier);
    Type("d");
    EXPECT_EQ(Stored(), "\\pard a\\b b\\b0\\i c\\i0\\ul d\\ulnone\\par }");
    EXPECT_EQ(StoredAgain(), body.SaveToMemory());
}

TEST_F(RichTextEdit, AlignmentKeys_SetTheParagraph)
{
    const std::vector<std::pair<Qt::Key, std::string>> cases = {
        {Qt::Key_E, "\\qc"}, {Qt::Key_R, "\\qr"}, {Qt::Key_J, "\\qj"}, {Qt::Key_L, ""}};
    Type("x");
    for (const auto& [key, word] : cases) {
        Press(key, Qt::ControlModifier);
        EXPECT_EQ(Stored(), "\\pard" + word + " x\\par }") << word;
    }
}

TEST_F(RichTextEdit, UndoAndRedoKeys_BringTextAndLookBack)
{
    Type("word");
    SelectAll();
    Press(Qt::Key_B, Qt::ControlModifier);
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Stored(), "\\pard word\\par }");
    Press(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(Stored(), "\\pard \\b word\\b0\\par }");
}

TEST_F(RichTextEdit, ClearFormatting_LeavesTheTextAlone)
{
    Type("word");
    SelectAll();
    Press(Qt::Key_B, Qt::ControlModifier);
    Press(Qt::Key_E, Qt::ControlModifier);
    Press(Qt::Key_L, Qt::ControlModifier | Qt::ShiftModifier);
    SelectAll();
    Press(Qt::Key_Space, Qt::ControlModifier);
    EXPECT_EQ(Stored(), "\\pard word\\par }");
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_NE(Stored(), "\\pard word\\par }");
}

TEST_F(RichTextEdit, ShiftEnter_BreaksTheLineWithinTheParagraph)
{
    Type("a");
    Press(Qt::Key_Return, Qt::ShiftModifier);
    Type("b");
    EXPECT_EQ(Stored(), "\\pard a\\line b\\par }");
    EXPECT_EQ(body.Text(), "a\nb");
}

TEST_F(RichTextEdit, Tab_IsACharacterAndCtrlTabLeaves)
{
    Type("a");
    Press(Qt::Key_Tab);
    Type("b");
    EXPECT_EQ(body.Text(), "a\tb");
    Press(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_FALSE(body.hasFocus());
}

TEST_F(RichTextEdit, ApplicationFontChanges_TheTextStaysAsItIs)
{
    Type("word");
    const QFont before = QApplication::font();
    QApplication::setFont(QFont(QStringLiteral("Courier New"), 20));
    EXPECT_EQ(body.document()->defaultFont().pointSizeF(), 10.0);
    EXPECT_EQ(body.document()->defaultFont().family(), QStringLiteral("Arial"));
    QApplication::setFont(before);
}

TEST_F(RichTextEdit, PaletteChanges_TextAndCursorStayAndNothingIsChanged)
{
    Type("word");
    changes = 0;
    QPalette dark = body.palette();
    dark.setColor(QPalette::Base, Qt::black);
    dark.setColor(QPalette::Text, Qt::white);
    body.setPalette(dark);
    EXPECT_EQ(body.Text(), "word");
    EXPECT_EQ(body.textCursor().position(), 4);
    EXPECT_EQ(changes, 0);
}

TEST_F(RichTextEdit, NamesOfFiles_AreNeverOpened)
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("there.png"));
    QImage image(3, 3, QImage::Format_RGB32);
    image.fill(Qt::red);
    ASSERT_TRUE(image.save(path));
    const auto load = [&](const QUrl& url) {
        return qvariant_cast<QImage>(body.document()->resource(QTextDocument::ImageResource, url));
    };
    EXPECT_NE(load(QUrl::fromLocalFile(path)).size(), image.size());
    EXPECT_NE(load(QUrl(path)).size(), image.size());
    EXPECT_FALSE(load(QUrl(path)).isNull()); // or the toolkit would look for the file itself
}

TEST_F(RichTextEdit, Sheet_StandsInTheMiddleOfAWideWindow)
{
    editor.resize(1600, 500);
    const QRect sheet(body.viewport()->mapTo(&body, QPoint()), body.viewport()->size());
    EXPECT_EQ(sheet.width(), 768);
    EXPECT_LE(std::abs(sheet.center().x() - body.width() / 2), 1);
}

} // namespace
