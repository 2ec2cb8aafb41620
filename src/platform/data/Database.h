#pragma once

#include "platform/base/Numbers.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

class Recordset;
class Statement;

/// The sorted and unsorted queries that the system asks of a data file, each with one key or two.
/// Rows that tie in an order stand by rising primary key; null comes before every number.
enum class Query {
    ItemsOfParentByChildIndex,
    ItemsOfParentByItemKey,
    OutcomeOfParentAndChildIndex,
    ScoresOfCriterion,
    ScoresOfOutcome,
    OutcomeFMZsOfOutcome,
    ItemImpactsOfItem,
    ItemImpactsOfOutcome,
    SRUsesOfOutcome,
    SRUsesOfOutcomeByItemIndex,
    SRTypesByChildIndex,
};

/// One data file, a SQLite database, open for this process alone from constructor to destructor.
/// The file is taken for a stranger's: nothing in its schema (views, triggers, virtual tables, computed
/// columns, computed indexes) runs on its account. Each Update and Delete is durable when it returns. Every
/// member throws DatabaseError for what the engine or the file refuses.
class Database
{
public:
    enum class Mode {
        Exclusive, // read and write, nobody else may open the file
        ReadOnly,  // the file as it stands, not a byte of it changed
        Importing  // an empty file becomes a database that is of no use until it was closed and synced
    };

    /// Opens a file that exists; never makes one.
    Database(const std::string& path, Mode mode);
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;
    ~Database();

    /// A table as a cursor ordered by its primary key, at no row until it is moved.
    Recordset OpenTable(std::string_view table);
    /// The rows of a query, at the first one.
    Recordset OpenQuery(Query query);
    Recordset OpenQuery(Query query, Long key);
    Recordset OpenQuery(Query query, Long key, Long secondKey);

    /// The highest value of a column; 0 for a table without rows.
    Long LastKeyInTable(std::string_view table, std::string_view keyColumn);

    /// The file's tables in name order, without the engine's own.
    std::vector<std::string> TableNames();
    bool HasTable(std::string_view table);
    /// The columns of a table's primary key in its order; empty where it has none.
    std::vector<std::string> PrimaryKey(std::string_view table);
    /// What the engine finds wrong with the file, one sentence each; empty when it is sound.
    std::vector<std::string> IntegrityFaults();

private:
    friend class Recordset;
    friend class RecordsetState;
    friend class RowWriter;
    friend class Schema;
    friend class Transaction;
    class Engine;
    std::unique_ptr<Engine> m_engine;
};

} // namespace platform
