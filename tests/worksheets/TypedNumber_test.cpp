#include "worksheets/TypedNumber.h"

#include <gtest/gtest.h>

namespace {

TEST(TypedNumber, Numbers)
{
    EXPECT_EQ(TypedNumber("1234.5"), 1234.5F);
    EXPECT_EQ(TypedNumber(" 1,234 "), 1234.0F);
    EXPECT_EQ(TypedNumber("$1,234"), 1234.0F);
    EXPECT_EQ(TypedNumber("-5"), -5.0F);
    EXPECT_EQ(TypedNumber("1e3"), 1000.0F);
}

TEST(TypedNumber, NoNumbers)
{
    for (const char* text : {"", " ", "abc", "12abc", "1,,2", "1e39", "-1e39", "1e999"})
        EXPECT_EQ(TypedNumber(text), std::nullopt) << text;
}

} // namespace
