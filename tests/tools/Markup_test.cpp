#include "datafile_builder/BuildError.h"
#include "datafile_builder/Markup.h"

#include <gtest/gtest.h>

#include <gmock/gmock.h>

using datafile_builder::BuildError;
using datafile_builder::DefaultBody;
using datafile_builder::MarkupToRtf;

namespace {

const std::string head = R"({\rtf1\ansi\ansicpg1252\uc0\deff0{\fonttbl{\f0\fswiss\fcharset0\fprq2 Arial;}})"
                         R"({\colortbl;\red0\green0\blue0;\red255\green255\blue255;})";
const std::string bulletLevel =
    R"({\listlevel\levelnfc23\leveljc0\levelfollow0\levelstartat1\levelspace0\levelindent0)"
    R"({\leveltext\'01\u8226 ;}{\levelnumbers;}\fi-360\li360\tx360}{\listname ;})";
const std::string numberLevel =
    R"({\listlevel\levelnfc0\leveljc0\levelfollow0\levelstartat1\levelspace0\levelindent0)"
    R"({\leveltext\'02\'00.;}{\levelnumbers\'01;}\fi-360\li360\tx360}{\listname ;})";
const std::string bullet = R"(\pard {\listtext \u8226 \tab}\ls1\ilvl0\fi-360\li360\tx360 )";

/// A body without lists.
std::string Body(const std::string& paragraphs) { return head + R"(\plain\f0\fs20 )" + paragraphs + "}"; }

std::string OneParagraph(const std::string& text) { return Body("\\pard " + text + "\\par "); }

} // namespace

TEST(Markup, EmptyText_IsTheDefaultBodyToTheLetter)
{
    const std::string body =
        R"({\rtf1\ansi\ansicpg1252\uc0\deff0{\fonttbl{\f0\fswiss\fcharset0\fprq2 Arial;}})"
        R"({\colortbl;\red0\green0\blue0;\red255\green255\blue255;}\plain\f0\fs20 \pard \par })";
    EXPECT_EQ(MarkupToRtf(""), body);
    EXPECT_EQ(DefaultBody(), body);
}

TEST(Markup, Lines_AreParagraphsAndEmptyLinesEmptyOnes)
{
    EXPECT_EQ(MarkupToRtf("One"), Body(R"(\pard One\par )"));
    EXPECT_EQ(MarkupToRtf("One\nTwo"), Body(R"(\pard One\par \pard Two\par )"));
    EXPECT_EQ(MarkupToRtf("One\n\nTwo"), Body(R"(\pard One\par \pard \par \pard Two\par )"));
}

TEST(Markup, Text_IsEscapedAndAscii)
{
    const std::vector<std::pair<std::string, std::string>> cases{
        {R"(C:\maps {old})", R"(C:\\maps \{old\})"},
        {"90 °F, ½ inch, Cañada, 150 µg/m³", R"(90 \'b0F, \'bd inch, Ca\'f1ada, 150 \'b5g/m\'b3)"},
        {"≥ 5", R"(\u8805  5)"},
        {"€100 and \U0001F600.", R"(\u8364 100 and \u-10179 \u-8704 .)"},
        {"\xEF\xBF\xBD", R"(\u-3 )"},
        {"\xC2\x80", R"(\u128 )"}, // a byte 80 would be the euro sign
        {"\xC2\xA0", R"(\'a0)"},
        {"a\tb", R"(a\tab b)"},
        {"3 * 4 * 5", "3 * 4 * 5"},
    };
    for (const auto& [markup, text] : cases)
        EXPECT_EQ(MarkupToRtf(markup), OneParagraph(text)) << markup;
}

TEST(Markup, Bold_EndsWithABlankOnlyBeforeText)
{
    const std::vector<std::pair<std::string, std::string>> cases{
        {"**Target:** 900 acres", R"(\b Target:\b0  900 acres)"},
        {"the **middle** part", R"(the \b middle\b0  part)"},
        {"**all**", R"(\b all\b0)"},
        {"**a**, **b**", R"(\b a\b0 , \b b\b0)"},
        {"**é**é", R"(\b \'e9\b0 \'e9)"},
        {"a****b", "ab"},
    };
    for (const auto& [markup, text] : cases)
        EXPECT_EQ(MarkupToRtf(markup), OneParagraph(text)) << markup;
}

TEST(Markup, Bullets_AreOneListWithItsTablesAfterTheColours)
{
    EXPECT_EQ(MarkupToRtf("Keep:\n- **one**\n- two\nEnd"),
              head + R"({\*\listtable{\list\listtemplateid1\listhybrid)" + bulletLevel + R"(\listid1}})" +
                  R"({\*\listoverridetable{\listoverride\listid1\listoverridecount0\ls1}}\plain\f0\fs20 )" +
                  R"(\pard Keep:\par )" + bullet + R"(\b one\b0\par )" + bullet +
                  R"(two\par \pard End\par })");
}

TEST(Markup, Numbers_CountUpInTheirListText)
{
    EXPECT_EQ(MarkupToRtf("1. first\n2. second"),
              head + R"({\*\listtable{\list\listtemplateid1\listhybrid)" + numberLevel + R"(\listid1}})" +
                  R"({\*\listoverridetable{\listoverride\listid1\listoverridecount0\ls1}}\plain\f0\fs20 )" +
                  R"(\pard {\listtext 1.\tab}\ls1\ilvl0\fi-360\li360\tx360 first\par )" +
                  R"(\pard {\listtext 2.\tab}\ls1\ilvl0\fi-360\li360\tx360 second\par })");
}

TEST(Markup, FurtherLists_Are901AndUp)
{
    const std::string rtf = MarkupToRtf("- a\n1. b\n\n- c\n- d");
    EXPECT_THAT(rtf,
                testing::HasSubstr(R"({\*\listoverridetable{\listoverride\listid1\listoverridecount0\ls1})"
                                   R"({\listoverride\listid901\listoverridecount0\ls901})"
                                   R"({\listoverride\listid902\listoverridecount0\ls902}}\plain)"));
    EXPECT_THAT(rtf, testing::HasSubstr(R"({\listtext 1.\tab}\ls901\ilvl0)"));
    EXPECT_THAT(
        rtf, testing::HasSubstr(R"({\list\listtemplateid901\listhybrid)" + numberLevel + R"(\listid901})"));
    EXPECT_THAT(
        rtf, testing::HasSubstr(R"({\list\listtemplateid902\listhybrid)" + bulletLevel + R"(\listid902})"));
    EXPECT_THAT(rtf, testing::HasSubstr(R"(\ls902\ilvl0\fi-360\li360\tx360 d\par })"));
}

TEST(Markup, AnEmptyLine_EndsAList)
{
    EXPECT_THAT(MarkupToRtf("1. a\n\n1. b"), testing::HasSubstr(R"({\listtext 1.\tab}\ls901\ilvl0)"));
    EXPECT_THROW(MarkupToRtf("1. a\n\n2. b"), BuildError);
}

TEST(Markup, WhatOnlyLooksLikeAnItem_StaysText)
{
    for (const std::string text :
         {"-5 degrees", "-", "1.5 miles", "2024. A dry year", "1 . a", "a - b", " - a"}) {
        EXPECT_EQ(MarkupToRtf(text), OneParagraph(text)) << text;
    }
}

TEST(Markup, BadMarkup_IsRefused)
{
    for (const std::string text : {"**open",
                                   "a ** b",
                                   "2. first",
                                   "1. a\n3. b",
                                   "1. a\n- b\n2. c",
                                   "bell \a",
                                   "a\rb",
                                   "\xFF",
                                   "caf\xE9",
                                   "\xC3",
                                   "\x7F"}) {
        EXPECT_THROW(MarkupToRtf(text), BuildError) << text;
    }
}
