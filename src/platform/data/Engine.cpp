#include "platform/data/Engine.h"

#include "platform/data/DatabaseError.h"

#include <sqlite3.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <strings.h>
#include <system_error>
#include <utility>

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

/// What every database of the engine begins with. The engine itself takes a file of a few bytes for an empty
/// database, which it would then write over.
constexpr std::string_view kSignature("SQLite format 3\0", 16);
constexpr int kHeaderSize = 20;
constexpr std::size_t kReadVersion = 19; // the place in the header of the version that readers need
constexpr char kWriteAhead = 2;

/// A name that the engine takes for a plain path, whatever it begins with ("file:", ":memory:", nothing).
std::string PlainName(const std::string& path) { return path.starts_with('/') ? path : "./" + path; }

/// The file's name for the engine as one that nobody changes: neither locks nor files beside are needed.
std::string UnchangingName(const std::string& path)
{
    constexpr std::string_view kHex = "0123456789ABCDEF";
    std::string name = "file:";
    for (const char c : PlainName(path)) {
        const auto byte = static_cast<unsigned char>(c);
        if (std::isalnum(byte) != 0 || c == '/' || c == '.') {
            name += c;
        } else {
            name.append(1, '%').append(1, kHex[byte >> 4U]).append(1, kHex[byte & 0xFU]);
        }
    }
    return name + "?immutable=1";
}

bool HasWriteAheadLog(const std::string& path)
{
    std::error_code error;
    const std::string log = std::filesystem::weakly_canonical(path, error).string() + "-wal";
    return std::filesystem::exists(log, error) && std::filesystem::file_size(log, error) > 0;
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
        Guard(path, mode);
        OpenFile(path, mode);
        Distrust(path);
        if (mode == Mode::Exclusive) {
            TakeExclusive(path);
        } else if (mode == Mode::Importing) {
            BeginImport(path);
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

void Database::Engine::Guard(const std::string& path, Mode mode)
{
    if (mode == Mode::Exclusive) {
        m_guard = std::make_unique<FileGuard>(path);
    } else if (mode == Mode::ReadOnly) {
        FileGuard::RequireNone(path);
    }
}

void Database::Engine::OpenFile(const std::string& path, Mode mode)
{
    Connect(PlainName(path), mode);
    const std::string header = Header();
    if (!header.starts_with(kSignature) && mode != Mode::Importing) {
        throw DatabaseError(SQLITE_NOTADB, "Opening " + path + ": file is not a database");
    }
    if (mode == Mode::ReadOnly && header[kReadVersion] == kWriteAhead && !HasWriteAheadLog(path)) {
        // The engine would want to write beside such a file, even to read it.
        sqlite3_close(std::exchange(m_connection, nullptr));
        Connect(UnchangingName(path), mode);
    }
    // No kind of virtual table is known here, so none in a file can come to life.
    sqlite3_drop_modules(m_connection, nullptr);
}

void Database::Engine::Connect(const std::string& name, Mode mode)
{
    // Without SQLITE_OPEN_CREATE, which would make a missing file.
    const int access = mode == Mode::ReadOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE;
    constexpr int kUsual = SQLITE_OPEN_EXRESCODE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_URI;
    const int result = sqlite3_open_v2(name.c_str(), &m_connection, access | kUsual, nullptr);
    if (result != SQLITE_OK) {
        ThrowEngineError(m_connection, result, "Opening " + name);
    }
}

std::string Database::Engine::Header() const
{
    // Through the engine's own handle: closing another one would give up the locks that this process holds.
    sqlite3_file* file = nullptr;
    sqlite3_file_control(m_connection, "main", SQLITE_FCNTL_FILE_POINTER, &file);
    std::string header(kHeaderSize, '\0');
    const bool read = file != nullptr && file->pMethods != nullptr &&
                      file->pMethods->xRead(file, header.data(), kHeaderSize, 0) == SQLITE_OK;
    return read ? header : std::string();
}

void Database::Engine::Distrust(const std::string& path)
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
        "PRAGMA synchronous = FULL",
        "Opening " + path);
}

/// A database of our own making: what a power cut leaves of it is thrown away, so nothing is synced or kept
/// for taking back.
void Database::Engine::BeginImport(const std::string& path)
{
    sqlite3_db_config(m_connection, SQLITE_DBCONFIG_DEFENSIVE, 0, static_cast<int*>(nullptr));
    Execute("PRAGMA synchronous = OFF; PRAGMA journal_mode = OFF; PRAGMA page_size = 4096;"
            "PRAGMA encoding = 'UTF-8'; PRAGMA application_id = 0x51454C36",
            "Beginning " + path);
    m_journalSettled = true;
}

void Database::Engine::TakeExclusive(const std::string& path)
{
    // The engine's name for the file: links in it are resolved.
    const std::filesystem::path file = sqlite3_db_filename(m_connection, "main");
    if (sqlite3_db_readonly(m_connection, "main") != 0) {
        throw DatabaseError(SQLITE_READONLY, "Opening " + path + ": the file is read-only");
    }
    // The journal of a change stands beside the file.
    if (::access(file.parent_path().c_str(), W_OK | X_OK) != 0) {
        throw DatabaseError(SQLITE_READONLY_DIRECTORY, "Opening " + path + ": its folder is read-only");
    }
    Execute("BEGIN EXCLUSIVE; COMMIT", "Opening " + path);
    // A journal that is still there holds nothing: its maker was killed before the first change.
    std::error_code error;
    std::filesystem::remove(file.string() + "-journal", error);
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

std::unique_ptr<Statement> Database::Engine::Prepare(const std::string& sql)
{
    return std::make_unique<Statement>(m_connection, sql);
}

void Database::Engine::Execute(const std::string& sql, const std::string& doing)
{
    const int result = sqlite3_exec(m_connection, sql.c_str(), nullptr, nullptr, nullptr);
    if (result != SQLITE_OK) {
        ThrowEngineError(m_connection, result, doing);
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
        table.hasKey = false;
        table.keys.emplace_back("rowid");
    }
    return table;
}

void Database::Engine::SettleJournal()
{
    if (!m_journalSettled) {
        // Refused while a cursor walks through a write-ahead file; the next write tries again.
        m_journalSettled =
            sqlite3_exec(m_connection, "PRAGMA journal_mode = DELETE", nullptr, nullptr, nullptr) ==
            SQLITE_OK;
    }
}

void Database::Engine::Forget(std::string_view table)
{
    for (auto known = m_tables.begin(); known != m_tables.end();) {
        known = SameName(known->first, table) ? m_tables.erase(known) : std::next(known);
    }
    for (auto& [sql, shelf] : m_shelves) {
        shelf.clear(); // the columns of a SELECT * are counted when it is prepared
    }
}

void Database::Engine::CheckWritable(TableInfo& table)
{
    SettleJournal();
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
