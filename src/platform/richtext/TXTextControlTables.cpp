#include "platform/richtext/RtfReader.h"
#include "platform/richtext/TXTextControl.h"

#include <algorithm>
#include <type_traits>
#include <utility>

namespace platform::richtext {

namespace {

constexpr Long cellGap = 60;          // twips from a cell's edge to its text
constexpr Long twipsOfHalfPoint = 10; // of a rule
constexpr Long widestRule = 25;       // half points

/// The rule that an attribute is about; nothing for a number that is none.
Border TableCell::*RuleOf(Long attribute)
{
    switch (attribute) {
    case TXTextControl::ruleAbove: return &TableCell::top;
    case TXTextControl::ruleBelow: return &TableCell::bottom;
    default: return nullptr;
    }
}

/// The cell of a table in which a row and a column cross.
template <class TableType> auto* CellIn(TableType& table, Long row, Long column)
{
    using Cell = std::remove_reference_t<decltype(table.rows.front().cells.front())>;
    Cell* none = nullptr;
    if (row < 1 || static_cast<std::size_t>(row) > table.rows.size()) return none;
    auto& cells = table.rows[static_cast<std::size_t>(row) - 1].cells;
    if (column < 1 || static_cast<std::size_t>(column) > cells.size()) return none;
    return &cells[static_cast<std::size_t>(column) - 1];
}

/// How many characters of a table stand before one of its cells.
Long LengthBefore(const Table& table, const TableCell& wanted)
{
    Long length = 0;
    for (const TableRow& row : table.rows) {
        for (const TableCell& cell : row.cells) {
            if (&cell == &wanted) return length;
            length += LengthOf(cell.blocks);
        }
    }
    return length;
}

} // namespace

std::size_t TXTextControl::PlaceOf(Integer id) const
{
    const auto found =
        std::find_if(m_parts.rbegin(), m_parts.rend(), [id](const Part& part) { return part.table == id; });
    if (id == 0 || found == m_parts.rend()) return nowhere;
    return static_cast<std::size_t>(m_parts.rend() - found) - 1;
}

const TableCell* TXTextControl::CellOf(Integer id, Long row, Long column) const
{
    const std::size_t place = PlaceOf(id);
    return place == nowhere ? nullptr : CellIn(*m_document.blocks[place].AsTable(), row, column);
}

TableCell* TXTextControl::CellOf(Integer id, Long row, Long column)
{
    const std::size_t place = PlaceOf(id);
    return place == nowhere ? nullptr : CellIn(*m_document.blocks[place].AsTable(), row, column);
}

/// Its rows are not broken over pages, where one can hold them.
Table TXTextControl::NewTable(Long rows, Long columns) const
{
    TableRow row;
    row.cellGap = cellGap;
    row.keepTogether = true;
    for (Long column = 1; column <= columns; ++column) {
        TableCell cell;
        cell.width = m_textWidth * column / columns - m_textWidth * (column - 1) / columns;
        cell.blocks.push_back({Paragraph()});
        row.cells.push_back(std::move(cell));
    }
    Table table;
    table.rows.assign(static_cast<std::size_t>(rows), row);
    return table;
}

/// Parts the text at a place so that a table can be inserted, and returns the number of the block that it
/// will be.
std::size_t TXTextControl::MakePlace(Long place)
{
    SetSelStart(place);
    Long start = m_selStart;
    std::size_t part = PartAt(start);
    const Paragraph* paragraph = m_document.blocks[part].AsParagraph();
    if (paragraph == nullptr) return part + 1;
    if (start == 0) return part;
    const Range range{&m_document.blocks, part, part, start, start};
    const ParagraphFormat format = paragraph->format;
    Replace(range, {{Paragraph{format, {}, {}}}, {Paragraph{format, {}, {}}}});
    Respace(part, part + 1, 2);
    return part + 1;
}

Integer TXTextControl::TableInsert(Long rows, Long columns, Long place, Integer id)
{
    constexpr Long mostRows = 10'000;
    if (rows < 1 || rows > mostRows || columns < 1 || columns > maxColumns) return 0;
    if (PlaceOf(id) != nowhere) return 0;
    if (id == 0) {
        do {
            m_lastTable = ToInteger(Double(m_lastTable) + 1.0);
        } while (PlaceOf(m_lastTable) != nowhere);
        id = m_lastTable;
    }
    std::size_t part = MakePlace(place);
    std::vector<Block> inserted{{NewTable(rows, columns)}};
    const auto isTable = [&](std::size_t block) { return m_document.blocks[block].AsTable() != nullptr; };
    const bool lineBefore = part > 0 && isTable(part - 1);
    const bool lineBehind = isTable(part);
    if (lineBefore) inserted.insert(inserted.begin(), {Paragraph()});
    if (lineBehind) inserted.push_back({Paragraph()});
    m_document.blocks.insert(
        m_document.blocks.begin() + static_cast<std::ptrdiff_t>(part), inserted.begin(), inserted.end());
    Respace(part, part, inserted.size());
    m_parts[part + (lineBefore ? 1 : 0)].table = id;
    SetSelStart(endOfText);
    return id;
}

Long TXTextControl::TableCellAttribute(Integer id, Long row, Long column, Long attribute) const
{
    const TableCell* cell = CellOf(id, row, column);
    Border TableCell::*rule = RuleOf(attribute);
    return cell == nullptr || rule == nullptr ? 0 : (cell->*rule).width / twipsOfHalfPoint;
}

void TXTextControl::SetTableCellAttribute(Integer id, Long row, Long column, Long attribute, Long value)
{
    TableCell* cell = CellOf(id, row, column);
    Border TableCell::*rule = RuleOf(attribute);
    if (cell == nullptr || rule == nullptr) return;
    const Long width = std::clamp<Long>(value, 0, widestRule) * twipsOfHalfPoint;
    cell->*rule = width == 0 ? Border() : Border{BorderStyle::Single, width, std::nullopt};
}

std::string TXTextControl::TableCellText(Integer id, Long row, Long column) const
{
    const TableCell* cell = CellOf(id, row, column);
    if (cell == nullptr) return {};
    RichDocument text;
    text.blocks = cell->blocks;
    return PlainText(text);
}

void TXTextControl::SetTableCellText(Integer id, Long row, Long column, std::string_view text)
{
    const Long start = TableCellStart(id, row, column);
    if (start == 0) return;
    SetSelStart(start - 1);
    SetSelLength(TableCellLength(id, row, column) - 1);
    SetSelText(text);
}

Long TXTextControl::TableCellStart(Integer id, Long row, Long column) const
{
    const TableCell* cell = CellOf(id, row, column);
    if (cell == nullptr) return 0;
    const std::size_t place = PlaceOf(id);
    return 1 + StartOf(place) + LengthBefore(*m_document.blocks[place].AsTable(), *cell);
}

Long TXTextControl::TableCellLength(Integer id, Long row, Long column) const
{
    const TableCell* cell = CellOf(id, row, column);
    return cell == nullptr ? 0 : LengthOf(cell->blocks);
}

} // namespace platform::richtext
