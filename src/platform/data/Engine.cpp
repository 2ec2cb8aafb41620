#include "platform/data/Engine.h"

#include "platform/data/DatabaseError.h"

#include <sqlite3.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <strings.h>

namespace platform {

namespace {

/// No text of a fire comes near this; a file that claims more is damaged or means harm.
constexpr int kLongestCell = 128 << 20;

bool SameName(std::string_view a, std::string_view b)
{
    return a.size() == b.size() && strncasecmp(a.data(), b.data(), a.size()) == 0;
}

const std::string& TextCell(const FieldValue& cell)
{
    static const std::string empty;
    const auto* text = std::get_if<std::string>(&cell);
    return text == nullptr ? empty : *text;
}

std::int64_t NumberCell(const FieldValue& cell)
{
    const auto* number = std::get_if<std::int64_t>(&cell);
    return number == nullptr ? 0 : *number;
}

} // namespace

std::string Quoted(std::string_view name)
{
    std::string quoted = "\"";
    for (const char c : name) {
        quoted.append(c == '"' ? 2 : 1, c);
    }
    return quoted + "\"";
}

int TableInfo::Find(std::string_view column) const
{
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (SameName(columns[i].name, column)) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

StatementLoan& StatementLoan::operator=(StatementLoan&& other) noexcept
{
    if (this != &other) {
        GiveBack();
        m_shelf = other.m_shelf;
        m_statement = std::move(other.m_statement);
    }
    return *this;
}

void StatementLoan::GiveBack()
{
    if (m_statement != nullptr) {
        m_statement->Reset();
        m_shelf->push_back(std::move(m_statement));
    }
}

Database::Engine::Engine(const std::string& path, Mode mode)
{
    try {
        OpenFile(path, mode);
        Distrust();
        if (mode == Mode::Exclusive) {
            TakeExclusive(path);
        }
    } catch (...) {
        m_shelves.clear();
        sqlite3_close(m_connection);
        throw;
    }
}

Database::Engine::~Engine()
{
    m_shelves.clear();
    sqlite3_close(m_connection);
}

void Database::Engine::OpenFile(const std::string& path, Mode mode)
{
    // The engine takes a file of no bytes for an empty database, and would write a first page into it.
    std::error_code error;
    if (std::filesystem::file_size(path, error) == 0 && !error) {
        throw DatabaseError(SQLITE_NOTADB, "Opening " + path + ": the file is empty");
    }
    // Neither SQLITE_OPEN_CREATE, which would make a missing file, nor SQLITE_OPEN_URI: a path is a path.
    const int access = mode == Mode::ReadOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE;
    const int result = sqlite3_open_v2(
        path.c_str(), &m_connection, access | SQLITE_OPEN_EXRESCODE | SQLITE_OPEN_NOMUTEX, nullptr);
    if (result != SQLITE_OK) {
        ThrowEngineError(m_connection, result, "Opening " + path);
    }
}

void Database::Engine::Distrust()
{
    const auto configure = [this](int option, int value) {
        sqlite3_db_config(m_connection, option, value, static_cast<int*>(nullptr));
    };
    configure(SQLITE_DBCONFIG_DEFENSIVE, 1);
    configure(SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0);
    configure(SQLITE_DBCONFIG_ENABLE_TRIGGER, 0);
    configure(SQLITE_DBCONFIG_ENABLE_VIEW, 0);
    configure(SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 0);
    configure(SQLITE_DBCONFIG_DQS_DML, 0);
    configure(SQLITE_DBCONFIG_DQS_DDL, 0);
    sqlite3_limit(m_connection, SQLITE_LIMIT_LENGTH, kLongestCell);
    sqlite3_limit(m_connection, SQLITE_LIMIT_ATTACHED, 0);
    Execute(
        "PRAGMA cell_size_check = ON; PRAGMA ignore_check_constraints = ON; PRAGMA locking_mode = EXCLUSIVE;"
        "PRAGMA synchronous = FULL");
}

void Database::Engine::TakeExclusive(const std::string& path)
{
    const std::string folder = std::filesystem::path(path).parent_path().string();
    if (sqlite3_db_readonly(m_connection, "main") != 0) {
        throw DatabaseError(SQLITE_READONLY, "Opening " + path + ": the file is read-only");
    }
    // The journal of a change stands beside the file.
    if (::access(folder.empty() ? "." : folder.c_str(), W_OK | X_OK) != 0) {
        throw DatabaseError(SQLITE_READONLY_DIRECTORY, "Opening " + path + ": its folder is read-only");
    }
    Execute("BEGIN EXCLUSIVE; COMMIT");
}

StatementLoan Database::Engine::Borrow(const std::string& sql)
{
    StatementLoan::Shelf& shelf = m_shelves[sql];
    if (shelf.empty()) {
        return {&shelf, std::make_unique<Statement>(m_connection, sql)};
    }
    std::unique_ptr<Statement> statement = std::move(shelf.back());
    shelf.pop_back();
    return {&shelf, std::move(statement)};
}

void Database::Engine::Execute(const std::string& sql)
{
    const int result = sqlite3_exec(m_connection, sql.c_str(), nullptr, nullptr, nullptr);
    if (result != SQLITE_OK) {
        ThrowEngineError(m_connection, result, sql);
    }
}

int Database::Engine::ChangedRows() const { return sqlite3_changes(m_connection); }

TableInfo& Database::Engine::Table(std::string_view name)
{
    const auto known = m_tables.find(name);
    if (known != m_tables.end()) {
        return known->second;
    }
    return m_tables.emplace(name, ReadTable(name)).first->second;
}

void Database::Engine::CheckPlainTable(std::string_view name)
{
    const StatementLoan schema = Borrow(
        "SELECT type, sql FROM sqlite_schema WHERE name = ?1 COLLATE NOCASE AND type IN ('table', 'view')");
    schema->Bind(1, std::string(name));
    if (!schema->Step()) {
        throw DatabaseError(SQLITE_ERROR, "There is no table " + std::string(name));
    }
    const std::string sql = TextCell(schema->Cell(1));
    if (TextCell(schema->Cell(0)) != "table" || strncasecmp(sql.c_str(), "CREATE VIRTUAL", 14) == 0) {
        throw DatabaseError(SQLITE_ERROR, std::string(name) + " is no plain table");
    }
}

TableInfo Database::Engine::ReadTable(std::string_view name)
{
    CheckPlainTable(name);
    const StatementLoan columns = Borrow("SELECT name, type, pk, hidden FROM pragma_table_xinfo(?1)");
    columns->Bind(1, std::string(name));
    TableInfo table;
    table.name = name;
    std::map<std::int64_t, std::string> keys;
    while (columns->Step()) {
        const std::string column = TextCell(columns->Cell(0));
        if (NumberCell(columns->Cell(3)) != 0) {
            throw DatabaseError(SQLITE_ERROR, table.name + "." + column + " is a computed column");
        }
        table.columns.push_back({column, SameName(TextCell(columns->Cell(1)), "CURRENCY")});
        if (const std::int64_t place = NumberCell(columns->Cell(2)); place > 0) {
            keys[place] = column;
        }
    }
    for (const auto& [place, column] : keys) {
        table.keys.push_back(column);
    }
    if (table.keys.empty()) {
        table.keys.emplace_back("rowid");
    }
    return table;
}

void Database::Engine::CheckWritable(TableInfo& table)
{
    if (!m_journalSettled) {
        Execute("PRAGMA journal_mode = DELETE");
        m_journalSettled = true;
    }
    if (table.writeChecked) {
        return;
    }
    const StatementLoan indexes =
        Borrow("SELECT l.name FROM pragma_index_list(?1) AS l, pragma_index_xinfo(l.name) "
               "AS x WHERE l.partial <> 0 OR x.cid = -2");
    indexes->Bind(1, table.name);
    if (indexes->Step()) {
        throw DatabaseError(SQLITE_ERROR, TextCell(indexes->Cell(0)) + " is a computed index");
    }
    table.writeChecked = true;
}

} // namespace platform
