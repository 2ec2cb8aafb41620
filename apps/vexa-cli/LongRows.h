#pragma once

#include "platform/base/Numbers.h"
#include "platform/data/Database.h"

#include <initializer_list>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace vexa_cli {

/// A whole number of the file; nothing for null, and for what does not fit (which CheckTables tells).
using LongCell = std::optional<Long>;

/// The rows of a table in key order, of each the named columns. Without a row when the table or one of the
/// columns is not there or cannot be read, which CheckTables tells.
class LongRows
{
public:
    LongRows(platform::Database& database, const char* table, std::initializer_list<const char*> columns);

    /// Whether the table could be read: only then is a row that is not there really missing.
    bool IsWhole() const { return m_isWhole; }
    const std::vector<std::vector<LongCell>>& Rows() const { return m_rows; }
    /// The numbers of one column, by its place in the constructor's list.
    std::set<Long> Numbers(std::size_t column) const;

private:
    std::vector<std::vector<LongCell>> m_rows;
    bool m_isWhole = false;
};

/// "null" or the number.
std::string CellText(const LongCell& cell);

} // namespace vexa_cli
