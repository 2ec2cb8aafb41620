#include "vexa-cli/JsonWriter.h"

#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>

namespace {

using vexa_cli::JsonWriter;

template <class Value> std::string Written(Value value)
{
    JsonWriter json(JsonWriter::Layout::Compact);
    json.Value(value);
    std::string text = json.Take();
    text.pop_back();
    return text;
}

TEST(JsonWriter, Single_HasTheFewestDigitsOfItsOwnWidth)
{
    EXPECT_EQ(Written(0.1F), "0.1");
    EXPECT_EQ(Written(Double(0.1F)), "0.10000000149011612");
    EXPECT_EQ(Written(16777216.0F), "16777216");
    EXPECT_EQ(Written(123456.79F), "123456.79");
    EXPECT_EQ(Written(100000.0F), "100000");
    EXPECT_EQ(Written(-2.5F), "-2.5");
    EXPECT_EQ(Written(0.00001F), "0.00001");
}

TEST(JsonWriter, VerySmallAndVeryLargeFigures_HaveAnExponent)
{
    EXPECT_EQ(Written(3.4028235e38F), "3.4028235e38");
    EXPECT_EQ(Written(1e-45F), "1e-45");
    EXPECT_EQ(Written(1e300), "1e300");
    EXPECT_EQ(Written(-1.5e-10), "-1.5e-10");
    EXPECT_EQ(Written(123456789012345680000.0), "123456789012345680000");
}

TEST(JsonWriter, MinusZero_IsZero)
{
    EXPECT_EQ(Written(-0.0F), "0");
    EXPECT_EQ(Written(-0.0), "0");
}

TEST(JsonWriter, NoFiniteNumber_IsNull)
{
    EXPECT_EQ(Written(std::numeric_limits<Double>::infinity()), "null");
    EXPECT_EQ(Written(std::numeric_limits<Single>::quiet_NaN()), "null");
}

TEST(JsonWriter, Singles_ComeBackToTheBit)
{
    std::uint32_t bits = 12345;
    for (int i = 0; i < 20000; ++i) {
        bits = bits * 1664525U + 1013904223U;
        Single value = 0;
        std::memcpy(&value, &bits, sizeof value);
        if (!std::isfinite(value)) {
            continue;
        }
        const std::string text = Written(value);
        Single back = 0;
        std::from_chars(text.data(), text.data() + text.size(), back);
        ASSERT_EQ(back, value) << text;
    }
}

TEST(JsonWriter, Text_IsEscapedAndAlwaysUtf8)
{
    EXPECT_EQ(Written("a \"b\" \\ \b\f\n\r\t"), R"("a \"b\" \\ \b\f\n\r\t")");
    EXPECT_EQ(Written(std::string("\x01\x1f\x7f\0", 4)), R"("\u0001\u001f\u007f\u0000")");
    EXPECT_EQ(Written("Ängsjö 山火事"), "\"Ängsjö 山火事\"");
    EXPECT_EQ(Written("caf\xe9"), "\"caf\xEF\xBF\xBD\"");
}

TEST(JsonWriter, Layouts_DifferInLinesOnly)
{
    const auto write = [](JsonWriter::Layout layout) {
        JsonWriter json(layout);
        json.BeginObject();
        json.Key("a");
        json.BeginArray();
        json.Value(Long{1});
        json.Value(true);
        json.Null();
        json.EndArray();
        json.Key("b");
        json.BeginObject();
        json.EndObject();
        json.EndObject();
        return json.Take();
    };
    EXPECT_EQ(write(JsonWriter::Layout::Compact), "{\"a\":[1,true,null],\"b\":{}}\n");
    EXPECT_EQ(write(JsonWriter::Layout::Pretty),
              "{\n  \"a\": [\n    1,\n    true,\n    null\n  ],\n  \"b\": {}\n}\n");
}

} // namespace
