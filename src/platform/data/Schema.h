#pragma once

#include "platform/data/Database.h"
#include "platform/data/Recordset.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// What a column is declared as. Automatic is a Long that the engine allots, which it does for a key that
/// stands alone.
enum class ColumnType { Boolean, Integer, Long, Automatic, Currency, Single, Double, Text };

struct ColumnDefinition
{
    std::string name;
    ColumnType type = ColumnType::Text;
};

struct TableDefinition
{
    std::string name;
    std::vector<ColumnDefinition> columns;
    std::vector<std::string> keys; // the primary key in its order; empty for a table without one
};

/// Changes of a data file's tables. No cursor may stand on a table that is changed. Every member throws
/// DatabaseError.
class Schema
{
public:
    /// Does not own the database, which must outlive it.
    explicit Schema(Database& database);

    /// The table as it is now.
    TableDefinition Definition(std::string_view table);
    void CreateTable(const TableDefinition& table);
    void DropTable(std::string_view table);
    void RenameTable(std::string_view table, std::string_view name);
    /// The new column is the last one, null in every row.
    void AddColumn(std::string_view table, const ColumnDefinition& column);

    /// A number that the file carries beside its tables, 0 unless it was set.
    std::int64_t Mark();
    void SetMark(std::int64_t mark);

private:
    void Run(const std::string& sql, std::string_view changed);

    Database::Engine& m_engine;
};

/// Adds rows to a table, many of them, a cell for each column in its order. Throws DatabaseError.
class RowWriter
{
public:
    /// Does not own the database, which must outlive it.
    RowWriter(Database& database, std::string_view table);
    RowWriter(const RowWriter&) = delete;
    RowWriter& operator=(const RowWriter&) = delete;
    ~RowWriter();

    void Write(const std::vector<FieldValue>& row);

private:
    std::unique_ptr<Statement> m_insert;
};

/// Changes that are made together or not at all: the destructor takes them back unless they were committed.
/// Throw DatabaseError.
class Transaction
{
public:
    explicit Transaction(Database& database);
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    ~Transaction();

    /// The changes are on the disk when it returns.
    void Commit();

private:
    Database::Engine& m_engine;
    bool m_open = true;
};

} // namespace platform
