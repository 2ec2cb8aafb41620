#include "platform/spelling/Speller.h"
#include "platform/widgets/SpellHighlighter.h"
#include "support/TempFolder.h"

#include <QTest>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextEdit>
#include <QTextLayout>

#include <gmock/gmock.h>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

/// Counts the paragraphs that it is asked to mark.
class CountingHighlighter : public platform::SpellHighlighter
{
public:
    using SpellHighlighter::SpellHighlighter;
    int paragraphs = 0;

protected:
    void highlightBlock(const QString& text) override
    {
        ++paragraphs;
        SpellHighlighter::highlightBlock(text);
    }
};

class SpellHighlighter : public ::testing::Test
{
protected:
    SpellHighlighter()
    {
        QObject::connect(&editor, &QTextEdit::textChanged, [this] { ++changes; });
    }
    void Show(const QString& text)
    {
        editor.setPlainText(text);
        editor.show();
        editor.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&editor));
        editor.setFocus();
        marks = new CountingHighlighter(editor, speller);
        QCoreApplication::processEvents();
        editor.document()->clearUndoRedoStacks();
        editor.document()->setModified(false);
        changes = 0;
        marks->paragraphs = 0;
    }
    void Type(const char* text) { QTest::keyClicks(&editor, QString::fromUtf8(text)); }
    std::vector<std::string> Marked() const
    {
        std::vector<std::string> words;
        for (QTextBlock block = editor.document()->begin(); block.isValid(); block = block.next()) {
            for (const auto& range : block.layout()->formats()) {
                if (range.format.underlineStyle() == QTextCharFormat::SpellCheckUnderline)
                    words.push_back(block.text().mid(range.start, range.length).toStdString());
            }
        }
        return words;
    }

    platform::Speller speller;
    QTextEdit editor;
    CountingHighlighter* marks = nullptr;
    int changes = 0;
};

TEST_F(SpellHighlighter, TextThatStands_ItsWrongWordsMarked)
{
    Show(QStringLiteral("The fier burned.\nAll the rigde."));
    EXPECT_THAT(Marked(), ElementsAre("fier", "rigde"));
}

TEST_F(SpellHighlighter, Marks_AreNoChangeOfTheDocument)
{
    editor.setPlainText(QStringLiteral("The fier burned."));
    editor.document()->setModified(false);
    changes = 0;
    const platform::SpellHighlighter plain(editor, speller);
    QCoreApplication::processEvents();
    EXPECT_THAT(Marked(), ElementsAre("fier"));
    EXPECT_FALSE(editor.document()->isModified());
    EXPECT_FALSE(editor.document()->isUndoAvailable());
    EXPECT_EQ(changes, 0);
    EXPECT_FALSE(editor.toHtml().contains(QLatin1String("wave")));
    EXPECT_FALSE(editor.toHtml().contains(QLatin1String("underline")));
}

TEST_F(SpellHighlighter, WordBeingTyped_LeftAloneUntilItIsLeft)
{
    Show(QString());
    Type("The fier");
    EXPECT_THAT(Marked(), IsEmpty());
    Type(" ");
    EXPECT_THAT(Marked(), ElementsAre("fier"));
}

TEST_F(SpellHighlighter, LeavingTheTypedWordByArrow_MarksItWithoutAChange)
{
    Show(QString());
    Type("fier");
    changes = 0;
    editor.document()->setModified(false);
    QTest::keyClick(&editor, Qt::Key_Home);
    EXPECT_THAT(Marked(), ElementsAre("fier"));
    EXPECT_EQ(changes, 0);
    EXPECT_FALSE(editor.document()->isModified());
    QTest::keyClick(&editor, Qt::Key_End);
    EXPECT_THAT(Marked(), ElementsAre("fier"));
}

TEST_F(SpellHighlighter, LeavingTheEditor_MarksTheTypedWord)
{
    Show(QString());
    Type("fier");
    editor.clearFocus();
    EXPECT_THAT(Marked(), ElementsAre("fier"));
}

TEST_F(SpellHighlighter, ArrowIntoAnotherWrongWord_KeepsItsMark)
{
    Show(QStringLiteral("fier "));
    editor.moveCursor(QTextCursor::End);
    Type("rigde");
    EXPECT_THAT(Marked(), ElementsAre("fier"));
    for (int i = 0; i < 7; ++i)
        QTest::keyClick(&editor, Qt::Key_Left);
    EXPECT_THAT(Marked(), ElementsAre("fier", "rigde"));
}

TEST_F(SpellHighlighter, CorrectedWord_LosesItsMark)
{
    Show(QStringLiteral("fier burned"));
    editor.moveCursor(QTextCursor::Start);
    for (int i = 0; i < 2; ++i)
        QTest::keyClick(&editor, Qt::Key_Right);
    QTest::keyClick(&editor, Qt::Key_Delete);
    QTest::keyClick(&editor, Qt::Key_Right);
    Type("e");
    EXPECT_EQ(editor.toPlainText().toStdString(), "fire burned");
    EXPECT_THAT(Marked(), IsEmpty());
}

TEST_F(SpellHighlighter, OneKey_CostsItsParagraphOnly)
{
    QString text;
    for (int i = 0; i < 500; ++i)
        text += QStringLiteral("The rigde burned.\n");
    Show(text);
    editor.moveCursor(QTextCursor::Start);
    marks->paragraphs = 0;
    Type("x");
    EXPECT_LE(marks->paragraphs, 2);
    EXPECT_EQ(changes, 1);
}

TEST_F(SpellHighlighter, MarkAgain_FollowsIgnoredWords)
{
    Show(QStringLiteral("The fier burned."));
    speller.IgnoreAll("fier");
    marks->MarkAgain();
    EXPECT_THAT(Marked(), IsEmpty());
    EXPECT_EQ(changes, 0);
}

TEST_F(SpellHighlighter, AnotherDocument_Followed)
{
    Show(QStringLiteral("The fier burned."));
    auto* other = new QTextDocument(QStringLiteral("All the rigde."), &editor);
    editor.setDocument(other);
    other->clearUndoRedoStacks();
    other->setModified(false);
    changes = 0;
    QTRY_COMPARE(Marked().size(), 1U);
    EXPECT_THAT(Marked(), ElementsAre("rigde"));
    EXPECT_FALSE(other->isModified());
    EXPECT_FALSE(other->isUndoAvailable());
    EXPECT_EQ(changes, 0);
}

TEST_F(SpellHighlighter, EditorDestroyedWhileAWordIsTyped_Survived)
{
    auto* other = new QTextEdit;
    other->show();
    other->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(other));
    other->setFocus();
    const QPointer<platform::SpellHighlighter> itsMarks = new platform::SpellHighlighter(*other, speller);
    QTest::keyClicks(other, QStringLiteral("fier"));
    ASSERT_TRUE(other->hasFocus());
    delete other;
    EXPECT_TRUE(itsMarks.isNull());
}

TEST_F(SpellHighlighter, NoDictionary_NoMarks)
{
    const support::TempFolder empty;
    platform::Speller none({empty.Path()});
    editor.setPlainText(QStringLiteral("The fier burned."));
    const platform::SpellHighlighter plain(editor, none);
    QCoreApplication::processEvents();
    EXPECT_THAT(Marked(), IsEmpty());
}

} // namespace
