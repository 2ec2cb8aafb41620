#include "model/c53Outcome.h"
#include "values/c63BurnAreaList.h"
#include "values/c67SRUseList.h"
#include "vexa-cli/Attempt.h"
#include "vexa-cli/EvaluateParts.h"

namespace vexa_cli {

namespace {

constexpr Long kResources = 14;

void WriteIdentity(JsonWriter& json, const c53Outcome& outcome)
{
    WriteFigure(json, "itemKey", [&] { return outcome.ItemKey(); });
    WriteFigure(json, "outcomeIndex", [&] { return outcome.OutcomeIndex(); });
    WriteFigure(json, "shortName", [&] { return outcome.ShortName(); });
    WriteFigure(json, "longName", [&] { return outcome.LongName(); });
    WriteFigure(json, "fullName", [&] { return outcome.FullName(); });
    WriteFigure(json, "bShow", [&] { return outcome.bShow(); });
}

void WritePrediction(JsonWriter& json, const c53Outcome& outcome)
{
    WriteFigure(json, "fireSize", [&] { return outcome.FireSize(); });
    WriteFigure(json, "containTime", [&] { return outcome.ContainTime(); });
    WriteFigure(json, "containTimeString", [&] { return outcome.ContainTimeString(); });
    WriteFigure(json, "controlTime", [&] { return outcome.ControlTime(); });
    WriteFigure(json, "controlTimeString", [&] { return outcome.ControlTimeString(); });
    WriteFigure(json, "success", [&] { return outcome.Success(); });
}

void WriteScores(JsonWriter& json, const KeyedBy& keyedBy, c53Outcome& outcome)
{
    WriteFigure(json, "totalScore", [&] { return outcome.TotalScore(); });
    WriteFigure(json, "safetyScore", [&] { return outcome.SafetyScore(); });
    WriteByKey(
        json, "categoryScore", keyedBy.objectives, [&](Long key) { return outcome.CategoryScore(key); });
    WriteByKey(json, "weightedObjScore", keyedBy.objectives, [&](Long key) {
        return outcome.WeightedObjScore(key);
    });
    WriteByKey(json, "rawObjScore", keyedBy.objectives, [&](Long key) { return outcome.RawObjScore(key); });
    WriteByKey(json, "weightedSafetyScore", keyedBy.safetyIssues, [&](Long key) {
        return outcome.WeightedSafetyScore(key);
    });
    WriteByKey(
        json, "rawSafetyScore", keyedBy.safetyIssues, [&](Long key) { return outcome.RawSafetyScore(key); });
}

std::vector<Long> FMUPercents(c53Outcome& outcome)
{
    std::vector<Long> percents;
    for (Long position = 1; position <= outcome.BurnAreaCollection().Count(); ++position) {
        percents.push_back(outcome.FMUPercent(position));
    }
    return percents;
}

/// The areas of all land units; with none, the default area.
std::vector<const c64BurnArea*> BurnAreas(c53Outcome& outcome)
{
    std::vector<const c64BurnArea*> areas;
    for (const c64BurnArea& area : outcome.BurnAreaCollection()) {
        areas.push_back(&area);
    }
    if (areas.empty()) {
        areas.push_back(&outcome.BurnArea(0));
    }
    return areas;
}

std::vector<Long> FILPercents(const c64BurnArea& area)
{
    std::vector<Long> percents;
    for (Long fil = 1; fil <= c64BurnArea::kLevels; ++fil) {
        percents.push_back(area.FILPercent(fil));
    }
    return percents;
}

void WritePercents(JsonWriter& json, const std::optional<std::vector<Long>>& percents)
{
    if (!percents) {
        json.Null();
        return;
    }
    json.BeginArray();
    for (const Long percent : *percents) {
        json.Value(percent);
    }
    json.EndArray();
}

void WriteBurnAreas(JsonWriter& json, c53Outcome& outcome)
{
    json.Key("fmuPercent");
    WritePercents(json, Attempt([&] { return FMUPercents(outcome); }));
    const auto areas = Attempt([&] { return BurnAreas(outcome); });
    WriteList(json, "filPercent", areas ? &*areas : nullptr, [&](const c64BurnArea* area) {
        WritePercents(json, Attempt([&] { return FILPercents(*area); }));
    });
}

void WriteResourceLosses(JsonWriter& json, c53Outcome& outcome)
{
    json.Key("nvcResourceLoss");
    json.BeginArray();
    for (Long resource = 1; resource <= kResources; ++resource) {
        WriteFigure(json, [&] { return outcome.NVCResourceLoss(resource); });
    }
    json.EndArray();
}

void WriteLosses(JsonWriter& json, const KeyedBy& keyedBy, c53Outcome& outcome)
{
    WriteFigure(json, "estimatedLoss", [&] { return outcome.EstimatedLoss(); });
    WriteFigure(json, "nvcLoss", [&] { return outcome.NVCLoss(); });
    WriteFigure(json, "impactPerAcre", [&] { return outcome.ImpactPerAcre(); });
    WriteResourceLosses(json, outcome);
    WriteBurnAreas(json, outcome);
    WriteFigure(json, "itemImpact", [&] { return outcome.ItemImpact(); });
    WriteByKey(json, "singleItemImpact", keyedBy.threatenedItems, [&](Long key) {
        return outcome.SingleItemImpact(key);
    });
    WriteFigure(json, "valueProtected", [&] { return outcome.ValueProtected(); });
    WriteByKey(json, "singleItemProtected", keyedBy.threatenedItems, [&](Long key) {
        return outcome.SingleItemProtected(key);
    });
}

void WriteCosts(JsonWriter& json, c53Outcome& outcome)
{
    WriteFigure(json, "estimatedCost", [&] { return outcome.EstimatedCost(); });
    WriteFigure(json, "costSource", [&] { return outcome.CostSource(); });
    WriteFigure(json, "costBySize", [&] { return outcome.CostBySize(); });
    WriteFigure(json, "costPerAcre", [&] { return outcome.CostPerAcre(); });
    WriteFigure(json, "srUseCost", [&] { return outcome.SRUseCost(); });
    WriteFigure(json, "dailyCost", [&] { return outcome.DailyCost(); });
    WriteFigure(json, "dailyContainCost", [&] { return outcome.DailyContainCost(); });
    WriteFigure(json, "dailyControlCost", [&] { return outcome.DailyControlCost(); });
    WriteFigure(json, "adjustedCost", [&] { return outcome.AdjustedCost(); });
}

void WriteResourceUses(JsonWriter& json, c53Outcome& outcome)
{
    const auto* list = AttemptReference([&]() -> c67SRUseList& { return outcome.SRUseList(); });
    const auto* uses = list == nullptr ? nullptr : &list->SRUseCollection();
    WriteList(json, "srUses", uses, [&](const std::shared_ptr<c68SRUse>& use) {
        json.BeginObject();
        WriteFigure(json, "itemKey", [&] { return use->ItemKey(); });
        WriteFigure(json, "itemIndex", [&] { return use->ItemIndex(); });
        WriteFigure(json, "srTypeKey", [&] { return use->SRType()->ItemKey(); });
        WriteFigure(json, "quantity", [&] { return use->Quantity(); });
        WriteFigure(json, "timePeriods", [&] { return use->TimePeriods(); });
        WriteFigure(json, "useCost", [&] { return use->UseCost(); });
        json.EndObject();
    });
}

} // namespace

void WriteOutcome(JsonWriter& json, const KeyedBy& keyedBy, c53Outcome& outcome)
{
    json.BeginObject();
    WriteIdentity(json, outcome);
    WritePrediction(json, outcome);
    WriteScores(json, keyedBy, outcome);
    WriteLosses(json, keyedBy, outcome);
    WriteCosts(json, outcome);
    WriteResourceUses(json, outcome);
    json.EndObject();
}

} // namespace vexa_cli
