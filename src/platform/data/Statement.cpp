#include "platform/data/Statement.h"

#include "platform/data/DatabaseError.h"

#include <sqlite3.h>

namespace platform {

void ThrowEngineError(sqlite3* connection, int code, const std::string& doing)
{
    const int extended = connection == nullptr ? code : sqlite3_extended_errcode(connection);
    const std::string text = connection == nullptr ? sqlite3_errstr(code) : sqlite3_errmsg(connection);
    throw DatabaseError(extended == SQLITE_OK ? code : extended, doing + ": " + text);
}

Statement::Statement(sqlite3* connection, const std::string& sql) : m_connection(connection)
{
    const int result =
        sqlite3_prepare_v3(connection, sql.c_str(), -1, SQLITE_PREPARE_PERSISTENT, &m_handle, nullptr);
    if (result != SQLITE_OK) {
        ThrowEngineError(connection, result, "Preparing " + sql);
    }
    m_columnCount = sqlite3_column_count(m_handle);
}

Statement::~Statement() { sqlite3_finalize(m_handle); }

namespace {

struct Binder
{
    sqlite3_stmt* handle;
    int parameter;

    int operator()(std::monostate) const { return sqlite3_bind_null(handle, parameter); }
    int operator()(std::int64_t value) const { return sqlite3_bind_int64(handle, parameter, value); }
    int operator()(Double value) const { return sqlite3_bind_double(handle, parameter, value); }
    int operator()(const std::string& value) const
    {
        return sqlite3_bind_text64(
            handle, parameter, value.data(), value.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
    }
};

} // namespace

void Statement::Bind(int parameter, const FieldValue& value)
{
    const int result = std::visit(Binder{m_handle, parameter}, value);
    if (result != SQLITE_OK) {
        ThrowEngineError(m_connection, result, "Binding a value");
    }
}

bool Statement::Step()
{
    const int result = sqlite3_step(m_handle);
    if (result == SQLITE_ROW) {
        return true;
    }
    if (result != SQLITE_DONE) {
        // The error text goes with the reset, so it is taken first.
        const int code = sqlite3_extended_errcode(m_connection);
        const std::string text = sqlite3_errmsg(m_connection);
        sqlite3_reset(m_handle);
        throw DatabaseError(code, text);
    }
    return false;
}

void Statement::Reset()
{
    sqlite3_reset(m_handle);
    sqlite3_clear_bindings(m_handle);
}

void Statement::CopyRow(std::vector<FieldValue>& row)
{
    row.resize(static_cast<std::size_t>(m_columnCount));
    for (int column = 0; column < m_columnCount; ++column) {
        CopyCell(column, row[static_cast<std::size_t>(column)]);
    }
}

FieldValue Statement::Cell(int column)
{
    FieldValue cell;
    CopyCell(column, cell);
    return cell;
}

void Statement::CopyCell(int column, FieldValue& cell)
{
    switch (sqlite3_column_type(m_handle, column)) {
    case SQLITE_NULL: cell = std::monostate(); return;
    case SQLITE_INTEGER: cell = std::int64_t(sqlite3_column_int64(m_handle, column)); return;
    case SQLITE_FLOAT: cell = sqlite3_column_double(m_handle, column); return;
    default: break;
    }
    const void* bytes = sqlite3_column_blob(m_handle, column);
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(m_handle, column));
    if (bytes == nullptr && sqlite3_errcode(m_connection) == SQLITE_NOMEM) {
        ThrowEngineError(m_connection, SQLITE_NOMEM, "Reading a text");
    }
    auto* text = std::get_if<std::string>(&cell);
    std::string& target = text != nullptr ? *text : cell.emplace<std::string>();
    target.assign(static_cast<const char*>(bytes), bytes == nullptr ? 0 : size);
}

} // namespace platform
