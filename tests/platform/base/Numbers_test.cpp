#include "platform/base/Errors.h"
#include "platform/base/Numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>

using platform::Currency;

namespace {

constexpr Double kInfinity = std::numeric_limits<Double>::infinity();
constexpr Double kNaN = std::numeric_limits<Double>::quiet_NaN();
constexpr Long kHighest = std::numeric_limits<Long>::max();
constexpr Long kLowest = std::numeric_limits<Long>::min();
constexpr std::int64_t kMostMoney = std::numeric_limits<std::int64_t>::max();

Currency Money(std::int64_t tenThousandths) { return Currency::FromTenThousandths(tenThousandths); }

} // namespace

TEST(ToLong, Halves_GoToTheEvenNeighbour)
{
    const struct
    {
        Double value;
        Long rounded;
    } cases[] = {{0.5, 0},
                 {1.5, 2},
                 {2.5, 2},
                 {3.5, 4},
                 {-0.5, 0},
                 {-1.5, -2},
                 {-2.5, -2},
                 {0.49999999999999994, 0},
                 {0.5000001, 1},
                 {-0.5000001, -1},
                 {1e-300, 0},
                 {1234567.5, 1234568}};
    for (const auto& c : cases) {
        EXPECT_EQ(platform::ToLong(c.value), c.rounded) << c.value;
    }
}

TEST(ToLong, TheEdgesOf32Bits_Hold)
{
    EXPECT_EQ(platform::ToLong(2147483647.0), kHighest);
    EXPECT_EQ(platform::ToLong(2147483647.4999), kHighest);
    EXPECT_EQ(platform::ToLong(-2147483648.0), kLowest);
    EXPECT_EQ(platform::ToLong(-2147483648.5), kLowest); // the half goes to the even number, which is inside
}

TEST(ToLong, BeyondTheEdgesOrNoNumber_Throws)
{
    for (const Double value :
         {2147483647.5, 2147483648.0, -2147483648.6, 1e300, kInfinity, -kInfinity, kNaN}) {
        EXPECT_THROW(platform::ToLong(value), platform::Overflow) << value;
    }
}

TEST(ToInteger, TheEdgesOf16Bits_HoldAndNothingBeyond)
{
    EXPECT_EQ(platform::ToInteger(32767.4), 32767);
    EXPECT_EQ(platform::ToInteger(-32768.5), -32768);
    EXPECT_EQ(platform::ToInteger(2.5), 2);
    EXPECT_THROW(platform::ToInteger(32767.5), platform::Overflow);
    EXPECT_THROW(platform::ToInteger(-32769.0), platform::Overflow);
    EXPECT_THROW(platform::ToInteger(kNaN), platform::Overflow);
}

TEST(ToSingle, OfADouble_IsTheNearestWithHalvesToEven)
{
    EXPECT_EQ(platform::ToSingle(16777217.0), 16777216.0F); // halfway: the even one is below
    EXPECT_EQ(platform::ToSingle(16777219.0), 16777220.0F); // halfway: the even one is above
    EXPECT_EQ(platform::ToSingle(0.1), 0.1F);
    EXPECT_EQ(platform::ToSingle(-0.1), -0.1F);
    EXPECT_EQ(platform::ToSingle(1e-60), 0.0F);
}

TEST(ToSingle, TheEdgesOfSingle_HoldAndNothingBeyond)
{
    constexpr Single most = std::numeric_limits<Single>::max();
    EXPECT_EQ(platform::ToSingle(Double(most)), most);
    EXPECT_EQ(platform::ToSingle(3.4028235677973362e38), most); // just below halfway to the next power
    EXPECT_THROW(platform::ToSingle(3.4028235677973366e38), platform::Overflow);
    EXPECT_THROW(platform::ToSingle(-1e39), platform::Overflow);
    EXPECT_THROW(platform::ToSingle(kInfinity), platform::Overflow);
    EXPECT_THROW(platform::ToSingle(kNaN), platform::Overflow);
    EXPECT_THROW(platform::ToSingle(Extended(1e39L)), platform::Overflow);
}

TEST(ToSingle, OfAnExtended_IsRoundedOnce)
{
    // A hair above halfway: by way of double the hair would be lost and the even neighbour below be taken.
    const Extended hair = 16777217.0L + std::ldexp(1.0L, -38);
    EXPECT_EQ(Double(hair), 16777217.0);
    EXPECT_EQ(platform::ToSingle(hair), 16777218.0F);
}

TEST(ToSingle, OfMoney_IsTheNearestSingle)
{
    const struct
    {
        std::int64_t money;
        Single nearest;
    } cases[] = {{0, 0.0F},
                 {1, 0.0001F},
                 {12345, 1.2345F},
                 {-12345, -1.2345F},
                 {167772170000, 16777216.0F},               // 16,777,217: halfway, to even
                 {167772170001, 16777218.0F},               // a hair above
                 {167772169999, 16777216.0F},               // a hair below
                 {9007199724503040000, 900720006004736.0F}, // halfway between large neighbours, to even
                 {9007199724503040001, 900720006004736.0F},
                 {9007199724503039999, 900719938895872.0F},
                 {kMostMoney, 922337180385280.0F}};
    for (const auto& c : cases) {
        EXPECT_EQ(platform::ToSingle(Money(c.money)), c.nearest) << c.money;
    }
}

TEST(ToDouble, OfMoneyWithin53Bits_IsTheNearestDouble)
{
    EXPECT_EQ(platform::ToDouble(Money(1)), 0.0001);
    EXPECT_EQ(platform::ToDouble(Money(-33333)), -3.3333);
    EXPECT_EQ(platform::ToDouble(Money(9007199254740991)), 900719925474.0991);
    EXPECT_EQ(platform::ToDouble(Money(12345678901)), 1234567.8901);
}

TEST(ToDouble, OfAnExtended_StaysInRange)
{
    EXPECT_EQ(platform::ToDouble(0.1L), 0.1);
    EXPECT_THROW(platform::ToDouble(std::numeric_limits<Extended>::max()), platform::Overflow);
    EXPECT_THROW(platform::ToDouble(std::numeric_limits<Extended>::quiet_NaN()), platform::Overflow);
}

TEST(Finite, LetsNumbersThroughAndNothingElse)
{
    EXPECT_EQ(platform::Finite(-1.5), -1.5);
    EXPECT_THROW(platform::Finite(kInfinity), platform::Overflow);
    EXPECT_THROW(platform::Finite(-kInfinity), platform::Overflow);
    EXPECT_THROW(platform::Finite(kNaN), platform::Overflow);
}

TEST(ToCurrency, TheExactValue_IsRoundedHalfToEven)
{
    const struct
    {
        Double value;
        std::int64_t money;
    } cases[] = {
        {0.0, 0},         {-0.0, 0},         {1.0, 10000},
        {1.2345, 12345},  {-1.2345, -12345}, {0.00005, 1}, // in binary a hair above the half
        {0.00015, 1},                                      // in binary a hair below the half
        {0.00025, 3},                                      // a hair above
        {0.00035, 3},                                      // a hair below
        {0.03125, 312},                                    // 312.5 exactly
        {0.09375, 938},                                    // 937.5 exactly
        {0.15625, 1562},                                   // 1562.5 exactly
        {-0.03125, -312},                                  // both sides of zero alike
        {-0.09375, -938}, {1.03125, 10312},  {1e-9, 0},
        {-1e-300, 0},     {5e-324, 0},       {1e9, 10000000000000},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(platform::ToCurrency(c.value).TenThousandths(), c.money) << c.value;
    }
}

TEST(ToCurrency, NextToAHalf_IsDecidedByTheLastBit)
{
    const Double half = 0.03125;
    EXPECT_EQ(platform::ToCurrency(std::nextafter(half, 1.0)).TenThousandths(), 313);
    EXPECT_EQ(platform::ToCurrency(std::nextafter(half, 0.0)).TenThousandths(), 312);
    const Double second = 0.09375;
    EXPECT_EQ(platform::ToCurrency(std::nextafter(second, 0.0)).TenThousandths(), 937);
}

TEST(ToCurrency, LargeAmounts_AreExactToTheEdgeOfTheRange)
{
    EXPECT_EQ(platform::ToCurrency(922337203685477.5).TenThousandths(), 9223372036854775000);
    EXPECT_EQ(platform::ToCurrency(-922337203685477.5).TenThousandths(), -9223372036854775000);
    EXPECT_EQ(platform::ToCurrency(123456789012.3456).TenThousandths(), 1234567890123456);
    EXPECT_EQ(platform::ToCurrency(900719925474.0991).TenThousandths(), 9007199254740991);
    for (const Double beyond : {922337203685477.625, -922337203685477.625, 1e15, 1e300, kInfinity, kNaN}) {
        EXPECT_THROW(platform::ToCurrency(beyond), platform::Overflow) << beyond;
    }
}

TEST(ToCurrency, AmountsBelowAnEighthOf53Bits_ComeBackFromDouble)
{
    // The way into the file and out of it again.
    for (std::int64_t money = 1; money < 900719925474099; money = money * 7 + 3) {
        EXPECT_EQ(platform::ToCurrency(platform::ToDouble(Money(money))), Money(money)) << money;
        EXPECT_EQ(platform::ToCurrency(platform::ToDouble(Money(-money))), Money(-money)) << money;
    }
}

TEST(Add, OfMoney_ThrowsWhereTheSumLeaves64Bits)
{
    EXPECT_EQ(platform::Add(Money(kMostMoney - 1), Money(1)).TenThousandths(), kMostMoney);
    EXPECT_THROW(platform::Add(Money(kMostMoney), Money(1)), platform::Overflow);
    EXPECT_THROW(platform::Add(Money(-kMostMoney), Money(-2)), platform::Overflow);
}

TEST(WholeArithmetic, AtTheEdgesOf32Bits_HoldsOrThrows)
{
    EXPECT_EQ(platform::Add(kHighest - 1, 1), kHighest);
    EXPECT_THROW(platform::Add(kHighest, 1), platform::Overflow);
    EXPECT_THROW(platform::Add(kLowest, -1), platform::Overflow);
    EXPECT_EQ(platform::Subtract(kLowest + 1, 1), kLowest);
    EXPECT_THROW(platform::Subtract(kLowest, 1), platform::Overflow);
    EXPECT_THROW(platform::Subtract(0, kLowest), platform::Overflow);
    EXPECT_EQ(platform::Multiply(46340, 46340), 2147395600);
    EXPECT_THROW(platform::Multiply(46341, 46341), platform::Overflow);
    EXPECT_THROW(platform::Multiply(kLowest, -1), platform::Overflow);
}
