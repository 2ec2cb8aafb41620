#include "platform/richtext/DocumentInvariants.h"
#include "platform/richtext/RtfReader.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace platform::richtext;

namespace {

RichDocument Read(const std::string& inner)
{
    RichDocument document = ReadRtf("{\\rtf1\\ansi " + inner + "}");
    EXPECT_EQ(rich::BrokenPromise(document), "") << inner;
    return document;
}

std::string TextOf(const std::string& inner) { return PlainText(Read(inner)); }

/// The one table of a text that is nothing else.
Table OneTable(const std::string& inner)
{
    const RichDocument document = Read(inner);
    EXPECT_EQ(document.blocks.size(), 1u) << inner;
    const Table* table = document.blocks.front().AsTable();
    EXPECT_NE(table, nullptr) << inner;
    return table == nullptr ? Table() : *table;
}

} // namespace

TEST(RtfReaderTables, RowsInARow_AreOneTable)
{
    const RichDocument document = Read("a\\par\\trowd\\cellx1000\\cellx3000\\pard\\intbl b\\cell c\\cell\\row"
                                       "\\trowd\\cellx3000\\pard\\intbl d\\cell\\row\\pard e\\par");
    ASSERT_EQ(document.blocks.size(), 3u);
    const Table& table = *document.blocks[1].AsTable();
    ASSERT_EQ(table.rows.size(), 2u);
    EXPECT_EQ(table.rows[0].cells.size(), 2u);
    EXPECT_EQ(table.rows[0].cells[0].width, 1000);
    EXPECT_EQ(table.rows[0].cells[1].width, 2000);
    EXPECT_EQ(table.rows[1].cells[0].width, 3000);
    EXPECT_EQ(PlainText(document), "a\nb\tc\nd\ne");
}

TEST(RtfReaderTables, RowWords_FillTheRow)
{
    const Table table =
        OneTable("{\\colortbl;\\red255;}\\trowd\\trqc\\trgaph70\\trleft-100\\trrh300\\trhdr\\trkeep"
                 "\\clvertalc\\clcbpat1\\clbrdrt\\brdrdb\\brdrw20\\brdrcf1\\clbrdrl\\brdrnone\\brdrw9"
                 "\\cellx1000\\pard\\intbl a\\cell\\row");
    TableRow expected;
    expected.alignment = Alignment::Center;
    expected.cellGap = 70;
    expected.left = -100;
    expected.height = 300;
    expected.heading = expected.keepTogether = true;
    expected.cells = table.rows[0].cells;
    EXPECT_EQ(table.rows[0], expected);
    const TableCell& cell = table.rows[0].cells[0];
    EXPECT_EQ(cell.width, 1100);
    EXPECT_EQ(cell.alignment, CellAlignment::Center);
    EXPECT_EQ(cell.background, Color(0xFF0000));
    EXPECT_EQ(cell.top, (Border{BorderStyle::Double, 20, Color(0xFF0000)}));
    EXPECT_EQ(cell.left, Border());
}

TEST(RtfReaderTables, BordersOfRowsAndParagraphs_AreNoCells)
{
    const Table table =
        OneTable("\\trowd\\trbrdrt\\brdrs\\brdrw10\\cellx1000\\pard\\brdrb\\brdrs\\intbl a\\cell\\row");
    EXPECT_EQ(table.rows[0].cells[0].top, Border());
}

TEST(RtfReaderTables, DefinitionBehindTheCells_Counts)
{
    const Table table = OneTable("\\pard\\intbl a\\cell b\\cell{\\trowd\\cellx500\\cellx700\\row}");
    EXPECT_EQ(table.rows[0].cells[0].width, 500);
    EXPECT_EQ(table.rows[0].cells[1].width, 200);
}

TEST(RtfReaderTables, MergedCells_StandInTheirRow)
{
    const Table table = OneTable(
        "\\trowd\\clmgf\\cellx1000\\clmrg\\cellx2000\\clvmgf\\cellx3000\\pard\\intbl a\\cell\\cell b"
        "\\cell\\row\\trowd\\cellx1000\\cellx2000\\clvmrg\\cellx3000\\intbl c\\cell d\\cell\\cell\\row");
    EXPECT_EQ(table.rows[0].cells[0].mergeAcross, CellMerge::First);
    EXPECT_EQ(table.rows[0].cells[1].mergeAcross, CellMerge::Continued);
    EXPECT_EQ(table.rows[0].cells[2].mergeDown, CellMerge::First);
    EXPECT_EQ(table.rows[1].cells[2].mergeDown, CellMerge::Continued);
}

TEST(RtfReaderTables, TextInAContinuedCell_IsNotHidden)
{
    const Table table = OneTable(
        "\\trowd\\clmgf\\cellx1000\\clmrg\\cellx2000\\clvmrg\\cellx3000\\intbl a\\cell b\\cell c\\cell\\row");
    EXPECT_EQ(table.rows[0].cells[1].mergeAcross, CellMerge::None);
    EXPECT_EQ(table.rows[0].cells[2].mergeDown, CellMerge::None);
    const Table alone = OneTable("\\trowd\\clmrg\\cellx1000\\intbl\\cell\\row");
    EXPECT_EQ(alone.rows[0].cells[0].mergeAcross, CellMerge::None);
}

TEST(RtfReaderTables, MoreCellsThanEdges_LoseNoText)
{
    const Table table = OneTable("\\trowd\\cellx1000\\pard\\intbl a\\cell b\\cell c\\cell\\row");
    EXPECT_EQ(table.rows[0].cells.size(), 3u);
    EXPECT_EQ(TextOf("\\trowd\\cellx1000\\pard\\intbl a\\cell b\\cell c\\cell\\row"), "a\tb\tc");
}

TEST(RtfReaderTables, MissingWords_LoseNoCellAndJoinNone)
{
    EXPECT_EQ(TextOf("a\\cell b\\cell"), "a\tb");
    EXPECT_EQ(TextOf("a\\cell b\\cell\\pard c\\par"), "a\tb\nc");
    EXPECT_EQ(TextOf("\\trowd\\cellx1\\cellx2 a\\cell b\\par c\\cell\\row d\\par"), "a\tb c\nd");
    EXPECT_EQ(TextOf("\\trowd\\cellx1\\cellx2\\intbl a\\cell b\\row\\pard c\\par"), "a\tb\nc");
    EXPECT_EQ(TextOf("\\trowd\\cellx1\\cellx2\\intbl a\\cell b\\cell\\trowd\\cellx1\\cellx2\\intbl c\\cell "
                     "d\\cell\\row"),
              "a\tb\nc\td");
    EXPECT_EQ(TextOf("\\trowd\\cellx1\\intbl a\\par\\pard b\\par"), "a\nb");
    EXPECT_EQ(TextOf("a\\row b\\par"), "a\nb");
    EXPECT_EQ(TextOf("\\row a\\par"), "a");
}

TEST(RtfReaderTables, SixtyFifthColumn_JoinsTheLast)
{
    std::string row = "\\trowd\\intbl ";
    for (int cell = 0; cell < 70; ++cell)
        row += "x\\cell ";
    const Table table = OneTable(row + "\\row");
    EXPECT_EQ(table.rows[0].cells.size(), 64u);
    EXPECT_EQ(table.rows[0].cells[63].blocks.size(), 7u);
}

TEST(RtfReaderTables, NestedTable_StandsInItsCell)
{
    const std::string inner =
        "\\trowd\\cellx5000\\pard\\intbl before\\par\\pard\\intbl\\itap2 a\\nestcell b\\nestcell"
        "{\\*\\nesttableprops\\trowd\\cellx1000\\cellx2500\\nestrow}{\\nonesttables\\par}"
        "\\pard\\intbl after\\cell next\\cell\\row";
    const Table table = OneTable(inner);
    ASSERT_EQ(table.rows.size(), 1u);
    EXPECT_EQ(table.rows[0].cells[0].width, 5000);
    const std::vector<Block>& blocks = table.rows[0].cells[0].blocks;
    ASSERT_EQ(blocks.size(), 3u);
    ASSERT_NE(blocks[1].AsTable(), nullptr);
    EXPECT_EQ(blocks[1].AsTable()->rows[0].cells[1].width, 1500);
    EXPECT_EQ(TextOf(inner), "before a b after\tnext");
}

TEST(RtfReaderTables, NestedRowsWithoutTheirEnds_KeepTheirText)
{
    EXPECT_EQ(TextOf("\\intbl\\itap3 a\\nestcell b\\par\\itap1 c\\cell\\row d"), "a b c\nd");
    EXPECT_EQ(TextOf("\\intbl\\itap2 a\\nestcell\\pard b\\par"), "a\nb");
}

TEST(RtfReaderTables, TablesNestedTooDeep_JoinTheDeepest)
{
    std::string inner;
    for (int depth = 1; depth <= 40; ++depth)
        inner += "\\intbl\\itap" + std::to_string(depth) + " x\\par";
    EXPECT_NE(TextOf(inner + "\\itap40\\nestcell").find('x'), std::string::npos);
}

TEST(RtfReaderTables, JoinedDocuments_CloseTheirTables)
{
    const RichDocument document = ReadRtf("{\\rtf1\\trowd\\cellx900\\intbl a\\cell b}{\\rtf1 c\\par}");
    EXPECT_EQ(rich::BrokenPromise(document), "");
    EXPECT_EQ(PlainText(document), "a\tb\nc");
}
