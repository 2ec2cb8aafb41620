#include "platform/base/Errors.h"
#include "support/TestSession.h"
#include "values/ValueRows.h"
#include "values/g68SRUses.h"

#include <gtest/gtest.h>

namespace {

using namespace value_rows;

class SRUses : public support::TestSession
{};

TEST_F(SRUses, NewSRUseRow_EmptyTable_StartsAtOne)
{
    OpenNew();
    EXPECT_EQ(g68SRUses::NewSRUseRow(9, 2), 1);
    EXPECT_EQ(g68SRUses::NewSRUseRow(9, 3), 2);
    EXPECT_EQ(Query("SELECT * FROM SRUses"),
              (support::Rows{{"1", "9", "1", "2", "1", "1"}, {"2", "9", "2", "3", "1", "1"}}));
}

TEST_F(SRUses, NewSRUseRow_CountsTheOutcomesLinesNotTheirHighestIndex)
{
    OpenNew(Use(5, 9, 40, 1, 1, 1) + Use(6, 8, 1, 1, 1, 1));
    g68SRUses::NewSRUseRow(9, 1);
    EXPECT_EQ(Query("SELECT ItemKey, ItemIndex FROM SRUses WHERE ItemKey > 6"), (support::Rows{{"7", "2"}}));
}

TEST_F(SRUses, NewSRUseRow_KeyOfADeletedLine_IsNotHandedOutAgain)
{
    OpenNew(Use(5, 9, 1, 1, 1, 1));
    EXPECT_EQ(g68SRUses::NewSRUseRow(9, 1), 6);
    g68SRUses::DeleteSRUses(9);
    EXPECT_EQ(g68SRUses::NewSRUseRow(9, 1), 7);
}

TEST_F(SRUses, ResetLastSRUseKey_CountsFromTheFileAgain)
{
    OpenNew(Use(5, 9, 1, 1, 1, 1));
    EXPECT_EQ(g68SRUses::NewSRUseRow(9, 1), 6);
    OpenNew(Use(900, 9, 1, 1, 1, 1)); // closing a file resets it
    EXPECT_EQ(g68SRUses::NewSRUseRow(9, 1), 901);
}

TEST_F(SRUses, NewSRUseRow_HighestKeyIsTheLastOf32Bits_IsAnOverflow)
{
    OpenNew(Use(2147483647, 9, 1, 1, 1, 1));
    EXPECT_THROW(g68SRUses::NewSRUseRow(9, 1), platform::Overflow);
}

TEST_F(SRUses, DeleteSRUses_TakesAllLinesOfTheOutcome)
{
    OpenNew(Use(5, 9, 1, 1, 1, 1) + Use(6, 8, 1, 1, 1, 1) + Use(7, 9, 1, 77, 1, 1));
    g68SRUses::DeleteSRUses(9);
    g68SRUses::DeleteSRUses(9);
    EXPECT_EQ(Query("SELECT ItemKey FROM SRUses"), (support::Rows{{"6"}}));
}

} // namespace
