#include "EveryFigure.h"

#include "model/g41Objectives.h"
#include "model/g42SafetyIssues.h"
#include "model/g51Alternatives.h"
#include "model/g53Outcomes.h"
#include "session/a1VEXA.h"
#include "session/g0Items.h"
#include "session/u11Datafile.h"
#include "values/c63BurnAreaList.h"
#include "values/c67SRUseList.h"
#include "values/g33FMUs.h"
#include "values/g34NVCResources.h"
#include "values/g36ThreatenedItems.h"
#include "values/g38SRTypes.h"

#include <stdexcept>

namespace {

constexpr Long kResources = 14;
constexpr Long kLevels = 6;

class FigureSum
{
public:
    template <class Figure> void Add(Figure figure) { m_sum += static_cast<double>(figure); }
    void AddText(const std::string& text) { m_sum += static_cast<double>(text.size()); }
    double Sum() const { return m_sum; }

private:
    double m_sum = 0.0;
};

void AddTree(FigureSum& sum, const g41Objectives::Objectives& tree)
{
    for (const auto& objective : tree) {
        sum.AddText(objective->ItemName());
        sum.Add(objective->Priority());
        if (objective->bSafetyIssue() || objective->bSafetyRoot()) {
            sum.Add(objective->Weight());
        }
    }
}

void AddTables(FigureSum& sum)
{
    for (Long resource = 1; resource <= kResources; ++resource) {
        sum.AddText(g34NVCResources::NVCResourceName(resource));
        sum.Add(g33FMUs::bResourceValueAnywhere(resource));
    }
    sum.Add(g33FMUs::bNoResourceValues());
    for (const auto& item : g36ThreatenedItems::ThreatenedItemCollection()) {
        sum.AddText(item->ItemName());
        sum.Add(item->PotentialLoss());
        sum.Add(item->ValueAtRisk());
    }
    sum.Add(g36ThreatenedItems::TotalValueAtRisk());
    for (const auto& type : g38SRTypes::SRTypeCollection()) {
        sum.Add(type->UnitCost());
    }
}

void AddScores(FigureSum& sum, c53Outcome& outcome)
{
    sum.Add(outcome.TotalScore());
    sum.Add(outcome.SafetyScore());
    for (const auto& objective : g41Objectives::ObjectiveCollection()) {
        const Long key = objective->ItemKey();
        sum.Add(outcome.CategoryScore(key));
        sum.Add(outcome.WeightedObjScore(key));
        sum.Add(outcome.RawObjScore(key));
    }
    for (const auto& issue : g42SafetyIssues::SafetyIssueCollection()) {
        sum.Add(outcome.WeightedSafetyScore(issue->ItemKey()));
        sum.Add(outcome.RawSafetyScore(issue->ItemKey()));
    }
}

void AddLosses(FigureSum& sum, c53Outcome& outcome)
{
    sum.Add(outcome.EstimatedLoss());
    sum.Add(outcome.NVCLoss());
    sum.Add(outcome.ImpactPerAcre());
    for (Long resource = 1; resource <= kResources; ++resource) {
        sum.Add(outcome.NVCResourceLoss(resource));
    }
    for (Long level = 1; level <= kLevels; ++level) {
        sum.Add(outcome.BurnArea(0).FILPercent(level));
    }
    sum.Add(outcome.ItemImpact());
    sum.Add(outcome.ValueProtected());
    for (const auto& item : g36ThreatenedItems::ThreatenedItemCollection()) {
        sum.Add(outcome.SingleItemImpact(item->ItemKey()));
        sum.Add(outcome.SingleItemProtected(item->ItemKey()));
    }
}

void AddCosts(FigureSum& sum, c53Outcome& outcome)
{
    sum.Add(outcome.EstimatedCost());
    sum.Add(outcome.CostBySize());
    sum.Add(outcome.CostPerAcre());
    sum.Add(outcome.SRUseCost());
    sum.Add(outcome.DailyCost());
    sum.Add(outcome.AdjustedCost());
    for (const auto& use : outcome.SRUseList().SRUseCollection()) {
        sum.Add(use->UseCost());
    }
}

void AddOutcome(FigureSum& sum, c53Outcome& outcome)
{
    sum.AddText(outcome.LongName());
    sum.AddText(outcome.FireSize());
    AddScores(sum, outcome);
    AddLosses(sum, outcome);
    AddCosts(sum, outcome);
}

void AddExpectedByKey(FigureSum& sum, c51Alternative& alternative)
{
    for (const auto& objective : g41Objectives::ObjectiveCollection()) {
        const Long key = objective->ItemKey();
        sum.Add(alternative.ExpectedCategoryScore(key));
        sum.Add(alternative.ExpectedWgtObjScore(key));
        sum.Add(alternative.ExpectedRawObjScore(key));
    }
    for (const auto& issue : g42SafetyIssues::SafetyIssueCollection()) {
        sum.Add(alternative.ExpectedWgtSafetyScore(issue->ItemKey()));
        sum.Add(alternative.ExpectedRawSafetyScore(issue->ItemKey()));
    }
}

void AddAlternative(FigureSum& sum, c51Alternative& alternative)
{
    sum.AddText(alternative.Label());
    for (Long index = 1; index <= 3; ++index) {
        sum.Add(alternative.OutcomePercent(index));
    }
    sum.Add(alternative.ExpectedScore());
    sum.Add(alternative.ExpectedSafetyScore());
    sum.Add(alternative.ExpectedProtection());
    sum.Add(alternative.ExpectedNVCLoss());
    sum.Add(alternative.ExpectedLoss());
    sum.Add(alternative.ExpectedCost());
    sum.Add(alternative.EstimatedCost());
    sum.Add(alternative.EstimatedSize());
    AddExpectedByKey(sum, alternative);
    AddOutcome(sum, *alternative.Outcome(1));
    AddOutcome(sum, *alternative.Outcome(2));
}

} // namespace

double EveryFigure(const std::string& path)
{
    if (!u11Datafile::OpenDatafile(path)) {
        throw std::runtime_error("cannot open " + path);
    }
    FigureSum sum;
    sum.AddText(g0Items::GetItem(g0Items::FireName)->Body());
    AddTree(sum, g41Objectives::ObjectiveCollection());
    AddTree(sum, g42SafetyIssues::SafetyIssueCollection());
    AddTables(sum);
    for (const auto& alternative : g51Alternatives::AlternativeCollection()) {
        AddAlternative(sum, *alternative);
    }
    AddOutcome(sum, *g53Outcomes::ExtremeOutcome());
    sum.Add(g51Alternatives::MostCostEffectiveAlternative() != nullptr);
    sum.Add(g51Alternatives::SelectedAlternativeKey());
    a1VEXA::ClearAllStores();
    a1VEXA::CloseDatafileIfOpen();
    return sum.Sum();
}
