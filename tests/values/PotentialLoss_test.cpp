#include "values/PotentialLoss.h"

#include <gtest/gtest.h>

namespace {

std::vector<c66ItemImpact> ImpactsOf(const std::vector<Double>& amounts)
{
    std::vector<c66ItemImpact> impacts(amounts.size());
    for (std::size_t i = 0; i < amounts.size(); ++i)
        impacts[i].SetAmount(platform::ToCurrency(amounts[i]));
    return impacts;
}

Double PotentialLossOf(const std::vector<Double>& amounts)
{
    c36ThreatenedItem item;
    item.SetPotentialLoss(99);
    SetPotentialLossFromImpacts(item, ImpactsOf(amounts));
    return item.PotentialLoss();
}

TEST(PotentialLoss, HighestOfAllOutcomes)
{
    EXPECT_EQ(PotentialLossOf({5000, 7000, 0, 6999.99}), 7000.0);
    EXPECT_EQ(PotentialLossOf({7000}), 7000.0);
    EXPECT_EQ(PotentialLossOf({}), 0.0);
}

TEST(PotentialLoss, GainsNeverRaiseIt) { EXPECT_EQ(PotentialLossOf({-5000, -1}), 0.0); }

TEST(PotentialLoss, IsASingle)
{
    EXPECT_EQ(PotentialLossOf({123456789.0}), 123456792.0);
    EXPECT_EQ(PotentialLossOf({0.1}), Double(0.1F));
}

TEST(PotentialLoss, ProbabilityBecomesAHundredPercent)
{
    c36ThreatenedItem item;
    item.SetProbabilityLabel("50");
    SetPotentialLossFromImpacts(item, ImpactsOf({7000}));
    EXPECT_EQ(item.Probability(), 100);
    EXPECT_EQ(item.ValueAtRisk(), 7000.0);
}

TEST(PotentialLoss, OtherEditions_LeaveTheItemAlone)
{
    for (const Edition edition : {Edition::Standard, Edition::Advanced}) {
        c36ThreatenedItem item(edition);
        item.SetPotentialLoss(99);
        item.SetProbabilityLabel("50");
        SetPotentialLossFromImpacts(item, ImpactsOf({7000}), edition);
        EXPECT_EQ(item.PotentialLoss(), 99.0);
        EXPECT_EQ(item.Probability(), 50);
    }
}

} // namespace
