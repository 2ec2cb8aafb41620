#include "platform/base/Errors.h"
#include "platform/base/Texts.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>

TEST(Val, TakesTheNumberATextBeginsWith)
{
    const struct
    {
        const char* text;
        Double value;
    } cases[] = {
        {"12.5 acres", 12.5},
        {" 1 2", 12.0},
        {"1e5", 100000.0},
        {"1E5", 100000.0},
        {"1e", 1.0},
        {"1e+", 1.0},
        {"1e-", 1.0},
        {"1e+2", 100.0},
        {"1e-2x", 0.01},
        {"-.5", -0.5},
        {"+.5", 0.5},
        {".5", 0.5},
        {"5.", 5.0},
        {"5.x", 5.0},
        {"", 0.0},
        {"   ", 0.0},
        {"1,000", 1.0},
        {"1,000.5", 1.0},
        {"acres", 0.0},
        {".", 0.0},
        {"-", 0.0},
        {"+-5", 0.0},
        {"--5", 0.0},
        {"- 5", -5.0},
        {"1.2.3", 1.2},
        {"$5", 0.0},
        {"0x10", 0.0},
        {"&H10", 0.0},
        {"inf", 0.0},
        {"nan", 0.0},
        {"1e-400", 0.0},
        {"-1e-400", 0.0},
        {"0e999999", 0.0},
        {"\t7\r\n", 7.0},
        {"1 e 3", 1000.0},
        {"3 early", 3.0},
        {"007", 7.0},
        {"1d5", 1.0},
        {"0.1", 0.1},
        {"5e-324", 5e-324},
        {"1.7976931348623157e308", 1.7976931348623157e308},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(platform::Val(c.text), c.value) << c.text;
    }
}

TEST(Val, BeyondDouble_Throws)
{
    for (const char* text : {"1e400", "-1e400", "1e999999999999", "2e308"}) {
        EXPECT_THROW(platform::Val(text), platform::Overflow) << text;
    }
    EXPECT_THROW(platform::Val("1" + std::string(5000, '0')), platform::Overflow);
}

TEST(Val, ManyDigits_AreWeighedWithTheExponent)
{
    const std::string zeros(5000, '0');
    EXPECT_EQ(platform::Val("0." + zeros + "1"), 0.0);
    EXPECT_EQ(platform::Val("0." + zeros + "1e5001"), 1.0);
    EXPECT_EQ(platform::Val("1" + zeros + "e-5000"), 1.0);
    EXPECT_EQ(platform::Val("1" + zeros + "e-9000"), 0.0);
    EXPECT_EQ(platform::Val("1e-999999999999"), 0.0);
    EXPECT_EQ(platform::Val("0" + zeros), 0.0);
    EXPECT_THROW(platform::Val("1" + zeros + "e-100"), platform::Overflow);
    EXPECT_THROW(platform::Val("0." + zeros + "1e9000"), platform::Overflow);
}

TEST(IsNumeric, TakesAWholeNumberText)
{
    for (const char* text : {"10,000",
                             "1",
                             "-1",
                             "+1",
                             "$5",
                             "-$5",
                             "+$5",
                             "1.5",
                             ".5",
                             "5.",
                             "1,234,567.89",
                             "1,2,3",
                             " 7 ",
                             "1e5",
                             "1E-5",
                             "1.5e+3",
                             "$1,000",
                             "-.5",
                             "\t3\n"}) {
        EXPECT_TRUE(platform::IsNumeric(text)) << text;
    }
}

TEST(IsNumeric, RefusesEverythingElse)
{
    for (const char* text : {"",    " ",   ",,",   "1,,2",     ",1",  "1,",  "1,.5", "1.5,0", "1.2.3", "$",
                             "$-5", "- 5", "1 2",  "12 acres", "1e",  "1e+", "e5",   ".",     "-",     "--1",
                             "(5)", "5%",  "0x10", "inf",      "nan", "$$5", "5$",   "1,e5"}) {
        EXPECT_FALSE(platform::IsNumeric(text)) << text;
    }
    EXPECT_FALSE(platform::IsNumeric(std::string("1\0", 2)));
}

TEST(NumberOf, ReadsWhatIsNumeric)
{
    EXPECT_EQ(platform::NumberOf("10,000"), 10000.0);
    EXPECT_EQ(platform::NumberOf(" -$1,234.50 "), -1234.5);
    EXPECT_EQ(platform::NumberOf("1.5e3"), 1500.0);
    EXPECT_THROW(platform::NumberOf("12 acres"), platform::TypeMismatch);
    EXPECT_THROW(platform::NumberOf(""), platform::TypeMismatch);
    EXPECT_THROW(platform::NumberOf("1e400"), platform::Overflow);
    EXPECT_EQ(platform::NumberOf("1e-400"), 0.0);
}

TEST(TextOf, ASingle_HasTheFewestDigitsThatGiveItBack)
{
    const struct
    {
        Single value;
        const char* text;
    } cases[] = {{0.5F, "0.5"},
                 {1250.0F, "1250"},
                 {123456.79F, "123456.79"},
                 {12345678.0F, "12345678"},
                 {0.0F, "0"},
                 {-0.0F, "0"},
                 {-2.5F, "-2.5"},
                 {0.1F, "0.1"},
                 {1e10F, "10000000000"},
                 {1e-7F, "0.0000001"},
                 {16777216.0F, "16777216"},
                 {3.4e38F, "340000000000000000000000000000000000000"},
                 {1.0F / 3.0F, "0.33333334"}};
    for (const auto& c : cases) {
        EXPECT_EQ(platform::TextOf(c.value), c.text);
    }
}

TEST(TextOf, EverySingle_ComesBackFromItsText)
{
    // A walk over the bit patterns of both signs, coarse enough to be quick.
    for (std::uint64_t bits = 1; bits < 0x7F800000ULL; bits += 100003) {
        const auto pattern = static_cast<std::uint32_t>(bits);
        Single value = 0.0F;
        std::memcpy(&value, &pattern, sizeof value);
        ASSERT_EQ(static_cast<Single>(platform::Val(platform::TextOf(value))), value) << value;
    }
}

TEST(TextOf, DoublesAndWholeNumbers)
{
    EXPECT_EQ(platform::TextOf(0.1), "0.1");
    EXPECT_EQ(platform::TextOf(1e21), "1000000000000000000000");
    EXPECT_EQ(platform::TextOf(-1.25), "-1.25");
    EXPECT_EQ(platform::TextOf(std::numeric_limits<Long>::min()), "-2147483648");
    EXPECT_THROW(platform::TextOf(std::numeric_limits<Double>::infinity()), platform::Overflow);
    EXPECT_THROW(platform::TextOf(std::numeric_limits<Single>::quiet_NaN()), platform::Overflow);
}

TEST(Left, CountsCharactersNotBytes)
{
    EXPECT_EQ(platform::Left("Säo Tomé", 2), "Sä");
    EXPECT_EQ(platform::Left("日本語", 2), "日本");
    EXPECT_EQ(platform::Left("a😀b", 2), "a😀");
    EXPECT_EQ(platform::Left("abc", 0), "");
    EXPECT_EQ(platform::Left("abc", 3), "abc");
    EXPECT_EQ(platform::Left("abc", 99), "abc");
    EXPECT_EQ(platform::Left("", 5), "");
}

TEST(Left, AStrayByte_CountsAsOneCharacter)
{
    EXPECT_EQ(platform::Left("\xFFxy", 2), "\xFFx");
    EXPECT_EQ(platform::Left("a\xE6\x97", 2), "a\xE6");    // a character cut off at the end
    EXPECT_EQ(platform::Left("\xC0\x80z", 2), "\xC0\x80"); // an overlong form is two strays
}

TEST(ValidUtf8, LeavesGoodTextAloneAndMarksEveryBadByte)
{
    const std::string mark = "\xEF\xBF\xBD";
    const struct
    {
        std::string text;
        std::string valid;
    } cases[] = {{"plain", "plain"},
                 {"Tomé 日 😀", "Tomé 日 😀"},
                 {std::string("a\0b", 3), std::string("a\0b", 3)},
                 {"\x80", mark},
                 {"caf\xE9", "caf" + mark},
                 {"\xC1\xBF", mark + mark},            // overlong
                 {"\xE0\x80\x80", mark + mark + mark}, // overlong
                 {"\xF0\x80\x80\x80", mark + mark + mark + mark},
                 {"\xED\xA0\x80", mark + mark + mark},            // a surrogate
                 {"\xF4\x90\x80\x80", mark + mark + mark + mark}, // beyond U+10FFFF
                 {"\xF4\x8F\xBF\xBF", "\xF4\x8F\xBF\xBF"},
                 {"\xED\x9F\xBF", "\xED\x9F\xBF"},
                 {"\xE2\x82", mark + mark},
                 {"\xF5z", mark + "z"},
                 {"", ""}};
    for (const auto& c : cases) {
        EXPECT_EQ(platform::ValidUtf8(c.text), c.valid) << testing::PrintToString(c.text);
    }
}

TEST(JoinLines, PutsBreaksBetween)
{
    EXPECT_EQ(platform::JoinLines({}), "");
    EXPECT_EQ(platform::JoinLines({"one"}), "one");
    EXPECT_EQ(platform::JoinLines({"one", "", "three"}), "one\n\nthree");
}
