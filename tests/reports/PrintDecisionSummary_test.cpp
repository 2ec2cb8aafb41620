#include "ReportTest.h"
#include "model/FireSql.h"
#include "model/c51Alternative.h"
#include "model/g51Alternatives.h"
#include "session/c0Item.h"
#include "values/g8Summary.h"

#include <algorithm>

namespace {

using platform::print::Body;
using platform::print::PrintControl;

constexpr const char* kSelectFirst = "INSERT INTO Properties VALUES ('SelectedAlternativeKey', '1');";

class DecisionSummary : public support::ReportTest
{
protected:
    /// A file with two topics, "First" and "Second".
    void OpenTwoTopics(const std::string& sql = {})
    {
        OpenNew("DELETE FROM Items WHERE ItemKey BETWEEN 293 AND 296;"
                "UPDATE Items SET Heading = 'First', Body = 'text' WHERE ItemKey = 291;"
                "UPDATE Items SET Heading = 'Second', Body = 'text' WHERE ItemKey = 292;" +
                sql);
    }
    /// One paragraph that begins so many twips lower.
    static std::string BodyOf(const std::string& text, Long spaceBefore)
    {
        return "{\\rtf1\\deff0{\\fonttbl{\\f0 Arial;}}\\pard\\f0\\fs20\\sb" + std::to_string(spaceBefore) +
               " " + text + "\\par }";
    }
    static void SetBodies(const std::string& first, const std::string& second)
    {
        const auto topics = g8Summary::SummaryItems();
        topics.at(0)->SetBody(first);
        topics.at(1)->SetBody(second);
    }
    /// From the writing position to the baseline of a heading.
    static Double Baseline() { return PlaceOf("Selected Alternative").y - 1440.0; }
    /// Makes the second topic begin at `top` and its text end at `bottom`; the page that it comes to.
    static Long PageOfSecondTopic(Double top, Double bottom)
    {
        SetBodies(BodyOf("a", 0), BodyOf("b", 0));
        Produce({2});
        const Double first = top - (PlaceOf("Second").y - Baseline());
        SetBodies(BodyOf("a", platform::ToLong(first)), BodyOf("b", 0));
        const Double second = bottom - BottomOfSecond(top);
        SetBodies(BodyOf("a", platform::ToLong(first)), BodyOf("b", platform::ToLong(second)));
        EXPECT_EQ(BottomOfSecond(top), bottom);
        Produce({2});
        const Place place = PlaceOf("Second");
        if (place.page == 1) {
            EXPECT_EQ(place.y - Baseline(), top);
        }
        return place.page;
    }
    /// Makes the signatures, with the blank lines above them, begin at `top`; where their words come to.
    static Place SignaturesFrom(Double top)
    {
        SetBodies(BodyOf("a", 0), BodyOf("b", 0));
        Produce({2});
        const Double blankLines = 2.0 * LineHeight();
        const Double signatures = PlaceOf("Analysis prepared by:").y - Baseline() - blankLines;
        SetBodies(BodyOf("a", platform::ToLong(top - signatures)), BodyOf("b", 0));
        Produce({2});
        return PlaceOf("Analysis prepared by:");
    }

private:
    static Double BottomOfSecond(Double top)
    {
        PrintControl& printer = Printer();
        printer.StartDoc();
        printer.SetMarginLeft(2880.0);
        printer.SetMarginRight(1440.0);
        printer.SetFontSize(11.0);
        printer.SetCurrentY(top);
        printer.CalcParagraph(Body(g8Summary::SummaryItems().at(1)->Body()));
        return printer.Y2();
    }
    /// Of the font of the topics' headings.
    static Double LineHeight()
    {
        Printer().StartDoc();
        Printer().SetFontSize(11.0);
        Printer().CalcParagraph("x");
        const Double height = Printer().TextHei();
        Produce({2});
        return height;
    }
};

TEST_F(DecisionSummary, SelectedAlternative_StandsIndentedBelowItsHeading)
{
    OpenNew(firesql::Alternative(1) + kSelectFirst);
    Produce({2});
    EXPECT_EQ(PlaceOf("Selected Alternative").x, 1080.0); // left of the left margin
    EXPECT_EQ(PlaceOf("A. Name A").x, 2880.0);
    EXPECT_GT(PlaceOf("A. Name A").y, PlaceOf("Selected Alternative").y);
    for (const auto& topic : g8Summary::SummaryItems()) {
        const bool isOneLine = topic->Heading().size() < 50;
        EXPECT_EQ(isOneLine ? PlaceOf(topic->Heading()).x : 1080.0, 1080.0);
    }
}

TEST_F(DecisionSummary, NoneSelected_HeadingAndABlankLine)
{
    OpenNew(firesql::Alternative(1));
    Produce({2});
    const Double without = PlacesOf("     Most Cost Effective Alternative:   A. Name A").at(0).y;
    EXPECT_EQ(PlacesOf("A. Name A").size(), 0u);
    OpenNew(firesql::Alternative(1) + kSelectFirst);
    Produce({2});
    const Double with = PlacesOf("     Most Cost Effective Alternative:   A. Name A").at(0).y;
    EXPECT_EQ(with - without, PlaceOf("A. Name A").y - PlaceOf("Selected Alternative").y);
}

TEST_F(DecisionSummary, NoAlternatives_WordsStandWithNothingBehindTheColon)
{
    OpenNew();
    Produce({2});
    EXPECT_TRUE(HasLine("Selected Alternative"));
    const std::vector<std::string> lines = Lines();
    const auto words = std::find_if(lines.begin(), lines.end(), [](const std::string& line) {
        return line.find("Most Cost Effective") != std::string::npos;
    });
    ASSERT_NE(words, lines.end());
    EXPECT_EQ(ReportUtilities::TrimRight(*words), "     Most Cost Effective Alternative:");
}

TEST_F(DecisionSummary, Topics_StandInTheirOrderWithTheirBodies)
{
    OpenSample("smith-creek");
    Produce({2});
    Place before;
    for (const auto& topic : g8Summary::SummaryItems()) {
        const std::string words = topic->Heading().substr(0, 40);
        Place place;
        for (const auto& page : Printer().Pages().pages) {
            for (const auto& text : page.ink.texts) {
                if (text.text.starts_with(words)) place = {page.number, text.x, text.y};
            }
        }
        ASSERT_GT(place.page, 0) << words;
        EXPECT_TRUE(place.page > before.page || place.y > before.y) << words;
        before = place;
    }
}

// Pages

TEST_F(DecisionSummary, TopicFrom8001EndingAt13081_GoesToTheNextPage)
{
    OpenTwoTopics();
    EXPECT_EQ(PageOfSecondTopic(8001.0, 13081.0), 2);
}

TEST_F(DecisionSummary, TopicFrom8001EndingAt13080_Stays)
{
    OpenTwoTopics();
    EXPECT_EQ(PageOfSecondTopic(8001.0, 13080.0), 1);
}

TEST_F(DecisionSummary, TopicFrom8000_IsNotTestedAndMayRunOver)
{
    OpenTwoTopics();
    EXPECT_EQ(PageOfSecondTopic(8000.0, 13081.0), 1);
    std::string words;
    for (int i = 0; i < 2000; ++i)
        words += "word ";
    SetBodies(g8Summary::SummaryItems().at(0)->Body(), BodyOf(words, 0));
    Produce({2});
    EXPECT_EQ(PlaceOf("Second").page, 1);
    EXPECT_GT(PageCount(), 1);
}

TEST_F(DecisionSummary, PageBreakBeforeATopic_KeepsTheMarginsOfTheSection)
{
    OpenTwoTopics();
    EXPECT_EQ(PageOfSecondTopic(9000.0, 14000.0), 2);
    EXPECT_EQ(PlaceOf("Second").x, 1080.0);
    EXPECT_EQ(PlaceOf("Second").y - Baseline(), 1440.0);
    EXPECT_EQ(PlaceOf("b").x, 2880.0);
}

TEST_F(DecisionSummary, Signatures_HaveTheirLines)
{
    OpenTwoTopics();
    Produce({2});
    const std::vector<Place> lines = PlacesOf(std::string(45, '_'));
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines.at(0).y, PlaceOf("Analysis prepared by:").y);
    EXPECT_EQ(PlaceOf("Analysis prepared by:").x, 1440.0 + 60.0);
    EXPECT_EQ(lines.at(0).x, 1440.0 + 2880.0 + 60.0);
    EXPECT_EQ(PlaceOf(std::string(48, '_')).y, PlaceOf(std::string(20, '_')).y);
    EXPECT_EQ(PlaceOf("Agency Administrator Approval").y, PlaceOf("Date/Time").y);
    EXPECT_EQ(PlaceOf("Date/Time").x, 1440.0 + 6660.0 + 60.0);
}

TEST_F(DecisionSummary, SignaturesFrom12240_StayOnThePage)
{
    OpenTwoTopics();
    EXPECT_EQ(SignaturesFrom(12240.0).page, 1);
}

TEST_F(DecisionSummary, SignaturesFrom12241_BeginAt5000OnTheNextPage)
{
    OpenTwoTopics();
    const Place place = SignaturesFrom(12241.0);
    EXPECT_EQ(place.page, 2);
    EXPECT_EQ(place.y - Baseline(), 5000.0);
}

// Bodies

TEST_F(DecisionSummary, PlainBodyAndHeadingWithMarks_PrintAsTyped)
{
    OpenTwoTopics("UPDATE Items SET Heading = 'C:\\burn {old}', Body = 'a|b; \\par {c' WHERE ItemKey = 291;");
    Produce({2});
    PlaceOf("C:\\burn {old}");
    PlaceOf("a|b; \\par {c");
}

} // namespace
