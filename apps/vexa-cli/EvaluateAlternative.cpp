#include "model/c51Alternative.h"
#include "model/c52OutcomeList.h"
#include "vexa-cli/Attempt.h"
#include "vexa-cli/EvaluateParts.h"

#include <array>

namespace vexa_cli {

namespace {

void WritePercents(JsonWriter& json, c51Alternative& alternative)
{
    json.Key("outcomePercent");
    json.BeginArray();
    for (const Long index :
         {Long{c52OutcomeList::Target}, Long{c52OutcomeList::Fallback}, Long{c52OutcomeList::Extreme}}) {
        WriteFigure(json, [&] { return alternative.OutcomePercent(index); });
    }
    json.EndArray();
}

void WriteExpected(JsonWriter& json, c51Alternative& alternative)
{
    WriteFigure(json, "expectedScore", [&] { return alternative.ExpectedScore(); });
    WriteFigure(json, "expectedSafetyScore", [&] { return alternative.ExpectedSafetyScore(); });
    WriteFigure(json, "expectedProtection", [&] { return alternative.ExpectedProtection(); });
    WriteFigure(json, "expectedNVCLoss", [&] { return alternative.ExpectedNVCLoss(); });
    WriteFigure(json, "expectedLoss", [&] { return alternative.ExpectedLoss(); });
    WriteFigure(json, "expectedCost", [&] { return alternative.ExpectedCost(); });
    WriteFigure(json, "estimatedCost", [&] { return alternative.EstimatedCost(); });
    WriteFigure(json, "estimatedSize", [&] { return alternative.EstimatedSize(); });
}

void WriteExpectedByKey(JsonWriter& json, const KeyedBy& keyedBy, c51Alternative& alternative)
{
    WriteByKey(json, "expectedCategoryScore", keyedBy.objectives, [&](Long key) {
        return alternative.ExpectedCategoryScore(key);
    });
    WriteByKey(json, "expectedWgtObjScore", keyedBy.objectives, [&](Long key) {
        return alternative.ExpectedWgtObjScore(key);
    });
    WriteByKey(json, "expectedRawObjScore", keyedBy.objectives, [&](Long key) {
        return alternative.ExpectedRawObjScore(key);
    });
    WriteByKey(json, "expectedWgtSafetyScore", keyedBy.safetyIssues, [&](Long key) {
        return alternative.ExpectedWgtSafetyScore(key);
    });
    WriteByKey(json, "expectedRawSafetyScore", keyedBy.safetyIssues, [&](Long key) {
        return alternative.ExpectedRawSafetyScore(key);
    });
}

using Outcomes = std::array<std::shared_ptr<c53Outcome>, 2>;

Outcomes OutcomesOf(c51Alternative& alternative)
{
    return {alternative.Outcome(c52OutcomeList::Target), alternative.Outcome(c52OutcomeList::Fallback)};
}

} // namespace

void WriteAlternative(JsonWriter& json, const KeyedBy& keyedBy, c51Alternative& alternative)
{
    json.BeginObject();
    WriteFigure(json, "itemKey", [&] { return alternative.ItemKey(); });
    WriteFigure(json, "itemName", [&] { return alternative.ItemName(); });
    WriteFigure(json, "heading", [&] { return alternative.Heading(); });
    WriteFigure(json, "label", [&] { return alternative.Label(); });
    WritePercents(json, alternative);
    WriteExpected(json, alternative);
    WriteExpectedByKey(json, keyedBy, alternative);
    const auto outcomes = Attempt([&] { return OutcomesOf(alternative); });
    WriteList(json,
              "outcomes",
              outcomes ? &*outcomes : nullptr,
              [&](const std::shared_ptr<c53Outcome>& outcome) { WriteOutcome(json, keyedBy, *outcome); });
    json.EndObject();
}

} // namespace vexa_cli
