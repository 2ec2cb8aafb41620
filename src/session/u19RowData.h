#pragma once

#include "platform/base/Numbers.h"
#include "platform/data/Recordset.h"

#include <string>
#include <string_view>

/// Null-safe reads: after a failed Seek, or from a null cell, the empty value. Throw DatabaseError for a
/// number beyond the width.
namespace u19RowData {

std::string ReadText(const platform::Recordset& rows, std::string_view column);
/// Rounds, halves to even.
Long ReadLong(const platform::Recordset& rows, std::string_view column);
Single ReadSingle(const platform::Recordset& rows, std::string_view column);

} // namespace u19RowData
