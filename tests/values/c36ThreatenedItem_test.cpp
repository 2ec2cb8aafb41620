#include "platform/base/Errors.h"
#include "platform/data/DatabaseError.h"
#include "support/TestSession.h"
#include "values/ValueRows.h"
#include "values/c36ThreatenedItem.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace {

using namespace value_rows;

class ThreatenedItem : public support::TestSession
{
protected:
    c36ThreatenedItem Load(Long key, Edition edition = kEdition)
    {
        c36ThreatenedItem item(edition);
        item.Initialize(key, "Bridge");
        return item;
    }
    c36ThreatenedItem LoadStored(const std::string& potentialLoss)
    {
        OpenNew(Item(101, "Bridge") + AtRisk(101, potentialLoss, 40));
        return Load(101);
    }
};

TEST_F(ThreatenedItem, NewItem_LosesNothingForCertain)
{
    OpenNew(Item(101, "Bridge"));
    c36ThreatenedItem item = Load(101);
    EXPECT_EQ(item.ItemKey(), 101);
    EXPECT_EQ(item.ItemName(), "Bridge");
    EXPECT_EQ(item.PotentialLoss(), 0.0);
    EXPECT_EQ(item.Probability(), 100);
    EXPECT_EQ(item.ValueAtRisk(), 0.0);
    EXPECT_EQ(item.ProbabilityLabel(), "100");
    EXPECT_EQ(item.Notes(), "Notes of Bridge");
}

TEST_F(ThreatenedItem, NoRowOfItems_HasNoNotes)
{
    OpenNew();
    EXPECT_EQ(Load(101).Notes(), "");
}

TEST_F(ThreatenedItem, StoredLoss_ComesBackToThreeDigits)
{
    EXPECT_EQ(LoadStored("123456").PotentialLoss(), 123000.0);
    EXPECT_EQ(LoadStored("1000").PotentialLoss(), 1000.0);
    EXPECT_EQ(LoadStored("1001").PotentialLoss(), 1000.0);
    EXPECT_EQ(LoadStored("123500").PotentialLoss(), 124000.0); // 123.5 halves to even
    EXPECT_EQ(LoadStored("124500").PotentialLoss(), 124000.0); // 124.5 halves to even
    EXPECT_EQ(LoadStored("NULL").PotentialLoss(), 0.0);
    EXPECT_EQ(LoadStored("'5,000'").PotentialLoss(), 5.0); // ends at the comma
}

TEST_F(ThreatenedItem, StoredProbability_IsNotReadInThisEdition)
{
    EXPECT_EQ(LoadStored("1000").Probability(), 100);
}

TEST_F(ThreatenedItem, StoredLossBeyondASingle_FailsTheLoad)
{
    EXPECT_THROW(LoadStored("1e39"), platform::DatabaseError);
}

TEST_F(ThreatenedItem, StoredNegativeLoss_ReadsAsZeroAndStaysZero)
{
    c36ThreatenedItem item = LoadStored("-500");
    EXPECT_EQ(item.PotentialLoss(), 0.0);
    EXPECT_EQ(item.PotentialLoss(), 0.0);
    EXPECT_EQ(item.ValueAtRisk(), 0.0);
    item.SaveChanges(); // the correction is no change
    EXPECT_EQ(Query("SELECT PotentialLoss, Probability FROM ValuesAtRisk"),
              (support::Rows{{"-500.0", "40"}}));
}

TEST_F(ThreatenedItem, StoredNegativeLossRead_IsSavedAsZeroWithTheNextChange)
{
    c36ThreatenedItem item = LoadStored("-500");
    EXPECT_EQ(item.PotentialLoss(), 0.0);
    item.SetNotes("seen");
    item.SaveChanges();
    EXPECT_EQ(Query("SELECT PotentialLoss, Probability FROM ValuesAtRisk"), (support::Rows{{"0.0", "100"}}));
}

TEST_F(ThreatenedItem, SaveChanges_StoresTheLossAsASingle)
{
    c36ThreatenedItem item = LoadStored("1");
    item.SetPotentialLoss(123456.7);
    item.SaveChanges();
    EXPECT_EQ(Query("SELECT PotentialLoss = 123456.703125 FROM ValuesAtRisk"), (support::Rows{{"1"}}));
}

TEST_F(ThreatenedItem, SaveChanges_FigureBeyondItsColumn_IsAnOverflowAndWritesNothing)
{
    c36ThreatenedItem item = LoadStored("1");
    item.SetPotentialLoss(1e39);
    EXPECT_THROW(item.SaveChanges(), platform::Overflow);
    item.SetPotentialLoss(5);
    item.SetProbabilityLabel("99999");
    EXPECT_THROW(item.SaveChanges(), platform::Overflow);
    EXPECT_EQ(Query("SELECT PotentialLoss FROM ValuesAtRisk"), (support::Rows{{"1.0"}}));
}

TEST(ThreatenedItemFigures, NegativeLossWritten_IsStoredButReadsAsZero)
{
    c36ThreatenedItem item;
    item.SetProbabilityLabel("100");
    item.SetPotentialLoss(-5);
    EXPECT_EQ(item.ValueAtRisk(), 0.0);
    EXPECT_EQ(item.PotentialLoss(), 0.0);
}

TEST(ThreatenedItemFigures, ValueAtRisk_HasTwoDigits)
{
    const std::vector<std::pair<Double, Double>> cases = {{123456, 120000},
                                                          {0, 0},
                                                          {950, 950},
                                                          {999.9, 1000},
                                                          {1000, 1000},
                                                          {1250, 1200},
                                                          {1350, 1400},
                                                          {0.456, 0.46}};
    for (const auto& [loss, atRisk] : cases) {
        c36ThreatenedItem item;
        item.SetProbabilityLabel("100");
        item.SetPotentialLoss(loss);
        EXPECT_EQ(item.ValueAtRisk(), atRisk) << loss;
        EXPECT_EQ(item.PotentialLoss(), loss);
    }
}

TEST(ThreatenedItemFigures, ValueAtRisk_TakesTheProbabilityIn)
{
    c36ThreatenedItem item;
    item.SetPotentialLoss(123456);
    item.SetProbabilityLabel("Medium (50%)");
    EXPECT_EQ(item.ValueAtRisk(), 62000.0);
}

TEST(ThreatenedItemFigures, ValueAtRisk_BeyondADouble_IsAnOverflow)
{
    c36ThreatenedItem item;
    item.SetPotentialLoss(1e308);
    item.SetProbabilityLabel("100");
    EXPECT_THROW(item.ValueAtRisk(), platform::Overflow);
}

TEST(ThreatenedItemFigures, ProbabilityLabel_Written)
{
    const std::vector<std::pair<std::string, Long>> cases = {
        {"Very Low (5%)", 5},
        {"Low (25%)", 25},
        {"Medium (50%)", 50},
        {"High (75%)", 75},
        {"Very High (95%)", 95},
        {"62.5", 62},
        {"63.5", 64},
        {"100", 100},
        {" 40 ", 40},
        {"1,000", 1000},
        {"likely", 0},
        {"", 0},
        {"30 percent", 30},
        {"12.5%", 12},
        {"medium (50%)", 0}, // exactly, or it is no label
        {"-7", -7}};
    for (const auto& [text, percent] : cases) {
        c36ThreatenedItem item;
        item.SetProbabilityLabel(text);
        EXPECT_EQ(item.Probability(), percent) << text;
    }
}

TEST(ThreatenedItemFigures, ProbabilityLabel_Read)
{
    const std::vector<std::pair<std::string, std::string>> cases = {{"0", ""},
                                                                    {"5", "Very Low (5%)"},
                                                                    {"25", "Low (25%)"},
                                                                    {"50", "Medium (50%)"},
                                                                    {"75", "High (75%)"},
                                                                    {"95", "Very High (95%)"},
                                                                    {"100", "100"},
                                                                    {"-3", "-3"}};
    for (const auto& [written, read] : cases) {
        c36ThreatenedItem item;
        item.SetProbabilityLabel(written);
        EXPECT_EQ(item.ProbabilityLabel(), read) << written;
    }
}

TEST(ThreatenedItemFigures, ProbabilityLabel_Beyond32Bits_IsAnOverflow)
{
    c36ThreatenedItem item;
    EXPECT_THROW(item.SetProbabilityLabel("3000000000"), platform::Overflow);
    EXPECT_THROW(item.SetProbabilityLabel("3000000000 percent"), platform::Overflow);
}

TEST_F(ThreatenedItem, SaveChanges_FirstTime_AddsTheRowOfValuesAtRisk)
{
    OpenNew(Item(101, "Bridge"));
    c36ThreatenedItem item = Load(101);
    item.SetItemName("Old bridge");
    item.SetNotes("Wood");
    item.SetPotentialLoss(123456);
    item.SaveChanges();
    EXPECT_EQ(Query("SELECT ItemName, ItemText, ParentKey, ChildIndex FROM Items WHERE ItemKey = 101"),
              (support::Rows{{"Old bridge", "Wood", "23", "101"}}));
    EXPECT_EQ(Query("SELECT * FROM ValuesAtRisk"), (support::Rows{{"101", "123456.0", "100"}}));
    Open(path);
    EXPECT_EQ(Load(101).PotentialLoss(), 123000.0);
}

TEST_F(ThreatenedItem, SaveChanges_RowIsThere_EditsIt)
{
    c36ThreatenedItem item = LoadStored("1000");
    item.SetProbabilityLabel("High (75%)");
    item.SaveChanges();
    EXPECT_EQ(Query("SELECT * FROM ValuesAtRisk"), (support::Rows{{"101", "1000.0", "75"}}));
}

TEST_F(ThreatenedItem, SaveChanges_NothingChanged_WritesNothing)
{
    OpenNew();
    c36ThreatenedItem item = Load(101); // no row in Items: a write would fail
    EXPECT_NO_THROW(item.SaveChanges());
    EXPECT_EQ(Query("SELECT count(*) FROM ValuesAtRisk"), (support::Rows{{"0"}}));
}

TEST_F(ThreatenedItem, SaveChanges_NoRowInItems_FailsAndAddsNothing)
{
    OpenNew();
    c36ThreatenedItem item = Load(101);
    item.SetItemName("Bridge"); // equal, but a change
    EXPECT_THROW(item.SaveChanges(), platform::DatabaseError);
    EXPECT_EQ(Query("SELECT count(*) FROM ValuesAtRisk"), (support::Rows{{"0"}}));
}

TEST_F(ThreatenedItem, Editions_DifferInTheProbability)
{
    OpenNew(Item(101, "Bridge") + AtRisk(101, "1000", 40) + Item(102, "Barn"));
    EXPECT_EQ(Load(101, Edition::Basic).Probability(), 100);
    EXPECT_EQ(Load(101, Edition::Standard).Probability(), 100);
    EXPECT_EQ(Load(101, Edition::Advanced).Probability(), 40);
    EXPECT_EQ(Load(102, Edition::Basic).Probability(), 100);
    EXPECT_EQ(Load(102, Edition::Standard).Probability(), 100);
    EXPECT_EQ(Load(102, Edition::Advanced).Probability(), 50);
}

TEST(EditionOfTheProgram, IsBasic)
{
    EXPECT_EQ(kEdition, Edition::Basic);
    EXPECT_EQ(EditionNamed("Standard"), Edition::Standard);
    EXPECT_EQ(EditionNamed("Advanced"), Edition::Advanced);
}

} // namespace
