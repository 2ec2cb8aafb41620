#include "tools/BuildFolder.h"

#include <gtest/gtest.h>

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;
using tools_test::BuildFolder;
using tools_test::Cell;
using tools_test::ReadAll;
using tools_test::Rows;

namespace {

const std::string richHead =
    R"({\rtf1\ansi\ansicpg1252\uc0\deff0{\fonttbl{\f0\fswiss\fcharset0\fprq2 Arial;}})"
    R"({\colortbl;\red0\green0\blue0;\red255\green255\blue255;}\plain\f0\fs20 \pard )";
const std::string defaultBody = richHead + R"(\par })";

class Template : public testing::Test
{
protected:
    std::vector<std::string> Select(const std::string& query) const { return Rows(m_file, query); }

    BuildFolder m_folder;
    std::filesystem::path m_file = m_folder.BuildTemplate();
};

/// Columns as "Name TYPE", the key columns with their place in the key behind.
const std::vector<std::pair<std::string, std::vector<std::string>>> tables{
    {"FMZList", {"Key INTEGER 1", "FMZCode TEXT", "Name TEXT"}},
    {"ItemImpacts", {"OutcomeKey INTEGER 1", "ItemKey INTEGER 2", "ItemLoss CURRENCY"}},
    {"Items",
     {"ItemKey INTEGER 1",
      "ItemName TEXT",
      "Heading TEXT",
      "Body TEXT",
      "ItemText TEXT",
      "ParentKey INTEGER",
      "ChildIndex INTEGER"}},
    {"NVCPerAcre",
     {"FMZKey INTEGER 1",
      "ResourceIndex INTEGER 2",
      "Fil1 REAL",
      "Fil2 REAL",
      "Fil3 REAL",
      "Fil4 REAL",
      "Fil5 REAL",
      "Fil6 REAL"}},
    {"NVCResources", {"ResourceIndex INTEGER 1", "ResourceName TEXT"}},
    {"Objectives",
     {"Key INTEGER 1",
      "Name TEXT",
      "Explanation TEXT",
      "ParentKey INTEGER",
      "ChildKey INTEGER",
      "SiblingKey INTEGER",
      "Priority INTEGER"}},
    {"OutcomeFMZs",
     {"OutcomeKey INTEGER 1",
      "FMZKey INTEGER 2",
      "Portion INTEGER",
      "FIL1Portion INTEGER",
      "FIL2Portion INTEGER",
      "FIL3Portion INTEGER",
      "FIL4Portion INTEGER",
      "FIL5Portion INTEGER",
      "FIL6Portion INTEGER"}},
    {"Outcomes",
     {"ItemKey INTEGER 1",
      "ItemName TEXT",
      "ParentKey INTEGER",
      "ChildIndex INTEGER",
      "Description TEXT",
      "FireSize REAL",
      "ContainTime INTEGER",
      "ControlTime INTEGER",
      "Success REAL",
      "SuccessRationale TEXT",
      "DailyContainCost REAL",
      "DailyControlCost REAL",
      "AdjustedCost CURRENCY",
      "CostSource INTEGER",
      "CostRationale TEXT"}},
    {"Properties", {"Property TEXT 1", "Value TEXT"}},
    {"SRTypes",
     {"ItemKey INTEGER 1",
      "ParentKey INTEGER",
      "ChildIndex INTEGER",
      "LongName TEXT",
      "ShortName TEXT",
      "UnitType TEXT",
      "UnitName TEXT",
      "UnitCost CURRENCY"}},
    {"SRUses",
     {"ItemKey INTEGER 1",
      "OutcomeKey INTEGER",
      "ItemIndex INTEGER",
      "SRTypeKey INTEGER",
      "Quantity INTEGER",
      "Periods INTEGER"}},
    {"Scores", {"OutcomeKey INTEGER 1", "CriterionKey INTEGER 2", "Value REAL", "Description TEXT"}},
    {"SuppressionPerAcreCost", {"FMZKey INTEGER 1", "SizeClass INTEGER 2", "TopSize REAL", "Cost REAL"}},
    {"ValuesAtRisk", {"ItemKey INTEGER 1", "PotentialLoss REAL", "Probability SMALLINT"}},
    {"ValuesProtected",
     {"OutcomeKey INTEGER 1", "ItemKey INTEGER 2", "Protection SMALLINT", "Description TEXT"}},
};

} // namespace

TEST_F(Template, Container_IsASoundDatabaseOfOurs)
{
    EXPECT_EQ(Cell(m_file, "PRAGMA integrity_check"), "ok");
    EXPECT_EQ(Cell(m_file, "PRAGMA application_id"), "1363495990"); // 0x51454C36
    EXPECT_EQ(Cell(m_file, "PRAGMA encoding"), "UTF-8");
    EXPECT_EQ(Cell(m_file, "PRAGMA journal_mode"), "delete");
}

TEST_F(Template, TwoBuilds_GiveTheSameBytes)
{
    const auto again = m_folder.BuildTemplate("again.new");
    EXPECT_EQ(ReadAll(m_file), ReadAll(again));
    EXPECT_THAT(m_folder.Files(), ElementsAre("QEL.new", "again.new"));
}

TEST_F(Template, Tables_AreThoseOfTheFormatAndNoOthers)
{
    std::vector<std::string> names;
    for (const auto& [table, columns] : tables)
        names.push_back(table);
    EXPECT_EQ(Select("SELECT name FROM sqlite_master WHERE type = 'table' AND name <> 'sqlite_sequence' "
                     "ORDER BY name"),
              names);
    EXPECT_EQ(Cell(m_file, "SELECT COUNT(*) FROM sqlite_master WHERE type NOT IN ('table', 'index')"), "0");
}

TEST_F(Template, Columns_AreDeclaredAsTheFormatHasThem)
{
    for (const auto& [table, columns] : tables) {
        EXPECT_EQ(Select("SELECT name || ' ' || type || iif(pk, ' ' || pk, '') FROM pragma_table_info('" +
                         table + "')"),
                  columns)
            << table;
    }
}

TEST_F(Template, Columns_MayBeNullButForKeysAndHaveNoDefault)
{
    for (const auto& [table, columns] : tables) {
        EXPECT_THAT(Select("SELECT name FROM pragma_table_info('" + table +
                           "') WHERE dflt_value IS NOT NULL OR (\"notnull\" AND pk = 0)"),
                    IsEmpty())
            << table;
    }
}

TEST_F(Template, Keys_AreOfTheKindTheirTableNeeds)
{
    EXPECT_THAT(Select("SELECT name FROM sqlite_master WHERE sql LIKE '%WITHOUT ROWID%' ORDER BY name"),
                ElementsAre("ItemImpacts",
                            "NVCPerAcre",
                            "OutcomeFMZs",
                            "Scores",
                            "SuppressionPerAcreCost",
                            "ValuesProtected"));
    EXPECT_THAT(Select("SELECT name FROM sqlite_master WHERE sql LIKE '%AUTOINCREMENT%' ORDER BY name"),
                ElementsAre("Objectives", "SRTypes"));
    EXPECT_THAT(Select("SELECT * FROM sqlite_sequence ORDER BY name"),
                ElementsAre("Objectives|6", "SRTypes|35"));
    EXPECT_EQ(Cell(m_file, "SELECT Value FROM Properties WHERE Property = 'programid'"), "Basic");
}

TEST_F(Template, Indexes_ServeTheQueries)
{
    EXPECT_THAT(
        Select("SELECT m.tbl_name || ' ' || (SELECT group_concat(name) FROM pragma_index_info(m.name)) "
               "FROM sqlite_master m WHERE type = 'index' AND sql IS NOT NULL ORDER BY 1"),
        ElementsAre("ItemImpacts ItemKey",
                    "Items ParentKey,ChildIndex",
                    "Outcomes ParentKey,ChildIndex",
                    "SRTypes ChildIndex",
                    "SRUses OutcomeKey,ItemIndex",
                    "Scores CriterionKey"));
}

TEST_F(Template, Properties_AreFormatAndEdition)
{
    EXPECT_THAT(Select("SELECT * FROM Properties ORDER BY Property"),
                ElementsAre("DataFormatID|06.01.01", "ProgramID|Basic"));
}

TEST_F(Template, UserTables_AreEmpty)
{
    for (const std::string table :
         {"FMZList", "Scores", "ItemImpacts", "ValuesAtRisk", "ValuesProtected", "SRUses"}) {
        EXPECT_EQ(Cell(m_file, "SELECT COUNT(*) FROM " + table), "0") << table;
    }
}

TEST_F(Template, Groups_HaveNothingButTheirName)
{
    EXPECT_THAT(Select("SELECT * FROM Items WHERE ItemKey < 40 ORDER BY ItemKey"),
                ElementsAre("21|RMAs|null|null|null|null|null",
                            "22|Situation Items|null|null|null|null|null",
                            "23|Threatened Items|null|null|null|null|null",
                            "25|Safety Issues|null|null|null|null|null",
                            "26|Alternatives|null|null|null|null|null",
                            "28|Summary Items|null|null|null|null|null",
                            "37|Firefighter Safety|null|null|null|25|1",
                            "38|Public Safety|null|null|null|25|2",
                            "39|Aviation Safety|null|null|null|25|3"));
}

TEST_F(Template, FixedItemsAndReservedKeys_HaveNoRows)
{
    EXPECT_THAT(
        Select("SELECT ItemKey FROM Items WHERE ItemKey IN (11, 52, 53, 54, 55, 57, 61, 62, 217, 221, 222, "
               "223, 211, 212, 213, 214, 215, 216, 224, 231, 236)"),
        IsEmpty());
    EXPECT_EQ(Cell(m_file, "SELECT COUNT(*) FROM Items"), "23");
    EXPECT_EQ(Cell(m_file, "SELECT MAX(ItemKey) FROM Items"), "296");
}

TEST_F(Template, SituationTopics_StandInOrder)
{
    EXPECT_THAT(
        Select("SELECT ChildIndex, ItemKey, ItemName, Heading FROM Items WHERE ParentKey = 22 ORDER BY "
               "ChildIndex"),
        ElementsAre(
            "1|81|Fuel Conditions|Fuel Conditions",
            "2|232|Topography|Topography",
            "3|233|Jurisdiction and Land Ownership in the Fire Area|"
            "Jurisdiction and Land Ownership in the Fire Area",
            "4|234|Fire Behavior|Fire Behavior - Current and Forecast",
            "5|235|Weather Conditions|Forecast Weather (3 and 10 day) and Current Seasonal Conditions",
            "6|88|Suppression Resource Availability|National and Regional Fire Preparedness, Competing "
            "Fires, "
            "and Suppression Resource Availability",
            "7|237|Values Nearby|Communities, Infrastructure and Resource Values Nearby",
            "8|238|Actions to Date|Actions to Date, Access and Communications"));
}

TEST_F(Template, SummaryTopics_StandInOrder)
{
    EXPECT_THAT(
        Select("SELECT ChildIndex, ItemKey, ItemName, Heading FROM Items WHERE ParentKey = 28 ORDER BY "
               "ChildIndex"),
        ElementsAre("1|291|Selected Alternative Description|Description of the selected alternative",
                    "2|292|Rationale|Rationale for the selection",
                    "3|293|VEXA revision thresholds|VEXA revision or amendment thresholds and protocol",
                    "4|294|Critical Fire Management resources|Critical Fire Management resources "
                    "(helicopters, crews, "
                    "etc) estimated to implement the selected alternative",
                    "5|295|Management direction|Direction to the incident organization",
                    "6|296|Coordination|Coordination with cooperators, landowners and the public"));
}

TEST_F(Template, Topics_HaveTheDefaultBodyAndInstructionsInOneLine)
{
    EXPECT_THAT(Select("SELECT DISTINCT Body FROM Items WHERE ParentKey IN (22, 28)"),
                ElementsAre(defaultBody));
    EXPECT_EQ(
        Cell(m_file, "SELECT COUNT(*) FROM Items WHERE ParentKey IN (22, 28) AND length(ItemText) > 150"),
        "14");
    EXPECT_EQ(Cell(m_file,
                   "SELECT COUNT(*) FROM Items WHERE ItemText LIKE '%  %' OR instr(ItemText, char(10)) > 0"),
              "0");
}

TEST_F(Template, Instructions_AreWordForWord)
{
    const auto text = [&](int key) {
        return Cell(m_file, "SELECT ItemText FROM Items WHERE ItemKey = " + std::to_string(key));
    };
    EXPECT_EQ(text(232),
              "Describe slope, aspect, elevation and the lie of canyons, saddles and ridges. Say where "
              "terrain will "
              "speed or slow the fire, and where it limits access, escape and machines. Name the roads, "
              "ridges, rivers "
              "and rock that could serve as control lines.");
    EXPECT_EQ(
        text(235),
        "Summarize the 3-day and 10-day forecast: temperature, humidity, wind by day, fronts, stability, "
        "thunderstorms, chance of wetting rain. Compare the season with the average and give the usual date "
        "on "
        "which it ends. State source and time of each forecast.");
    EXPECT_EQ(
        text(291),
        "Filled in when an alternative is selected, and replaced when another one is. Edit it so that a "
        "reader "
        "who has not seen the analysis understands what will be done on each part of the perimeter, in what "
        "order and by when, and what will not be done.");
    EXPECT_EQ(
        text(296),
        "Name those consulted, with dates; agreements on cost share, evacuation, closures and information; "
        "disagreements still open and who will settle them. List who took part in this analysis.");
}

TEST_F(Template, Objectives_AreTwoTreesWithFourCategories)
{
    EXPECT_THAT(
        Select("SELECT \"Key\", Name, ParentKey, ChildKey, SiblingKey, Priority FROM Objectives ORDER BY 1"),
        ElementsAre("1|Objectives|0|3|0|10",
                    "2|Safety|0|0|0|10",
                    "3|Property and Economy|1|0|4|10",
                    "4|Natural Resources|1|0|5|10",
                    "5|Communities and Culture|1|0|6|10",
                    "6|Feasibility|1|0|0|10"));
}

TEST_F(Template, Explanations_AreRichText)
{
    EXPECT_THAT(
        Select("SELECT Explanation FROM Objectives ORDER BY \"Key\""),
        ElementsAre(
            defaultBody,
            defaultBody,
            richHead + "Homes, businesses, roads and utilities, timber, crops and range, and the work and "
                       "income that depend on them. Rate what the money under Loss Analysis does not show: "
                       "how many are set back, and for how long.\\par }",
            richHead + "Soil, water, vegetation, fish and wildlife, rare species, air. Consider the benefit "
                       "of fire where it has one, and the harm done by suppression itself.\\par }",
            richHead + "Public safety and well-being: evacuation, smoke, closures, recreation; places and "
                       "things of cultural or historic value; the wishes of neighbours and tribes.\\par }",
            richHead +
                "Whether the outcome can be reached and held with the resources that will arrive, "
                "agrees with plans and agreements, and leaves resources free for other fires.\\par }"));
}

TEST_F(Template, ExtremeOutcome_IsThereAndShown)
{
    EXPECT_THAT(Select("SELECT * FROM Outcomes"),
                ElementsAre("1|null|0|1|" + defaultBody + "|null|null|null|0.0|null|null|null|null|1|null"));
    EXPECT_THAT(Select("SELECT * FROM OutcomeFMZs"), ElementsAre("1|0|50|0|0|0|5|0|0"));
}

TEST_F(Template, ValueTable_HasFourteenResourcesAndNoValues)
{
    EXPECT_THAT(Select("SELECT * FROM NVCResources ORDER BY ResourceIndex"),
                ElementsAre("1|Timber",
                            "2|Forage",
                            "3|Water supply",
                            "4|Soil and watershed",
                            "5|Recreation",
                            "6|Scenery",
                            "7|Wildlife",
                            "8|Fisheries",
                            "9|Rare species",
                            "10|Wilderness",
                            "11|Cultural sites",
                            "12|Homes and structures",
                            "13|Roads and utilities",
                            "14|Air quality"));
    const auto rows = Select("SELECT * FROM NVCPerAcre ORDER BY FMZKey, ResourceIndex");
    ASSERT_EQ(rows.size(), 14U);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(rows[i], "0|" + std::to_string(i + 1) + "|0.0|0.0|0.0|0.0|0.0|0.0");
    }
}

TEST_F(Template, CostTable_HasNineBlankSizeClasses)
{
    const auto rows = Select("SELECT * FROM SuppressionPerAcreCost ORDER BY FMZKey, SizeClass");
    ASSERT_EQ(rows.size(), 9U);
    for (std::size_t i = 0; i < rows.size(); ++i)
        EXPECT_EQ(rows[i], "0|" + std::to_string(i + 1) + "|0.0|0.0");
}

TEST_F(Template, ResourceTypes_AreTheStandardList)
{
    const std::vector<std::string> expected{
        "1|null|1|Hand crew, Type 1 (hotshot, 20 people)|Crew T1|time|days|13000",
        "2|null|2|Hand crew, Type 2 initial attack (20 people)|Crew T2 IA|time|days|12000",
        "3|null|3|Hand crew, Type 2 (20 people)|Crew T2|time|days|11000",
        "4|null|4|Engine, structure, Type 1 or 2 (4 people)|Engine struct|time|days|4200",
        "5|null|5|Engine, Type 3 (4 people)|Engine T3|time|days|3900",
        "6|null|6|Engine, Type 4 (3 people)|Engine T4|time|days|2900",
        "7|null|7|Engine, Type 5 (3 people)|Engine T5|time|days|2600",
        "8|null|8|Engine, Type 6 (3 people)|Engine T6|time|days|2500",
        "9|null|9|Engine, Type 7 (2 people)|Engine T7|time|days|1800",
        "10|null|10|Water tender, Type 1|Tender T1|time|days|2400",
        "11|null|11|Water tender, Type 2|Tender T2|time|days|2100",
        "12|null|12|Dozer, Type 1, with transport and boss|Dozer T1|time|days|4200",
        "13|null|13|Dozer, Type 2, with transport and boss|Dozer T2|time|days|3600",
        "14|null|14|Dozer, Type 3, with transport and boss|Dozer T3|time|days|2900",
        "15|null|15|Excavator or masticator, with transport|Masticator|time|days|3600",
        "16|null|16|Faller module (2 people)|Fallers|time|days|2400",
        "17|null|17|Helicopter, Type 1, day with 4 flight hours|Helo T1|time|days|45000",
        "18|null|18|Helicopter, Type 2, day with 4 flight hours|Helo T2|time|days|19000",
        "19|null|19|Helicopter, Type 3, day with 4 flight hours|Helo T3|time|days|11500",
        "20|null|20|Air tanker, large, day with 3 flight hours|Air tanker LAT|time|days|60000",
        "21|null|21|Air tanker, single engine, day with 3 flight hours|SEAT|time|days|9000",
        "22|null|22|Lead plane, day with 4 flight hours|Lead plane|time|days|7000",
        "23|null|23|Air attack plane, day with 4 flight hours|Air attack|time|days|5500",
        "24|null|24|Retardant load, very large (9,400 gallons)|Load VLAT|item|loads|39000",
        "25|null|25|Retardant load, large (3,000 gallons)|Load LAT|item|loads|12000",
        "26|null|26|Retardant load, single engine (800 gallons)|Load SEAT|item|loads|3300",
        "27|null|27|Aviation fuel, where not in the aircraft rate|Aviation fuel|item|1000 gal|6000",
        "28|null|28|Incident management team, Type 1 (50 people)|IMT T1|time|days|42000",
        "29|null|29|Incident management team, Type 2 (35 people)|IMT T2|time|days|29000",
        "30|null|30|Incident management team, Type 3 (12 people)|IMT T3|time|days|10000",
        "31|null|31|Overhead, single person|Overhead|time|days|850",
        "32|null|32|Caterer, for each person fed|Caterer|time|days|80",
        "33|null|33|Shower unit|Shower unit|time|days|4900",
        "34|null|34|Camp support, for each 100 people|Camp support|time|days|3500",
        "35|null|35|Medical unit|Medical unit|time|days|4200"};
    EXPECT_EQ(Select("SELECT * FROM SRTypes ORDER BY ChildIndex"), expected);
}

TEST_F(Template, ResourceNames_FitTheColumnsOfListAndReport)
{
    EXPECT_THAT(Select("SELECT ShortName FROM SRTypes WHERE length(ShortName) > 16 OR length(UnitName) > 8"),
                IsEmpty());
}

TEST(BuiltTemplate, InTheProgramFolder_IsTheOneThatTheSourcesGive)
{
    const char* folder = std::getenv("VEXA_PROGRAM_DIR");
    ASSERT_NE(folder, nullptr);
    const BuildFolder fresh;
    EXPECT_EQ(ReadAll(std::filesystem::path(folder) / "QEL.new"), ReadAll(fresh.BuildTemplate()));
}
