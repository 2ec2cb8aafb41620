#include "DataTest.h"

#include <sqlite3.h>

using platform::DatabaseError;
using platform::Recordset;
using Texts = std::vector<std::string>;

namespace {

class RecordsetTest : public DataTest
{
protected:
    Recordset OpenItems()
    {
        return MakeAndOpen(
                   std::string(kItems) +
                   "INSERT INTO Items (ItemKey, ItemName, Body) VALUES (30, 'thirty', 'b30'), (10, 'ten', "
                   "NULL), (20, 'twenty', 'b20')")
            .OpenTable("Items");
    }
    Recordset OpenScores()
    {
        return MakeAndOpen(std::string(kScores) +
                           "INSERT INTO Scores VALUES (2, 1, 5, 'c'), (1, 9, 4, 'b'), (1, 3, 3, 'a')")
            .OpenTable("Scores");
    }
};

} // namespace

TEST_F(RecordsetTest, ATableWithoutAKey_IsWalkedAsStoredButNothingIsSoughtOrChangedInIt)
{
    Recordset rows =
        MakeAndOpen(
            "CREATE TABLE Items (ItemKey INTEGER, Body TEXT); INSERT INTO Items VALUES (7, 'a'), (1, 'b')")
            .OpenTable("Items");
    rows.MoveFirst();
    EXPECT_EQ(Column(rows, "Body"), (Texts{"a", "b"}));
    EXPECT_THROW(rows.Seek(1), DatabaseError) << "the second row's own number is no key";
    EXPECT_THROW(rows.MoveLast(), DatabaseError);
    rows.MoveFirst();
    EXPECT_THROW(rows.Delete(), DatabaseError);
    EXPECT_THROW(database->LastKeyInTable("Items", "ItemKey"), DatabaseError);
}

TEST_F(RecordsetTest, ATable_IsWalkedInTheOrderOfItsKey)
{
    Recordset items = OpenItems();
    items.MoveFirst();
    EXPECT_EQ(Column(items, "ItemName"), (Texts{"ten", "twenty", "thirty"}));
    EXPECT_TRUE(items.Eof());
    items.MoveFirst();
    EXPECT_EQ(items.LongValue("ItemKey"), 10);
}

TEST_F(RecordsetTest, ATwoColumnKey_OrdersByItsFirstThenItsSecond)
{
    Recordset scores = OpenScores();
    scores.MoveFirst();
    EXPECT_EQ(Column(scores, "Description"), (Texts{"a", "b", "c"}));
    scores.MoveLast();
    EXPECT_EQ(scores.Text("Description"), "c");
}

TEST_F(RecordsetTest, BeforeAnyMove_ThereIsNoRow)
{
    const Recordset items = OpenItems();
    EXPECT_TRUE(items.Eof());
    EXPECT_FALSE(items.NoMatch());
    EXPECT_THROW(items.Text("ItemName"), DatabaseError);
}

TEST_F(RecordsetTest, Seek_FindsTheRowOfAKey)
{
    Recordset items = OpenItems();
    items.Seek(20);
    EXPECT_FALSE(items.NoMatch());
    EXPECT_EQ(items.Text("ItemName"), "twenty");
    items.Seek(21);
    EXPECT_TRUE(items.NoMatch());
    EXPECT_THROW(items.Text("ItemName"), DatabaseError);
    items.Seek(10);
    EXPECT_FALSE(items.NoMatch()) << "a hit after a miss";
}

TEST_F(RecordsetTest, Seek_OnATwoColumnKey_GetsTheColumnsInKeyOrder)
{
    Recordset scores = OpenScores();
    scores.Seek(1, 9);
    EXPECT_EQ(scores.Text("Description"), "b");
    scores.Seek(9, 1);
    EXPECT_TRUE(scores.NoMatch());
}

TEST_F(RecordsetTest, Seek_WithHalfAKey_Throws)
{
    Recordset scores = OpenScores();
    EXPECT_THROW(scores.Seek(1), DatabaseError);
    Recordset more = database->OpenTable("Scores");
    EXPECT_THROW(more.Seek("1"), DatabaseError);
}

TEST_F(RecordsetTest, MoveNext_AfterASeek_GoesToTheRowBehindIt)
{
    Recordset items = OpenItems();
    items.Seek(10);
    EXPECT_EQ(Column(items, "ItemName"), (Texts{"ten", "twenty", "thirty"}));
    Recordset scores = database->OpenTable("Items");
    scores.MoveLast();
    scores.MoveNext();
    EXPECT_TRUE(scores.Eof());
}

TEST_F(RecordsetTest, MoveNext_AfterASeekOnATwoColumnKey_GoesThroughBothColumns)
{
    Recordset scores = OpenScores();
    scores.Seek(1, 3);
    EXPECT_EQ(Column(scores, "Description"), (Texts{"a", "b", "c"}));
}

TEST_F(RecordsetTest, MoveNext_BehindTheEnd_Throws)
{
    Recordset items = OpenItems();
    items.MoveLast();
    items.MoveNext();
    EXPECT_THROW(items.MoveNext(), DatabaseError);
}

TEST_F(RecordsetTest, MovesOnAnEmptyTable_Throw)
{
    Recordset items = MakeAndOpen(kItems).OpenTable("Items");
    EXPECT_TRUE(items.Eof());
    EXPECT_EQ(items.RecordCount(), 0);
    EXPECT_THROW(items.MoveFirst(), DatabaseError);
    EXPECT_THROW(items.MoveLast(), DatabaseError);
    EXPECT_THROW(items.MoveNext(), DatabaseError);
    items.Seek(1);
    EXPECT_TRUE(items.NoMatch());
}

TEST_F(RecordsetTest, RecordCount_CountsAllRowsWithoutAWalk)
{
    Recordset items = OpenItems();
    EXPECT_EQ(items.RecordCount(), 3);
    items.MoveFirst();
    EXPECT_EQ(items.RecordCount(), 3);
    EXPECT_EQ(items.Text("ItemName"), "ten") << "counting moves nothing";
    items.Delete();
    EXPECT_EQ(items.RecordCount(), 2);
}

TEST_F(RecordsetTest, AddNew_LeavesUnsetColumnsNull)
{
    Recordset items = OpenItems();
    items.AddNew();
    items.Set("ItemKey", Long(40));
    items.Set("ItemName", std::string("forty"));
    items.Update();
    EXPECT_TRUE(items.Eof()) << "no current row after AddNew";
    items.Seek(40);
    EXPECT_TRUE(items.IsNull("Body"));
    EXPECT_EQ(Query("SELECT * FROM Items WHERE ItemKey = 40"),
              (support::Rows{{"40", "forty", "NULL", "NULL", "NULL", "NULL", "NULL"}}));
}

TEST_F(RecordsetTest, AddNew_OfAKeyThatIsTaken_ThrowsAndChangesNothing)
{
    Recordset items = OpenItems();
    items.AddNew();
    items.Set("ItemKey", Long(20));
    items.Set("ItemName", std::string("again"));
    try {
        items.Update();
        FAIL();
    } catch (const DatabaseError& error) {
        EXPECT_EQ(error.Number(), SQLITE_CONSTRAINT_PRIMARYKEY);
    }
    EXPECT_EQ(Query("SELECT ItemName FROM Items ORDER BY 1"),
              (support::Rows{{"ten"}, {"thirty"}, {"twenty"}}));
}

TEST_F(RecordsetTest, Edit_ChangesTheSetColumnsOnly)
{
    Recordset items = OpenItems();
    items.Seek(20);
    items.Edit();
    items.Set("ItemName", std::string("changed"));
    items.Set("ChildIndex", Long(5));
    EXPECT_EQ(items.Text("ItemName"), "twenty") << "nothing before Update";
    items.Update();
    EXPECT_EQ(items.Text("ItemName"), "changed");
    EXPECT_EQ(items.Text("Body"), "b20");
    EXPECT_EQ(Query("SELECT ItemName, Body, ChildIndex FROM Items WHERE ItemKey = 20"),
              (support::Rows{{"changed", "b20", "5"}}));
}

TEST_F(RecordsetTest, SetNull_EmptiesACell)
{
    Recordset items = OpenItems();
    items.Seek(20);
    items.Edit();
    items.SetNull("Body");
    items.Update();
    EXPECT_TRUE(items.IsNull("Body"));
    EXPECT_EQ(items.Text("Body"), "");
    EXPECT_EQ(Query("SELECT Body IS NULL FROM Items WHERE ItemKey = 20"), (support::Rows{{"1"}}));
}

TEST_F(RecordsetTest, AnEditThatIsNotUpdated_IsForgotten)
{
    Recordset items = OpenItems();
    items.Seek(20);
    items.Edit();
    items.Set("ItemName", std::string("never"));
    items.Seek(20);
    items.Edit();
    items.Set("Heading", std::string("kept"));
    items.Update();
    EXPECT_EQ(Query("SELECT ItemName, Heading FROM Items WHERE ItemKey = 20"),
              (support::Rows{{"twenty", "kept"}}));
}

TEST_F(RecordsetTest, AnEdit_CanChangeTheKeyItself)
{
    Recordset items = OpenItems();
    items.Seek(30);
    items.Edit();
    items.Set("ItemKey", Long(5));
    items.Update();
    EXPECT_EQ(items.LongValue("ItemKey"), 5);
    items.Edit();
    items.Set("ItemName", std::string("five"));
    items.Update();
    EXPECT_EQ(Query("SELECT ItemKey, ItemName FROM Items ORDER BY 1"),
              (support::Rows{{"5", "five"}, {"10", "ten"}, {"20", "twenty"}}));
}

TEST_F(RecordsetTest, Delete_TakesTheRowAndThereIsNoneToRead)
{
    Recordset items = OpenItems();
    items.Seek(20);
    items.Delete();
    EXPECT_THROW(items.Text("ItemName"), DatabaseError);
    EXPECT_THROW(items.Delete(), DatabaseError);
    EXPECT_THROW(items.Edit(), DatabaseError);
    EXPECT_FALSE(items.Eof());
    items.MoveNext();
    EXPECT_EQ(items.Text("ItemName"), "thirty");
    EXPECT_EQ(Query("SELECT ItemKey FROM Items ORDER BY 1"), (support::Rows{{"10"}, {"30"}}));
}

TEST_F(RecordsetTest, DeletingTheLastRow_LeadsToTheEnd)
{
    Recordset items = OpenItems();
    items.MoveLast();
    items.Delete();
    items.MoveNext();
    EXPECT_TRUE(items.Eof());
}

TEST_F(RecordsetTest, AWalkThatDeletesEveryRow_MeetsEachOnce)
{
    Texts met;
    {
        Recordset items = OpenItems();
        for (items.MoveFirst(); !items.Eof(); items.MoveNext()) {
            met.push_back(items.Text("ItemName"));
            items.Delete();
        }
    }
    EXPECT_EQ(met, (Texts{"ten", "twenty", "thirty"}));
    EXPECT_EQ(Query("SELECT count(*) FROM Items"), (support::Rows{{"0"}}));
}

TEST_F(RecordsetTest, AWalkThatDeletesAlongATwoColumnKey_MeetsEachOnce)
{
    Recordset scores = OpenScores();
    Texts met;
    for (scores.Seek(1, 3); !scores.Eof(); scores.MoveNext()) {
        met.push_back(scores.Text("Description"));
        scores.Delete();
    }
    EXPECT_EQ(met, (Texts{"a", "b", "c"}));
}

TEST_F(RecordsetTest, AWalkThatEditsEveryRow_MeetsEachOnce)
{
    int met = 0;
    {
        Recordset items = OpenItems();
        for (items.MoveFirst(); !items.Eof(); items.MoveNext()) {
            items.Edit();
            items.Set("ItemName", items.Text("ItemName") + "!");
            items.Update();
            ++met;
        }
    }
    EXPECT_EQ(met, 3);
    EXPECT_EQ(Query("SELECT ItemName FROM Items ORDER BY ItemKey"),
              (support::Rows{{"ten!"}, {"twenty!"}, {"thirty!"}}));
}

TEST_F(RecordsetTest, ARowThatIsGone_CannotBeChangedInSilence)
{
    Recordset items = OpenItems();
    Recordset other = database->OpenTable("Items");
    items.Seek(20);
    other.Seek(20);
    other.Delete();
    items.Edit();
    items.Set("ItemName", std::string("lost"));
    EXPECT_THROW(items.Update(), DatabaseError);
    EXPECT_THROW(items.Delete(), DatabaseError);
}

TEST_F(RecordsetTest, TwoCursorsOnOneTable_StandForThemselves)
{
    Recordset items = OpenItems();
    Recordset other = database->OpenTable("Items");
    items.MoveFirst();
    other.MoveFirst();
    other.MoveNext();
    EXPECT_EQ(items.Text("ItemName"), "ten");
    EXPECT_EQ(other.Text("ItemName"), "twenty");
    items.MoveNext();
    EXPECT_EQ(items.Text("ItemName"), "twenty");
}

TEST_F(RecordsetTest, Columns_AreNamedInEitherCase)
{
    Recordset items = OpenItems();
    items.Seek(20);
    EXPECT_EQ(items.Text("itemname"), "twenty");
    EXPECT_EQ(items.Text("ITEMNAME"), "twenty");
    items.Edit();
    items.Set("BODY", std::string("changed"));
    items.Update();
    EXPECT_EQ(items.Text("Body"), "changed");
}

TEST_F(RecordsetTest, Tables_AreNamedInEitherCase)
{
    MakeAndOpen(kItems);
    EXPECT_EQ(database->OpenTable("items").RecordCount(), 0);
    EXPECT_TRUE(database->HasTable("ITEMS"));
    EXPECT_FALSE(database->HasTable("Item"));
    EXPECT_THROW(database->OpenTable("Item"), DatabaseError);
}

TEST_F(RecordsetTest, AnUnknownColumn_ThrowsAndIsNamed)
{
    Recordset items = OpenItems();
    items.Seek(20);
    try {
        items.Text("Colour");
        FAIL();
    } catch (const DatabaseError& error) {
        EXPECT_STREQ(error.what(), "There is no column Items.Colour");
    }
    EXPECT_THROW(items.IsNull("Colour"), DatabaseError);
    items.Edit();
    EXPECT_THROW(items.Set("Colour", Long(1)), DatabaseError);
}

TEST_F(RecordsetTest, MisuseOfTheCursor_Throws)
{
    Recordset items = OpenItems();
    EXPECT_THROW(items.Edit(), DatabaseError) << "no current row";
    EXPECT_THROW(items.Delete(), DatabaseError) << "no current row";
    EXPECT_THROW(items.Set("ItemName", Long(1)), DatabaseError) << "neither AddNew nor Edit";
    EXPECT_THROW(items.Update(), DatabaseError) << "neither AddNew nor Edit";
}

TEST_F(RecordsetTest, AnUpdateWithNothingSet_WritesNothing)
{
    Recordset items = OpenItems();
    items.Seek(20);
    items.Edit();
    items.Update();
    EXPECT_EQ(items.Text("ItemName"), "twenty");
}

TEST_F(RecordsetTest, TextsOfEveryLengthAndKind_ComeBack)
{
    MakeAndOpen(kItems);
    const std::string texts[] = {"",
                                 "it's \"quoted\"; DROP TABLE Items",
                                 "Säo Tomé 日本語 😀",
                                 std::string("nul\0inside", 10),
                                 "line\r\nbreak\ttab",
                                 std::string(300000, 'x')};
    Long key = 0;
    for (const std::string& text : texts) {
        Recordset items = database->OpenTable("Items");
        items.AddNew();
        items.Set("ItemKey", ++key);
        items.Set("Body", text);
        items.Update();
    }
    Open();
    for (key = 0; const std::string& text : texts) {
        Recordset items = database->OpenTable("Items");
        items.Seek(++key);
        EXPECT_EQ(items.Text("Body"), text);
        EXPECT_FALSE(items.IsNull("Body"));
    }
}

TEST_F(RecordsetTest, AnAutomaticKey_IsNeverAllottedTwice)
{
    Recordset rows =
        MakeAndOpen("CREATE TABLE SRTypes (ItemKey INTEGER PRIMARY KEY AUTOINCREMENT, ParentKey INTEGER, "
                    "ChildIndex INTEGER, LongName TEXT, ShortName TEXT, UnitType TEXT, UnitName TEXT, "
                    "UnitCost CURRENCY); INSERT INTO SRTypes (ItemKey) VALUES (7)")
            .OpenTable("SRTypes");
    const auto add = [&rows](const char* name) {
        rows.AddNew();
        rows.Set("LongName", std::string(name));
        rows.Update();
    };
    add("eight");
    rows.MoveLast();
    EXPECT_EQ(rows.LongValue("ItemKey"), 8);
    rows.Delete();
    add("nine");
    rows.MoveLast();
    EXPECT_EQ(rows.LongValue("ItemKey"), 9);
    EXPECT_EQ(rows.Text("LongName"), "nine");
}

TEST_F(RecordsetTest, PropertyNames_AreOfEitherCase)
{
    Recordset rows =
        MakeAndOpen(std::string(kProperties) + "INSERT INTO Properties VALUES ('dataformatid', '06.01.01')")
            .OpenTable("Properties");
    rows.Seek("DataFormatID");
    EXPECT_FALSE(rows.NoMatch());
    EXPECT_EQ(rows.Text("Value"), "06.01.01");
    rows.Edit();
    rows.Set("Value", std::string("changed"));
    rows.Update();
    EXPECT_EQ(Query("SELECT * FROM Properties"), (support::Rows{{"dataformatid", "changed"}}));
}

TEST_F(RecordsetTest, PropertyNames_AreOfEitherCaseAlsoWhereTheFilesColumnIsNot)
{
    Recordset rows =
        MakeAndOpen("CREATE TABLE Properties (Property TEXT PRIMARY KEY, Value TEXT);"
                    "INSERT INTO Properties VALUES ('PROGRAMID', 'Basic'), ('a', '1'), ('b', '2')")
            .OpenTable("Properties");
    rows.Seek("ProgramID");
    ASSERT_FALSE(rows.NoMatch());
    rows.Edit();
    rows.Set("Value", std::string("Standard"));
    rows.Update();
    rows.Seek("programid");
    EXPECT_EQ(rows.Text("Value"), "Standard");
    rows.MoveFirst();
    EXPECT_EQ(Column(rows, "Property"), (Texts{"PROGRAMID", "a", "b"}));
    rows.Seek("A");
    rows.MoveNext();
    EXPECT_EQ(rows.Text("Property"), "b");
}

TEST_F(RecordsetTest, ATableWithoutAKey_IsReadInTheOrderOfItsRows)
{
    Recordset rows =
        MakeAndOpen(
            "CREATE TABLE \"Paste Errors\" (F1 TEXT); INSERT INTO \"Paste Errors\" VALUES ('z'), ('a')")
            .OpenTable("Paste Errors");
    rows.MoveFirst();
    EXPECT_EQ(Column(rows, "F1"), (Texts{"z", "a"}));
    EXPECT_TRUE(database->PrimaryKey("Paste Errors").empty());
    rows.MoveFirst();
    rows.Edit();
    rows.Set("F1", std::string("x"));
    EXPECT_THROW(rows.Update(), DatabaseError) << "a row without a key cannot be told from its like";
}
