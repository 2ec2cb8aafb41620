#include "platform/base/LateText.h"

#include <gtest/gtest.h>

#include <stdexcept>

using platform::LateText;

TEST(LateText, Read_ATextStands)
{
    LateText text;
    EXPECT_EQ(text.Read(), "");
    text = std::string("as written");
    EXPECT_EQ(text.Read(), "as written");
}

TEST(LateText, Read_TheMakerIsAskedOnceAndNotBefore)
{
    int asked = 0;
    LateText text;
    text = [&asked] { return "made " + std::to_string(++asked); };
    EXPECT_EQ(asked, 0);
    EXPECT_EQ(text.Read(), "made 1");
    EXPECT_EQ(text.Read(), "made 1");
    EXPECT_EQ(asked, 1);
}

TEST(LateText, Write_TheLastWriteCounts)
{
    LateText text;
    text = [] { return std::string("late"); };
    text = std::string("now");
    EXPECT_EQ(text.Read(), "now");
    text = [] { return std::string("late again"); };
    EXPECT_EQ(text.Read(), "late again");
}

TEST(LateText, Read_AMakerThatFailsIsAskedAgain)
{
    bool fails = true;
    LateText text;
    text = [&fails] { return fails ? throw std::runtime_error("no room") : std::string("made"); };
    EXPECT_THROW(text.Read(), std::runtime_error);
    fails = false;
    EXPECT_EQ(text.Read(), "made");
}
