#include "FireSql.h"
#include "model/g51Alternatives.h"
#include "model/g53Outcomes.h"
#include "platform/base/Errors.h"
#include "platform/data/DatabaseError.h"
#include "session/UIMode.h"
#include "support/TestSession.h"

#include <algorithm>

using namespace firesql;
using platform::Alignment;
using platform::GridContents;
using support::Rows;

namespace {

class g53OutcomesTest : public support::TestSession
{};

using Texts = std::vector<std::string>;

Texts RowTexts(const GridContents& grid, Long row)
{
    Texts texts;
    for (Long column = 0; column < grid.Cols(); ++column) {
        texts.push_back(grid.Text(row, column));
    }
    return texts;
}

std::shared_ptr<c53Outcome> OutcomeOf(const GridContents& grid, Long row)
{
    return grid.RowObject<std::shared_ptr<c53Outcome>>(row);
}

} // namespace

TEST_F(g53OutcomesTest, ExtremeOutcome_IsOneUntilReset)
{
    OpenNew();
    const auto extreme = g53Outcomes::ExtremeOutcome();
    EXPECT_EQ(extreme->ItemKey(), kExtremeKey);
    EXPECT_EQ(g53Outcomes::ExtremeOutcome(), extreme);
    g53Outcomes::ResetExtremeOutcome();
    EXPECT_NE(g53Outcomes::ExtremeOutcome(), extreme);
}

TEST_F(g53OutcomesTest, ExtremeOutcome_RowMissing_IsAnErrorEachTime)
{
    OpenNew("DELETE FROM Outcomes;");
    EXPECT_THROW(g53Outcomes::ExtremeOutcome(), platform::DatabaseError);
    EXPECT_THROW(g53Outcomes::ExtremeOutcome(), platform::DatabaseError);
}

TEST_F(g53OutcomesTest, AddOutcomes_LandUnits_GetBurnAreasBehindTheDefaultOne)
{
    OpenNew("INSERT INTO FMZList VALUES (4, 'D', 'Four'), (3, 'C', 'Three');"
            "UPDATE Outcomes SET ItemKey = 40;");
    g53Outcomes::AddOutcomes(9);
    EXPECT_EQ(Query("SELECT ItemKey, ParentKey, ChildIndex FROM Outcomes"),
              (Rows{{"40", "0", "1"}, {"41", "9", "1"}, {"42", "9", "2"}}));
    EXPECT_EQ(Query("SELECT OutcomeKey, FMZKey, Portion FROM OutcomeFMZs WHERE OutcomeKey > 1"),
              (Rows{{"41", "0", "50"},
                    {"41", "3", "50"},
                    {"41", "4", "50"},
                    {"42", "0", "50"},
                    {"42", "3", "50"},
                    {"42", "4", "50"}}));
    const auto lines = LogLines();
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "   AltServer.AddOutcomes"), 1);
}

TEST_F(g53OutcomesTest, AddOutcomes_HighestKeyInUse_Overflows)
{
    OpenNew("UPDATE Outcomes SET ItemKey = 2147483647;");
    EXPECT_THROW(g53Outcomes::AddOutcomes(9), platform::Overflow);
}

TEST_F(g53OutcomesTest, SetupOutcomeGrid_HeaderAndColumns)
{
    GridContents grid;
    grid.SetCols(6);
    g53Outcomes::SetupOutcomeGridWithTimes(grid);
    EXPECT_EQ(grid.Cols(), 6);
    EXPECT_EQ(grid.Rows(), 1);
    EXPECT_EQ(grid.FixedRows(), 1);
    EXPECT_EQ(RowTexts(grid, 0), (Texts{"Outcomes", "Outcomes", "Acres", "Contain", "Control", ""}));
    EXPECT_TRUE(grid.MergeRow(0));
    const Long widths[] = {2700, 675, 900, 720, 720, 0};
    for (Long column = 0; column < 6; ++column) {
        EXPECT_EQ(grid.ColWidth(column), widths[column]);
        EXPECT_EQ(grid.ColAlignment(column), column == 0 ? Alignment::Left : Alignment::Center);
        EXPECT_EQ(grid.CellAlignment(0, column), Alignment::Center);
    }
}

TEST_F(g53OutcomesTest, SetupOutcomeGrid_EmptyGrid_GetsTheColumnsItNeeds)
{
    GridContents plain;
    g53Outcomes::SetupOutcomeGrid(plain);
    EXPECT_EQ(RowTexts(plain, 0), (Texts{"Outcomes", "Outcomes"}));
    GridContents sized;
    g53Outcomes::SetupOutcomeGridWithSize(sized);
    EXPECT_EQ(RowTexts(sized, 0), (Texts{"Outcomes", "Outcomes", "Acres"}));
}

TEST_F(g53OutcomesTest, LoadAlternativeOutcomes_ShownFallbacksOnly)
{
    OpenNew(Alternative(1) + Alternative(2, {}, "Success = 0"));
    GridContents grid;
    g53Outcomes::SetupOutcomeGrid(grid);
    grid.AddItem("left\tover");
    g53Outcomes::LoadAlternativeOutcomes(grid);
    ASSERT_EQ(grid.Rows(), 4);
    EXPECT_EQ(RowTexts(grid, 0), (Texts{"Outcomes", "Outcomes"}));
    EXPECT_EQ(RowTexts(grid, 1), (Texts{"A. Name A", "Target"}));
    EXPECT_EQ(RowTexts(grid, 2), (Texts{"B. Name B", "Target"}));
    EXPECT_EQ(RowTexts(grid, 3), (Texts{"B. Name B", "Fallback"}));
    EXPECT_EQ(OutcomeOf(grid, 3), g51Alternatives::Alternative(2)->Outcome(2));
    EXPECT_EQ(OutcomeOf(grid, 0), nullptr);
}

TEST_F(g53OutcomesTest, LoadAlternativeOutcomes_TabInAName_IsNoNewColumn)
{
    OpenNew(Alternative(1) + "UPDATE Items SET Heading = 'Two\tparts' WHERE ItemKey = 1;");
    GridContents grid;
    g53Outcomes::SetupOutcomeGridWithTimes(grid);
    g53Outcomes::LoadAlternativeOutcomes(grid);
    EXPECT_EQ(RowTexts(grid, 1), (Texts{"A. Two\tparts", "Target", "", "", ""}));
}

TEST_F(g53OutcomesTest, LoadOutcomes_EndsWithTheExtremeOutcomeMergedAcross)
{
    OpenNew(Alternative(1));
    GridContents grid;
    g53Outcomes::SetupOutcomeGrid(grid);
    g53Outcomes::LoadOutcomes(grid);
    ASSERT_EQ(grid.Rows(), 3);
    EXPECT_EQ(RowTexts(grid, 2), (Texts{"Extreme Outcome", "Extreme Outcome"}));
    EXPECT_EQ(OutcomeOf(grid, 2), g53Outcomes::ExtremeOutcome());
    EXPECT_TRUE(grid.MergeRow(2));
    EXPECT_FALSE(grid.MergeRow(1));
    EXPECT_EQ(grid.CellAlignment(2, 0), Alignment::Center);
    EXPECT_EQ(grid.CellAlignment(1, 0), Alignment::Left);
}

TEST_F(g53OutcomesTest, ShowOutcomeSizes_ThousandsAbove9999Only)
{
    const std::pair<std::string, std::string> cases[] = {{"9999", " 9999 "},
                                                         {"10000", " 10,000 "},
                                                         {"9999.5", " 10,000 "},
                                                         {"1234567", " 1,234,567 "},
                                                         {"0", " 0 "},
                                                         {"0.5", " 1 "}};
    for (const auto& [acres, text] : cases) {
        Close();
        OpenNew(Alternative(1, "FireSize = " + acres));
        GridContents grid;
        g53Outcomes::SetupOutcomeGridWithSize(grid);
        g53Outcomes::LoadOutcomesWithSizes(grid);
        EXPECT_EQ(grid.Text(1, 2), text);
        EXPECT_EQ(grid.Text(2, 2), " 0 ");
    }
}

TEST_F(g53OutcomesTest, LoadOutcomesWithTimes_ShowsSizesAndDays)
{
    OpenNew(Alternative(1, "FireSize = 12000, ContainTime = 3, ControlTime = 1000"));
    GridContents grid;
    g53Outcomes::SetupOutcomeGridWithTimes(grid);
    g53Outcomes::LoadOutcomesWithTimes(grid);
    EXPECT_EQ(RowTexts(grid, 1), (Texts{"A. Name A", "Target", " 12,000 ", " 3 ", " 1000 "}));
    EXPECT_EQ(RowTexts(grid, 2), (Texts{"Extreme Outcome", "Extreme Outcome", " 0 ", " 0 ", " 0 "}));
    EXPECT_EQ(RowTexts(grid, 0), (Texts{"Outcomes", "Outcomes", "Acres", "Contain", "Control"}));
}

TEST_F(g53OutcomesTest, ShowOutcomeCosts_PerAcreAndBySize)
{
    OpenNew(Alternative(1, "FireSize = 1234") + CostPerAcre("1050"));
    GridContents grid;
    g53Outcomes::SetupOutcomeGridWithTimes(grid);
    g53Outcomes::LoadOutcomesWithSizes(grid);
    g53Outcomes::ShowOutcomeCosts(grid);
    EXPECT_EQ(RowTexts(grid, 1), (Texts{"A. Name A", "Target", " 1234 ", "1,050", "1,300,000"}));
    EXPECT_EQ(RowTexts(grid, 2), (Texts{"Extreme Outcome", "Extreme Outcome", " 0 ", "1,050", "0"}));
}

TEST_F(g53OutcomesTest, GridHelpers_ThatFail_EndBusy)
{
    OpenNew(Alternative(1) + "DELETE FROM Outcomes;");
    GridContents grid;
    g53Outcomes::SetupOutcomeGrid(grid);
    EXPECT_THROW(g53Outcomes::LoadOutcomesWithTimes(grid), platform::DatabaseError);
    EXPECT_TRUE(UIMode::NotBusy());
}
