#include "platform/data/Schema.h"

#include "platform/data/Cells.h"
#include "platform/data/DatabaseError.h"
#include "platform/data/Engine.h"

#include <algorithm>
#include <cctype>
#include <map>

namespace platform {

namespace {

struct TypeName
{
    ColumnType type;
    const char* name;
};

constexpr TypeName kTypeNames[] = {{ColumnType::Boolean, "BOOLEAN"},
                                   {ColumnType::Integer, "SMALLINT"},
                                   {ColumnType::Long, "INTEGER"},
                                   {ColumnType::Automatic, "INTEGER"},
                                   {ColumnType::Currency, "CURRENCY"},
                                   {ColumnType::Single, "REAL"},
                                   {ColumnType::Double, "DOUBLE"},
                                   {ColumnType::Text, "TEXT"}};

const char* NameOf(ColumnType type)
{
    const auto* found = std::find_if(
        std::begin(kTypeNames), std::end(kTypeNames), [type](const TypeName& t) { return t.type == type; });
    return found->name;
}

/// A type that another program declared counts as the nearest of ours.
ColumnType TypeOf(std::string declared)
{
    std::transform(declared.begin(), declared.end(), declared.begin(), [](unsigned char c) {
        return static_cast<char>(std::toupper(c));
    });
    for (const TypeName& known : kTypeNames) {
        if (declared == known.name) {
            return known.type;
        }
    }
    const auto has = [&declared](const char* part) { return declared.find(part) != std::string::npos; };
    if (has("INT")) {
        return ColumnType::Long;
    }
    return has("REAL") || has("FLOA") || has("DOUB") || has("NUM") || has("DEC") ? ColumnType::Double
                                                                                 : ColumnType::Text;
}

bool IsKey(const TableDefinition& table, const ColumnDefinition& column)
{
    return std::find(table.keys.begin(), table.keys.end(), column.name) != table.keys.end();
}

std::string KeyPart(const ColumnDefinition& column)
{
    switch (column.type) {
    case ColumnType::Long: return " PRIMARY KEY";
    case ColumnType::Automatic: return " PRIMARY KEY AUTOINCREMENT";
    default: return " NOT NULL PRIMARY KEY";
    }
}

std::string ColumnPart(const TableDefinition& table, const ColumnDefinition& column)
{
    std::string part = Quoted(column.name) + " " + NameOf(column.type);
    if (IsKey(table, column)) {
        part += table.keys.size() == 1 ? KeyPart(column) : "";
        // Names were never case-sensitive.
        part += column.type == ColumnType::Text ? " COLLATE NOCASE" : "";
    }
    return part;
}

std::string NameList(const std::vector<std::string>& names)
{
    std::string list;
    for (const std::string& name : names) {
        list += (list.empty() ? "" : ", ") + Quoted(name);
    }
    return " (" + list + ")";
}

std::string CreationOf(const TableDefinition& table)
{
    std::string columns;
    for (const ColumnDefinition& column : table.columns) {
        columns += (columns.empty() ? "" : ", ") + ColumnPart(table, column);
    }
    const bool byTwo = table.keys.size() > 1;
    const std::string keys = byTwo ? ", PRIMARY KEY" + NameList(table.keys) : "";
    return "CREATE TABLE " + Quoted(table.name) + " (" + columns + keys + ")" +
           (byTwo ? " WITHOUT ROWID" : "");
}

} // namespace

Schema::Schema(Database& database) : m_engine(*database.m_engine) {}

void Schema::Run(const std::string& sql, std::string_view changed)
{
    m_engine.Execute(sql, sql);
    m_engine.Forget(changed);
}

TableDefinition Schema::Definition(std::string_view table)
{
    const TableInfo& known = m_engine.Table(table); // throws for what is no plain table
    TableDefinition definition{known.name, {}, known.hasKey ? known.keys : std::vector<std::string>()};
    const StatementLoan columns = m_engine.Borrow("SELECT name, type FROM pragma_table_info(?1)");
    columns->Bind(1, std::string(table));
    while (columns->Step()) {
        definition.columns.push_back({ToTextCell(columns->Cell(0)), TypeOf(ToTextCell(columns->Cell(1)))});
    }
    return definition;
}

void Schema::CreateTable(const TableDefinition& table) { Run(CreationOf(table), table.name); }

void Schema::DropTable(std::string_view table)
{
    m_engine.CheckWritable(m_engine.Table(table));
    Run("DROP TABLE " + Quoted(table), table);
}

void Schema::RenameTable(std::string_view table, std::string_view name)
{
    // The rest of the file's schema is neither looked at nor changed.
    Run("PRAGMA legacy_alter_table = ON; ALTER TABLE " + Quoted(table) + " RENAME TO " + Quoted(name), table);
    m_engine.Forget(name);
}

void Schema::AddColumn(std::string_view table, const ColumnDefinition& column)
{
    m_engine.CheckWritable(m_engine.Table(table));
    Run("ALTER TABLE " + Quoted(table) + " ADD COLUMN " + Quoted(column.name) + " " + NameOf(column.type),
        table);
}

std::int64_t Schema::Mark()
{
    const StatementLoan mark = m_engine.Borrow("PRAGMA user_version");
    const auto value = mark->Step() ? mark->Cell(0) : FieldValue();
    return std::holds_alternative<std::int64_t>(value) ? std::get<std::int64_t>(value) : 0;
}

void Schema::SetMark(std::int64_t mark)
{
    m_engine.Execute("PRAGMA user_version = " + std::to_string(mark), "Marking the file");
}

RowWriter::RowWriter(Database& database, std::string_view table)
{
    Database::Engine& engine = *database.m_engine;
    std::string values;
    for (std::size_t i = 0; i < engine.Table(table).columns.size(); ++i) {
        values += i == 0 ? "?" : ", ?";
    }
    m_insert = engine.Prepare("INSERT INTO " + Quoted(table) + " VALUES (" + values + ")");
}

RowWriter::~RowWriter() = default;

void RowWriter::Write(const std::vector<FieldValue>& row)
{
    for (std::size_t i = 0; i < row.size(); ++i) {
        m_insert->Bind(static_cast<int>(i) + 1, row[i]);
    }
    m_insert->Step();
    m_insert->Reset();
}

Transaction::Transaction(Database& database) : m_engine(*database.m_engine)
{
    m_engine.SettleJournal();
    m_engine.Execute("BEGIN IMMEDIATE", "Beginning a change");
}

Transaction::~Transaction()
{
    if (m_open) {
        try {
            m_engine.Execute("ROLLBACK", "Taking a change back");
        } catch (const DatabaseError&) {
            // The engine took it back itself, as it does on a full disk.
        }
    }
}

void Transaction::Commit()
{
    m_engine.Execute("COMMIT", "Finishing a change");
    m_open = false;
}

} // namespace platform
