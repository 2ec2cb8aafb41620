#include "ReportTest.h"
#include "model/FireSql.h"
#include "model/c51Alternative.h"
#include "model/c53Outcome.h"
#include "model/g51Alternatives.h"
#include "model/g53Outcomes.h"
#include "platform/base/Formats.h"
#include "platform/base/Texts.h"
#include "reports/DecisionTreeTexts.h"

#include <algorithm>

namespace {

using firesql::Alternative;

class DecisionTree : public support::ReportTest
{
protected:
    /// The tops of the trees, page by page, from their lines to the Target outcome.
    static std::vector<std::string> Tops()
    {
        std::vector<std::string> tops;
        for (const platform::print::Page& page : Printer().Pages().pages) {
            for (const platform::print::PlacedLine& line : page.ink.lines) {
                if (line.x1 == 4520.0 && line.x2 == 7620.0 && !IsLower(page, line))
                    tops.push_back(std::to_string(page.number) + ": " + platform::TextOf(line.y1 - 250.0));
            }
        }
        return tops;
    }
    /// The height that a rationale takes in the font of the trees, under a line for its caption.
    static Long RationaleHeight(const std::string& rationale)
    {
        Printer().SetFontSize(9.0);
        Printer().SetTextAlign(6);
        Printer().TextBox(
            platform::print::Plain("\r\n" + rationale), 1500.0, 1440.0, 3100.0, 0.0, true, true);
        return platform::ToLong(Printer().TextHei());
    }
    static std::string Words(int count)
    {
        std::string words;
        for (int i = 0; i < count; ++i)
            words += "because ";
        return words;
    }

private:
    /// Whether another line of the kind stands 1600 above: that of the tree's lower branch.
    static bool IsLower(const platform::print::Page& page, const platform::print::PlacedLine& line)
    {
        return std::any_of(page.ink.lines.begin(), page.ink.lines.end(), [&](const auto& other) {
            return other.x1 == 4520.0 && other.x2 == 7620.0 && other.y1 == line.y1 - 1600.0;
        });
    }
};

const char* const kWithFallback = "Success = 30";

TEST_F(DecisionTree, NoAlternatives_HeadingAlone)
{
    OpenNew();
    Produce({10});
    EXPECT_EQ(PageCount(), 1);
    EXPECT_EQ(LinesOfPage(1).back(), "Decision Tree");
    EXPECT_EQ(DrawnLines(1).size(), 1u); // the rule of the running header
}

TEST_F(DecisionTree, WithoutFallback_EveryLineStandsInItsPlace)
{
    OpenNew(Alternative(1, "Success = 70"));
    Produce({10});
    std::vector<std::string> lines = DrawnLines(1);
    lines.pop_back(); // the rule of the running header
    EXPECT_EQ(lines,
              (std::vector<std::string>{"720 2490 4020 2490",
                                        "4020 2490 4520 1690",
                                        "4020 2490 4520 3290",
                                        "4520 1690 7620 1690",
                                        "4520 3290 7620 3290"}));
}

TEST_F(DecisionTree, WithFallback_EveryLineStandsInItsPlace)
{
    OpenNew(Alternative(1, "Success = 70", kWithFallback));
    Produce({10});
    std::vector<std::string> lines = DrawnLines(1);
    lines.pop_back();
    EXPECT_EQ(lines,
              (std::vector<std::string>{"720 2490 4020 2490",
                                        "4020 2490 4520 1690",
                                        "4020 2490 4520 3290",
                                        "4520 1690 7620 1690",
                                        "4520 3290 7620 3290",
                                        "7620 3290 8120 2340",
                                        "7620 3290 8120 3940",
                                        "8120 2340 11220 2340",
                                        "8120 3940 11220 3940"}));
}

TEST_F(DecisionTree, WithFallback_EveryTextBeginsInItsPlace)
{
    OpenNew(Alternative(1, "Success = 70, SuccessRationale = 'Why'", kWithFallback));
    Produce({10});
    const auto x = [](const std::string& text) { return PlaceOf(text).x; };
    EXPECT_EQ(x("A. Name A"), 745.0);
    EXPECT_EQ(x("Expected Cost: $0"), 795.0);
    EXPECT_EQ(x("Target Outcome"), 4545.0);
    EXPECT_EQ(x("Fallback Plan"), 4545.0);
    EXPECT_EQ(x("Fallback Outcome"), 8145.0);
    EXPECT_EQ(x("Extreme Outcome"), 8145.0);
    EXPECT_EQ(x("Basis for probabilities for strategy"), 1500.0);
    EXPECT_EQ(x("Basis for probabilities for fallback"), 4900.0);
    EXPECT_EQ(x("Why"), 1500.0);
    // Labels stand on their lines, texts below them.
    EXPECT_LT(PlaceOf("Target Outcome").y, 1690.0);
    EXPECT_GT(PlaceOf("Target Outcome").y, 1440.0);
    EXPECT_EQ(PlaceOf("Fallback Plan").y - PlaceOf("Target Outcome").y, 1600.0);
    EXPECT_EQ(PlaceOf("Fallback Outcome").y - PlaceOf("Target Outcome").y, 650.0);
    EXPECT_EQ(PlaceOf("Extreme Outcome").y - PlaceOf("Target Outcome").y, 2250.0);
    EXPECT_EQ(PlaceOf("A. Name A").y - PlaceOf("Target Outcome").y, 800.0);
    EXPECT_EQ(PlacesOf("Estimated Cost:  $0").at(0).x, 4595.0);
    EXPECT_EQ(PlacesOf("Estimated Cost:  $0").at(1).x, 8195.0);
    EXPECT_EQ(PlacesOf("Estimated Cost:  $0").at(2).x, 8195.0);
}

TEST_F(DecisionTree, Percentages_EndAtTheirForkAndAddUpToAHundred)
{
    OpenNew(Alternative(1, "Success = 70", kWithFallback));
    const auto& document = Produce({10});
    std::vector<std::string> percents;
    for (const auto& text : document.pages.front().ink.texts) {
        if (!text.text.ends_with("%")) continue;
        percents.push_back(text.text + " " + platform::TextOf(platform::ToLong(text.x + text.width)));
    }
    EXPECT_EQ(percents, (std::vector<std::string>{"70% 4220", "30% 4220", "30% 7820", "70% 7820"}));
    EXPECT_EQ(PlacesOf("30%").at(0).y - PlacesOf("70%").at(0).y, 850.0);
}

TEST_F(DecisionTree, SuccessOfZeroOrAHundred_PrintsBothBranches)
{
    OpenNew(Alternative(1, "Success = 0") + Alternative(2, "Success = 100"));
    Produce({10});
    EXPECT_EQ(PlacesOf("0%").size(), 2u);
    EXPECT_EQ(PlacesOf("100%").size(), 2u);
    EXPECT_EQ(PlacesOf("Extreme Outcome").size(), 2u);
}

TEST_F(DecisionTree, LabelOfFortyCharacters_PrintsItsFirst35)
{
    OpenNew(Alternative(1) + "UPDATE Items SET Heading = 'a\xc3\xa9ghijabcdefghijabcdefghijabcdefghij' "
                             "WHERE ItemKey = 1;");
    Produce({10});
    PlaceOf("A. a\xc3\xa9ghijabcdefghijabcdefghijabcdef");
}

TEST_F(DecisionTree, LabelTooWideForItsBox_GrowsUpwardFromItsLine)
{
    OpenNew(Alternative(1) + Alternative(2) +
            "UPDATE Items SET Heading = 'FULL PERIMETER CONTROL WITH NIGHTS' WHERE ItemKey = 2;");
    Produce({10});
    const Place oneLine = PlaceOf("A. Name A");
    EXPECT_EQ(PlaceOf("NIGH"), (Place{1, oneLine.x, oneLine.y + 3500.0}));
    EXPECT_LT(PlaceOf("B. FULL PERIMETER CONTROL WITH").y, oneLine.y + 3500.0);
}

TEST_F(DecisionTree, MarksInALabel_AreCharacters)
{
    OpenNew(Alternative(1, "SuccessRationale = '{\\rtf1 {\\b x}}'") +
            "UPDATE Items SET Heading = '{\\b x} a|b;' WHERE ItemKey = 1;");
    Produce({10});
    PlaceOf("A. {\\b x} a|b;");
    PlaceOf("{\\rtf1 {\\b x}}"); // typed in a plain box
}

// Heights

TEST_F(DecisionTree, WithoutFallback_EmptyRationale_Takes3500)
{
    OpenNew(Alternative(1) + Alternative(2) + Alternative(3) + Alternative(4));
    Produce({10});
    EXPECT_EQ(Tops(), (std::vector<std::string>{"1: 1440", "1: 4940", "1: 8440", "2: 1440"}));
    EXPECT_FALSE(HasLine("Basis for probabilities for strategy"));
}

TEST_F(DecisionTree, WithFallback_EmptyRationales_Take4000AndAFourthTreeGoesToTheNextPage)
{
    OpenNew(Alternative(1, "", kWithFallback) + Alternative(2, "", kWithFallback) +
            Alternative(3, "", kWithFallback) + Alternative(4, "", kWithFallback));
    Produce({10});
    EXPECT_EQ(Tops(), (std::vector<std::string>{"1: 1440", "1: 5440", "1: 9440", "2: 1440"}));
    EXPECT_TRUE(PlacesOf("Basis for probabilities for strategy").empty());
}

TEST_F(DecisionTree, WithFallback_LongRationale_TakesItsHeightAnd3000)
{
    const std::string rationale = Words(50);
    OpenNew(
        Alternative(1, "SuccessRationale = 'Short'", "Success = 30, SuccessRationale = '" + rationale + "'") +
        Alternative(2));
    const Long height = RationaleHeight(rationale);
    ASSERT_GT(height, 1000);
    Produce({10});
    EXPECT_EQ(Tops(), (std::vector<std::string>{"1: 1440", "1: " + platform::TextOf(1440 + 3000 + height)}));
}

TEST_F(DecisionTree, WithFallback_OneRationale_WritesBothBoxes)
{
    OpenNew(Alternative(1, "", "Success = 30, SuccessRationale = 'Why'"));
    Produce({10});
    PlaceOf("Basis for probabilities for strategy");
    EXPECT_EQ(PlaceOf("Why").x, 4900.0);
}

TEST_F(DecisionTree, WithoutFallback_LongRationale_TakesItsHeight)
{
    const std::string rationale = Words(120);
    OpenNew(Alternative(1, "SuccessRationale = '" + rationale + "'") + Alternative(2));
    const Long height = RationaleHeight(rationale);
    ASSERT_GT(height, 3500);
    Produce({10});
    EXPECT_EQ(Tops(), (std::vector<std::string>{"1: 1440", "1: " + platform::TextOf(1440 + height)}));
    EXPECT_EQ(PlaceOf("Basis for probabilities for strategy").x, 8100.0);
}

TEST_F(DecisionTree, FirstTreeHigherThanThePage_IsNotTestedAndItsRationaleGoesOn)
{
    OpenNew(Alternative(1, "SuccessRationale = '" + Words(600) + "'") + Alternative(2));
    Produce({10});
    // The rationale takes the rest of page 1, page 2 and a part of page 3.
    EXPECT_EQ(Tops(), (std::vector<std::string>{"1: 1440", "4: 1440"}));
    EXPECT_EQ(PageCount(), 4);
}

TEST_F(DecisionTree, FortyAlternativesOfLongLabels_NoTreeIsParted)
{
    std::string sql;
    for (Long key = 1; key <= 40; ++key) {
        const std::string number = std::to_string(key);
        sql += "INSERT INTO Items VALUES (" + std::to_string(1000 + key) + ", 'A" + number + "', '" +
               std::string(300, 'W') + "', '', NULL, 26, " + number + ");";
        for (const char* index : {"1", "2"}) {
            sql += "INSERT INTO Outcomes (ItemKey, ParentKey, ChildIndex, Success, CostSource) VALUES (" +
                   std::to_string(2000 + 2 * key) + " + " + index + ", " + std::to_string(1000 + key) + ", " +
                   index + ", " + std::to_string(key) + ", 1);";
        }
    }
    OpenNew(sql);
    Produce({10});
    const std::vector<std::string> tops = Tops();
    ASSERT_EQ(tops.size(), 40u);
    EXPECT_EQ(PageCount(), 14);
    for (Long page = 1; page <= PageCount(); ++page) {
        for (const auto& line : Printer().Pages().pages.at(static_cast<std::size_t>(page) - 1).ink.lines)
            EXPECT_LT(line.y2, 14400.0);
    }
}

// Figures

TEST_F(DecisionTree, AllSamples_PrintTheModelsFigures)
{
    for (const char* name : {"smith-creek", "granite-fork-complex", "juniper-gap"}) {
        SCOPED_TRACE(name);
        OpenSample(name);
        Produce({10});
        const auto holds = [](const std::string& text) { EXPECT_FALSE(PlacesOf(text).empty()) << text; };
        const auto holdsOutcome = [&](c53Outcome& outcome) {
            holds("Size:  " + outcome.FireSize() +
                  " acres.  Control: " + std::to_string(outcome.ControlTime()) + " days");
            holds("Objectives Score:  " + platform::Format(outcome.TotalScore(), "0.0"));
            holds("Safety Score:  " + platform::Format(outcome.SafetyScore(), "0.0"));
            holds("Estimated Cost:  " + platform::Format(outcome.EstimatedCost(), "$#,0"));
            holds("Estimated Loss:  " + platform::Format(outcome.EstimatedLoss(), "$#,0"));
        };
        for (const auto& alternative : g51Alternatives::AlternativeCollection()) {
            holds(ReportUtilities::TrimRight(platform::Left(alternative->Label(), 35)));
            holds("Expected Objectives Score:  " + platform::Format(alternative->ExpectedScore(), "0.0"));
            holds("Expected Safety Score:  " + platform::Format(alternative->ExpectedSafetyScore(), "0.0"));
            holds("Expected Cost: " + platform::Format(alternative->ExpectedCost(), "$#,0"));
            holds("Expected Loss: " + platform::Format(alternative->ExpectedLoss(), "$#,0"));
            holds(std::to_string(alternative->Outcome(1)->Success()) + "%");
            holds(std::to_string(100 - alternative->Outcome(1)->Success()) + "%");
            holdsOutcome(*alternative->Outcome(1));
            if (alternative->Outcome(2)->bShow()) holdsOutcome(*alternative->Outcome(2));
        }
        holdsOutcome(*g53Outcomes::ExtremeOutcome());
    }
}

TEST_F(DecisionTree, Captions_HaveOneBlankForTheAlternativeAndTwoForTheOutcome)
{
    OpenNew(Alternative(1, "FireSize = 0.5, ControlTime = 12"));
    c51Alternative& alternative = *g51Alternatives::Alternative(1);
    EXPECT_EQ(DecisionTreeTexts::ExpectedValues(alternative),
              "Expected Objectives Score:  0.0\r\nExpected Safety Score:  0.0\r\nExpected Cost: $0\r\n"
              "Expected Loss: $0");
    EXPECT_EQ(DecisionTreeTexts::OutcomeValues(*alternative.Outcome(1)),
              "Size:  0.5 acres.  Control: 12 days\r\nObjectives Score:  0.0\r\nSafety Score:  0.0\r\n"
              "Estimated Cost:  $0\r\nEstimated Loss:  $0");
}

TEST_F(DecisionTree, OtherEditions_TellWhatIsProtectedAndResourceLossesWhereAnyHasAValue)
{
    OpenNew(Alternative(1));
    c51Alternative& without = *g51Alternatives::Alternative(1);
    EXPECT_TRUE(DecisionTreeTexts::ExpectedValues(without, Edition::Standard)
                    .ends_with("Expected Cost: $0\r\nValues Protected: $0"));
    EXPECT_TRUE(DecisionTreeTexts::OutcomeValues(*without.Outcome(1), Edition::Advanced)
                    .ends_with("Estimated Cost:  $0\r\nValues Protected:  $0"));
    OpenNew(Alternative(1) + firesql::NVCPerAcre("-10"));
    c51Alternative& with = *g51Alternatives::Alternative(1);
    EXPECT_TRUE(DecisionTreeTexts::ExpectedValues(with, Edition::Standard)
                    .ends_with("Values Protected: $0\r\nExpected NVC Loss: $0"));
    EXPECT_TRUE(DecisionTreeTexts::OutcomeValues(*with.Outcome(1), Edition::Standard)
                    .ends_with("Values Protected:  $0\r\nEstimated NVC Loss:  $0"));
}

} // namespace
