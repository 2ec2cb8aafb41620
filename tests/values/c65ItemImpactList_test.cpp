#include "platform/base/Errors.h"
#include "platform/data/DatabaseError.h"
#include "support/TestSession.h"
#include "values/ValueRows.h"
#include "values/c65ItemImpactList.h"
#include "values/g36ThreatenedItems.h"

#include <gtest/gtest.h>

namespace {

using namespace value_rows;

class ItemImpactList : public support::TestSession
{
protected:
    c65ItemImpactList List(Long outcomeKey = 9, Edition edition = kEdition)
    {
        c65ItemImpactList list(edition);
        list.Initialize(outcomeKey);
        return list;
    }
};

const std::string kThreeItems = Item(101, "Bridge") + Item(102, "Barn") + Item(103, "Fence");

TEST_F(ItemImpactList, NoRows_IsZeroForEachItem)
{
    OpenNew(kThreeItems);
    const c65ItemImpactList list = List();
    EXPECT_EQ(list.ImpactOnAllItems(), 0.0F);
    EXPECT_EQ(list.SingleItemImpact(101), 0.0F);
    EXPECT_EQ(list.SingleItemImpact(103), 0.0F);
    EXPECT_EQ(list.TotalProtected(), 0.0);
    EXPECT_EQ(list.SingleItemProtection(102), 0.0);
}

TEST_F(ItemImpactList, NoItems_SumsToZero)
{
    OpenNew(Impact(9, 101, "500"));
    const c65ItemImpactList list = List();
    EXPECT_EQ(list.ImpactOnAllItems(), 0.0F);
    EXPECT_THROW(list.SingleItemImpact(101), platform::MissingMember);
}

TEST_F(ItemImpactList, Rows_GiveEachItemItsAmount)
{
    OpenNew(kThreeItems + Impact(9, 103, "30") + Impact(9, 101, "-10.5") + Impact(8, 102, "999"));
    const c65ItemImpactList list = List();
    EXPECT_EQ(list.SingleItemImpact(101), -10.5F);
    EXPECT_EQ(list.SingleItemImpact(102), 0.0F);
    EXPECT_EQ(list.SingleItemImpact(103), 30.0F);
    EXPECT_EQ(list.ImpactOnAllItems(), 19.5F);
}

TEST_F(ItemImpactList, AmountInTheList_IsThatOfTheImpactLoadedAlone)
{
    OpenNew(kThreeItems + Impact(9, 101, "1234.56785") + Impact(9, 102, "'7 dollars'") +
            Impact(9, 103, "NULL"));
    const c65ItemImpactList list = List();
    for (const Long key : {101, 102, 103}) {
        c66ItemImpact alone;
        alone.Initialize(9, key);
        EXPECT_EQ(list.SingleItemImpact(key), platform::ToSingle(alone.Amount())) << key;
    }
    EXPECT_EQ(list.SingleItemImpact(102), 7.0F);
}

TEST_F(ItemImpactList, BadCell_FailsOnlyForAnItemThatIsThere)
{
    OpenNew(kThreeItems + Impact(9, 101, "5") + Impact(9, 777, "1e39") + Impact(8, 102, "1e39"));
    EXPECT_EQ(List().ImpactOnAllItems(), 5.0F);
    OpenNew(kThreeItems + Impact(9, 102, "1e39"));
    EXPECT_THROW(List(), platform::DatabaseError);
}

TEST_F(ItemImpactList, RowsWhoseKeyIsNoItem_CountNowhere)
{
    OpenNew(kThreeItems + "INSERT INTO ItemImpacts VALUES (9,'bridge',5),(9,99999999999,6),(9,101.5,7);");
    EXPECT_EQ(List().ImpactOnAllItems(), 0.0F);
}

TEST_F(ItemImpactList, ItemCreatedLater_IsAMissingMemberUntilTheListIsRebuilt)
{
    OpenNew(Item(101, "Bridge"));
    c65ItemImpactList list = List();
    const Long key = g36ThreatenedItems::NewThreatenedItem("Barn")->ItemKey();
    EXPECT_THROW(list.SingleItemImpact(key), platform::MissingMember);
    EXPECT_THROW(list.SingleItemProtection(key), platform::MissingMember);
    list.Initialize(9);
    EXPECT_EQ(list.SingleItemImpact(key), 0.0F);
}

TEST_F(ItemImpactList, ImpactSavedElsewhere_ShowsWhenTheListIsRebuilt)
{
    OpenNew(Item(101, "Bridge"));
    c65ItemImpactList list = List();
    c66ItemImpact edited;
    edited.Initialize(9, 101);
    edited.SetAmount(platform::Currency::FromTenThousandths(50000));
    edited.SaveChanges();
    EXPECT_EQ(list.ImpactOnAllItems(), 0.0F);
    list.Initialize(9);
    EXPECT_EQ(list.ImpactOnAllItems(), 5.0F);
}

TEST_F(ItemImpactList, ItemDeletedLater_FailsItsProtectionOnly)
{
    OpenNew(Item(101, "Bridge") + Impact(9, 101, "5"));
    const c65ItemImpactList list = List();
    g36ThreatenedItems::DeleteThreatenedItem(101);
    EXPECT_EQ(list.ImpactOnAllItems(), 5.0F);
    EXPECT_THROW(list.SingleItemProtection(101), platform::MissingMember);
    EXPECT_THROW(list.TotalProtected(), platform::MissingMember);
}

TEST_F(ItemImpactList, ImpactOnAllItems_EachStepRoundsToFourDecimalsThenToASingle)
{
    // Plain singles would end at 1646.8739, the exact sum rounded once at 1646.8738.
    OpenNew(kThreeItems + Item(104, "Mill") + Impact(9, 101, "605.38") + Impact(9, 102, "320.5824") +
            Impact(9, 103, "719.2387") + Impact(9, 104, "1.6727"));
    EXPECT_EQ(List().ImpactOnAllItems(), 1646.8736572265625F);
}

TEST_F(ItemImpactList, ImpactOnAllItems_SmallLossesBehindALargeOneAreLost)
{
    OpenNew(kThreeItems + Impact(9, 101, "16777216") + Impact(9, 102, "1") + Impact(9, 103, "1"));
    EXPECT_EQ(List().ImpactOnAllItems(), 16777216.0F);
}

TEST_F(ItemImpactList, ImpactOnAllItems_BeyondCurrency_IsAnOverflow)
{
    OpenNew(kThreeItems + Impact(9, 101, "900000000000000") + Impact(9, 102, "900000000000000"));
    const c65ItemImpactList list = List();
    EXPECT_EQ(list.SingleItemImpact(101), 9e14F);
    EXPECT_THROW(list.ImpactOnAllItems(), platform::Overflow);
}

TEST_F(ItemImpactList, Editions_TotalProtectedComesFromLevelsOrFromTheLosses)
{
    OpenNew(kThreeItems + AtRisk(101, "1000") + AtRisk(102, "2000") + Impact(9, 101, "400") +
            Impact(9, 102, "2500") + Protection(9, 101, 75) + Protection(9, 102, 25));
    EXPECT_EQ(List(9, Edition::Basic).TotalProtected(), 0.0);
    EXPECT_EQ(List(9, Edition::Standard).TotalProtected(),
              600.0); // 3000 less 400 and 2000, its value at risk
    EXPECT_EQ(List(9, Edition::Advanced).TotalProtected(), 1250.0);
    EXPECT_EQ(List(9, Edition::Basic).ImpactOnAllItems(), 2900.0F);
    EXPECT_EQ(List(9, Edition::Advanced).ImpactOnAllItems(), 0.0F);
    EXPECT_EQ(List(9, Edition::Advanced).SingleItemProtection(102), 500.0);
}

TEST_F(ItemImpactList, TotalProtected_AddsInSingles)
{
    OpenNew(kThreeItems + AtRisk(101, "17000000") + AtRisk(102, "1") + AtRisk(103, "1") +
            Protection(9, 101, 100) + Protection(9, 102, 100) + Protection(9, 103, 100));
    EXPECT_EQ(List(9, Edition::Advanced).TotalProtected(), 17000000.0); // in doubles 17000002
}

} // namespace
