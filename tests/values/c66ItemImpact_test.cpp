#include "platform/base/Errors.h"
#include "platform/data/DatabaseError.h"
#include "support/TestSession.h"
#include "values/ValueRows.h"
#include "values/c66ItemImpact.h"
#include "values/g36ThreatenedItems.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace {

using namespace value_rows;
using platform::Currency;

class ItemImpact : public support::TestSession
{
protected:
    c66ItemImpact Load(Long outcomeKey, Long itemKey, Edition edition = kEdition)
    {
        c66ItemImpact impact(edition);
        impact.Initialize(outcomeKey, itemKey);
        return impact;
    }
    Double AmountOf(const c66ItemImpact& impact) { return platform::ToDouble(impact.Amount()); }
};

Currency Dollars(std::int64_t dollars) { return Currency::FromTenThousandths(dollars * 10000); }

TEST_F(ItemImpact, Amount_IsReadThroughASingle)
{
    OpenNew(Impact(9, 101, "1234.5678") + Impact(9, 102, "16777217") + Impact(9, 103, "-5") +
            Impact(9, 104, "'1,500'") + Impact(9, 105, "NULL"));
    EXPECT_EQ(AmountOf(Load(9, 101)), 1234.5677); // the single is 1234.5677490234375
    EXPECT_EQ(AmountOf(Load(9, 102)), 16777216.0);
    EXPECT_EQ(AmountOf(Load(9, 103)), -5.0);
    EXPECT_EQ(AmountOf(Load(9, 104)), 1.0);
    EXPECT_EQ(AmountOf(Load(9, 105)), 0.0);
    EXPECT_EQ(AmountOf(Load(9, 106)), 0.0);
    EXPECT_EQ(AmountOf(Load(8, 101)), 0.0);
}

TEST_F(ItemImpact, LossBeyondCurrency_FailsTheLoad)
{
    OpenNew(Impact(9, 101, "1e16") + Impact(9, 102, "1e39"));
    EXPECT_THROW(Load(9, 101), platform::DatabaseError);
    EXPECT_THROW(Load(9, 102), platform::DatabaseError);
}

TEST_F(ItemImpact, InitializeAgain_ForgetsTheFirstPair)
{
    OpenNew(Impact(9, 101, "5"));
    c66ItemImpact impact = Load(9, 101);
    impact.SetAmount(Dollars(7));
    impact.SetbProtected(true);
    impact.Initialize(9, 102);
    EXPECT_EQ(AmountOf(impact), 0.0);
    EXPECT_EQ(impact.ProtectionLevel(), 0);
    impact.SaveChanges(); // nothing changed
    EXPECT_EQ(Query("SELECT ItemKey, ItemLoss FROM ItemImpacts"), (support::Rows{{"101", "5"}}));
}

TEST_F(ItemImpact, SaveChanges_FirstTime_AddsTheRow)
{
    OpenNew();
    c66ItemImpact impact = Load(9, 101);
    impact.SetAmount(Currency::FromTenThousandths(50005));
    impact.SaveChanges();
    impact.SaveChanges();
    EXPECT_EQ(Query("SELECT * FROM ItemImpacts"), (support::Rows{{"9", "101", "5.0005"}}));
}

TEST_F(ItemImpact, SaveChanges_RowIsThere_EditsIt)
{
    OpenNew(Impact(9, 101, "5"));
    c66ItemImpact impact = Load(9, 101);
    impact.SetAmount(Dollars(-12));
    impact.SaveChanges();
    EXPECT_EQ(Query("SELECT * FROM ItemImpacts"), (support::Rows{{"9", "101", "-12"}}));
}

TEST_F(ItemImpact, SaveChanges_NothingChanged_AddsNoRow)
{
    OpenNew();
    Load(9, 101).SaveChanges();
    EXPECT_EQ(Query("SELECT count(*) FROM ItemImpacts"), (support::Rows{{"0"}}));
}

TEST_F(ItemImpact, SaveChanges_EqualAmountWritten_AddsTheRow)
{
    OpenNew();
    c66ItemImpact impact = Load(9, 101);
    impact.SetAmount(Currency());
    impact.SaveChanges();
    EXPECT_EQ(Query("SELECT * FROM ItemImpacts"), (support::Rows{{"9", "101", "0"}}));
}

TEST_F(ItemImpact, Protection_IsNeitherReadNorStoredInThisEdition)
{
    OpenNew(Item(101, "Bridge") + Protection(9, 101, 75));
    c66ItemImpact impact = Load(9, 101);
    EXPECT_EQ(impact.ProtectionLevel(), 0);
    impact.SetbProtected(true);
    impact.SaveChanges();
    EXPECT_EQ(Query("SELECT Protection FROM ValuesProtected"), (support::Rows{{"75"}}));
}

TEST(ItemImpactProtection, bProtected_IsALevelOfHundred)
{
    c66ItemImpact impact;
    EXPECT_FALSE(impact.bProtected());
    impact.SetbProtected(true);
    EXPECT_TRUE(impact.bProtected());
    EXPECT_EQ(impact.ProtectionLevel(), 100);
    impact.SetProtectionLabel("99");
    EXPECT_FALSE(impact.bProtected());
}

TEST(ItemImpactProtection, bProtectedFalse_ClearsALevelOfFifty)
{
    c66ItemImpact impact;
    impact.SetProtectionLabel("Partly (50%)");
    EXPECT_EQ(impact.ProtectionLevel(), 50);
    impact.SetbProtected(false);
    EXPECT_EQ(impact.ProtectionLevel(), 0);
}

TEST(ItemImpactProtection, ProtectionLabel_Written)
{
    const std::vector<std::pair<std::string, Long>> cases = {{"No (0%)", 0},
                                                             {"Slightly (25%)", 25},
                                                             {"Partly (50%)", 50},
                                                             {"Mostly (75%)", 75},
                                                             {"Yes (100%)", 100},
                                                             {"62.5", 62},
                                                             {"yes (100%)", 0},
                                                             {"Medium (50%)", 0},
                                                             {"30 percent", 30},
                                                             {"", 0}};
    for (const auto& [text, percent] : cases) {
        c66ItemImpact impact;
        impact.SetProtectionLabel(text);
        EXPECT_EQ(impact.ProtectionLevel(), percent) << text;
    }
}

TEST(ItemImpactProtection, ProtectionLabel_Read)
{
    const std::vector<std::pair<std::string, std::string>> cases = {{"0", "No (0%)"},
                                                                    {"25", "Slightly (25%)"},
                                                                    {"50", "Partly (50%)"},
                                                                    {"75", "Mostly (75%)"},
                                                                    {"100", "Yes (100%)"},
                                                                    {"95", "95"}};
    for (const auto& [written, read] : cases) {
        c66ItemImpact impact;
        impact.SetProtectionLabel(written);
        EXPECT_EQ(impact.ProtectionLabel(), read) << written;
    }
}

TEST_F(ItemImpact, ProtectedValue_IsTheLevelsShareToThreeDigits)
{
    OpenNew(Item(101, "Bridge") + AtRisk(101, "123456"));
    c66ItemImpact impact = Load(9, 101);
    EXPECT_EQ(impact.ProtectedValue(), 0.0);
    impact.SetbProtected(true);
    EXPECT_EQ(impact.ProtectedValue(), 120000.0); // of the value at risk, which has two digits
    impact.SetProtectionLabel("33");
    EXPECT_EQ(impact.ProtectedValue(), 39600.0);
}

TEST_F(ItemImpact, ProtectedValue_ItemGone_IsAMissingMember)
{
    OpenNew();
    EXPECT_THROW(Load(9, 101).ProtectedValue(), platform::MissingMember);
}

TEST_F(ItemImpact, Editions_ReadWhatTheyStore)
{
    OpenNew(Item(101, "Bridge") + AtRisk(101, "1000") + Impact(9, 101, "400") + Protection(9, 101, 75));
    const c66ItemImpact basic = Load(9, 101, Edition::Basic);
    EXPECT_EQ(AmountOf(basic), 400.0);
    EXPECT_EQ(basic.ProtectionLevel(), 0);
    const c66ItemImpact standard = Load(9, 101, Edition::Standard);
    EXPECT_EQ(AmountOf(standard), 400.0);
    EXPECT_EQ(standard.ProtectionLevel(), 75);
    const c66ItemImpact advanced = Load(9, 101, Edition::Advanced);
    EXPECT_EQ(AmountOf(advanced), 0.0);
    EXPECT_EQ(advanced.ProtectionLevel(), 75);
}

TEST_F(ItemImpact, Editions_OnlyBasicGivesTheAmountUnchanged)
{
    OpenNew(Item(101, "Bridge") + AtRisk(101, "1000"));
    const std::vector<std::pair<std::int64_t, Double>> cases = {
        {-5, 0}, {400, 400}, {1000, 1000}, {1500, 1000}};
    for (const auto& [written, clamped] : cases) {
        for (const Edition edition : {Edition::Basic, Edition::Standard, Edition::Advanced}) {
            c66ItemImpact impact = Load(9, 101, edition);
            impact.SetAmount(Dollars(written));
            EXPECT_EQ(AmountOf(impact), edition == Edition::Basic ? Double(written) : clamped) << written;
        }
    }
}

TEST_F(ItemImpact, Editions_ProtectedValueComesFromLevelOrAmount)
{
    OpenNew(Item(101, "Bridge") + AtRisk(101, "1000") + Impact(9, 101, "412.3") + Protection(9, 101, 75));
    EXPECT_EQ(Load(9, 101, Edition::Basic).ProtectedValue(), 0.0);
    EXPECT_EQ(Load(9, 101, Edition::Standard).ProtectedValue(), 588.0);
    EXPECT_EQ(Load(9, 101, Edition::Advanced).ProtectedValue(), 750.0);
}

TEST_F(ItemImpact, StandardSave_StoresLossAndTheProtectionThatFollows)
{
    OpenNew(Item(101, "Bridge") + AtRisk(101, "1000"));
    c66ItemImpact impact = Load(9, 101, Edition::Standard);
    impact.SetAmount(Dollars(875));
    impact.SaveChanges();
    EXPECT_EQ(impact.ProtectionLevel(), 12); // 12.5 halves to even
    EXPECT_EQ(Query("SELECT * FROM ItemImpacts"), (support::Rows{{"9", "101", "875"}}));
    EXPECT_EQ(Query("SELECT OutcomeKey, ItemKey, Protection FROM ValuesProtected"),
              (support::Rows{{"9", "101", "12"}}));
}

TEST_F(ItemImpact, StandardSave_NothingAtRisk_KeepsTheLevel)
{
    OpenNew(Item(101, "Bridge") + Protection(9, 101, 75));
    c66ItemImpact impact = Load(9, 101, Edition::Standard);
    impact.SetAmount(Dollars(10));
    impact.SaveChanges();
    EXPECT_EQ(Query("SELECT Protection FROM ValuesProtected"), (support::Rows{{"75"}}));
}

TEST_F(ItemImpact, AdvancedSave_StoresTheProtectionOnly)
{
    OpenNew(Item(101, "Bridge"));
    c66ItemImpact impact = Load(9, 101, Edition::Advanced);
    impact.SetProtectionLabel("Mostly (75%)");
    impact.SaveChanges();
    EXPECT_EQ(Query("SELECT count(*) FROM ItemImpacts"), (support::Rows{{"0"}}));
    EXPECT_EQ(Query("SELECT * FROM ValuesProtected"), (support::Rows{{"9", "101", "75", "NULL"}}));
}

} // namespace
