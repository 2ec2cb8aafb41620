#include "platform/richtext/RtfOutput.h"

#include <gtest/gtest.h>

#include <limits>

using namespace platform::richtext;

namespace {

std::string Written(std::string_view text, FontBytes bytes = FontBytes::Latin)
{
    std::string rtf;
    AppendRtfText(rtf, text, bytes);
    return rtf;
}

} // namespace

TEST(RtfOutput, Text_IsEscapedAndAscii)
{
    const std::vector<std::pair<std::string, std::string>> cases{
        {"", ""},
        {R"(C:\maps {old})", R"(C:\\maps \{old\})"},
        {"90 °F, ½ inch, Cañada", R"(90 \'b0F, \'bd inch, Ca\'f1ada)"},
        {"≥ 5", R"(\u8805  5)"},
        {"• one", R"(\u8226  one)"},
        {"€100 and \U0001F600.", R"(\u8364 100 and \u-10179 \u-8704 .)"},
        {"\U0010FFFF", R"(\u-9217 \u-8193 )"},
        {"\u7FFF\u8000", R"(\u32767 \u-32768 )"},
        {"\uF0B7", R"(\u-3913 )"},
        {"\u00A0\u00AD\u00FF", R"(\'a0\'ad\'ff)"},
        {"\u0080", R"(\u128 )"}, // a byte 80 would be the euro sign
        {"a\tb\nc", R"(a\tab b\line c)"},
        {"“quoted”, ‘so’ – and — on",
         R"(\ldblquote quoted\rdblquote , \lquote so\rquote  \endash  and \emdash  on)"},
    };
    for (const auto& [text, rtf] : cases)
        EXPECT_EQ(Written(text), rtf) << text;
}

TEST(RtfOutput, ControlCharacters_AreLeftOut)
{
    EXPECT_EQ(Written("a\x01\x7F\r"
                      "b"),
              "ab");
}

TEST(RtfOutput, BytesThatAreNoText_BecomeReplacements)
{
    for (const std::string bad : {"\xFF", "\x80", "\xC3", "\xC0\x80", "\xED\xA0\x80", "\xF5\x80\x80\x80"})
        EXPECT_EQ(Written(bad).substr(0, 5), "\\u-3 ") << bad.size();
    EXPECT_EQ(Written("a\xC3"
                      "b"),
              "a\\u-3 b");
}

// A symbol font makes other characters of bytes, so even letters go by their numbers.
TEST(RtfOutput, SymbolFont_EveryCharacterGoesByItsNumber)
{
    EXPECT_EQ(Written("a é\t\uF0B7", FontBytes::Symbol), R"(\u97 \u32 \u233 \tab \u-3913 )");
}

TEST(RtfOutput, Units_CountPairsTwice)
{
    EXPECT_EQ(UnitsOf(""), 0U);
    EXPECT_EQ(UnitsOf("a•é"), 3U);
    EXPECT_EQ(UnitsOf("\U0001F600"), 2U);
}

TEST(RtfOutput, Numbers_AndBytes)
{
    std::string rtf;
    AppendWord(rtf, "\\li", -360);
    AppendWord(rtf, "\\x", std::numeric_limits<std::int64_t>::min());
    AppendByte(rtf, 7);
    AppendHex(rtf, std::string_view("\x00\x7F\xFF", 3));
    EXPECT_EQ(rtf, R"(\li-360\x-9223372036854775808\'07007fff)");
}
