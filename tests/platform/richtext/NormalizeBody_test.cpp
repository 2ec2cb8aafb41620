#include "platform/richtext/NormalizeBody.h"

#include <gtest/gtest.h>

using platform::richtext::NormalizeBody;

TEST(NormalizeBody, LastLineWithoutAMark_GetsOne)
{
    EXPECT_EQ(NormalizeBody(R"({\rtf1 \pard text})", "text"), R"({\rtf1 \pard text\par })");
}

TEST(NormalizeBody, WholeEnd_StaysAsItIs)
{
    EXPECT_EQ(NormalizeBody(R"({\rtf1 \pard text\par })", "text"), R"({\rtf1 \pard text\par })");
}

TEST(NormalizeBody, NoText_StaysAsItIs)
{
    EXPECT_EQ(NormalizeBody(R"({\rtf1 \pard})", ""), R"({\rtf1 \pard})");
    EXPECT_EQ(NormalizeBody(R"({\rtf1 \pard})", "\n"), R"({\rtf1 \pard\par })");
}

TEST(NormalizeBody, OtherEnd_StaysAsItIs)
{
    for (const std::string body : {"", "plain", "{\\rtf1 text}\r\n", "{\\rtf1 text} ", "{\\rtf1 text"})
        EXPECT_EQ(NormalizeBody(body, "text"), body);
}

// The end is compared to the letter: without its blank the paragraph mark does not count, and one line more
// stands in the text.
TEST(NormalizeBody, MarkWithoutItsBlank_GetsASecondOne)
{
    EXPECT_EQ(NormalizeBody(R"({\rtf1 text\par})", "text"), R"({\rtf1 text\par\par })");
}

TEST(NormalizeBody, BraceAlone_BecomesTheWholeEnd) { EXPECT_EQ(NormalizeBody("}", "text"), R"(\par })"); }
