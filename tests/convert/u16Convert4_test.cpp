#include "ConvertTest.h"

namespace {

using support::Rich;
using support::Rows;

constexpr const char* kOldest = "4.00.00-bare";
/// An outcome with its costs: by size, by resources, final, and which one is in force.
std::string OutcomeOf(int alternative, int number, const char* costs)
{
    return "INSERT INTO Outcomes (AlternativeKey, OutcomeNumber, CostBySize, ResourceCosts, "
           "SuppressionCosts, "
           "CostSource) VALUES (" +
           std::to_string(alternative) + ", " + std::to_string(number) + ", " + costs + ");";
}

class u16Convert4Test : public support::ConvertTest
{
protected:
    Rows CostsOf(int outcome)
    {
        return Query("SELECT CostSource, AdjustedCost FROM Outcomes WHERE ItemKey = " +
                     std::to_string(outcome));
    }
};

} // namespace

TEST_F(u16Convert4Test, BothVersions_TakeTheSameRoadAndEndAsStandardFilesOfToday)
{
    for (const char* version : {"4.00.00", "3.93.00"}) {
        MakeOld(kOldest,
                std::string("UPDATE Properties SET Value = '") + version +
                    "' WHERE Property = 'DataFormatID'");
        ExpectEndsAsStandard();
        EXPECT_EQ(Format(), "06.01.01") << version;
        EXPECT_EQ(Query("SELECT Value FROM Properties WHERE Property = 'ProgramID'"), (Rows{{"Standard"}}));
    }
}

TEST_F(u16Convert4Test, OutcomeKey_IsTenTimesTheAlternativePlusTheNumber)
{
    MakeOld(kOldest, OutcomeOf(3, 2, "1, 1, 1, 1"));
    ExpectEndsAsStandard();
    EXPECT_EQ(Query("SELECT ItemKey, ParentKey, ChildIndex FROM Outcomes ORDER BY ItemKey"),
              (Rows{{"1", "0", "1"}, {"32", "3", "2"}}));
}

TEST_F(u16Convert4Test, FinalCost_BecomesAdjustedUnlessItIsTheEstimateInForce)
{
    MakeOld(kOldest,
            OutcomeOf(1, 1, "100, 200, 100, 1") + OutcomeOf(1, 2, "100, 200, 200, 1") +
                OutcomeOf(2, 1, "100, 200, 200, 2") + OutcomeOf(2, 2, "100, 200, 100, 2") +
                OutcomeOf(3, 1, "100, 200, 100, 4") + OutcomeOf(3, 2, "100, 200, 100.5001, NULL") +
                OutcomeOf(4, 1, "NULL, 200, 100, 1") + OutcomeOf(4, 2, "100, 200, NULL, 2") +
                OutcomeOf(5, 1, "100, 200, NULL, 8"));
    ExpectEndsAsStandard();
    EXPECT_EQ(CostsOf(11), (Rows{{"1", "NULL"}}));
    EXPECT_EQ(CostsOf(12), (Rows{{"8", "200"}}));
    EXPECT_EQ(CostsOf(21), (Rows{{"2", "NULL"}}));
    EXPECT_EQ(CostsOf(22), (Rows{{"8", "100"}}));
    EXPECT_EQ(CostsOf(31), (Rows{{"8", "100"}}));
    EXPECT_EQ(CostsOf(32), (Rows{{"8", "100.5001"}}));
    EXPECT_EQ(CostsOf(41), (Rows{{"1", "NULL"}})) << "what is not there differs from nothing";
    EXPECT_EQ(CostsOf(42), (Rows{{"2", "NULL"}}));
    EXPECT_EQ(CostsOf(51), (Rows{{"8", "NULL"}}));
}

TEST_F(u16Convert4Test, OutcomesThatWouldShareAKey_FailWithTheTableAsItWas)
{
    MakeOld(kOldest, OutcomeOf(1, 11, "1, 1, 1, 1") + OutcomeOf(2, 1, "1, 1, 1, 1"));
    ExpectFails();
    EXPECT_EQ(Query("SELECT count(*) FROM Outcomes WHERE OutcomeNumber = 11"), (Rows{{"1"}}));
    EXPECT_EQ(Format(), "4.00.00");
}

TEST_F(u16Convert4Test, Outcomes_KeepTheColumnsThatAreNotReplacedAndLoseTheRest)
{
    MakeOld(kOldest, "ALTER TABLE Outcomes ADD COLUMN Note VARCHAR(20); UPDATE Outcomes SET Note = 'mine'");
    ExpectEndsAsStandard();
    EXPECT_EQ(Query("SELECT group_concat(name) FROM pragma_table_info('Outcomes')"),
              (Rows{{"FireSize,ContainTime,ControlTime,Success,CostSource,Note,ItemKey,ItemName,ParentKey,"
                     "ChildIndex,Description,AdjustedCost,CostRationale,SuccessRationale,DailyContainCost,"
                     "DailyControlCost"}}));
    EXPECT_EQ(
        Query(
            "SELECT name, type, pk FROM pragma_table_info('Outcomes') WHERE pk > 0 OR name = 'AdjustedCost'"),
        (Rows{{"ItemKey", "INTEGER", "1"}, {"AdjustedCost", "CURRENCY", "0"}}));
    EXPECT_EQ(Query("SELECT Note FROM Outcomes"), (Rows{{"mine"}}));
}

TEST_F(u16Convert4Test, ResourceTypes_KeepTheirKeysWhichTheEngineGoesOnFrom)
{
    MakeOld(kOldest,
            "DELETE FROM SRMasterList; INSERT INTO SRMasterList VALUES (7, 2, 'Long', 'Short', 'time', "
            "'days', 12.5),"
            "(40, NULL, NULL, '', 'item', NULL, NULL)");
    ExpectEndsAsStandard();
    EXPECT_EQ(Query("SELECT * FROM SRTypes"),
              (Rows{{"7", "NULL", "2", "Long", "Short", "time", "days", "12.5"},
                    {"40", "NULL", "NULL", "NULL", "", "item", "NULL", "NULL"}}));
    EXPECT_EQ(Query("INSERT INTO SRTypes (ShortName) VALUES ('x'); SELECT max(ItemKey) FROM SRTypes"),
              (Rows{{"41"}}));
    EXPECT_EQ(Query("SELECT count(*) FROM sqlite_schema WHERE name = 'SRMasterList'"), (Rows{{"0"}}));
}

TEST_F(u16Convert4Test, ResourceUses_AreNumberedFromOneAsTheyAreRead)
{
    MakeOld(
        kOldest,
        "INSERT INTO SuppressionResources VALUES (22, 5, 1, NULL, 3), (11, 9, 2, 4, 5), (11, 2, 3, 6, 7)");
    ExpectEndsAsStandard();
    EXPECT_EQ(Query("SELECT * FROM SRUses"),
              (Rows{{"1", "11", "2", "3", "6", "7"},
                    {"2", "11", "9", "2", "4", "5"},
                    {"3", "22", "5", "1", "NULL", "3"}}));
}

TEST_F(u16Convert4Test, Gain_BecomesANegativeLossAndNothingStaysNull)
{
    MakeOld(
        kOldest,
        "INSERT INTO ListedItemImpacts VALUES (11, 1, 5000.25), (11, 2, -0.0001), (11, 3, 0), (11, 4, NULL)");
    ExpectEndsAsStandard();
    EXPECT_EQ(Query("SELECT ItemKey, ItemLoss FROM ItemImpacts"),
              (Rows{{"1", "-5000.25"}, {"2", "0.0001"}, {"3", "NULL"}, {"4", "NULL"}}));
}

TEST_F(u16Convert4Test, GainThatHasNoNegative_Fails)
{
    MakeOld(kOldest, "INSERT INTO ListedItemImpacts VALUES (11, 1, -922337203685477.5808)");
    ExpectFails();
}

TEST_F(u16Convert4Test, SafetyRow_IsCutLooseFromTheTree)
{
    MakeOld(kOldest);
    ExpectEndsAsStandard();
    EXPECT_EQ(Query("SELECT Name, ChildKey FROM Objectives WHERE Key = 1"), (Rows{{"Objectives", "3"}}));
    EXPECT_EQ(Query("SELECT ParentKey, SiblingKey FROM Objectives WHERE Key = 2"), (Rows{{"0", "0"}}));
}

TEST_F(u16Convert4Test, MissingProperties_GiveEmptyItems)
{
    MakeOld(kOldest, "DELETE FROM Properties WHERE Property NOT IN ('DataFormatID')");
    ExpectEndsAsStandard();
    EXPECT_EQ(
        Query("SELECT count(*) FROM Items WHERE ItemKey IN (11,52,61,62,53,55,54,217,221,222,223,57) AND "
              "Body = '' AND ParentKey IS NULL"),
        (Rows{{"12"}}));
    EXPECT_EQ(Query("SELECT ItemKey, ChildIndex FROM Items WHERE ParentKey = 22 AND Body = '" + Rich("") +
                    "' ORDER BY ChildIndex"),
              (Rows{{"81", "1"}, {"232", "2"}, {"233", "3"}, {"234", "4"}, {"235", "5"}, {"88", "6"}}));
    EXPECT_EQ(
        Query("SELECT Heading FROM Items WHERE ItemKey IN (81, 88)"),
        (Rows{{"NULL"}, {"National and Regional Fire Preparedness, and Suppression Resource Availability"}}));
}

TEST_F(u16Convert4Test, ReportTopics_StayRichWhereTheyAreAndBecomeRichWhereTheyAreNot)
{
    MakeOld(
        kOldest,
        "UPDATE VEXATopics SET Body = '{\\rtf1 mine}' WHERE Key = 1; UPDATE VEXATopics SET Body = ' {\\rtf1' "
        "WHERE Key = 2; UPDATE VEXATopics SET Body = NULL, Name = NULL WHERE Key = 3");
    ExpectEndsAsStandard();
    EXPECT_EQ(
        Query("SELECT ItemKey, Body FROM Items WHERE ParentKey = 28 AND ItemKey <> 296 ORDER BY ChildIndex"),
        (Rows{{"291", "{\\rtf1 mine}"},
              {"292", Rich(" {\\rtf1")},
              {"293", Rich("")},
              {"294", Rich("")},
              {"295", Rich("")}}));
    EXPECT_EQ(Query("SELECT ItemName FROM Items WHERE ItemKey = 295"), (Rows{{"NULL"}}));
}

TEST_F(u16Convert4Test, Alternatives_GetNewKeysThatOutcomesAndSelectionFollow)
{
    MakeOld(kOldest,
            "DELETE FROM Properties WHERE Property = 'SelectedAlternativeKey';"
            "INSERT INTO Properties VALUES ('SelectedAlternativeKey', '9');"
            "INSERT INTO Alternatives VALUES (4, 'Four', 'a' || char(13, 10) || 'b'), (9, NULL, NULL);" +
                OutcomeOf(4, 1, "1, 1, 1, 1") + OutcomeOf(9, 1, "1, 1, 1, 1") +
                OutcomeOf(9, 2, "1, 1, 1, 1") + OutcomeOf(6, 1, "1, 1, 1, 1"));
    ExpectEndsAsStandard();
    EXPECT_EQ(Query("SELECT ItemKey, ItemName, Body, ChildIndex FROM Items WHERE ParentKey = 26"),
              (Rows{{"297", "Four", Rich("a\\par b"), "1"}, {"298", "", Rich(""), "2"}}));
    EXPECT_EQ(Query("SELECT ItemKey, ParentKey FROM Outcomes ORDER BY ItemKey"),
              (Rows{{"1", "0"}, {"41", "297"}, {"61", "6"}, {"91", "298"}, {"92", "298"}}));
    EXPECT_EQ(Query("SELECT Value FROM Properties WHERE Property = 'SelectedAlternativeKey'"),
              (Rows{{"298"}}));
}

TEST_F(u16Convert4Test, SelectionOfNoAlternative_StaysAsItIs)
{
    for (const char* selected : {"0", "", "none", "5"}) {
        MakeOld(kOldest,
                std::string("DELETE FROM Properties WHERE Property = 'SelectedAlternativeKey';"
                            "INSERT INTO Properties VALUES ('SelectedAlternativeKey', '") +
                    selected + "'); INSERT INTO Alternatives VALUES (4, 'Four', '')");
        ExpectEndsAsStandard();
        EXPECT_EQ(Query("SELECT Value FROM Properties WHERE Property = 'SelectedAlternativeKey'"),
                  (Rows{{selected}}));
    }
}

TEST_F(u16Convert4Test, AlternativesOfASecondFile_AreNumberedFromThatFilesOwnKeys)
{
    for (int i = 0; i < 2; ++i) {
        MakeOld(kOldest, "INSERT INTO Alternatives VALUES (1, 'One', '')");
        ExpectEndsAsStandard();
        EXPECT_EQ(Query("SELECT ItemKey FROM Items WHERE ParentKey = 26"), (Rows{{"297"}})) << i;
    }
}

TEST_F(u16Convert4Test, ImpactsFollowThreatenedItems_AlsoWhereOldKeysAreAmongTheNewOnes)
{
    MakeOld(kOldest,
            "INSERT INTO ListOfItems (Key, Name) VALUES (2, 'Two'), (297, 'Next'), (298, 'Last');"
            "INSERT INTO ListedItemImpacts VALUES (1, 2, -2), (1, 297, -297), (1, 298, -298), (1, 5, -5),"
            "(11, 2, -12)");
    ExpectEndsAsStandard();
    EXPECT_EQ(Query("SELECT ItemKey, ItemName FROM Items WHERE ParentKey = 23"),
              (Rows{{"297", "Two"}, {"298", "Next"}, {"299", "Last"}}));
    EXPECT_EQ(Query("SELECT OutcomeKey, ItemKey, ItemLoss FROM ItemImpacts"),
              (Rows{{"1", "5", "5"},
                    {"1", "297", "2"},
                    {"1", "298", "297"},
                    {"1", "299", "298"},
                    {"11", "297", "12"}}));
}

TEST_F(u16Convert4Test, ImpactOnNoItemThatHoldsANewKey_Fails)
{
    MakeOld(kOldest,
            "INSERT INTO ListOfItems (Key, Name) VALUES (2, 'Two');"
            "INSERT INTO ListedItemImpacts VALUES (1, 2, -2), (1, 297, -297)");
    ExpectFails();
    EXPECT_EQ(Query("SELECT ItemKey FROM ItemImpacts"), (Rows{{"2"}, {"297"}}));
}
