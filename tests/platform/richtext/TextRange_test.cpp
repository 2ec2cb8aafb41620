#include "RichDocuments.h"
#include "platform/richtext/TextRange.h"

#include <gtest/gtest.h>

namespace {

using namespace rich;

CharacterFormat Bold()
{
    CharacterFormat format;
    format.bold = true;
    return format;
}

Block TableOf(std::vector<std::vector<std::string>> rows)
{
    Table table;
    for (const auto& texts : rows) {
        TableRow row;
        for (const std::string& text : texts)
            row.cells.push_back(CellOf(1000, {text.empty() ? Paragraph() : Line(text)}));
        table.rows.push_back(std::move(row));
    }
    return {table};
}

/// The words of blocks, a paragraph in angle brackets, a table in square ones.
std::string Shown(const std::vector<Block>& blocks)
{
    std::string shown;
    for (const Block& block : blocks) {
        RichDocument one;
        one.blocks = {block};
        const std::string text = PlainText(one);
        shown += block.AsTable() ? "[" + text + "]" : "<" + text + ">";
    }
    return shown;
}

TEST(TextRange, Lengths_CountCharactersPicturesAndEnds)
{
    EXPECT_EQ(LengthOf(Paragraph()), 1);
    EXPECT_EQ(LengthOf(Line("abc")), 4);
    EXPECT_EQ(LengthOf(Line("\u00e9\u4e2d\U0001F525")), 4);
    EXPECT_EQ(LengthOf(ParagraphOf({TextRun("a"), PictureRun({}), TextRun("b")})), 4);
    EXPECT_EQ(LengthOf(TableOf({{"ab", ""}, {"c", "d"}})), 3 + 1 + 2 + 2);
}

TEST(TextRange, Slice_TakesCharactersInTheirLooks)
{
    const Paragraph whole = ParagraphOf({TextRun("a\u00e9"), PictureRun({}), TextRun("xyz", Bold())});
    EXPECT_EQ(SliceOf(whole, 0, 6), whole);
    EXPECT_EQ(SliceOf(whole, 1, 2), Line("\u00e9"));
    EXPECT_EQ(SliceOf(whole, 2, 4), ParagraphOf({PictureRun({}), TextRun("x", Bold())}));
    EXPECT_EQ(SliceOf(whole, 4, 99), ParagraphOf({TextRun("yz", Bold())}));
    EXPECT_EQ(SliceOf(whole, 3, 3), Paragraph());
}

TEST(TextRange, Find_GoesThroughLooksAndCellsInOrder)
{
    const Block paragraph{ParagraphOf({TextRun("\u00e9a#"), TextRun("##", Bold()), TextRun("b###")})};
    EXPECT_EQ(FindIn(paragraph, "###", 0), 2);
    EXPECT_EQ(FindIn(paragraph, "###", 2), 2);
    EXPECT_EQ(FindIn(paragraph, "###", 3), 6);
    EXPECT_EQ(FindIn(paragraph, "###", 7), std::nullopt);
    EXPECT_EQ(FindIn(TableOf({{"ab", "c"}, {"", "###"}}), "###", 0), 3 + 2 + 1);
    EXPECT_EQ(FindIn(TableOf({{"###", "###"}}), "###", 1), 4);
    EXPECT_EQ(FindIn(Block{ParagraphOf({TextRun("##"), PictureRun({}), TextRun("#")})}, "###", 0),
              std::nullopt);
}

TEST(TextRange, Range_IsOfTheInnermostTextThatHoldsBothEnds)
{
    std::vector<Block> blocks{{Line("ab")}, TableOf({{"cd", "ef"}}), {Line("gh")}};
    const auto inCell = RangeIn(blocks, 4, 5); // "d"
    EXPECT_EQ(inCell.blocks, &blocks[1].AsTable()->rows[0].cells[0].blocks);
    EXPECT_EQ(inCell.start, 1);
    EXPECT_EQ(inCell.end, 2);
    const auto overCells = RangeIn(blocks, 4, 7);
    EXPECT_EQ(overCells.blocks, &blocks);
    EXPECT_EQ(overCells.first, 1u);
    EXPECT_EQ(overCells.last, 1u);
    const auto overAll = RangeIn(blocks, 1, 10);
    EXPECT_EQ(overAll.first, 0u);
    EXPECT_EQ(overAll.start, 1);
    EXPECT_EQ(overAll.last, 2u);
    EXPECT_EQ(overAll.end, 1);
    EXPECT_EQ(Shown(CopyOf(RangeIn(std::as_const(blocks), 1, 10))), "<b>[cd\tef]<g>");
}

TEST(TextRange, Replace_JoinsWhatStandsBeforeAndBehind)
{
    struct Case
    {
        std::vector<Block> inserted;
        Long from, to;
        std::string result;
    };
    const std::vector<Case> cases{
        {{{Line("X")}}, 1, 2, "<aXc>"},
        {{{Line("X")}, {Line("Y")}}, 1, 2, "<aX><Yc>"},
        {{{Line("X")}, {Line("Y")}}, 0, 3, "<X><Y>"},
        {{TableOf({{"X"}})}, 1, 2, "<a>[X]<c>"},
        {{TableOf({{"X"}})}, 0, 3, "[X]<>"}, // a text never ends in a table
        {{{Line("X")}, TableOf({{"Y"}})}, 0, 0, "<X>[Y]<abc>"},
        {{}, 1, 2, "<ac>"},
        {{}, 0, 3, "<>"},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.result);
        std::vector<Block> blocks{{Line("abc")}};
        const std::size_t count = Replace(RangeIn(blocks, test.from, test.to), test.inserted);
        EXPECT_EQ(Shown(blocks), test.result);
        EXPECT_EQ(count, blocks.size());
    }
}

TEST(TextRange, Replace_FirstParagraphKeepsWhatItStandsIn)
{
    std::vector<Block> blocks{{Line("abc", Item(1))}};
    Replace(RangeIn(blocks, 1, 1), {{Line("X")}, {Line("Y")}});
    EXPECT_EQ(blocks[0].AsParagraph()->format, Item(1));
    EXPECT_EQ(blocks[1].AsParagraph()->format, ParagraphFormat());
    Replace(RangeIn(blocks, 0, 2), {{Line("Z")}});
    EXPECT_EQ(blocks[0].AsParagraph()->format, ParagraphFormat());
}

TEST(TextRange, ChangeLooks_ChangesTheCharactersToldAndJoinsEquals)
{
    const auto embolden = [](CharacterFormat& look) { look.bold = true; };
    Paragraph paragraph = Line("abc");
    ChangeLooks(paragraph, 1, 2, embolden);
    EXPECT_EQ(paragraph, ParagraphOf({TextRun("a"), TextRun("b", Bold()), TextRun("c")}));
    ChangeLooks(paragraph, 0, 4, embolden);
    EXPECT_EQ(paragraph, ParagraphOf({TextRun("abc", Bold())}));
    Paragraph empty;
    ChangeLooks(empty, 0, 0, embolden);
    EXPECT_EQ(empty.emptyFormat, Bold());
}

} // namespace
