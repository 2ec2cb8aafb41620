#include "platform/richtext/CodePages.h"

#include <gtest/gtest.h>

#include <string>

using namespace platform::richtext::reader;

namespace {

std::string Decoded(Long page, const std::string& bytes)
{
    ByteDecoder decoder;
    std::string text;
    decoder.SetPage(page, text);
    for (const char byte : bytes)
        decoder.Push(static_cast<unsigned char>(byte), text);
    decoder.Flush(text);
    return text;
}

struct CharsetCase
{
    Long charset;
    const char* bytes;
    const char* text;
};

} // namespace

TEST(CodePages, EveryCharset_HasItsPage)
{
    constexpr CharsetCase cases[] = {{0, "\x80\xE9", "\u20AC\u00E9"},
                                     {77, "\x8E", "\u00E9"},
                                     {128, "\x83v", "\u30D7"},
                                     {129, "\xB0\xA1", "\uAC00"},
                                     {130, "\x88\x61", "\uAC00"},
                                     {134, "\xC4\xE3", "\u4F60"},
                                     {136, "\xA7\x41", "\u4F60"},
                                     {161, "\xE1", "\u03B1"},
                                     {162, "\xFD", "\u0131"},
                                     {163, "\xFE", "\u20AB"},
                                     {177, "\xE0", "\u05D0"},
                                     {178, "\xC7", "\u0627"},
                                     {186, "\xE0", "\u0105"},
                                     {204, "\xCA", "\u041A"},
                                     {222, "\xA1", "\u0E01"},
                                     {238, "\xB9", "\u0105"},
                                     {254, "\x82", "\u00E9"},
                                     {255, "\x82", "\u00E9"}};
    for (const CharsetCase& one : cases)
        EXPECT_EQ(Decoded(PageOfCharset(one.charset), one.bytes), one.text) << one.charset;
    EXPECT_EQ(PageOfCharset(1), 0);
    EXPECT_EQ(PageOfCharset(77777), 0);
}

TEST(CodePages, EveryKnownPage_CanBeRead)
{
    for (Long page = 1; page <= 65001; ++page) {
        if (KnownPage(page) == 0) continue;
        EXPECT_EQ(Decoded(page, "a"), "a") << page;
        const bool hasNoUpperHalf = page == 20127 || page == 65001;
        const std::string upper = Decoded(page, page == 932 ? "\x83v" : page == 864 ? "\x80" : "\xC4\xE3");
        EXPECT_EQ(upper.find("\uFFFD") != std::string::npos, hasNoUpperHalf) << page << " " << upper;
    }
}

TEST(CodePages, BytesThatAreNoCharacter_AreReplaced)
{
    EXPECT_EQ(Decoded(1252, "\x81z"), "\uFFFDz");
    EXPECT_EQ(Decoded(932, "\x83"), "\uFFFD");
    EXPECT_EQ(Decoded(932, "\xFF"), "\uFFFD");
    EXPECT_EQ(Decoded(936, "\x81\x20"), "\uFFFD ");
    EXPECT_EQ(Decoded(65001, "\xC3\xA9\xE2\x82\xAC"), "\u00E9\u20AC");
}

TEST(CodePages, ChangeOfPage_GivesUpWhatIsHeld)
{
    ByteDecoder decoder;
    std::string text;
    decoder.SetPage(932, text);
    decoder.Push(0x83, text);
    EXPECT_TRUE(decoder.Holds());
    decoder.SetPage(1252, text);
    EXPECT_FALSE(decoder.Holds());
    EXPECT_EQ(text, "\uFFFD");
}

TEST(CodePages, SymbolFont_IsKnownSignBySign)
{
    EXPECT_EQ(SymbolCharacter(0x61), U'\u03B1');
    EXPECT_EQ(SymbolCharacter(0xB7), U'\u2022');
    EXPECT_EQ(SymbolCharacter(0xE5), U'\u2211');
    EXPECT_EQ(SymbolCharacter(0x80), 0u);
    EXPECT_EQ(Decoded(symbolPage, "\x80"), "\uF080");
    EXPECT_EQ(Decoded(privatePage, "a"), "\uF061");
}

TEST(CodePages, Utf8_GoesThereAndBack)
{
    for (const char32_t character : {U'a', U'\u00E9', U'\u20AC', U'\U0001F600'}) {
        std::string text;
        AppendUtf8(text, character);
        std::string_view left = text;
        EXPECT_EQ(TakeCharacter(left), character);
        EXPECT_TRUE(left.empty());
    }
    std::string lone;
    AppendUtf8(lone, 0xD83D);
    AppendUtf8(lone, 0x110000);
    EXPECT_EQ(lone, "\uFFFD\uFFFD");
}
