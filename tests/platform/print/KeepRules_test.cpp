#include "platform/print/KeepRules.h"

#include <gtest/gtest.h>

namespace {

using namespace platform::print;
using platform::richtext::Block;
using platform::richtext::Paragraph;
using platform::richtext::Table;
using platform::richtext::TableCell;
using platform::richtext::TableRow;

constexpr Double page = 10'000.0;

/// A text of units that are all told to stay with the next one but for the last: paragraphs, and a table of
/// rows where several heights stand together.
struct Text
{
    std::vector<Block> blocks;
    LaidText laid;

    void Add(const std::vector<Double>& heights)
    {
        const std::size_t block = blocks.size();
        if (heights.size() == 1) {
            blocks.push_back({Kept()});
        } else {
            Table table;
            for (std::size_t row = 0; row < heights.size(); ++row) {
                TableCell cell;
                cell.blocks.push_back({Kept()});
                table.rows.emplace_back().cells.push_back(cell);
            }
            blocks.push_back({table});
        }
        for (std::size_t row = 0; row < heights.size(); ++row) {
            LaidLine line;
            line.height = heights[row];
            line.block = block;
            line.start = heights.size() == 1 ? 0 : row;
            laid.lines.push_back(std::move(line));
        }
    }
    static Paragraph Kept()
    {
        Paragraph paragraph;
        paragraph.format.keepWithNext = true;
        return paragraph;
    }
    /// A letter a unit: "k" where it is still kept.
    std::string Shown()
    {
        Loosen(blocks, laid, page);
        std::string shown;
        const auto show = [&](const Paragraph& paragraph) {
            shown += paragraph.format.keepWithNext ? 'k' : '.';
        };
        for (const Block& block : blocks) {
            if (block.AsParagraph() != nullptr) {
                show(*block.AsParagraph());
            } else {
                for (const TableRow& row : block.AsTable()->rows)
                    show(*row.cells.front().blocks.front().AsParagraph());
            }
        }
        return shown;
    }
};

TEST(KeepRules, WhatFitsAPage_StaysAsTold)
{
    Text text;
    text.Add({300.0, 9000.0});
    text.Add({200.0});
    text.Add({250.0, 250.0});
    EXPECT_EQ(text.Shown(), "kkkkk");
}

TEST(KeepRules, WhatNoPageHolds_LetsGoOfAllButHeads)
{
    Text text;
    text.Add({300.0, 9000.0}); // the title stays with its text
    text.Add({200.0});         // and the line with the head
    text.Add({250.0, 3000.0});
    EXPECT_EQ(text.Shown(), "k.kkk"); // of the last unit nothing follows
}

TEST(KeepRules, HeadOfARowThatIsHigherThanAPage_StaysWithItsBeginning)
{
    Text text;
    text.Add({300.0, 12'000.0, 200.0});
    for (TableRow& row : text.blocks[0].AsTable()->rows)
        row.keepTogether = true;
    text.Add({200.0});
    EXPECT_EQ(text.Shown(), "k.kk");
    const auto& rows = text.blocks[0].AsTable()->rows;
    EXPECT_TRUE(rows[0].keepTogether);
    EXPECT_FALSE(rows[1].keepTogether); // it may break
    EXPECT_TRUE(rows[2].keepTogether);
}

TEST(KeepRules, HeadThatWouldJustNotFitWithItsText_IsLetGo)
{
    Text text;
    text.Add({700.0, 9900.0});
    text.Add({200.0});
    EXPECT_EQ(text.Shown(), "..k");
}

TEST(KeepRules, RowsInSeveralLines_CountAsOne)
{
    Text text;
    text.Add({300.0, 5000.0});
    LaidLine more; // what a row too high for a line goes on with
    more.height = 4900.0;
    more.block = 0;
    more.start = 1;
    text.laid.lines.push_back(more);
    text.Add({200.0});
    EXPECT_EQ(text.Shown(), "..k");
}

TEST(KeepRules, TextsApart_AreJudgedApart)
{
    Text text;
    text.Add({300.0});
    text.Add({9000.0});
    text.blocks.back().AsParagraph()->format.keepWithNext = false;
    text.Add({300.0});
    text.Add({9000.0});
    EXPECT_EQ(text.Shown(), "k.kk");
}

} // namespace
