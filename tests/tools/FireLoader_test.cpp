#include "tools/BuildFolder.h"

#include <gtest/gtest.h>

#include <gmock/gmock.h>

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using tools_test::BuildFolder;
using tools_test::Cell;
using tools_test::ReadAll;
using tools_test::Rows;

namespace {

struct SampleCase
{
    std::string name;
    /// Rows of Items, Objectives, Outcomes, OutcomeFMZs, Scores, SRTypes, SRUses, ValuesAtRisk, ItemImpacts.
    std::string counts;
    std::string selected;
};

const std::vector<SampleCase> samples{
    {"smith-creek", "45|10|7|7|40|35|39|7|35", "298"},
    {"juniper-gap", "35|7|5|5|3|35|0|0|0", "none"},
    {"granite-fork-complex", "64|18|13|13|144|37|60|20|180", "300"},
};

const std::string countQuery =
    "SELECT (SELECT COUNT(*) FROM Items), (SELECT COUNT(*) FROM Objectives), (SELECT COUNT(*) FROM "
    "Outcomes), "
    "(SELECT COUNT(*) FROM OutcomeFMZs), (SELECT COUNT(*) FROM Scores), (SELECT COUNT(*) FROM SRTypes), "
    "(SELECT COUNT(*) FROM SRUses), (SELECT COUNT(*) FROM ValuesAtRisk), (SELECT COUNT(*) FROM ItemImpacts)";

const std::string richEnd = R"(\par })";

class Sample : public testing::Test
{
protected:
    void Load(const std::string& fire) { m_file = m_folder.BuildSample(fire); }
    std::vector<std::string> Select(const std::string& query) const { return Rows(m_file, query); }
    std::string One(const std::string& query) const { return Cell(m_file, query); }

    BuildFolder m_folder;
    std::filesystem::path m_file;
};

} // namespace

TEST(Samples, EachFire_FillsItsTables)
{
    for (const SampleCase& sample : samples) {
        SCOPED_TRACE(sample.name);
        const BuildFolder folder;
        const auto file = folder.BuildSample(sample.name);
        EXPECT_EQ(Cell(file, "PRAGMA integrity_check"), "ok");
        EXPECT_EQ(Cell(file, "PRAGMA application_id"), "1363495990");
        EXPECT_EQ(Cell(file, countQuery), sample.counts);
        EXPECT_EQ(Cell(file,
                       "SELECT ifnull((SELECT Value FROM Properties WHERE Property = "
                       "'SelectedAlternativeKey'), 'none')"),
                  sample.selected);
        EXPECT_THAT(
            Rows(file, "SELECT Value FROM Properties WHERE Property IN ('DataFormatID', 'ProgramID')"),
            ElementsAre("06.01.01", "Basic"));
    }
}

TEST(Samples, TwoBuilds_GiveTheSameBytes)
{
    for (const SampleCase& sample : samples) {
        const BuildFolder one, other;
        EXPECT_EQ(ReadAll(one.BuildSample(sample.name)), ReadAll(other.BuildSample(sample.name)))
            << sample.name;
    }
}

TEST(Samples, EveryRichText_IsInTheWritersForm)
{
    for (const SampleCase& sample : samples) {
        SCOPED_TRACE(sample.name);
        const BuildFolder folder;
        const auto file = folder.BuildSample(sample.name);
        const auto bodies =
            Rows(file,
                 "SELECT Body FROM Items WHERE ParentKey IN (22, 23, 26, 28) UNION ALL "
                 "SELECT Explanation FROM Objectives UNION ALL SELECT Description FROM Outcomes");
        EXPECT_GT(bodies.size(), 25U);
        for (const std::string& body : bodies) {
            EXPECT_TRUE(body.starts_with(R"({\rtf1\ansi\ansicpg1252\uc0\deff0{\fonttbl)")) << body;
            EXPECT_TRUE(body.ends_with(richEnd)) << body;
            EXPECT_TRUE(std::all_of(body.begin(), body.end(), [](char c) { return c >= ' ' && c <= '~'; }))
                << body;
            EXPECT_EQ(body.find("**"), std::string::npos) << body;
        }
    }
}

TEST(Samples, KeysBetweenTables_AllLeadSomewhere)
{
    const std::vector<std::string> strays{
        "SELECT * FROM Scores WHERE OutcomeKey NOT IN (SELECT ItemKey FROM Outcomes)",
        "SELECT * FROM Scores WHERE CriterionKey NOT IN (SELECT \"Key\" FROM Objectives WHERE ParentKey > 0)",
        "SELECT * FROM SRUses WHERE OutcomeKey NOT IN (SELECT ItemKey FROM Outcomes)",
        "SELECT * FROM SRUses WHERE SRTypeKey NOT IN (SELECT ItemKey FROM SRTypes)",
        "SELECT * FROM ItemImpacts WHERE OutcomeKey NOT IN (SELECT ItemKey FROM Outcomes)",
        "SELECT * FROM ItemImpacts WHERE ItemKey NOT IN (SELECT ItemKey FROM Items WHERE ParentKey = 23)",
        "SELECT * FROM OutcomeFMZs WHERE OutcomeKey NOT IN (SELECT ItemKey FROM Outcomes)",
        "SELECT * FROM Outcomes WHERE ParentKey <> 0 AND ParentKey NOT IN "
        "(SELECT ItemKey FROM Items WHERE ParentKey = 26)",
        // Whatever the first alternative's Target burns, each outcome burns.
        "SELECT * FROM OutcomeFMZs WHERE FMZKey <> 0 OR Portion <> 50 OR FIL4Portion <> 5 OR "
        "FIL1Portion + FIL2Portion + FIL3Portion + FIL5Portion + FIL6Portion <> 0",
    };
    for (const SampleCase& sample : samples) {
        const BuildFolder folder;
        const auto file = folder.BuildSample(sample.name);
        for (const std::string& query : strays)
            EXPECT_THAT(Rows(file, query), IsEmpty()) << sample.name << query;
    }
}

TEST(Samples, InTheProgramFolder_AreThoseThatTheSourcesGive)
{
    const char* folder = std::getenv("VEXA_PROGRAM_DIR");
    ASSERT_NE(folder, nullptr);
    for (const SampleCase& sample : samples) {
        // A session writes into the sample that it opens, so bytes may differ; the fire is the same.
        const BuildFolder copy;
        const auto built = copy.Path(sample.name);
        std::filesystem::copy_file(std::filesystem::path(folder) / "samples" / (sample.name + ".qel"), built);
        EXPECT_EQ(Cell(built, countQuery), sample.counts) << sample.name;
    }
}

TEST_F(Sample, SmithCreek_HasItsAlternativesAndOutcomes)
{
    Load("smith-creek");
    EXPECT_THAT(
        Select("SELECT ItemKey, ItemName, Heading, ItemText, ChildIndex FROM Items WHERE ParentKey = 26"),
        ElementsAre("297|A|Full perimeter control|null|1",
                    "298|B|Confine on Wagon Road and Divide Ridge|null|2",
                    "299|C|Monitor with point protection|null|3"));
    EXPECT_THAT(
        Select("SELECT ItemKey, ParentKey, ChildIndex, FireSize, ContainTime, ControlTime, Success, "
               "DailyContainCost, DailyControlCost, AdjustedCost, CostSource FROM Outcomes ORDER BY ItemKey"),
        ElementsAre("1|0|1|24000.0|50|80|0.0|null|null|31000000|8",
                    "2|297|1|2400.0|9|21|55.0|null|null|null|2",
                    "3|297|2|null|null|null|-1.0|null|null|null|1",
                    "4|298|1|6200.0|16|40|75.0|null|null|null|2",
                    "5|298|2|9800.0|24|55|60.0|430000.0|60000.0|null|4",
                    "6|299|1|11500.0|45|75|60.0|null|null|null|1",
                    "7|299|2|null|null|null|-1.0|null|null|null|1"));
}

TEST_F(Sample, SmithCreek_KeepsPlainTextsPlain)
{
    Load("smith-creek");
    EXPECT_EQ(One("SELECT * FROM Items WHERE ItemKey = 57"), "57|Current Fire Size||1150||null|null");
    EXPECT_EQ(One("SELECT ItemName || ': ' || ItemText FROM Items WHERE ItemKey = 306"),
              "Old Bell Guard Station: Log building of 1924. The money value is the cost of reconstruction "
              "and does "
              "not express its meaning.");
    EXPECT_EQ(
        One("SELECT CostRationale FROM Outcomes WHERE ItemKey = 5"),
        "Daily rate: the planned force plus ten engines and two helicopters until containment, then patrol.");
    EXPECT_EQ(One("SELECT Value || ' ' || Description FROM Scores WHERE OutcomeKey = 6 AND CriterionKey = 7"),
              "9.0 Almost no one works among the snags.");
    EXPECT_EQ(One("SELECT Value || ' ' || quote(Description) FROM Scores WHERE OutcomeKey = 1 AND "
                  "CriterionKey = 3"),
              "1.0 ''");
}

TEST_F(Sample, SmithCreek_MakesMarkedUpTextsRich)
{
    Load("smith-creek");
    EXPECT_THAT(
        One("SELECT Body FROM Items WHERE ItemKey = 297"),
        HasSubstr(
            R"(\pard {\listtext \u8226 \tab}\ls1\ilvl0\fi-360\li360\tx360 \b Harlan Bench:\b0  two )"
            R"(engines patrol; no structure protection is planned beyond that.\par \pard \par \pard The)"));
    EXPECT_THAT(
        One("SELECT Explanation FROM Objectives WHERE \"Key\" = 4"),
        HasSubstr(
            R"(\plain\f0\fs20 \pard Protect the municipal watershed and the native trout of lower Smith )"
            R"(Creek:\par \pard {\listtext \u8226 \tab}\ls1)"));
    EXPECT_THAT(One("SELECT Heading || Body FROM Items WHERE ItemKey = 235"),
                HasSubstr("Seasonal Conditions{\\rtf1"));
    EXPECT_EQ(One("SELECT COUNT(*) FROM Items WHERE ItemKey IN (81, 291) AND length(ItemText) > 150"), "2");
}

TEST_F(Sample, SmithCreek_HasItsLossesAndCosts)
{
    Load("smith-creek");
    EXPECT_THAT(Select("SELECT * FROM ValuesAtRisk ORDER BY ItemKey LIMIT 2"),
                ElementsAre("300|14500000.0|100", "301|1900000.0|100"));
    EXPECT_THAT(
        Select("SELECT OutcomeKey, ItemLoss FROM ItemImpacts WHERE ItemKey = 300 ORDER BY OutcomeKey"),
        ElementsAre("1|14500000", "2|0", "4|0", "5|1400000", "6|2600000"));
    EXPECT_THAT(
        Select("SELECT SizeClass, TopSize, Cost FROM SuppressionPerAcreCost WHERE SizeClass > 3"),
        ElementsAre("4|10000.0|1050.0", "5|0.0|540.0", "6|0.0|0.0", "7|0.0|0.0", "8|0.0|0.0", "9|0.0|0.0"));
    // By list: 6,780,000 and 7,690,000 after rounding to three digits.
    EXPECT_THAT(
        Select("SELECT OutcomeKey, SUM(Quantity * iif(UnitType = 'time', Periods, 1) * UnitCost) FROM SRUses "
               "JOIN SRTypes ON SRTypes.ItemKey = SRTypeKey GROUP BY OutcomeKey"),
        ElementsAre("2|6780700", "4|7687000"));
    EXPECT_THAT(Select("SELECT * FROM SRUses WHERE OutcomeKey = 2 ORDER BY ItemIndex LIMIT 2"),
                ElementsAre("1|2|1|1|6|9", "2|2|2|2|4|14"));
    // A type by item without periods counts one.
    EXPECT_THAT(Select("SELECT * FROM SRUses WHERE SRTypeKey = 25"), ElementsAre("13|2|13|25|18|1"));
}

TEST_F(Sample, SmithCreek_ChainsItsSafetyIssues)
{
    Load("smith-creek");
    EXPECT_THAT(
        Select("SELECT \"Key\", Name, ChildKey, SiblingKey, Priority FROM Objectives WHERE ParentKey = 2"),
        ElementsAre("7|Snags and down timber in the dead lodgepole|null|8|10",
                    "8|One road out of Harlan Bench|null|9|10",
                    "9|Lower canyon without safety zones|null|10|10",
                    "10|Aircraft in smoke and a narrow canyon|null|0|10"));
    EXPECT_EQ(One("SELECT ChildKey FROM Objectives WHERE \"Key\" = 2"), "7");
}

TEST_F(Sample, JuniperGap_LeavesWhatItDoesNotName)
{
    Load("juniper-gap");
    EXPECT_EQ(One("SELECT COUNT(DISTINCT Body) FROM Items WHERE ItemKey IN (232, 233, 235, 88, 237, 291, "
                  "292, 298)"),
              "1");
    EXPECT_THAT(
        Select(
            "SELECT FireSize, ContainTime, Success, CostSource, AdjustedCost, SuccessRationale FROM Outcomes "
            "WHERE ItemKey = 4"),
        ElementsAre("2600.0|2|80.0|1|null|null"));
    EXPECT_THAT(Select("SELECT OutcomeKey, CriterionKey, Value FROM Scores"),
                ElementsAre("2|3|8.0", "2|4|7.0", "2|7|6.0"));
    EXPECT_EQ(One("SELECT SUM(Cost) FROM SuppressionPerAcreCost"), "0.0");
    EXPECT_EQ(One("SELECT COUNT(*) FROM Items WHERE ItemKey = 217"), "0");
}

TEST_F(Sample, GraniteFork_AddsTopicsAndTypesOfItsOwn)
{
    Load("granite-fork-complex");
    EXPECT_THAT(
        Select("SELECT ItemKey, ItemName, Heading, ItemText, ParentKey, ChildIndex FROM Items "
               "WHERE ItemKey IN (297, 298, 325) ORDER BY ItemKey"),
        ElementsAre(
            "297|Smoke and Air Quality|Smoke and Air Quality||22|9",
            "298|Cultural Resources and Sensitive Sites|Cultural Resources and Sensitive Sites||22|10",
            "325|Information for the next review|Information for the next review||28|7"));
    EXPECT_THAT(
        Select("SELECT * FROM SRTypes WHERE ItemKey > 35"),
        ElementsAre("36|null|36|Sprinkler and pump unit for homes (4 people)|Sprinkler unit|time|days|3800",
                    "37|null|37|Repair of dozer line|Line repair|item|miles|4500"));
}

TEST_F(Sample, GraniteFork_HasLongNamesAndRareCharacters)
{
    Load("granite-fork-complex");
    EXPECT_EQ(One("SELECT SUM(length(ItemName) >= 36) || ' ' || SUM(length(ItemName) = 36) || ' ' || "
                  "SUM(length(ItemName) = 35) FROM Items WHERE ParentKey = 23"),
              "5 1 1");
    const auto bodies = Select("SELECT Body FROM Items WHERE ParentKey = 22");
    for (const std::string piece :
         {R"(4 to 90 \'b0F at )", R"(\u8805  \'bd in)", R"(the Ca\'f1ada s)", R"(150 \'b5g/m\'b3))"}) {
        EXPECT_THAT(bodies, Contains(HasSubstr(piece)));
    }
    EXPECT_THAT(
        One("SELECT Body FROM Items WHERE ItemKey = 291"),
        HasSubstr(R"({\listtext 5.\tab}\ls1\ilvl0\fi-360\li360\tx360 the Little Ocher homes, from the mouth )"
                  R"(upward, for as long as the triggers allow\par \pard \par \pard \b Target:\b0  88,000)"));
}

TEST_F(Sample, GraniteFork_HasBothFallbacksAndTheLongestList)
{
    Load("granite-fork-complex");
    EXPECT_THAT(
        Select("SELECT ItemKey, ParentKey, Success FROM Outcomes WHERE ChildIndex = 2 AND Success <> -1"),
        ElementsAre("5|300|55.0", "9|302|40.0"));
    EXPECT_EQ(One("SELECT MAX(lines) FROM (SELECT COUNT(*) AS lines FROM SRUses GROUP BY OutcomeKey)"), "32");
    EXPECT_EQ(One("SELECT COUNT(*) FROM (SELECT 1 FROM Scores WHERE Description <> '' GROUP BY OutcomeKey)"),
              "9");
}
