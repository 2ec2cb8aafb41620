#include "model/g51Alternatives.h"
#include "platform/data/DatabaseError.h"
#include "support/TestSession.h"
#include "worksheets/DecisionTreeDrawing.h"

#include <gmock/gmock.h>
#include <ostream>

using Line = DecisionTreeDrawing::Line;
using Text = DecisionTreeDrawing::Text;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::Not;

// Found by the test library beside the types, so that a failure says what was drawn where.
void PrintTo(const Text& text, std::ostream* out) { *out << text.x << ", " << text.y << ": " << text.text; }
void PrintTo(const Line& line, std::ostream* out)
{
    *out << line.x1 << ", " << line.y1 << " to " << line.x2 << ", " << line.y2;
}

namespace {

constexpr const char* kOfB = "(SELECT ItemKey FROM Items WHERE ParentKey = 26 AND ItemName = 'B')";

class DecisionTreeDrawingTest : public support::TestSession
{
protected:
    /// The tree of the alternative at this place, from 1.
    static DecisionTreeDrawing TreeAt(Long place)
    {
        return DrawDecisionTree(*g51Alternatives::AlternativeCollection().At(place));
    }
    /// The sample's second alternative, which has a Fallback, after a change of its outcomes.
    DecisionTreeDrawing TreeOfB(const std::string& change, int outcome)
    {
        OpenSample("smith-creek",
                   "UPDATE Outcomes SET " + change + " WHERE ParentKey = " + kOfB +
                       " AND ChildIndex = " + std::to_string(outcome));
        return TreeAt(2);
    }
};

TEST_F(DecisionTreeDrawingTest, NoFallback_ExtremeOutcomeOnTheLowerBranch)
{
    OpenSample("smith-creek");
    const DecisionTreeDrawing tree = TreeAt(1);
    EXPECT_THAT(tree.texts,
                ElementsAre(Text{120, 730, "A. Full perimeter control"},
                            Text{120, 930, "Expected Objectives Score:  4.8"},
                            Text{120, 1130, "Expected Safety Score:  4.0"},
                            Text{120, 1330, "Expected Cost:  $18,000,000"},
                            Text{120, 1530, "Expected Loss:  $9,500,000"},
                            Text{2960, 420, "55%"},
                            Text{2960, 1150, "45%"},
                            Text{3620, 40, "Target Outcome"},
                            Text{3620, 240, "Size:  2400 acres. Control: 21 days"},
                            Text{3620, 420, "Objectives Score:  7.8"},
                            Text{3620, 600, "Safety Score:  5.0"},
                            Text{3620, 780, "Estimated Cost:  $6,780,000"},
                            Text{3620, 960, "Estimated Loss:  $255,000"},
                            Text{3620, 1420, "Extreme Outcome"},
                            Text{3620, 1620, "Size:  24000 acres. Control: 80 days"},
                            Text{3620, 1800, "Objectives Score:  1.2"},
                            Text{3620, 1980, "Safety Score:  2.8"},
                            Text{3620, 2160, "Estimated Cost:  $31,000,000"},
                            Text{3620, 2340, "Estimated Loss:  $20,720,000"}));
    EXPECT_THAT(tree.lines,
                ElementsAre(Line{60, 930, 3060, 930},
                            Line{3060, 930, 3560, 240},
                            Line{3060, 930, 3560, 1620},
                            Line{3560, 240, 6210, 240},
                            Line{3560, 1620, 6210, 1620}));
}

TEST_F(DecisionTreeDrawingTest, FallbackShown_SecondFork)
{
    OpenSample("smith-creek");
    const DecisionTreeDrawing tree = TreeAt(2);
    EXPECT_THAT(tree.texts,
                ElementsAre(Text{120, 730, "B. Confine on Wagon Road and Divide"},
                            Text{120, 930, "Expected Objectives Score:  6.3"},
                            Text{120, 1130, "Expected Safety Score:  6.2"},
                            Text{120, 1330, "Expected Cost:  $11,000,000"},
                            Text{120, 1530, "Expected Loss:  $3,300,000"},
                            Text{2960, 420, "75%"},
                            Text{2960, 1150, "25%"},
                            Text{3620, 40, "Target Outcome"},
                            Text{3620, 240, "Size:  6200 acres. Control: 40 days"},
                            Text{3620, 420, "Objectives Score:  7.2"},
                            Text{3620, 600, "Safety Score:  6.8"},
                            Text{3620, 780, "Estimated Cost:  $7,690,000"},
                            Text{3620, 960, "Estimated Loss:  $1,015,000"},
                            Text{3620, 1420, "Fallback Plan"},
                            Text{6110, 950, "60%"},
                            Text{6110, 1870, "40%"},
                            Text{6770, 570, "Fallback Outcome"},
                            Text{6770, 770, "Size:  9800 acres. Control: 55 days"},
                            Text{6770, 950, "Objectives Score:  5.0"},
                            Text{6770, 1130, "Safety Score:  5.2"},
                            Text{6770, 1310, "Estimated Cost:  $12,200,000"},
                            Text{6770, 1490, "Estimated Loss:  $3,320,000"},
                            Text{6770, 1950, "Extreme Outcome"},
                            Text{6770, 2150, "Size:  24000 acres. Control: 80 days"},
                            Text{6770, 2330, "Objectives Score:  1.2"},
                            Text{6770, 2510, "Safety Score:  2.8"},
                            Text{6770, 2690, "Estimated Cost:  $31,000,000"},
                            Text{6770, 2870, "Estimated Loss:  $20,720,000"}));
    EXPECT_THAT(tree.lines,
                ElementsAre(Line{60, 930, 3060, 930},
                            Line{3060, 930, 3560, 240},
                            Line{3060, 930, 3560, 1620},
                            Line{3560, 240, 6210, 240},
                            Line{3560, 1620, 6210, 1620},
                            Line{6210, 1620, 6710, 770},
                            Line{6210, 1620, 6710, 2150},
                            Line{6710, 770, 9360, 770},
                            Line{6710, 2150, 9360, 2150}));
}

// The percents of the second fork are given that the Target failed: 60, not the 15 that weighs the Fallback.
TEST_F(DecisionTreeDrawingTest, Percents_AreThoseOfTheBranchNotOfTheOutcome)
{
    OpenSample("smith-creek");
    EXPECT_EQ(g51Alternatives::AlternativeCollection().At(2)->OutcomePercent(2), 15);
    EXPECT_THAT(TreeAt(2).texts, Contains(Text{6110, 950, "60%"}));
}

TEST_F(DecisionTreeDrawingTest, FallbackOfZeroPercent_IsDrawn)
{
    const DecisionTreeDrawing tree = TreeOfB("Success = 0", 2);
    EXPECT_THAT(tree.texts, Contains(Text{3620, 1420, "Fallback Plan"}));
    EXPECT_THAT(tree.texts, Contains(Text{6110, 950, "0%"}));
    EXPECT_THAT(tree.texts, Contains(Text{6110, 1870, "100%"}));
    EXPECT_EQ(tree.lines.size(), 9u);
}

TEST_F(DecisionTreeDrawingTest, FallbackNotShown_LeavesNothingOfItself)
{
    const DecisionTreeDrawing tree = TreeOfB("Success = -1", 2);
    EXPECT_THAT(tree.texts, Not(Contains(Text{3620, 1420, "Fallback Plan"})));
    EXPECT_THAT(tree.texts, Contains(Text{3620, 1420, "Extreme Outcome"}));
    EXPECT_EQ(tree.texts.size(), 19u);
    EXPECT_EQ(tree.lines.size(), 5u);
}

TEST_F(DecisionTreeDrawingTest, TargetCertain_TreeInFull)
{
    const DecisionTreeDrawing tree = TreeOfB("Success = 100", 1);
    EXPECT_THAT(tree.texts, Contains(Text{2960, 420, "100%"}));
    EXPECT_THAT(tree.texts, Contains(Text{2960, 1150, "0%"}));
    EXPECT_EQ(tree.texts.size(), 28u);
    EXPECT_EQ(tree.lines.size(), 9u);
}

TEST_F(DecisionTreeDrawingTest, LongLabel_CutAt35Characters)
{
    OpenSample("smith-creek",
               "UPDATE Items SET Heading = 'Überblick über 12345678901234567890' WHERE ItemKey = " +
                   std::string(kOfB));
    // Characters, not bytes.
    EXPECT_EQ(TreeAt(2).texts.front().text, "B. Überblick über 12345678901234567");
}

TEST_F(DecisionTreeDrawingTest, SizesAndTimes_PlainAsTheyStand)
{
    const DecisionTreeDrawing tree = TreeOfB("FireSize = 1250000.5, ControlTime = 1200", 1);
    EXPECT_THAT(tree.texts, Contains(Text{3620, 240, "Size:  1250000.5 acres. Control: 1200 days"}));
}

TEST_F(DecisionTreeDrawingTest, Words_OneTextALine)
{
    OpenSample("smith-creek");
    const std::string words = TreeAt(1).Words();
    EXPECT_EQ(words.substr(0, 58), "A. Full perimeter control\nExpected Objectives Score:  4.8\n");
    EXPECT_EQ(std::count(words.begin(), words.end(), '\n'), 18);
}

TEST_F(DecisionTreeDrawingTest, ExtremeRowMissing_Throws)
{
    OpenSample("smith-creek", "DELETE FROM Outcomes WHERE ParentKey = 0");
    EXPECT_THROW(TreeAt(1), platform::DatabaseError);
}

TEST_F(DecisionTreeDrawingTest, SuccessOutOfRange_Throws)
{
    EXPECT_THROW(TreeOfB("Success = -2147483648", 1), platform::Overflow);
}

} // namespace
