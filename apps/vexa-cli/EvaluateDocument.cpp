#include "model/g51Alternatives.h"
#include "model/g53Outcomes.h"
#include "session/g0Items.h"
#include "session/u14Properties.h"
#include "values/g33FMUs.h"
#include "values/g34NVCResources.h"
#include "values/g38SRTypes.h"
#include "vexa-cli/Attempt.h"
#include "vexa-cli/EvaluateParts.h"

namespace vexa_cli {

namespace {

constexpr Long kResources = 14;

void WriteFile(JsonWriter& json, const std::string& path)
{
    json.Key("file");
    json.Value(path);
    WriteFigure(json, "dataFormatID", [] { return u14Properties::Property_Get("DataFormatID"); });
    WriteFigure(json, "programID", [] { return u14Properties::Property_Get("ProgramID"); });
    WriteFigure(json, "useNVCGains", [] { return u14Properties::Property_GetOrAdd("UseNVCGains", "No"); });
    WriteFigure(json, "fireName", [] { return g0Items::GetItem(g0Items::FireName)->Body(); });
}

void WriteChoice(JsonWriter& json)
{
    WriteFigure(json, "selectedAlternativeKey", [] { return g51Alternatives::SelectedAlternativeKey(); });
    json.Key("mostCostEffectiveAlternativeKey");
    const auto best = Attempt([] { return g51Alternatives::MostCostEffectiveAlternative(); });
    if (best && *best) {
        json.Value((*best)->ItemKey());
    } else {
        json.Null();
    }
}

void WriteTree(JsonWriter& json, const char* name, const g41Objectives::Objectives* tree)
{
    WriteList(json, name, tree, [&](const std::shared_ptr<c41Objective>& objective) {
        json.BeginObject();
        WriteFigure(json, "itemKey", [&] { return objective->ItemKey(); });
        WriteFigure(json, "itemName", [&] { return objective->ItemName(); });
        WriteFigure(json, "parentKey", [&] { return objective->ParentKey(); });
        WriteFigure(json, "priority", [&] { return objective->Priority(); });
        WriteFigure(json, "weight", [&] { return objective->Weight(); });
        json.EndObject();
    });
}

void WriteTrees(JsonWriter& json, const KeyedBy& keyedBy)
{
    WriteTree(json, "objectives", keyedBy.objectives);
    WriteFigure(json, "totalObjectivePriority", g41Objectives::TotalObjectivePriority);
    WriteFigure(json, "objectiveCount", g41Objectives::ObjectiveCount);
    WriteTree(json, "safetyIssues", keyedBy.safetyIssues);
    WriteFigure(json, "totalSafetyPriority", g42SafetyIssues::TotalSafetyPriority);
    WriteFigure(json, "safetyIssueCount", g42SafetyIssues::SafetyIssueCount);
}

void WriteLandUnits(JsonWriter& json)
{
    const auto* units = AttemptReference(g33FMUs::FMUCollection);
    WriteList(json, "landUnits", units, [&](const c33FMU& unit) {
        json.BeginObject();
        WriteFigure(json, "itemKey", [&] { return unit.ItemKey(); });
        WriteFigure(json, "itemName", [&] { return unit.ItemName(); });
        json.EndObject();
    });
}

void WriteResources(JsonWriter& json)
{
    json.Key("resources");
    json.BeginArray();
    for (Long resource = 1; resource <= kResources; ++resource) {
        json.BeginObject();
        json.Key("index");
        json.Value(resource);
        WriteFigure(json, "name", [&] { return g34NVCResources::NVCResourceName(resource); });
        WriteFigure(
            json, "bResourceValueAnywhere", [&] { return g33FMUs::bResourceValueAnywhere(resource); });
        json.EndObject();
    }
    json.EndArray();
    WriteFigure(json, "bNoResourceValues", g33FMUs::bNoResourceValues);
}

void WriteThreatenedItems(JsonWriter& json, const KeyedBy& keyedBy)
{
    WriteList(json,
              "threatenedItems",
              keyedBy.threatenedItems,
              [&](const std::shared_ptr<c36ThreatenedItem>& item) {
                  json.BeginObject();
                  WriteFigure(json, "itemKey", [&] { return item->ItemKey(); });
                  WriteFigure(json, "itemName", [&] { return item->ItemName(); });
                  WriteFigure(json, "potentialLoss", [&] { return item->PotentialLoss(); });
                  WriteFigure(json, "probability", [&] { return item->Probability(); });
                  WriteFigure(json, "probabilityLabel", [&] { return item->ProbabilityLabel(); });
                  WriteFigure(json, "valueAtRisk", [&] { return item->ValueAtRisk(); });
                  json.EndObject();
              });
    WriteFigure(json, "totalValueAtRisk", g36ThreatenedItems::TotalValueAtRisk);
}

void WriteResourceTypes(JsonWriter& json)
{
    const auto* types = AttemptReference(g38SRTypes::SRTypeCollection);
    WriteList(json, "srTypes", types, [&](const std::shared_ptr<c38SRType>& type) {
        json.BeginObject();
        WriteFigure(json, "itemKey", [&] { return type->ItemKey(); });
        WriteFigure(json, "index", [&] { return type->Index(); });
        WriteFigure(json, "longName", [&] { return type->LongName(); });
        WriteFigure(json, "shortName", [&] { return type->ShortName(); });
        WriteFigure(json, "unitType", [&] { return type->UnitType(); });
        WriteFigure(json, "unitName", [&] { return type->UnitName(); });
        WriteFigure(json, "unitCost", [&] { return type->UnitCost(); });
        json.EndObject();
    });
}

void WriteAlternatives(JsonWriter& json, const KeyedBy& keyedBy)
{
    const auto* alternatives = AttemptReference(g51Alternatives::AlternativeCollection);
    WriteList(json, "alternatives", alternatives, [&](const std::shared_ptr<c51Alternative>& alternative) {
        WriteAlternative(json, keyedBy, *alternative);
    });
}

void WriteExtremeOutcome(JsonWriter& json, const KeyedBy& keyedBy)
{
    json.Key("extremeOutcome");
    if (const auto outcome = Attempt(g53Outcomes::ExtremeOutcome)) {
        WriteOutcome(json, keyedBy, **outcome);
    } else {
        json.Null();
    }
}

} // namespace

void WriteDocument(JsonWriter& json, const std::string& path)
{
    const KeyedBy keyedBy{AttemptReference(g41Objectives::ObjectiveCollection),
                          AttemptReference(g42SafetyIssues::SafetyIssueCollection),
                          AttemptReference(g36ThreatenedItems::ThreatenedItemCollection)};
    json.BeginObject();
    WriteFile(json, path);
    WriteChoice(json);
    WriteTrees(json, keyedBy);
    WriteLandUnits(json);
    WriteResources(json);
    WriteThreatenedItems(json, keyedBy);
    WriteResourceTypes(json);
    WriteAlternatives(json, keyedBy);
    WriteExtremeOutcome(json, keyedBy);
    json.EndObject();
}

} // namespace vexa_cli
