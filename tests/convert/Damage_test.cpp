#include "ConvertTest.h"

namespace {

struct OldFile
{
    const char* name;
    const char* format;
    std::vector<const char*> tables; // that its conversions read or change
};

const OldFile kFiles[] = {
    {"05.01.02-twin-level1", "05.01.02", {"Items", "Outcomes", "SRUses", "ItemImpacts"}},
    {"04.01.01-epaule-17", "04.01.01", {"ORLNRisk", "Outcomes", "Items", "ORLN2Topics", "ORLN3Topics"}},
    {"4.00.00-bare",
     "4.00.00",
     {"Outcomes",
      "SRMasterList",
      "SuppressionResources",
      "ListedItemImpacts",
      "Objectives",
      "Scores",
      "VEXATopics",
      "Alternatives",
      "ManagementGoals",
      "ListOfItems"}},
};

using Damage = support::ConvertTest;

} // namespace

TEST_F(Damage, MissingTable_EndsInTheMessageWithTheFormatUnchanged)
{
    for (const OldFile& old : kFiles) {
        for (const std::string table : old.tables) {
            MakeOld(old.name, "DROP TABLE " + table);
            ExpectFails();
            desktop.CheckDone();
            EXPECT_EQ(Format(), old.format) << table;
        }
    }
}

TEST_F(Damage, ViewInATablesPlace_EndsInTheMessage)
{
    for (const OldFile& old : kFiles) {
        const std::string table = old.tables.back();
        MakeOld(old.name,
                "DROP TABLE " + table + "; CREATE VIEW " + table + " AS SELECT 1 AS Key, 2 AS ItemKey");
        ExpectFails();
        desktop.CheckDone();
        EXPECT_EQ(Format(), old.format) << table;
    }
}

TEST_F(Damage, TriggersOfTheFile_NeverRun)
{
    MakeOld("05.01.02-twin-level1",
            "CREATE TRIGGER t AFTER INSERT ON Items BEGIN DELETE FROM Outcomes; END;"
            "CREATE TRIGGER u AFTER UPDATE ON Properties BEGIN DELETE FROM Outcomes; END;");
    const auto before = Query("SELECT count(*) FROM Outcomes");
    ExpectOpens();
    EXPECT_EQ(Query("SELECT count(*) FROM Outcomes"), before);
}

TEST_F(Damage, TextsInNumberColumns_ReadAsTheNumberTheyBeginWith)
{
    MakeOld("4.00.00-bare",
            "UPDATE Outcomes SET CostSource = '1 or so', CostBySize = 'x', SuppressionCosts = '12 dollars';"
            "INSERT INTO ListedItemImpacts VALUES (11, 1, '-3.5 gain');"
            "INSERT INTO SRMasterList VALUES (7, '2nd', 5, 6, 7, 8, '9.99 each')");
    ExpectEndsAsStandard();
    EXPECT_EQ(Query("SELECT CostSource, AdjustedCost FROM Outcomes"), (support::Rows{{"8", "12"}}));
    EXPECT_EQ(Query("SELECT ItemLoss FROM ItemImpacts"), (support::Rows{{"3.5"}}));
    EXPECT_EQ(Query("SELECT ChildIndex, LongName, UnitCost FROM SRTypes WHERE ItemKey = 7"),
              (support::Rows{{"2", "5", "9.99"}}));
}

TEST_F(Damage, NumbersBeyondTheirWidth_EndInTheMessage)
{
    for (const char* change : {"UPDATE Outcomes SET AlternativeKey = 400000000",
                               "UPDATE Outcomes SET CostSource = 3000000000",
                               "UPDATE Outcomes SET CostSource = 0, SuppressionCosts = 1e300",
                               "INSERT INTO ListedItemImpacts VALUES (11, 1, 1e300)",
                               "INSERT INTO SRMasterList (Key, Sequence) VALUES (70, 3000000000)",
                               "UPDATE SRMasterList SET Key = 3000000000 WHERE Key = 1"}) {
        MakeOld("4.00.00-bare", change);
        ExpectFails();
        desktop.CheckDone();
        EXPECT_EQ(Format(), "4.00.00") << change;
    }
}
