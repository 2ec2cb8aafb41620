#include "platform/richtext/RtfReader.h"
#include "platform/spelling/Speller.h"
#include "platform/widgets/RichTextEdit.h"
#include "platform/widgets/SpellDialog.h"
#include "platform/widgets/SpellHighlighter.h"
#include "session/UIMode.h"
#include "session/c0Item.h"
#include "support/TestSession.h"
#include "worksheets/RichBody.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTextBlock>
#include <QTextLayout>
#include <QTimer>
#include <QVBoxLayout>

#include <gmock/gmock.h>

using platform::LateText;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace {

/// A narrative on the screen, shown for an object that counts how often its text is made.
class RichBodyTest : public support::TestSession
{
protected:
    RichBodyTest()
    {
        auto* column = new QVBoxLayout(&window);
        elsewhere = new QLineEdit(&window);
        body = std::make_unique<RichBody>(
            QStringLiteral("Narrative"), platform::RichTextEditor::Parts::BarAndRuler, &window);
        column->addWidget(elsewhere);
        column->addWidget(body.get(), 1);
        elsewhere->setFocus();
        window.resize(700, 500);
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    QPushButton& Button() { return *body->findChild<QPushButton*>(QStringLiteral("cmdSpellcheck")); }

    /// What a topic, an objective or an outcome keeps.
    struct Object
    {
        LateText text;
        int changes = 0;
        int made = 0;

        RichBody::Writer Writer()
        {
            return [this](LateText::Maker maker) {
                ++changes;
                text = LateText::Maker([this, maker = std::move(maker)] {
                    ++made;
                    return maker();
                });
            };
        }
        std::string Plain() const { return platform::richtext::RtfToPlainText(text.Read()); }
    };

    platform::RichTextEdit& Edit() { return body->Body(); }
    void Show(Object& object, const std::string& text) { body->Show(text, object.Writer()); }
    void Type(const char* text)
    {
        Edit().setFocus();
        Edit().moveCursor(QTextCursor::End);
        QTest::keyClicks(&Edit(), QString::fromUtf8(text));
    }
    /// The words that are underlined as wrong.
    std::vector<std::string> Marked()
    {
        Edit().viewport()->grab(); // the marks follow a new text when it is painted
        std::vector<std::string> words;
        for (QTextBlock block = Edit().document()->begin(); block.isValid(); block = block.next()) {
            for (const QTextLayout::FormatRange& range : block.layout()->formats()) {
                if (range.format.underlineStyle() == QTextCharFormat::SpellCheckUnderline)
                    words.push_back(block.text().mid(range.start, range.length).toStdString());
            }
        }
        return words;
    }
    /// Presses Spellcheck; the steps meet the dialog while it stands.
    void Spellcheck(const std::function<void(QDialog&)>& steps)
    {
        bool met = false;
        QTimer::singleShot(0, body.get(), [&] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (dialog == nullptr) return;
            met = QTest::qWaitForWindowActive(dialog);
            const QPointer<QDialog> standing = dialog;
            steps(*dialog);
            if (standing != nullptr && standing->isVisible()) standing->reject();
        });
        QTest::mouseClick(&Button(), Qt::LeftButton);
        EXPECT_TRUE(met) << "no dialog stood";
    }
    static void Press(QDialog& dialog, const char* button)
    {
        QTest::mouseClick(dialog.findChild<QPushButton*>(QString::fromUtf8(button)), Qt::LeftButton);
    }

    QWidget window;
    QLineEdit* elsewhere = nullptr;
    std::unique_ptr<RichBody> body;
};

// ---- The text is made late

TEST_F(RichBodyTest, Typing_TellsEachKeyAndMakesNoText)
{
    Object object;
    Show(object, kDefaultBody);
    Type("abc");
    EXPECT_EQ(object.changes, 3);
    EXPECT_EQ(object.made, 0);
    EXPECT_EQ(object.Plain(), "abc");
    EXPECT_EQ(object.made, 1);
}

TEST_F(RichBodyTest, Text_EndsInAParagraph)
{
    Object object;
    Show(object, "plain");
    Type("er");
    EXPECT_THAT(object.text.Read(), EndsWith("plainer\\par }"));
}

TEST_F(RichBodyTest, ReadBetweenTwoKeys_EachReadIsWhole)
{
    Object object;
    Show(object, kDefaultBody);
    Type("a");
    EXPECT_EQ(object.Plain(), "a");
    Type("b");
    EXPECT_EQ(object.Plain(), "ab");
}

TEST_F(RichBodyTest, AnotherTextShown_TheFirstKeepsWhatWasTyped)
{
    Object first;
    Object second;
    Show(first, kDefaultBody);
    Type("first");
    Show(second, kDefaultBody);
    Type("second");
    EXPECT_EQ(first.Plain(), "first");
    EXPECT_EQ(second.Plain(), "second");
    EXPECT_EQ(first.changes, 5);
}

TEST_F(RichBodyTest, ReadBeforeAnotherIsShown_IsNotMadeAgain)
{
    Object first;
    Show(first, kDefaultBody);
    Type("first");
    EXPECT_EQ(first.Plain(), "first");
    body->ShowNothing(QStringLiteral("none"));
    EXPECT_EQ(first.Plain(), "first");
    EXPECT_EQ(first.made, 1);
}

TEST_F(RichBodyTest, FormGone_TheTextCanStillBeRead)
{
    Object object;
    Show(object, kDefaultBody);
    Type("typed");
    body.reset();
    EXPECT_EQ(object.Plain(), "typed");
}

TEST_F(RichBodyTest, ObjectGone_NobodyAsks)
{
    {
        Object object;
        Show(object, kDefaultBody);
        Type("typed");
        body->ShowNothing({});
    }
    EXPECT_TRUE(Edit().IsEmpty());
}

TEST_F(RichBodyTest, Showing_IsNoChange)
{
    Object object;
    Show(object, "one");
    Show(object, "two");
    EXPECT_EQ(object.changes, 0);
}

TEST_F(RichBodyTest, WhileBusy_NothingIsWritten)
{
    Object object;
    Show(object, kDefaultBody);
    const UIMode::Busy busy;
    Type("typed");
    EXPECT_EQ(object.changes, 0);
}

TEST_F(RichBodyTest, ShowNothing_EmptyDisabledAndSaysWhy)
{
    Object object;
    Show(object, "text");
    body->ShowNothing(QStringLiteral("There is no topic."));
    EXPECT_TRUE(Edit().IsEmpty());
    EXPECT_FALSE(Edit().isEnabled());
    EXPECT_EQ(body->toolTip().toStdString(), "There is no topic.");
    Show(object, "text");
    EXPECT_TRUE(Edit().isEnabled());
    EXPECT_TRUE(body->toolTip().isEmpty());
}

// ---- Spelling

TEST_F(RichBodyTest, LookedAt_IsNotMarked)
{
    Object object;
    Show(object, "A rigde.");
    EXPECT_THAT(Marked(), IsEmpty());
    Edit().setFocus();
    EXPECT_THAT(Marked(), ElementsAre("rigde"));
}

TEST_F(RichBodyTest, WrongWordsTyped_AreMarkedOnceTheyAreLeft)
{
    Object object;
    Show(object, kDefaultBody);
    Type("the rigde");
    EXPECT_THAT(Marked(), IsEmpty());
    Type(" burnd ");
    EXPECT_THAT(Marked(), ElementsAre("rigde", "burnd"));
    EXPECT_THAT(object.text.Read(), EndsWith("\\pard the rigde burnd \\par }"));
}

TEST_F(RichBodyTest, Marking_IsNoChange)
{
    Object object;
    Show(object, "A rigde.");
    Edit().setFocus();
    QCoreApplication::processEvents();
    EXPECT_THAT(Marked(), ElementsAre("rigde"));
    EXPECT_EQ(object.changes, 0);
    EXPECT_FALSE(Edit().document()->isModified());
}

TEST_F(RichBodyTest, AnotherText_IsMarkedAnewAndIsNoChange)
{
    Object object;
    Show(object, "A rigde.");
    Edit().setFocus();
    Show(object, "A hillsode and a rock.");
    QCoreApplication::processEvents();
    EXPECT_THAT(Marked(), ElementsAre("hillsode"));
    EXPECT_EQ(object.changes, 0);
}

TEST_F(RichBodyTest, FocusLeftAndEntered_OneHighlighterMarks)
{
    Object object;
    Show(object, "A rigde.");
    for (int i = 0; i < 3; ++i) {
        Edit().setFocus();
        elsewhere->setFocus();
    }
    EXPECT_EQ(body->findChildren<platform::SpellHighlighter*>().size(), 1);
}

TEST_F(RichBodyTest, Spellcheck_CorrectsThroughTheChangeHandler)
{
    Object object;
    Show(object, "The rigde burned.");
    desktop.ExpectText({"The spelling check is complete."});
    Spellcheck([](QDialog& dialog) {
        EXPECT_EQ(dialog.findChild<QLineEdit*>(QStringLiteral("txtChangeTo"))->text().toStdString(), "ridge");
        Press(dialog, "cmdChange");
    });
    EXPECT_EQ(object.changes, 1);
    EXPECT_THAT(object.text.Read(), EndsWith("\\pard The ridge burned.\\par }"));
}

TEST_F(RichBodyTest, SpellcheckCancelled_IsNoChange)
{
    Object object;
    Show(object, "The rigde burned.");
    Spellcheck([](QDialog& dialog) { Press(dialog, "cmdCancel"); });
    EXPECT_EQ(object.changes, 0);
    EXPECT_EQ(Edit().Text(), "The rigde burned.");
}

TEST_F(RichBodyTest, AddedWord_StandsInTheUserDictionaryOfTheProgramFolder)
{
    Object object;
    Show(object, "At Kettlebrook.");
    desktop.ExpectText({"The spelling check is complete."});
    Spellcheck([](QDialog& dialog) { Press(dialog, "cmdAdd"); });
    EXPECT_THAT(support::ReadFile(folder.File("Custom.dct")), HasSubstr("Kettlebrook"));
    EXPECT_EQ(object.changes, 0);
}

} // namespace
