#include "platform/base/Errors.h"
#include "platform/data/DatabaseError.h"
#include "session/u14Properties.h"
#include "support/TestSession.h"
#include "values/ValueRows.h"
#include "values/c63BurnAreaList.h"
#include "values/g33FMUs.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using namespace value_rows;

class BurnAreaList : public support::TestSession
{
protected:
    c63BurnAreaList List(Long outcomeKey = 9)
    {
        c63BurnAreaList list;
        list.Initialize(outcomeKey);
        return list;
    }
    /// The list of outcome 9 in a file with land units 1 up of these portions, all at level 4.
    c63BurnAreaList ListOfPortions(const std::vector<int>& portions, const std::string& sql = {})
    {
        std::string all;
        for (std::size_t i = 0; i < portions.size(); ++i) {
            const int unit = static_cast<int>(i) + 1;
            all += LandUnit(unit) + Area(9, unit, Text(portions[i]) + ",0,0,0,1,0,0");
        }
        OpenNew(all + sql);
        return List();
    }
};

const std::string kGainsCount = "INSERT INTO Properties VALUES ('UseNVCGains','Yes');";

TEST_F(BurnAreaList, NoLandUnits_HasOneDefaultAreaOutsideTheCollection)
{
    OpenNew(Area(9, 0, "50,0,0,0,5,0,0"));
    c63BurnAreaList list = List();
    EXPECT_TRUE(list.BurnAreaCollection().IsEmpty());
    EXPECT_EQ(list.BurnArea(0).FMUKey(), 0);
    EXPECT_EQ(list.BurnArea(0).FILPercent(4), 100);
    EXPECT_THROW(list.BurnArea(3), platform::MissingMember);
    EXPECT_EQ(list.FMUPercent(1), 100);
    EXPECT_EQ(list.FMUPercent(-5), 100);
}

TEST_F(BurnAreaList, LandUnits_HaveAnAreaEachInTheirOrder)
{
    OpenNew(LandUnit(8) + LandUnit(2) + Area(9, 8, "30,1,0,0,0,0,0") + Area(9, 2, "70,0,1,0,0,0,0") +
            Area(9, 0, "50,0,0,0,5,0,0"));
    c63BurnAreaList list = List();
    ASSERT_EQ(list.BurnAreaCollection().Count(), 2);
    EXPECT_EQ(list.BurnAreaCollection().At(1).FMUKey(), 2);
    EXPECT_EQ(list.BurnArea(8).FMUPortion(), 30);
    EXPECT_EQ(list.BurnArea(2).FMUPortion(), 70);
    EXPECT_THROW(list.BurnArea(3), platform::MissingMember);
    EXPECT_THROW(list.BurnArea(0), platform::MissingMember);
}

TEST_F(BurnAreaList, LandUnitWithoutARow_HasAnAreaOfZeros)
{
    OpenNew(LandUnit(1) + LandUnit(2) + Area(9, 2, "70,0,1,0,0,0,0"));
    c63BurnAreaList list = List();
    EXPECT_EQ(list.BurnArea(1).FMUPortion(), 0);
    EXPECT_EQ(list.BurnArea(1).FILPercent(1), 16);
}

TEST_F(BurnAreaList, BadCell_FailsOnlyInARowOfALandUnit)
{
    OpenNew(LandUnit(1) + Area(9, 1, "70,0,1,0,0,0,0") + Area(9, 5, "9999999999,0,0,0,0,0,0") +
            Area(9, 0, "9999999999,0,0,0,0,0,0"));
    EXPECT_EQ(List().BurnArea(1).FMUPortion(), 70);
    OpenNew(LandUnit(1) + Area(9, 1, "70,0,9999999999,0,0,0,0"));
    EXPECT_THROW(List(), platform::DatabaseError);
}

TEST_F(BurnAreaList, RowWhoseKeyIsNoNumber_BelongsToNoLandUnit)
{
    OpenNew(LandUnit(0) + LandUnit(1) +
            "INSERT INTO OutcomeFMZs VALUES (9,'unit',88,0,0,0,0,0,0),(9,9999999999,77,0,0,0,0,0,0),"
            "(9,0.5,66,0,0,0,0,0,0);");
    c63BurnAreaList list = List();
    EXPECT_EQ(list.BurnAreaCollection().At(1).FMUPortion(), 0);
    EXPECT_EQ(list.BurnAreaCollection().At(2).FMUPortion(), 0);
}

TEST_F(BurnAreaList, KeyColumnHeldAsText_IsFoundAllTheSame)
{
    OpenNew(
        LandUnit(1) + Area(9, 1, "70,0,1,0,0,0,0") +
        "CREATE TABLE copy (OutcomeKey TEXT, FMZKey TEXT, Portion INTEGER, FIL1Portion INTEGER, FIL2Portion "
        "INTEGER, FIL3Portion INTEGER, FIL4Portion INTEGER, FIL5Portion INTEGER, FIL6Portion INTEGER, "
        "PRIMARY "
        "KEY (OutcomeKey, FMZKey)) WITHOUT ROWID; INSERT INTO copy SELECT * FROM OutcomeFMZs;"
        "DROP TABLE OutcomeFMZs; ALTER TABLE copy RENAME TO OutcomeFMZs;");
    c64BurnArea sought;
    sought.Initialize(9, 1);
    EXPECT_EQ(sought.FMUPortion(), 70);
    EXPECT_EQ(List().BurnArea(1).FMUPortion(), 70);
}

TEST_F(BurnAreaList, Initialize_AgainForAnotherOutcome_ForgetsTheFirst)
{
    OpenNew(LandUnit(1) + Area(9, 1, "70,0,1,0,0,0,0"));
    c63BurnAreaList list = List();
    list.Initialize(10);
    ASSERT_EQ(list.BurnAreaCollection().Count(), 1);
    EXPECT_EQ(list.BurnArea(1).FMUPortion(), 0);
}

TEST_F(BurnAreaList, FMUPercent_TruncatesEachShare)
{
    const c63BurnAreaList thirds = ListOfPortions({1, 1, 1});
    EXPECT_EQ(thirds.FMUPercent(1), 33);
    EXPECT_EQ(thirds.FMUPercent(2), 33);
    EXPECT_EQ(thirds.FMUPercent(3), 33);
    const c63BurnAreaList uneven = ListOfPortions({2, 1});
    EXPECT_EQ(uneven.FMUPercent(1), 66); // 66.67 would round to 67
    EXPECT_EQ(uneven.FMUPercent(2), 33);
}

TEST_F(BurnAreaList, FMUPercent_AllPortionsZero_SharesEquallyAndRounds)
{
    const auto shares = [this](std::size_t count) {
        return ListOfPortions(std::vector<int>(count, 0)).FMUPercent(1);
    };
    EXPECT_EQ(shares(2), 50);
    EXPECT_EQ(shares(3), 33);
    EXPECT_EQ(shares(4), 25);
    EXPECT_EQ(shares(6), 17); // 102 in all
    EXPECT_EQ(shares(8), 12); // 12.5 halves to even
}

TEST_F(BurnAreaList, FMUPercent_OneLandUnit_IsAllOfItWhateverThePortionAndPlace)
{
    for (const int portion : {0, 50, -3, 999999999}) {
        const c63BurnAreaList list = ListOfPortions({portion});
        EXPECT_EQ(list.FMUPercent(1), 100) << portion;
        EXPECT_EQ(list.FMUPercent(0), 100) << portion;
        EXPECT_EQ(list.FMUPercent(44), 100) << portion;
    }
}

TEST_F(BurnAreaList, FMUPercent_NegativeShare_TruncatesTowardsZero)
{
    const c63BurnAreaList list = ListOfPortions({-1, 4});
    EXPECT_EQ(list.FMUPercent(1), -33);
    EXPECT_EQ(list.FMUPercent(2), 133);
}

TEST_F(BurnAreaList, FMUPercent_PlaceOutside_IsABoundsError)
{
    const c63BurnAreaList list = ListOfPortions({1, 1});
    EXPECT_THROW(list.FMUPercent(0), platform::OutOfBounds);
    EXPECT_THROW(list.FMUPercent(3), platform::OutOfBounds);
}

TEST_F(BurnAreaList, FMUPercent_Beyond32Bits_IsAnOverflowForEveryPlace)
{
    EXPECT_THROW(ListOfPortions({2147483647, 1}).FMUPercent(2), platform::Overflow);
    EXPECT_THROW(ListOfPortions({21474837, 1}).FMUPercent(2), platform::Overflow);
    constexpr int kQuarter = 1 << 30; // four of them would wrap round to 0, and so to equal shares
    EXPECT_THROW(ListOfPortions({kQuarter, kQuarter, kQuarter, kQuarter}).FMUPercent(1), platform::Overflow);
    EXPECT_EQ(ListOfPortions({21474836, 1}).FMUPercent(1), 99);
}

TEST_F(BurnAreaList, AverageNVCPerAcre_NoLandUnits_WeighsLevelTotals)
{
    OpenNew(Area(9, 0, "50,1,1,0,2,0,0") + Nvc(0, 1, "-10,-20,-1000,-40,0,0") +
            Nvc(0, 2, "-1,500,0,-0.5,0,0"));
    // 25 % of -11, 25 % of -20 (the gain is off), 50 % of -40.5.
    EXPECT_EQ(List().AverageNVCPerAcre(), -28.0F);
    u14Properties::Property_Set("UseNVCGains", "Yes");
    EXPECT_EQ(List().AverageNVCPerAcre(), 97.0F);
}

TEST_F(BurnAreaList, AverageNVCPerAcre_TotalsAreRoundedBeforeWeighing)
{
    OpenNew(Area(9, 0, "50,1,1,0,0,0,0") + Nvc(0, 1, "-1234,-1236,0,0,0,0"));
    EXPECT_EQ(List().AverageNVCPerAcre(), -1235.0F); // 0.5 x 1230 + 0.5 x 1240, not rounded again
}

TEST_F(BurnAreaList, AverageNVCPerAcre_NoPortions_CountsSixteenPercentOfEachLevel)
{
    OpenNew(Nvc(0, 1, "-100,-100,-100,-100,-100,-100"));
    EXPECT_EQ(List().AverageNVCPerAcre(), -96.0F);
}

TEST_F(BurnAreaList, AverageNVCPerAcre_LandUnits_WeighsByTheirTruncatedShares)
{
    const c63BurnAreaList list = ListOfPortions(
        {1, 1, 1}, Nvc(1, 1, "0,0,0,-100,0,0") + Nvc(2, 1, "0,0,0,-100,0,0") + Nvc(3, 1, "0,0,0,-100,0,0"));
    EXPECT_EQ(list.AverageNVCPerAcre(), -99.0F);
}

TEST_F(BurnAreaList, ResourceNVCPerAcre_NoLandUnits_CountsGainsWhateverTheSwitchSays)
{
    OpenNew(Area(9, 0, "50,1,1,0,0,0,0") + Nvc(0, 3, "40,-10,0,0,0,0"));
    EXPECT_EQ(u14Properties::Property_GetOrAdd("UseNVCGains", "No"), "No");
    EXPECT_EQ(List().ResourceNVCPerAcre(3), 15.0F);
    EXPECT_EQ(List().AverageNVCPerAcre(), -5.0F);
}

TEST_F(BurnAreaList, ResourceNVCPerAcre_LandUnits_CountsGainsOnlyWhenSwitchedOn)
{
    OpenNew(LandUnit(1) + Area(9, 1, "50,1,1,0,0,0,0") + Nvc(1, 3, "40,-10,0,0,0,0"));
    EXPECT_EQ(List().ResourceNVCPerAcre(3), -5.0F);
    u14Properties::Property_Set("UseNVCGains", "Yes");
    EXPECT_EQ(List().ResourceNVCPerAcre(3), 15.0F);
}

TEST_F(BurnAreaList, ResourceNVCPerAcre_ResourceOutside_IsABoundsError)
{
    OpenNew();
    EXPECT_THROW(List().ResourceNVCPerAcre(0), platform::OutOfBounds);
    EXPECT_THROW(List().ResourceNVCPerAcre(15), platform::OutOfBounds);
}

TEST_F(BurnAreaList, Average_StepsRunAtHigherPrecisionUpToTheSingle)
{
    // Behind 16777216 the second term is 1 and some 1.6e-9, which only the higher precision sees:
    // in doubles the sum would fall back to 16777216.
    OpenNew(Area(9, 0, "50,50,9,41,0,0,0") + Nvc(0, 1, "33554432,11.11111068725586,0,0,0,0"));
    EXPECT_EQ(List().ResourceNVCPerAcre(1), 16777218.0F);
    OpenNew(LandUnit(1) + LandUnit(2) + Area(9, 1, "1,50,9,41,0,0,0") + Area(9, 2, "1,50,9,41,0,0,0") +
            Nvc(1, 1, "-67108864,-22.22222137451172,0,0,0,0"));
    EXPECT_EQ(List().ResourceNVCPerAcre(1), -16777218.0F);
}

TEST_F(BurnAreaList, Average_SumIsKeptAsASingleAfterEachStep)
{
    // Each 1 behind 16777216 is half a step and lost; together they would have counted.
    OpenNew(Area(9, 0, "50,50,25,25,0,0,0") + Nvc(0, 1, "-33554432,-4,-4,0,0,0"));
    EXPECT_EQ(List().ResourceNVCPerAcre(1), -16777216.0F);
}

TEST_F(BurnAreaList, Average_BeyondASingle_IsAnOverflow)
{
    OpenNew(Area(9, 0, "50,100,-50,50,0,0,0") + Nvc(0, 1, "-3e38,3e38,0,0,0,0"));
    EXPECT_THROW(List().ResourceNVCPerAcre(1), platform::Overflow);
}

TEST_F(BurnAreaList, Cost_NoLandUnits_IsTheRateOfTheSize)
{
    OpenNew(SizeClass(0, 1, "1000,10") + SizeClass(0, 2, "0,20.5"));
    const c63BurnAreaList list = List();
    EXPECT_EQ(list.CostPerAcre(1000), 10.0F);
    EXPECT_EQ(list.CostBySize(1000), 10000.0F);
    EXPECT_EQ(list.CostPerAcre(2000), 20.5F);
    EXPECT_EQ(list.CostBySize(2000), 41000.0F);
}

TEST_F(BurnAreaList, Cost_SizeZero_CostsNothingAtTheLowestRate)
{
    OpenNew(SizeClass(0, 1, "1000,10"));
    EXPECT_EQ(List().CostBySize(0), 0.0F);
    EXPECT_EQ(List().CostPerAcre(0), 10.0F);
    OpenNew(SizeClass(0, 1, "0,10"));
    EXPECT_EQ(List().CostPerAcre(0), 10.0F);
}

TEST_F(BurnAreaList, Cost_LandUnits_TakeTheRateOfTheWholeSize)
{
    // Each part is 500 acres, each rate that of 1000.
    const c63BurnAreaList list =
        ListOfPortions({1, 1}, SizeClass(1, 1, "600,10") + SizeClass(1, 2, "0,30") + SizeClass(2, 1, "0,4"));
    EXPECT_EQ(list.CostPerAcre(1000), 17.0F);
    EXPECT_EQ(list.CostBySize(1000), 17000.0F);
}

TEST_F(BurnAreaList, Cost_LandUnits_LeavesTheTruncatedPercentOut)
{
    const std::string rates = SizeClass(1, 1, "0,100") + SizeClass(2, 1, "0,100") + SizeClass(3, 1, "0,100");
    EXPECT_EQ(ListOfPortions({1, 1, 1}, rates).CostPerAcre(10), 99.0F);
}

TEST_F(BurnAreaList, Cost_BeyondASingle_IsAnOverflow)
{
    OpenNew(SizeClass(0, 1, "0,1e30"));
    EXPECT_THROW(List().CostBySize(1e10F), platform::Overflow);
    EXPECT_EQ(List().CostPerAcre(1e10F), 1e30F);
    EXPECT_THROW(ListOfPortions({1, 1}, SizeClass(1, 1, "0,1e30")).CostBySize(1e10F), platform::Overflow);
}

TEST_F(BurnAreaList, Figures_FollowTheSharedTablesAtOnce)
{
    OpenNew(Area(9, 0, "50,0,0,0,5,0,0"));
    const c63BurnAreaList list = List();
    EXPECT_EQ(list.CostPerAcre(10), 0.0F);
    g33FMUs::GetAACTable(0).SetCost(1, 12);
    EXPECT_EQ(list.CostPerAcre(10), 12.0F);
    g33FMUs::GetNVCTable(0).SetNVCCellValue(1, 4, -3);
    EXPECT_EQ(list.AverageNVCPerAcre(), -3.0F);
}

} // namespace
