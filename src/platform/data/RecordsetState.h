#pragma once

#include "platform/data/Engine.h"

#include <optional>
#include <string>
#include <vector>

namespace platform {

/// Where a Recordset stands: a copy of its current row, the walk it is on, and what waits for Update.
class RecordsetState
{
public:
    /// A table, at no row.
    RecordsetState(Database::Engine& engine, TableInfo& table);
    /// A query, at its first row.
    RecordsetState(Database::Engine& engine,
                   TableInfo& table,
                   const std::string& rest,
                   std::vector<Long> keys);

    void Seek(const std::vector<FieldValue>& keys);
    bool NoMatch() const { return m_noMatch; }
    /// False when there are no rows.
    bool MoveFirst();
    bool MoveLast();
    void MoveNext();
    bool Eof() const { return !m_hasRow && !m_deleted; }
    Long RecordCount();

    void AddNew();
    void Edit();
    void Set(std::string_view column, FieldValue value);
    void Update();
    void Delete();

    const FieldValue& Cell(std::string_view column) const;
    bool IsCurrency(std::string_view column) const;
    std::vector<std::string> ColumnNames() const;

private:
    enum class Pending { Nothing, New, Change };

    std::size_t Place(std::string_view column) const;
    bool IsQuery() const { return !m_rest.empty(); }
    std::string Select(const std::string& rest) const;
    std::string KeyOrder(const char* direction) const;
    std::string KeyMatch() const;
    StatementLoan Begin(const std::string& sql, const std::vector<FieldValue>& parameters);
    /// Takes the row at which a statement stands, if it stands at one.
    bool Take(StatementLoan& statement);
    std::vector<FieldValue> CurrentKey() const;
    void RequireRow() const;
    void RequireKey() const;
    void Insert();
    void Change();
    void Run(const std::string& sql, const std::vector<FieldValue>& parameters);
    /// The same for a change of the current row; throws when that row is gone.
    void RunOnRow(const std::string& sql, const std::vector<FieldValue>& parameters);

    Database::Engine& m_engine;
    TableInfo& m_table;
    std::string m_rest;
    std::vector<FieldValue> m_parameters;
    StatementLoan m_walk;
    std::vector<FieldValue> m_row;
    std::vector<FieldValue> m_deletedKey;
    bool m_hasRow = false;
    bool m_deleted = false; // the current row was deleted: MoveNext goes to the one behind it
    bool m_noMatch = false;
    Pending m_pending = Pending::Nothing;
    std::vector<std::optional<FieldValue>> m_assigned; // a place a column
};

} // namespace platform
