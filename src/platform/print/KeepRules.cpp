#include "platform/print/KeepRules.h"

#include "platform/richtext/MoveLists.h"

#include <algorithm>

namespace platform::print {

namespace {

using richtext::Block;
using richtext::Paragraph;

constexpr Double highestHead = 720.0;

/// What a page can break between: a paragraph, or a row of a table.
struct Unit
{
    Paragraph* paragraph = nullptr;
    richtext::TableRow* row = nullptr;
    Double height = 0.0;

    bool IsKept() const;
    void SetKept(bool kept) const;
};

/// A row stays with the next one when its first paragraph is told to.
bool Unit::IsKept() const
{
    if (paragraph != nullptr) return paragraph->format.keepWithNext;
    const Paragraph* first = row->cells.empty() ? nullptr : row->cells.front().blocks.front().AsParagraph();
    return first != nullptr && first->format.keepWithNext;
}

void Unit::SetKept(bool kept) const
{
    const auto set = [kept](Paragraph& each) { each.format.keepWithNext = kept; };
    if (paragraph != nullptr) return set(*paragraph);
    for (richtext::TableCell& cell : row->cells)
        richtext::ForEachParagraph(cell.blocks, set);
}

std::vector<Unit> UnitsOf(std::vector<Block>& blocks, const LaidText& laid)
{
    std::vector<Unit> units;
    std::vector<std::size_t> first;
    for (Block& block : blocks) {
        first.push_back(units.size());
        if (Paragraph* paragraph = block.AsParagraph()) {
            units.push_back({paragraph, nullptr, 0.0});
        } else {
            for (richtext::TableRow& row : block.AsTable()->rows)
                units.push_back({nullptr, &row, 0.0});
        }
    }
    for (const LaidLine& line : laid.lines) {
        const bool isRow = blocks[line.block].AsTable() != nullptr;
        units[first[line.block] + (isRow ? line.start : 0)].height += line.before + line.height + line.after;
    }
    return units;
}

/// A head stays with a row that has to break anyway, too: then with its beginning.
void LoosenUnits(const std::vector<Unit>& units, std::size_t first, std::size_t last, Double tallest)
{
    for (std::size_t i = first; i < last; ++i) {
        const Unit& next = units[i + 1];
        const bool staysWithIt = units[i].height + next.height <= tallest || next.height > tallest;
        units[i].SetKept(units[i].height <= highestHead && staysWithIt);
    }
}

/// A row that is higher than a page has to break.
void AllowBreaks(const std::vector<Unit>& units, Double tallest)
{
    for (const Unit& unit : units) {
        if (unit.row != nullptr && unit.height > tallest) unit.row->keepTogether = false;
    }
}

/// Calls `loosen(first, last)` for the things that are kept together and higher than a page.
template <class HeightOf, class IsKept, class Change>
void ForEachTooHigh(
    std::size_t count, Double tallest, const HeightOf& heightOf, const IsKept& isKept, const Change& loosen)
{
    for (std::size_t first = 0; first < count;) {
        std::size_t last = first;
        Double height = heightOf(first);
        while (isKept(last) && last + 1 < count)
            height += heightOf(++last);
        if (height > tallest) loosen(first, last);
        first = last + 1;
    }
}

} // namespace

void Loosen(std::vector<Block>& blocks, const LaidText& laid, Double tallest)
{
    const std::vector<Unit> units = UnitsOf(blocks, laid);
    AllowBreaks(units, tallest);
    ForEachTooHigh(
        units.size(),
        tallest,
        [&](std::size_t i) { return units[i].height; },
        [&](std::size_t i) { return units[i].IsKept(); },
        [&](std::size_t first, std::size_t last) { LoosenUnits(units, first, last, tallest); });
}

void Loosen(std::vector<RowRules>& rules, const std::vector<LaidRow>& rows, Double tallest)
{
    ForEachTooHigh(
        rules.size(),
        tallest,
        [&](std::size_t i) { return rows[i].height; },
        [&](std::size_t i) { return rules[i].keepWithNext; },
        [&](std::size_t first, std::size_t last) {
            for (std::size_t i = first; i <= last; ++i)
                rules[i].keepWithNext = false;
        });
}

} // namespace platform::print
