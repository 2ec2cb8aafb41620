#include "datafile_builder/FireLoader.h"

#include "datafile_builder/AlternativeLoader.h"
#include "datafile_builder/FireKeys.h"
#include "datafile_builder/NewRows.h"
#include "datafile_builder/ResourceTypes.h"

#include <algorithm>
#include <array>

namespace datafile_builder {

namespace {

constexpr Long situationItems = 22;
constexpr Long threatenedItems = 23;
constexpr Long summaryItems = 28;

void CheckShape(const SourceObject& fire)
{
    fire.AllowOnly({"Shape",
                    "Title",
                    "About",
                    "Properties",
                    "Items",
                    "SituationItems",
                    "Objectives",
                    "SafetyIssues",
                    "SRTypes",
                    "SuppressionPerAcreCost",
                    "Alternatives",
                    "ExtremeOutcome",
                    "ThreatenedItems",
                    "SelectedAlternative",
                    "SummaryItems"});
    if (fire.Whole("Shape") != 1) fire.Refuse("Shape must be 1");
}

void WriteProperties(DatafileWriter& writer, const SourceObject& fire)
{
    if (!fire.Has("Properties")) return;
    const SourceObject properties = fire.Object("Properties");
    for (const std::string& name : properties.Names())
        SetProperty(writer, name, properties.Text(name));
}

void WriteFixedItem(DatafileWriter& writer, const SourceObject& item)
{
    static constexpr std::array<Long, 12> fixedItems{11, 52, 53, 54, 55, 57, 61, 62, 217, 221, 222, 223};
    item.AllowOnly({"ItemKey", "ItemName", "Body"});
    const Long key = item.Whole("ItemKey");
    if (std::find(fixedItems.begin(), fixedItems.end(), key) == fixedItems.end()) {
        item.Refuse("no fixed item has the key " + std::to_string(key));
    }
    // The first save of a fixed item writes its four texts and leaves the place in a group null.
    writer.Add("Items",
               {{"ItemKey", std::int64_t{key}},
                {"ItemName", item.Text("ItemName")},
                {"Heading", std::string{}},
                {"Body", item.Text("Body")},
                {"ItemText", std::string{}}});
}

void FillTopic(DatafileWriter& writer, const SourceObject& topic, Long group)
{
    const std::int64_t key{topic.Whole("ItemKey")};
    const auto found = writer.FirstRow("SELECT 1 FROM Items WHERE ItemKey = ? AND ParentKey = ?",
                                       {key, std::int64_t{group}});
    if (found.empty()) topic.Refuse("the template has no such topic: " + std::to_string(key));
    if (topic.Has("ItemName") || topic.Has("Heading")) topic.Refuse("a topic of the template keeps its name");
    writer.Change("Items", {{"ItemKey", key}}, {{"Body", topic.RichText("Body")}});
}

void AddTopic(DatafileWriter& writer, const SourceObject& topic, Long group)
{
    const Long key = AddItem(writer, topic.Text("ItemName"), group);
    writer.Change(
        "Items",
        {{"ItemKey", std::int64_t{key}}},
        {{"Heading", topic.Text("Heading")}, {"Body", topic.RichText("Body")}, {"ItemText", std::string{}}});
}

void WriteTopics(DatafileWriter& writer, const std::vector<SourceObject>& topics, Long group)
{
    for (const SourceObject& topic : topics) {
        topic.AllowOnly({"ItemKey", "ItemName", "Heading", "Body"});
        topic.Has("ItemKey") ? FillTopic(writer, topic, group) : AddTopic(writer, topic, group);
    }
}

void WriteObjective(DatafileWriter& writer, const SourceObject& objective)
{
    objective.AllowOnly({"Key", "Explanation"});
    const std::int64_t key{objective.Whole("Key")};
    if (writer.FirstRow("SELECT 1 FROM Objectives WHERE \"Key\" = ?", {key}).empty()) {
        objective.Refuse("the template has no objective " + std::to_string(key));
    }
    writer.Change("Objectives", {{"Key", key}}, {{"Explanation", objective.RichText("Explanation")}});
}

void WriteSafetyIssue(DatafileWriter& writer, const SourceObject& issue, FireKeys& keys)
{
    issue.AllowOnly({"Ref", "Name", "Priority", "Explanation"});
    const Long key =
        AddSafetyIssue(writer, issue.Text("Name"), issue.RichText("Explanation"), issue.Whole("Priority"));
    keys.AddCriterion(issue, issue.Text("Ref"), key);
}

void WriteResourceTypes(DatafileWriter& writer, const std::vector<SourceObject>& types)
{
    for (const SourceObject& type : types) {
        type.AllowOnly({"LongName", "ShortName", "UnitType", "UnitName", "UnitCost"});
        const auto count = writer.FirstRow("SELECT COUNT(*) FROM SRTypes", {});
        AddResourceType(writer, type, WholeNumber(count.at(0)) + 1);
    }
}

void WriteCost(DatafileWriter& writer, const SourceObject& cost)
{
    static constexpr std::array columns{Column{"TopSize", ColumnKind::single},
                                        Column{"Cost", ColumnKind::single}};
    cost.AllowOnly({"SizeClass", "TopSize", "Cost"});
    const Long sizeClass = cost.Whole("SizeClass");
    if (sizeClass < 1 || sizeClass > 9) cost.Refuse("SizeClass must be 1 to 9");
    writer.Change("SuppressionPerAcreCost",
                  {{"FMZKey", std::int64_t{0}}, {"SizeClass", std::int64_t{sizeClass}}},
                  cost.Cells(columns));
}

void WriteExtremeOutcome(DatafileWriter& writer, const SourceObject& fire, FireKeys& keys)
{
    const auto row =
        writer.FirstRow("SELECT ItemKey FROM Outcomes WHERE ParentKey = 0 AND ChildIndex = 1", {});
    if (row.empty()) fire.Refuse("the template has no extreme outcome");
    const Long key = WholeNumber(row.front());
    keys.AddOutcome(fire, "Extreme", key);
    if (fire.Has("ExtremeOutcome")) FillOutcome(writer, fire.Object("ExtremeOutcome"), key, keys);
}

void CheckPotentialLoss(const SourceObject& item)
{
    const SourceObject losses = item.Object("ItemLoss");
    platform::Currency highest;
    for (const std::string& outcome : losses.Names())
        highest = std::max(highest, losses.Money(outcome));
    if (item.Money("PotentialLoss") != highest)
        item.Refuse("PotentialLoss must be the highest of the losses");
}

void WriteThreatenedItem(DatafileWriter& writer, const SourceObject& item, const FireKeys& keys)
{
    constexpr std::int64_t certain = 100; // percent; this edition knows no other
    item.AllowOnly({"Ref", "ItemName", "PotentialLoss", "ItemText", "ItemLoss"});
    CheckPotentialLoss(item);
    const std::int64_t key{AddItem(writer, item.Text("ItemName"), threatenedItems)};
    writer.Change("Items", {{"ItemKey", key}}, {{"ItemText", item.TextOr("ItemText", "")}});
    writer.Add("ValuesAtRisk",
               {{"ItemKey", key},
                {"PotentialLoss", SingleCell(item.Number("PotentialLoss"))},
                {"Probability", certain}});
    const SourceObject losses = item.Object("ItemLoss");
    for (const std::string& outcome : losses.Names()) {
        writer.Add("ItemImpacts",
                   {{"OutcomeKey", std::int64_t{keys.Outcome(losses, outcome)}},
                    {"ItemKey", key},
                    {"ItemLoss", CurrencyCell(losses.Money(outcome))}});
    }
}

void WriteSelectedAlternative(DatafileWriter& writer, const SourceObject& fire, const FireKeys& keys)
{
    if (!fire.Has("SelectedAlternative")) return;
    const Long key = keys.Alternative(fire, fire.Text("SelectedAlternative"));
    SetProperty(writer, "SelectedAlternativeKey", std::to_string(key));
}

} // namespace

void WriteFire(DatafileWriter& writer, const SourceObject& fire)
{
    CheckShape(fire);
    FireKeys keys(writer);
    WriteProperties(writer, fire);
    for (const SourceObject& item : fire.Objects("Items"))
        WriteFixedItem(writer, item);
    WriteTopics(writer, fire.Objects("SituationItems"), situationItems);
    for (const SourceObject& objective : fire.Objects("Objectives"))
        WriteObjective(writer, objective);
    for (const SourceObject& issue : fire.Objects("SafetyIssues"))
        WriteSafetyIssue(writer, issue, keys);
    WriteResourceTypes(writer, fire.Objects("SRTypes"));
    for (const SourceObject& cost : fire.Objects("SuppressionPerAcreCost"))
        WriteCost(writer, cost);
    for (const SourceObject& alternative : fire.Objects("Alternatives"))
        WriteAlternative(writer, alternative, keys);
    WriteExtremeOutcome(writer, fire, keys);
    for (const SourceObject& item : fire.Objects("ThreatenedItems"))
        WriteThreatenedItem(writer, item, keys);
    WriteSelectedAlternative(writer, fire, keys);
    WriteTopics(writer, fire.Objects("SummaryItems"), summaryItems);
}

} // namespace datafile_builder
