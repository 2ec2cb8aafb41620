#include "ConvertTest.h"
#include "session/SessionState.h"

namespace {

using support::Rows;

constexpr const char* kOld = "05.01.02-twin-level1";

/// The file with these outcomes alone: key, ChildIndex, Success, AdjustedCost, CostSource.
std::string OutcomesOf(const std::string& values)
{
    return "DELETE FROM Outcomes; DELETE FROM SRUses;"
           "INSERT INTO Outcomes (ItemKey, ChildIndex, Success, AdjustedCost, CostSource) VALUES " +
           values + ";";
}

class u16Convert6Test : public support::ConvertTest
{
protected:
    void SetLevel(const char* level)
    {
        support::ExecuteSql(path,
                            std::string("UPDATE Properties SET Value = '") + level +
                                "' WHERE Property = 'AnalysisLevel'");
    }
    Rows Costs() { return Query("SELECT ItemKey, CostSource FROM Outcomes ORDER BY ItemKey"); }
};

} // namespace

TEST_F(u16Convert6Test, OldTopics_AreEmptiedWhereTheyAre)
{
    MakeOld(kOld,
            "DELETE FROM Items WHERE ItemKey IN (84, 86); INSERT INTO Items (ItemKey, ItemName, Body) VALUES "
            "(84, 'name', 'body')");
    ExpectOpens();
    EXPECT_EQ(Query("SELECT ItemKey, ItemName, Body FROM Items WHERE ItemKey IN (84, 86)"),
              (Rows{{"84", "name", ""}}));
}

TEST_F(u16Convert6Test, SafetyGroup_IsAdded)
{
    MakeOld(kOld);
    ExpectOpens();
    EXPECT_EQ(Query("SELECT * FROM Items WHERE ItemKey IN (25, 37, 38, 39)"),
              (Rows{{"25", "Safety Issues", "NULL", "NULL", "NULL", "NULL", "NULL"},
                    {"37", "Firefighter Safety", "NULL", "NULL", "NULL", "25", "1"},
                    {"38", "Public Safety", "NULL", "NULL", "NULL", "25", "2"},
                    {"39", "Aviation Safety", "NULL", "NULL", "NULL", "25", "3"}}));
}

TEST_F(u16Convert6Test, SecondOutcomeOfAFirstLevelFile_IsNotShown)
{
    const std::string outcomes = OutcomesOf("(1, 1, 50, NULL, 1), (2, 2, 40, NULL, 1), (3, 3, 30, NULL, 1)");
    for (const char* level : {"1", "2", "3", "", "01"}) {
        MakeOld(kOld, outcomes);
        SetLevel(level);
        ExpectOpens();
        const char* second = std::string(level) == "1" ? "-1.0" : "40.0";
        EXPECT_EQ(Query("SELECT Success FROM Outcomes"), (Rows{{"50.0"}, {second}, {"30.0"}})) << level;
    }
}

TEST_F(u16Convert6Test, CostInForce_IsTheAdjustedOneOrElseThatOfTheResources)
{
    MakeOld(kOld,
            OutcomesOf("(1, 1, 50, 0.0001, 1), (2, 1, 50, 0, 1), (3, 1, 50, -5, 4), (4, 1, 50, NULL, 1),"
                       "(5, 1, 50, 0, NULL)") +
                "INSERT INTO SRUses (ItemKey, OutcomeKey) VALUES (1, 1), (2, 3), (3, 4)");
    ExpectOpens();
    EXPECT_EQ(Costs(), (Rows{{"1", "8"}, {"2", "1"}, {"3", "2"}, {"4", "2"}, {"5", "NULL"}}))
        << "an adjusted cost of exactly 0 without resources changes nothing";
}

TEST_F(u16Convert6Test, ValuesAtRisk_ComeFromTheWorstOutcomesImpacts)
{
    MakeOld(
        kOld,
        "DELETE FROM Items WHERE ParentKey = 23; DELETE FROM ItemImpacts;"
        "INSERT INTO Items (ItemKey, ParentKey) VALUES (401, 23), (402, 23), (403, 23), (404, 23), (405, 23),"
        "(406, 22);"
        "INSERT INTO ItemImpacts VALUES (1, 401, 16777217), (1, 402, 0), (1, 403, NULL), (2, 404, 7),"
        "(1, 405, -3), (1, 406, 9), (1, 407, 9)");
    ExpectOpens();
    EXPECT_EQ(Query("SELECT ItemKey, PotentialLoss, Probability FROM ValuesAtRisk"),
              (Rows{{"401", "16777216.0", "95"},
                    {"402", "NULL", "95"},
                    {"403", "NULL", "95"},
                    {"405", "NULL", "95"}}));
    EXPECT_EQ(Query("SELECT count(*) FROM ValuesProtected"), (Rows{{"0"}}));
}

TEST_F(u16Convert6Test, NewColumns_AreNullInEveryRow)
{
    MakeOld(kOld);
    ExpectOpens();
    EXPECT_EQ(
        Query("SELECT count(*) FROM Outcomes WHERE DailyContainCost IS NOT NULL OR DailyControlCost IS NOT "
              "NULL"),
        (Rows{{"0"}}));
    EXPECT_EQ(Query("SELECT name, type FROM pragma_table_info('Outcomes') WHERE name LIKE 'Daily%'"),
              (Rows{{"DailyContainCost", "REAL"}, {"DailyControlCost", "REAL"}}));
    EXPECT_EQ(Format(), "06.01.01");
}

TEST_F(u16Convert6Test, Cancel_ChangesNothingAndClosesTheFile)
{
    MakeOld(kOld);
    const std::string before = support::ReadFile(path);
    Links().QueryConvertTo6 = [] { return false; };
    EXPECT_FALSE(u11Datafile::OpenDatafile(path));
    EXPECT_EQ(gDatabase, nullptr);
    EXPECT_EQ(gProperties, nullptr);
    EXPECT_TRUE(support::ReadFile(path) == before);
}
