#include "DataTest.h"

#include <sqlite3.h>

#include <algorithm>
#include <random>

using platform::Database;
using platform::DatabaseError;
using platform::Query;
using platform::Recordset;
using support::ReadFile;
using support::WriteFile;

namespace {

/// Files that came by mail and mean harm, or were damaged on the way.
class HostileTest : public DataTest
{
protected:
    /// Writes into the engine's own table of the file's tables.
    void Forge(const std::string& sql)
    {
        sqlite3* raw = nullptr;
        ASSERT_EQ(sqlite3_open(path.c_str(), &raw), SQLITE_OK);
        char* fault = nullptr;
        sqlite3_db_config(raw, SQLITE_DBCONFIG_DEFENSIVE, 0, static_cast<int*>(nullptr));
        sqlite3_exec(raw, ("PRAGMA writable_schema = ON;" + sql).c_str(), nullptr, nullptr, &fault);
        EXPECT_EQ(fault, nullptr) << fault;
        sqlite3_free(fault);
        sqlite3_close(raw);
    }
    static void AddItem(Database& file, Long key)
    {
        Recordset items = file.OpenTable("Items");
        items.AddNew();
        items.Set("ItemKey", key);
        items.Set("ItemName", std::string("added"));
        items.Update();
    }
};

const std::string kRow = "INSERT INTO Items (ItemKey, ItemName, ParentKey) VALUES (1, 'one', 22);";

/// Uses a file in every way there is. Anything but DatabaseError comes through.
void UseEverything(const std::string& path, Database::Mode mode)
{
    const auto attempt = [](auto action) {
        try {
            action();
        } catch (const DatabaseError&) { // that is the way for it to fail
        }
    };
    attempt([&] {
        Database file(path, mode);
        std::vector<std::string> tables;
        attempt([&] { tables = file.TableNames(); });
        attempt([&] { file.IntegrityFaults(); });
        for (const std::string& table : tables) {
            attempt([&] {
                Recordset rows = file.OpenTable(table);
                attempt([&] { rows.RecordCount(); });
                const std::vector<std::string> columns = rows.ColumnNames();
                attempt([&] {
                    for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext()) {
                        for (const std::string& column : columns) {
                            attempt([&] { rows.Text(column); });
                            attempt([&] { rows.LongValue(column); });
                            attempt([&] { rows.SingleValue(column); });
                            attempt([&] { rows.CurrencyValue(column); });
                        }
                    }
                });
                attempt([&] { rows.MoveLast(); });
                attempt([&] { rows.Seek(1); });
                attempt([&] { rows.Seek(1, 1); });
                attempt([&] { file.LastKeyInTable(table, columns.front()); });
                attempt([&] {
                    rows.MoveFirst();
                    rows.Edit();
                    rows.Set(columns.back(), std::string("x"));
                    rows.Update();
                });
            });
        }
        for (const Query query : {Query::ItemsOfParentByChildIndex,
                                  Query::ItemsOfParentByItemKey,
                                  Query::ScoresOfOutcome,
                                  Query::OutcomeFMZsOfOutcome,
                                  Query::SRUsesOfOutcomeByItemIndex}) {
            attempt([&] {
                for (Recordset rows = file.OpenQuery(query, 22); !rows.Eof(); rows.MoveNext()) {
                    rows.Value("ItemKey");
                }
            });
        }
        attempt([&] {
            Recordset items = file.OpenTable("Items");
            items.AddNew();
            items.Set("ItemKey", Long(999999));
            items.Update();
        });
    });
}

} // namespace

TEST_F(HostileTest, AViewInATablesPlace_IsRefused)
{
    MakeAndOpen(
        "CREATE VIEW Items AS SELECT 1 AS ItemKey, 'x' AS ItemName, 22 AS ParentKey, 1 AS ChildIndex");
    EXPECT_THROW(database->OpenTable("Items"), DatabaseError);
    EXPECT_THROW(database->OpenQuery(Query::ItemsOfParentByChildIndex, 22), DatabaseError);
    EXPECT_THROW(database->LastKeyInTable("Items", "ItemKey"), DatabaseError);
    EXPECT_FALSE(database->HasTable("Items"));
}

TEST_F(HostileTest, AViewForgedToLookLikeATable_IsRefused)
{
    Make(std::string(kItems) + "CREATE VIEW V AS SELECT 1 AS ItemKey");
    Forge("UPDATE sqlite_schema SET sql = 'CREATE VIEW Items AS SELECT 1 AS ItemKey' WHERE name = 'Items'");
    EXPECT_THROW(Open().OpenTable("Items").RecordCount(), DatabaseError);
}

TEST_F(HostileTest, AVirtualTable_IsRefused)
{
    MakeAndOpen("CREATE VIRTUAL TABLE Items USING fts5(ItemKey, ItemName)");
    EXPECT_THROW(database->OpenTable("Items").RecordCount(), DatabaseError);
}

TEST_F(HostileTest, AVirtualTableForgedInOtherWords_IsRefused)
{
    for (const char* words : {"CREATE  VIRTUAL TABLE Items USING rtree(ItemKey, a, b)",
                              "CREATE/**/VIRTUAL TABLE Items USING rtree(ItemKey, a, b)",
                              "CREATE/**/VIRTUAL TABLE Items USING dbstat"}) {
        database.reset();
        std::remove(path.c_str());
        Make("CREATE VIRTUAL TABLE Items USING rtree(ItemKey, a, b); INSERT INTO Items VALUES (1, 2, 3)");
        Forge(std::string("UPDATE sqlite_schema SET sql = '") + words + "' WHERE name = 'Items'");
        EXPECT_THROW(Open().OpenTable("Items").MoveFirst(), DatabaseError) << words;
    }
}

TEST_F(HostileTest, Triggers_DoNotRun)
{
    MakeAndOpen(kItems + kRow +
                "CREATE TABLE Harm (x); CREATE TRIGGER a AFTER INSERT ON Items BEGIN INSERT INTO Harm VALUES "
                "(1); END;"
                "CREATE TRIGGER b AFTER UPDATE ON Items BEGIN DELETE FROM Items; END;"
                "CREATE TRIGGER c BEFORE DELETE ON Items BEGIN SELECT RAISE(ABORT, 'no'); END");
    AddItem(*database, 2);
    {
        Recordset items = database->OpenTable("Items");
        items.Seek(2);
        items.Edit();
        items.Set("ItemName", std::string("changed"));
        items.Update();
        items.Seek(1);
        items.Delete();
    }
    EXPECT_EQ(DataTest::Query("SELECT ItemKey, ItemName, (SELECT count(*) FROM Harm) FROM Items"),
              (support::Rows{{"2", "changed", "0"}}));
}

TEST_F(HostileTest, AComputedColumn_IsRefused)
{
    for (const char* kind : {"VIRTUAL", "STORED"}) {
        database.reset();
        std::remove(path.c_str());
        MakeAndOpen(
            std::string("CREATE TABLE Items (ItemKey INTEGER PRIMARY KEY, ItemName TEXT, Body TEXT AS "
                        "(hex(zeroblob(100000))) ") +
            kind + ")");
        EXPECT_THROW(database->OpenTable("Items"), DatabaseError) << kind;
    }
}

TEST_F(HostileTest, AComputedIndex_IsNotComputed)
{
    for (const char* index : {"CREATE INDEX i ON Items (lower(ItemName))",
                              "CREATE INDEX i ON Items (ItemName) WHERE length(ItemName) > 1"}) {
        database.reset();
        std::remove(path.c_str());
        MakeAndOpen(kItems + kRow + index);
        Recordset items = database->OpenTable("Items");
        items.Seek(1);
        EXPECT_EQ(items.Text("ItemName"), "one");
        EXPECT_THROW(AddItem(*database, 2), DatabaseError) << index;
        EXPECT_THROW(items.Delete(), DatabaseError) << index;
    }
}

TEST_F(HostileTest, ChecksDefaultsAndForeignKeys_DoNotRun)
{
    MakeAndOpen("CREATE TABLE Items (ItemKey INTEGER PRIMARY KEY, ItemName TEXT CHECK (ItemName <> 'added'), "
                "Heading TEXT "
                "DEFAULT (hex(zeroblob(1000))), Body TEXT DEFAULT 'preset', ItemText TEXT, ParentKey INTEGER "
                "REFERENCES "
                "Nowhere(x), ChildIndex INTEGER)");
    AddItem(*database, 2);
    EXPECT_EQ(DataTest::Query("SELECT ItemName, Heading, Body FROM Items"),
              (support::Rows{{"added", "NULL", "NULL"}}));
}

TEST_F(HostileTest, AFilesOwnWayWithConflicts_HasNoSay)
{
    MakeAndOpen("CREATE TABLE Items (ItemKey INTEGER PRIMARY KEY ON CONFLICT REPLACE, ItemName TEXT, Body "
                "TEXT NOT NULL ON CONFLICT "
                "REPLACE DEFAULT (hex(zeroblob(9)))); INSERT INTO Items VALUES (1, 'one', 'b')");
    EXPECT_THROW(AddItem(*database, 1), DatabaseError) << "the taken key";
    EXPECT_THROW(AddItem(*database, 2), DatabaseError) << "the null body";
    EXPECT_EQ(DataTest::Query("SELECT * FROM Items"), (support::Rows{{"1", "one", "b"}}));
}

TEST_F(HostileTest, ACollationOfTheirOwn_IsAnError)
{
    Make(kItems + kRow);
    Forge("UPDATE sqlite_schema SET sql = replace(sql, 'ItemName TEXT', 'ItemName TEXT COLLATE theirs') "
          "WHERE name = 'Items'");
    Open();
    Recordset items = database->OpenTable("Items");
    items.Seek(1);
    EXPECT_EQ(items.Text("ItemName"), "one");
}

TEST_F(HostileTest, ATableWithoutAName_DoesNotStopTheList)
{
    Make(kItems + kRow);
    for (const char* forged : {"NULL", "17", "x'00ff'"}) {
        database.reset();
        Forge(std::string("INSERT OR REPLACE INTO sqlite_schema (rowid, type, name, tbl_name, rootpage, sql) "
                          "SELECT 99, type, ") +
              forged +
              ", tbl_name, rootpage, replace(sql, 'Items', 'Other') FROM sqlite_schema WHERE name = 'Items'");
        try {
            Open();
            database->TableNames();
            database->HasTable("Items");
        } catch (const DatabaseError&) { // as good
        }
    }
}

TEST_F(HostileTest, AKeyThatIsNull_CannotBeChangedInSilence)
{
    MakeAndOpen("CREATE TABLE Items (ItemKey INT PRIMARY KEY, ItemName TEXT); INSERT INTO Items VALUES "
                "(NULL, 'none')");
    Recordset items = database->OpenTable("Items");
    items.MoveFirst();
    EXPECT_EQ(items.Text("ItemName"), "none");
    items.Edit();
    items.Set("ItemName", std::string("lost"));
    EXPECT_THROW(items.Update(), DatabaseError);
}

TEST_F(HostileTest, ACellThatClaimsToBeHuge_IsAnError)
{
    Make(kItems + kRow + "UPDATE Items SET Body = zeroblob(140000000)");
    Open();
    Recordset items = database->OpenTable("Items");
    EXPECT_THROW(items.Seek(1), DatabaseError);
}

TEST_F(HostileTest, AFileWithGarbageInAnyPage_NeverDoesMoreThanThrow)
{
    const std::string sound = ReadFile(support::BuiltFile("samples/smith-creek.qel"));
    constexpr std::size_t kPage = 4096;
    ASSERT_GT(sound.size(), 20 * kPage);
    std::mt19937 chance(20060915);
    for (std::size_t page = 0; page < sound.size(); page += kPage) {
        for (int variant = 0; variant < 3; ++variant) {
            std::string damaged = sound;
            // Noise all over the page, some bits, or its header alone; the file's first bytes stay.
            const std::size_t from = page == 0 ? 28 : page;
            const std::size_t size = std::min(kPage - (from - page), variant == 2 ? std::size_t(16) : kPage);
            for (int i = 0; i < (variant == 0 ? 4000 : 12); ++i) {
                damaged[from + chance() % size] = static_cast<char>(chance());
            }
            SCOPED_TRACE("page " + std::to_string(page / kPage) + ", variant " + std::to_string(variant));
            WriteFile(path, damaged);
            std::remove((path + "-journal").c_str());
            EXPECT_NO_THROW(UseEverything(path, Database::Mode::ReadOnly));
            EXPECT_TRUE(ReadFile(path) == damaged) << "looked at, not touched";
            EXPECT_NO_THROW(UseEverything(path, Database::Mode::Exclusive));
        }
    }
}

TEST_F(HostileTest, AFileThatWasCutOff_NeverDoesMoreThanThrow)
{
    const std::string sound = ReadFile(support::BuiltFile("samples/smith-creek.qel"));
    for (std::size_t size = 0; size < sound.size(); size += size < 200 ? 20 : 4096 + 1365) {
        WriteFile(path, sound.substr(0, size));
        std::remove((path + "-journal").c_str());
        SCOPED_TRACE(size);
        EXPECT_NO_THROW(UseEverything(path, Database::Mode::ReadOnly));
        EXPECT_NO_THROW(UseEverything(path, Database::Mode::Exclusive));
    }
}

TEST_F(HostileTest, NoiseThroughout_NeverDoesMoreThanThrow)
{
    std::mt19937 chance(7);
    for (int round = 0; round < 20; ++round) {
        std::string noise("SQLite format 3\0\x10\0\1\1\0\x40\x20\x20", 24);
        while (noise.size() < 5 * 4096) {
            noise += static_cast<char>(chance());
        }
        WriteFile(path, noise);
        EXPECT_NO_THROW(UseEverything(path, Database::Mode::ReadOnly));
        EXPECT_NO_THROW(UseEverything(path, Database::Mode::Exclusive));
    }
}
