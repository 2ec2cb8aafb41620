// What an outcome scores, loses and costs.

#include "FireSql.h"
#include "model/c53Outcome.h"
#include "platform/base/Errors.h"
#include "platform/base/Formats.h"
#include "support/TestSession.h"
#include "values/c64BurnArea.h"

using namespace firesql;

namespace {

const Long kOutcome = TargetKey(1);

class c53OutcomeFiguresTest : public support::TestSession
{
protected:
    /// The Target of alternative 1, whose row has these columns.
    c53Outcome& Target(const std::string& columns = {}, const std::string& sql = {})
    {
        Close();
        OpenNew(Alternative(1, columns) + sql);
        outcome = std::make_unique<c53Outcome>();
        outcome->Initialize(1, 1);
        return *outcome;
    }
    std::unique_ptr<c53Outcome> outcome;
};

/// Resource types and a list for the Target: `quantity` of an item at `dollars` each.
std::string Uses(Long quantity, const std::string& dollars)
{
    return "INSERT INTO SRTypes VALUES (900, 0, 900, 'Long', 'Short', 'item', 'load', " + dollars +
           "); INSERT INTO SRUses VALUES (1, " + std::to_string(kOutcome) + ", 1, 900, " +
           std::to_string(quantity) + ", 1);";
}

std::string Daily(Long containDays, const std::string& contain, Long controlDays, const std::string& control)
{
    return "ContainTime = " + std::to_string(containDays) + ", ControlTime = " + std::to_string(controlDays) +
           ", DailyContainCost = " + contain + ", DailyControlCost = " + control + ", CostSource = 4";
}

} // namespace

TEST_F(c53OutcomeFiguresTest, Scores_AreRoundedToTwoDigits)
{
    c53Outcome& target =
        Target({}, Issues({10, 30}) + Score(kOutcome, 3, "7.26") + Score(kOutcome, 7, "7.26"));
    EXPECT_EQ(target.TotalScore(), 1.8F); // 1.815
    EXPECT_EQ(target.CategoryScore(3), 7.3F);
    EXPECT_EQ(target.RawObjScore(3), 7.3F);
    EXPECT_EQ(target.WeightedObjScore(3), 1.8F);
    EXPECT_EQ(target.SafetyScore(), 1.8F);
    EXPECT_EQ(target.WeightedSafetyScore(7), 1.8F);
    EXPECT_EQ(target.RawSafetyScore(7), 7.3F);
    EXPECT_EQ(target.RawSafetyScore(8), 0.0F);
}

TEST_F(c53OutcomeFiguresTest, Scores_TiesGoToTheEvenDigit)
{
    // Above 1 two digits are tenths, up to 1 hundredths. All are exact in binary.
    const std::pair<const char*, Single> cases[] = {{"2.25", 2.2F},
                                                    {"2.75", 2.8F},
                                                    {"6.25", 6.2F},
                                                    {"0.125", 0.12F},
                                                    {"0.375", 0.38F},
                                                    {"1", 1.0F},
                                                    {"10", 10.0F},
                                                    {"9.96875", 10.0F}};
    for (const auto& [raw, rounded] : cases) {
        EXPECT_EQ(Target({}, Score(kOutcome, 3, raw)).RawObjScore(3), rounded) << raw;
    }
}

TEST_F(c53OutcomeFiguresTest, Scores_UnknownKey_IsMissing)
{
    c53Outcome& target = Target();
    EXPECT_THROW(target.CategoryScore(99), platform::MissingMember);
    EXPECT_THROW(target.WeightedSafetyScore(3), platform::MissingMember);
}

TEST_F(c53OutcomeFiguresTest, NVCLoss_ALossInTheTable_IsPositiveWithTwoDigits)
{
    c53Outcome& target = Target("FireSize = 1250", NVCPerAcre("-12.5") + BurnsAtLevel4(kOutcome));
    EXPECT_EQ(target.ImpactPerAcre(), -12.5F);
    EXPECT_EQ(target.NVCLoss(), 16000.0F);          // of 15,625
    EXPECT_EQ(target.NVCResourceLoss(1), 15600.0F); // one digit more
    EXPECT_EQ(target.NVCResourceLoss(2), 0.0F);
    EXPECT_THROW(target.NVCResourceLoss(15), platform::OutOfBounds);
}

TEST_F(c53OutcomeFiguresTest, NVCLoss_AGainThatCounts_IsNegative)
{
    c53Outcome& target = Target("FireSize = 1000",
                                NVCPerAcre("3") + BurnsAtLevel4(kOutcome) +
                                    "INSERT INTO Properties VALUES ('UseNVCGains', 'Yes');");
    EXPECT_EQ(target.NVCLoss(), -3000.0F);
}

TEST_F(c53OutcomeFiguresTest, NVCLoss_AGainSwitchedOff_IsNothingButTheResourceStillGains)
{
    c53Outcome& target = Target("FireSize = 1000", NVCPerAcre("3") + BurnsAtLevel4(kOutcome));
    EXPECT_EQ(target.NVCLoss(), 0.0F);
    EXPECT_EQ(target.NVCResourceLoss(1), -3000.0F);
}

TEST_F(c53OutcomeFiguresTest, FireSizeZero_NoLossAndNoCostBySizeButARatePerAcre)
{
    c53Outcome& target =
        Target("FireSize = 0", NVCPerAcre("-12") + BurnsAtLevel4(kOutcome) + CostPerAcre("90"));
    EXPECT_EQ(target.NVCLoss(), 0.0F);
    EXPECT_EQ(target.CostBySize(), 0.0F);
    EXPECT_EQ(target.CostPerAcre(), 90.0F);
    EXPECT_EQ(target.EstimatedCost(), 0.0F);
}

TEST_F(c53OutcomeFiguresTest, EstimatedLoss_IsItemsPlusResourcesUnrounded)
{
    c53Outcome& target = Target("FireSize = 1000",
                                NVCPerAcre("-3") + BurnsAtLevel4(kOutcome) + ItemLoss(kOutcome, 8, "1234") +
                                    ItemLoss(kOutcome, 9, "0.5"));
    EXPECT_EQ(target.ItemImpact(), 1234.5F);
    EXPECT_EQ(target.SingleItemImpact(8), 1234.0F);
    EXPECT_EQ(target.NVCLoss(), 3000.0F);
    EXPECT_EQ(target.EstimatedLoss(), 4234.5F);
    EXPECT_THROW(target.SingleItemImpact(7), platform::MissingMember);
}

TEST_F(c53OutcomeFiguresTest, EstimatedLoss_GainsMayOutweighItems)
{
    c53Outcome& target = Target("FireSize = 1000",
                                NVCPerAcre("3") + BurnsAtLevel4(kOutcome) + ItemLoss(kOutcome, 8, "1000") +
                                    "INSERT INTO Properties VALUES ('UseNVCGains', 'Yes');");
    EXPECT_EQ(target.EstimatedLoss(), -2000.0F);
}

TEST_F(c53OutcomeFiguresTest, Protected_IsNothingInThisEdition)
{
    c53Outcome& target = Target({},
                                ItemLoss(kOutcome, 8, "10") +
                                    "INSERT INTO ValuesAtRisk VALUES (8, 1000, 100);"
                                    "INSERT INTO ValuesProtected VALUES (" +
                                    std::to_string(kOutcome) + ", 8, 50, NULL);");
    EXPECT_EQ(target.ValueProtected(), 0.0);
    EXPECT_EQ(target.SingleItemProtected(8), 0.0);
    EXPECT_THROW(target.SingleItemProtected(7), platform::MissingMember);
}

TEST_F(c53OutcomeFiguresTest, BurnAreas_NoLandUnits_AreTheDefaultAreaAlone)
{
    c53Outcome& target = Target({}, BurnsAtLevel4(kOutcome));
    EXPECT_TRUE(target.BurnAreaCollection().IsEmpty());
    EXPECT_EQ(target.BurnArea(0).FILPercent(4), 100);
    EXPECT_EQ(target.FMUPercent(7), 100);
}

TEST_F(c53OutcomeFiguresTest, BurnAreas_LandUnits_HaveTheirShares)
{
    c53Outcome& target =
        Target({},
               "INSERT INTO FMZList VALUES (3, 'C', 'Three'), (4, 'D', 'Four'), (5, 'E', 'Five');"
               "INSERT INTO OutcomeFMZs SELECT " +
                   std::to_string(kOutcome) + ", \"Key\", 1, 0, 0, 0, 5, 0, 0 FROM FMZList;");
    EXPECT_EQ(target.BurnAreaCollection().Count(), 3);
    EXPECT_EQ(target.BurnArea(4).FMUKey(), 4);
    EXPECT_EQ(target.FMUPercent(1), 33); // a whole number, cut: a percent is left out
    EXPECT_EQ(target.FMUPercent(3), 33);
    EXPECT_THROW(target.FMUPercent(4), platform::OutOfBounds);
}

TEST_F(c53OutcomeFiguresTest, EstimatedCost_ByEachSource)
{
    const std::string columns = "FireSize = 100, ContainTime = 3, DailyContainCost = 1000, ControlTime = 10, "
                                "DailyControlCost = 500, AdjustedCost = 1234567, CostSource = ";
    const std::pair<const char*, Single> cases[] = {{"1", 9000.0F},
                                                    {"2", 700.0F},
                                                    {"4", 6500.0F},
                                                    {"8", 1234567.0F},
                                                    {"3", 0.0F},
                                                    {"0", 9000.0F},
                                                    {"-1", 0.0F},
                                                    {"16", 0.0F},
                                                    {"NULL", 9000.0F}};
    for (const auto& [source, cost] : cases) {
        EXPECT_EQ(Target(columns + source, CostPerAcre("90") + Uses(7, "100")).EstimatedCost(), cost)
            << source;
    }
}

TEST_F(c53OutcomeFiguresTest, EstimatedCost_BySize_HasThreeDigitsWhileAdjustedStaysAsTyped)
{
    const std::string columns = "FireSize = 1234567, AdjustedCost = 1234567, CostSource = ";
    EXPECT_EQ(Target(columns + "1", CostPerAcre("1")).EstimatedCost(), 1230000.0F);
    EXPECT_EQ(Target(columns + "8", CostPerAcre("1")).EstimatedCost(), 1234567.0F);
}

TEST_F(c53OutcomeFiguresTest, SRUseCost_NoLines_IsZeroAndShowsAsEmpty)
{
    c53Outcome& target = Target("CostSource = 2");
    EXPECT_EQ(target.EstimatedCost(), 0.0F);
    EXPECT_EQ(platform::Format(target.SRUseCost(), "#,#"), "");
}

TEST_F(c53OutcomeFiguresTest, SRUseCost_IsRoundedToThreeDigits)
{
    EXPECT_EQ(Target("CostSource = 2", Uses(1, "123456")).EstimatedCost(), 123000.0F);
    EXPECT_EQ(Target("CostSource = 2", Uses(1, "123500")).EstimatedCost(), 124000.0F); // halves to even
    EXPECT_EQ(Target("CostSource = 2", Uses(1, "122500")).EstimatedCost(), 122000.0F);
    EXPECT_EQ(Target("CostSource = 2", Uses(1, "999600")).EstimatedCost(), 1000000.0F);
    EXPECT_EQ(Target("CostSource = 2", Uses(1, "0.4446")).EstimatedCost(), 0.445F);
}

TEST_F(c53OutcomeFiguresTest, CostBySize_BeyondTheSingleRange_Overflows)
{
    EXPECT_THROW(Target("FireSize = 1e30", CostPerAcre("1e30")).CostBySize(), platform::Overflow);
}

TEST_F(c53OutcomeFiguresTest, DailyCost_ByDaysOfEachRate)
{
    struct Case
    {
        std::string columns;
        Single cost;
    };
    const Case cases[] = {
        {Daily(3, "1000", 10, "500"), 6500.0F},
        {Daily(3, "1000", 10, "509.571428"), 6570.0F}, // 6,567
        {Daily(0, "1000", 0, "500"), 0.0F},
        {Daily(10, "1000", 4, "500"), 7000.0F}, // control before containment takes off
        {Daily(0, "1000", -2, "500"), -1000.0F},
        {Daily(1, "10", 21, "-3"), -50.0F},
    };
    for (const Case& each : cases) {
        EXPECT_EQ(Target(each.columns).DailyCost(), each.cost) << each.columns;
    }
}

TEST_F(c53OutcomeFiguresTest, DailyCost_FirstTermIsNarrowedBeforeTheSecondIsAdded)
{
    // 16,777,217 dollars are 16,777,216 as a single; taking 16,777,216 off leaves nothing, not one.
    EXPECT_EQ(Target(Daily(16777217, "1", 1, "1")).DailyCost(), 0.0F);
}

TEST_F(c53OutcomeFiguresTest, DailyCost_ExtremeDays_AreExactInDouble)
{
    EXPECT_EQ(Target(Daily(2147483647, "0", -2147483647, "1")).DailyCost(), -4290000000.0F);
}

TEST_F(c53OutcomeFiguresTest, DailyCost_BeyondTheSingleRange_Overflows)
{
    EXPECT_THROW(Target(Daily(10, "3e38", 10, "0")).DailyCost(), platform::Overflow);
}
