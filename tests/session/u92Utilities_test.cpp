#include "platform/base/Errors.h"
#include "session/u92Utilities.h"
#include "support/TestSession.h"

#include <cmath>
#include <limits>

using u92Utilities::RoundSignificant;

namespace {

class u92UtilitiesTest : public support::TestSession
{};

platform::ListContents ThreeRows()
{
    platform::ListContents list;
    for (const Long key : {11, 22, 22}) {
        list.AddItem("row");
        list.SetItemData(list.NewIndex(), key);
    }
    return list;
}

platform::Message DeleteQuestion(const std::string& words)
{
    platform::Message message;
    message.title = "Delete";
    message.lines = {words};
    message.buttons = platform::Buttons::YesNo;
    message.preset = platform::Answer::No;
    message.icon = platform::Icon::Stop;
    return message;
}

} // namespace

TEST(RoundSignificant, KeepsItsDigitsFromTheNextPowerOfTen)
{
    const struct
    {
        Double value;
        Long digits;
        Double rounded;
    } cases[] = {{1234.5, 2, 1200},
                 {1250, 2, 1200},
                 {1350, 2, 1400},
                 {1251, 2, 1300},
                 {123456, 3, 123000},
                 {123500, 3, 124000},
                 {122500, 3, 122000},
                 {0.456, 2, 46 * (1.0 / 100.0)},
                 {0.455, 2, 46 * (1.0 / 100.0)},
                 {0.004, 2, 0},
                 {0.005, 2, 0},
                 {0.4567, 3, 457 * (1.0 / 1000.0)},
                 {5.25, 2, 52 * (10.0 / 100.0)},
                 {5.35, 2, 53 * (10.0 / 100.0)}, // in binary below the half
                 {5.75, 2, 58 * (10.0 / 100.0)},
                 {99.5, 2, 100 * (100.0 / 100.0)},
                 {99999, 2, 100000},
                 {0, 2, 0},
                 {1, 2, 1}};
    for (const auto& c : cases) {
        EXPECT_EQ(RoundSignificant(c.value, c.digits), c.rounded) << c.value << " to " << c.digits;
    }
}

TEST(RoundSignificant, AnExactPowerOfTen_KeepsOneDigitMoreThanItsNeighbours)
{
    // Kept: the power is at least the value, so 1000 is measured in steps of 10 and 1004 in steps of 100.
    EXPECT_EQ(RoundSignificant(1000, 2), 1000);
    EXPECT_EQ(RoundSignificant(996, 2), 1000);
    EXPECT_EQ(RoundSignificant(994, 2), 990);
    EXPECT_EQ(RoundSignificant(1004, 2), 1000);
    EXPECT_EQ(RoundSignificant(1049, 2), 1000);
    EXPECT_EQ(RoundSignificant(1051, 2), 1100);
    EXPECT_EQ(RoundSignificant(10, 2), 10);
}

TEST(RoundSignificant, ValuesBelowOne_KeepDecimalsNotDigits)
{
    EXPECT_EQ(RoundSignificant(0.00456, 2), 0.0);
    EXPECT_EQ(RoundSignificant(0.0156, 2), 2 * (1.0 / 100.0));
}

TEST(RoundSignificant, OfANegativeValue_IsTheNegativeOfThePositive)
{
    for (const Double value : {1234.5, 1250.0, 1350.0, 0.456, 5.25, 999999.0, 1e9}) {
        EXPECT_EQ(RoundSignificant(-value, 2), -RoundSignificant(value, 2)) << value;
    }
}

TEST(RoundSignificant, OfZero_IsZero)
{
    EXPECT_EQ(RoundSignificant(0.0, 3), 0.0);
    EXPECT_EQ(RoundSignificant(-0.0, 2), 0.0);
}

TEST(RoundSignificant, BeyondItsRange_Throws)
{
    EXPECT_THROW(RoundSignificant(0.5, 10), platform::Overflow); // a quotient of 5,000,000,000
    EXPECT_THROW(RoundSignificant(std::numeric_limits<Double>::infinity(), 2), platform::Overflow);
    EXPECT_THROW(RoundSignificant(std::numeric_limits<Double>::quiet_NaN(), 2), platform::Overflow);
    EXPECT_THROW(RoundSignificant(1.7e308, 2), platform::Overflow);
    EXPECT_EQ(RoundSignificant(1.26e300, 2), RoundSignificant(1.3e300, 2));
}

TEST_F(u92UtilitiesTest, ConfirmDelete_AsksWithNoAsTheDefault)
{
    desktop.Expect(DeleteQuestion("Do you really want to delete the topic Weather?"), platform::Answer::Yes);
    EXPECT_TRUE(u92Utilities::ConfirmDelete("the topic Weather?"));
    desktop.Expect(DeleteQuestion("Do you really want to delete x?"), platform::Answer::No);
    EXPECT_FALSE(u92Utilities::ConfirmDelete("x?"));
}

TEST(ListKeys, AreTheItemDataOfTheSelectedRow)
{
    platform::ListContents list = ThreeRows();
    list.SetListIndex(1);
    EXPECT_EQ(u92Utilities::ListBoxKey(list), 22);
    EXPECT_EQ(u92Utilities::ComboBoxKey(list), 22);
}

TEST(ListKeys, WithNothingSelected_AreZeroForAComboAndAnErrorForAList)
{
    const platform::ListContents list = ThreeRows();
    EXPECT_EQ(u92Utilities::ComboBoxKey(list), 0);
    EXPECT_THROW(u92Utilities::ListBoxKey(list), platform::OutOfBounds);
}

TEST(SelectComboKey, SelectsTheFirstRowOfTheKeyOrNone)
{
    platform::ListContents combo = ThreeRows();
    u92Utilities::SelectComboKey(combo, 22);
    EXPECT_EQ(combo.ListIndex(), 1);
    u92Utilities::SelectComboKey(combo, 11);
    EXPECT_EQ(combo.ListIndex(), 0);
    u92Utilities::SelectComboKey(combo, 33);
    EXPECT_EQ(combo.ListIndex(), -1);
}
