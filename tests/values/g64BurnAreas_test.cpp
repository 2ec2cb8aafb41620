#include "platform/data/DatabaseError.h"
#include "support/TestSession.h"
#include "values/ValueRows.h"
#include "values/c64BurnArea.h"
#include "values/g64BurnAreas.h"

#include <gtest/gtest.h>

namespace {

using namespace value_rows;

class BurnAreas : public support::TestSession
{};

TEST_F(BurnAreas, NewBurnArea_NoAlternative_BurnsAtLevelFour)
{
    OpenNew();
    g64BurnAreas::NewBurnArea(9, 0);
    c64BurnArea area;
    area.Initialize(9, 0);
    EXPECT_EQ(area.FILPercent(4), 100);
    EXPECT_EQ(area.FILPercent(3), 0);
    EXPECT_EQ(Query("SELECT * FROM OutcomeFMZs WHERE OutcomeKey = 9"),
              (support::Rows{{"9", "0", "50", "0", "0", "0", "5", "0", "0"}}));
}

TEST_F(BurnAreas, NewBurnArea_CopiesTheLevelsOfTheFirstAlternativesTargetOnly)
{
    OpenNew(Alternative(102, 2, 8, 9) + Alternative(103, 1, 6, 7) + Area(6, 0, "80,1,2,3,4,5,6") +
            Area(7, 0, "81,9,9,9,9,9,9") + Area(8, 0, "82,8,8,8,8,8,8"));
    g64BurnAreas::NewBurnArea(20, 0);
    // The share is 50 whatever the first alternative's is.
    EXPECT_EQ(Query("SELECT * FROM OutcomeFMZs WHERE OutcomeKey = 20"),
              (support::Rows{{"20", "0", "50", "1", "2", "3", "4", "5", "6"}}));
}

TEST_F(BurnAreas, NewBurnArea_FirstAlternativeHasNoSuchRow_CopiesNothing)
{
    OpenNew(Alternative(102, 1, 6, 7) + Area(6, 0, "80,1,2,3,4,5,6"));
    g64BurnAreas::NewBurnArea(20, 3);
    c64BurnArea area;
    area.Initialize(20, 3);
    for (Long fil = 1; fil <= 6; ++fil) {
        EXPECT_EQ(area.FILPortion(fil), 0) << fil;
        EXPECT_EQ(area.FILPercent(fil), 16) << fil;
    }
    EXPECT_EQ(area.FMUPortion(), 50);
}

TEST_F(BurnAreas, NewBurnArea_RowIsThere_Fails)
{
    OpenNew(Area(9, 0, "1,1,1,1,1,1,1"));
    EXPECT_THROW(g64BurnAreas::NewBurnArea(9, 0), platform::DatabaseError);
}

TEST_F(BurnAreas, DeleteBurnAreas_TakesAllRowsOfTheOutcome)
{
    OpenNew(Area(9, 0, "1,1,1,1,1,1,1") + Area(9, 1, "1,1,1,1,1,1,1") + Area(9, 2, "1,1,1,1,1,1,1") +
            Area(8, 1, "1,1,1,1,1,1,1"));
    g64BurnAreas::DeleteBurnAreas(9);
    g64BurnAreas::DeleteBurnAreas(77);
    EXPECT_EQ(Query("SELECT OutcomeKey, FMZKey FROM OutcomeFMZs"), (support::Rows{{"1", "0"}, {"8", "1"}}));
}

} // namespace
