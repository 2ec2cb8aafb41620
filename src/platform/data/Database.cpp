#include "platform/data/Database.h"

#include "platform/data/Cells.h"
#include "platform/data/DatabaseError.h"
#include "platform/data/Engine.h"
#include "platform/data/RecordsetState.h"

#include <sqlite3.h>

namespace platform {

namespace {

struct QueryForm
{
    const char* table;
    const char* rest; // behind SELECT * FROM table
};

QueryForm FormOf(Query query)
{
    switch (query) {
    case Query::ItemsOfParentByChildIndex:
        return {"Items", "WHERE ParentKey = ?1 ORDER BY ChildIndex, ItemKey"};
    case Query::ItemsOfParentByItemKey: return {"Items", "WHERE ParentKey = ?1 ORDER BY ItemKey"};
    case Query::OutcomeOfParentAndChildIndex:
        return {"Outcomes", "WHERE ParentKey = ?1 AND ChildIndex = ?2 ORDER BY ItemKey"};
    case Query::ScoresOfCriterion: return {"Scores", "WHERE CriterionKey = ?1 ORDER BY OutcomeKey"};
    case Query::ScoresOfOutcome: return {"Scores", "WHERE OutcomeKey = ?1 ORDER BY CriterionKey"};
    case Query::OutcomeFMZsOfOutcome: return {"OutcomeFMZs", "WHERE OutcomeKey = ?1 ORDER BY FMZKey"};
    case Query::ItemImpactsOfItem: return {"ItemImpacts", "WHERE ItemKey = ?1 ORDER BY OutcomeKey"};
    case Query::ItemImpactsOfOutcome: return {"ItemImpacts", "WHERE OutcomeKey = ?1 ORDER BY ItemKey"};
    case Query::SRUsesOfOutcome: return {"SRUses", "WHERE OutcomeKey = ?1 ORDER BY ItemKey"};
    case Query::SRUsesOfOutcomeByItemIndex:
        return {"SRUses", "WHERE OutcomeKey = ?1 ORDER BY ItemIndex, ItemKey"};
    case Query::SRTypesByChildIndex: return {"SRTypes", "ORDER BY ChildIndex, ItemKey"};
    }
    throw DatabaseError(SQLITE_MISUSE, "No such query");
}

} // namespace

Database::Database(const std::string& path, Mode mode) : m_engine(std::make_unique<Engine>(path, mode)) {}

Database::~Database() = default;

Recordset Database::OpenTable(std::string_view table)
{
    return Recordset(std::make_unique<RecordsetState>(*m_engine, m_engine->Table(table)));
}

Recordset Database::OpenQuery(Query query)
{
    const QueryForm form = FormOf(query);
    return Recordset(std::make_unique<RecordsetState>(
        *m_engine, m_engine->Table(form.table), form.rest, std::vector<Long>{}));
}

Recordset Database::OpenQuery(Query query, Long key)
{
    const QueryForm form = FormOf(query);
    return Recordset(std::make_unique<RecordsetState>(
        *m_engine, m_engine->Table(form.table), form.rest, std::vector<Long>{key}));
}

Recordset Database::OpenQuery(Query query, Long key, Long secondKey)
{
    const QueryForm form = FormOf(query);
    return Recordset(std::make_unique<RecordsetState>(
        *m_engine, m_engine->Table(form.table), form.rest, std::vector<Long>{key, secondKey}));
}

Long Database::LastKeyInTable(std::string_view table, std::string_view keyColumn)
{
    const auto last = std::make_unique<RecordsetState>(*m_engine, m_engine->Table(table));
    return last->MoveLast() ? ToLongCell(last->Cell(keyColumn)) : 0;
}

std::vector<std::string> Database::TableNames()
{
    const StatementLoan names =
        m_engine->Borrow("SELECT name FROM sqlite_schema WHERE type = 'table' AND name NOT "
                         "LIKE 'sqlite\\_%' ESCAPE '\\' ORDER BY name COLLATE BINARY");
    std::vector<std::string> tables;
    while (names->Step()) {
        tables.push_back(ToTextCell(names->Cell(0)));
    }
    return tables;
}

bool Database::HasTable(std::string_view table)
{
    const StatementLoan found =
        m_engine->Borrow("SELECT 1 FROM sqlite_schema WHERE type = 'table' AND name = ?1 COLLATE NOCASE");
    found->Bind(1, std::string(table));
    return found->Step();
}

std::vector<std::string> Database::PrimaryKey(std::string_view table)
{
    const TableInfo& info = m_engine->Table(table);
    const bool none = info.keys == std::vector<std::string>{"rowid"} && info.Find("rowid") < 0;
    return none ? std::vector<std::string>() : info.keys;
}

std::vector<std::string> Database::IntegrityFaults()
{
    const StatementLoan check = m_engine->Borrow("PRAGMA integrity_check");
    std::vector<std::string> faults;
    while (check->Step()) {
        faults.push_back(ToTextCell(check->Cell(0)));
    }
    return faults == std::vector<std::string>{"ok"} ? std::vector<std::string>() : faults;
}

} // namespace platform
