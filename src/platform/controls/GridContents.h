#pragma once

#include "platform/base/Numbers.h"

#include <any>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

enum class Alignment { Left, Center, Right };

/// What a grid shows: columns with width and alignment, rows of texts, each row with an object of its own
/// (row data), header rows first. A store fills it, a widget shows it. Rows and columns count from 0.
class GridContents
{
public:
    struct Column
    {
        Long width = 0; // twips; 0: the grid's own
        Alignment alignment = Alignment::Left;
    };
    struct Cell
    {
        std::string text;
        bool ownAlignment = false;
        Alignment alignment = Alignment::Left;
    };
    struct Row
    {
        std::vector<Cell> cells;
        std::any data;       // a shared_ptr to the row's object, or nothing
        bool merged = false; // neighbours of equal text stand as one cell
    };

    Long Rows() const { return static_cast<Long>(m_rows.size()); }
    Long Cols() const { return static_cast<Long>(m_columns.size()); }
    Long FixedRows() const { return m_fixedRows; }
    /// Keeps what the remaining rows and columns hold; new ones are empty. Throws OutOfBounds below 0.
    void SetRows(Long rows);
    void SetCols(Long columns);
    void SetFixedRows(Long rows);

    /// Adds a row at the end, its texts parted by tabs. Texts beyond the last column are dropped.
    void AddItem(std::string_view tabbedTexts);
    /// Throws OutOfBounds.
    void RemoveItem(Long row);

    const std::string& Text(Long row, Long column) const;
    void SetText(Long row, Long column, const std::string& text);
    const std::any& RowData(Long row) const;
    void SetRowData(Long row, std::any data);
    /// The row's object, or nothing where there is none of that kind.
    template <class Pointer> Pointer RowObject(Long row) const
    {
        const auto* held = std::any_cast<Pointer>(&RowData(row));
        return held == nullptr ? Pointer() : *held;
    }
    bool MergeRow(Long row) const;
    void SetMergeRow(Long row, bool merged);
    Long ColWidth(Long column) const;
    void SetColWidth(Long column, Long twips);
    Alignment ColAlignment(Long column) const;
    void SetColAlignment(Long column, Alignment alignment);
    /// A cell's own alignment goes before its column's.
    Alignment CellAlignment(Long row, Long column) const;
    void SetCellAlignment(Long row, Long column, Alignment alignment);

private:
    const Row& RowAt(Long row) const;
    Row& RowAt(Long row);
    const Cell& CellAt(Long row, Long column) const;
    Cell& CellAt(Long row, Long column);
    const Column& ColumnAt(Long column) const;
    Column& ColumnAt(Long column);

    std::vector<Column> m_columns;
    std::vector<Row> m_rows;
    Long m_fixedRows = 0;
};

} // namespace platform
