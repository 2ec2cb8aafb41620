#include "model/c51Alternative.h"
#include "model/c53Outcome.h"
#include "model/g51Alternatives.h"
#include "model/g53Outcomes.h"
#include "reports/CostTables.h"
#include "reports/ReportSections.h"
#include "reports/ReportState.h"
#include "reports/ReportUtilities.h"
#include "session/u91Trace.h"
#include "values/c67SRUseList.h"
#include "values/g33FMUs.h"

namespace {

using namespace ReportUtilities;

constexpr Long targetIndex = 1, fallbackIndex = 2;

/// The flags stay: a file of one land unit that is opened later in the session has the tables of several.
void PrintAlternative(c51Alternative& alternative)
{
    SaveFormat();
    VSPrinter1().Paragraph("");
    if (g33FMUs::FMUCount() > 1) State().bCostByFMU = true;
    const Long uses = CostTables::MaxSRUses(alternative);
    if (uses > 0) State().bResourcesUsed = true;
    if (State().bCostByFMU) CostTables::PrintFMUCosts(alternative);
    CostTables::PrintResourceCosts(alternative, uses);
    RestoreFormat();
}

} // namespace

namespace CostTables {

std::vector<Column> ColumnsOf(c51Alternative& alternative)
{
    std::vector<Column> columns{{Target, "Target Outcome", alternative.Outcome(targetIndex)}};
    const auto fallback = alternative.Outcome(fallbackIndex);
    if (fallback->bShow()) columns.push_back({Fallback, "Fallback Outcome", fallback});
    columns.push_back({Extreme, "Extreme Outcome", g53Outcomes::ExtremeOutcome()});
    return columns;
}

Long MaxSRUses(c51Alternative& alternative)
{
    // Kept: the lines of a Fallback that is not shown count, and leave as many rows empty.
    const Long target = alternative.Outcome(targetIndex)->SRUseList().SRUseCount();
    const Long fallback = alternative.Outcome(fallbackIndex)->SRUseList().SRUseCount();
    const Long extreme = g53Outcomes::ExtremeOutcome()->SRUseList().SRUseCount();
    return MaxLong(MaxLong(target, fallback), extreme);
}

} // namespace CostTables

namespace ReportSections {

void PrintCosts()
{
    u91Trace::Trace("PrintCosts");
    SaveFormat();
    BeginTables("Estimated Suppression Costs");
    for (const auto& alternative : g51Alternatives::AlternativeCollection())
        PrintAlternative(*alternative);
    RestoreFormat();
}

} // namespace ReportSections
