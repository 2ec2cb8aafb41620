#include "CliTest.h"

namespace {

using Evaluate = support::CliTest;
using support::Json;

// Key 297 is the first one that a new file allots. Its outcomes follow the Extreme one.
constexpr const char* kOneAlternative =
    "INSERT INTO Items (ItemKey, ItemName, Heading, ParentKey, ChildIndex) VALUES (297, 'A', 'Hold', 26, 1);"
    "INSERT INTO Outcomes (ItemKey, ParentKey, ChildIndex, FireSize, Success, CostSource) VALUES"
    " (2, 297, 1, 100, 100, 8), (3, 297, 2, 200, -1, 8);"
    "UPDATE Outcomes SET AdjustedCost = 1500.5 WHERE ItemKey = 2;"
    "INSERT INTO OutcomeFMZs VALUES (2, 0, 50, 0, 0, 0, 5, 0, 0), (3, 0, 50, 0, 0, 0, 5, 0, 0);";

std::vector<std::string> Names(const Json& object)
{
    std::vector<std::string> names;
    for (const auto& member : object.items()) {
        names.push_back(member.key());
    }
    return names;
}

std::string PropertiesCount(const std::string& file, const std::string& name)
{
    return support::QuerySql(file, "SELECT count(*) FROM Properties WHERE Property = '" + name + "'")
        .front()
        .front();
}

TEST_F(Evaluate, Document_HasItsMembersInOrder)
{
    const Json document = Evaluated(MakeFile(kOneAlternative));
    EXPECT_EQ(Names(document),
              (std::vector<std::string>{"file",
                                        "dataFormatID",
                                        "programID",
                                        "useNVCGains",
                                        "fireName",
                                        "selectedAlternativeKey",
                                        "mostCostEffectiveAlternativeKey",
                                        "objectives",
                                        "totalObjectivePriority",
                                        "objectiveCount",
                                        "safetyIssues",
                                        "totalSafetyPriority",
                                        "safetyIssueCount",
                                        "landUnits",
                                        "resources",
                                        "bNoResourceValues",
                                        "threatenedItems",
                                        "totalValueAtRisk",
                                        "srTypes",
                                        "alternatives",
                                        "extremeOutcome"}));
    EXPECT_EQ(Names(document["alternatives"][0]),
              (std::vector<std::string>{"itemKey",
                                        "itemName",
                                        "heading",
                                        "label",
                                        "outcomePercent",
                                        "expectedScore",
                                        "expectedSafetyScore",
                                        "expectedProtection",
                                        "expectedNVCLoss",
                                        "expectedLoss",
                                        "expectedCost",
                                        "estimatedCost",
                                        "estimatedSize",
                                        "expectedCategoryScore",
                                        "expectedWgtObjScore",
                                        "expectedRawObjScore",
                                        "expectedWgtSafetyScore",
                                        "expectedRawSafetyScore",
                                        "outcomes"}));
    const std::vector<std::string> outcome{"itemKey",
                                           "outcomeIndex",
                                           "shortName",
                                           "longName",
                                           "fullName",
                                           "bShow",
                                           "fireSize",
                                           "containTime",
                                           "containTimeString",
                                           "controlTime",
                                           "controlTimeString",
                                           "success",
                                           "totalScore",
                                           "safetyScore",
                                           "categoryScore",
                                           "weightedObjScore",
                                           "rawObjScore",
                                           "weightedSafetyScore",
                                           "rawSafetyScore",
                                           "estimatedLoss",
                                           "nvcLoss",
                                           "impactPerAcre",
                                           "nvcResourceLoss",
                                           "fmuPercent",
                                           "filPercent",
                                           "itemImpact",
                                           "singleItemImpact",
                                           "valueProtected",
                                           "singleItemProtected",
                                           "estimatedCost",
                                           "costSource",
                                           "costBySize",
                                           "costPerAcre",
                                           "srUseCost",
                                           "dailyCost",
                                           "dailyContainCost",
                                           "dailyControlCost",
                                           "adjustedCost",
                                           "srUses"};
    EXPECT_EQ(Names(document["alternatives"][0]["outcomes"][0]), outcome);
    EXPECT_EQ(Names(document["extremeOutcome"]), outcome);
}

TEST_F(Evaluate, Figures_AreThoseOfTheModel)
{
    const std::string file = MakeFile(std::string(kOneAlternative) +
                                      "INSERT INTO Items (ItemKey, Body) VALUES (11, 'Angsjo');"
                                      "INSERT INTO Properties VALUES ('SelectedAlternativeKey', '297');");
    const Json document = Evaluated(file);
    EXPECT_EQ(document["file"], file);
    EXPECT_EQ(document["fireName"], "Angsjo");
    EXPECT_EQ(document["useNVCGains"], "No");
    EXPECT_EQ(document["selectedAlternativeKey"], 297);
    EXPECT_EQ(document["mostCostEffectiveAlternativeKey"], 297);
    EXPECT_EQ(document["resources"].size(), 14U);
    EXPECT_EQ(document["landUnits"], Json::array());
    const Json& alternative = document["alternatives"][0];
    EXPECT_EQ(alternative["label"], "A. Hold");
    EXPECT_EQ(alternative["outcomePercent"], Json({100, 0, 0}));
    EXPECT_EQ(alternative["expectedCost"], 1500);
    const Json& target = alternative["outcomes"][0];
    EXPECT_EQ(target["longName"], "A. Hold - Target");
    EXPECT_EQ(target["fireSize"], "100");
    EXPECT_EQ(target["bShow"], true);
    EXPECT_EQ(alternative["outcomes"][1]["bShow"], false);
    EXPECT_EQ(target["adjustedCost"], 1500.5);
    EXPECT_EQ(target["nvcResourceLoss"].size(), 14U);
    EXPECT_EQ(target["fmuPercent"], Json::array());
    EXPECT_EQ(target["filPercent"], Json({{0, 0, 0, 100, 0, 0}}));
    EXPECT_EQ(document["extremeOutcome"]["longName"], "Extreme Outcome");
}

TEST_F(Evaluate, ByKeyMembers_HoldTheRoots)
{
    const Json outcome = Evaluated(MakeFile())["extremeOutcome"];
    EXPECT_EQ(Names(outcome["rawObjScore"]), (std::vector<std::string>{"1", "3", "4", "5", "6"}));
    EXPECT_EQ(Names(outcome["rawSafetyScore"]), (std::vector<std::string>{"2"}));
}

TEST_F(Evaluate, SingleFloats_AreWrittenInTheirOwnWidth)
{
    const std::string file =
        MakeFile("UPDATE SRTypes SET UnitCost = 0.1 WHERE ItemKey = (SELECT min(ItemKey) FROM SRTypes);"
                 "UPDATE Outcomes SET DailyContainCost = 16777.215, DailyControlCost = -0.0");
    const std::string out = Run({"evaluate", file}).out;
    EXPECT_NE(out.find("\"unitCost\": 0.1\n"), std::string::npos);
    EXPECT_NE(out.find("\"dailyContainCost\": 16777.215,"), std::string::npos);
    EXPECT_NE(out.find("\"dailyControlCost\": 0,"), std::string::npos);
    EXPECT_EQ(out.find("-0,"), std::string::npos);
}

TEST_F(Evaluate, NoAlternatives_NoneIsCostEffectiveAndNoneSelected)
{
    const Json document = Evaluated(MakeFile());
    EXPECT_EQ(document["alternatives"], Json::array());
    EXPECT_EQ(document["mostCostEffectiveAlternativeKey"], nullptr);
    EXPECT_EQ(document["selectedAlternativeKey"], 0);
    EXPECT_EQ(document["objectives"][0]["weight"], 1);
    EXPECT_EQ(document["objectives"][1]["weight"], nullptr)
        << "no row below the categories: a division by zero";
}

TEST_F(Evaluate, SelectionOfNoAlternative_IsNull)
{
    const Json document =
        Evaluated(MakeFile("INSERT INTO Properties VALUES ('SelectedAlternativeKey', '77')"));
    EXPECT_EQ(document["selectedAlternativeKey"], nullptr);
}

TEST_F(Evaluate, MissingFallbackRow_FailsItsAlternativeAlone)
{
    const Json document =
        Evaluated(MakeFile(std::string(kOneAlternative) + "DELETE FROM Outcomes WHERE ItemKey = 3"));
    const Json& alternative = document["alternatives"][0];
    EXPECT_EQ(alternative["outcomes"], nullptr);
    EXPECT_EQ(alternative["outcomePercent"], Json({nullptr, nullptr, nullptr}));
    EXPECT_EQ(alternative["expectedCost"], nullptr);
    EXPECT_EQ(alternative["expectedRawObjScore"]["3"], nullptr);
    EXPECT_EQ(alternative["label"], "A. Hold");
    EXPECT_EQ(document["extremeOutcome"]["itemKey"], 1);
}

TEST_F(Evaluate, MissingExtremeRow_FailsEveryExpectedValue)
{
    const Json document =
        Evaluated(MakeFile(std::string(kOneAlternative) + "DELETE FROM Outcomes WHERE ItemKey = 1"));
    EXPECT_EQ(document["extremeOutcome"], nullptr);
    const Json& alternative = document["alternatives"][0];
    EXPECT_EQ(alternative["expectedCost"], nullptr) << "a branch of 0 percent is computed all the same";
    EXPECT_EQ(alternative["estimatedCost"], 1500);
    EXPECT_EQ(alternative["outcomes"][0]["estimatedCost"], 1500.5);
    EXPECT_EQ(document["mostCostEffectiveAlternativeKey"], 297) << "a single one is compared with nobody";
}

TEST_F(Evaluate, UseOfAMissingType_LeavesNoListOfUses)
{
    const Json document =
        Evaluated(MakeFile(std::string(kOneAlternative) + "INSERT INTO SRUses VALUES (1, 2, 1, 9999, 1, 1)"));
    const Json& target = document["alternatives"][0]["outcomes"][0];
    EXPECT_EQ(target["srUses"], nullptr);
    EXPECT_EQ(target["srUseCost"], nullptr);
    EXPECT_EQ(target["estimatedCost"], 1500.5);
}

TEST_F(Evaluate, PortionsThatOverflow_LeaveTheirRowNull)
{
    const Json document =
        Evaluated(MakeFile(std::string(kOneAlternative) +
                           "UPDATE OutcomeFMZs SET FIL1Portion = 2147483647 WHERE OutcomeKey = 2"));
    const Json& target = document["alternatives"][0]["outcomes"][0];
    EXPECT_EQ(target["filPercent"], Json::array({nullptr}));
    EXPECT_EQ(target["nvcLoss"], nullptr);
    EXPECT_EQ(target["fmuPercent"], Json::array());
}

TEST_F(Evaluate, CircleOfObjectives_LeavesWhatNeedsThemNull)
{
    const Json document = Evaluated(
        MakeFile(std::string(kOneAlternative) + "UPDATE Objectives SET SiblingKey = 3 WHERE Key = 6"));
    EXPECT_EQ(document["objectives"], nullptr);
    EXPECT_EQ(document["objectiveCount"], nullptr);
    EXPECT_EQ(document["extremeOutcome"]["rawObjScore"], nullptr);
    EXPECT_EQ(document["alternatives"][0]["expectedScore"], nullptr);
    EXPECT_EQ(document["alternatives"][0]["expectedCost"], 1500);
    EXPECT_EQ(document["safetyIssues"].size(), 1U);
}

TEST_F(Evaluate, LandUnits_EachHaveTheirRows)
{
    const Json document = Evaluated(MakeFile(
        std::string(kOneAlternative) + "INSERT INTO FMZList VALUES (5, 'x', 'North'), (6, 'y', 'South');"
                                       "INSERT INTO OutcomeFMZs VALUES (2, 5, 1, 1, 1, 0, 0, 0, 0)"));
    EXPECT_EQ(document["landUnits"][1], Json({{"itemKey", 6}, {"itemName", "South"}}));
    const Json& target = document["alternatives"][0]["outcomes"][0];
    EXPECT_EQ(target["fmuPercent"], Json({100, 0}));
    EXPECT_EQ(target["filPercent"], Json({{50, 50, 0, 0, 0, 0}, {16, 16, 16, 16, 16, 16}}));
}

TEST_F(Evaluate, TextsThatAreNoUtf8_ComeOutAsUtf8)
{
    const Json document =
        Evaluated(MakeFile("INSERT INTO Items (ItemKey, Body) VALUES (11, CAST(x'436166E920001B' AS TEXT))"));
    EXPECT_TRUE(document["fireName"].is_string());
}

TEST_F(Evaluate, Reader_WritesNoPathAndAddsTheGainsRowOnly)
{
    const std::string file = MakeFile();
    Evaluated(file);
    EXPECT_EQ(PropertiesCount(file, "FullFileName"), "0");
    EXPECT_EQ(PropertiesCount(file, "UseNVCGains"), "1");
    const std::string before = support::ReadFile(file);
    Evaluated(file);
    EXPECT_TRUE(support::ReadFile(file) == before);
}

TEST_F(Evaluate, SeveralFiles_AreALineEachInTheirOrder)
{
    const std::string text = CopyLegacy("text.qel");
    const std::vector<std::string> files{CopySample("smith-creek"), text, CopySample("juniper-gap")};
    const Result result = Run({"evaluate", files[0], files[1], files[2]});
    EXPECT_EQ(result.status, 1);
    const std::vector<std::string> lines = Lines(result.out);
    ASSERT_EQ(lines.size(), 3U);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        EXPECT_EQ(Json::parse(lines[i])["file"], files[i]);
    }
    EXPECT_EQ(Names(Json::parse(lines[1])), (std::vector<std::string>{"file", "error"}));
    EXPECT_EQ(Json::parse(lines[1])["error"],
              "The file does not appear to be a VEXA Plus file. It cannot be opened.");
    EXPECT_EQ(Json::parse(lines[2])["fireName"], "Juniper Gap") << "the stores of the first file are dropped";
    EXPECT_EQ(result.err, "The file does not appear to be a VEXA Plus file.\nIt cannot be opened.\n");
}

TEST_F(Evaluate, SeveralFiles_OneLineSaysTheSameAsOneFile)
{
    const std::string file = CopySample("smith-creek");
    const std::vector<std::string> lines = Lines(Run({"evaluate", file, file}).out);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0], lines[1]);
    EXPECT_TRUE(Json::parse(lines[0]) == Evaluated(file));
}

TEST_F(Evaluate, CancelledAndFailedFiles_FailureOutweighsCancel)
{
    const std::string old = CopyLegacy("05.01.02-twin-level1.sqlite.qel");
    const std::string text = CopyLegacy("text.qel");
    const std::string good = MakeFile();
    EXPECT_EQ(Run({"evaluate", old}).status, 3);
    EXPECT_EQ(Run({"evaluate", old}).out, "");
    EXPECT_EQ(Run({"evaluate", good, old}).status, 3);
    EXPECT_EQ(Run({"evaluate", old, good}).status, 3);
    EXPECT_EQ(Run({"evaluate", old, text, good}).status, 1);
    EXPECT_EQ(Run({"evaluate", text, old}).status, 1);
    EXPECT_EQ(Run({"evaluate", good, good}).status, 0);
    const Json line = Json::parse(Lines(Run({"evaluate", good, old}).out)[1]);
    EXPECT_TRUE(line["error"].get<std::string>().starts_with("This file must be modified")) << line.dump();
}

} // namespace
