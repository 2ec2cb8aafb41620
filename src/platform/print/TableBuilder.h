#pragma once

#include "platform/print/PrintSettings.h"
#include "platform/print/TableFormat.h"
#include "platform/print/TableSettings.h"

#include <optional>
#include <string>
#include <vector>

namespace platform::print {

/// A table that is being built: columns, rows and their settings. Row 0 is the header row.
class TableBuilder
{
public:
    /// Adds columns (those of the first call count) and rows in a font and with borders.
    void Add(const TableFormat& format,
             const PrintCells& header,
             const std::vector<PrintCells>& body,
             const PrintSettings& settings);
    /// Rows and columns outside of the table are passed over.
    void Set(TableSetting setting, Long row1, Long column1, Long row2, Long column2, const CellValue& value);
    CellValue Get(TableSetting setting, Long row, Long column) const;

    bool IsEmpty() const { return m_columns.empty(); }
    /// The table as a rich one, with the lists of its texts.
    FlowTable Finish(std::vector<richtext::RichList>& lists) const;

private:
    struct Cell
    {
        PrintText text;
        std::optional<Integer> align;
        std::optional<Double> fontSize;
        std::optional<bool> fontBold;
        Long span = 1;
        bool vertical = false;
    };
    struct Row
    {
        std::vector<Cell> cells; // one a column
        Double height = 0.0, spacing = 0.0, borderAbove = 0.0, borderBelow = 0.0;
        bool header = false, keepWithNext = false, longText = false;
    };

    Row NewRow() const;
    void AddRow(const PrintCells& texts, bool header);
    void SetRows(Long count);
    void SetRow(Row& row, TableSetting setting, const CellValue& value);
    void SetCell(Cell& cell, TableSetting setting, const CellValue& value);
    richtext::TableRow RichRow(std::size_t number, std::vector<richtext::RichList>& lists) const;
    richtext::TableCell RichCell(const Row& row,
                                 std::size_t column,
                                 std::size_t end,
                                 std::vector<richtext::RichList>& lists) const;
    void SetBorders(
        richtext::TableCell& cell, const Row& row, std::size_t rowNumber, bool first, bool ruled) const;

    std::vector<TableColumn> m_columns;
    std::vector<Row> m_rows; // row 0 first, if there is one
    bool m_hasHeader = false;
    PrintFont m_font;
    Integer m_border = 0;
    Double m_spaceBefore = 0.0, m_spaceAfter = 0.0;
};

} // namespace platform::print
