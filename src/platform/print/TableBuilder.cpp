#include "platform/print/TableBuilder.h"

#include "platform/print/TextReading.h"

#include <algorithm>
#include <utility>

namespace platform::print {

namespace {

constexpr Long cellGap = 60;    // twips from a cell's edge to its text
constexpr Long boxedSpace = 20; // above and below the text of a cell that stands between rules
constexpr Long ruleWidth = 10;  // half a point
constexpr Integer borderAbove = 2, borderAll = 7;

richtext::Border Rule() { return {richtext::BorderStyle::Single, ruleWidth, std::nullopt}; }

bool IsOfRow(TableSetting setting)
{
    switch (setting) {
    case tcRowHeight:
    case tcRowIsHeader:
    case tcRowKeepWithNext:
    case tcRowSpacing:
    case tcRowBorderAbove:
    case tcRowBorderBelow:
    case tcRowLongText: return true;
    default: return false;
    }
}

void AddSpace(std::vector<richtext::Block>& blocks)
{
    if (richtext::Paragraph* first = blocks.front().AsParagraph()) first->format.spaceBefore += boxedSpace;
    if (richtext::Paragraph* last = blocks.back().AsParagraph()) last->format.spaceAfter += boxedSpace;
}

} // namespace

TableBuilder::Row TableBuilder::NewRow() const
{
    Row row;
    row.cells.resize(m_columns.size());
    return row;
}

void TableBuilder::AddRow(const PrintCells& texts, bool header)
{
    Row row = NewRow();
    row.header = header;
    for (std::size_t i = 0; i < std::min(texts.size(), row.cells.size()); ++i)
        row.cells[i].text = texts[i];
    m_rows.push_back(std::move(row));
}

void TableBuilder::Add(const TableFormat& format,
                       const PrintCells& header,
                       const std::vector<PrintCells>& body,
                       const PrintSettings& settings)
{
    const bool isFirst = m_columns.empty();
    if (isFirst) m_columns = format.columns;
    m_font = settings.font;
    m_border = settings.tableBorder;
    m_spaceBefore = settings.spaceBefore;
    m_spaceAfter = settings.spaceAfter;
    if (!header.empty()) AddRow(header, isFirst);
    m_hasHeader = m_hasHeader || (isFirst && !header.empty());
    for (const PrintCells& cells : body)
        AddRow(cells, false);
}

void TableBuilder::SetRows(Long count)
{
    constexpr Long most = 100'000;
    const std::size_t header = m_hasHeader ? 1 : 0;
    m_rows.resize(header + static_cast<std::size_t>(std::clamp<Long>(count, 0, most)), NewRow());
}

void TableBuilder::SetRow(Row& row, TableSetting setting, const CellValue& value)
{
    switch (setting) {
    case tcRowHeight: row.height = value.Number(); break;
    case tcRowIsHeader: row.header = value.IsTrue(); break;
    case tcRowKeepWithNext: row.keepWithNext = value.IsTrue(); break;
    case tcRowSpacing: row.spacing = value.Number(); break;
    case tcRowBorderAbove: row.borderAbove = value.Number(); break;
    case tcRowBorderBelow: row.borderBelow = value.Number(); break;
    case tcRowLongText: row.longText = value.IsTrue(); break;
    default: break;
    }
}

void TableBuilder::SetCell(Cell& cell, TableSetting setting, const CellValue& value)
{
    switch (setting) {
    case tcColSpan: cell.span = std::max<Long>(1, ToLong(value.Number())); break;
    case tcText: cell.text = value.Text(); break;
    case tcAlign: cell.align = ToInteger(value.Number()); break;
    case tcFontSize: cell.fontSize = value.Number(); break;
    case tcFontBold: cell.fontBold = value.IsTrue(); break;
    case tcVertical: cell.vertical = value.IsTrue(); break;
    default: break;
    }
}

void TableBuilder::Set(
    TableSetting setting, Long row1, Long column1, Long row2, Long column2, const CellValue& value)
{
    if (setting == tcRows) return SetRows(ToLong(value.Number()));
    const Long header = m_hasHeader ? 0 : 1; // the number of the first row that is there
    const Long lastRow = std::min(row2, static_cast<Long>(m_rows.size()) - 1 + header);
    const Long lastColumn = std::min(column2, static_cast<Long>(m_columns.size()));
    for (Long number = std::max(row1, header); number <= lastRow; ++number) {
        Row& row = m_rows[static_cast<std::size_t>(number - header)];
        if (IsOfRow(setting)) SetRow(row, setting, value);
        for (Long column = std::max<Long>(column1, 1); column <= lastColumn; ++column)
            SetCell(row.cells[static_cast<std::size_t>(column - 1)], setting, value);
    }
}

CellValue TableBuilder::Get(TableSetting setting, Long row, Long column) const
{
    const Long header = m_hasHeader ? 0 : 1;
    if (setting == tcRows) return static_cast<Long>(m_rows.size()) - (m_hasHeader ? 1 : 0);
    const auto place = static_cast<std::size_t>(row - header);
    const auto cellPlace = static_cast<std::size_t>(column - 1);
    if (row < header || place >= m_rows.size() || column < 1 || cellPlace >= m_columns.size()) return 0;
    const Row& found = m_rows[place];
    const Cell& cell = found.cells[cellPlace];
    switch (setting) {
    case tcRowHeight: return found.height;
    case tcRowIsHeader: return found.header ? 1 : 0;
    case tcRowKeepWithNext: return found.keepWithNext;
    case tcRowSpacing: return found.spacing;
    case tcRowBorderAbove: return found.borderAbove;
    case tcRowBorderBelow: return found.borderBelow;
    case tcRowLongText: return found.longText;
    case tcColSpan: return cell.span;
    case tcText: return cell.text;
    case tcAlign: return cell.align.value_or(m_columns[cellPlace].align);
    case tcFontSize: return cell.fontSize.value_or(m_font.size);
    case tcFontBold: return cell.fontBold.value_or(m_font.bold);
    case tcVertical: return cell.vertical;
    case tcRows: break;
    }
    return 0;
}

void TableBuilder::SetBorders(
    richtext::TableCell& cell, const Row& row, std::size_t rowNumber, bool first, bool ruled) const
{
    const bool all = m_border == borderAll;
    if (m_border == borderAbove || row.borderAbove > 0.0 || (all && rowNumber == 0)) cell.top = Rule();
    if (all || row.borderBelow > 0.0) cell.bottom = Rule();
    if (all && first) cell.left = Rule();
    if (all || ruled) cell.right = Rule();
}

richtext::TableCell TableBuilder::RichCell(const Row& row,
                                           std::size_t column,
                                           std::size_t end,
                                           std::vector<richtext::RichList>& lists) const
{
    const Cell& cell = row.cells[column];
    const Integer align = cell.align.value_or(m_columns[column].align);
    PrintFont font = m_font;
    font.size = cell.fontSize.value_or(font.size);
    font.bold = cell.fontBold.value_or(font.bold);
    richtext::RichDocument text = ReadText(cell.text, font);
    MoveLists(text, lists);
    richtext::TableCell rich;
    for (std::size_t i = column; i < end; ++i)
        rich.width += m_columns[i].width;
    rich.blocks = std::move(text.blocks);
    if (rich.blocks.back().AsParagraph() == nullptr) rich.blocks.push_back({richtext::Paragraph()});
    Align(rich.blocks, align);
    rich.alignment = DownOf(align);
    rich.upward = cell.vertical;
    return rich;
}

richtext::TableRow TableBuilder::RichRow(std::size_t number, std::vector<richtext::RichList>& lists) const
{
    const Row& row = m_rows[number];
    richtext::TableRow rich;
    rich.cellGap = cellGap;
    rich.height = ToLong(std::max(0.0, row.height));
    rich.keepTogether = !row.longText;
    for (std::size_t column = 0; column < row.cells.size();) {
        const std::size_t end =
            std::min(column + static_cast<std::size_t>(row.cells[column].span), row.cells.size());
        richtext::TableCell cell = RichCell(row, column, end, lists);
        SetBorders(cell, row, number, column == 0, m_columns[end - 1].ruled);
        const bool isBoxed = m_border == borderAll || row.borderAbove > 0.0 || row.borderBelow > 0.0;
        if (isBoxed) AddSpace(cell.blocks);
        rich.cells.push_back(std::move(cell));
        column = end;
    }
    return rich;
}

FlowTable TableBuilder::Finish(std::vector<richtext::RichList>& lists) const
{
    FlowTable table;
    for (std::size_t number = 0; number < m_rows.size(); ++number) {
        const Row& row = m_rows[number];
        table.table.rows.push_back(RichRow(number, lists));
        table.rules.push_back({row.header, row.keepWithNext, m_spaceBefore, m_spaceAfter, row.spacing});
    }
    return table;
}

} // namespace platform::print
