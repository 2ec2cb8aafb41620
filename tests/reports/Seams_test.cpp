#include "ReportTest.h"
#include "model/FireSql.h"
#include "model/c41Objective.h"
#include "model/c51Alternative.h"
#include "model/c53Outcome.h"
#include "model/c62Rating.h"
#include "model/g41Objectives.h"
#include "model/g42SafetyIssues.h"
#include "model/g51Alternatives.h"
#include "platform/print/PdfFile.h"
#include "platform/print/Words.h"
#include "platform/richtext/RtfReader.h"
#include "session/c0Item.h"
#include "session/g2Situation.h"
#include "values/g8Summary.h"

#include <set>

// Where one thing of the report meets the next: ends of pages, sections, bodies of all kinds.

namespace {

using platform::print::FlowText;
using printed::LettersOf;
using printed::LostWord;

constexpr Double kFoot = 15840.0 - 720.0; // of a letter page
const std::vector<Integer> kAll{1, 2, 3, 4, 5, 6, 7, 8, 9, 10};

/// One picture of a red dot.
const char* const kPicture = "{\\pict\\pngblip\\picwgoal600\\pichgoal400 "
                             "89504e470d0a1a0a0000000d4948445200000001000000010802000000907753de0000000c49444"
                             "154789c63f8cfc0000003010100"
                             "c9fe92ef0000000049454e44ae426082}";

std::string Whole(const std::string& inner)
{
    return "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Arial;}}" + inner + "}";
}

/// One paragraph that begins so many twips lower.
std::string Lower(const std::string& text, Double twips)
{
    return Whole("\\pard\\f0\\fs20\\sb" + std::to_string(platform::ToLong(twips)) + " " + text + "\\par ");
}

/// A list of two, a table of two cells and a picture, with the mark in their words.
std::string Mixed(const std::string& mark)
{
    return Whole(
        "{\\*\\listtable{\\list\\listtemplateid1\\listhybrid{\\listlevel\\levelnfc23\\leveljc0\\levelfollow0"
        "\\levelstartat1{\\leveltext\\'01\\u8226 ?;}{\\levelnumbers;}\\fi-360\\li360}{\\listname "
        ";}\\listid1}}"
        "{\\*\\listoverridetable{\\listoverride\\listid1\\listoverridecount0\\ls1}}\\pard\\plain\\f0\\fs20 "
        "before-" +
        mark + "\\par {\\listtext\\u8226 ?\\tab}\\ls1\\ilvl0\\fi-360\\li360\\tx360 first-" + mark +
        "\\par {\\listtext\\u8226 ?\\tab}second-" + mark +
        "\\par \\pard\\plain\\f0\\fs20 \\trowd\\clbrdrt\\brdrs\\brdrw10\\cellx2000\\clbrdrt\\brdrs\\brdrw10"
        "\\cellx4000\\intbl left-" +
        mark + "\\cell right-" + mark + "\\cell\\row \\pard " + kPicture + "\\par after-" + mark + "\\par ");
}

std::string OneTopic() { return "DELETE FROM Items WHERE ParentKey = 22 AND ItemKey <> 81;"; }

std::string OneSummaryTopic() { return "DELETE FROM Items WHERE ItemKey BETWEEN 292 AND 296;"; }

class Seams : public support::ReportTest
{
protected:
    /// Where the paragraphs end that were written with this text among them, and on which page, from 1.
    static std::pair<Long, Double> EndOf(const std::string& text)
    {
        for (const auto& item : Printer().Pages().flow) {
            const FlowText* written = std::get_if<FlowText>(&item.content);
            if (written == nullptr || written->blocks.empty()) continue;
            const auto* last = written->blocks.back().AsParagraph();
            if (last != nullptr && !last->runs.empty() && last->runs.back().text == text)
                return {item.endPage + 1, item.bottom};
        }
        ADD_FAILURE() << text << " is not there";
        return {};
    }
    /// Writes "tail" by `set`, told how far its line is moved down, so that it ends at the foot of page 1,
    /// then a twip lower.
    template <class Set, class Check>
    static void AtTheFoot(const std::vector<Integer>& sections, const Set& set, const Check& check)
    {
        set(0.0);
        Produce(sections);
        const Double gap = kFoot - EndOf("tail").second;
        ASSERT_GT(gap, 0.0);
        for (const bool isOver : {false, true}) {
            SCOPED_TRACE(isOver);
            set(gap + (isOver ? 1.0 : 0.0));
            Produce(sections);
            EXPECT_EQ(EndOf("tail").first, isOver ? 2 : 1);
            if (!isOver) {
                EXPECT_EQ(EndOf("tail").second, kFoot);
            }
            check(isOver);
        }
    }
    static std::vector<std::string> Outline()
    {
        std::vector<std::string> titles;
        for (const auto& bookmark : Printer().Pages().bookmarks)
            titles.push_back(bookmark.title);
        return titles;
    }
    /// The first and the last page of a section, by its place among those produced.
    static std::pair<std::size_t, std::size_t> PagesOf(std::size_t place)
    {
        const auto& document = Printer().Pages();
        const auto first = [&](std::size_t at) {
            return static_cast<std::size_t>(document.bookmarks.at(at).page);
        };
        const bool isLast = place + 1 == document.bookmarks.size();
        return {first(place), isLast ? document.pages.size() - 1 : first(place + 1) - 1};
    }
    /// The letters of a section in the order of writing, without what may be repeated within a word at the
    /// end of a page: the running header and heads of tables.
    static std::string LettersOfSection(std::size_t place)
    {
        const std::set<std::string> heads{"Alternative A. Name A", "Issue: Row 7"};
        std::string letters;
        const auto [first, last] = PagesOf(place);
        for (std::size_t page = first; page <= last; ++page) {
            for (const auto& text : Printer().Pages().pages.at(page).ink.texts)
                letters += text.y < 700.0 || heads.count(text.text) > 0 ? std::string() : text.text;
        }
        return LettersOf(letters);
    }
    static std::size_t PicturesOfSection(std::size_t place)
    {
        std::size_t count = 0;
        const auto [first, last] = PagesOf(place);
        for (std::size_t page = first; page <= last; ++page)
            count += Printer().Pages().pages.at(page).ink.pictures.size();
        return count;
    }
    /// The same body in every narrative: of sections 1, 2, 4, 5, 6 and 9.
    static void SetEverywhere(const std::string& body)
    {
        g2Situation::GetSituationTopics().front()->SetBody(body);
        g8Summary::SummaryItems().front()->SetBody(body);
        g41Objectives::ObjectiveCollection().At(2)->SetDescription(body);
        g42SafetyIssues::SafetyIssueCollection().At(2)->SetDescription(body);
        c51Alternative& alternative = *g51Alternatives::AlternativeCollection().At(1);
        alternative.SetBody(body);
        c62Rating rating;
        rating.Initialize(alternative.Outcome(1)->ItemKey(),
                          g42SafetyIssues::SafetyIssueCollection().At(2)->ItemKey(),
                          true,
                          false);
        rating.SetDescription(body);
        rating.SaveChanges();
    }
    static const std::vector<Integer>& Narratives()
    {
        static const std::vector<Integer> sections{1, 2, 4, 5, 6, 9};
        return sections;
    }
    void OpenNarratives() { OpenNew(firesql::Alternative(1) + firesql::Issues({10, 5})); }
};

// Ends of pages

TEST_F(Seams, TopicEndingAtTheFootOfTheLastColumn_BeginsNoPage)
{
    OpenNew(OneTopic());
    std::string lines;
    for (int i = 0; i < 60; ++i)
        lines += "line\\par ";
    const auto set = [&](Double lower) {
        g2Situation::GetSituationTopics().at(0)->SetBody(Whole(
            "\\pard\\f0\\fs20 " + lines + "\\sb" + std::to_string(platform::ToLong(lower)) + " tail\\par "));
    };
    AtTheFoot({1, 3}, set, [&](bool isOver) {
        EXPECT_EQ(PlaceOf("Daily Review").page, isOver ? 3 : 2);
        EXPECT_EQ(PlaceOf("tail").x > 6120.0, !isOver); // the right column of page 1, the left one of page 2
    });
}

TEST_F(Seams, TopicEndingAtTheFoot_LeavesTheSignaturesTheirPlaceOnTheNextPage)
{
    OpenNew(OneSummaryTopic());
    const auto set = [](Double lower) { g8Summary::SummaryItems().at(0)->SetBody(Lower("tail", lower)); };
    AtTheFoot({2, 3}, set, [](bool isOver) {
        const Place signatures = PlaceOf("Analysis prepared by:");
        EXPECT_EQ(signatures.page, 2);
        EXPECT_EQ(signatures.y > 5000.0, !isOver); // behind the topic, if that came over
        EXPECT_EQ(PlaceOf("Daily Review").page, 3);
    });
}

TEST_F(Seams, LastObjectiveEndingAtTheFoot_BeginsNoPage)
{
    OpenNew();
    const auto& objectives = g41Objectives::ObjectiveCollection();
    const auto set = [&](Double lower) {
        objectives.At(objectives.Count())->SetDescription(Lower("tail", lower));
    };
    AtTheFoot({4, 5}, set, [](bool isOver) { EXPECT_EQ(PlaceOf("Safety Issues").page, isOver ? 3 : 2); });
}

TEST_F(Seams, LastIssueEndingAtTheFoot_BeginsNoPage)
{
    OpenNew(firesql::Issues({10}));
    const auto& issues = g42SafetyIssues::SafetyIssueCollection();
    const auto set = [&](Double lower) { issues.At(issues.Count())->SetDescription(Lower("tail", lower)); };
    AtTheFoot({5, 10}, set, [](bool isOver) { EXPECT_EQ(PlaceOf("Decision Tree").page, isOver ? 3 : 2); });
}

TEST_F(Seams, LastRatingEndingAtTheFoot_BeginsNoPageForTheEmptyRowBehindIt)
{
    OpenNew(firesql::Alternative(1) + firesql::Issues({10}));
    const auto set = [](Double lower) {
        c62Rating rating;
        rating.Initialize(firesql::TargetKey(1), firesql::kFirstNewObjective, true, false);
        rating.SetDescription(Lower("tail", lower));
        rating.SaveChanges();
    };
    set(0.0);
    Produce({9, 10});
    const Double descent = 42.0; // of a line of ten points
    const Double gap = kFoot - (PlaceOf("tail").y + descent);
    for (const bool isOver : {false, true}) {
        SCOPED_TRACE(isOver);
        set(gap + (isOver ? 1.0 : 0.0));
        Produce({9, 10});
        EXPECT_EQ(PlaceOf("tail").page, isOver ? 2 : 1);
        EXPECT_EQ(PlaceOf("Decision Tree").page, isOver ? 3 : 2);
        // Its rows stay together as long as a page can hold them.
        EXPECT_EQ(PlaceOf("Alternative A. Name A").page, isOver ? 2 : 1);
    }
}

TEST_F(Seams, BlankLinesAtTheEndOfANarrative_BeginNoPage)
{
    OpenNew(OneTopic());
    std::string blank;
    for (int i = 0; i < 300; ++i)
        blank += "\\par ";
    g2Situation::GetSituationTopics().at(0)->SetBody(Whole("\\pard\\f0\\fs20 text\\par " + blank));
    Produce({1, 3});
    EXPECT_EQ(PlaceOf("Daily Review").page, 2);
}

// Bodies

TEST_F(Seams, ListsTablesAndPicturesInEveryNarrative_AreThereInTheirOrder)
{
    OpenNarratives();
    SetEverywhere(Mixed("x"));
    Produce(Narratives());
    const auto& document = Printer().Pages();
    ASSERT_EQ(document.bookmarks.size(), Narratives().size());
    for (std::size_t place = 0; place < Narratives().size(); ++place) {
        SCOPED_TRACE(Narratives()[place]);
        EXPECT_EQ(LostWord("before-x \u2022 first-x \u2022 second-x left-x right-x after-x",
                           LettersOfSection(place)),
                  "");
        EXPECT_EQ(PicturesOfSection(place), 1u);
    }
}

TEST_F(Seams, ListsTablesAndPicturesInEveryNarrative_AreInTheExportToo)
{
    OpenNarratives();
    SetEverywhere(Mixed("x"));
    Select(Narratives());
    ReportRun::SaveSelectedSections(folder.File("out.rtf"));
    const std::string rtf = support::ReadFile(folder.File("out.rtf"));
    const std::string body = "before-x first-x second-x left-x right-x after-x ";
    std::string wanted;
    std::size_t pictures = 0;
    for (std::size_t place = 0; place < Narratives().size(); ++place)
        wanted += body;
    for (std::size_t at = rtf.find("\\pngblip"); at != std::string::npos; at = rtf.find("\\pngblip", at + 1))
        ++pictures;
    EXPECT_EQ(LostWord(wanted, LettersOf(platform::richtext::RtfToPlainText(rtf))), "");
    EXPECT_EQ(pictures, Narratives().size());
}

TEST_F(Seams, BodiesOfEveryKindInEveryNarrative_LoseNoWordOnThePagesAndInTheExport)
{
    OpenNarratives();
    for (const std::string& file : printed::RichTexts()) {
        SCOPED_TRACE(file);
        const std::string body = support::ReadFile(file);
        SetEverywhere(body);
        const std::string text = platform::richtext::RtfToPlainText(body);
        Produce(Narratives());
        ASSERT_EQ(Outline().size(), Narratives().size());
        std::string all;
        for (std::size_t place = 0; place < Narratives().size(); ++place) {
            EXPECT_EQ(LostWord(text, LettersOfSection(place)), "") << "section " << Narratives()[place];
            all += text + "\n";
        }
        EXPECT_FALSE(PlacesOf("Agency Administrator Approval").empty());
        Select(Narratives());
        ReportRun::SaveSelectedSections(folder.File("out.rtf"));
        const std::string rtf = support::ReadFile(folder.File("out.rtf"));
        EXPECT_EQ(LostWord(all, LettersOf(platform::richtext::RtfToPlainText(rtf))), "");
    }
}

// The whole report

TEST_F(Seams, TenSections_AreTenEntriesOfTheOutlineEachOnAPageOfItsOwn)
{
    OpenSample("smith-creek");
    const auto& document = Produce(kAll);
    EXPECT_EQ(Outline(), TenHeadings());
    std::set<Long> pages;
    for (const auto& bookmark : document.bookmarks)
        pages.insert(bookmark.page);
    EXPECT_EQ(pages.size(), 10u);
    WritePdf(document, folder.File("out.pdf"));
    const std::string pdf = support::ReadFile(folder.File("out.pdf"));
    EXPECT_NE(pdf.find("/Count 10"), std::string::npos);
    for (const std::string& title : Outline())
        EXPECT_NE(pdf.find("/Title (" + title + ")"), std::string::npos) << title;
}

TEST_F(Seams, TenSections_EveryPageButTheFirstBearsItsNumber)
{
    for (const char* name : {"smith-creek", "granite-fork-complex", "juniper-gap"}) {
        SCOPED_TRACE(name);
        OpenSample(name);
        Produce(kAll);
        ASSERT_GE(PageCount(), 10);
        EXPECT_EQ(LinesOfPage(1).front(), "Vexarium");
        for (Long page = 2; page <= PageCount(); ++page) {
            const std::string header = LinesOfPage(page).front();
            EXPECT_TRUE(header.ends_with(" Page " + std::to_string(page))) << header;
            EXPECT_EQ(DrawnLines(page).back(), DrawnLines(2).back()) << page; // the rule under it
        }
    }
}

TEST_F(Seams, TenSections_NoPageIsEmptyBelowItsHeader)
{
    for (const bool a4 : {false, true}) {
        for (const char* name : {"smith-creek", "granite-fork-complex", "juniper-gap"}) {
            SCOPED_TRACE(name);
            OpenSample(name);
            if (a4) UseA4();
            Produce(kAll);
            for (Long page = 1; page <= PageCount(); ++page)
                EXPECT_GT(LinesOfPage(page).size(), 1u) << page;
        }
    }
}

TEST_F(Seams, SafetyTableOverPages_RepeatsTheAlternativesTitleOnEach)
{
    OpenSample("granite-fork-complex");
    Produce({9});
    std::set<std::string> titles;
    for (const auto& alternative : g51Alternatives::AlternativeCollection())
        titles.insert("Alternative " + alternative->Label());
    std::size_t printed = 0;
    for (const std::string& title : titles)
        printed += PlacesOf(title).size();
    EXPECT_GT(printed, titles.size());
    for (Long page = 1; page <= PageCount(); ++page) {
        const std::vector<std::string> lines = LinesOfPage(page);
        EXPECT_EQ(titles.count(lines.at(page == 1 ? 2 : 1)), 1u) << page << ": " << lines.at(1);
    }
}

TEST_F(Seams, ColumnHeadOfObjectives_IsWrittenAgainOnThePagesThatTheReportBreaks)
{
    std::vector<Long> priorities(60, 5);
    OpenNew(firesql::ObjectivesBelow(3, priorities));
    Produce({4});
    ASSERT_GT(PageCount(), 2);
    for (Long page = 1; page <= PageCount(); ++page)
        EXPECT_EQ(LinesOfPage(page).at(page == 1 ? 2 : 1), "Objective") << page;
}

TEST_F(Seams, RunningHeaderOfTenSections_IsAFieldInTheExportAndNotOnTheFrontPage)
{
    OpenSample("smith-creek");
    Select(kAll);
    ReportRun::SaveSelectedSections(folder.File("out.rtf"));
    const std::string rtf = support::ReadFile(folder.File("out.rtf"));
    EXPECT_NE(rtf.find("VEXA No. LKF-24-03\\tab Page {\\field{\\*\\fldinst{PAGE}}"), std::string::npos);
    const std::size_t first = rtf.find("{\\header");
    EXPECT_GT(rtf.find("VEXA No.", first), rtf.find("\\par}", first));
    EXPECT_EQ(rtf.find("%d"), std::string::npos);
    EXPECT_EQ(rtf.find("Page ___"), std::string::npos);
}

} // namespace
