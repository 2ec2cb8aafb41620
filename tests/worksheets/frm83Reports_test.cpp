#include "platform/print/PageRecord.h"
#include "platform/widgets/TabStrip.h"
#include "session/SessionState.h"
#include "support/ChildProcess.h"
#include "worksheets/PreviewTest.h"
#include "worksheets/Worksheet.h"
#include "worksheets/frm83Reports.h"

#include <QAction>
#include <QMenuBar>
#include <QProgressBar>

#include <filesystem>
#include <gmock/gmock.h>

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

namespace {

using Reports = PreviewTest;

const std::vector<std::string> kCaptions = {"Situation",
                                            "Decision, Rationale",
                                            "Signature Page",
                                            "Suppression Objectives",
                                            "Safety Issues",
                                            "Alternatives",
                                            "Estimated Suppression Cost",
                                            "Values Threatened",
                                            "Safety Assessment",
                                            "Decision Tree"};

// ---- The worksheet

TEST_F(Reports, Setup_CaptionKeyMenusAndNoEditMenu)
{
    StartReports();
    EXPECT_EQ(gCurrentTab, "tab83");
    EXPECT_EQ(WindowTest::Shown().windowTitle(), QStringLiteral("Print Report"));
    EXPECT_EQ(WindowTest::Shown().HelpContextID(), 4830);
    EXPECT_FALSE(Menu("mnuEdit")->isEnabled());
    EXPECT_TRUE(Entry("mnuWorksheet", 3)->isChecked());
}

TEST_F(Reports, Boxes_TenOneBelowTheOtherAllTicked)
{
    StartReports();
    for (int section = 1; section <= 10; ++section) {
        EXPECT_EQ(Box(section)->text().toStdString(), kCaptions[static_cast<std::size_t>(section) - 1]);
        EXPECT_TRUE(Box(section)->isChecked()) << section;
        if (section > 1) {
            EXPECT_GE(Box(section)->y() - Box(section - 1)->y(), 20) << section; // 300 twips
        }
    }
}

TEST_F(Reports, Captions_AsGiven)
{
    StartReports();
    const std::vector<std::pair<const char*, const char*>> captions = {{"cmdSelect", "Select All"},
                                                                       {"cmdClear", "Clear All"},
                                                                       {"cmdPreview", "Pre&view"},
                                                                       {"cmdPrint", "&Print"},
                                                                       {"cmdSave", "Save to File..."},
                                                                       {"cmdPrinterSetup", "Printer &Setup"}};
    for (const auto& [name, caption] : captions)
        EXPECT_EQ(Find<QPushButton>(name)->text().toStdString(), caption);
}

TEST_F(Reports, ClearAllAndSelectAll_SetEveryBox)
{
    StartReports();
    Press("cmdClear");
    for (int section = 1; section <= 10; ++section)
        EXPECT_FALSE(Box(section)->isChecked()) << section;
    Box(4)->setChecked(true);
    Press("cmdSelect");
    for (int section = 1; section <= 10; ++section)
        EXPECT_TRUE(Box(section)->isChecked()) << section;
}

TEST_F(Reports, Ticks_AreNotKept)
{
    StartReports();
    Press("cmdClear");
    ClickTab(Worksheets(), 2);
    ClickTab(Worksheets(), 3);
    for (int section = 1; section <= 10; ++section)
        EXPECT_TRUE(Box(section)->isChecked()) << section;
}

// ---- Which sections

TEST_F(Reports, EveryCommand_ReadsTheBoxesFirst)
{
    StartReports();
    Tick({2, 3});
    Press("cmdPreview");
    EXPECT_EQ(ReportRun::nSelected(), 2);
    Tick({3});
    busy.ExpectFile("No Printer: Print to PDF File", "");
    Press("cmdPrint");
    EXPECT_EQ(ReportRun::nSelected(), 1);
    EXPECT_FALSE(ReportRun::bSelected(2));
    EXPECT_TRUE(ReportRun::bSelected(3));
    Press("cmdSelect");
    busy.ExpectFile("Save as RTF File", "");
    Press("cmdSave");
    EXPECT_EQ(ReportRun::nSelected(), 10);
}

TEST_F(Reports, OneSection_NoNewPageBehindIt)
{
    StartReports();
    Tick({3});
    Mark();
    Press("cmdPreview");
    EXPECT_THAT(NewLines(), Contains("   ProduceSection 3"));
    EXPECT_THAT(NewLines(), Not(Contains("   vsPrinter1_NewPage")));
    EXPECT_EQ(PageCount(), 1);
}

TEST_F(Reports, NothingTicked_AnEmptyPreviewOpens)
{
    StartReports();
    Press("cmdClear");
    Press("cmdPreview");
    ASSERT_NE(frmPreview::Loaded(), nullptr);
    EXPECT_TRUE(Shown().isVisible());
    EXPECT_EQ(ReportRun::nSelected(), 0);
    for (const auto& page : Printer().Pages().pages)
        EXPECT_TRUE(platform::print::LinesOf(page).empty());
}

TEST_F(Reports, SevenSections_BlankForThePageNumberEight_TheNumber)
{
    StartReports();
    Tick({1, 2, 3, 4, 5, 9, 10});
    Press("cmdPreview");
    Pages().GoToPage(2);
    EXPECT_THAT(Pages().accessibleDescription().toStdString(), HasSubstr("Page ___"));
    Box(6)->setChecked(true);
    Press("cmdPreview");
    Pages().GoToPage(2);
    EXPECT_THAT(Pages().accessibleDescription().toStdString(), HasSubstr("Page 2"));
}

// ---- Preview

TEST_F(Reports, Preview_ShowsThePagesAndPointerIsPlainAgain)
{
    StartReports();
    Printer().SetPreview(false);
    Press("cmdPreview");
    EXPECT_TRUE(Shown().isVisible());
    EXPECT_EQ(Text("lblPage"), "Page 1 of " + std::to_string(PageCount()));
    EXPECT_GT(PageCount(), 3);
    EXPECT_TRUE(Printer().Preview());
    EXPECT_EQ(busy.pointer, platform::Pointer::Default);
    EXPECT_TRUE(window->menuBar()->isEnabled());
}

TEST_F(Reports, PreviewAgain_TheSameWindowOnPage1AtPageWidth)
{
    StartReports();
    Press("cmdPreview");
    const frmPreview* before = frmPreview::Loaded();
    Pages().GoToPage(4);
    Pages().SetZoom(2.0);
    Press("cmdPreview");
    EXPECT_EQ(frmPreview::Loaded(), before);
    EXPECT_EQ(Pages().CurrentPage(), 1);
    EXPECT_EQ(Pages().FitsTo(), platform::PageView::Fit::Width);
}

TEST_F(Reports, LongPreview_ItsFirstPageIsReadBeforeTheLastIsMade)
{
    StartReports();
    int pagesThen = -1;
    std::string label;
    bool visible = false;
    // Behind the first section its pages but the last have ended.
    busy.whenEventsRun = [&] {
        busy.whenEventsRun = [&] {
            visible = frmPreview::Loaded() != nullptr && Shown().isVisible();
            if (visible) label = Text("lblPage");
            pagesThen = PageCount();
        };
    };
    Press("cmdPreview");
    EXPECT_TRUE(visible);
    EXPECT_THAT(label, StartsWith("Page 1 of "));
    EXPECT_LT(pagesThen, PageCount());
    EXPECT_EQ(Text("lblPage"), "Page 1 of " + std::to_string(PageCount()));
}

// ---- Print

TEST_F(Reports, Print_PagesGoToThePrinterAndNoPreviewOpens)
{
    StartReports();
    const std::string pdf = folder.File("report.pdf");
    busy.ExpectFile("No Printer: Print to PDF File", pdf);
    Press("cmdPrint");
    EXPECT_FALSE(Printer().Preview());
    EXPECT_EQ(frmPreview::Loaded(), nullptr);
    EXPECT_THAT(support::ReadFile(pdf), StartsWith("%PDF-"));
}

TEST_F(Reports, PrintToAPlaceThatCannotBeWritten_IsTold)
{
    StartReports();
    Tick({3});
    const std::string pdf = folder.File("missing/report.pdf");
    busy.ExpectFile("No Printer: Print to PDF File", pdf);
    busy.ExpectText({"The report could not be written to \"" + pdf + "\": No such file or directory."});
    Press("cmdPrint");
    EXPECT_TRUE(Find<QPushButton>("cmdPrint")->isEnabled());
}

// ---- Save

TEST_F(Reports, SaveDialog_ItsDefaults)
{
    StartReports();
    platform::FileRequest asked;
    busy.lookAtFileRequest = [&](const platform::FileRequest& request) { asked = request; };
    busy.ExpectFile("Save as RTF File", "");
    Press("cmdSave");
    EXPECT_EQ(asked.kind, platform::FileRequest::Kind::Save);
    EXPECT_EQ(asked.folder, folder.File("docs"));
    EXPECT_EQ(asked.extension, "rtf");
    EXPECT_EQ(asked.fileName, std::filesystem::path(path).stem().string() + ".rtf");
    EXPECT_EQ(asked.filter, "RTF files (*.rtf)|*.rtf|All Files (*.*)|*.*");
    EXPECT_TRUE(asked.asksBeforeReplacing);
}

TEST_F(Reports, SaveCancelled_NothingIsProduced)
{
    StartReports();
    busy.ExpectFile("Save as RTF File", "");
    Mark();
    Press("cmdSave");
    EXPECT_THAT(NewLines(), Not(Contains(HasSubstr("ProduceS"))));
    EXPECT_EQ(PageCount(), 0);
    EXPECT_EQ(Printer().ExportFile(), "");
}

TEST_F(Reports, Save_WritesTheFileAndNothingElseChanges)
{
    StartReports();
    const std::string rtf = folder.File("report.rtf");
    busy.ExpectFile("Save as RTF File", rtf);
    Press("cmdSave");
    EXPECT_THAT(support::ReadFile(rtf), StartsWith("{\\rtf1"));
    EXPECT_EQ(Printer().ExportFile(), "");
    EXPECT_FALSE(ReportUtilities::bSavingRtf());
    EXPECT_TRUE(Printer().Preview()); // as it was
    EXPECT_EQ(frmPreview::Loaded(), nullptr);
}

TEST_F(Reports, SaveThatFails_IsToldAndTheNextOneWorks)
{
    StartReports();
    Tick({3});
    const std::string nowhere = folder.File("missing/report.rtf");
    busy.ExpectFile("Save as RTF File", nowhere);
    busy.ExpectText({"The report could not be written to \"" + nowhere + "\": No such file or directory."});
    Press("cmdSave");
    EXPECT_FALSE(ReportUtilities::bSavingRtf());
    EXPECT_EQ(Printer().ExportFile(), "");
    busy.ExpectFile("Save as RTF File", folder.File("report.rtf"));
    Press("cmdSave");
    EXPECT_TRUE(std::filesystem::exists(folder.File("report.rtf")));
}

TEST_F(Reports, SaveOnAFullDisk_TheOldFileStaysWholeAndIsTold)
{
    StartReports();
    const std::string rtf = folder.File("report.rtf");
    support::WriteFile(rtf, "as it was");
    busy.ExpectFile("Save as RTF File", rtf);
    busy.ExpectText({"The report could not be written to \"" + rtf + "\": there is no room for all of it."});
    {
        const support::FileSizeLimit full(20'000);
        Press("cmdSave");
    }
    EXPECT_EQ(support::ReadFile(rtf), "as it was");
    busy.ExpectFile("Save as RTF File", rtf);
    Press("cmdSave");
    EXPECT_THAT(support::ReadFile(rtf), StartsWith("{\\rtf1"));
}

TEST_F(Reports, PrintOnAFullDisk_TheOldFileStaysWholeAndIsTold)
{
    StartReports();
    const std::string pdf = folder.File("report.pdf");
    support::WriteFile(pdf, "as it was");
    busy.ExpectFile("No Printer: Print to PDF File", pdf);
    busy.ExpectText({"The report could not be written to \"" + pdf + "\": there is no room for all of it."});
    {
        const support::FileSizeLimit full(20'000);
        Press("cmdPrint");
    }
    EXPECT_EQ(support::ReadFile(pdf), "as it was");
}

// No user's rights are enough to make a file there.
TEST_F(Reports, SaveInAFolderThatTakesNoFiles_IsTold)
{
    StartReports();
    Tick({3});
    busy.ExpectFile("Save as RTF File", "/proc/report.rtf");
    busy.takesAnyBox = true;
    Press("cmdSave");
    EXPECT_THAT(busy.taken,
                ElementsAre(StartsWith("The report could not be written to \"/proc/report.rtf\": ")));
    EXPECT_TRUE(Find<QPushButton>("cmdSave")->isEnabled());
}

TEST_F(Reports, SaveOrPrintOverTheOpenDataFile_IsRefusedAndTheFileStays)
{
    StartReports();
    std::filesystem::create_symlink(path, folder.File("link.rtf"));
    for (const std::string& target : {path, folder.File("link.rtf")}) {
        const std::vector<std::string> told = {"The report could not be written to \"" + target +
                                               "\": it is the data file that is open."};
        busy.ExpectFile("Save as RTF File", target);
        busy.ExpectText(told);
        Press("cmdSave");
        busy.ExpectFile("No Printer: Print to PDF File", target);
        busy.ExpectText(told);
        Press("cmdPrint");
    }
    EXPECT_THAT(support::ReadFile(path), StartsWith("SQLite format 3"));
    EXPECT_TRUE(gDatabaseOpen);
}

TEST_F(Reports, PrinterSetup_AsksTheDesktopAndNothingElse)
{
    StartReports();
    Mark();
    Press("cmdPrinterSetup");
    EXPECT_THAT(busy.calls, ElementsAre("PrinterSetup"));
    EXPECT_THAT(NewLines(), ElementsAre("   cmdPrinterSetup_Click"));
}

// ---- While a run goes on

TEST_F(Reports, DuringARun_AllElseIsDisabledAndTheWindowStays)
{
    StartReports();
    bool ran = false;
    busy.whenEventsRun = [&] {
        ran = true;
        for (const char* name : {"cmdSelect",
                                 "cmdClear",
                                 "cmdPreview",
                                 "cmdPrint",
                                 "cmdSave",
                                 "cmdPrinterSetup",
                                 "chkSection_1"})
            EXPECT_FALSE(Find<QWidget>(name)->isEnabled()) << name;
        EXPECT_FALSE(window->menuBar()->isEnabled());
        EXPECT_FALSE(Sections().isEnabled());
        EXPECT_FALSE(Worksheets().isEnabled());
        EXPECT_FALSE(window->close());
        QTest::keyClick(window.get(), Qt::Key_PageUp, Qt::ControlModifier);
    };
    busy.ExpectFile("Save as RTF File", folder.File("report.rtf"));
    Press("cmdSave");
    EXPECT_TRUE(ran);
    EXPECT_EQ(gCurrentTab, "tab83");
    EXPECT_TRUE(window->isVisible());
    for (const char* name : {"cmdSelect", "cmdPreview", "cmdSave", "chkSection_1"})
        EXPECT_TRUE(Find<QWidget>(name)->isEnabled()) << name;
    EXPECT_TRUE(Sections().isEnabled());
    EXPECT_TRUE(window->menuBar()->isEnabled());
    EXPECT_FALSE(Menu("mnuEdit")->isEnabled());
}

TEST_F(Reports, LongRun_TheBarTellsSectionAndPage)
{
    StartReports();
    std::string told;
    int value = -1;
    const auto look = [&] {
        EXPECT_TRUE(Find<QPushButton>("cmdCancel")->isVisible());
        told = Find<QLabel>("lblProgress")->text().toStdString();
        value = Find<QProgressBar>("barProgress")->value();
    };
    // The first time is before the run, the second behind the first section.
    busy.whenEventsRun = [&, look] { busy.whenEventsRun = [&, look] { busy.whenEventsRun = look; }; };
    busy.ExpectFile("Save as RTF File", folder.File("report.rtf"));
    Press("cmdSave");
    EXPECT_THAT(told, HasSubstr(", page "));
    EXPECT_GT(value, 0);
    EXPECT_FALSE(Find<QPushButton>("cmdCancel")->isVisible());
}

TEST_F(Reports, ShortRun_NoBarComesUp)
{
    ReportRunBar::SetPatience(60'000);
    StartReports();
    bool visible = true;
    busy.whenEventsRun = [&] {
        busy.whenEventsRun = [&] { visible = Find<QPushButton>("cmdCancel")->isVisible(); };
    };
    busy.ExpectFile("Save as RTF File", folder.File("report.rtf"));
    Press("cmdSave");
    EXPECT_FALSE(visible);
}

TEST_F(Reports, SaveCancelledInItsRun_NoFileAndNoPages)
{
    StartReports();
    support::WriteFile(folder.File("report.rtf"), "as it was");
    busy.whenEventsRun = [&] { busy.whenEventsRun = [&] { Find<QPushButton>("cmdCancel")->click(); }; };
    busy.ExpectFile("Save as RTF File", folder.File("report.rtf"));
    Press("cmdSave");
    EXPECT_EQ(support::ReadFile(folder.File("report.rtf")), "as it was");
    EXPECT_EQ(PageCount(), 0);
    EXPECT_FALSE(ReportUtilities::bSavingRtf());
    EXPECT_TRUE(Find<QPushButton>("cmdSave")->isEnabled());
    EXPECT_THAT(Lines(), Not(Contains("   ProduceSection 10")));
}

TEST_F(Reports, PreviewCancelled_NoPagesAndNoWindow)
{
    StartReports();
    busy.whenEventsRun = [&] { busy.whenEventsRun = [&] { InPreview<QPushButton>("cmdCancel")->click(); }; };
    Press("cmdPreview");
    EXPECT_EQ(PageCount(), 0);
    EXPECT_EQ(frmPreview::Loaded(), nullptr);
    Press("cmdPreview");
    EXPECT_GT(PageCount(), 3);
}

TEST_F(Reports, SectionThatFails_IsToldOnceAndAllWorksAgain)
{
    StartReports("DROP TABLE Objectives");
    Tick({5});
    busy.takesAnyBox = true;
    Press("cmdPreview");
    EXPECT_EQ(busy.taken.size(), 1u);
    EXPECT_EQ(PageCount(), 0);
    EXPECT_EQ(frmPreview::Loaded(), nullptr);
    EXPECT_TRUE(Find<QPushButton>("cmdPreview")->isEnabled());
    Tick({3});
    Press("cmdPreview");
    EXPECT_EQ(PageCount(), 1);
}

} // namespace
