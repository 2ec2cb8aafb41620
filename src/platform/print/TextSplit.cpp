#include "platform/print/TextSplit.h"

#include "platform/print/Fonts.h"

#include <iterator>
#include <utility>

namespace platform::print {

namespace {

using richtext::Block;
using richtext::Paragraph;
using richtext::Run;

/// A picture counts as one unit.
std::size_t UnitsOf(const Run& run)
{
    return run.picture ? 1 : static_cast<std::size_t>(FromUtf8(run.text).size());
}

Run Part(const Run& run, std::size_t start, std::size_t count)
{
    Run part = run;
    const QString text = FromUtf8(run.text);
    part.text = text.mid(static_cast<qsizetype>(start), static_cast<qsizetype>(count)).toStdString();
    return part;
}

Paragraph SplitParagraph(Paragraph& paragraph, std::size_t units)
{
    Paragraph rest = paragraph;
    rest.runs.clear();
    std::vector<Run> kept;
    for (Run& run : paragraph.runs) {
        const std::size_t count = UnitsOf(run);
        if (units >= count) {
            kept.push_back(std::move(run));
            units -= count;
            continue;
        }
        if (units > 0) kept.push_back(Part(run, 0, units));
        rest.runs.push_back(units > 0 ? Part(run, units, count - units) : std::move(run));
        units = 0;
    }
    paragraph.runs = std::move(kept);
    rest.format.indentFirst = 0;
    rest.format.spaceBefore = 0;
    return rest;
}

richtext::Table SplitTable(richtext::Table& table, std::size_t row)
{
    const auto from = table.rows.begin() + static_cast<std::ptrdiff_t>(row);
    richtext::Table rest;
    rest.rows.assign(std::make_move_iterator(from), std::make_move_iterator(table.rows.end()));
    table.rows.erase(from, table.rows.end());
    return rest;
}

Block SplitBlock(Block& block, std::size_t start)
{
    if (Paragraph* paragraph = block.AsParagraph()) return {SplitParagraph(*paragraph, start)};
    return {SplitTable(*block.AsTable(), start)};
}

} // namespace

std::vector<Block> SplitBlocks(std::vector<Block>& blocks, const LaidLine& line)
{
    std::vector<Block> rest;
    auto from = blocks.begin() + static_cast<std::ptrdiff_t>(line.block);
    if (line.start > 0) {
        rest.push_back(SplitBlock(*from, line.start));
        ++from;
    }
    rest.insert(rest.end(), std::make_move_iterator(from), std::make_move_iterator(blocks.end()));
    blocks.erase(from, blocks.end());
    return rest;
}

void Renumber(LaidText& rest)
{
    const std::size_t firstBlock = rest.lines.front().block;
    const std::size_t firstStart = rest.lines.front().start;
    for (LaidLine& line : rest.lines) {
        if (line.block == firstBlock) line.start -= firstStart;
        line.block -= firstBlock;
    }
}

} // namespace platform::print
