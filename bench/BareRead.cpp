#include "BareRead.h"

#include <sqlite3.h>

#include <stdexcept>
#include <vector>

namespace {

double ReadCell(sqlite3_stmt* statement, int column)
{
    switch (sqlite3_column_type(statement, column)) {
    case SQLITE_INTEGER: return static_cast<double>(sqlite3_column_int64(statement, column));
    case SQLITE_FLOAT: return sqlite3_column_double(statement, column);
    case SQLITE_TEXT:
        return sqlite3_column_text(statement, column)[0] + sqlite3_column_bytes(statement, column);
    default: return 0.0;
    }
}

double ReadRows(sqlite3* connection, const std::string& sql)
{
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(connection, sql.c_str(), -1, &statement, nullptr) != SQLITE_OK) {
        throw std::runtime_error(sqlite3_errmsg(connection));
    }
    double sum = 0.0;
    const int columns = sqlite3_column_count(statement);
    while (sqlite3_step(statement) == SQLITE_ROW) {
        for (int column = 0; column < columns; ++column) {
            sum += ReadCell(statement, column);
        }
    }
    sqlite3_finalize(statement);
    return sum;
}

std::vector<std::string> Tables(sqlite3* connection)
{
    std::vector<std::string> names;
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(
        connection, "SELECT name FROM sqlite_schema WHERE type = 'table'", -1, &statement, nullptr);
    while (sqlite3_step(statement) == SQLITE_ROW) {
        names.emplace_back(reinterpret_cast<const char*>(sqlite3_column_text(statement, 0)));
    }
    sqlite3_finalize(statement);
    return names;
}

} // namespace

double BareRead(const std::string& path)
{
    sqlite3* connection = nullptr;
    if (sqlite3_open_v2(path.c_str(), &connection, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK) {
        throw std::runtime_error("cannot open " + path);
    }
    double sum = 0.0;
    for (const std::string& table : Tables(connection)) {
        sum += ReadRows(connection, "SELECT * FROM \"" + table + "\"");
    }
    sqlite3_close(connection);
    return sum;
}
