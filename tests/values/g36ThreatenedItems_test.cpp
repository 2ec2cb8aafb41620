#include "platform/base/Errors.h"
#include "platform/data/DatabaseError.h"
#include "session/g0Items.h"
#include "support/TestSession.h"
#include "values/ValueRows.h"
#include "values/g36ThreatenedItems.h"

#include <gtest/gtest.h>

namespace {

using namespace value_rows;
using ItemPointer = std::shared_ptr<c36ThreatenedItem>;

class ThreatenedItems : public support::TestSession
{};

TEST_F(ThreatenedItems, Collection_StandsInKeyOrderWhateverTheChildIndex)
{
    OpenNew(Item(103, "Fence") + Item(101, "Bridge") + AtRisk(103, "1500") +
            "UPDATE Items SET ChildIndex = 900 WHERE ItemKey = 101;");
    const auto& items = g36ThreatenedItems::ThreatenedItemCollection();
    ASSERT_EQ(items.Count(), 2);
    EXPECT_EQ(items.At(1)->ItemName(), "Bridge");
    EXPECT_EQ(items.At(1)->Notes(), "Notes of Bridge");
    EXPECT_EQ(items.At(1)->PotentialLoss(), 0.0);
    EXPECT_EQ(items.At(2)->ItemKey(), 103);
    EXPECT_EQ(items.At(2)->PotentialLoss(), 1500.0);
}

TEST_F(ThreatenedItems, NoItems_NeedNoTableOfTheirValues)
{
    OpenNew("DROP TABLE ValuesAtRisk;");
    EXPECT_EQ(g36ThreatenedItems::ThreatenedItemCollection().Count(), 0);
    EXPECT_EQ(g36ThreatenedItems::TotalValueAtRisk(), 0.0);
}

TEST_F(ThreatenedItems, ItemLoadedByTheStore_IsTheOneLoadedAlone)
{
    OpenNew(Item(101, "Bridge") + AtRisk(101, "123456", 40));
    c36ThreatenedItem alone;
    alone.Initialize(101, "Bridge");
    const ItemPointer stored = g36ThreatenedItems::GetThreatenedItem(101);
    EXPECT_EQ(stored->Notes(), alone.Notes());
    EXPECT_EQ(stored->PotentialLoss(), alone.PotentialLoss());
    EXPECT_EQ(stored->Probability(), alone.Probability());
}

TEST_F(ThreatenedItems, NullTexts_ReadEmpty)
{
    OpenNew("INSERT INTO Items (ItemKey, ParentKey) VALUES (101, 23);");
    EXPECT_EQ(g36ThreatenedItems::GetThreatenedItem(101)->ItemName(), "");
    EXPECT_EQ(g36ThreatenedItems::GetThreatenedItem(101)->Notes(), "");
}

TEST_F(ThreatenedItems, UnknownKey_IsAMissingMember)
{
    OpenNew(Item(101, "Bridge"));
    EXPECT_THROW(g36ThreatenedItems::GetThreatenedItem(102), platform::MissingMember);
}

TEST_F(ThreatenedItems, BadValueOfOneItem_FailsEveryUse)
{
    OpenNew(Item(101, "Bridge") + Item(102, "Barn") + AtRisk(102, "-1e39"));
    EXPECT_THROW(g36ThreatenedItems::GetThreatenedItem(101), platform::DatabaseError);
    EXPECT_THROW(g36ThreatenedItems::ThreatenedItemCollection(), platform::DatabaseError);
}

TEST_F(ThreatenedItems, ValueAtRiskOfAKeyThatIsNoItem_IsNotRead)
{
    OpenNew(Item(101, "Bridge") + AtRisk(777, "1e39"));
    EXPECT_EQ(g36ThreatenedItems::TotalValueAtRisk(), 0.0);
}

TEST_F(ThreatenedItems, TotalValueAtRisk_SumsRoundedValues)
{
    OpenNew(Item(101, "Bridge") + Item(102, "Barn") + AtRisk(101, "123456") + AtRisk(102, "1290"));
    EXPECT_EQ(g36ThreatenedItems::TotalValueAtRisk(), 121300.0);
}

TEST_F(ThreatenedItems, NoItems_HaveNoValueAtRisk)
{
    OpenNew();
    EXPECT_TRUE(g36ThreatenedItems::ThreatenedItemCollection().IsEmpty());
    EXPECT_EQ(g36ThreatenedItems::TotalValueAtRisk(), 0.0);
}

TEST_F(ThreatenedItems, FillGrid_ReplacesTheRowsBehindTheHeader)
{
    OpenNew(Item(101, "Bridge") + Item(102, "Barn") + AtRisk(101, "1234567"));
    platform::GridContents grid;
    grid.SetCols(4);
    grid.SetRows(5);
    grid.SetText(0, 0, "Item name");
    grid.SetText(1, 0, "old");
    g36ThreatenedItems::FillThreatenedItemGrid(grid);
    ASSERT_EQ(grid.Rows(), 3);
    EXPECT_EQ(grid.Text(0, 0), "Item name");
    EXPECT_EQ(grid.Text(1, 0), "Bridge");
    EXPECT_EQ(grid.Text(1, 1), "1,230,000");
    EXPECT_EQ(grid.Text(1, 2), "100");
    EXPECT_EQ(grid.Text(1, 3), "1,200,000");
    EXPECT_EQ(grid.Text(2, 0), "Barn");
    EXPECT_EQ(grid.Text(2, 1), "0");
    EXPECT_EQ(grid.RowObject<ItemPointer>(1), g36ThreatenedItems::GetThreatenedItem(101));
    EXPECT_EQ(grid.RowObject<ItemPointer>(2), g36ThreatenedItems::GetThreatenedItem(102));
    EXPECT_EQ(grid.RowObject<ItemPointer>(0), nullptr);
}

TEST_F(ThreatenedItems, FillGrid_OfOneColumn_KeepsTheNameOnly)
{
    OpenNew(Item(101, "Bridge"));
    platform::GridContents grid;
    grid.SetCols(1);
    grid.SetRows(1);
    g36ThreatenedItems::FillThreatenedItemGrid(grid);
    ASSERT_EQ(grid.Rows(), 2);
    EXPECT_EQ(grid.Cols(), 1);
    EXPECT_EQ(grid.Text(1, 0), "Bridge");
}

TEST_F(ThreatenedItems, NewThreatenedItem_AddsItsRowOfItemsOnly)
{
    OpenNew(Item(101, "Bridge"));
    const ItemPointer item = g36ThreatenedItems::NewThreatenedItem("Barn");
    EXPECT_EQ(item->ItemName(), "Barn");
    EXPECT_EQ(item->Probability(), 100);
    EXPECT_EQ(g36ThreatenedItems::GetThreatenedItem(item->ItemKey()), item);
    ASSERT_EQ(g36ThreatenedItems::ThreatenedItemCollection().Count(), 2);
    EXPECT_EQ(g36ThreatenedItems::ThreatenedItemCollection().At(2), item);
    EXPECT_EQ(Query("SELECT ItemName, ChildIndex FROM Items WHERE ParentKey = 23 ORDER BY ItemKey"),
              (support::Rows{{"Bridge", "101"}, {"Barn", "2"}}));
    EXPECT_EQ(Query("SELECT count(*) FROM ValuesAtRisk"), (support::Rows{{"0"}}));
}

TEST_F(ThreatenedItems, NewThreatenedItem_AsTheFirstUseOfTheStore_HoldsItOnce)
{
    OpenNew();
    g36ThreatenedItems::NewThreatenedItem("");
    g36ThreatenedItems::NewThreatenedItem("");
    EXPECT_EQ(g36ThreatenedItems::ThreatenedItemCollection().Count(), 2);
}

TEST_F(ThreatenedItems, NewThreatenedItem_KeyIsTaken_FailsAndTheNextOneSucceeds)
{
    OpenNew();
    const std::string taken = Text(g0Items::LastItemKey() + 1);
    OpenNew("INSERT INTO Items (ItemKey) VALUES (" + taken + ");"); // the store goes on from the first file
    EXPECT_THROW(g36ThreatenedItems::NewThreatenedItem("Barn"), platform::DatabaseError);
    EXPECT_TRUE(g36ThreatenedItems::ThreatenedItemCollection().IsEmpty());
    EXPECT_EQ(g36ThreatenedItems::NewThreatenedItem("Barn")->ItemName(), "Barn");
    EXPECT_EQ(g36ThreatenedItems::ThreatenedItemCollection().Count(), 1);
}

TEST_F(ThreatenedItems, Delete_TakesItemAndImpactsAndLeavesTheValueAtRisk)
{
    OpenNew(Item(101, "Bridge") + Item(102, "Barn") + AtRisk(101, "1000") + AtRisk(102, "1000") +
            Impact(1, 101, "5") + Impact(2, 101, "5") + Impact(1, 102, "5") + Protection(1, 101, 50));
    g36ThreatenedItems::DeleteThreatenedItem(101);
    EXPECT_EQ(g36ThreatenedItems::ThreatenedItemCollection().Count(), 1);
    EXPECT_THROW(g36ThreatenedItems::GetThreatenedItem(101), platform::MissingMember);
    EXPECT_EQ(Query("SELECT ItemKey FROM Items WHERE ParentKey = 23"), (support::Rows{{"102"}}));
    EXPECT_EQ(Query("SELECT OutcomeKey, ItemKey FROM ItemImpacts"), (support::Rows{{"1", "102"}}));
    EXPECT_EQ(Query("SELECT ItemKey FROM ValuesAtRisk"), (support::Rows{{"101"}, {"102"}}));
    EXPECT_EQ(Query("SELECT ItemKey FROM ValuesProtected"), (support::Rows{{"101"}}));
}

TEST_F(ThreatenedItems, Delete_UnknownKey_FailsAndDeletesNoItem)
{
    OpenNew(Item(101, "Bridge"));
    EXPECT_THROW(g36ThreatenedItems::DeleteThreatenedItem(102), platform::DatabaseError);
    EXPECT_EQ(g36ThreatenedItems::ThreatenedItemCollection().Count(), 1);
}

TEST_F(ThreatenedItems, DeletedItem_LivesWithItsLastHolder)
{
    OpenNew(Item(101, "Bridge"));
    const ItemPointer held = g36ThreatenedItems::GetThreatenedItem(101);
    g36ThreatenedItems::DeleteThreatenedItem(101);
    EXPECT_EQ(held->ItemName(), "Bridge");
}

TEST_F(ThreatenedItems, ReleaseThreatenedItems_NextUseReadsTheFileAgain)
{
    OpenNew(Item(101, "Bridge"));
    const ItemPointer first = g36ThreatenedItems::GetThreatenedItem(101);
    first->SetItemName("unsaved");
    g36ThreatenedItems::ReleaseThreatenedItems();
    EXPECT_EQ(g36ThreatenedItems::GetThreatenedItem(101)->ItemName(), "Bridge");
    OpenNew();
    EXPECT_TRUE(g36ThreatenedItems::ThreatenedItemCollection().IsEmpty());
}

} // namespace
