#include "platform/print/RtfAdjust.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

using namespace platform::print;
using namespace platform::richtext;

Block PictureOf(Long width, Long height)
{
    Picture picture;
    picture.bytes = "of no matter";
    picture.widthGoal = width;
    picture.heightGoal = height;
    picture.scaleX = 50;
    Paragraph paragraph;
    paragraph.runs.push_back({{}, "", std::make_shared<const Picture>(picture)});
    return {paragraph};
}

const Picture& PictureIn(const std::vector<Block>& blocks)
{
    return *blocks.front().AsParagraph()->runs.front().picture;
}

Block TableOf(std::vector<Long> widths, const Block& content)
{
    TableRow row;
    row.cellGap = 60;
    for (const Long width : widths) {
        TableCell cell;
        cell.width = width;
        cell.blocks = {content};
        row.cells.push_back(std::move(cell));
    }
    Table table;
    table.rows.push_back(std::move(row));
    return {table};
}

TEST(RtfAdjust, PictureThatFits_StaysAsItCame)
{
    std::vector<Block> blocks{PictureOf(2000, 500)}; // of half the width
    FitIn(blocks, 1000.0, 500.0);
    EXPECT_EQ(PictureIn(blocks).widthGoal, 2000);
    EXPECT_EQ(PictureIn(blocks).scaleX, 50);
}

TEST(RtfAdjust, PictureTooWideOrTooHigh_IsMadeSmallerInProportion)
{
    std::vector<Block> wide{PictureOf(4000, 1000)}, high{PictureOf(4000, 1000)};
    FitIn(wide, 1000.0, 5000.0);
    EXPECT_EQ(PictureIn(wide).widthGoal, 1000);
    EXPECT_EQ(PictureIn(wide).heightGoal, 500);
    EXPECT_EQ(PictureIn(wide).scaleX, 100);
    FitIn(high, 9000.0, 100.0);
    EXPECT_EQ(PictureIn(high).widthGoal, 200);
    EXPECT_EQ(PictureIn(high).heightGoal, 100);
}

TEST(RtfAdjust, PictureInACell_FitsTheCell)
{
    std::vector<Block> blocks{TableOf({1120, 1120}, PictureOf(4000, 1000))};
    FitIn(blocks, 9000.0, 9000.0);
    EXPECT_EQ(PictureIn(blocks[0].AsTable()->rows[0].cells[1].blocks).widthGoal, 1000);
}

TEST(RtfAdjust, PictureInJoinedCells_FitsThemTogether)
{
    std::vector<Block> blocks{TableOf({1120, 1000}, PictureOf(9000, 1000))};
    blocks[0].AsTable()->rows[0].cells[0].mergeAcross = CellMerge::First;
    blocks[0].AsTable()->rows[0].cells[1].mergeAcross = CellMerge::Continued;
    FitIn(blocks, 9000.0, 9000.0);
    EXPECT_EQ(PictureIn(blocks[0].AsTable()->rows[0].cells[0].blocks).widthGoal, 2000);
}

TEST(RtfAdjust, TableTooWide_IsMadeNarrowerWithThoseInIt)
{
    std::vector<Block> blocks{TableOf({8000, 8000}, TableOf({5000}, {Paragraph()}))};
    FitIn(blocks, 4000.0, 9000.0);
    const TableRow& row = blocks[0].AsTable()->rows[0];
    EXPECT_EQ(row.cells[0].width, 2000);
    EXPECT_EQ(row.cells[1].width, 2000);
    EXPECT_EQ(row.cells[0].blocks[0].AsTable()->rows[0].cells[0].width, 1880);
}

TEST(RtfAdjust, TableThatFits_StaysAsItIs)
{
    std::vector<Block> blocks{TableOf({2000, 2000}, {Paragraph()})};
    const std::vector<Block> before = blocks;
    FitIn(blocks, 4000.0, 9000.0);
    EXPECT_EQ(blocks, before);
}

} // namespace
