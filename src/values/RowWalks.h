#pragma once

#include "platform/base/Numbers.h"
#include "platform/data/Recordset.h"

#include <optional>
#include <string_view>

/// What the stores do with the rows of a cursor one after another. All throw DatabaseError.
namespace RowWalks {

/// Deletes each row of a query.
void DeleteRows(platform::Recordset rows);
/// Deletes the rows of a table whose key column holds `key`.
void DeleteRowsOf(platform::Recordset table, std::string_view keyColumn, Long key);
/// The key in a cell as a seek would find it; nothing for a cell that no 32-bit key finds.
std::optional<Long> KeyIn(const platform::Recordset& rows, std::string_view column);

} // namespace RowWalks
