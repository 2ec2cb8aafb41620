#include "platform/print/PrintControl.h"
#include "platform/print/PrintState.h"

#include <limits>
#include <utility>

namespace platform::print {

namespace {

PrintCells CellsOf(std::vector<std::string> texts)
{
    PrintCells cells;
    for (std::string& text : texts)
        cells.emplace_back(std::move(text));
    return cells;
}

std::vector<PrintCells> RowsOf(std::string_view data)
{
    std::vector<PrintCells> rows;
    for (std::vector<std::string>& row : SplitRows(data))
        rows.push_back(CellsOf(std::move(row)));
    return rows;
}

} // namespace

void PrintControl::Table(const std::string& formatAndData) { Table(formatAndData, {}); }

void PrintControl::Table(const std::string& format, const std::vector<PrintCells>& rows)
{
    if (!m_state->isOpen) return;
    const TableFormat read = ReadFormat(format);
    std::vector<PrintCells> body = RowsOf(read.data);
    body.insert(body.end(), rows.begin(), rows.end());
    TableBuilder builder;
    builder.Add(read, {}, body, m_state->settings);
    m_state->WriteTableOrDrop(*this, builder);
}

void PrintControl::StartTable() { m_state->table.emplace(); }

void PrintControl::AddTable(const std::string& format, const std::string& header, const std::string& body)
{
    const std::vector<PrintCells> head = RowsOf(header);
    AddTable(format, head.empty() ? PrintCells() : head.front(), RowsOf(body));
}

void PrintControl::AddTable(const std::string& format,
                            const PrintCells& header,
                            const std::vector<PrintCells>& body)
{
    if (m_state->table) m_state->table->Add(ReadFormat(format), header, body, m_state->settings);
}

void PrintControl::EndTable()
{
    if (!m_state->table) return;
    const TableBuilder builder = std::move(*m_state->table);
    m_state->table.reset();
    if (m_state->isOpen) m_state->WriteTableOrDrop(*this, builder);
}

void PrintControl::SetTableCell(TableSetting setting, const CellValue& value)
{
    SetTableCell(setting, 0, 1, value);
}

void PrintControl::SetTableCell(TableSetting setting, Long row, const CellValue& value)
{
    SetTableCell(setting, row, 1, value);
}

void PrintControl::SetTableCell(TableSetting setting, Long row, Long column, const CellValue& value)
{
    SetTableCell(setting, row, column, row, column, value);
}

void PrintControl::SetTableCell(
    TableSetting setting, Long row1, Long column1, Long row2, const CellValue& value)
{
    SetTableCell(setting, row1, column1, row2, column1, value);
}

void PrintControl::SetTableCell(
    TableSetting setting, Long row1, Long column1, Long row2, Long column2, const CellValue& value)
{
    if (m_state->table) m_state->table->Set(setting, row1, column1, row2, column2, value);
}

CellValue PrintControl::TableCell(TableSetting setting, Long row, Long column) const
{
    return m_state->table ? m_state->table->Get(setting, row, column) : CellValue(0);
}

} // namespace platform::print
