#include "support/TestSession.h"
#include "values/ValueRows.h"
#include "values/g66ItemImpacts.h"

#include <gtest/gtest.h>

namespace {

using namespace value_rows;

class ItemImpacts : public support::TestSession
{
protected:
    void OpenThreeRows()
    {
        OpenNew(Impact(8, 101, "1") + Impact(9, 101, "2") + Impact(9, 102, "3") + Protection(9, 101, 50));
    }
};

TEST_F(ItemImpacts, DeleteImpactsOfItem_TakesTheItemsRowsOfAllOutcomes)
{
    OpenThreeRows();
    g66ItemImpacts::DeleteImpactsOfItem(101);
    g66ItemImpacts::DeleteImpactsOfItem(555);
    EXPECT_EQ(Query("SELECT * FROM ItemImpacts"), (support::Rows{{"9", "102", "3"}}));
    EXPECT_EQ(Query("SELECT count(*) FROM ValuesProtected"), (support::Rows{{"1"}}));
}

TEST_F(ItemImpacts, DeleteImpactsOfOutcome_TakesTheOutcomesRowsOfAllItems)
{
    OpenThreeRows();
    g66ItemImpacts::DeleteImpactsOfOutcome(9);
    EXPECT_EQ(Query("SELECT * FROM ItemImpacts"), (support::Rows{{"8", "101", "1"}}));
    EXPECT_EQ(Query("SELECT count(*) FROM ValuesProtected"), (support::Rows{{"1"}}));
}

} // namespace
