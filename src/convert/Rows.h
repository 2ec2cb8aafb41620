#pragma once

#include "platform/data/Database.h"
#include "platform/data/Recordset.h"
#include "session/SessionState.h"

#include <initializer_list>
#include <string>
#include <string_view>

/// What the conversions do with rows of the file that is being opened. All throw DatabaseError.
namespace Rows {

/// Calls `use` with the cursor at each row of a table, in key order. It may change the row's cells, its key
/// not.
template <class Use> void ForEach(std::string_view table, Use use)
{
    platform::Recordset rows = OpenDatabase().OpenTable(table);
    if (rows.RecordCount() > 0) {
        for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext()) {
            use(rows);
        }
    }
}

/// Writes a row's number into a Long column; null stays null.
void CopyLong(const platform::Recordset& from,
              const char* source,
              platform::Recordset& to,
              const char* target);
/// The same for money.
void CopyMoney(const platform::Recordset& from,
               const char* source,
               platform::Recordset& to,
               const char* target);
/// The same for a text.
void CopyText(const platform::Recordset& from,
              const char* source,
              platform::Recordset& to,
              const char* target);

/// Sets one text column of the current row.
void Write(platform::Recordset& row, const char* column, const std::string& text);
/// Sets a named value that the file has.
void WriteProperty(std::string_view name, const std::string& value);

} // namespace Rows
