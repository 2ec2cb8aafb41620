#include "platform/base/Errors.h"

#include <gtest/gtest.h>

TEST(Errors, EachKindHasItsNumberAndSaysWhat)
{
    const struct
    {
        platform::Error error;
        int number;
        const char* words;
    } cases[] = {{platform::Overflow("single"), 6, "Overflow: single"},
                 {platform::DivisionByZero("cost"), 11, "Division by zero: cost"},
                 {platform::OutOfBounds("list row", -1), 9, "Out of bounds: list row -1"},
                 {platform::TypeMismatch("12 acres"), 13, "Not a number: \"12 acres\""},
                 {platform::MissingMember("items", 7), 5, "No member k7 in items"},
                 {platform::DuplicateMember("items", 7), 457, "Already a member: k7 in items"}};
    for (const auto& c : cases) {
        EXPECT_EQ(c.error.Number(), c.number) << c.words;
        EXPECT_STREQ(c.error.what(), c.words);
    }
}
