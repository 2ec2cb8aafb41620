#include "platform/base/Errors.h"
#include "platform/data/DatabaseError.h"
#include "support/TestSession.h"
#include "values/ValueRows.h"
#include "values/g38SRTypes.h"

#include <gtest/gtest.h>

namespace {

using namespace value_rows;

const std::string kNoTypes = "DELETE FROM SRTypes;";

class SRTypes : public support::TestSession
{};

TEST_F(SRTypes, Types_StandInListOrderAndTiesByKey)
{
    OpenNew(kNoTypes + Type(5, 2, "time", "10") + Type(4, 3, "item", "20.25") + Type(7, 1, "time", "30") +
            Type(6, 2, "time", "40"));
    const auto& types = g38SRTypes::SRTypeCollection();
    ASSERT_EQ(types.Count(), 4);
    EXPECT_EQ(types.At(1)->ItemKey(), 7);
    EXPECT_EQ(types.At(2)->ItemKey(), 5);
    EXPECT_EQ(types.At(3)->ItemKey(), 6);
    EXPECT_EQ(types.At(4)->ItemKey(), 4);
    const auto item = g38SRTypes::GetSRType(4);
    EXPECT_EQ(item->Index(), 3);
    EXPECT_EQ(item->LongName(), "Long 4");
    EXPECT_EQ(item->ShortName(), "Short 4");
    EXPECT_EQ(item->UnitType(), "item");
    EXPECT_EQ(item->UnitName(), "units");
    EXPECT_EQ(item->UnitCost(), 20.25F);
}

TEST_F(SRTypes, NullColumns_ReadEmpty)
{
    OpenNew(kNoTypes + "INSERT INTO SRTypes (ItemKey) VALUES (3);");
    EXPECT_EQ(g38SRTypes::GetSRType(3)->UnitType(), "");
    EXPECT_EQ(g38SRTypes::GetSRType(3)->UnitCost(), 0.0F);
}

TEST_F(SRTypes, UnknownKey_IsAMissingMember)
{
    OpenNew();
    EXPECT_THROW(g38SRTypes::GetSRType(0), platform::MissingMember);
}

TEST_F(SRTypes, CostBeyondCurrency_FailsTheLoad)
{
    OpenNew(Type(90, 90, "time", "1e30"));
    EXPECT_THROW(g38SRTypes::GetSRType(1), platform::DatabaseError);
}

TEST_F(SRTypes, AddItem_FillsTheListAnew)
{
    OpenNew(kNoTypes + Type(5, 2, "time", "10") + Type(7, 1, "time", "30"));
    platform::ListContents list;
    list.AddItem("old");
    g38SRTypes::AddItem(list);
    ASSERT_EQ(list.ListCount(), 2);
    EXPECT_EQ(list.Rows()[0].text, "Long 7");
    EXPECT_EQ(list.ItemData(0), 7);
    EXPECT_EQ(list.Rows()[1].text, "Long 5");
    EXPECT_EQ(list.ItemData(1), 5);
}

TEST_F(SRTypes, AddItem_NoTypes_EmptiesTheList)
{
    OpenNew(kNoTypes);
    platform::ListContents list;
    list.AddItem("old");
    g38SRTypes::AddItem(list);
    EXPECT_EQ(list.ListCount(), 0);
}

TEST_F(SRTypes, ReleaseSRTypes_NextUseReadsTheFileAgain)
{
    OpenNew(kNoTypes + Type(5, 2, "time", "10"));
    const auto held = g38SRTypes::GetSRType(5);
    held->SetLongName("unsaved");
    g38SRTypes::ReleaseSRTypes();
    EXPECT_EQ(g38SRTypes::GetSRType(5)->LongName(), "Long 5");
    EXPECT_EQ(held->LongName(), "unsaved"); // lives with its last holder
}

TEST_F(SRTypes, SaveChanges_WritesAllButTheUnitType)
{
    OpenNew(kNoTypes + Type(5, 2, "time", "10"));
    c38SRType type;
    type.Initialize(5, 2, "Long", "Short", "item", "units", 10);
    type.SetIndex(9);
    type.SetLongName("Engines");
    type.SetShortName("Eng");
    type.SetUnitName("days");
    type.SetUnitCost(12.5F);
    type.SaveChanges();
    EXPECT_EQ(Query("SELECT * FROM SRTypes"),
              (support::Rows{{"5", "NULL", "9", "Engines", "Eng", "time", "days", "12.5"}}));
}

TEST_F(SRTypes, SaveChanges_CostIsStoredAsCurrency)
{
    OpenNew(kNoTypes + Type(5, 2, "time", "10"));
    const auto type = g38SRTypes::GetSRType(5);
    type->SetUnitCost(0.1F);
    type->SaveChanges();
    EXPECT_EQ(Query("SELECT UnitCost FROM SRTypes"), (support::Rows{{"0.1"}}));
}

TEST_F(SRTypes, SaveChanges_NothingChanged_WritesNothing)
{
    OpenNew();
    c38SRType type;
    type.Initialize(999, 1, "", "", "", "", 0); // no such row: a write would fail
    EXPECT_NO_THROW(type.SaveChanges());
    type.SetIndex(1);
    EXPECT_THROW(type.SaveChanges(), platform::DatabaseError);
}

} // namespace
