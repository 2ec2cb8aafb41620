#include "CliTest.h"

namespace {

class Check : public support::CliTest
{
protected:
    /// What `check` prints of a new file with this SQL run on it.
    std::string Found(const std::string& sql)
    {
        const std::string file = MakeFile(sql);
        const std::string before = support::ReadFile(file);
        const Result result = Run({"check", file});
        EXPECT_EQ(result.status, 0) << sql << result.err;
        EXPECT_EQ(result.err, "") << sql;
        EXPECT_TRUE(support::ReadFile(file) == before) << sql;
        return result.out;
    }
};

TEST_F(Check, TemplateAndSamples_AreOk)
{
    EXPECT_EQ(Found(""), "ok\n");
    for (const char* sample : {"smith-creek", "juniper-gap", "granite-fork-complex"}) {
        EXPECT_EQ(Run({"check", CopySample(sample)}).out, "ok\n") << sample;
    }
}

TEST_F(Check, WhatADeleteLeavesOnPurpose_IsNoFinding)
{
    EXPECT_EQ(Found("INSERT INTO ValuesAtRisk VALUES (900, 5, 100);"
                    "INSERT INTO ValuesProtected VALUES (1, 900, 5, NULL)"),
              "ok\n");
}

TEST_F(Check, OneFault_IsOneLine)
{
    const std::vector<std::pair<std::string, std::string>> faults = {
        {"DROP TABLE Scores", "Scores: the table is missing\n"},
        {"ALTER TABLE Items DROP COLUMN Heading", "Items: the column Heading is missing\n"},
        {"DELETE FROM Outcomes",
         "Outcomes: there is no Extreme outcome (ParentKey 0, ChildIndex 1)\n"
         "OutcomeFMZs.OutcomeKey: row 1/0 points to 1, which is not an outcome\n"},
        {"INSERT INTO Outcomes (ItemKey, ParentKey, ChildIndex) VALUES (2, 0, 1)",
         "Outcomes: there is more than one Extreme outcome (ParentKey 0, ChildIndex 1)\n"},
        {"UPDATE Outcomes SET FireSize = 'big'",
         "Outcomes.FireSize: row 1 holds a text where a number belongs\n"},
        {"UPDATE Outcomes SET ContainTime = 2147483648",
         "Outcomes.ContainTime: row 1 holds a number beyond the column's width\n"},
        {"UPDATE Outcomes SET FireSize = 1e39",
         "Outcomes.FireSize: row 1 holds a number beyond the column's width\n"},
        {"INSERT INTO ValuesAtRisk VALUES (900, 5, 32768)",
         "ValuesAtRisk.Probability: row 900 holds a number beyond the column's width\n"},
        {"UPDATE Objectives SET SiblingKey = 3 WHERE Key = 6",
         "Objectives links: row 6: SiblingKey leads back to row 3\n"},
        {"UPDATE Objectives SET SiblingKey = 77 WHERE Key = 6",
         "Objectives links: row 6: SiblingKey points to 77, which is no row\n"},
        {"UPDATE Objectives SET SiblingKey = 0 WHERE Key = 5",
         "Objectives links: row 6 is in neither tree\n"},
        {"UPDATE Objectives SET ParentKey = 2 WHERE Key = 6",
         "Objectives links: row 6 hangs below row 1, but its ParentKey is 2\n"},
        {"INSERT INTO Scores VALUES (1, 77, 5, NULL)",
         "Scores.CriterionKey: row 1/77 points to 77, which is not a row of Objectives\n"},
        {"INSERT INTO Scores VALUES (9, 3, 5, NULL)",
         "Scores.OutcomeKey: row 9/3 points to 9, which is not an outcome\n"},
        {"INSERT INTO OutcomeFMZs (OutcomeKey, FMZKey) VALUES (1, 4)",
         "OutcomeFMZs.FMZKey: row 1/4 points to 4, which is not a land unit\n"},
        {"INSERT INTO ItemImpacts VALUES (1, 11, 5)",
         "ItemImpacts.ItemKey: row 1/11 points to 11, which is not a threatened item\n"},
        {"INSERT INTO SRUses VALUES (1, 1, 1, 9999, 1, 1)",
         "SRUses.SRTypeKey: row 1 points to 9999, which is not a row of SRTypes\n"},
        {"INSERT INTO Properties VALUES ('SelectedAlternativeKey', '5')",
         "Properties: SelectedAlternativeKey is \"5\", which is no alternative\n"},
        {"UPDATE Properties SET Value = 'Home' WHERE Property = 'ProgramID'",
         "Properties: ProgramID is \"Home\", which is no edition\n"},
        {"DELETE FROM NVCResources WHERE ResourceIndex = 14", "NVCResources: there is no row 14\n"},
        {"DELETE FROM NVCPerAcre WHERE ResourceIndex = 3", "NVCPerAcre: land unit 0 has no row 3\n"},
        {"DELETE FROM SuppressionPerAcreCost WHERE SizeClass = 9",
         "SuppressionPerAcreCost: land unit 0 has no row 9\n"},
        {"DELETE FROM Items WHERE ParentKey = 22", "Items: there are no topics in group 22\n"},
        {"INSERT INTO Outcomes (ItemKey, ParentKey, ChildIndex) VALUES (2, 55, 1)",
         "Outcomes.ParentKey: row 2 points to 55, which is not an alternative\n"},
        {"DROP TABLE SRUses; CREATE TABLE SRUses (ItemKey, OutcomeKey, ItemIndex, SRTypeKey, Quantity, "
         "Periods)",
         "SRUses: there is no primary key\n"},
    };
    for (const auto& [sql, line] : faults) {
        EXPECT_EQ(Found(sql), line) << sql;
    }
}

TEST_F(Check, AlternativeWithoutItsOutcomes_IsTwoFindings)
{
    EXPECT_EQ(Found("INSERT INTO Items (ItemKey, ItemName, ParentKey, ChildIndex) VALUES (297, 'A', 26, 1)"),
              "Outcomes: alternative 297 has no Target\nOutcomes: alternative 297 has no Fallback\n");
}

TEST_F(Check, KeysWithoutATableOfTheirOwn_AreComparedRowByRow)
{
    const std::string found =
        Found("DROP TABLE FMZList; CREATE TABLE FMZList (Key INTEGER, FMZCode TEXT, Name TEXT);"
              "INSERT INTO FMZList VALUES (0, 'a', 'b'), (0, 'c', 'd'), (NULL, 'e', 'f')");
    EXPECT_EQ(found,
              "FMZList: there is no primary key\n"
              "FMZList keys: row 0 is there more than once\n"
              "FMZList keys: row null has no Key\n");
}

TEST_F(Check, ViewUnderATablesName_IsAMissingTable)
{
    EXPECT_EQ(Found("DROP TABLE Scores; CREATE VIEW Scores AS SELECT 1 AS OutcomeKey"),
              "Scores: the table is missing\n");
}

TEST_F(Check, ManyFindingsOfAKind_AreCounted)
{
    const std::vector<std::string> lines =
        Lines(Found("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n "
                    "WHERE i < 500) INSERT INTO Scores SELECT 1, 100 + i, 0, NULL FROM n"));
    ASSERT_EQ(lines.size(), 11U);
    EXPECT_EQ(lines.back(), "Scores.CriterionKey: 490 more of this kind");
}

TEST_F(Check, OlderFormat_HasItsEngineCheckedAlone)
{
    const std::string file = CopyLegacy("05.01.02-twin-level1.sqlite.qel");
    const Result result = Run({"check", file});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, "format: it is 05.01.02, not 06.01.01; only the engine was checked\n");
}

TEST_F(Check, DamagedPage_IsAFindingOfTheEngine)
{
    const Result result = Run({"check", CopyLegacy("garbage-page.sqlite.qel")});
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(result.out.starts_with("engine: ")) << result.out;
}

TEST_F(Check, FileThatIsNoDatabase_IsStatus1)
{
    for (const char* name : {"text.qel", "truncated.sqlite.qel", "zero-length.qel"}) {
        const Result result = Run({"check", CopyLegacy(name)});
        EXPECT_EQ(result.status, 1) << name;
        EXPECT_EQ(result.out, "") << name;
        EXPECT_NE(result.err, "") << name;
    }
    EXPECT_EQ(Run({"check", CopyLegacy("no-properties.sqlite.qel")}).out,
              "Properties: There is no table Properties\n");
}

} // namespace
