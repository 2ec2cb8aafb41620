#include "platform/base/Errors.h"
#include "platform/data/DatabaseError.h"
#include "session/u14Properties.h"
#include "support/TestSession.h"
#include "values/ValueRows.h"
#include "values/g33FMUs.h"

#include <gtest/gtest.h>

namespace {

using namespace value_rows;

class FMUs : public support::TestSession
{};

TEST_F(FMUs, NoLandUnits_DefaultTablesStandInForEveryKey)
{
    OpenNew(Nvc(0, 1, "-1,0,0,0,0,0") + SizeClass(0, 1, "0,25"));
    EXPECT_EQ(g33FMUs::FMUCount(), 0);
    EXPECT_TRUE(g33FMUs::FMUCollection().IsEmpty());
    EXPECT_EQ(&g33FMUs::GetNVCTable(0), &g33FMUs::GetNVCTable(99));
    EXPECT_EQ(&g33FMUs::GetAACTable(0), &g33FMUs::GetAACTable(-7));
    EXPECT_EQ(g33FMUs::GetNVCTable(5).NVCCellValue(1, 1), -1.0F);
    EXPECT_EQ(g33FMUs::GetAACTable(5).Cost(1), 25.0F);
    EXPECT_THROW(g33FMUs::GetFMU(0), platform::MissingMember);
}

TEST_F(FMUs, LandUnits_StandInKeyOrderWithTheirOwnTables)
{
    OpenNew(LandUnit(7) + LandUnit(3) + Nvc(3, 2, "0,0,-9,0,0,0") + SizeClass(7, 1, "0,31"));
    ASSERT_EQ(g33FMUs::FMUCount(), 2);
    EXPECT_EQ(g33FMUs::FMUCollection().At(1).ItemKey(), 3);
    EXPECT_EQ(g33FMUs::FMUCollection().At(2).ItemKey(), 7);
    EXPECT_EQ(g33FMUs::GetFMU(7).ItemName(), "Unit 7");
    EXPECT_EQ(&g33FMUs::GetNVCTable(3), &g33FMUs::GetFMU(3).NVCTable());
    EXPECT_EQ(g33FMUs::GetNVCTable(3).NVCCellValue(2, 3), -9.0F);
    EXPECT_EQ(g33FMUs::GetNVCTable(7).NVCCellValue(2, 3), 0.0F);
    EXPECT_EQ(g33FMUs::GetAACTable(7).Cost(1), 31.0F);
}

TEST_F(FMUs, LandUnitsButNoneWithKeyZero_DefaultTableIsAMissingMember)
{
    OpenNew(LandUnit(3));
    EXPECT_THROW(g33FMUs::GetAACTable(0), platform::MissingMember);
    EXPECT_THROW(g33FMUs::GetNVCTable(0), platform::MissingMember);
}

TEST_F(FMUs, BadKeyInTheList_FailsEveryUse)
{
    OpenNew("INSERT INTO FMZList VALUES (9999999999,'C','Far');");
    EXPECT_THROW(g33FMUs::FMUCount(), platform::DatabaseError);
    EXPECT_THROW(g33FMUs::FMUCollection(), platform::DatabaseError); // nothing half loaded was kept
}

TEST_F(FMUs, NullTextsInTheList_ReadEmpty)
{
    OpenNew("INSERT INTO FMZList VALUES (4,NULL,NULL);");
    EXPECT_EQ(g33FMUs::GetFMU(4).ItemName(), "");
}

TEST_F(FMUs, TableOfZeros_HasNoResourceValues)
{
    OpenNew();
    EXPECT_TRUE(g33FMUs::bNoResourceValues());
    EXPECT_FALSE(g33FMUs::bResourceValueAnywhere(1));
}

TEST_F(FMUs, DefaultTableWithALoss_HasResourceValues)
{
    OpenNew(Nvc(0, 14, "0,0,0,0,0,-1"));
    EXPECT_FALSE(g33FMUs::bNoResourceValues());
    EXPECT_TRUE(g33FMUs::bResourceValueAnywhere(14));
    EXPECT_FALSE(g33FMUs::bResourceValueAnywhere(13));
    EXPECT_THROW(g33FMUs::bResourceValueAnywhere(15), platform::OutOfBounds);
}

TEST_F(FMUs, GainAlone_CountsOnlyWithGainsSwitchedOn)
{
    OpenNew(Nvc(0, 2, "0,0,0,5,0,0"));
    EXPECT_TRUE(g33FMUs::bNoResourceValues());
    u14Properties::Property_Set("UseNVCGains", "Yes");
    EXPECT_FALSE(g33FMUs::bNoResourceValues());
}

TEST_F(FMUs, OneLandUnitWithAValue_IsEnough)
{
    OpenNew(LandUnit(1) + LandUnit(2) + LandUnit(3) + Nvc(2, 4, "0,-1,0,0,0,0") + Nvc(0, 5, "-1,0,0,0,0,0"));
    EXPECT_TRUE(g33FMUs::bResourceValueAnywhere(4));
    EXPECT_FALSE(g33FMUs::bResourceValueAnywhere(5)); // the table under key 0 is no land unit's
    EXPECT_FALSE(g33FMUs::bNoResourceValues());
}

TEST_F(FMUs, ReleaseFMUs_NextUseReadsTheFileAgain)
{
    OpenNew(LandUnit(3));
    EXPECT_EQ(g33FMUs::FMUCount(), 1);
    OpenNew(Nvc(0, 1, "-4,0,0,0,0,0")); // closing the file releases the stores
    EXPECT_EQ(g33FMUs::FMUCount(), 0);
    g33FMUs::GetNVCTable(0).SetNVCCellValue(1, 1, -99); // unsaved, so it goes with the table
    g33FMUs::GetAACTable(0).SetCost(1, 77);
    g33FMUs::ReleaseFMUs();
    EXPECT_EQ(g33FMUs::GetNVCTable(0).NVCCellValue(1, 1), -4.0F);
    EXPECT_EQ(g33FMUs::GetAACTable(0).Cost(1), 0.0F);
}

TEST_F(FMUs, UnsavedWrites_AreSeenThroughTheSharedDefaultTable)
{
    OpenNew();
    g33FMUs::GetAACTable(0).SetCost(1, 40);
    EXPECT_EQ(g33FMUs::GetAACTable(12).CostForSize(10), 40.0F);
}

TEST_F(FMUs, Delete_TakesRowAndAllRowsUnderItsKey)
{
    OpenNew(LandUnit(3) + LandUnit(4) + Area(1, 3, "1,1,1,1,1,1,1") + Area(1, 4, "2,1,1,1,1,1,1") +
            Area(2, 3, "1,1,1,1,1,1,1"));
    g33FMUs::GetFMU(3).Delete();
    EXPECT_EQ(g33FMUs::FMUCount(), 2); // the store is not touched
    EXPECT_EQ(Query("SELECT \"Key\" FROM FMZList"), (support::Rows{{"4"}}));
    EXPECT_EQ(Query("SELECT OutcomeKey, FMZKey FROM OutcomeFMZs"), (support::Rows{{"1", "0"}, {"1", "4"}}));
    EXPECT_EQ(Query("SELECT FMZKey, count(*) FROM NVCPerAcre GROUP BY 1"),
              (support::Rows{{"0", "14"}, {"4", "14"}}));
    EXPECT_EQ(Query("SELECT FMZKey, count(*) FROM SuppressionPerAcreCost GROUP BY 1"),
              (support::Rows{{"0", "9"}, {"4", "9"}}));
}

TEST_F(FMUs, Delete_RowGone_FailsAndLeavesTheRest)
{
    OpenNew(LandUnit(3));
    c33FMU unit;
    unit.Initialize(8, "C", "Nowhere");
    EXPECT_THROW(unit.Delete(), platform::DatabaseError);
    EXPECT_EQ(Query("SELECT count(*) FROM NVCPerAcre"), (support::Rows{{"28"}}));
}

TEST_F(FMUs, Delete_TablesWithoutRows_IsNoError)
{
    OpenNew(LandUnit(3) +
            "DELETE FROM OutcomeFMZs; DELETE FROM NVCPerAcre; DELETE FROM SuppressionPerAcreCost;");
    EXPECT_NO_THROW(g33FMUs::GetFMU(3).Delete());
    EXPECT_EQ(Query("SELECT count(*) FROM FMZList"), (support::Rows{{"0"}}));
}

} // namespace
