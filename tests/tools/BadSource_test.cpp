#include "tools/BuildFolder.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <gmock/gmock.h>

using nlohmann::json;
using testing::ElementsAre;
using testing::HasSubstr;
using tools_test::BuildFolder;
using tools_test::BuildResult;
using tools_test::ReadAll;
using tools_test::Resource;
using tools_test::RunBuilder;

namespace {

/// A change that spoils a good source, and what the builder must say about it.
struct Spoiling
{
    std::string patch; // as of RFC 6902
    std::string message;
};

json ReadSource(const std::string& path) { return json::parse(ReadAll(Resource(path))); }

std::string Spoil(const json& source, const std::string& patch)
{
    return source.patch(json::parse(patch)).dump();
}

const std::vector<Spoiling> badFires{
    {R"([{"op":"replace","path":"/Shape","value":2}])", "Shape must be 1"},
    {R"([{"op":"remove","path":"/Shape"}])", "Shape is missing"},
    {R"([{"op":"add","path":"/Topics","value":[]}])", "unknown member Topics"},
    {R"([{"op":"replace","path":"/Items/0/ItemKey","value":297}])",
     "Items[0]: no fixed item has the key 297"},
    {R"([{"op":"remove","path":"/Items/1/Body"}])", "Items[1]: Body is missing"},
    {R"([{"op":"replace","path":"/Items/1/ItemKey","value":11}])", "UNIQUE constraint failed: Items.ItemKey"},
    {R"([{"op":"replace","path":"/SituationItems/0/ItemKey","value":291}])",
     "SituationItems[0]: the template has no such topic: 291"},
    {R"([{"op":"add","path":"/SituationItems/0/Heading","value":"x"}])",
     "SituationItems[0]: a topic of the template keeps its name"},
    {R"([{"op":"remove","path":"/SituationItems/0/ItemKey"}])", "SituationItems[0]: ItemName is missing"},
    {R"([{"op":"replace","path":"/SituationItems/0/Body","value":"**open"}])",
     "SituationItems[0]: Body: \"**\" without"},
    {R"([{"op":"replace","path":"/Objectives/0/Key","value":7}])",
     "Objectives[0]: the template has no objective 7"},
    {R"([{"op":"remove","path":"/SafetyIssues/0/Ref"}])", "SafetyIssues[0]: Ref is missing"},
    {R"([{"op":"replace","path":"/SafetyIssues/1/Ref","value":"S1"}])",
     "SafetyIssues[1]: \"S1\" is there twice"},
    {R"([{"op":"replace","path":"/SuppressionPerAcreCost/0/SizeClass","value":10}])",
     "SizeClass must be 1 to 9"},
    {R"([{"op":"replace","path":"/SuppressionPerAcreCost/0/Cost","value":1e39}])", "smith-creek"},
    {R"([{"op":"add","path":"/SRTypes","value":[{"LongName":"x","ShortName":"Crew T1","UnitType":"time","UnitName":"days","UnitCost":1}]}])",
     "SRTypes[0]: there is already a resource type \"Crew T1\""},
    {R"([{"op":"add","path":"/SRTypes","value":[{"LongName":"x","ShortName":"y","UnitType":"Time","UnitName":"days","UnitCost":1}]}])",
     "SRTypes[0]: UnitType must be \"time\" or \"item\""},
    {R"([{"op":"add","path":"/SRTypes","value":[{"LongName":"x","ShortName":"y","UnitType":"time","UnitName":"days","UnitCost":0.00001}]}])",
     "SRTypes[0]: UnitCost has more than four decimals"},
    {R"([{"op":"add","path":"/SRTypes","value":[{"LongName":"x","ShortName":"y","UnitType":"time","UnitName":"days"}]}])",
     "SRTypes[0]: UnitCost is missing"},
    {R"([{"op":"remove","path":"/Alternatives/0/Outcomes/Target"}])",
     "Alternatives[0].Outcomes: Target is missing"},
    {R"([{"op":"replace","path":"/Alternatives/1/ItemName","value":"A"}])",
     "Alternatives[1]: \"A\" is there twice"},
    {R"([{"op":"replace","path":"/Alternatives/0/Outcomes/Target/FireSize","value":"2400"}])",
     "Alternatives[0].Outcomes.Target: FireSize must be a number"},
    {R"([{"op":"replace","path":"/Alternatives/0/Outcomes/Target/ContainTime","value":1.5}])",
     "ContainTime must be a whole number"},
    {R"([{"op":"replace","path":"/Alternatives/0/Outcomes/Target/ContainTime","value":2147483648}])",
     "ContainTime is too large"},
    {R"([{"op":"replace","path":"/Alternatives/0/Outcomes/Target/CostSource","value":3}])",
     "CostSource must be 1, 2, 4 or 8"},
    {R"([{"op":"replace","path":"/Alternatives/0/Outcomes/Target/Success","value":101}])",
     "Success must be 0 to 100"},
    {R"([{"op":"replace","path":"/Alternatives/0/Outcomes/Target/SRUses/2/SRType","value":"Crew T9"}])",
     "Alternatives[0].Outcomes.Target.SRUses[2]: there is no resource type \"Crew T9\""},
    {R"([{"op":"remove","path":"/Alternatives/0/Outcomes/Target/SRUses/0/Periods"}])",
     "SRUses[0]: Periods is missing"},
    {R"([{"op":"remove","path":"/Alternatives/0/Outcomes/Target/SRUses/0/Quantity"}])",
     "SRUses[0]: Quantity is missing"},
    {R"([{"op":"replace","path":"/Alternatives/0/Outcomes/Target/Scores/0/Criterion","value":7}])",
     "Alternatives[0].Outcomes.Target.Scores[0]: there is no criterion \"7\""},
    {R"([{"op":"replace","path":"/Alternatives/0/Outcomes/Target/Scores/0/Criterion","value":1}])",
     "there is no criterion \"1\""},
    {R"([{"op":"replace","path":"/Alternatives/0/Outcomes/Target/Scores/0/Criterion","value":"S9"}])",
     "there is no criterion \"S9\""},
    {R"([{"op":"replace","path":"/Alternatives/0/Outcomes/Target/Scores/0/Criterion","value":4}])",
     "Scores[1]: this criterion is rated already"},
    {R"([{"op":"replace","path":"/Alternatives/0/Outcomes/Target/Scores/0/Value","value":11}])",
     "Value must be 0 to 10"},
    {R"([{"op":"add","path":"/ThreatenedItems/0/ItemLoss/A.Fallback","value":0}])",
     "ThreatenedItems[0].ItemLoss: there is no outcome \"A.Fallback\""},
    {R"([{"op":"replace","path":"/ThreatenedItems/0/PotentialLoss","value":1}])",
     "ThreatenedItems[0]: PotentialLoss must be the highest of the losses"},
    {R"([{"op":"replace","path":"/SelectedAlternative","value":"Z"}])", "there is no alternative \"Z\""},
    {R"([{"op":"replace","path":"/Alternatives","value":{}}])", "Alternatives must be a list"},
    {R"([{"op":"replace","path":"/Alternatives/0","value":1}])", "Alternatives[0]: an object is due here"},
};

const std::vector<Spoiling> badTemplates{
    {R"([{"op":"remove","path":"/NVCResources"}])", "NVCResources is missing"},
    {R"([{"op":"replace","path":"/NVCResources/3","value":4}])", "NVCResources must be a list of texts"},
    {R"([{"op":"add","path":"/Item","value":[]}])", "unknown member Item"},
    {R"([{"op":"remove","path":"/SituationItems/2/ItemText"}])", "SituationItems[2]: ItemText is missing"},
    {R"([{"op":"replace","path":"/SRTypes/1/ShortName","value":"Crew T1"}])",
     "SRTypes[1]: there is already a resource type \"Crew T1\""},
    {R"([{"op":"replace","path":"/SummaryItems/0/ItemKey","value":81}])",
     "UNIQUE constraint failed: Items.ItemKey"},
};

} // namespace

TEST(BadSource, SpoiltFire_IsRefusedWithItsPlaceAndLeavesNothing)
{
    const json source = ReadSource("samples/smith-creek.json");
    for (const auto& [patch, message] : badFires) {
        SCOPED_TRACE(patch);
        const BuildFolder folder;
        folder.BuildTemplate();
        const auto fire = folder.Write("smith-creek.json", Spoil(source, patch));
        const BuildResult result = folder.BuildFire(fire, "out.qel");
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_THAT(result.errors, HasSubstr(message));
        EXPECT_THAT(result.errors, HasSubstr(fire.string() + ": "));
        EXPECT_THAT(folder.Files(), ElementsAre("QEL.new", "smith-creek.json"));
    }
}

TEST(BadSource, SpoiltTemplate_IsRefusedAndLeavesNothing)
{
    const json source = ReadSource("template/content.json");
    for (const auto& [patch, message] : badTemplates) {
        SCOPED_TRACE(patch);
        const BuildFolder folder;
        const auto content = folder.Write("content.json", Spoil(source, patch));
        const BuildResult result =
            RunBuilder({"template", Resource("template/schema.sql"), content, folder.Path("QEL.new")});
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_THAT(result.errors, HasSubstr(message));
        EXPECT_THAT(folder.Files(), ElementsAre("content.json"));
    }
}

TEST(BadSource, AFailedBuild_KeepsTheFileOfTheLastOne)
{
    const BuildFolder folder;
    const auto sample = folder.BuildSample("juniper-gap");
    const std::string before = ReadAll(sample);
    const auto fire = folder.Write("fire.json", "{}");
    EXPECT_EQ(folder.BuildFire(fire, "juniper-gap.qel").exitCode, 1);
    EXPECT_EQ(ReadAll(sample), before);
}

TEST(BadSource, ADraftOfABrokenBuild_IsReplaced)
{
    const BuildFolder folder;
    folder.Write("juniper-gap.qel.draft", "left behind");
    folder.BuildSample("juniper-gap");
    EXPECT_THAT(folder.Files(), ElementsAre("QEL.new", "juniper-gap.qel"));
}

TEST(BadSource, WhatIsNoJson_IsRefused)
{
    const BuildFolder folder;
    folder.BuildTemplate();
    for (const std::string text : {"", "{", "[]", "{\"Shape\": 1} x", "{\"Shape\": \"\xFF\"}"}) {
        const BuildResult result = folder.BuildFire(folder.Write("fire.json", text), "out.qel");
        EXPECT_EQ(result.exitCode, 1) << text;
        EXPECT_THAT(result.errors, HasSubstr("fire.json: ")) << text;
    }
    EXPECT_THAT(folder.Files(), ElementsAre("QEL.new", "fire.json"));
}

TEST(BadSource, MissingFiles_AreTold)
{
    const BuildFolder folder;
    const std::string fire = Resource("samples/juniper-gap.json");
    EXPECT_THAT(RunBuilder({"fire", folder.Path("none.new"), fire, folder.Path("out.qel")}).errors,
                HasSubstr("none.new"));
    folder.BuildTemplate();
    EXPECT_THAT(folder.BuildFire(folder.Path("none.json"), "out.qel").errors,
                HasSubstr("none.json: cannot be read"));
    EXPECT_THAT(folder.Files(), ElementsAre("QEL.new"));
}

TEST(BadSource, ATemplateThatIsNoDatabase_IsRefused)
{
    const BuildFolder folder;
    folder.Write("QEL.new", std::string(5000, 'x'));
    EXPECT_EQ(folder.BuildFire(Resource("samples/juniper-gap.json"), "out.qel").exitCode, 1);
    EXPECT_THAT(folder.Files(), ElementsAre("QEL.new"));
}

TEST(BadSource, BadArguments_AreAnsweredWithTheUsage)
{
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{}, {"template"}, {"fire", "a", "b"}, {"other", "a", "b", "c"}}) {
        const BuildResult result = RunBuilder(arguments);
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_THAT(result.errors, HasSubstr("usage: "));
    }
}
