#include "model/c41Objective.h"
#include "model/g42SafetyIssues.h"
#include "reports/ObjectiveRows.h"
#include "reports/ReportSections.h"
#include "reports/ReportUtilities.h"
#include "session/u91Trace.h"
#include "values/Edition.h"

// Differs from the report of objectives on purpose: it has no column head, its lists keep their numbers, and
// an empty description is left out.

namespace {

using namespace ReportUtilities;
using platform::print::Plain;

void WriteRow(const c41Objective& issue)
{
    if (issue.bSafetyCategory()) {
        ObjectiveRows::WriteCategory(issue.ItemName());
    } else if constexpr (kEdition == Edition::Basic) {
        ObjectiveRows::WriteItem({Plain(issue.ItemName())});
    } else {
        ObjectiveRows::WriteItem({Plain("   " + issue.ItemName()), Plain("")});
    }
}

void WriteIssue(const c41Objective& issue)
{
    constexpr double need = 720.0;
    if (ObjectiveRows::RunsOver(issue.Description(), need)) {
        VSPrinter1().NewPage();
        VSPrinter1().SetCurrentY(ObjectiveRows::firstRow);
    }
    WriteRow(issue);
    if (!issue.Description().empty()) ObjectiveRows::WriteDescription(issue.Description());
}

} // namespace

namespace ReportSections {

void PrintSafetyIssues()
{
    u91Trace::Trace("PrintSafetyIssues");
    SaveFormat();
    SetPageHeader();
    PrintHeading("Safety Issues");
    VSPrinter1().SetCurrentY(ObjectiveRows::firstRow);
    VSPrinter1().SetMarginRight(2160.0);
    for (const auto& issue : g42SafetyIssues::SafetyIssueCollection())
        WriteIssue(*issue);
    VSPrinter1().SetSpaceBefore(0.0);
    RestoreFormat();
}

} // namespace ReportSections
