#include "platform/richtext/DocumentInvariants.h"
#include "platform/richtext/RtfReader.h"
#include "platform/richtext/RtfWriter.h"

#include <gtest/gtest.h>

#include <string>

using namespace platform::richtext;

// What fuzzing once found, each reduced to its core: a promise of the document broken, a text that differed
// between the two roads to it, or one that changed when it was saved twice.

namespace {

RichDocument Read(const std::string& inner)
{
    const std::string text = "{\\rtf1\\ansi " + inner;
    RichDocument document = ReadRtf(text);
    EXPECT_EQ(rich::BrokenPromise(document), "");
    EXPECT_EQ(RtfToPlainText(text), PlainText(document));
    const std::string written = WriteRtf(document);
    EXPECT_EQ(WriteRtf(ReadRtf(written)), written);
    return document;
}

std::string TextOf(const std::string& inner) { return PlainText(Read(inner)); }

const CharacterFormat& FirstLook(const RichDocument& document)
{
    return document.blocks.at(0).AsParagraph()->runs.at(0).format;
}

const ListLevel& FirstLevel(const RichDocument& document) { return document.lists.at(0).levels.at(0); }

} // namespace

TEST(RtfReaderFindings, TableLeftOverInACellNeverEnded_JoinsTheTableBefore)
{
    const RichDocument document = Read("\\intbl a\\cell\\row\\itap2 b\\nestcell\\pard c\\par}");
    EXPECT_EQ(document.blocks.size(), 2u);
    EXPECT_EQ(PlainText(document), "a\nb\nc");
}

TEST(RtfReaderFindings, RowDefinedAnewAheadOfANestedTable_EndsTheRowBefore)
{
    EXPECT_EQ(
        TextOf(
            "\\intbl a\\cell\\trowd\\itap2 b\\nestcell{\\*\\nesttableprops\\nestrow}\\itap1 c\\cell\\row}"),
        "a\nb c");
    EXPECT_EQ(TextOf("\\intbl a\\cell\\itap2 b\\nestcell\\itap1\\row c}"), "a\tb\nc");
}

TEST(RtfReaderFindings, DashAsBullet_IsOneCharacter)
{
    EXPECT_EQ(
        FirstLevel(
            Read("{\\*\\listtable{\\list{\\listlevel\\levelnfc23{\\leveltext\\'01\\endash ;}}\\listid1}}"
                 "{\\*\\listoverridetable{\\listoverride\\listid1\\ls1}}\\ls1 a\\par}"))
            .bullet,
        "\u2013");
}

TEST(RtfReaderFindings, MarkerOfSeveralNumbers_KeepsTheFirst)
{
    EXPECT_EQ(FirstLevel(Read("{\\listtext 1.\\tab 2.\\tab}\\ls1 a\\par}")).textAfter, ".");
    EXPECT_EQ(FirstLevel(Read("{\\*\\pn\\pnlvlbody{\\pntxta .\\tab x}}a\\par}")).textAfter, ".x");
    EXPECT_EQ(FirstLevel(Read("{\\*\\pn\\pnlvlblt{\\pntxtb ->}}a\\par}")).bullet, "-");
}

TEST(RtfReaderFindings, LongMarkersOfOldLists_StayAsTheyAre)
{
    const std::string marker(64, 'm');
    const RichDocument document =
        Read("{\\*\\pn\\pnlvlbody\\pndec{\\pntxtb " + marker + "}{\\pntxta " + marker + "}}a\\par}");
    EXPECT_EQ(FirstLevel(document).textBefore, marker);
    EXPECT_EQ(FirstLevel(document).textAfter, marker);
}

TEST(RtfReaderFindings, PictureAlone_IsAParagraphOnBothRoads)
{
    EXPECT_EQ(TextOf("a\\par{\\pict\\pngblip 00}\\par b\\par}"), "a\n\nb");
    EXPECT_EQ(TextOf("a\\par{\\pict\\pngblip 00}}"), "a\n");
}

TEST(RtfReaderFindings, HalfACharacter_WaitsThroughAMarker)
{
    EXPECT_EQ(TextOf("\\u-10179 ?{\\pntext\\u-10179 ?}\\u-8704 ?\\par}"), "\U0001F600");
    EXPECT_EQ(TextOf("{\\pntext\\u-10179 ?}\\u-8704 ?\\par}"), "\uFFFD");
}

TEST(RtfReaderFindings, RowWordsInAMarker_DefineNoRow)
{
    EXPECT_EQ(
        TextOf("\\trowd\\cellx1\\cellx2\\intbl a\\cell{\\pntext\\trowd\\cellx1}\\pard b\\par c\\cell\\row}"),
        "a\tb c");
}

TEST(RtfReaderFindings, TablesInAMarker_AreNotRead)
{
    EXPECT_EQ(TextOf("{\\pn{\\fonttbl{\\f0\\fcharset2 x;}}}{\\pntext{\\fonttbl{\\f0\\fcharset2 "
                     "x;}}\\ansicpg1251}l\\'e9}"),
              "l\u00E9");
}

TEST(RtfReaderFindings, FontNameWithoutItsEnd_HasNoBlanksBehind)
{
    EXPECT_EQ(FirstLook(Read("{\\fonttbl{\\f1 Georgia }}\\f1 a}")).font, "Georgia");
    EXPECT_EQ(FirstLook(Read("{\\fonttbl{\\f1  A  B\\tab C ;D}}\\f1 a}")).font, "A  BC");
}

TEST(RtfReaderFindings, FontNameTooLong_IsCutInOnePlace)
{
    const std::string name(400, 'x');
    EXPECT_EQ(FirstLook(Read("{\\fonttbl{\\f1 " + name + "{\\*\\falt}y;}}\\f1 a}")).font,
              name.substr(0, 255));
    std::string accents;
    for (int at = 0; at < 200; ++at)
        accents += "\u00E9";
    EXPECT_EQ(FirstLook(Read("{\\fonttbl{\\f1 " + accents + ";}}\\f1 a}")).font, accents.substr(0, 256));
}

TEST(RtfReaderFindings, HalfADoubleByte_DoesNotTearTheCharacterBehind)
{
    EXPECT_EQ(TextOf("{\\fonttbl{\\f1\\fcharset128 x;}}\\f1\\'94\u00E9}"), "\uFFFD\u00E9");
}

TEST(RtfReaderFindings, EdgesBeyondAnyPage_KeepTheWidthsOfCells)
{
    const RichDocument document =
        Read("\\trowd\\cellx31680\\cellx33120\\cellx-5\\cellx2147483647\\intbl a\\cell b\\cell"
             " c\\cell d\\cell e\\cell\\row}");
    const std::vector<TableCell>& cells = document.blocks.at(0).AsTable()->rows.at(0).cells;
    EXPECT_EQ(cells.at(0).width, 31680);
    EXPECT_EQ(cells.at(1).width, 1440);
    EXPECT_EQ(cells.at(2).width, 1);
    EXPECT_EQ(cells.at(3).width, 31680);
    EXPECT_EQ(cells.at(4).width, 1440);
}

TEST(RtfReaderFindings, SignInAFontNamedSymbol_IsMappedWhateverItsCharset)
{
    EXPECT_EQ(TextOf("{\\fonttbl{\\f1\\fcharset0 Symbol;}}\\f1\\u-4034 ?a}"), ">a");
    EXPECT_EQ(TextOf("{\\fonttbl{\\f1 Symbol;}}\\f1{\\field{\\*\\fldinst SYMBOL 62}{\\fldrslt}}}"), ">");
}
