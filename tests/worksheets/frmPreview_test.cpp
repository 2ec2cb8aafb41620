#include "platform/widgets/Printing.h"
#include "platform/widgets/Theme.h"
#include "session/SessionState.h"
#include "session/a1VEXA.h"
#include "session/u11Datafile.h"
#include "worksheets/PreviewTest.h"
#include "worksheets/frmPreview.h"

#include <QAccessible>
#include <QPrintDialog>
#include <QPrinter>
#include <QScrollBar>
#include <QTimer>
#include <QToolButton>

#include <gmock/gmock.h>

using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;
namespace Theme = platform::Theme;

namespace {

class Preview : public PreviewTest
{
protected:
    void Open()
    {
        StartReports();
        Press("cmdPreview");
        ASSERT_NE(frmPreview::Loaded(), nullptr);
        ASSERT_TRUE(QTest::qWaitForWindowActive(frmPreview::Loaded()));
    }
    static std::string PageLabel(int page)
    {
        return "Page " + std::to_string(page) + " of " + std::to_string(PageCount());
    }
    static void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    static std::string Words() { return Pages().accessibleDescription().toStdString(); }
};

// ---- The window

TEST_F(Preview, CaptionsAsGiven)
{
    Open();
    EXPECT_EQ(Shown().windowTitle(), QStringLiteral("Print Preview"));
    const std::vector<std::pair<const char*, const char*>> captions = {{"cmdSave", "Save to File"},
                                                                       {"cmdPrintPage", "Print Page"},
                                                                       {"cmdPrintReport", "Print Report"},
                                                                       {"cmdClose", "Close"}};
    for (const auto& [name, caption] : captions)
        EXPECT_EQ(InPreview<QPushButton>(name)->text().toStdString(), caption);
}

TEST_F(Preview, SizeAtLoad_ByTheScreen)
{
    struct Case
    {
        int screenWidth, screenHeight, width, height;
    };
    // The edges: a screen of just 16640, one higher, and one that is no wider than the paper.
    const std::vector<Case> cases = {{28800, 16641, 12240, 15840},
                                     {28800, 16640, 12240, 15840},
                                     {28800, 16200, 12240, 15400},
                                     {12240, 30000, 12240, 15840},
                                     {12241, 30000, 12240, 15840},
                                     {12000, 12000, 12000, 11200}};
    StartReports();
    Tick({3});
    for (const Case& screen : cases) {
        busy.screenWidth = screen.screenWidth;
        busy.screenHeight = screen.screenHeight;
        Press("cmdPreview");
        EXPECT_EQ(Shown().pos(), QPoint(0, 0));
        EXPECT_EQ(Shown().width(), Theme::Pixels(screen.width)) << screen.screenWidth;
        EXPECT_EQ(Shown().height(), Theme::Pixels(screen.height)) << screen.screenHeight;
        frmPreview::Unload();
    }
}

TEST_F(Preview, Resize_ThePrinterPaneIs120NarrowerAndLower)
{
    Open();
    for (const QSize size : {QSize(816, 700), QSize(1300, 900), QSize(800, 600)}) {
        Shown().resize(size);
        QCoreApplication::processEvents();
        EXPECT_EQ(InPreview<QWidget>("VSPrinter1")->size(), size - QSize(8, 8)); // 120 twips
    }
}

TEST_F(Preview, Close_UnloadsTheWindowAndKeepsThePages)
{
    Open();
    const Long pages = PageCount();
    PressInPreview("cmdClose");
    EXPECT_EQ(frmPreview::Loaded(), nullptr);
    EXPECT_EQ(Lines().back(), "   Unloaded frmPreview");
    EXPECT_EQ(PageCount(), pages);
    Press("cmdPreview");
    EXPECT_TRUE(Shown().isVisible());
}

TEST_F(Preview, OtherWorksheets_TheWindowStays)
{
    Open();
    ClickTab(Worksheets(), 2);
    ClickTab(Sections(), 2);
    EXPECT_NE(frmPreview::Loaded(), nullptr);
}

TEST_F(Preview, ReturnToStart_ClosesIt)
{
    Open();
    a1VEXA::ReturnToStart();
    EXPECT_EQ(frmPreview::Loaded(), nullptr);
}

TEST_F(Preview, AnotherFile_ClosesItACancelledDialogDoesNot)
{
    Open();
    busy.ExpectFile("Open VEXA Plus file", "");
    Pick("mnuFile", 2);
    EXPECT_NE(frmPreview::Loaded(), nullptr);
    const std::string other = MakeFile({}, "Other.qel");
    busy.ExpectFile("Open VEXA Plus file", other);
    Pick("mnuFile", 2);
    EXPECT_EQ(frmPreview::Loaded(), nullptr);
}

TEST_F(Preview, NewFile_ClosesItACancelledDialogDoesNot)
{
    Open();
    busy.ExpectFile("Create new VEXA Plus file", "");
    Pick("mnuFile", 1);
    EXPECT_NE(frmPreview::Loaded(), nullptr);
    busy.ExpectFile("Create new VEXA Plus file", folder.File("Next.qel"));
    Pick("mnuFile", 1);
    EXPECT_EQ(frmPreview::Loaded(), nullptr);
    EXPECT_EQ(gCurrentTab, "tab11");
}

TEST_F(Preview, SaveAs_ClosesItACancelledDialogDoesNot)
{
    Open();
    busy.ExpectFile("Save As New VEXA Plus file", "");
    Pick("mnuFile", 4);
    EXPECT_NE(frmPreview::Loaded(), nullptr);
    busy.ExpectFile("Save As New VEXA Plus file", folder.File("Copy.qel"));
    Pick("mnuFile", 4);
    EXPECT_EQ(frmPreview::Loaded(), nullptr);
    EXPECT_EQ(u11Datafile::DatafileName(), "Copy.qel");
}

// The file behind the pages is another: they are made from what is open now.
TEST_F(Preview, AfterAnotherFile_TheNextPreviewIsOfThatOne)
{
    Open();
    EXPECT_THAT(Words(), HasSubstr("Smith Creek"));
    busy.ExpectFile("Open VEXA Plus file", MakeFile({}, "Other.qel"));
    Pick("mnuFile", 2);
    GoTo(7, 3);
    Press("cmdPreview");
    EXPECT_THAT(Words(), Not(HasSubstr("Smith Creek")));
    EXPECT_EQ(Text("lblPage"), PageLabel(1));
}

TEST_F(Preview, MainWindowCloses_ThePreviewGoesWithIt)
{
    Open();
    EXPECT_TRUE(window->close());
    EXPECT_EQ(frmPreview::Loaded(), nullptr);
}

TEST_F(Preview, EveryControl_HasAName)
{
    Open();
    for (QWidget* widget : Shown().findChildren<QWidget*>()) {
        if (!widget->isVisible() || widget->focusPolicy() == Qt::NoFocus) continue;
        if (widget->objectName().startsWith(QLatin1String("qt_"))) continue;
        QAccessibleInterface* control = QAccessible::queryAccessibleInterface(widget);
        EXPECT_FALSE(control->text(QAccessible::Name).isEmpty()) << widget->objectName().toStdString();
    }
}

// ---- Pages

TEST_F(Preview, Opens_OnPage1AtPageWidth)
{
    Open();
    EXPECT_EQ(Text("lblPage"), PageLabel(1));
    EXPECT_EQ(Pages().FitsTo(), platform::PageView::Fit::Width);
    EXPECT_TRUE(InPreview<QToolButton>("cmdFitWidth")->isChecked());
    EXPECT_FALSE(InPreview<QToolButton>("cmdPreviousPage")->isEnabled());
    EXPECT_TRUE(Pages().hasFocus());
    EXPECT_THAT(Words(), HasSubstr("Fire Situation"));
}

TEST_F(Preview, PageKeys_FromAnyControl)
{
    Open();
    const int last = PageCount();
    for (const char* control : {"PageView1", "cmdClose", "txtPage", "cmdFitPage"}) {
        InPreview<QWidget>(control)->setFocus();
        Key(Qt::Key_PageDown);
        EXPECT_EQ(Text("lblPage"), PageLabel(2)) << control;
        Key(Qt::Key_PageUp);
        EXPECT_EQ(Text("lblPage"), PageLabel(1)) << control;
    }
    InPreview<QWidget>("cmdClose")->setFocus();
    Key(Qt::Key_End);
    EXPECT_EQ(Text("lblPage"), PageLabel(last));
    EXPECT_FALSE(InPreview<QToolButton>("cmdNextPage")->isEnabled());
    Key(Qt::Key_Home);
    EXPECT_EQ(Text("lblPage"), PageLabel(1));
}

TEST_F(Preview, PageButtons_TurnThePages)
{
    Open();
    PressInPreview("cmdNextPage");
    PressInPreview("cmdNextPage");
    EXPECT_EQ(Text("lblPage"), PageLabel(3));
    EXPECT_EQ(InPreview<QLineEdit>("txtPage")->text(), QStringLiteral("3"));
    PressInPreview("cmdPreviousPage");
    EXPECT_EQ(Text("lblPage"), PageLabel(2));
}

TEST_F(Preview, PageBox_EnterGoesThere)
{
    Open();
    auto* box = InPreview<QLineEdit>("txtPage");
    const auto type = [&](const char* number) {
        box->setFocus();
        box->selectAll();
        QTest::keyClicks(box, QString::fromUtf8(number));
        QTest::keyClick(box, Qt::Key_Return);
    };
    type("4");
    EXPECT_EQ(Text("lblPage"), PageLabel(4));
    type("999");
    EXPECT_EQ(Text("lblPage"), PageLabel(PageCount()));
    EXPECT_EQ(box->text().toStdString(), std::to_string(PageCount()));
    type("0");
    EXPECT_EQ(Text("lblPage"), PageLabel(1));
    type("x");
    EXPECT_EQ(Text("lblPage"), PageLabel(1));
    EXPECT_EQ(box->text(), QStringLiteral("1"));
}

TEST_F(Preview, PageBox_LeftEmpty_ShowsThePageAgain)
{
    Open();
    auto* box = InPreview<QLineEdit>("txtPage");
    box->setFocus();
    box->clear();
    Pages().setFocus();
    EXPECT_EQ(box->text(), QStringLiteral("1"));
}

// ---- Zoom

TEST_F(Preview, ZoomKeysAndButtons)
{
    Open();
    Key(Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(Text("lblZoom"), "100 %");
    EXPECT_FALSE(InPreview<QToolButton>("cmdFitWidth")->isChecked());
    InPreview<QPushButton>("cmdClose")->setFocus();
    Key(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_EQ(Text("lblZoom"), "125 %");
    Key(Qt::Key_Minus, Qt::ControlModifier);
    PressInPreview("cmdZoomOut");
    EXPECT_EQ(Text("lblZoom"), "75 %");
    PressInPreview("cmdZoomIn");
    EXPECT_EQ(Text("lblZoom"), "100 %");
    PressInPreview("cmdFitPage");
    EXPECT_TRUE(InPreview<QToolButton>("cmdFitPage")->isChecked());
    EXPECT_EQ(Pages().FitsTo(), platform::PageView::Fit::Page);
    PressInPreview("cmdFitPage"); // pressed again it stays
    EXPECT_TRUE(InPreview<QToolButton>("cmdFitPage")->isChecked());
    PressInPreview("cmdFitWidth");
    EXPECT_FALSE(InPreview<QToolButton>("cmdFitPage")->isChecked());
}

// ---- Find

TEST_F(Preview, Find_ByKeysAlone)
{
    Open();
    Key(Qt::Key_F, Qt::ControlModifier);
    auto* box = InPreview<QLineEdit>("txtFind");
    ASSERT_TRUE(box->hasFocus());
    QTest::keyClicks(box, QStringLiteral("fire"));
    const int count = Pages().HitCount();
    ASSERT_GE(count, 2);
    const std::string of = " of " + std::to_string(count);
    EXPECT_EQ(Text("lblFound"), "1" + of);
    EXPECT_THAT(Words(), ::testing::ContainsRegex("[Ff]ire"));
    Key(Qt::Key_Return);
    EXPECT_EQ(Text("lblFound"), "2" + of);
    Key(Qt::Key_F3);
    Key(Qt::Key_F3, Qt::ShiftModifier);
    Key(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(Text("lblFound"), "1" + of);
    Key(Qt::Key_Escape);
    EXPECT_EQ(box->text(), QString());
    EXPECT_EQ(Text("lblFound"), "");
    EXPECT_TRUE(Pages().hasFocus());
}

TEST_F(Preview, Find_NotThere_SaysSo)
{
    Open();
    InPreview<QLineEdit>("txtFind")->setText(QStringLiteral("zebra crossing"));
    EXPECT_EQ(Text("lblFound"), "Not found");
    EXPECT_FALSE(InPreview<QToolButton>("cmdFindNext")->isEnabled());
}

// ---- Commands

TEST_F(Preview, Save_TheSectionsOfThePreviewNotTheBoxes)
{
    StartReports();
    Tick({3});
    Press("cmdPreview");
    Tick({1, 2, 3, 4});
    busy.ExpectFile("Save as RTF File", folder.File("report.rtf"));
    Mark();
    PressInPreview("cmdSave");
    EXPECT_THAT(NewLines(), Not(Contains("   SelectSections")));
    EXPECT_THAT(NewLines(), Contains("   ProduceSection 3"));
    EXPECT_THAT(NewLines(), Not(Contains("   ProduceSection 1")));
    EXPECT_THAT(support::ReadFile(folder.File("report.rtf")), StartsWith("{\\rtf1"));
    EXPECT_FALSE(ReportUtilities::bSavingRtf());
    EXPECT_EQ(Printer().ExportFile(), "");
    EXPECT_EQ(Text("lblPage"), "Page 1 of 1");
}

TEST_F(Preview, Save_ThePageOnShowStays)
{
    Open();
    Pages().GoToPage(3);
    busy.ExpectFile("Save as RTF File", folder.File("report.rtf"));
    PressInPreview("cmdSave");
    EXPECT_EQ(Text("lblPage"), PageLabel(3));
}

TEST_F(Preview, Save_PlaceZoomWordsAndFocusStay)
{
    Open();
    Pages().SetZoom(1.5);
    Pages().GoToPage(2);
    Pages().verticalScrollBar()->setValue(Pages().verticalScrollBar()->value() + 137);
    InPreview<QLineEdit>("txtFind")->setText(QStringLiteral("fire"));
    Key(Qt::Key_F3);
    const int place = Pages().verticalScrollBar()->value();
    const std::string found = Text("lblFound");
    const std::string page = Text("lblPage");
    busy.ExpectFile("Save as RTF File", folder.File("report.rtf"));
    InPreview<QPushButton>("cmdSave")->setFocus();
    Key(Qt::Key_Space);
    EXPECT_EQ(Pages().verticalScrollBar()->value(), place);
    EXPECT_EQ(Text("lblZoom"), "150 %");
    EXPECT_EQ(Text("lblFound"), found);
    EXPECT_EQ(Text("lblPage"), page);
    EXPECT_TRUE(InPreview<QPushButton>("cmdSave")->hasFocus());
}

TEST_F(Preview, PaperOfTheSetupIsAnother_ThePagesAreLaidOutAgainInTheirPlace)
{
    Open();
    Pages().GoToPage(3);
    busy.whenSetUp = [] {
        QTimer::singleShot(0, [] {
            auto* dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            dialog->printer()->setPageSize(QPageSize(QPageSize::A4));
            dialog->accept();
        });
        platform::Printing::SetUp(nullptr);
    };
    Pick("mnuFile", 6);
    EXPECT_EQ(Printer().Pages().pageHeight, 16840.0);
    EXPECT_EQ(Text("lblPage"), PageLabel(3));
    Mark();
    busy.whenSetUp = {};
    Press("cmdPrinterSetup"); // and with the same paper again nothing is made
    EXPECT_THAT(NewLines(), Not(Contains(HasSubstr("ProduceS"))));
    platform::Printing::UseDesktopsPrinter();
}

TEST_F(Preview, SaveDialogCancelled_NothingChanges)
{
    Open();
    Pages().GoToPage(2);
    busy.ExpectFile("Save as RTF File", "");
    Mark();
    PressInPreview("cmdSave");
    EXPECT_THAT(NewLines(), Not(Contains(HasSubstr("ProduceS"))));
    EXPECT_EQ(Text("lblPage"), PageLabel(2));
}

TEST_F(Preview, PrintPage_ThePageOnShowAlone)
{
    Open();
    std::vector<std::pair<Long, Long>> printed;
    Printer().SetPrinter(
        [&](const platform::print::Document&, Long first, Long last) { printed.emplace_back(first, last); });
    Pages().GoToPage(3);
    PressInPreview("cmdPrintPage");
    EXPECT_THAT(printed, ::testing::ElementsAre(std::pair<Long, Long>(2, 2)));
    EXPECT_TRUE(Printer().Preview());
}

// Kept: the preview's own print leaves the control told to print.
TEST_F(Preview, PrintReport_PreviewStaysFalseBehindIt)
{
    Open();
    ASSERT_TRUE(Printer().Preview());
    busy.ExpectFile("No Printer: Print to PDF File", folder.File("all.pdf"));
    Mark();
    PressInPreview("cmdPrintReport");
    EXPECT_FALSE(Printer().Preview());
    EXPECT_THAT(NewLines(), Contains("   ProduceSelectedSections"));
    EXPECT_THAT(support::ReadFile(folder.File("all.pdf")), StartsWith("%PDF-"));
    EXPECT_EQ(Text("lblPage"), PageLabel(1));
    EXPECT_EQ(busy.pointer, platform::Pointer::Default);
    Press("cmdPreview");
    EXPECT_TRUE(Printer().Preview());
}

TEST_F(Preview, DuringItsRun_AllElseIsDisabledAlsoTheWorksheetShown)
{
    Open();
    ClickTab(Sections(), 2);
    ClickTab(Worksheets(), 2);
    bool ran = false;
    busy.whenEventsRun = [&] {
        ran = true;
        for (const char* name : {"cmdSave", "cmdPrintPage", "cmdPrintReport", "cmdClose", "txtFind"})
            EXPECT_FALSE(InPreview<QWidget>(name)->isEnabled()) << name;
        EXPECT_FALSE(Find<QWidget>("txtName")->isEnabled());
        EXPECT_FALSE(Shown().close());
        EXPECT_FALSE(window->close());
    };
    busy.ExpectFile("Save as RTF File", folder.File("report.rtf"));
    PressInPreview("cmdSave");
    EXPECT_TRUE(ran);
    EXPECT_TRUE(Shown().isVisible());
    for (const char* name : {"cmdSave", "cmdPrintPage", "cmdPrintReport", "cmdClose", "txtFind"})
        EXPECT_TRUE(InPreview<QWidget>(name)->isEnabled()) << name;
    EXPECT_TRUE(Find<QWidget>("txtName")->isEnabled());
}

TEST_F(Preview, CancelledRun_NoPagesAndASentence)
{
    Open();
    busy.whenEventsRun = [&] { busy.whenEventsRun = [&] { InPreview<QPushButton>("cmdCancel")->click(); }; };
    busy.ExpectFile("Save as RTF File", folder.File("report.rtf"));
    PressInPreview("cmdSave");
    EXPECT_EQ(PageCount(), 0);
    EXPECT_EQ(support::ReadFile(folder.File("report.rtf")), "");
    EXPECT_EQ(Text("lblPage"), "No pages");
    EXPECT_THAT(Words(), StartsWith("There are no pages"));
    EXPECT_FALSE(InPreview<QPushButton>("cmdPrintPage")->isEnabled());
    busy.ExpectFile("Save as RTF File", folder.File("report.rtf"));
    PressInPreview("cmdSave"); // and again
    EXPECT_GT(PageCount(), 3);
    EXPECT_TRUE(InPreview<QPushButton>("cmdPrintPage")->isEnabled());
}

TEST_F(Preview, FailedSave_IsToldAndThePagesCanBeRead)
{
    Open();
    const std::string nowhere = folder.File("missing/report.rtf");
    busy.ExpectFile("Save as RTF File", nowhere);
    busy.ExpectText({"The report could not be written to \"" + nowhere + "\": No such file or directory."});
    PressInPreview("cmdSave");
    EXPECT_GT(PageCount(), 3);
    EXPECT_EQ(Text("lblPage"), PageLabel(1));
}

TEST_F(Preview, Help_OpensItsTopic)
{
    Open();
    Key(Qt::Key_F1);
    EXPECT_THAT(busy.calls, Contains(HasSubstr(" 4831")));
}

} // namespace
