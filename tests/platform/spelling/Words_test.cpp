#include "platform/spelling/Words.h"

#include <gmock/gmock.h>

using platform::PartsOf;
using platform::PlainWord;
using platform::WordPlace;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

std::vector<std::string> Cut(std::string_view text, const std::vector<WordPlace>& places)
{
    std::vector<std::string> words;
    for (const WordPlace& place : places)
        words.emplace_back(text.substr(place.start, place.length));
    return words;
}

std::vector<std::string> Words(std::string_view text) { return Cut(text, platform::WordsOf(text)); }

TEST(Words, Sentence_ItsWordsWithoutMarks)
{
    EXPECT_THAT(Words("Hold the ridge (north), then mop up!"),
                ElementsAre("Hold", "the", "ridge", "north", "then", "mop", "up"));
}

TEST(Words, NoWords_None)
{
    for (const char* text : {"", " ", "...", "--", "'", "- ' .", "12 3.5 $1,000", "\t\r\n"})
        EXPECT_THAT(Words(text), IsEmpty()) << text;
}

TEST(Words, Places_AreBytes)
{
    const auto places = platform::WordsOf("Añasco fire");
    ASSERT_EQ(places.size(), 2U);
    EXPECT_EQ(places[0].start, 0U);
    EXPECT_EQ(places[0].length, 7U);
    EXPECT_EQ(places[1].start, 8U);
    EXPECT_EQ(places[1].length, 4U);
}

TEST(Words, Apostrophes_BelongBetweenLettersOnly)
{
    EXPECT_THAT(Words("can't isn\u2019t 'quoted' crews' \u2018so\u2019 o'clock"),
                ElementsAre("can't", "isn\u2019t", "quoted", "crews", "so", "o'clock"));
}

TEST(Words, Hyphens_HoldAWordTogether)
{
    EXPECT_THAT(Words("mop-up re\u2010burn -left right- a--b"),
                ElementsAre("mop-up", "re\u2010burn", "left", "right", "a", "b"));
}

TEST(Words, MixedWithDigits_Skipped)
{
    EXPECT_THAT(Words("T3 4th 10am Div2A H2O crew 7b ok"), ElementsAre("crew", "ok"));
    EXPECT_THAT(Words("type-3 unit_name"), IsEmpty());
}

TEST(Words, LettersPartedByPoints_Skipped)
{
    EXPECT_THAT(Words("the U.S. and e.g. at 7 a.m., J.R. said"), ElementsAre("the", "and", "at", "said"));
}

TEST(Words, PointsElsewhere_PartWords)
{
    EXPECT_THAT(Words("Done.Then plan B.Next I. fire.qel"),
                ElementsAre("Done", "Then", "plan", "B", "Next", "I", "fire", "qel"));
}

TEST(Words, Addresses_Skipped)
{
    EXPECT_THAT(
        Words("see https://www.example.org/fyre?x=blaz or www.exampel.org, mail kru@exampel.org. Thx"),
        ElementsAre("see", "or", "mail", "Thx"));
    EXPECT_THAT(Words("(http://exampel.org)"), IsEmpty());
    EXPECT_THAT(Words("http://exampel.org\nnext"), ElementsAre("next"));
}

TEST(Words, OtherScripts_SkippedAndAccentsKept)
{
    EXPECT_THAT(Words("Añasco, пожар, 火事 piñon cafe\u0301 Ωmega"),
                ElementsAre("Añasco", "piñon", "cafe\u0301"));
}

TEST(Words, BlanksAndMarksBeyondAscii_PartWords)
{
    EXPECT_THAT(
        Words("one\u00A0two\u2014three\u2026four\u2028five\u201Csix\u201D\uFFFCseven \U0001F525eight"),
        ElementsAre("one", "two", "three", "four", "five", "six", "seven", "eight"));
}

TEST(Words, StrayBytes_PartWordsAndKeepThePlaces)
{
    const std::string text = "one\xFFtwo\xC3 three\xE2\x80";
    EXPECT_THAT(Words(text), ElementsAre("one", "two", "three"));
}

TEST(Words, LongText_AllOfIt)
{
    std::string text;
    for (int i = 0; i < 20000; ++i)
        text += "ridge, ";
    EXPECT_EQ(platform::WordsOf(text).size(), 20000U);
}

TEST(Words, Parts_BetweenHyphens)
{
    EXPECT_THAT(Cut("mop-up", PartsOf("mop-up")), ElementsAre("mop", "up"));
    EXPECT_THAT(Cut("a\u2011b-c", PartsOf("a\u2011b-c")), ElementsAre("a", "b", "c"));
    EXPECT_THAT(Cut("snag", PartsOf("snag")), ElementsAre("snag"));
}

TEST(Words, PlainWord_StraightApostrophesAndHyphens)
{
    EXPECT_EQ(PlainWord("isn\u2019t"), "isn't");
    EXPECT_EQ(PlainWord("re\u2010burn"), "re-burn");
    EXPECT_EQ(PlainWord("Añasco"), "Añasco");
}

} // namespace
