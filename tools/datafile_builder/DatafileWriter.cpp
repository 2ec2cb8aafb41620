#include "datafile_builder/DatafileWriter.h"

#include "datafile_builder/BuildError.h"

#include <sqlite3.h>

#include <type_traits>

namespace datafile_builder {

namespace {

struct Finalizer
{
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Statement = std::unique_ptr<sqlite3_stmt, Finalizer>;

void Check(sqlite3* database, int code)
{
    if (code != SQLITE_OK && code != SQLITE_ROW && code != SQLITE_DONE) {
        throw BuildError(std::string("the engine says: ") + sqlite3_errmsg(database));
    }
}

Statement Prepare(sqlite3* database, const std::string& text)
{
    sqlite3_stmt* statement = nullptr;
    Check(database, sqlite3_prepare_v2(database, text.c_str(), -1, &statement, nullptr));
    return Statement(statement);
}

int BindCell(sqlite3_stmt* statement, int place, const Cell& cell)
{
    return std::visit(
        [&](const auto& value) {
            using Value = std::decay_t<decltype(value)>;
            if constexpr (std::is_same_v<Value, std::int64_t>)
                return sqlite3_bind_int64(statement, place, value);
            if constexpr (std::is_same_v<Value, Double>) return sqlite3_bind_double(statement, place, value);
            if constexpr (std::is_same_v<Value, std::string>) {
                return sqlite3_bind_text64(
                    statement, place, value.data(), value.size(), nullptr, SQLITE_UTF8);
            }
            return sqlite3_bind_null(statement, place);
        },
        cell);
}

Cell ReadCell(sqlite3_stmt* statement, int column)
{
    switch (sqlite3_column_type(statement, column)) {
    case SQLITE_INTEGER: return std::int64_t{sqlite3_column_int64(statement, column)};
    case SQLITE_FLOAT: return sqlite3_column_double(statement, column);
    case SQLITE_TEXT: {
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
        return std::string(text, static_cast<std::size_t>(sqlite3_column_bytes(statement, column)));
    }
    default: return std::monostate{};
    }
}

/// The names of a row's columns with `behind` after each and `between` in the gaps: "A = ?, B = ?".
std::string ColumnNames(const Row& row, const std::string& behind, const std::string& between)
{
    std::string names;
    for (const auto& [column, cell] : row) {
        if (!names.empty()) names += between;
        names.append("\"").append(column).append("\"").append(behind);
    }
    return names;
}

std::vector<Cell> CellsOf(const Row& row)
{
    std::vector<Cell> cells;
    for (const auto& [column, cell] : row)
        cells.push_back(cell);
    return cells;
}

} // namespace

Cell SingleCell(Double value) { return Double(platform::ToSingle(value)); }

Cell CurrencyCell(platform::Currency value)
{
    constexpr std::int64_t perDollar = 10'000;
    const std::int64_t amount = value.TenThousandths();
    if (amount % perDollar == 0) return amount / perDollar;
    return platform::ToDouble(value);
}

Long WholeNumber(const Cell& cell)
{
    const auto* value = std::get_if<std::int64_t>(&cell);
    return value == nullptr ? 0 : platform::ToLong(static_cast<Double>(*value));
}

void DatafileWriter::Closer::operator()(sqlite3* database) const { sqlite3_close_v2(database); }

DatafileWriter::DatafileWriter(const std::filesystem::path& path)
{
    sqlite3* database = nullptr;
    const int code = sqlite3_open(path.c_str(), &database);
    m_database.reset(database);
    Check(database, code);
    // A draft needs no way back: when anything fails it is thrown away as a whole.
    Run("PRAGMA journal_mode = OFF", {});
    Run("PRAGMA synchronous = OFF", {});
}

DatafileWriter::~DatafileWriter() = default;

void DatafileWriter::RunScript(const std::string& statements)
{
    Check(m_database.get(), sqlite3_exec(m_database.get(), statements.c_str(), nullptr, nullptr, nullptr));
}

std::vector<Cell> DatafileWriter::Run(const std::string& statement, const std::vector<Cell>& arguments)
{
    sqlite3* database = m_database.get();
    const Statement prepared = Prepare(database, statement);
    int place = 0;
    for (const Cell& argument : arguments)
        Check(database, BindCell(prepared.get(), ++place, argument));
    const int code = sqlite3_step(prepared.get());
    Check(database, code);
    std::vector<Cell> cells;
    if (code != SQLITE_ROW) return cells;
    for (int column = 0; column < sqlite3_column_count(prepared.get()); ++column) {
        cells.push_back(ReadCell(prepared.get(), column));
    }
    return cells;
}

void DatafileWriter::BeginIfIdle()
{
    if (sqlite3_get_autocommit(m_database.get()) != 0) Run("BEGIN", {});
}

Long DatafileWriter::Add(const std::string& table, const Row& row)
{
    BeginIfIdle();
    std::string places;
    for (std::size_t i = 0; i < row.size(); ++i)
        places += i == 0 ? "?" : ", ?";
    Run("INSERT INTO " + table + " (" + ColumnNames(row, "", ", ") + ") VALUES (" + places + ")",
        CellsOf(row));
    return WholeNumber(std::int64_t{sqlite3_last_insert_rowid(m_database.get())});
}

void DatafileWriter::Change(const std::string& table, const Row& key, const Row& values)
{
    if (values.empty()) return;
    BeginIfIdle();
    Row arguments = values;
    arguments.insert(arguments.end(), key.begin(), key.end());
    Run("UPDATE " + table + " SET " + ColumnNames(values, " = ?", ", ") + " WHERE " +
            ColumnNames(key, " = ?", " AND "),
        CellsOf(arguments));
    if (sqlite3_changes(m_database.get()) != 1) throw BuildError("no such row in " + table);
}

std::vector<Cell> DatafileWriter::FirstRow(const std::string& query, const std::vector<Cell>& arguments)
{
    return Run(query, arguments);
}

Long DatafileWriter::LastKey(const std::string& table, const std::string& column)
{
    return WholeNumber(Run("SELECT MAX(\"" + column + "\") FROM " + table, {}).at(0));
}

void DatafileWriter::Finish()
{
    if (sqlite3_get_autocommit(m_database.get()) == 0) Run("COMMIT", {});
    Run("VACUUM", {});
    m_database.reset();
}

} // namespace datafile_builder
