#pragma once

#include "platform/data/Database.h"
#include "platform/data/FileGuard.h"
#include "platform/data/Statement.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// What the engine knows of a table.
struct TableInfo
{
    struct Column
    {
        std::string name;
        bool isCurrency = false;
    };
    std::string name;
    std::vector<Column> columns;
    std::vector<std::string> keys; // of the primary key, in its order; "rowid" where there is none
    bool hasKey = true;
    bool writeChecked = false;

    /// The place of a column, letters of either case; -1 where there is none.
    int Find(std::string_view column) const;
};

/// A statement on loan from the engine's store; goes back, ready for use again, when the loan ends.
class StatementLoan
{
public:
    using Shelf = std::vector<std::unique_ptr<Statement>>;

    StatementLoan() = default;
    StatementLoan(Shelf* shelf, std::unique_ptr<Statement> statement)
        : m_shelf(shelf), m_statement(std::move(statement))
    {}
    StatementLoan(StatementLoan&& other) noexcept = default;
    StatementLoan& operator=(StatementLoan&& other) noexcept;
    ~StatementLoan() { GiveBack(); }

    Statement* operator->() const { return m_statement.get(); }
    Statement& operator*() const { return *m_statement; }
    explicit operator bool() const { return m_statement != nullptr; }
    void GiveBack();

private:
    Shelf* m_shelf = nullptr;
    std::unique_ptr<Statement> m_statement;
};

/// The connection behind a Database with its prepared statements and what it has learnt of the tables.
class Database::Engine
{
public:
    Engine(const std::string& path, Mode mode);
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;
    ~Engine();

    /// A statement for this text that nobody else is using.
    StatementLoan Borrow(const std::string& sql);
    /// A statement of one's own.
    std::unique_ptr<Statement> Prepare(const std::string& sql);
    /// `doing` stands in the error's text, for those who read the log.
    void Execute(const std::string& sql, const std::string& doing);
    /// How many rows the last write touched.
    int ChangedRows() const;
    /// Throws DatabaseError for what is no plain table of the file.
    TableInfo& Table(std::string_view name);
    /// Before the first write to a table: nothing of the file's own may run on it.
    void CheckWritable(TableInfo& table);
    /// Before the first write to the file: a file left in write-ahead mode is brought back.
    void SettleJournal();
    /// Drops what was learnt of a table that was changed, and every statement at rest.
    void Forget(std::string_view table);

private:
    void OpenFile(const std::string& path, Mode mode);
    void Connect(const std::string& name, Mode mode);
    /// The first bytes of the file; empty where it has not as many.
    std::string Header() const;
    void Distrust(const std::string& path);
    void BeginImport(const std::string& path);
    void TakeExclusive(const std::string& path);
    TableInfo ReadTable(std::string_view name);
    void CheckPlainTable(std::string_view name);

    /// Ahead of the connection's first lock: what another program is in the midst of writing must not be
    /// taken back here.
    void Guard(const std::string& path, Mode mode);

    std::unique_ptr<FileGuard> m_guard; // goes after the connection is closed
    sqlite3* m_connection = nullptr;
    bool m_journalSettled = false;
    std::map<std::string, StatementLoan::Shelf> m_shelves;
    std::map<std::string, TableInfo, std::less<>> m_tables;
};

/// "name" with the quotes of an identifier.
std::string Quoted(std::string_view name);

} // namespace platform
