#include "platform/base/Clock.h"
#include "platform/data/DatabaseError.h"
#include "session/SessionState.h"
#include "session/u14Properties.h"
#include "session/u19RowData.h"
#include "support/ChildProcess.h"
#include "support/TestSession.h"

using u14Properties::Property_Get;
using u14Properties::Property_GetOrAdd;
using u14Properties::Property_Set;

namespace {
class u14PropertiesTest : public support::TestSession
{
protected:
    std::string Rows() { return Query("SELECT count(*) FROM Properties")[0][0]; }
};
} // namespace

TEST_F(u14PropertiesTest, GetOfAnUnknownName_IsEmptyAndAddsNoRow)
{
    OpenNew();
    EXPECT_EQ(Property_Get("Nothing"), "");
    EXPECT_EQ(Query("SELECT * FROM Properties WHERE Property = 'Nothing'"), support::Rows());
}

TEST_F(u14PropertiesTest, GetOfANullValue_IsEmpty)
{
    OpenNew("INSERT INTO Properties VALUES ('Hollow', NULL)");
    EXPECT_EQ(Property_Get("Hollow"), "");
}

TEST_F(u14PropertiesTest, GetOrAddOfAnUnknownName_AddsItsDefault)
{
    OpenNew();
    EXPECT_EQ(Property_GetOrAdd("Fresh", "No"), "No");
    EXPECT_EQ(Property_GetOrAdd("Fresh", "Yes"), "No");
    EXPECT_EQ(Query("SELECT Value FROM Properties WHERE Property = 'Fresh'"), (support::Rows{{"No"}}));
}

TEST_F(u14PropertiesTest, GetOrAddOfAStoredEmptyValue_IsTheEmptyValue)
{
    OpenNew("INSERT INTO Properties VALUES ('Empty', '')");
    EXPECT_EQ(Property_GetOrAdd("Empty", "No"), "");
    EXPECT_EQ(Query("SELECT Value FROM Properties WHERE Property = 'Empty'"), (support::Rows{{""}}));
}

TEST_F(u14PropertiesTest, Set_AddsOrChangesTheRow)
{
    OpenNew();
    Property_Set("Fresh", "1");
    EXPECT_EQ(Property_Get("Fresh"), "1");
    Property_Set("FRESH", "2");
    EXPECT_EQ(Property_Get("fresh"), "2") << "names are of either case";
    EXPECT_EQ(Query("SELECT * FROM Properties WHERE Property = 'Fresh'"), (support::Rows{{"Fresh", "2"}}));
}

TEST_F(u14PropertiesTest, SetOfAnEqualValue_WritesNothing)
{
    OpenNew("INSERT INTO Properties VALUES ('Same', 'Value')");
    const support::FileSizeLimit full(0); // any write would fail
    const unsigned long version = u14Properties::PropertiesVersion();
    Property_Set("Same", "Value");
    EXPECT_EQ(u14Properties::PropertiesVersion(), version);
    EXPECT_THROW(Property_Set("Same", "value"), platform::DatabaseError) << "compared exactly";
}

TEST_F(u14PropertiesTest, SetWithNoFileOpen_WritesALineToBothLogsAndNothingElse)
{
    platform::SetClock([] { return platform::LocalTime{2006, 9, 5, 7, 8, 9}; });
    Property_Set("FullFileName", "x");
    EXPECT_EQ(support::ReadFile(folder.File("VEXA.LOG")),
              "\n* * * ERROR * * *\n07:08:09   Property_Set: No database loaded\n\n");
    EXPECT_EQ(ErrorLog(), "\n* * * ERROR * * *\n09/05/2006\n07:08:09   Property_Set: No database loaded\n\n");
}

TEST_F(u14PropertiesTest, SetOfProgramID_IsLetThroughWhileAFileIsBeingOpened)
{
    OpenNew();
    gDatabaseOpen = false; // as during the edition check
    Property_Set("ProgramID", "Standard");
    Property_Set("AnalysisLevel", "3");
    EXPECT_EQ(Property_Get("ProgramID"), "Standard");
    EXPECT_EQ(Property_Get("AnalysisLevel"), "");
    gDatabaseOpen = true;
    EXPECT_NE(ErrorLog().find("Property_Set: No database loaded"), std::string::npos);
}

TEST_F(u14PropertiesTest, WithNoFileOpen_ReadingThrows)
{
    EXPECT_THROW(Property_Get("ProgramID"), platform::DatabaseError);
    EXPECT_THROW(Property_GetOrAdd("x", "y"), platform::DatabaseError);
    EXPECT_THROW(Property_Set("ProgramID", "Basic"), platform::DatabaseError);
}

TEST_F(u14PropertiesTest, TheVersion_CountsUpWithEveryWriteAndClose)
{
    OpenNew();
    const unsigned long first = u14Properties::PropertiesVersion();
    Property_Get("ProgramID");
    EXPECT_EQ(u14Properties::PropertiesVersion(), first);
    Property_Set("UseNVCGains", "Yes");
    const unsigned long second = u14Properties::PropertiesVersion();
    EXPECT_NE(second, first);
    Close();
    EXPECT_NE(u14Properties::PropertiesVersion(), second);
}

TEST_F(u14PropertiesTest, RowReads_AfterAFailedSeekOrOfNull_AreEmpty)
{
    OpenNew("INSERT INTO Items (ItemKey, ItemName, ChildIndex) VALUES (9001, NULL, NULL), (9002, '12 acres', "
            "2.5)");
    platform::Recordset rows = OpenDatabase().OpenTable("Items");
    for (const Long key : {9000, 9001}) {
        rows.Seek(key);
        EXPECT_EQ(u19RowData::ReadText(rows, "ItemName"), "");
        EXPECT_EQ(u19RowData::ReadLong(rows, "ChildIndex"), 0);
        EXPECT_EQ(u19RowData::ReadSingle(rows, "ChildIndex"), 0.0F);
    }
    rows.Seek(9002);
    EXPECT_EQ(u19RowData::ReadText(rows, "ItemName"), "12 acres");
    EXPECT_EQ(u19RowData::ReadLong(rows, "ItemName"), 12);
    EXPECT_EQ(u19RowData::ReadLong(rows, "ChildIndex"), 2) << "halves to even";
    EXPECT_EQ(u19RowData::ReadSingle(rows, "ChildIndex"), 2.5F);
}
