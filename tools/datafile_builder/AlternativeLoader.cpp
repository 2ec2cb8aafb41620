#include "datafile_builder/AlternativeLoader.h"

#include "datafile_builder/NewRows.h"

#include <array>

namespace datafile_builder {

namespace {

constexpr Long alternatives = 26;
constexpr Long targetIndex = 1;
constexpr Long fallbackIndex = 2;

void WriteColumns(DatafileWriter& writer, const SourceObject& outcome, Long key)
{
    static constexpr std::array columns{Column{"Description", ColumnKind::markup},
                                        Column{"FireSize", ColumnKind::single},
                                        Column{"ContainTime", ColumnKind::whole},
                                        Column{"ControlTime", ColumnKind::whole},
                                        Column{"Success", ColumnKind::single},
                                        Column{"SuccessRationale", ColumnKind::plainText},
                                        Column{"DailyContainCost", ColumnKind::single},
                                        Column{"DailyControlCost", ColumnKind::single},
                                        Column{"AdjustedCost", ColumnKind::money},
                                        Column{"CostSource", ColumnKind::whole},
                                        Column{"CostRationale", ColumnKind::plainText}};
    writer.Change("Outcomes", {{"ItemKey", std::int64_t{key}}}, outcome.Cells(columns));
}

void CheckCostSource(const SourceObject& outcome)
{
    const Long source = outcome.WholeOr("CostSource", 1);
    if (source != 1 && source != 2 && source != 4 && source != 8)
        outcome.Refuse("CostSource must be 1, 2, 4 or 8");
}

void CheckSuccess(const SourceObject& outcome)
{
    if (!outcome.Has("Success")) return;
    const Long success = outcome.Whole("Success");
    if (success < 0 || success > 100) outcome.Refuse("Success must be 0 to 100");
}

void AddScore(DatafileWriter& writer, const SourceObject& score, Long outcome, const FireKeys& keys)
{
    score.AllowOnly({"Criterion", "Value", "Description"});
    const Double value = score.Number("Value");
    if (value < 0 || value > 10) score.Refuse("Value must be 0 to 10");
    const std::int64_t criterion{keys.Criterion(score, score.TextOrWhole("Criterion"))};
    if (!writer
             .FirstRow("SELECT 1 FROM Scores WHERE OutcomeKey = ? AND CriterionKey = ?",
                       {std::int64_t{outcome}, criterion})
             .empty()) {
        score.Refuse("this criterion is rated already");
    }
    writer.Add("Scores",
               {{"OutcomeKey", std::int64_t{outcome}},
                {"CriterionKey", criterion},
                {"Value", SingleCell(value)},
                {"Description", score.TextOr("Description", "")}});
}

/// How many periods a line counts: given for resources by time, 1 for those by item.
Long PeriodsOf(const SourceObject& use, const std::string& unitType)
{
    return unitType == "item" ? use.WholeOr("Periods", 1) : use.Whole("Periods");
}

void AddResourceUse(DatafileWriter& writer, const SourceObject& use, Long outcome, Long line)
{
    use.AllowOnly({"SRType", "Quantity", "Periods"});
    const std::string name = use.Text("SRType");
    const auto type = writer.FirstRow("SELECT ItemKey, UnitType FROM SRTypes WHERE ShortName = ?", {name});
    if (type.empty()) use.Refuse("there is no resource type \"" + name + "\"");
    writer.Add("SRUses",
               {{"ItemKey", std::int64_t{writer.LastKey("SRUses", "ItemKey") + 1}},
                {"OutcomeKey", std::int64_t{outcome}},
                {"ItemIndex", std::int64_t{line}},
                {"SRTypeKey", type.at(0)},
                {"Quantity", std::int64_t{use.Whole("Quantity")}},
                {"Periods", std::int64_t{PeriodsOf(use, std::get<std::string>(type.at(1)))}}});
}

/// The keys of a new alternative's two outcomes. Both take their fuel mix before the alternative itself
/// counts as one, so the very first alternative starts with the mix of a fire that has none.
std::array<Long, 2> AddOutcomes(DatafileWriter& writer, Long alternative, FireKeys& keys)
{
    const Long target = AddOutcome(writer, alternative, targetIndex, keys.FuelSource());
    const Long fallback = AddOutcome(writer, alternative, fallbackIndex, keys.FuelSource());
    keys.SetFuelSource(target);
    return {target, fallback};
}

} // namespace

void WriteAlternative(DatafileWriter& writer, const SourceObject& alternative, FireKeys& keys)
{
    static constexpr std::array columns{Column{"Heading", ColumnKind::plainText},
                                        Column{"Body", ColumnKind::markup}};
    alternative.AllowOnly({"ItemName", "Heading", "Body", "Outcomes"});
    const std::string name = alternative.Text("ItemName");
    const Long key = AddItem(writer, name, alternatives);
    writer.Change("Items", {{"ItemKey", std::int64_t{key}}}, alternative.Cells(columns));
    keys.AddAlternative(alternative, name, key);

    const SourceObject outcomes = alternative.Object("Outcomes");
    outcomes.AllowOnly({"Target", "Fallback"});
    const auto [target, fallback] = AddOutcomes(writer, key, keys);
    keys.AddOutcome(outcomes, name + ".Target", target);
    FillOutcome(writer, outcomes.Object("Target"), target, keys);
    if (!outcomes.Has("Fallback")) return;
    keys.AddOutcome(outcomes, name + ".Fallback", fallback);
    FillOutcome(writer, outcomes.Object("Fallback"), fallback, keys);
}

void FillOutcome(DatafileWriter& writer, const SourceObject& outcome, Long key, const FireKeys& keys)
{
    outcome.AllowOnly({"Description",
                       "FireSize",
                       "ContainTime",
                       "ControlTime",
                       "Success",
                       "SuccessRationale",
                       "DailyContainCost",
                       "DailyControlCost",
                       "AdjustedCost",
                       "CostSource",
                       "CostRationale",
                       "Scores",
                       "SRUses"});
    CheckCostSource(outcome);
    CheckSuccess(outcome);
    WriteColumns(writer, outcome, key);
    for (const SourceObject& score : outcome.Objects("Scores"))
        AddScore(writer, score, key, keys);
    Long line = 0;
    for (const SourceObject& use : outcome.Objects("SRUses"))
        AddResourceUse(writer, use, key, ++line);
}

} // namespace datafile_builder
