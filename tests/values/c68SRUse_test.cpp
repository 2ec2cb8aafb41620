#include "platform/base/Errors.h"
#include "platform/data/DatabaseError.h"
#include "support/TestSession.h"
#include "values/ValueRows.h"
#include "values/c68SRUse.h"

#include <gtest/gtest.h>

namespace {

using namespace value_rows;

class SRUse : public support::TestSession
{
protected:
    /// A use of a type of its own, in a file that holds its row.
    c68SRUse UseOf(const std::string& unitType, const std::string& cost, Long quantity, Long periods)
    {
        OpenNew("DELETE FROM SRTypes;" + Type(1, 1, unitType, cost) + Use(10, 9, 3, 1, quantity, periods));
        c68SRUse use;
        use.Initialize(10, 9, 3, 1, quantity, periods);
        return use;
    }
};

TEST_F(SRUse, UseCost_ByTime_MultipliesThePeriods)
{
    EXPECT_EQ(UseOf("time", "100", 2, 3).UseCost(), 600.0F);
    EXPECT_EQ(UseOf("time", "100", 2, 0).UseCost(), 0.0F);
    EXPECT_EQ(UseOf("time", "100", -2, 3).UseCost(), -600.0F);
}

TEST_F(SRUse, UseCost_ByItem_LeavesThePeriodsOut) { EXPECT_EQ(UseOf("item", "100", 2, 3).UseCost(), 200.0F); }

TEST_F(SRUse, UseCost_UnitTypeInOtherLetters_CountsAsAnItem)
{
    for (const char* unitType : {"Time", "TIME", "time ", ""}) {
        EXPECT_EQ(UseOf(unitType, "100", 2, 3).UseCost(), 200.0F) << unitType;
    }
}

TEST_F(SRUse, UseCost_ProductBeyond32Bits_IsAnOverflow)
{
    EXPECT_EQ(UseOf("time", "1", 46340, 46340).UseCost(), 2147395600.0F);
    EXPECT_THROW(UseOf("time", "0", 46341, 46341).UseCost(), platform::Overflow);
}

TEST_F(SRUse, UseCost_IsRoundedToASingleOnce)
{
    EXPECT_EQ(UseOf("item", "0.1", 3, 1).UseCost(),
              0.3F); // three times the single 0.1 in double, then narrowed
    EXPECT_EQ(UseOf("time", "1", 16777217, 1).UseCost(), 16777216.0F);
}

TEST_F(SRUse, SetItemIndex_IsSavedAtOnce)
{
    c68SRUse use = UseOf("time", "100", 2, 3);
    use.SetItemIndex(7);
    EXPECT_EQ(use.ItemIndex(), 7);
    EXPECT_EQ(Query("SELECT ItemIndex, Quantity, Periods FROM SRUses"), (support::Rows{{"7", "2", "3"}}));
}

TEST_F(SRUse, SetItemIndex_TakesPendingWritesAlong)
{
    c68SRUse use = UseOf("time", "100", 2, 3);
    use.SetQuantity(20);
    use.SetTimePeriods(30);
    use.SetItemIndex(3);
    EXPECT_EQ(Query("SELECT ItemIndex, Quantity, Periods FROM SRUses"), (support::Rows{{"3", "20", "30"}}));
}

TEST_F(SRUse, QuantityAndPeriods_WaitForTheSave)
{
    c68SRUse use = UseOf("time", "100", 2, 3);
    use.SetQuantity(20);
    EXPECT_EQ(use.UseCost(), 6000.0F);
    EXPECT_EQ(Query("SELECT Quantity FROM SRUses"), (support::Rows{{"2"}}));
    Open(path);
    use.SaveChanges();
    EXPECT_EQ(Query("SELECT Quantity FROM SRUses"), (support::Rows{{"20"}}));
}

TEST_F(SRUse, SaveChanges_RowGone_FailsOnlyWhenChanged)
{
    UseOf("time", "100", 2, 3);
    c68SRUse use;
    use.Initialize(99, 9, 1, 1, 1, 1);
    EXPECT_NO_THROW(use.SaveChanges());
    use.SetQuantity(1);
    EXPECT_THROW(use.SaveChanges(), platform::DatabaseError);
    EXPECT_THROW(use.SetItemIndex(1), platform::DatabaseError);
    EXPECT_EQ(Query("SELECT count(*) FROM SRUses"), (support::Rows{{"1"}}));
}

} // namespace
