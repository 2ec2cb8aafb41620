#include "platform/widgets/SpellDialog.h"
#include "platform/widgets/SpellHighlighter.h"
#include "support/ScriptedDesktop.h"
#include "support/TempFolder.h"

#include <QAccessible>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTextBlock>
#include <QTextEdit>
#include <QTextLayout>
#include <QTimer>

#include <filesystem>
#include <functional>
#include <gmock/gmock.h>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class SpellDialog : public ::testing::Test
{
protected:
    SpellDialog()
    {
        platform::SetDesktop(&desktop);
        speller.SetUserDictionary(folder.File("Custom.dct"));
    }
    ~SpellDialog() override
    {
        desktop.CheckDone();
        platform::SetDesktop(nullptr);
    }

    void Show(const char* text)
    {
        editor.setPlainText(QString::fromUtf8(text));
        editor.show();
    }
    /// Runs the check; the steps meet the dialog while it stands. All but the last must leave it open.
    void Check(const std::function<void()>& steps)
    {
        bool met = false;
        QTimer::singleShot(0, &editor, [&] {
            dialog = qobject_cast<platform::SpellDialog*>(QApplication::activeModalWidget());
            if (dialog == nullptr) return;
            met = QTest::qWaitForWindowActive(dialog);
            steps();
            if (dialog != nullptr && dialog->isVisible()) dialog->reject();
        });
        platform::CheckSpelling(editor, speller);
        EXPECT_TRUE(met) << "no dialog stood";
    }
    void ExpectComplete() { desktop.ExpectText({"The spelling check is complete."}); }

    template <class Control> Control& Find(const char* name)
    {
        return *dialog->findChild<Control*>(QString::fromUtf8(name));
    }
    void Press(const char* name) { QTest::mouseClick(&Find<QPushButton>(name), Qt::LeftButton); }
    bool IsEnabled(const char* name) { return Find<QPushButton>(name).isEnabled(); }
    std::string Sentence() { return Find<QTextEdit>("txtSentence").toPlainText().toStdString(); }
    std::string ChangeTo() { return Find<QLineEdit>("txtChangeTo").text().toStdString(); }
    void TypeChangeTo(const char* text)
    {
        Find<QLineEdit>("txtChangeTo").selectAll();
        QTest::keyClicks(&Find<QLineEdit>("txtChangeTo"), QString::fromUtf8(text));
    }
    std::string Text() const { return editor.toPlainText().toStdString(); }

    support::TempFolder folder;
    support::ScriptedDesktop desktop;
    platform::Speller speller;
    QTextEdit editor;
    QPointer<platform::SpellDialog> dialog;
};

TEST_F(SpellDialog, WrongWord_InItsSentenceWithTheFirstSuggestionReady)
{
    Show("All calm. The north rigde burned. Then rain.");
    Check([this] {
        EXPECT_EQ(dialog->windowTitle().toStdString(), "Spelling");
        EXPECT_EQ(Sentence(), "The north rigde burned.");
        EXPECT_EQ(ChangeTo(), "ridge");
        EXPECT_EQ(Find<QListWidget>("lstSuggestions").item(0)->text().toStdString(), "ridge");
        EXPECT_EQ(editor.textCursor().selectedText().toStdString(), "rigde");
        QTextCursor word(Find<QTextEdit>("txtSentence").document());
        word.setPosition(12);
        EXPECT_EQ(word.charFormat().underlineStyle(), QTextCharFormat::SpellCheckUnderline);
        word.setPosition(9);
        EXPECT_EQ(word.charFormat().underlineStyle(), QTextCharFormat::NoUnderline);
    });
}

TEST_F(SpellDialog, Change_PutsTheSuggestionIntoTheText)
{
    Show("The rigde burned.");
    int changes = 0;
    QObject::connect(&editor, &QTextEdit::textChanged, [&changes] { ++changes; });
    ExpectComplete();
    Check([this] { Press("cmdChange"); });
    EXPECT_EQ(Text(), "The ridge burned.");
    EXPECT_EQ(changes, 1);
    editor.undo();
    EXPECT_EQ(Text(), "The rigde burned.");
}

TEST_F(SpellDialog, Enter_Changes)
{
    Show("The rigde burned.");
    ExpectComplete();
    Check([this] {
        EXPECT_TRUE(Find<QLineEdit>("txtChangeTo").hasFocus());
        QTest::keyClick(&Find<QLineEdit>("txtChangeTo"), Qt::Key_Return);
    });
    EXPECT_EQ(Text(), "The ridge burned.");
}

TEST_F(SpellDialog, TypedWord_Changes)
{
    Show("The rigde burned.");
    ExpectComplete();
    Check([this] {
        TypeChangeTo("bluff");
        Press("cmdChange");
    });
    EXPECT_EQ(Text(), "The bluff burned.");
}

TEST_F(SpellDialog, ChosenSuggestion_ReadyToChange)
{
    Show("The rigde burned.");
    Check([this] {
        auto& list = Find<QListWidget>("lstSuggestions");
        ASSERT_GE(list.count(), 2);
        QTest::keyClick(&list, Qt::Key_Down);
        EXPECT_EQ(ChangeTo(), list.item(1)->text().toStdString());
    });
}

TEST_F(SpellDialog, DoubleClickOnASuggestion_Changes)
{
    Show("The rigde burned.");
    ExpectComplete();
    Check([this] {
        auto& list = Find<QListWidget>("lstSuggestions");
        const QPoint first = list.visualItemRect(list.item(0)).center();
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, first);
        QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, first);
    });
    EXPECT_EQ(Text(), "The ridge burned.");
}

TEST_F(SpellDialog, ChangeAll_EveryFurtherOne)
{
    Show("rigde, rigde and fier on the rigde");
    ExpectComplete();
    Check([this] {
        Press("cmdChangeAll");
        EXPECT_EQ(editor.textCursor().selectedText().toStdString(), "fier");
        Press("cmdIgnore");
    });
    EXPECT_EQ(Text(), "ridge, ridge and fier on the ridge");
}

TEST_F(SpellDialog, Ignore_StopsAtTheNextOneOfTheSameWord)
{
    Show("rigde rigde");
    ExpectComplete();
    Check([this] {
        Press("cmdIgnore");
        EXPECT_EQ(editor.textCursor().selectionStart(), 6);
        Press("cmdIgnore");
    });
    EXPECT_EQ(Text(), "rigde rigde");
}

TEST_F(SpellDialog, IgnoreAll_PassesOverAllAndTheMarksFollow)
{
    Show("rigde rigde");
    const platform::SpellHighlighter* marks = new platform::SpellHighlighter(editor, speller);
    QCoreApplication::processEvents();
    EXPECT_EQ(marks->document()->begin().layout()->formats().size(), 2);
    ExpectComplete();
    Check([this] { Press("cmdIgnoreAll"); });
    EXPECT_THAT(marks->document()->begin().layout()->formats(), IsEmpty());
}

TEST_F(SpellDialog, Add_WritesTheUserDictionary)
{
    Show("helispott rigde helispott");
    Check([this] {
        Press("cmdAdd");
        EXPECT_EQ(editor.textCursor().selectedText().toStdString(), "rigde");
        EXPECT_FALSE(IsEnabled("cmdUndo"));
    });
    EXPECT_EQ(support::ReadFile(folder.File("Custom.dct")), "helispott\n");
}

TEST_F(SpellDialog, Add_ReadOnlyDictionary_ToldOnceAndCounts)
{
    support::WriteFile(folder.File("Custom.dct"), "snag\n");
    std::filesystem::permissions(folder.File("Custom.dct"), std::filesystem::perms::owner_read);
    Show("helispott qzword helispott");
    desktop.ExpectText(
        {"Your own dictionary could not be written, so added words count only until the program "
         "ends.",
         "Check that the file Custom.dct in the program folder is not read-only."});
    ExpectComplete();
    Check([this] {
        Press("cmdAdd");
        Press("cmdAdd");
    });
    EXPECT_TRUE(speller.IsRight("helispott"));
}

TEST_F(SpellDialog, Undo_BackToTheWordBefore)
{
    Show("The rigde and the fier");
    Check([this] {
        EXPECT_FALSE(IsEnabled("cmdUndo"));
        EXPECT_FALSE(Find<QPushButton>("cmdUndo").toolTip().isEmpty());
        Press("cmdChange");
        EXPECT_EQ(Text(), "The ridge and the fier");
        Press("cmdUndo");
        EXPECT_EQ(Text(), "The rigde and the fier");
        EXPECT_EQ(editor.textCursor().selectedText().toStdString(), "rigde");
        EXPECT_FALSE(IsEnabled("cmdUndo"));
    });
}

TEST_F(SpellDialog, NothingToChangeTo_ChangeIsOffAndSaysWhy)
{
    Show("The qzxvkqzxvk burned.");
    Check([this] {
        EXPECT_EQ(ChangeTo(), "qzxvkqzxvk");
        EXPECT_FALSE(IsEnabled("cmdChange"));
        EXPECT_FALSE(IsEnabled("cmdChangeAll"));
        EXPECT_FALSE(Find<QPushButton>("cmdChange").toolTip().isEmpty());
        EXPECT_EQ(Find<QListWidget>("lstSuggestions").item(0)->text().toStdString(),
                  "There are no suggestions.");
        TypeChangeTo("house");
        EXPECT_TRUE(IsEnabled("cmdChange"));
        TypeChangeTo(" ");
        QTest::keyClick(&Find<QLineEdit>("txtChangeTo"), Qt::Key_Backspace);
        EXPECT_FALSE(IsEnabled("cmdChange"));
    });
}

TEST_F(SpellDialog, Cancel_KeepsWhatWasDoneAndStaysAtTheWord)
{
    Show("The rigde and the fier");
    Check([this] {
        Press("cmdChange");
        Press("cmdCancel");
    });
    EXPECT_EQ(Text(), "The ridge and the fier");
    EXPECT_EQ(editor.textCursor().selectedText().toStdString(), "fier");
}

TEST_F(SpellDialog, Escape_Cancels)
{
    Show("The rigde");
    Check([this] {
        QTest::keyClick(dialog, Qt::Key_Escape);
        EXPECT_FALSE(dialog->isVisible());
    });
    EXPECT_EQ(Text(), "The rigde");
}

TEST_F(SpellDialog, TextThrough_TheCaretIsWhereItWas)
{
    Show("The rigde burned.");
    editor.moveCursor(QTextCursor::End);
    ExpectComplete();
    Check([this] { Press("cmdChange"); });
    EXPECT_EQ(editor.textCursor().position(), 17);
    EXPECT_FALSE(editor.textCursor().hasSelection());
}

TEST_F(SpellDialog, NothingWrong_OnlySaysSo)
{
    Show("The ridge burned.");
    ExpectComplete();
    platform::CheckSpelling(editor, speller);
    EXPECT_EQ(editor.textCursor().position(), 0);
}

TEST_F(SpellDialog, NoDictionary_SaysWhatIsMissing)
{
    Show("The rigde burned.");
    platform::Speller none({folder.Path()});
    desktop.ExpectText({"The English dictionary is not installed, so the spelling cannot be checked.",
                        "Install the package hunspell-en-us and start the program again."});
    platform::CheckSpelling(editor, none);
    EXPECT_EQ(Text(), "The rigde burned.");
}

TEST_F(SpellDialog, EveryControl_HasANameAndFitsASmallScreen)
{
    Show("The rigde burned.");
    Check([this] {
        const std::vector<std::pair<const char*, const char*>> kNames = {
            {"txtSentence", "Not in dictionary"},
            {"txtChangeTo", "Change to"},
            {"lstSuggestions", "Suggestions"},
            {"cmdIgnore", "Ignore"},
            {"cmdIgnoreAll", "Ignore All"},
            {"cmdAdd", "Add"},
            {"cmdChange", "Change"},
            {"cmdChangeAll", "Change All"},
            {"cmdUndo", "Undo"},
            {"cmdCancel", "Cancel"},
        };
        for (const auto& [control, name] : kNames) {
            QAccessibleInterface* found = QAccessible::queryAccessibleInterface(&Find<QWidget>(control));
            EXPECT_EQ(found->text(QAccessible::Name).toStdString(), name);
        }
        EXPECT_LE(dialog->minimumSizeHint().width(), 780);
        EXPECT_LE(dialog->minimumSizeHint().height(), 560);
    });
}

} // namespace
