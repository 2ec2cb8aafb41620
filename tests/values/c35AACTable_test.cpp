#include "platform/base/Errors.h"
#include "platform/data/DatabaseError.h"
#include "support/TestSession.h"
#include "values/ValueRows.h"
#include "values/c35AACTable.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using namespace value_rows;

class AACTable : public support::TestSession
{};

/// A table with these bounds and costs, without a file.
c35AACTable TableOf(const std::vector<Single>& topSizes, const std::vector<Single>& costs)
{
    c35AACTable table;
    for (std::size_t i = 0; i < topSizes.size(); ++i) {
        table.SetTopSize(static_cast<Long>(i) + 1, topSizes[i]);
    }
    for (std::size_t i = 0; i < costs.size(); ++i) {
        table.SetCost(static_cast<Long>(i) + 1, costs[i]);
    }
    return table;
}

TEST(CostForSize, SizeZero_TakesTheLowestClass) { EXPECT_EQ(TableOf({1000}, {10}).CostForSize(0), 10.0F); }

TEST(CostForSize, OpenEndedRowBehindTheLastBound_TakesWhatIsAbove)
{
    const c35AACTable table = TableOf({1000}, {10, 20});
    EXPECT_EQ(table.CostForSize(999.5F), 10.0F);
    EXPECT_EQ(table.CostForSize(1000), 10.0F);
    EXPECT_EQ(table.CostForSize(1000.5F), 20.0F);
    EXPECT_EQ(table.CostForSize(3e38F), 20.0F);
}

TEST(CostForSize, OnlyRowOneHasACost_TakesItAboveItsBoundToo)
{
    const c35AACTable table = TableOf({1000}, {10});
    EXPECT_EQ(table.CostForSize(1000.5F), 10.0F);
}

TEST(CostForSize, SingleCostWithoutBounds_TakesEverySizeAboveZero)
{
    const c35AACTable table = TableOf({}, {10});
    EXPECT_EQ(table.CostForSize(0.01F), 10.0F);
    EXPECT_EQ(table.CostForSize(50000), 10.0F);
}

TEST(CostForSize, EmptyTable_GivesZero)
{
    const c35AACTable table;
    EXPECT_EQ(table.CostForSize(0), 0.0F);
    EXPECT_EQ(table.CostForSize(1), 0.0F);
}

TEST(CostForSize, BlankBound_HoldsSizesOfZeroAndBelowOnly)
{
    const c35AACTable table = TableOf({0, 500}, {7, 8});
    EXPECT_EQ(table.CostForSize(0), 7.0F);
    EXPECT_EQ(table.CostForSize(-5), 7.0F);
    EXPECT_EQ(table.CostForSize(1), 8.0F);
}

TEST(CostForSize, CostTwoRowsBehindTheLastBound_IsPassedOver)
{
    const c35AACTable table = TableOf({1000, 0, 0}, {10, 0, 30});
    EXPECT_EQ(table.CostForSize(2000), 10.0F);
}

TEST(CostForSize, AboveAllNineBounds_TakesTheHighestRowWithACost)
{
    const c35AACTable table = TableOf({1, 2, 3, 4, 5, 6, 7, 8, 9}, {1, 2, 3, 4, 5, 6, 70, 0, -9});
    EXPECT_EQ(table.CostForSize(8), 0.0F);  // within a bound a cost of 0 stands
    EXPECT_EQ(table.CostForSize(9), -9.0F); // and a negative one too
    EXPECT_EQ(table.CostForSize(9.5F), 70.0F);
}

TEST(CostForSize, NegativeBound_IsNotSet) { EXPECT_EQ(TableOf({-1, 0}, {5, 6}).CostForSize(1), 5.0F); }

TEST(CostForSize, FallingBounds_FirstThatHoldsWins)
{
    EXPECT_EQ(TableOf({1000, 100}, {10, 20}).CostForSize(50), 10.0F);
    EXPECT_EQ(TableOf({1000, 100}, {10, 20}).CostForSize(2000), 20.0F);
}

TEST(AACTableRows, RowOutside_IsABoundsError)
{
    c35AACTable table;
    for (const Long row : {0, 10}) {
        EXPECT_THROW(table.TopSize(row), platform::OutOfBounds) << row;
        EXPECT_THROW(table.SetTopSize(row, 1), platform::OutOfBounds) << row;
        EXPECT_THROW(table.Cost(row), platform::OutOfBounds) << row;
        EXPECT_THROW(table.SetCost(row, 1), platform::OutOfBounds) << row;
    }
}

TEST_F(AACTable, Initialize_ReadsRowsOfItsKeyAndTraces)
{
    OpenNew(SizeClass(0, 1, "100,5.5") + SizeClass(0, 9, "'900 acres',NULL") + SizeClass(8, 2, "7,8") +
            "DELETE FROM SuppressionPerAcreCost WHERE FMZKey = 0 AND SizeClass = 4;");
    c35AACTable table;
    table.Initialize(0);
    EXPECT_EQ(table.TopSize(1), 100.0F);
    EXPECT_EQ(table.Cost(1), 5.5F);
    EXPECT_EQ(table.TopSize(9), 900.0F);
    EXPECT_EQ(table.Cost(9), 0.0F);
    EXPECT_EQ(table.TopSize(4), 0.0F);
    table.Initialize(8);
    EXPECT_EQ(table.Cost(2), 8.0F);
    const auto lines = LogLines();
    ASSERT_FALSE(lines.empty());
    EXPECT_NE(lines.back().find("c35AACTable.Initialize 8"), std::string::npos) << lines.back();
}

TEST_F(AACTable, CostBeyondASingle_FailsTheLoad)
{
    OpenNew(SizeClass(0, 3, "0,1e300"));
    c35AACTable table;
    EXPECT_THROW(table.Initialize(0), platform::DatabaseError);
}

TEST_F(AACTable, SaveChanges_WritesBoundsAndCosts)
{
    OpenNew();
    c35AACTable table;
    table.Initialize(0);
    table.SetTopSize(1, 1000);
    table.SetCost(2, 12.5F);
    table.SaveChanges();
    EXPECT_EQ(Query("SELECT SizeClass, TopSize, Cost FROM SuppressionPerAcreCost WHERE TopSize + Cost > 0"),
              (support::Rows{{"1", "1000.0", "0.0"}, {"2", "0.0", "12.5"}}));
}

TEST_F(AACTable, SaveChanges_NothingChanged_TracesOnly)
{
    OpenNew("DELETE FROM SuppressionPerAcreCost;"); // a write would fail
    c35AACTable table;
    table.Initialize(0);
    table.SaveChanges();
    const auto lines = LogLines();
    EXPECT_NE(lines.back().find("c35AACTable.SaveChanges"), std::string::npos) << lines.back();
}

TEST_F(AACTable, SaveChanges_EqualValueWritten_CountsAsAChange)
{
    OpenNew("DELETE FROM SuppressionPerAcreCost;");
    c35AACTable bound;
    bound.Initialize(0);
    bound.SetTopSize(1, 0);
    EXPECT_THROW(bound.SaveChanges(), platform::DatabaseError);
    c35AACTable cost;
    cost.Initialize(0);
    cost.SetCost(1, 0);
    EXPECT_THROW(cost.SaveChanges(), platform::DatabaseError);
}

TEST_F(AACTable, SaveChanges_MissingRow_FailsAtTheEditAndAddsNone)
{
    OpenNew("DELETE FROM SuppressionPerAcreCost WHERE SizeClass = 5;");
    c35AACTable table;
    table.Initialize(0);
    table.SetCost(1, 1);
    EXPECT_THROW(table.SaveChanges(), platform::DatabaseError);
    EXPECT_EQ(Query("SELECT count(*) FROM SuppressionPerAcreCost"), (support::Rows{{"8"}}));
}

} // namespace
