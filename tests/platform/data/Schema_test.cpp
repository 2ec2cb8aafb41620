#include "DataTest.h"
#include "platform/data/DatabaseError.h"
#include "platform/data/Schema.h"

#include <variant>

namespace {

using platform::ColumnType;
using platform::Database;
using platform::DatabaseError;
using platform::FieldValue;
using platform::RowWriter;
using platform::Schema;
using platform::TableDefinition;
using platform::Transaction;

class SchemaTest : public DataTest
{
protected:
    SchemaTest() { Make("CREATE TABLE Start (k)"); }

    std::string Value(const std::string& sql) { return Query(sql)[0][0]; }
    /// The types of a table's columns as the file declares them.
    std::string Types(const std::string& table)
    {
        return Value("SELECT group_concat(name || ' ' || type || ' ' || pk) FROM pragma_table_info('" +
                     table + "')");
    }
};

} // namespace

TEST_F(SchemaTest, CreateTable_DeclaresWhatTheContainerSays)
{
    {
        Database file(path, Database::Mode::Exclusive);
        Schema schema(file);
        schema.CreateTable({"Every",
                            {{"a", ColumnType::Automatic},
                             {"b", ColumnType::Boolean},
                             {"i", ColumnType::Integer},
                             {"l", ColumnType::Long},
                             {"c", ColumnType::Currency},
                             {"s", ColumnType::Single},
                             {"d", ColumnType::Double},
                             {"t", ColumnType::Text}},
                            {"a"}});
        schema.CreateTable({"Two", {{"x", ColumnType::Long}, {"y", ColumnType::Long}}, {"y", "x"}});
        schema.CreateTable({"None", {{"x \"y\"", ColumnType::Text}}, {}});
        schema.CreateTable({"Names", {{"n", ColumnType::Text}}, {"n"}});
    }
    EXPECT_EQ(Types("Every"),
              "a INTEGER 1,b BOOLEAN 0,i SMALLINT 0,l INTEGER 0,c CURRENCY 0,s REAL 0,d DOUBLE 0,t TEXT 0");
    EXPECT_EQ(Types("Two"), "x INTEGER 2,y INTEGER 1");
    EXPECT_EQ(Types("None"), "x \"y\" TEXT 0");
    EXPECT_NE(Value("SELECT sql FROM sqlite_schema WHERE name = 'Every'").find("AUTOINCREMENT"),
              std::string::npos);
    EXPECT_NE(Value("SELECT sql FROM sqlite_schema WHERE name = 'Two'").find("WITHOUT ROWID"),
              std::string::npos);
    EXPECT_NE(Value("SELECT sql FROM sqlite_schema WHERE name = 'Names'").find("NOCASE"), std::string::npos);
}

TEST_F(SchemaTest, Definition_IsThatOfTheTable)
{
    Make("CREATE TABLE Old (k INTEGER PRIMARY KEY, v VARCHAR(20), f FLOAT, n NUMERIC(5), b BIGINT, c "
         "currency, x)");
    Database file(path, Database::Mode::Exclusive);
    const TableDefinition table = Schema(file).Definition("Old");
    EXPECT_EQ(table.keys, std::vector<std::string>{"k"});
    const std::vector<ColumnType> types = {ColumnType::Long,
                                           ColumnType::Text,
                                           ColumnType::Double,
                                           ColumnType::Double,
                                           ColumnType::Long,
                                           ColumnType::Currency,
                                           ColumnType::Text};
    ASSERT_EQ(table.columns.size(), types.size());
    for (std::size_t i = 0; i < types.size(); ++i) {
        EXPECT_EQ(table.columns[i].type, types[i]) << table.columns[i].name;
    }
    EXPECT_THROW(Schema(file).Definition("Nothing"), DatabaseError);
}

TEST_F(SchemaTest, ChangedTable_IsSeenByTheNextCursor)
{
    Make("CREATE TABLE Old (k INTEGER PRIMARY KEY); INSERT INTO Old VALUES (1)");
    Database file(path, Database::Mode::Exclusive);
    EXPECT_EQ(file.OpenTable("old").ColumnNames().size(), 1U);
    Schema schema(file);
    schema.AddColumn("Old", {"v", ColumnType::Text});
    {
        platform::Recordset rows = file.OpenTable("old");
        rows.MoveFirst();
        EXPECT_TRUE(rows.IsNull("v"));
    }
    schema.RenameTable("Old", "New");
    EXPECT_THROW(file.OpenTable("Old"), DatabaseError);
    EXPECT_EQ(file.OpenTable("New").RecordCount(), 1);
    schema.DropTable("New");
    EXPECT_FALSE(file.HasTable("New"));
    EXPECT_THROW(schema.DropTable("New"), DatabaseError);
}

TEST_F(SchemaTest, ViewsAndComputedIndexes_AreNotTouched)
{
    Make("CREATE TABLE Old (k INTEGER PRIMARY KEY); CREATE INDEX i ON Old (k + 1); CREATE VIEW Seen AS "
         "SELECT 1;"
         "CREATE TABLE Plain (k)");
    Database file(path, Database::Mode::Exclusive);
    Schema schema(file);
    EXPECT_THROW(schema.DropTable("Seen"), DatabaseError);
    EXPECT_THROW(schema.AddColumn("Old", {"v", ColumnType::Text}), DatabaseError);
    schema.RenameTable("Plain", "Other");
    EXPECT_TRUE(file.HasTable("Other"));
}

TEST_F(SchemaTest, Transaction_IsTakenBackUnlessCommitted)
{
    Database file(path, Database::Mode::Exclusive);
    {
        Transaction change(file);
        Schema(file).CreateTable({"T", {{"k", ColumnType::Long}}, {"k"}});
        Schema(file).SetMark(7);
    }
    EXPECT_FALSE(file.HasTable("T"));
    EXPECT_EQ(Schema(file).Mark(), 0);
    {
        Transaction change(file);
        Schema(file).CreateTable({"T", {{"k", ColumnType::Long}}, {"k"}});
        Schema(file).SetMark(7);
        change.Commit();
    }
    EXPECT_TRUE(file.HasTable("T"));
    EXPECT_EQ(Schema(file).Mark(), 7);
}

TEST_F(SchemaTest, RowWriter_WritesCellsAsTheyAre)
{
    {
        Database file(path, Database::Mode::Exclusive);
        Schema(file).CreateTable(
            {"T", {{"k", ColumnType::Long}, {"v", ColumnType::Text}, {"c", ColumnType::Currency}}, {"k"}});
        RowWriter writer(file, "T");
        writer.Write({FieldValue(std::int64_t{1}), FieldValue(std::string("a\0b", 3)), FieldValue(12.5)});
        writer.Write({FieldValue(std::int64_t{2}), FieldValue(), FieldValue(std::int64_t{-3})});
        EXPECT_THROW(writer.Write({FieldValue(std::int64_t{2}), FieldValue(), FieldValue()}), DatabaseError);
        writer.Write({FieldValue(std::int64_t{3}), FieldValue(std::string()), FieldValue()});
    }
    EXPECT_EQ(Value("SELECT group_concat(k || typeof(v) || length(CAST(v AS BLOB)) || typeof(c), ' ') FROM T "
                    "WHERE v NOT NULL"),
              "1text3real 3text0null");
}

TEST_F(SchemaTest, Importing_MakesADatabaseOfAnEmptyFile)
{
    support::WriteFile(path, "");
    EXPECT_THROW(Database(path, Database::Mode::Exclusive), DatabaseError)
        << "an empty file is none otherwise";
    {
        Database file(path, Database::Mode::Importing);
        Schema(file).CreateTable({"T", {{"k", ColumnType::Long}}, {"k"}});
        EXPECT_THROW(Database(path, Database::Mode::ReadOnly).TableNames(), DatabaseError) << "it is locked";
    }
    EXPECT_EQ(Value("PRAGMA application_id"), "1363495990");
    EXPECT_EQ(Database(path, Database::Mode::Exclusive).TableNames(), std::vector<std::string>{"T"});
}

TEST_F(SchemaTest, JournalWithoutAChange_GoesWhenTheFileIsOpened)
{
    support::WriteFile(path + "-journal", std::string(512, '\0'));
    const Database file(path, Database::Mode::Exclusive);
    EXPECT_EQ(Beside(), std::vector<std::string>{"Fire.qel"});
}
