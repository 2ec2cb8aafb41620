#pragma once

#include "platform/base/Numbers.h"
#include "platform/data/Recordset.h"

#include <string>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace platform {

/// Throws the connection's last error as a DatabaseError.
[[noreturn]] void ThrowEngineError(sqlite3* connection, int code, const std::string& doing);

/// One prepared statement, kept for use again. Parameters count from 1, columns from 0.
class Statement
{
public:
    Statement(sqlite3* connection, const std::string& sql);
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;
    ~Statement();

    void Bind(int parameter, const FieldValue& value);
    /// To the next row; false behind the last one.
    bool Step();
    /// Ready for other parameters.
    void Reset();
    /// Puts the current row's cells into `row`, which keeps its memory from row to row.
    void CopyRow(std::vector<FieldValue>& row);
    FieldValue Cell(int column);

private:
    void CopyCell(int column, FieldValue& cell);

    sqlite3* m_connection;
    sqlite3_stmt* m_handle = nullptr;
    int m_columnCount = 0;
};

} // namespace platform
