#include "vexa-cli/LongRows.h"

#include "platform/data/DatabaseError.h"
#include "platform/data/Recordset.h"

namespace vexa_cli {

namespace {

LongCell CellOf(const platform::Recordset& rows, const char* column)
{
    if (rows.IsNull(column)) {
        return std::nullopt;
    }
    try {
        return rows.LongValue(column);
    } catch (const platform::DatabaseError&) {
        return std::nullopt;
    }
}

std::vector<std::vector<LongCell>> Read(platform::Recordset rows, const std::vector<const char*>& columns)
{
    std::vector<std::vector<LongCell>> read;
    if (rows.RecordCount() == 0) {
        return read;
    }
    for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext()) {
        std::vector<LongCell>& row = read.emplace_back();
        for (const char* column : columns) {
            row.push_back(CellOf(rows, column));
        }
    }
    return read;
}

} // namespace

LongRows::LongRows(platform::Database& database,
                   const char* table,
                   std::initializer_list<const char*> columns)
{
    try {
        m_rows = Read(database.OpenTable(table), columns);
        m_isWhole = true;
    } catch (const platform::DatabaseError&) {
        m_rows.clear();
    }
}

std::set<Long> LongRows::Numbers(std::size_t column) const
{
    std::set<Long> numbers;
    for (const std::vector<LongCell>& row : m_rows) {
        if (row[column]) {
            numbers.insert(*row[column]);
        }
    }
    return numbers;
}

std::string CellText(const LongCell& cell) { return cell ? std::to_string(*cell) : "null"; }

} // namespace vexa_cli
