#include "model/c52OutcomeList.h"
#include "model/g51Alternatives.h"
#include "model/g53Outcomes.h"
#include "platform/base/Formats.h"
#include "platform/base/Texts.h"
#include "session/g0Items.h"
#include "vexa-cli/Attempt.h"
#include "vexa-cli/Commands.h"
#include "vexa-cli/OpenFile.h"
#include "vexa-cli/TextTable.h"

#include <ostream>

namespace vexa_cli {

namespace {

constexpr std::size_t kWidth = 100;
constexpr const char* kFailed = "-";
constexpr const char* kScore = "0.0";
constexpr const char* kMoney = "$#,0";
constexpr const char* kCount = "#,0";

/// A figure in its format, or the sign for one that fails.
template <class Calculation> std::string Cell(const char* format, Calculation calculation)
{
    return Attempt([&] { return platform::Format(calculation(), format); }).value_or(kFailed);
}

std::string Percent(c51Alternative& alternative, Long index)
{
    const auto percent = Attempt([&] { return alternative.OutcomePercent(index); });
    return percent ? platform::TextOf(*percent) + "%" : kFailed;
}

/// Which alternatives are marked; 0 where there is none or it cannot be told.
struct Marks
{
    Long mostCostEffective = 0;
    Long selected = 0;

    std::string Of(Long key) const
    {
        return std::string(key == mostCostEffective ? "*" : " ") + (key == selected ? ">" : " ") + " ";
    }
};

Marks FindMarks()
{
    Marks marks;
    const auto best = Attempt([] { return g51Alternatives::MostCostEffectiveAlternative(); });
    marks.mostCostEffective = best && *best ? (*best)->ItemKey() : 0;
    marks.selected = Attempt([] { return g51Alternatives::SelectedAlternativeKey(); }).value_or(0);
    return marks;
}

std::string AlternativesText(const g51Alternatives::Alternatives& alternatives)
{
    const Marks marks = FindMarks();
    TextTable table(
        {"   Alternative", "Target", "Fallback", "Extreme", "Objectives", "Safety", "Cost", "Loss"});
    for (const std::shared_ptr<c51Alternative>& alternative : alternatives) {
        table.Add({marks.Of(alternative->ItemKey()) + OneLine(alternative->Label()),
                   Percent(*alternative, c52OutcomeList::Target),
                   Percent(*alternative, c52OutcomeList::Fallback),
                   Percent(*alternative, c52OutcomeList::Extreme),
                   Cell(kScore, [&] { return alternative->ExpectedScore(); }),
                   Cell(kScore, [&] { return alternative->ExpectedSafetyScore(); }),
                   Cell(kMoney, [&] { return alternative->ExpectedCost(); }),
                   Cell(kMoney, [&] { return alternative->ExpectedLoss(); })});
    }
    return table.Text(kWidth) + "\n* most cost effective   > selected   - cannot be computed\n";
}

void AddOutcome(TextTable& table, const std::string& name, c53Outcome& outcome)
{
    table.Add({name,
               Cell(kCount, [&] { return platform::NumberOf(outcome.FireSize()); }),
               platform::TextOf(outcome.ContainTime()),
               platform::TextOf(outcome.ControlTime()),
               Cell(kScore, [&] { return outcome.TotalScore(); }),
               Cell(kScore, [&] { return outcome.SafetyScore(); }),
               Cell(kMoney, [&] { return outcome.EstimatedCost(); }),
               Cell(kMoney, [&] { return outcome.EstimatedLoss(); })});
}

/// An alternative whose rows are missing has no lines below its name.
void AddOutcomesOf(TextTable& table, c51Alternative& alternative)
{
    table.AddHeading("   " + OneLine(alternative.Label()));
    for (const Long index : {Long{c52OutcomeList::Target}, Long{c52OutcomeList::Fallback}}) {
        const auto outcome = Attempt([&] { return alternative.Outcome(index); });
        if (outcome && (index == c52OutcomeList::Target || (*outcome)->bShow())) {
            AddOutcome(table, "      " + (*outcome)->ShortName(), **outcome);
        }
    }
}

std::string OutcomesText(const g51Alternatives::Alternatives& alternatives)
{
    TextTable table({"   Outcome", "Acres", "Contain", "Control", "Objectives", "Safety", "Cost", "Loss"});
    for (const std::shared_ptr<c51Alternative>& alternative : alternatives) {
        AddOutcomesOf(table, *alternative);
    }
    if (const auto extreme = Attempt(g53Outcomes::ExtremeOutcome)) {
        AddOutcome(table, "   " + (*extreme)->ShortName(), **extreme);
    }
    return table.Text(kWidth);
}

std::string FireText()
{
    const auto name = Attempt([] { return OneLine(g0Items::GetItem(g0Items::FireName)->Body()); });
    return name.value_or("").empty() ? "Fire without a name" : *name;
}

/// The whole of it, so that a file that is lost half way prints nothing.
std::string DecisionText(const g51Alternatives::Alternatives& alternatives)
{
    return FireText() + "\n\nExpected values of the alternatives\n\n" +
           (alternatives.IsEmpty() ? "   There are no alternatives yet.\n" : AlternativesText(alternatives)) +
           "\nOutcomes (days to contain and to control)\n\n" + OutcomesText(alternatives);
}

} // namespace

ExitStatus Table(const Request& request, Console& console)
{
    const OpenFile file(request.files.front(), console);
    if (file.Status() != ExitStatus::Done) {
        return file.Status();
    }
    console.out << DecisionText(g51Alternatives::AlternativeCollection());
    return ExitStatus::Done;
}

} // namespace vexa_cli
