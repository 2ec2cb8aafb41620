#include "platform/data/RecordsetState.h"

#include "platform/data/DatabaseError.h"

#include <sqlite3.h>

#include <utility>

namespace platform {

namespace {

[[noreturn]] void Misuse(const std::string& what) { throw DatabaseError(SQLITE_MISUSE, what); }

} // namespace

RecordsetState::RecordsetState(Database::Engine& engine, TableInfo& table) : m_engine(engine), m_table(table)
{}

RecordsetState::RecordsetState(Database::Engine& engine,
                               TableInfo& table,
                               const std::string& rest,
                               std::vector<Long> keys)
    : m_engine(engine), m_table(table), m_rest(" " + rest)
{
    for (const Long key : keys) {
        m_parameters.emplace_back(std::int64_t(key));
    }
    MoveFirst();
}

std::string RecordsetState::Select(const std::string& rest) const
{
    return "SELECT * FROM " + Quoted(m_table.name) + rest;
}

std::string RecordsetState::KeyOrder(const char* direction) const
{
    std::string order = " ORDER BY ";
    for (std::size_t i = 0; i < m_table.keys.size(); ++i) {
        order += (i == 0 ? "" : ", ") + Quoted(m_table.keys[i]) + direction;
    }
    return order;
}

std::string RecordsetState::KeyMatch() const
{
    std::string match = " WHERE ";
    for (std::size_t i = 0; i < m_table.keys.size(); ++i) {
        match += (i == 0 ? "" : " AND ") + Quoted(m_table.keys[i]) + " = ?" + std::to_string(i + 1);
    }
    return match;
}

StatementLoan RecordsetState::Begin(const std::string& sql, const std::vector<FieldValue>& parameters)
{
    StatementLoan statement = m_engine.Borrow(sql);
    for (std::size_t i = 0; i < parameters.size(); ++i) {
        statement->Bind(static_cast<int>(i) + 1, parameters[i]);
    }
    return statement;
}

bool RecordsetState::Take(StatementLoan& statement)
{
    m_deleted = false;
    m_hasRow = statement->Step();
    if (m_hasRow) {
        statement->CopyRow(m_row);
    }
    return m_hasRow;
}

void RecordsetState::Seek(const std::vector<FieldValue>& keys)
{
    RequireKey();
    if (IsQuery() || keys.size() != m_table.keys.size()) {
        Misuse("Seek needs the whole key of a table, " + m_table.name);
    }
    m_walk = StatementLoan();
    // Names were never case-sensitive, whatever a file's own column says.
    const bool byName = std::holds_alternative<std::string>(keys.front());
    StatementLoan found = Begin(Select(KeyMatch() + (byName ? " COLLATE NOCASE" : "")), keys);
    m_noMatch = !Take(found);
}

bool RecordsetState::MoveFirst()
{
    m_walk = StatementLoan();
    m_walk = Begin(Select(IsQuery() ? m_rest : KeyOrder("")), m_parameters);
    return Take(m_walk);
}

bool RecordsetState::MoveLast()
{
    if (!IsQuery()) {
        RequireKey();
        m_walk = StatementLoan();
        StatementLoan last = Begin(Select(KeyOrder(" DESC") + " LIMIT 1"), {});
        return Take(last);
    }
    const bool any = MoveFirst();
    while (any && m_walk->Step()) {
        m_walk->CopyRow(m_row);
    }
    m_walk = StatementLoan();
    return any;
}

void RecordsetState::MoveNext()
{
    if (Eof()) {
        Misuse("There is no next row behind the end of " + m_table.name);
    }
    if (m_walk) {
        Take(m_walk);
        return;
    }
    if (IsQuery()) {
        m_hasRow = m_deleted = false;
        return;
    }
    const std::vector<FieldValue> key = m_deleted ? m_deletedKey : CurrentKey();
    std::string columns;
    std::string values;
    for (std::size_t i = 0; i < key.size(); ++i) {
        columns += (i == 0 ? "" : ", ") + Quoted(m_table.keys[i]);
        values += (i == 0 ? "?" : ", ?") + std::to_string(i + 1);
    }
    StatementLoan next =
        Begin(Select(" WHERE (" + columns + ") > (" + values + ")" + KeyOrder("") + " LIMIT 1"), key);
    Take(next);
}

Long RecordsetState::RecordCount()
{
    const StatementLoan count =
        Begin("SELECT count(*) FROM (SELECT 1 FROM " + Quoted(m_table.name) + m_rest + ")", m_parameters);
    count->Step();
    return static_cast<Long>(std::get<std::int64_t>(count->Cell(0)));
}

void RecordsetState::AddNew()
{
    m_pending = Pending::New;
    m_assigned.assign(m_table.columns.size(), std::nullopt);
}

void RecordsetState::Edit()
{
    RequireRow();
    m_pending = Pending::Change;
    m_assigned.assign(m_table.columns.size(), std::nullopt);
}

void RecordsetState::Set(std::string_view column, FieldValue value)
{
    if (m_pending == Pending::Nothing) {
        Misuse("A column is set without AddNew or Edit, " + m_table.name);
    }
    m_assigned[Place(column)] = std::move(value);
}

void RecordsetState::Update()
{
    if (m_pending == Pending::Nothing) {
        Misuse("Update without AddNew or Edit, " + m_table.name);
    }
    m_engine.CheckWritable(m_table);
    if (m_pending == Pending::New) {
        Insert();
    } else {
        Change();
    }
    m_pending = Pending::Nothing;
}

void RecordsetState::Insert()
{
    // Every column is named, so that no default of the file's own steps in.
    std::string columns;
    std::string values;
    std::vector<FieldValue> parameters;
    for (std::size_t i = 0; i < m_table.columns.size(); ++i) {
        columns += (i == 0 ? "" : ", ") + Quoted(m_table.columns[i].name);
        values += (i == 0 ? "?" : ", ?") + std::to_string(i + 1);
        parameters.push_back(m_assigned[i].value_or(FieldValue()));
    }
    // A file's own way with conflicts, such as replacing the other row, has no say.
    Run("INSERT OR ABORT INTO " + Quoted(m_table.name) + " (" + columns + ") VALUES (" + values + ")",
        parameters);
    m_hasRow = m_deleted = false;
}

void RecordsetState::Change()
{
    std::vector<FieldValue> parameters = CurrentKey();
    std::string columns;
    for (std::size_t i = 0; i < m_assigned.size(); ++i) {
        if (m_assigned[i]) {
            parameters.push_back(*m_assigned[i]);
            columns += (columns.empty() ? "" : ", ") + Quoted(m_table.columns[i].name) + " = ?" +
                       std::to_string(parameters.size());
        }
    }
    if (columns.empty()) {
        return;
    }
    RunOnRow("UPDATE OR ABORT " + Quoted(m_table.name) + " SET " + columns + KeyMatch(), parameters);
    for (std::size_t i = 0; i < m_assigned.size(); ++i) {
        if (m_assigned[i]) {
            m_row[i] = *m_assigned[i];
        }
    }
}

void RecordsetState::Delete()
{
    RequireRow();
    m_engine.CheckWritable(m_table);
    m_deletedKey = CurrentKey();
    RunOnRow("DELETE FROM " + Quoted(m_table.name) + KeyMatch(), m_deletedKey);
    m_hasRow = false;
    m_deleted = true;
}

void RecordsetState::Run(const std::string& sql, const std::vector<FieldValue>& parameters)
{
    const StatementLoan statement = Begin(sql, parameters);
    statement->Step();
}

void RecordsetState::RunOnRow(const std::string& sql, const std::vector<FieldValue>& parameters)
{
    Run(sql, parameters);
    if (m_engine.ChangedRows() == 0) {
        throw DatabaseError(SQLITE_NOTFOUND, "The row is no longer in " + m_table.name);
    }
}

/// Without a key rows can be walked, in the order they were stored, but neither found nor told apart.
void RecordsetState::RequireKey() const
{
    if (!m_table.hasKey) {
        throw DatabaseError(SQLITE_ERROR, m_table.name + " has no primary key");
    }
}

std::vector<FieldValue> RecordsetState::CurrentKey() const
{
    RequireKey();
    std::vector<FieldValue> key;
    for (const std::string& column : m_table.keys) {
        key.push_back(Cell(column));
    }
    return key;
}

void RecordsetState::RequireRow() const
{
    if (!m_hasRow) {
        Misuse("There is no current row in " + m_table.name + m_rest);
    }
}

std::size_t RecordsetState::Place(std::string_view column) const
{
    const int place = m_table.Find(column);
    if (place < 0) {
        throw DatabaseError(SQLITE_ERROR, "There is no column " + m_table.name + "." + std::string(column));
    }
    return static_cast<std::size_t>(place);
}

const FieldValue& RecordsetState::Cell(std::string_view column) const
{
    const std::size_t place = Place(column);
    RequireRow();
    return m_row[place];
}

bool RecordsetState::IsCurrency(std::string_view column) const
{
    return m_table.columns[Place(column)].isCurrency;
}

std::vector<std::string> RecordsetState::ColumnNames() const
{
    std::vector<std::string> names;
    for (const TableInfo::Column& column : m_table.columns) {
        names.push_back(column.name);
    }
    return names;
}

} // namespace platform
