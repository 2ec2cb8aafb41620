#include "platform/base/Errors.h"
#include "platform/data/DatabaseError.h"
#include "support/TestSession.h"
#include "values/ValueRows.h"
#include "values/c67SRUseList.h"
#include "values/g38SRTypes.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using namespace value_rows;

/// Types 1 by time and 2 by item, at $100.
const std::string kTypes = "DELETE FROM SRTypes;" + Type(1, 1, "time", "100") + Type(2, 2, "item", "100");

class SRUseList : public support::TestSession
{
protected:
    c67SRUseList List(Long outcomeKey = 9)
    {
        c67SRUseList list;
        list.Initialize(outcomeKey);
        return list;
    }
    std::vector<Long> IndexesOf(const c67SRUseList& list)
    {
        std::vector<Long> indexes;
        for (const auto& use : list.SRUseCollection()) {
            indexes.push_back(use->ItemIndex());
        }
        return indexes;
    }
};

TEST_F(SRUseList, EmptyList_CostsNothing)
{
    OpenNew(Use(1, 8, 1, 1, 5, 5));
    EXPECT_EQ(List().SRUseCost(), 0.0F);
    EXPECT_EQ(List().SRUseCount(), 0);
}

TEST_F(SRUseList, Lines_StandInLineOrderAndTiesByKey)
{
    OpenNew(kTypes + Use(11, 9, 2, 1, 1, 1) + Use(12, 9, 1, 2, 3, 4) + Use(10, 9, 2, 2, 5, 6) +
            "INSERT INTO SRUses VALUES (13, 9, NULL, 1, NULL, NULL);");
    const c67SRUseList list = List();
    ASSERT_EQ(list.SRUseCount(), 4);
    EXPECT_EQ(list.SRUseCollection().At(1)->ItemKey(), 13);
    EXPECT_EQ(list.SRUseCollection().At(1)->Quantity(), 0);
    EXPECT_EQ(list.SRUseCollection().At(2)->ItemKey(), 12);
    EXPECT_EQ(list.SRUseCollection().At(3)->ItemKey(), 10);
    EXPECT_EQ(list.SRUseCollection().At(4)->ItemKey(), 11);
    const auto use = list.SRUseCollection().Member(12);
    EXPECT_EQ(use->Quantity(), 3);
    EXPECT_EQ(use->TimePeriods(), 4);
    EXPECT_EQ(use->SRType(), g38SRTypes::GetSRType(2));
}

TEST_F(SRUseList, LineWithoutAType_FailsTheLoad)
{
    OpenNew(kTypes + Use(10, 9, 1, 77, 1, 1));
    EXPECT_THROW(List(), platform::MissingMember);
}

TEST_F(SRUseList, QuantityBeyond32Bits_FailsTheLoad)
{
    OpenNew(kTypes + "INSERT INTO SRUses VALUES (10, 9, 1, 1, 5000000000, 1);");
    EXPECT_THROW(List(), platform::DatabaseError);
}

TEST_F(SRUseList, SRUseCost_CountsPeriodsForTimeTypesOnly)
{
    OpenNew(kTypes + Use(10, 9, 1, 1, 2, 3) + Use(11, 9, 2, 2, 2, 3));
    const c67SRUseList list = List();
    EXPECT_EQ(list.SRUseCollection().Member(10)->UseCost(), 600.0F);
    EXPECT_EQ(list.SRUseCollection().Member(11)->UseCost(), 200.0F);
    EXPECT_EQ(list.SRUseCost(), 800.0F);
}

TEST_F(SRUseList, SRUseCost_AddsInSinglesInLineOrder)
{
    const std::string types =
        "DELETE FROM SRTypes;" + Type(1, 1, "item", "1") + Type(2, 2, "item", "16777216");
    OpenNew(types + Use(10, 9, 1, 2, 1, 1) + Use(11, 9, 2, 1, 1, 1) + Use(12, 9, 3, 1, 1, 1));
    EXPECT_EQ(List().SRUseCost(), 16777216.0F); // each 1 behind it is lost
    OpenNew(types + Use(10, 9, 3, 2, 1, 1) + Use(11, 9, 1, 1, 1, 1) + Use(12, 9, 2, 1, 1, 1));
    EXPECT_EQ(List().SRUseCost(), 16777218.0F);
}

TEST_F(SRUseList, SRUseCost_OverflowOfALine_FailsTheSum)
{
    OpenNew(kTypes + Use(10, 9, 1, 1, 100000, 100000));
    EXPECT_THROW(List().SRUseCost(), platform::Overflow);
    OpenNew(kTypes + Use(10, 9, 1, 2, 100000, 100000));
    EXPECT_EQ(List().SRUseCost(), 1e7F); // an item's periods are not multiplied
}

TEST_F(SRUseList, NewSRUse_AddsALineOfOneAtTheEnd)
{
    OpenNew(kTypes + Use(40, 9, 1, 1, 2, 3) + Use(50, 8, 1, 1, 2, 3));
    c67SRUseList list = List();
    const auto use = list.NewSRUse(2);
    EXPECT_EQ(use->ItemKey(), 51);
    EXPECT_EQ(use->ItemIndex(), 2);
    EXPECT_EQ(use->Quantity(), 1);
    EXPECT_EQ(use->TimePeriods(), 1);
    EXPECT_EQ(use->SRType()->ItemKey(), 2);
    EXPECT_EQ(list.SRUseCount(), 2);
    EXPECT_EQ(list.SRUseCollection().At(2), use);
    EXPECT_EQ(Query("SELECT * FROM SRUses WHERE ItemKey = 51"),
              (support::Rows{{"51", "9", "2", "2", "1", "1"}}));
}

TEST_F(SRUseList, NewSRUse_UnknownType_FailsBehindItsRow)
{
    OpenNew(kTypes);
    c67SRUseList list = List();
    EXPECT_THROW(list.NewSRUse(77), platform::MissingMember);
    EXPECT_EQ(list.SRUseCount(), 0);
}

TEST_F(SRUseList, DeleteLineOneOfThreeAndAddOne_SharesAnIndex)
{
    OpenNew(kTypes + Use(10, 9, 1, 1, 1, 1) + Use(11, 9, 2, 1, 1, 1) + Use(12, 9, 3, 1, 1, 1));
    c67SRUseList list = List();
    list.DeleteSRUse(10);
    list.NewSRUse(1);
    EXPECT_EQ(IndexesOf(list), (std::vector<Long>{2, 3, 3}));
    EXPECT_EQ(Query("SELECT ItemIndex FROM SRUses ORDER BY ItemKey"), (support::Rows{{"2"}, {"3"}, {"3"}}));
}

TEST_F(SRUseList, DeleteSRUse_UnknownLine_Fails)
{
    OpenNew(kTypes + Use(10, 9, 1, 1, 1, 1));
    c67SRUseList list = List();
    EXPECT_THROW(list.DeleteSRUse(99), platform::DatabaseError);
    EXPECT_EQ(list.SRUseCount(), 1);
}

TEST_F(SRUseList, AppendList_CopiesTheOthersLinesBehindTheOwn)
{
    OpenNew(kTypes + Use(10, 9, 1, 1, 1, 1) + Use(11, 8, 2, 2, 7, 8) + Use(12, 8, 1, 1, 5, 6));
    c67SRUseList list = List(9);
    list.AppendList(List(8));
    EXPECT_EQ(list.SRUseCount(), 3);
    EXPECT_EQ(
        Query("SELECT ItemKey, ItemIndex, SRTypeKey, Quantity, Periods FROM SRUses WHERE OutcomeKey = 9"),
        (support::Rows{{"10", "1", "1", "1", "1"}, {"13", "2", "1", "5", "6"}, {"14", "3", "2", "7", "8"}}));
    EXPECT_EQ(Query("SELECT count(*) FROM SRUses WHERE OutcomeKey = 8"), (support::Rows{{"2"}}));
}

TEST_F(SRUseList, AppendList_OntoItself_DoublesTheList)
{
    OpenNew(kTypes + Use(10, 9, 1, 1, 2, 3) + Use(11, 9, 2, 2, 4, 5));
    c67SRUseList list = List();
    list.AppendList(list);
    EXPECT_EQ(list.SRUseCount(), 4);
    EXPECT_EQ(list.SRUseCost(), 2000.0F);
    EXPECT_EQ(IndexesOf(list), (std::vector<Long>{1, 2, 3, 4}));
}

TEST_F(SRUseList, AppendList_Empty_AddsNothing)
{
    OpenNew(kTypes + Use(10, 9, 1, 1, 2, 3));
    c67SRUseList list = List(9);
    list.AppendList(List(8));
    EXPECT_EQ(list.SRUseCount(), 1);
}

TEST_F(SRUseList, ReplaceList_DropsTheOwnLinesFirst)
{
    OpenNew(kTypes + Use(10, 9, 1, 1, 1, 1) + Use(11, 9, 2, 1, 1, 1) + Use(12, 8, 1, 2, 5, 6));
    c67SRUseList list = List(9);
    list.ReplaceList(List(8));
    EXPECT_EQ(IndexesOf(list), (std::vector<Long>{1}));
    EXPECT_EQ(
        Query("SELECT ItemKey, ItemIndex, SRTypeKey, Quantity, Periods FROM SRUses WHERE OutcomeKey = 9"),
        (support::Rows{{"13", "1", "2", "5", "6"}}));
}

TEST_F(SRUseList, ReplaceList_ByItself_EmptiesIt)
{
    OpenNew(kTypes + Use(10, 9, 1, 1, 1, 1));
    c67SRUseList list = List();
    list.ReplaceList(list);
    EXPECT_EQ(list.SRUseCount(), 0);
    EXPECT_EQ(Query("SELECT count(*) FROM SRUses"), (support::Rows{{"0"}}));
}

TEST_F(SRUseList, Initialize_Again_ReadsTheFileAnew)
{
    OpenNew(kTypes + Use(10, 9, 1, 1, 1, 1));
    c67SRUseList list = List();
    list.SRUseCollection().At(1)->SetQuantity(50); // unsaved
    list.Initialize(9);
    ASSERT_EQ(list.SRUseCount(), 1);
    EXPECT_EQ(list.SRUseCost(), 100.0F);
}

} // namespace
