#include "ReportTest.h"
#include "platform/base/Errors.h"

#include <filesystem>

namespace {

namespace fs = std::filesystem;
using platform::print::PrintCancelled;
using platform::print::PrintError;

constexpr const char* kFire = "INSERT OR REPLACE INTO Items (ItemKey, ItemName, Body) VALUES"
                              " (11, '', 'Smith Creek'), (221, '', 'LKF-7');";

class Run : public support::ReportTest
{
protected:
    static std::vector<std::string> Headings()
    {
        std::vector<std::string> titles;
        for (const auto& bookmark : Printer().Pages().bookmarks)
            titles.push_back(bookmark.title);
        return titles;
    }
};

TEST_F(Run, SelectSections_SomeTicked_CountsThem)
{
    Select({1, 3, 10});
    EXPECT_EQ(ReportRun::nSelected(), 3);
    EXPECT_TRUE(ReportRun::bSelected(3));
    EXPECT_FALSE(ReportRun::bSelected(2));
    EXPECT_THROW(ReportRun::bSelected(0), platform::OutOfBounds);
    EXPECT_THROW(ReportRun::bSelected(11), platform::OutOfBounds);
    Select({});
    EXPECT_EQ(ReportRun::nSelected(), 0);
}

TEST_F(Run, Produce_SevenSections_HeadersHaveABlankForThePageNumber)
{
    OpenNew(kFire);
    Produce({2, 3, 4, 5, 6, 9, 10});
    ASSERT_GT(PageCount(), 4);
    for (Long page = 1; page <= PageCount(); ++page)
        EXPECT_EQ(LinesOfPage(page).front(), "Smith Creek VEXA No. LKF-7 Page ___") << page;
}

TEST_F(Run, Produce_EightSections_HeadersHaveThePageNumber)
{
    OpenNew(kFire);
    Produce({2, 3, 4, 5, 6, 7, 9, 10});
    ASSERT_GT(PageCount(), 4);
    for (Long page = 1; page <= PageCount(); ++page)
        EXPECT_EQ(LinesOfPage(page).front(), "Smith Creek VEXA No. LKF-7 Page " + std::to_string(page));
}

TEST_F(Run, Produce_OneSection_IssuesNoNewPage)
{
    OpenNew(kFire);
    Produce({3});
    EXPECT_EQ(PageCount(), 1);
    EXPECT_EQ(CountLog("vsPrinter1_NewPage"), 0);
    EXPECT_EQ(CountLog("ProduceSection 3"), 1);
}

TEST_F(Run, Produce_TwoSections_SecondStandsOnAPageOfItsOwnAndNoneFollows)
{
    OpenNew(kFire);
    Produce({10, 3});
    EXPECT_EQ(Headings(), (std::vector<std::string>{"Daily Review", "Decision Tree"}));
    EXPECT_EQ(PageCount(), 2);
    EXPECT_EQ(CountLog("vsPrinter1_NewPage"), 1);
}

TEST_F(Run, Produce_AllSections_ComeInTheOrderOfTheirNumbers)
{
    OpenSample("juniper-gap");
    Produce({1, 2, 3, 4, 5, 6, 7, 8, 9, 10});
    EXPECT_EQ(Headings(), TenHeadings());
}

TEST_F(Run, Produce_NothingTicked_IsAnEmptyDocument)
{
    OpenNew(kFire);
    const auto& document = Produce({});
    ASSERT_EQ(document.pages.size(), 1u);
    EXPECT_TRUE(document.pages.front().ink.texts.empty());
}

TEST_F(Run, ProduceSection_NumberOutsideTheTable_DoesNothing)
{
    OpenNew(kFire);
    Printer().StartDoc();
    const Double y = Printer().CurrentY();
    ReportRun::ProduceSection(0);
    ReportRun::ProduceSection(11);
    ReportRun::ProduceSection(-1);
    EXPECT_EQ(Printer().CurrentY(), y);
    EXPECT_TRUE(Printer().Pages().flow.empty());
}

TEST_F(Run, Produce_PaperHeights_ShrinkTheBottomMarginBelow14400)
{
    OpenNew(kFire);
    Printer().SetPaper(12240.0, 14399.0);
    Produce({3});
    EXPECT_EQ(Printer().MarginBottom(), 360.0);
    Printer().SetPaper(12240.0, 14400.0);
    Produce({3});
    EXPECT_EQ(Printer().MarginBottom(), 720.0);
}

TEST_F(Run, NewPage_MarginMovedBelow4300_ReturnsToItsUsualPlaceWithTheRule)
{
    OpenNew(kFire);
    Select({1});
    Printer().StartDoc();
    Printer().SetMarginTop(4301.0);
    Printer().SetPageBorder(0);
    Printer().NewPage();
    EXPECT_EQ(Printer().MarginTop(), 1440.0);
    EXPECT_EQ(Printer().CurrentY(), 1440.0);
    EXPECT_EQ(Printer().PageBorder(), 2);
    EXPECT_EQ(Printer().Header(), "Smith Creek|VEXA No. LKF-7|Page ___");
}

TEST_F(Run, NewPage_MarginMovedTo4300_StaysThere)
{
    OpenNew(kFire);
    Printer().StartDoc();
    Printer().SetMarginTop(4300.0);
    Printer().NewPage();
    EXPECT_EQ(Printer().MarginTop(), 4300.0);
    EXPECT_EQ(Printer().CurrentY(), 4300.0);
}

TEST_F(Run, Produce_AnyHeading_StandsBetweenTheHeaderAndWhatBeginsAt1440)
{
    OpenSample("granite-fork-complex");
    const auto& document = Produce({2, 3, 4, 5, 9, 10});
    ASSERT_EQ(document.bookmarks.size(), 6u);
    for (const auto& bookmark : document.bookmarks) {
        EXPECT_EQ(bookmark.y, 950.0) << bookmark.title;
        const auto& ink = document.pages.at(static_cast<std::size_t>(bookmark.page)).ink;
        for (const auto& text : ink.texts) {
            const bool isAbove = text.text == bookmark.title || text.y < 700.0;
            EXPECT_TRUE(isAbove || text.y > 1440.0) << bookmark.title << ": " << text.text;
        }
    }
}

TEST_F(Run, Produce_AFire_TitlesTheDocument)
{
    OpenNew(kFire);
    EXPECT_EQ(Produce({3}).title, "VEXA Report - Smith Creek");
    OpenNew();
    EXPECT_EQ(Produce({3}).title, "VEXA Report");
}

// Where it goes

TEST_F(Run, SaveSelectedSections_EmptyName_DoesNothing)
{
    OpenNew(kFire);
    Select({3});
    ReportRun::SaveSelectedSections("");
    EXPECT_EQ(PageCount(), 0);
    EXPECT_EQ(CountLog("ProduceSelectedSections"), 0);
}

TEST_F(Run, SaveSelectedSections_AName_WritesItAndTellsTheSectionsMeanwhile)
{
    OpenSample("smith-creek");
    Select({10});
    bool saving = false;
    ReportRun::OnProgress([&](const ReportRun::Progress&) {
        saving = ReportUtilities::bSavingRtf() && Printer().ExportFile() == folder.File("out.rtf");
        return true;
    });
    ReportRun::SaveSelectedSections(folder.File("out.rtf"));
    EXPECT_TRUE(saving);
    EXPECT_FALSE(ReportUtilities::bSavingRtf());
    EXPECT_EQ(Printer().ExportFile(), "");
    EXPECT_EQ(Printer().ExportFormat(), 5);
    const std::string rtf = support::ReadFile(folder.File("out.rtf"));
    EXPECT_TRUE(rtf.starts_with("{\\rtf1"));
    EXPECT_NE(rtf.find("{\\shp{\\shpleft0\\shptop"), std::string::npos);
}

TEST_F(Run, SaveSelectedSections_PlaceThatCannotBeWritten_IsToldAndThePagesStay)
{
    OpenNew(kFire);
    Select({3});
    EXPECT_THROW(ReportRun::SaveSelectedSections(folder.File("nowhere/out.rtf")), PrintError);
    EXPECT_FALSE(ReportUtilities::bSavingRtf());
    EXPECT_EQ(Printer().ExportFile(), "");
    EXPECT_EQ(PageCount(), 1);
}

TEST_F(Run, PrintSelectedSections_APrinter_GetsAllPages)
{
    OpenNew(kFire);
    Select({3, 10});
    Long printed = 0;
    Printer().SetPrinter([&](const auto&, Long first, Long last) { printed += last - first + 1; });
    ReportRun::PrintSelectedSections();
    EXPECT_EQ(printed, 2);
    EXPECT_FALSE(Printer().Preview());
    ReportRun::PreviewSelectedSections();
    EXPECT_EQ(printed, 2);
    EXPECT_TRUE(Printer().Preview());
}

// How far it has come

TEST_F(Run, OnProgress_AWholeRun_IsToldPagesAndSections)
{
    OpenNew(kFire);
    std::vector<std::string> told;
    ReportRun::OnProgress([&](const ReportRun::Progress& progress) {
        told.push_back(std::to_string(progress.section) + " " + std::to_string(progress.done) + " " +
                       std::to_string(progress.page));
        return true;
    });
    Produce({3, 10});
    EXPECT_EQ(told, (std::vector<std::string>{"3 1 0", "3 1 1", "10 2 1", "10 2 2"}));
}

TEST_F(Run, OnProgress_Cancelled_LeavesNoFileNoPagesAndARunThatWorksAgain)
{
    OpenSample("granite-fork-complex");
    support::WriteFile(folder.File("out.rtf"), "old");
    for (const Long cancelAt : {1, 2, 3}) {
        Select({2, 3, 10});
        ReportRun::OnProgress([&](const ReportRun::Progress& at) { return at.page < cancelAt; });
        EXPECT_THROW(ReportRun::SaveSelectedSections(folder.File("out.rtf")), PrintCancelled);
        EXPECT_EQ(PageCount(), 0);
        EXPECT_FALSE(Printer().IsOpen());
        EXPECT_FALSE(ReportUtilities::bSavingRtf());
        EXPECT_EQ(support::ReadFile(folder.File("out.rtf")), "old");
    }
    ReportRun::OnProgress({});
    Produce({2, 3, 10});
    EXPECT_GT(PageCount(), 3);
}

TEST_F(Run, OnProgress_CancelledBehindASection_LeavesNoPages)
{
    OpenNew(kFire);
    ReportRun::OnProgress([](const ReportRun::Progress& at) { return at.done < 1; });
    EXPECT_THROW(Produce({3, 10}), PrintCancelled);
    EXPECT_EQ(PageCount(), 0);
}

TEST_F(Run, Produce_ASectionThatFails_LeavesNoPagesAndNoExport)
{
    OpenNew("INSERT INTO Properties VALUES ('SelectedAlternativeKey', '999');");
    Select({2});
    EXPECT_THROW(ReportRun::SaveSelectedSections(folder.File("out.rtf")), platform::MissingMember);
    EXPECT_EQ(PageCount(), 0);
    EXPECT_FALSE(fs::exists(folder.File("out.rtf")));
    EXPECT_FALSE(ReportUtilities::bSavingRtf());
    Produce({4}); // and the stack of formats is as it was
    EXPECT_EQ(PageCount(), 1);
}

TEST_F(Run, Produce_TwiceInARow_GivesTheSamePages)
{
    OpenSample("smith-creek");
    const std::string first = DumpPages(Produce({1, 2, 3, 4, 5, 9, 10}));
    EXPECT_EQ(DumpPages(Produce({1, 2, 3, 4, 5, 9, 10})), first);
}

} // namespace
