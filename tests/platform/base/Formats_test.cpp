#include "platform/base/Errors.h"
#include "platform/base/Formats.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

using platform::Format;

namespace {

struct Case
{
    Double value;
    const char* format;
    const char* text;
};

template <std::size_t Count> void Check(const Case (&cases)[Count])
{
    for (const Case& c : cases) {
        EXPECT_EQ(Format(c.value, c.format), c.text) << c.format << " of " << c.value;
    }
}

} // namespace

TEST(Format, Thousands)
{
    Check({{0, "#,0", "0"},
           {0.4, "#,0", "0"},
           {0.5, "#,0", "1"},
           {7, "#,0", "7"},
           {999, "#,0", "999"},
           {1000, "#,0", "1,000"},
           {999999.5, "#,0", "1,000,000"},
           {1234567.4, "#,0", "1,234,567"},
           {-1234.5, "#,0", "-1,235"},
           {-0.4, "#,0", "0"},
           {1e15, "#,0", "1,000,000,000,000,000"},
           {100000, "#,0", "100,000"}});
}

TEST(Format, ThousandsWithAnEmptyZero)
{
    Check({{0, "#,#", ""},
           {0.4, "#,#", ""},
           {-0.4, "#,#", ""},
           {1, "#,#", "1"},
           {1234567, "#,#", "1,234,567"}});
}

TEST(Format, Money)
{
    Check({{-1234.5, "$#,0", "-$1,235"},
           {0, "$#,0", "$0"},
           {-0.2, "$#,0", "$0"},
           {999.5, "$#,0", "$1,000"},
           {12345678, "$#,0", "$12,345,678"},
           {1234, "$#,#", "$1,234"},
           {0, "$#,#", "$"},
           {-1234, "$#,#", "-$1,234"}});
}

TEST(Format, PlainNumbers)
{
    Check({{0, "0", "0"},
           {1234567, "0", "1234567"},
           {2.5, "0", "3"}, // halves away from zero, not to even
           {3.5, "0", "4"},
           {-2.5, "0", "-3"},
           {0, "#", ""},
           {0.49, "#", ""},
           {12, "#", "12"},
           {-12, "#", "-12"}});
}

TEST(Format, Decimals)
{
    Check({{0, "0.0", "0.0"},
           {-0.04, "0.0", "0.0"}, // no "-0"
           {-0.05, "0.0", "-0.1"},
           {0.05, "0.0", "0.1"},
           {5.25, "0.0", "5.3"},
           {999.95, "0.0", "1000.0"},
           {9.96, "0.0", "10.0"},
           {0, "0.00", "0.00"},
           {0.005, "0.00", "0.01"},
           {1.005, "0.00", "1.01"}, // the shortest decimal counts, not the binary value below it
           {2.675, "0.00", "2.68"},
           {0.004, "0.00", "0.00"},
           {1234.5, "0.00", "1234.50"},
           {1e-20, "0.00", "0.00"}});
}

TEST(Format, DecimalsWithoutALeadingZero)
{
    Check({{0, "#.0", ".0"},
           {0.25, "#.0", ".3"},
           {-0.25, "#.0", "-.3"},
           {0.96, "#.0", "1.0"},
           {12.34, "#.0", "12.3"},
           {0, "#,#.00", ".00"},
           {0.5, "#,#.00", ".50"},
           {1234.567, "#,#.00", "1,234.57"},
           {-1234.567, "#,#.00", "-1,234.57"},
           {999999.995, "#,#.00", "1,000,000.00"}});
}

TEST(Format, ASingle_IsRoundedOnItsOwnShortestDecimal)
{
    EXPECT_EQ(Format(0.45F, "0.0"), "0.5"); // as a double this is 0.449999988
    EXPECT_EQ(Format(0.15F, "0.0"), "0.2");
    EXPECT_EQ(Format(1.005F, "0.00"), "1.01");
    EXPECT_EQ(Format(999.95F, "0.0"), "1000.0");
    EXPECT_EQ(Format(-0.0F, "0.0"), "0.0");
    EXPECT_EQ(Format(16777216.0F, "#,0"), "16,777,216");
    EXPECT_EQ(Format(1e-30F, "0.00"), "0.00");
}

TEST(Format, APowerOfTen_GetsItsSeparatorsInTheRightPlaces)
{
    const char* const texts[] = {"1", "10", "100", "1,000", "10,000", "100,000", "1,000,000"};
    Double power = 1;
    for (const char* text : texts) {
        EXPECT_EQ(Format(power, "#,0"), text);
        EXPECT_EQ(Format(power - 0.5, "#,0"), text) << "rounded up to it";
        power *= 10;
    }
}

TEST(Format, AWholeNumber)
{
    EXPECT_EQ(Format(Long(0), "#,0"), "0");
    EXPECT_EQ(Format(std::numeric_limits<Long>::max(), "#,0"), "2,147,483,647");
    EXPECT_EQ(Format(std::numeric_limits<Long>::min(), "#,0"), "-2,147,483,648");
    EXPECT_EQ(Format(Long(100), "0.00"), "100.00");
}

TEST(Format, Currency_IsExact)
{
    const auto money = [](std::int64_t value) { return platform::Currency::FromTenThousandths(value); };
    EXPECT_EQ(Format(money(0), "$#,0"), "$0");
    EXPECT_EQ(Format(money(0), "#,#"), "");
    EXPECT_EQ(Format(money(5000), "#,0"), "1");
    EXPECT_EQ(Format(money(4999), "#,0"), "0");
    EXPECT_EQ(Format(money(-4999), "#,0"), "0");
    EXPECT_EQ(Format(money(-5000), "$#,0"), "-$1");
    EXPECT_EQ(Format(money(5), "0.00"), "0.00");
    EXPECT_EQ(Format(money(50), "0.00"), "0.01");
    EXPECT_EQ(Format(money(9999), "0.00"), "1.00");
    EXPECT_EQ(Format(money(10000), "$#,#"), "$1");
    EXPECT_EQ(Format(money(12345678900), "#,#.00"), "1,234,567.89");
    EXPECT_EQ(Format(money(std::numeric_limits<std::int64_t>::max()), "#,#.00"), "922,337,203,685,477.58");
    EXPECT_EQ(Format(money(std::numeric_limits<std::int64_t>::min()), "$#,0"), "-$922,337,203,685,478");
}

TEST(Format, NoFiniteNumber_Throws)
{
    EXPECT_THROW(Format(std::numeric_limits<Double>::infinity(), "#,0"), platform::Overflow);
    EXPECT_THROW(Format(std::numeric_limits<Double>::quiet_NaN(), "0.0"), platform::Overflow);
    EXPECT_THROW(Format(std::numeric_limits<Single>::infinity(), "0"), platform::Overflow);
}
