#include "platform/widgets/TabStrip.h"
#include "worksheets/WindowTest.h"
#include "worksheets/Worksheet.h"
#include "worksheets/WorksheetTable.h"
#include "worksheets/a3VEXAforms.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMenuBar>
#include <QTest>
#include <QTextEdit>

#include <gmock/gmock.h>

using ::testing::ElementsAre;

namespace {

class Menus : public WindowTest
{
protected:
    /// A text box on the worksheet shown, with the focus and this text, all of it selected.
    QLineEdit* FocusedTextBox(const char* text)
    {
        auto* box = new QLineEdit(QString::fromUtf8(text), &Shown());
        box->show();
        box->setFocus();
        box->selectAll();
        return box;
    }
    static std::string Clipboard() { return QGuiApplication::clipboard()->text().toStdString(); }
};

TEST_F(Menus, AtStart_MenusAndEntriesWithTheirNumbersAndCaptions)
{
    const std::vector<std::pair<const char*, std::vector<std::pair<int, const char*>>>> kMenus = {
        {"mnuFile",
         {{1, "&New"},
          {2, "&Open"},
          {4, "&Save As..."},
          {5, "-"},
          {6, "Printer Setup"},
          {7, "-"},
          {8, "Go to &VEXA Standard"},
          {9, "E&xit"}}},
        {"mnuSection",
         {{1, "Set&up"},
          {2, "&Situation"},
          {3, "&Objectives"},
          {4, "&Alternatives"},
          {5, "Anal&ysis"},
          {6, "&Compare"},
          {7, "Comple&xity Analysis"},
          {8, "&Report"}}},
        {"mnuEdit", {{2, "Cut"}, {3, "Copy"}, {4, "Paste"}}},
        {"mnuHelp", {{1, "Current &Worksheet   F1"}, {2, "&Contents"}, {9, "&About ..."}}},
    };
    Start();
    for (const auto& [menu, entries] : kMenus) {
        ASSERT_EQ(static_cast<std::size_t>(Menu(menu)->actions().size()), entries.size()) << menu;
        for (const auto& [number, caption] : entries) {
            EXPECT_EQ(Entry(menu, number)->text(), QString::fromUtf8(caption)) << menu << ' ' << number;
            EXPECT_EQ(Entry(menu, number)->isSeparator(), std::string(caption) == "-");
        }
    }
    EXPECT_EQ(Entry("mnuWorksheet", 1)->text(), QStringLiteral("&1 Introduction"));
    EXPECT_EQ(Entry("mnuWorksheet", 6)->text(), QStringLiteral("&6 Cost / Acre"));
}

TEST_F(Menus, MenuBar_FiveMenusInTheirOrder)
{
    Start();
    std::vector<std::string> captions;
    for (const QAction* menu : window->menuBar()->actions())
        captions.push_back(menu->text().toStdString());
    EXPECT_THAT(captions, ElementsAre("&File", "&Section", "&Worksheet", "&Edit", "&Help"));
}

TEST_F(Menus, FileOpen_HiddenEntriesExistAndStayHidden)
{
    StartWithSample();
    for (int section = 2; section <= 7; ++section) {
        ClickTab(Sections(), section);
        EXPECT_FALSE(Entry("mnuSection", 1)->isVisible());
        EXPECT_FALSE(Entry("mnuSection", 8)->isVisible());
        EXPECT_FALSE(Entry("mnuWorksheet", 6)->isVisible());
    }
}

TEST_F(Menus, PrinterSetup_AsksTheDesktop)
{
    Start();
    Pick("mnuFile", 6);
    EXPECT_THAT(desktop.calls, ElementsAre("PrinterSetup"));
    EXPECT_EQ(Lines().at(Lines().size() - 2), "   mnuFile_Click 6");
}

// ---- Edit

TEST_F(Menus, CutCopyPasteInATextBox_ByItsSelection)
{
    StartWithSample();
    GoTo(2, 2);
    QLineEdit* box = FocusedTextBox("Smith Creek");
    Pick("mnuEdit", 3);
    EXPECT_EQ(Clipboard(), "Smith Creek");
    EXPECT_EQ(box->text(), QStringLiteral("Smith Creek"));
    box->setSelection(5, 6);
    Pick("mnuEdit", 2);
    EXPECT_EQ(Clipboard(), " Creek");
    EXPECT_EQ(box->text(), QStringLiteral("Smith"));
    box->setSelection(0, 1);
    Pick("mnuEdit", 4);
    EXPECT_EQ(box->text(), QStringLiteral(" Creekmith"));
}

TEST_F(Menus, CutAndCopyWithNothingSelected_LeaveTheClipboard)
{
    StartWithSample();
    GoTo(2, 2);
    QGuiApplication::clipboard()->setText(QStringLiteral("before"));
    QLineEdit* box = FocusedTextBox("Smith Creek");
    box->deselect();
    Pick("mnuEdit", 2);
    Pick("mnuEdit", 3);
    EXPECT_EQ(Clipboard(), "before");
    EXPECT_EQ(box->text(), QStringLiteral("Smith Creek"));
}

TEST_F(Menus, EditWithNoActiveControl_DoesNothing)
{
    StartWithSample();
    GoTo(2, 2);
    QGuiApplication::clipboard()->setText(QStringLiteral("before"));
    for (const int number : {2, 3, 4})
        Pick("mnuEdit", number);
    EXPECT_EQ(Clipboard(), "before");
}

TEST_F(Menus, EditByTheMenuBarsKeys_ActsOnTheControlThatHadTheFocus)
{
    StartWithSample();
    GoTo(2, 2);
    FocusedTextBox("Smith Creek");
    QTest::keyClick(window.get(), Qt::Key_E, Qt::AltModifier);
    ASSERT_TRUE(Menu("mnuEdit")->isVisible());
    Menu("mnuEdit")->setActiveAction(Entry("mnuEdit", 3));
    QTest::keyClick(Menu("mnuEdit"), Qt::Key_Return);
    EXPECT_EQ(Lines().back(), "   mnuEdit_Click 3");
    EXPECT_EQ(Clipboard(), "Smith Creek");
}

TEST_F(Menus, EditEntries_BearTheirShortcuts)
{
    Start();
    EXPECT_EQ(Entry("mnuEdit", 2)->shortcut(), QKeySequence(QStringLiteral("Ctrl+X")));
    EXPECT_EQ(Entry("mnuEdit", 3)->shortcut(), QKeySequence(QStringLiteral("Ctrl+C")));
    EXPECT_EQ(Entry("mnuEdit", 4)->shortcut(), QKeySequence(QStringLiteral("Ctrl+V")));
}

// ---- Help

TEST_F(Menus, HelpEntries_TopicOfTheWorksheetAndContents)
{
    StartWithSample();
    const std::string file = "ShowHelp " + folder.File("VEXAPlus.hlp");
    ClickTab(Sections(), 7);
    Pick("mnuHelp", 1);
    Pick("mnuHelp", 2);
    EXPECT_THAT(desktop.calls, ElementsAre(file + " 4810", file + " 0"));
}

TEST_F(Menus, F1_OpensTheTopicOfWhatIsOnScreen)
{
    Start();
    QTest::keyClick(window.get(), Qt::Key_F1);
    path = CopySample("smith-creek");
    desktop.ExpectFile("Open VEXA Plus file", path);
    Pick("mnuFile", 2);
    GoTo(5, 3);
    FocusedTextBox("text");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F1);
    const std::string file = "ShowHelp " + folder.File("VEXAPlus.hlp");
    EXPECT_THAT(desktop.calls, ElementsAre(file + " 4010", file + " 4530"));
}

TEST_F(Menus, EveryWorksheet_HasAHelpTopicOfItsOwn)
{
    std::set<int> topics;
    for (const WorksheetEntry& entry : ::Worksheets())
        topics.insert(entry.helpContextID);
    EXPECT_EQ(topics.size(), 16U);
}

TEST_F(Menus, About_ItsLines)
{
    Start();
    desktop.ExpectText({"VEXA Basic 06.6",
                        "Vexarium, 2006 Edition, Version 6",
                        "",
                        "Decision support for wildfire incidents.",
                        "Provided as is, without warranty of any kind.",
                        "The decision remains with the responsible official."});
    Pick("mnuHelp", 9);
}

} // namespace
