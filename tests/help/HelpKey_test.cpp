#include "help/HelpSources.h"
#include "platform/base/HelpTopics.h"
#include "platform/widgets/Grid.h"
#include "platform/widgets/HelpKey.h"
#include "platform/widgets/RichTextEdit.h"
#include "platform/widgets/SpellDialog.h"
#include "platform/widgets/TabStrip.h"
#include "worksheets/WindowTest.h"
#include "worksheets/Worksheet.h"
#include "worksheets/WorksheetTable.h"
#include "worksheets/frmPreview.h"

#include <QComboBox>
#include <QDialog>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <gmock/gmock.h>

namespace HelpTopics = platform::HelpTopics;

namespace {

/// F1 in the program with a fire open in it.
class HelpKey : public WindowTest
{
protected:
    /// What F1 opens with the keys at this control; 0 when it opens nothing.
    int TopicAt(QWidget* control)
    {
        desktop.calls.clear();
        QTest::keyClick(control, Qt::Key_F1);
        if (desktop.calls.size() != 1) return 0;
        const std::string& call = desktop.calls.front();
        return std::stoi(call.substr(call.rfind(' ')));
    }
    /// Every control of a window that takes the keys, and the lists that its boxes open.
    void ExpectEverywhere(QWidget& where, int topic)
    {
        int controls = 0;
        for (QWidget* control : where.findChildren<QWidget*>()) {
            if (control->focusPolicy() == Qt::NoFocus || !control->isVisible() || !control->isEnabled())
                continue;
            EXPECT_EQ(TopicAt(control), topic) << Described(*control);
            ++controls;
        }
        for (QComboBox* box : where.findChildren<QComboBox*>()) {
            if (box->isVisible() && box->isEnabled() && box->count() > 0) ExpectInList(*box, topic);
        }
        EXPECT_GT(controls, 0) << topic;
    }
    void ExpectInList(QComboBox& box, int topic)
    {
        box.showPopup();
        ASSERT_NE(QApplication::activePopupWidget(), nullptr) << Described(box);
        EXPECT_EQ(TopicAt(box.view()), topic) << Described(box);
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr)
            << "the list keeps the keys: " << Described(box);
    }
    static std::string Described(const QWidget& control)
    {
        return std::string(control.metaObject()->className()) + ' ' + control.objectName().toStdString();
    }
    /// Presses a button that opens a dialog, and looks at F1 in it.
    void ExpectInDialog(const char* button, int topic)
    {
        bool came = false;
        QTimer::singleShot(0, window.get(), [&] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            came = true;
            ExpectEverywhere(*dialog, topic);
            dialog->reject();
        });
        Find<QPushButton>(button)->click();
        EXPECT_TRUE(came) << button;
    }
};

TEST_F(HelpKey, EveryControlOfEveryWorksheet_ItsTopic)
{
    StartWithSample();
    int worksheets = 0;
    for (const SectionEntry& section : ::Sections()) {
        if (!section.shown) continue;
        for (int tab = 1; tab <= LastTab(section.section); ++tab, ++worksheets) {
            GoTo(section.section, tab);
            const int chapter = section.section == 7 ? 8 : section.section; // the Report section counts as 8
            const int topic = 4000 + 100 * chapter + 10 * tab;
            EXPECT_EQ(Shown().HelpContextID(), topic);
            EXPECT_EQ(TopicAt(window.get()), topic);
            EXPECT_EQ(TopicAt(&WindowTest::Worksheets()), topic);
            if (tab > 1) ExpectEverywhere(Shown(), topic);
        }
    }
    EXPECT_EQ(worksheets, 21);
}

TEST_F(HelpKey, OpenMenu_ClosesAndTheTopicOpens)
{
    StartWithSample();
    GoTo(4, 3);
    QMenu* menu = Menu("mnuFile");
    menu->popup(window->mapToGlobal(QPoint(0, 20)));
    EXPECT_EQ(TopicAt(menu), 4430);
    EXPECT_FALSE(menu->isVisible());
}

TEST_F(HelpKey, StartForm_ItsTopic)
{
    Start();
    EXPECT_EQ(TopicAt(Find<QPushButton>("cmdNew")), HelpTopics::kStart);
}

TEST_F(HelpKey, CellBeingEdited_KeepsWhatIsTyped)
{
    StartWithSample();
    GoTo(5, 4);
    auto* grid = Find<platform::Grid>("grdImpacts");
    grid->setFocus();
    grid->Select(1, 3);
    QCoreApplication::processEvents();
    auto* editor = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    ASSERT_NE(editor, nullptr);
    QTest::keyClicks(editor, QStringLiteral("77"));
    EXPECT_EQ(TopicAt(editor), 4540);
    ASSERT_EQ(QApplication::focusWidget(), editor);
    QTest::keyClicks(editor, QStringLiteral("0"));
    EXPECT_EQ(editor->text(), QStringLiteral("770"));
    QTest::keyClick(editor, Qt::Key_Return);
    EXPECT_EQ(grid->Text(1, 3), "770");
}

TEST_F(HelpKey, TextBeingWritten_KeepsCaretAndText)
{
    StartWithSample();
    GoTo(2, 3);
    auto* text = Find<platform::RichTextEdit>("txtBody");
    text->setFocus();
    const int length = text->document()->characterCount();
    const int caret = text->textCursor().position();
    EXPECT_EQ(TopicAt(text), 4230);
    EXPECT_EQ(text->document()->characterCount(), length);
    EXPECT_EQ(text->textCursor().position(), caret);
}

TEST_F(HelpKey, DialogsOfTheCosts_TheirTopics)
{
    StartWithSample();
    GoTo(5, 5);
    ExpectInDialog("cmdSize", 4551);
    ExpectInDialog("cmdSRUse", 4552);
}

TEST_F(HelpKey, Preview_ItsTopicInEveryControl)
{
    StartWithSample();
    GoTo(7, 3);
    Find<QPushButton>("cmdPreview")->click();
    ASSERT_NE(frmPreview::Loaded(), nullptr);
    ExpectEverywhere(*frmPreview::Loaded(), 4831);
    frmPreview::Unload();
}

TEST_F(HelpKey, WindowsOfTheToolkit_TheirTopicsWhateverIsBehind)
{
    StartWithSample();
    GoTo(4, 3);
    const QMessageBox box(QMessageBox::NoIcon, {}, QStringLiteral("Box"), QMessageBox::Ok, window.get());
    const QFileDialog file(window.get());
    const QPrintDialog printer(window.get());
    const QDialog other(window.get());
    EXPECT_EQ(platform::HelpKey::TopicOf(box.button(QMessageBox::Ok)), HelpTopics::kMessages);
    EXPECT_EQ(platform::HelpKey::TopicOf(file.findChild<QLineEdit*>()), HelpTopics::kFiles);
    EXPECT_EQ(platform::HelpKey::TopicOf(printer.findChild<QPushButton*>()), HelpTopics::kPrinterSetup);
    EXPECT_EQ(platform::HelpKey::TopicOf(&other), HelpTopics::kOnScreen);
}

TEST_F(HelpKey, SpellDialog_ItsTopicInEveryControl)
{
    StartWithSample();
    GoTo(2, 3);
    auto* text = Find<platform::RichTextEdit>("txtBody");
    text->setPlainText(QStringLiteral("Xqzzy"));
    ExpectInDialog("cmdSpellcheck", HelpTopics::kSpelling);
}

TEST_F(HelpKey, OtherKeysAndF1WithShift_AreLeftAlone)
{
    StartWithSample();
    QTest::keyClick(window.get(), Qt::Key_F1, Qt::ShiftModifier);
    QTest::keyClick(window.get(), Qt::Key_F2);
    EXPECT_TRUE(desktop.calls.empty());
}

TEST_F(HelpKey, MenusOff_NothingOpens)
{
    StartWithSample();
    window->menuBar()->setEnabled(false); // as while a report is made
    EXPECT_EQ(TopicAt(window.get()), 0);
}

} // namespace
