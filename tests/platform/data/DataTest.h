#pragma once

#include "platform/data/Database.h"
#include "platform/data/DatabaseError.h"
#include "platform/data/Recordset.h"
#include "support/TempFolder.h"
#include "support/TestSession.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

/// A database file of its own for each test.
class DataTest : public ::testing::Test
{
protected:
    /// A file of these tables and rows.
    void Make(const std::string& sql) { support::ExecuteSql(path, sql); }
    platform::Database& Open(platform::Database::Mode mode = platform::Database::Mode::Exclusive)
    {
        database.reset();
        database = std::make_unique<platform::Database>(path, mode);
        return *database;
    }
    platform::Database& MakeAndOpen(const std::string& sql)
    {
        Make(sql);
        return Open();
    }
    /// Closes the file and asks it.
    support::Rows Query(const std::string& sql)
    {
        database.reset();
        return support::QuerySql(path, sql);
    }
    /// The names in the file's folder, in order.
    std::vector<std::string> Beside() const;

    support::TempFolder folder;
    std::string path = folder.File("Fire.qel");
    std::unique_ptr<platform::Database> database;
};

inline constexpr const char* kItems =
    "CREATE TABLE Items (ItemKey INTEGER PRIMARY KEY, ItemName TEXT, Heading TEXT, Body TEXT, ItemText TEXT, "
    "ParentKey INTEGER, ChildIndex INTEGER);";
inline constexpr const char* kScores = "CREATE TABLE Scores (OutcomeKey INTEGER NOT NULL, CriterionKey "
                                       "INTEGER NOT NULL, Value REAL, Description TEXT, "
                                       "PRIMARY KEY (OutcomeKey, CriterionKey)) WITHOUT ROWID;";
inline constexpr const char* kProperties =
    "CREATE TABLE Properties (Property TEXT NOT NULL PRIMARY KEY COLLATE NOCASE, Value TEXT);";

/// The texts of a column, row after row, from where the cursor stands.
std::vector<std::string> Column(platform::Recordset& rows, const char* column);
inline std::vector<std::string> Column(platform::Recordset&& rows, const char* column)
{
    return Column(rows, column);
}
