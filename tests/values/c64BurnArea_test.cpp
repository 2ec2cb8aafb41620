#include "platform/base/Errors.h"
#include "platform/data/DatabaseError.h"
#include "support/TestSession.h"
#include "values/ValueRows.h"
#include "values/c64BurnArea.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace {

using namespace value_rows;

class BurnArea : public support::TestSession
{};

c64BurnArea AreaOf(const std::vector<Long>& portions)
{
    c64BurnArea area;
    for (std::size_t i = 0; i < portions.size(); ++i) {
        area.SetFILPortion(static_cast<Long>(i) + 1, portions[i]);
    }
    return area;
}

std::vector<Long> PercentsOf(const c64BurnArea& area)
{
    std::vector<Long> percents;
    for (Long fil = 1; fil <= 6; ++fil) {
        percents.push_back(area.FILPercent(fil));
    }
    return percents;
}

TEST(FILPercent, Portions_AreRoundedEachByItself)
{
    struct Case
    {
        std::vector<Long> portions;
        std::vector<Long> percents;
    };
    const std::vector<Case> cases = {
        {{0, 0, 0, 5, 0, 0}, {0, 0, 0, 100, 0, 0}},
        {{1, 1, 1, 0, 0, 0}, {33, 33, 33, 0, 0, 0}},    // 99 in all
        {{1, 1, 1, 1, 1, 1}, {17, 17, 17, 17, 17, 17}}, // 102 in all
        {{1, 7, 0, 0, 0, 0}, {12, 88, 0, 0, 0, 0}},     // 12.5 and 87.5: halves to even
        {{3, 5, 0, 0, 0, 0}, {38, 62, 0, 0, 0, 0}},     // 37.5 and 62.5
        {{-1, 3, 0, 0, 0, 0}, {-50, 150, 0, 0, 0, 0}},  // negative weights are not guarded
        {{-1, -1, 0, 0, 0, 0}, {50, 50, 0, 0, 0, 0}},
        {{1000, 1, 0, 0, 0, 0}, {100, 0, 0, 0, 0, 0}},
    };
    for (const Case& each : cases) {
        EXPECT_EQ(PercentsOf(AreaOf(each.portions)), each.percents)
            << each.portions[0] << "," << each.portions[1];
    }
}

TEST(FILPercent, NoPortions_IsSixteenAtEveryLevel)
{
    EXPECT_EQ(PercentsOf(AreaOf({})), (std::vector<Long>{16, 16, 16, 16, 16, 16}));
    EXPECT_EQ(PercentsOf(AreaOf({5, -5})), (std::vector<Long>{16, 16, 16, 16, 16, 16}));
}

TEST(FILPercent, LevelOutside_IsABoundsError)
{
    for (const Long fil : {0, 7}) {
        c64BurnArea area;
        EXPECT_THROW(area.FILPercent(fil), platform::OutOfBounds) << fil;
        EXPECT_THROW(area.FILPortion(fil), platform::OutOfBounds) << fil;
        EXPECT_THROW(area.SetFILPortion(fil, 1), platform::OutOfBounds) << fil;
    }
}

TEST(FILPercent, SumBeyond32Bits_IsAnOverflow)
{
    constexpr Long kMost = std::numeric_limits<Long>::max();
    EXPECT_THROW(AreaOf({kMost, 1}).FILPercent(1), platform::Overflow);
    constexpr Long kQuarter = 1 << 30; // four of them would wrap round to 0, and so to 16 percent
    EXPECT_THROW(AreaOf({kQuarter, kQuarter, kQuarter, kQuarter}).FILPercent(5), platform::Overflow);
}

TEST(FILPercent, ProductOfOneLevelBeyond32Bits_FailsEveryLevel)
{
    EXPECT_EQ(AreaOf({1, 21474836}).FILPercent(2), 100);
    EXPECT_THROW(AreaOf({1, 21474837}).FILPercent(2), platform::Overflow);
    EXPECT_THROW(AreaOf({1, 21474837}).FILPercent(1), platform::Overflow);
}

TEST_F(BurnArea, Initialize_ReadsTheRow)
{
    OpenNew(Area(9, 4, "40,1,2,3,'4 parts',NULL,6"));
    c64BurnArea area;
    area.Initialize(9, 4);
    EXPECT_EQ(area.FMUKey(), 4);
    EXPECT_EQ(area.FMUPortion(), 40);
    EXPECT_EQ(area.FILPortion(1), 1);
    EXPECT_EQ(area.FILPortion(4), 4);
    EXPECT_EQ(area.FILPortion(5), 0);
    EXPECT_EQ(area.FILPortion(6), 6);
}

TEST_F(BurnArea, Initialize_MissingRow_IsAllZeros)
{
    OpenNew();
    c64BurnArea area;
    area.Initialize(9, 4);
    EXPECT_EQ(area.FMUKey(), 4);
    EXPECT_EQ(area.FMUPortion(), 0);
    EXPECT_EQ(area.FILPortion(4), 0);
    EXPECT_EQ(area.FILPercent(4), 16);
}

TEST_F(BurnArea, Initialize_NumberBeyond32Bits_Fails)
{
    OpenNew(Area(9, 0, "50,0,0,0,3000000000,0,0"));
    c64BurnArea area;
    EXPECT_THROW(area.Initialize(9, 0), platform::DatabaseError);
}

TEST_F(BurnArea, SaveChanges_WritesTheRow)
{
    OpenNew(Area(9, 4, "40,1,2,3,4,5,6"));
    c64BurnArea area;
    area.Initialize(9, 4);
    area.SetFMUPortion(60);
    area.SetFILPortion(6, 60);
    area.SaveChanges();
    EXPECT_EQ(Query("SELECT * FROM OutcomeFMZs WHERE OutcomeKey = 9"),
              (support::Rows{{"9", "4", "60", "1", "2", "3", "4", "5", "60"}}));
}

TEST_F(BurnArea, SaveChanges_EqualLevelPortion_WritesNothing)
{
    OpenNew();
    c64BurnArea area;
    area.Initialize(9, 4); // no such row: a write would fail
    area.SetFILPortion(1, 0);
    EXPECT_NO_THROW(area.SaveChanges());
    area.SetFILPortion(1, 1);
    EXPECT_THROW(area.SaveChanges(), platform::DatabaseError);
}

TEST_F(BurnArea, SaveChanges_EqualUnitPortion_CountsAsAChange)
{
    OpenNew();
    c64BurnArea area;
    area.Initialize(9, 4);
    area.SetFMUPortion(0);
    EXPECT_THROW(area.SaveChanges(), platform::DatabaseError);
    EXPECT_EQ(Query("SELECT count(*) FROM OutcomeFMZs WHERE OutcomeKey = 9"), (support::Rows{{"0"}}));
}

} // namespace
