#include "platform/richtext/DocumentInvariants.h"
#include "platform/richtext/RtfReader.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

using namespace platform::richtext;

namespace {

/// Reads along every road; a promise broken or a road that differs fails.
std::string TextOf(const std::string& text, Source source = Source::Body)
{
    const RichDocument document = ReadRtf(text, source);
    EXPECT_EQ(rich::BrokenPromise(document), "");
    EXPECT_EQ(rich::BrokenPromise(ReadParts({{TextPart::Kind::Rich, text}})), "");
    const std::string plain = PlainText(document);
    EXPECT_EQ(RtfToPlainText(text, source), plain);
    return plain;
}

std::string Times(std::size_t count, const std::string& text)
{
    std::string all;
    for (std::size_t at = 0; at < count; ++at)
        all += text;
    return all;
}

} // namespace

TEST(RtfReaderDamage, EveryBeginningOfADocument_KeepsTheTextBeforeTheCut)
{
    const std::string whole = support::ReadFile(support::DataFile("rtf/made-writer-target.rtf"));
    const std::string heading = "Strategy for Alternative A";
    const std::size_t headingEnd = whole.find(heading) + heading.size();
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const std::string text = TextOf(whole.substr(0, length));
        EXPECT_TRUE(length < headingEnd || text.starts_with(heading)) << length;
    }
}

TEST(RtfReaderDamage, UnbalancedBraces_LoseNoText)
{
    EXPECT_EQ(TextOf("{\\rtf1 a{b{c\\par d"), "abc\nd");
    EXPECT_EQ(TextOf("{\\rtf1 a}}}b\\par}}c{\\b d}"), "ab\ncd");
    EXPECT_EQ(TextOf("{\\rtf1"), "");
    EXPECT_EQ(TextOf("{\\rtf1 a\\"), "a");
    EXPECT_EQ(TextOf("{\\rtf1 a\\'"), "a");
    EXPECT_EQ(TextOf("{\\rtf1 a\\'4"), "a");
    EXPECT_EQ(TextOf("{\\rtf1 a\\'zzb"), "azzb");
    EXPECT_EQ(TextOf("{\\rtf1 a\\u"), "a");
    EXPECT_EQ(TextOf("{\\rtf1 a{\\*"), "a");
    EXPECT_EQ(TextOf("{\\rtf1 a{\\*\\"), "a");
}

TEST(RtfReaderDamage, NumbersBeyondAnyWidth_AreClamped)
{
    EXPECT_EQ(
        TextOf("{\\rtf1\\li99999999999999999999\\fs-99999999999999999999\\cf99999999999\\f-2147483648 a"),
        "a");
    const RichDocument document = ReadRtf("{\\rtf1\\li99999999999\\fi-99999999999\\fs99999999999 a}");
    EXPECT_EQ(document.blocks[0].AsParagraph()->format.indentLeft, 31680);
    EXPECT_EQ(document.blocks[0].AsParagraph()->format.indentFirst, -31680);
    EXPECT_EQ(document.blocks[0].AsParagraph()->runs[0].format.halfPoints, 3276);
}

TEST(RtfReaderDamage, ControlWord_EndsAfterThirtyTwoLetters)
{
    EXPECT_EQ(TextOf("{\\rtf1 \\" + std::string(32, 'a') + "tail}"), "tail");
    EXPECT_EQ(TextOf("{\\rtf1 \\" + std::string(31, 'a') + " tail}"), "tail");
}

TEST(RtfReaderDamage, DeleteCharacter_IsNoText)
{
    EXPECT_EQ(TextOf("{\\rtf1 a\\'7fb}"), "ab");
    EXPECT_EQ(TextOf("{\\rtf1 a\\u127?b}"), "ab");
    EXPECT_EQ(TextOf("{\\rtf1 a\x7F"
                     "b}"),
              "ab");
    EXPECT_EQ(TextOf("{\\rtf1\\ansicpg932 a\\'83\\'7fb}").find('\x7F'), std::string::npos);
}

TEST(RtfReaderDamage, BinaryLongerThanTheText_IsCutToIt)
{
    EXPECT_EQ(TextOf("{\\rtf1 a\\bin2147483647 bcd"), "a");
    EXPECT_EQ(TextOf("{\\rtf1 a\\bin-5 b"), "ab");
    EXPECT_EQ(TextOf("{\\rtf1 a\\bin b"), "ab");
    EXPECT_EQ(TextOf("{\\rtf1 a\\bin3 }{\\b}"), "ab");
    EXPECT_EQ(TextOf("{\\rtf1 a{\\*\\x\\bin3 }{\\ y}b}"), "ab");
    EXPECT_EQ(TextOf("{\\rtf1 a{\\*\\x\\bin99999999999 }b}"), "a");
}

TEST(RtfReaderDamage, GroupsBeyondTheStack_KeepTextWithoutProperties)
{
    const std::string text =
        "{\\rtf1 a" + Times(10000, "{") + "\\b deep\\par{\\*\\x lost}" + Times(10000, "}") + "\\i b}";
    EXPECT_EQ(TextOf(text), "adeep\nb");
    const RichDocument document = ReadRtf(text);
    EXPECT_FALSE(document.blocks[0].AsParagraph()->runs[0].format.bold);
    EXPECT_TRUE(document.blocks[1].AsParagraph()->runs[0].format.italic);
}

TEST(RtfReaderDamage, GroupsWithinTheStack_KeepProperties)
{
    const RichDocument document = ReadRtf("{\\rtf1 " + Times(255, "{") + "\\b a" + Times(255, "}") + "b}");
    EXPECT_TRUE(document.blocks[0].AsParagraph()->runs[0].format.bold);
    EXPECT_FALSE(document.blocks[0].AsParagraph()->runs[1].format.bold);
}

TEST(RtfReaderDamage, TenThousandSkippedLevels_AreSkippedWithoutRecursion)
{
    EXPECT_EQ(TextOf("{\\rtf1 a{\\*\\x " + Times(10000, "{") + "y" + Times(10000, "}") + "}b}"), "ab");
}

// A reader whose time grew with the square of such a text would not end before the test runner gives up.
TEST(RtfReaderDamage, MegabytesOfOneThing_AreReadInLine)
{
    const std::size_t many = 500000;
    for (const char* piece : {"{",
                              "}",
                              "{}",
                              "\\",
                              "\\*",
                              "{\\*\\x",
                              "\\'",
                              "\\'e9",
                              "\\u-10179 ",
                              "\\par",
                              "\\cell",
                              "\\row",
                              "\\trowd",
                              "\\cellx9",
                              "\\tx9",
                              "{\\rtf1",
                              "{\\rtf1 a}",
                              "{\\pict",
                              "{\\*\\pn{\\pntxtb x}}a\\par",
                              "{\\field{\\*\\fldinst HYPERLINK \"http://a\"}{\\fldrslt b}}",
                              "{\\list",
                              "{\\f1 x;}",
                              ";",
                              "\\itap9\\intbl a\\cell",
                              "\\itap16\\nestcell\\itap1\\cell",
                              "} {",
                              "\\ls1\\par",
                              "\n"}) {
        const std::string text = "{\\rtf1 " + Times(many / std::string(piece).size(), piece);
        EXPECT_EQ(PlainText(ReadRtf(text)), RtfToPlainText(text)) << piece;
    }
}

TEST(RtfReaderDamage, TablesOfMegabytes_AreReadInLine)
{
    for (const char* head : {"{\\fonttbl",
                             "{\\colortbl",
                             "{\\*\\listtable",
                             "{\\*\\listoverridetable",
                             "{\\pict\\pngblip ",
                             "{\\*\\listtable{\\list{\\listlevel{\\leveltext "}) {
        for (const char* piece :
             {"{\\f1 x;}", ";", "{\\list{\\listlevel}\\listid5}", "{\\listoverride\\listid1\\ls5}", "ab"}) {
            const std::string text = std::string("{\\rtf1 ") + head + Times(50000, piece) + "}}}} tail\\par}";
            EXPECT_EQ(PlainText(ReadRtf(text)), RtfToPlainText(text)) << head << " " << piece;
        }
    }
}

TEST(RtfReaderDamage, Noise_IsReadWithoutHarm)
{
    std::mt19937 random(7);
    std::uniform_int_distribution<int> byte(0, 255);
    for (int round = 0; round < 200; ++round) {
        std::string text = "{\\rtf1 ";
        for (int at = 0; at < 2000; ++at)
            text += static_cast<char>(static_cast<unsigned char>(byte(random)));
        TextOf(text);
        TextOf(text, Source::Bytes);
    }
}

TEST(RtfReaderDamage, ShuffledWords_AreReadWithoutHarm)
{
    constexpr const char* words[] = {"{",
                                     "}",
                                     "{\\*",
                                     "\\rtf1",
                                     "\\par ",
                                     "\\cell",
                                     "\\row",
                                     "\\trowd",
                                     "\\cellx",
                                     "\\intbl ",
                                     "\\itap3",
                                     "\\pict",
                                     "\\listtable",
                                     "\\ls2",
                                     "\\pn",
                                     "\\u55357",
                                     "\\u-8704",
                                     "\\uc2",
                                     "\\'83",
                                     "\\fonttbl",
                                     "\\f1",
                                     "\\field",
                                     "\\fldinst",
                                     "text ",
                                     "\\pntext",
                                     "\\listlevel",
                                     "\\leveltext",
                                     "\\nestcell",
                                     "\\nestrow",
                                     "\\*\\nesttableprops",
                                     "\\fcharset128",
                                     "\\upr",
                                     "\\ud",
                                     "\\object",
                                     "\\result"};
    std::mt19937 random(11);
    std::uniform_int_distribution<std::size_t> word(0, std::size(words) - 1);
    for (int round = 0; round < 500; ++round) {
        std::string text = "{\\rtf1 ";
        for (int at = 0; at < 200; ++at)
            text += words[word(random)];
        TextOf(text);
    }
}

TEST(RtfReaderDamage, TextLongerThanTheBound_IsCutAndItsBeginningRead)
{
    std::string text = "{\\rtf1 begin\\par ";
    text.resize(maxRtfBytes, 'x');
    text += "\\par beyond}";
    const RichDocument document = ReadRtf(text);
    ASSERT_EQ(document.blocks.size(), 2u);
    EXPECT_EQ(document.blocks[0].AsParagraph()->runs[0].text, "begin");
}

TEST(RtfReaderDamage, FloodOfParagraphs_RunsOnInOneAndLosesNoLine)
{
    const std::size_t lines = 4000000;
    const std::string text = "{\\rtf1 " + Times(lines, "\\par") + " end\\par}";
    const RichDocument document = ReadRtf(text);
    EXPECT_LT(document.blocks.size(), lines);
    EXPECT_GT(document.blocks.size(), lines / 4);
    EXPECT_TRUE(PlainText(document) == std::string(lines, '\n') + "end"); // too long to be shown
}

TEST(RtfReaderDamage, FloodOfLooks_RunsOnInOneAndLosesNoText)
{
    const std::size_t pairs = 2500000;
    const RichDocument document = ReadRtf("{\\rtf1 " + Times(pairs, "\\b a\\b0 b") + "}");
    const Paragraph& paragraph = *document.blocks.at(0).AsParagraph();
    EXPECT_LT(paragraph.runs.size(), pairs * 2);
    EXPECT_GT(paragraph.runs.size(), pairs / 4);
    EXPECT_TRUE(PlainText(document) == Times(pairs, "ab"));
}

TEST(RtfReaderDamage, FloodOfLists_IsBounded)
{
    std::string text = "{\\rtf1 ";
    for (int number = 1; number <= 5000; ++number)
        text += "\\ls" + std::to_string(number) + " a\\par";
    const RichDocument document = ReadRtf(text);
    EXPECT_EQ(document.lists.size(), 4096u);
    EXPECT_EQ(document.blocks.size(), 5000u);
    EXPECT_EQ(rich::BrokenPromise(document), "");
}
