#include "DataTest.h"
#include "platform/data/Database.h"

using platform::DatabaseError;
using platform::Query;
using platform::Recordset;
using Texts = std::vector<std::string>;

namespace {
class DatabaseTest : public DataTest
{};

constexpr const char* kOutcomes =
    "CREATE TABLE Outcomes (ItemKey INTEGER PRIMARY KEY, ItemName TEXT, ParentKey "
    "INTEGER, ChildIndex INTEGER, Success REAL);";
} // namespace

TEST_F(DatabaseTest, LastKeyInTable_IsTheHighestKeyAndZeroForAnEmptyTable)
{
    MakeAndOpen(std::string(kItems) + kScores + "INSERT INTO Items (ItemKey) VALUES (7), (300), (20)");
    EXPECT_EQ(database->LastKeyInTable("Items", "ItemKey"), 300);
    EXPECT_EQ(database->LastKeyInTable("Scores", "OutcomeKey"), 0);
    EXPECT_THROW(database->LastKeyInTable("Nothing", "ItemKey"), DatabaseError);
    EXPECT_THROW(database->LastKeyInTable("Items", "Nothing"), DatabaseError);
}

TEST_F(DatabaseTest, LastKeyInTable_BeyondOurWidth_Throws)
{
    MakeAndOpen(std::string(kItems) + "INSERT INTO Items (ItemKey) VALUES (2147483648)");
    EXPECT_THROW(database->LastKeyInTable("Items", "ItemKey"), DatabaseError);
}

TEST_F(DatabaseTest, ChildrenOfAnItem_ComeByChildIndexThenKeyWithNullFirst)
{
    MakeAndOpen(
        std::string(kItems) +
        "INSERT INTO Items (ItemKey, ItemName, ParentKey, ChildIndex) VALUES (9, 'second of two', 22, 1), "
        "(5, 'first of two', 22, 1), (4, 'third', 22, 2), (8, 'null', 22, NULL), (7, 'also null', 22, NULL), "
        "(6, 'negative', 22, -1), (3, 'of another', 23, 1), (2, 'of none', NULL, 1)");
    Recordset rows = database->OpenQuery(Query::ItemsOfParentByChildIndex, 22);
    EXPECT_EQ(rows.RecordCount(), 6);
    EXPECT_EQ(Column(rows, "ItemName"),
              (Texts{"also null", "null", "negative", "first of two", "second of two", "third"}));
}

TEST_F(DatabaseTest, AFilesOwnIndex_DoesNotDecideTheOrderOfTies)
{
    MakeAndOpen(std::string(kItems) + "CREATE INDEX theirs ON Items (ParentKey, ChildIndex, ItemName);"
                                      "INSERT INTO Items (ItemKey, ItemName, ParentKey, ChildIndex) VALUES "
                                      "(1, 'z', 22, 1), (2, 'a', 22, 1)");
    EXPECT_EQ(Column(database->OpenQuery(Query::ItemsOfParentByChildIndex, 22), "ItemKey"),
              (Texts{"1", "2"}));
}

TEST_F(DatabaseTest, ChildrenOfAnItem_ComeByKeyWhereAskedSo)
{
    MakeAndOpen(std::string(kItems) + "INSERT INTO Items (ItemKey, ParentKey, ChildIndex) VALUES (9, 23, 1), "
                                      "(5, 23, 3), (7, 23, 2), (6, 22, 1)");
    EXPECT_EQ(Column(database->OpenQuery(Query::ItemsOfParentByItemKey, 23), "ItemKey"),
              (Texts{"5", "7", "9"}));
}

TEST_F(DatabaseTest, OneOutcomeOfAnAlternative_IsFoundByItsIndex)
{
    MakeAndOpen(std::string(kOutcomes) + "INSERT INTO Outcomes (ItemKey, ParentKey, ChildIndex) VALUES (4, "
                                         "26, 1), (3, 26, 2), (2, 27, 2), (9, 26, 2)");
    EXPECT_EQ(Column(database->OpenQuery(Query::OutcomeOfParentAndChildIndex, 26, 2), "ItemKey"),
              (Texts{"3", "9"}));
    EXPECT_TRUE(database->OpenQuery(Query::OutcomeOfParentAndChildIndex, 26, 3).Eof());
}

TEST_F(DatabaseTest, TheQueriesOfTwoKeyTables_ComeByTheOtherKey)
{
    MakeAndOpen(std::string(kScores) +
                "INSERT INTO Scores (OutcomeKey, CriterionKey) VALUES (2, 8), (1, 8), (1, 3);"
                "CREATE TABLE OutcomeFMZs (OutcomeKey INTEGER, FMZKey INTEGER, PRIMARY KEY (OutcomeKey, "
                "FMZKey)) WITHOUT "
                "ROWID; INSERT INTO OutcomeFMZs VALUES (1, 12), (1, 2), (2, 1);"
                "CREATE TABLE ItemImpacts (OutcomeKey INTEGER, ItemKey INTEGER, ItemLoss CURRENCY, PRIMARY "
                "KEY (OutcomeKey, "
                "ItemKey)) WITHOUT ROWID; INSERT INTO ItemImpacts VALUES (3, 5, 1), (1, 5, 2), (1, 4, 3)");
    EXPECT_EQ(Column(database->OpenQuery(Query::ScoresOfCriterion, 8), "OutcomeKey"), (Texts{"1", "2"}));
    EXPECT_EQ(Column(database->OpenQuery(Query::ScoresOfOutcome, 1), "CriterionKey"), (Texts{"3", "8"}));
    EXPECT_EQ(Column(database->OpenQuery(Query::OutcomeFMZsOfOutcome, 1), "FMZKey"), (Texts{"2", "12"}));
    EXPECT_EQ(Column(database->OpenQuery(Query::ItemImpactsOfItem, 5), "OutcomeKey"), (Texts{"1", "3"}));
    EXPECT_EQ(Column(database->OpenQuery(Query::ItemImpactsOfOutcome, 1), "ItemKey"), (Texts{"4", "5"}));
}

TEST_F(DatabaseTest, TheResourceQueries_ComeInLineOrderWithTiesByKey)
{
    MakeAndOpen("CREATE TABLE SRUses (ItemKey INTEGER PRIMARY KEY, OutcomeKey INTEGER, ItemIndex INTEGER);"
                "INSERT INTO SRUses VALUES (5, 1, 2), (4, 1, 1), (3, 1, 2), (2, 1, NULL), (1, 2, 1);"
                "CREATE TABLE SRTypes (ItemKey INTEGER PRIMARY KEY, ChildIndex INTEGER);"
                "INSERT INTO SRTypes VALUES (1, 3), (2, 1), (3, NULL), (4, 1)");
    EXPECT_EQ(Column(database->OpenQuery(Query::SRUsesOfOutcome, 1), "ItemKey"), (Texts{"2", "3", "4", "5"}));
    EXPECT_EQ(Column(database->OpenQuery(Query::SRUsesOfOutcomeByItemIndex, 1), "ItemKey"),
              (Texts{"2", "4", "3", "5"}));
    EXPECT_EQ(Column(database->OpenQuery(Query::SRTypesByChildIndex), "ItemKey"),
              (Texts{"3", "2", "4", "1"}));
}

TEST_F(DatabaseTest, AQuery_CanBeMovedCountedAndChangedButNotSought)
{
    MakeAndOpen(std::string(kItems) + "INSERT INTO Items (ItemKey, ItemName, ParentKey, ChildIndex) VALUES "
                                      "(1, 'a', 22, 1), (2, 'b', 22, 2)");
    {
        Recordset rows = database->OpenQuery(Query::ItemsOfParentByChildIndex, 22);
        rows.MoveLast();
        EXPECT_EQ(rows.Text("ItemName"), "b");
        EXPECT_EQ(rows.RecordCount(), 2);
        rows.MoveFirst();
        EXPECT_THROW(rows.Seek(1), DatabaseError);
        rows.Edit();
        rows.Set("ItemName", std::string("changed"));
        rows.Update();
        rows.MoveNext();
        rows.Delete();
        rows.MoveNext();
        EXPECT_TRUE(rows.Eof());
    }
    EXPECT_EQ(DataTest::Query("SELECT ItemName FROM Items"), (support::Rows{{"changed"}}));
}

TEST_F(DatabaseTest, AQueryWithNoRows_StandsAtItsEnd)
{
    MakeAndOpen(kItems);
    Recordset rows = database->OpenQuery(Query::ItemsOfParentByChildIndex, 22);
    EXPECT_TRUE(rows.Eof());
    EXPECT_EQ(rows.RecordCount(), 0);
    EXPECT_THROW(rows.MoveFirst(), DatabaseError);
}

TEST_F(DatabaseTest, ADeletingWalkThroughAQuery_MeetsEachRowOnce)
{
    MakeAndOpen(std::string(kItems) +
                "INSERT INTO Items (ItemKey, ParentKey, ChildIndex) VALUES (1, 22, 3), (2, 22, 2), "
                "(3, 22, 1); CREATE INDEX p ON Items (ParentKey, ChildIndex)");
    Texts met;
    for (Recordset rows = database->OpenQuery(Query::ItemsOfParentByChildIndex, 22); !rows.Eof();
         rows.MoveNext()) {
        met.push_back(rows.Text("ItemKey"));
        rows.Delete();
    }
    EXPECT_EQ(met, (Texts{"3", "2", "1"}));
    EXPECT_EQ(DataTest::Query("SELECT count(*) FROM Items"), (support::Rows{{"0"}}));
}

TEST_F(DatabaseTest, TableNamesAndKeys_AreThoseOfTheFile)
{
    MakeAndOpen(std::string(kScores) + kItems + "CREATE TABLE a (x); CREATE VIEW v AS SELECT 1;" +
                "CREATE TABLE SRTypes (ItemKey INTEGER PRIMARY KEY AUTOINCREMENT)");
    EXPECT_EQ(database->TableNames(), (Texts{"Items", "SRTypes", "Scores", "a"}));
    EXPECT_EQ(database->PrimaryKey("Scores"), (Texts{"OutcomeKey", "CriterionKey"}));
    EXPECT_EQ(database->PrimaryKey("Items"), (Texts{"ItemKey"}));
    EXPECT_EQ(database->PrimaryKey("a"), Texts());
    EXPECT_TRUE(database->IntegrityFaults().empty());
}
