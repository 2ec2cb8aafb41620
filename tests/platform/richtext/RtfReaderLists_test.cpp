#include "platform/richtext/DocumentInvariants.h"
#include "platform/richtext/RtfReader.h"

#include <gtest/gtest.h>

#include <string>

using namespace platform::richtext;

namespace {

RichDocument Read(const std::string& inner)
{
    RichDocument document = ReadRtf("{\\rtf1\\ansi " + inner + "}");
    EXPECT_EQ(rich::BrokenPromise(document), "") << inner;
    return document;
}

const ParagraphFormat& FormatAt(const RichDocument& document, std::size_t place)
{
    return document.blocks.at(place).AsParagraph()->format;
}

ListLevel LevelAt(const RichDocument& document, std::size_t place)
{
    const ListLevel* level = LevelOf(document, FormatAt(document, place));
    EXPECT_NE(level, nullptr) << place;
    return level == nullptr ? ListLevel() : *level;
}

std::string ListTable(const std::string& levels)
{
    return "{\\*\\listtable{\\list\\listtemplateid1" + levels +
           "{\\listname "
           "x;}\\listid77}}{\\*\\listoverridetable{\\listoverride\\listid77\\listoverridecount0\\ls5}}";
}

/// The only level of a list, as its text tells it.
ListLevel LevelFrom(const std::string& level)
{
    return LevelAt(Read(ListTable("{\\listlevel" + level + "}") + "\\ls5 a\\par"), 0);
}

} // namespace

TEST(RtfReaderLists, TableLevels_AreReadWhole)
{
    const RichDocument document =
        Read(ListTable("{\\listlevel\\levelnfc4\\levelstartat3{\\leveltext\\'03(\\'00);}{\\levelnumbers\\'02;"
                       "}\\fi-360\\li360}"
                       "{\\listlevel\\levelnfc23{\\leveltext\\'01\\u9702 ?;}{\\levelnumbers;}\\li720}") +
             "\\pard\\ls5\\ilvl0 a\\par\\ilvl1 b\\par\\pard c\\par");
    ListLevel number;
    number.kind = ListKind::Number;
    number.style = NumberStyle::LowerLetter;
    number.start = 3;
    number.bullet.clear();
    number.textBefore = "(";
    number.textAfter = ")";
    number.indentLeft = 360;
    number.indentFirst = -360;
    EXPECT_EQ(LevelAt(document, 0), number);
    ListLevel bullet;
    bullet.bullet = "\u25E6";
    bullet.indentLeft = 720;
    EXPECT_EQ(LevelAt(document, 1), bullet);
    EXPECT_EQ(FormatAt(document, 0).list, 1);
    EXPECT_EQ(FormatAt(document, 1).list, 1);
    EXPECT_EQ(FormatAt(document, 1).level, 1);
    EXPECT_EQ(FormatAt(document, 2).list, 0);
}

TEST(RtfReaderLists, BulletsOfSignFonts_AreShownByOthers)
{
    EXPECT_EQ(LevelFrom("\\levelnfc23{\\leveltext\\'01\\u-3913 ?;}").bullet, "\u2022");
    EXPECT_EQ(LevelFrom("\\levelnfc23{\\leveltext\\'01\\u-3929 ?;}").bullet, "\u25AA");
    EXPECT_EQ(LevelFrom("\\levelnfc23{\\leveltext\\'01\\'b7;}").bullet, "\u2022");
    EXPECT_EQ(LevelFrom("\\levelnfc23{\\leveltext\\'01o;}").bullet, "o");
    EXPECT_EQ(LevelFrom("\\levelnfc23{\\leveltext\\'01\\endash ;}").bullet, "\u2013");
    EXPECT_EQ(LevelFrom("\\levelnfc23{\\leveltext\\'00;}").bullet, "\u2022");
}

TEST(RtfReaderLists, NumberKinds_AreTold)
{
    EXPECT_EQ(LevelFrom("\\levelnfc0{\\leveltext\\'02\\'00.;}").style, NumberStyle::Arabic);
    EXPECT_EQ(LevelFrom("\\levelnfc1{\\leveltext\\'02\\'00.;}").style, NumberStyle::UpperRoman);
    EXPECT_EQ(LevelFrom("\\levelnfc2{\\leveltext\\'02\\'00.;}").style, NumberStyle::LowerRoman);
    EXPECT_EQ(LevelFrom("\\levelnfc3{\\leveltext\\'02\\'00.;}").style, NumberStyle::UpperLetter);
    EXPECT_EQ(LevelFrom("\\levelnfc22{\\leveltext\\'02\\'00.;}").style, NumberStyle::Arabic);
    EXPECT_EQ(LevelFrom("\\levelnfc255{\\leveltext\\'00;}").kind, ListKind::None);
}

TEST(RtfReaderLists, MarkerOfTheWriter_IsNoText)
{
    EXPECT_EQ(PlainText(Read("{\\listtext\\f1\\'b7\\tab}\\ls1 a\\par{\\pntext 1.\\tab}b\\par")), "a\nb");
}

TEST(RtfReaderLists, MissingList_IsTheOneAtTheSamePlace)
{
    const RichDocument document =
        Read("{\\*\\listtable{\\list{\\listlevel\\levelnfc23{\\leveltext\\'01x;}}\\listid1}"
             "{\\list{\\listlevel\\levelnfc0{\\leveltext\\'02\\'00.;}}\\listid2}}"
             "{\\*\\listoverridetable{\\listoverride\\listid8\\ls1}{\\listoverride\\listid9\\ls2}}"
             "\\ls2 a\\par\\ls1 b\\par");
    EXPECT_EQ(LevelAt(document, 0).kind, ListKind::Number);
    EXPECT_EQ(LevelAt(document, 1).bullet, "x");
}

TEST(RtfReaderLists, NoTable_TheMarkerDecides)
{
    EXPECT_EQ(LevelAt(Read("{\\listtext\\'b7\\tab}\\pard\\ls1 a\\par"), 0).kind, ListKind::Bullet);
    const ListLevel number = LevelAt(Read("{\\listtext 4)\\tab}\\pard\\ls1 a\\par"), 0);
    EXPECT_EQ(number.kind, ListKind::Number);
    EXPECT_EQ(number.start, 4);
    EXPECT_EQ(number.textAfter, ")");
    EXPECT_EQ(LevelAt(Read("{\\listtext (a)\\tab}\\ls1 a\\par"), 0).style, NumberStyle::LowerLetter);
    EXPECT_EQ(LevelAt(Read("{\\listtext iv.\\tab}\\ls1 a\\par"), 0).style, NumberStyle::LowerRoman);
    EXPECT_EQ(LevelAt(Read("\\ls1 a\\par"), 0).kind, ListKind::Bullet);
}

TEST(RtfReaderLists, OverrideOfAStart_IsAListOfItsOwn)
{
    const std::string level = "{\\listlevel\\levelnfc0{\\leveltext\\'02\\'00.;}}";
    const RichDocument document =
        Read("{\\*\\listtable{\\list" + level +
             "\\listid1}}{\\*\\listoverridetable{\\listoverride\\listid1\\ls1}"
             "{\\listoverride\\listid1\\ls2}{\\listoverride\\listid1\\listoverridecount1"
             "{\\lfolevel\\listoverridestartat\\levelstartat7}\\ls3}}\\ls1 a\\par\\ls2 b\\par\\ls3 c\\par");
    EXPECT_EQ(FormatAt(document, 0).list, FormatAt(document, 1).list);
    EXPECT_NE(FormatAt(document, 0).list, FormatAt(document, 2).list);
    EXPECT_EQ(LevelAt(document, 0).start, 1);
    EXPECT_EQ(LevelAt(document, 2).start, 7);
}

TEST(RtfReaderLists, OldList_HoldsUntilPard)
{
    const RichDocument document =
        Read("\\pard{\\*\\pn\\pnlvlbody\\pnucltr\\pnstart2{\\pntxtb (}{\\pntxta )}}\\fi-360\\li360 a\\par"
             " b\\par\\pard c\\par");
    const ListLevel level = LevelAt(document, 0);
    EXPECT_EQ(level.kind, ListKind::Number);
    EXPECT_EQ(level.style, NumberStyle::UpperLetter);
    EXPECT_EQ(level.start, 2);
    EXPECT_EQ(level.textBefore, "(");
    EXPECT_EQ(level.textAfter, ")");
    EXPECT_EQ(FormatAt(document, 1).list, 1);
    EXPECT_EQ(FormatAt(document, 2).list, 0);
}

TEST(RtfReaderLists, OldListToldAtEachItem_IsOneList)
{
    const std::string item = "\\pard{\\pntext 1.\\tab}{\\*\\pn\\pnlvlbody\\pndec{\\pntxta .}}a\\par";
    const RichDocument document = Read(item + item + "\\pard b\\par" + item);
    EXPECT_EQ(FormatAt(document, 0).list, 1);
    EXPECT_EQ(FormatAt(document, 1).list, 1);
    EXPECT_EQ(FormatAt(document, 3).list, 2);
}

TEST(RtfReaderLists, OldListsOfTwoKinds_AreTwo)
{
    const RichDocument document =
        Read("\\pard{\\*\\pn\\pnlvlblt{\\pntxtb\\'b7}}a\\par\\pard{\\*\\pn\\pnlvlbody\\pndec}b\\par");
    EXPECT_EQ(LevelAt(document, 0).kind, ListKind::Bullet);
    EXPECT_EQ(LevelAt(document, 0).bullet, "\u2022");
    EXPECT_EQ(LevelAt(document, 1).kind, ListKind::Number);
    EXPECT_EQ(document.lists.size(), 2u);
}

TEST(RtfReaderLists, LevelsBeyondThoseTold_AreMade)
{
    const RichDocument document =
        Read(ListTable("{\\listlevel\\levelnfc23{\\leveltext\\'01x;}}") + "\\ls5\\ilvl40 a\\par");
    EXPECT_EQ(FormatAt(document, 0).level, 8);
    EXPECT_EQ(document.lists[0].levels.size(), 9u);
}

TEST(RtfReaderLists, ListsOfNoParagraph_AreNotKept)
{
    EXPECT_TRUE(Read(ListTable("{\\listlevel\\levelnfc23}") + "a\\par").lists.empty());
}
