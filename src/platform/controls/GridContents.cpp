#include "platform/controls/GridContents.h"

#include "platform/base/Errors.h"

#include <utility>

namespace platform {

namespace {

std::size_t Checked(const char* what, Long index, Long count)
{
    if (index < 0 || index >= count) {
        throw OutOfBounds(what, index);
    }
    return static_cast<std::size_t>(index);
}

std::size_t CheckedCount(const char* what, Long count)
{
    if (count < 0) {
        throw OutOfBounds(what, count);
    }
    return static_cast<std::size_t>(count);
}

} // namespace

void GridContents::SetRows(Long rows)
{
    m_rows.resize(CheckedCount("grid rows", rows));
    for (Row& row : m_rows) {
        row.cells.resize(m_columns.size());
    }
}

void GridContents::SetCols(Long columns)
{
    m_columns.resize(CheckedCount("grid columns", columns));
    SetRows(Rows());
}

void GridContents::SetFixedRows(Long rows)
{
    m_fixedRows = static_cast<Long>(CheckedCount("fixed rows", rows));
}

void GridContents::AddItem(std::string_view tabbedTexts)
{
    Row row;
    row.cells.resize(m_columns.size());
    for (Cell& cell : row.cells) {
        const std::size_t tab = tabbedTexts.find('\t');
        cell.text = tabbedTexts.substr(0, tab);
        tabbedTexts = tab == std::string_view::npos ? std::string_view() : tabbedTexts.substr(tab + 1);
    }
    m_rows.push_back(std::move(row));
}

void GridContents::RemoveItem(Long row)
{
    m_rows.erase(m_rows.begin() + static_cast<std::ptrdiff_t>(Checked("grid row", row, Rows())));
}

const GridContents::Row& GridContents::RowAt(Long row) const
{
    return m_rows[Checked("grid row", row, Rows())];
}

GridContents::Row& GridContents::RowAt(Long row) { return m_rows[Checked("grid row", row, Rows())]; }

const GridContents::Cell& GridContents::CellAt(Long row, Long column) const
{
    return RowAt(row).cells[Checked("grid column", column, Cols())];
}

GridContents::Cell& GridContents::CellAt(Long row, Long column)
{
    return RowAt(row).cells[Checked("grid column", column, Cols())];
}

const GridContents::Column& GridContents::ColumnAt(Long column) const
{
    return m_columns[Checked("grid column", column, Cols())];
}

GridContents::Column& GridContents::ColumnAt(Long column)
{
    return m_columns[Checked("grid column", column, Cols())];
}

const std::string& GridContents::Text(Long row, Long column) const { return CellAt(row, column).text; }

void GridContents::SetText(Long row, Long column, const std::string& text)
{
    CellAt(row, column).text = text;
}

const std::any& GridContents::RowData(Long row) const { return RowAt(row).data; }

void GridContents::SetRowData(Long row, std::any data) { RowAt(row).data = std::move(data); }

bool GridContents::MergeRow(Long row) const { return RowAt(row).merged; }

void GridContents::SetMergeRow(Long row, bool merged) { RowAt(row).merged = merged; }

Long GridContents::ColWidth(Long column) const { return ColumnAt(column).width; }

void GridContents::SetColWidth(Long column, Long twips) { ColumnAt(column).width = twips; }

Alignment GridContents::ColAlignment(Long column) const { return ColumnAt(column).alignment; }

void GridContents::SetColAlignment(Long column, Alignment alignment)
{
    ColumnAt(column).alignment = alignment;
}

Alignment GridContents::CellAlignment(Long row, Long column) const
{
    const Cell& cell = CellAt(row, column);
    return cell.ownAlignment ? cell.alignment : ColAlignment(column);
}

void GridContents::SetCellAlignment(Long row, Long column, Alignment alignment)
{
    Cell& cell = CellAt(row, column);
    cell.ownAlignment = true;
    cell.alignment = alignment;
}

} // namespace platform
