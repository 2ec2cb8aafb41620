#include "model/c41Objective.h"
#include "model/c51Alternative.h"
#include "model/c53Outcome.h"
#include "model/c62Rating.h"
#include "model/g42SafetyIssues.h"
#include "model/g51Alternatives.h"
#include "model/g53Outcomes.h"
#include "platform/base/Texts.h"
#include "reports/ReportSections.h"
#include "reports/ReportUtilities.h"
#include "session/u91Trace.h"

namespace {

using namespace ReportUtilities;
using namespace platform::print;

enum OutcomeIndex : Long { Target = 1, Fallback = 2 };

constexpr Long columnCount = 3, rowsPerIssue = 3;

void SafetyHeader(const c51Alternative& alternative)
{
    PrintControl& printer = VSPrinter1();
    const std::string width = platform::TextOf(platform::ToLong(Double(GetTextWidth()) / 3.0));
    printer.SetFontSize(9.0);
    printer.SetFontBold(false);
    printer.SetTableBorder(tableBorderNone);
    AddTitledColumns(width + "|" + width + "|" + width + ";",
                     columnCount,
                     "Alternative " + alternative.Label(),
                     columnCount,
                     alignCenterTop);
    // Of the issues one is the root, which is none: its rows hold the heads, and the last stays empty.
    const Long issues = g42SafetyIssues::SafetyIssueCollection().Count() - 1;
    printer.SetTableCell(tcRows, issues * rowsPerIssue + 2);
    printer.SetTableCell(tcRowKeepWithNext, 0, 1, 1, true);
}

/// Written whether the alternative has a Fallback or not.
void SafetyColumnHeads()
{
    PrintControl& printer = VSPrinter1();
    printer.SetTableCell(tcAlign, 1, 1, 1, columnCount, alignCenterTop);
    printer.SetTableCell(tcText, 1, 1, "Target Outcome");
    printer.SetTableCell(tcText, 1, 2, "Fallback Outcome");
    printer.SetTableCell(tcText, 1, 3, "Extreme Outcome");
}

void SafetyCell(const c53Outcome& outcome, const c41Objective& issue, Long row, Long column)
{
    constexpr bool safety = true, rootOrCategory = false;
    c62Rating rating;
    rating.Initialize(outcome.ItemKey(), issue.ItemKey(), safety, rootOrCategory);
    PrintControl& printer = VSPrinter1();
    printer.SetTableCell(
        tcText, row, column, Plain("Rating: " + platform::TextOf(rating.RawScore()) + " / 10"));
    printer.SetTableCell(tcText, row + 1, column, Body(rating.Description()));
}

void SafetyIssueHead(const c41Objective& issue, Long row)
{
    PrintControl& printer = VSPrinter1();
    printer.SetTableCell(tcColSpan, row, 1, columnCount);
    printer.SetTableCell(tcRowKeepWithNext, row, 1, row + 1, true);
    printer.SetTableCell(tcRowIsHeader, row, 1);
    printer.SetTableCell(tcAlign, row, 1, alignCenterTop);
    printer.SetTableCell(tcText, row, 1, Plain("Issue: " + issue.ItemName()));
}

void SafetyRows(c51Alternative& alternative)
{
    const auto target = alternative.Outcome(Target);
    const auto fallback = alternative.Outcome(Fallback);
    const auto extreme = g53Outcomes::ExtremeOutcome();
    const auto& issues = g42SafetyIssues::SafetyIssueCollection();
    for (Long place = 2; place <= issues.Count(); ++place) {
        const c41Objective& issue = *issues.At(place);
        const Long row = (place - 1) * rowsPerIssue - 1;
        SafetyIssueHead(issue, row);
        SafetyCell(*target, issue, row + 1, 1);
        if (fallback->bShow()) SafetyCell(*fallback, issue, row + 1, 2);
        SafetyCell(*extreme, issue, row + 1, 3);
    }
}

void SafetyTable(c51Alternative& alternative)
{
    SaveFormat();
    VSPrinter1().Paragraph("");
    VSPrinter1().StartTable();
    SafetyHeader(alternative);
    SafetyColumnHeads();
    SafetyRows(alternative);
    VSPrinter1().EndTable();
    RestoreFormat();
}

} // namespace

namespace ReportSections {

void PrintSafetyAssessment()
{
    u91Trace::Trace("PrintSafetyAssessment");
    SaveFormat();
    BeginTables("Safety Assessment");
    for (const auto& alternative : g51Alternatives::AlternativeCollection())
        SafetyTable(*alternative);
    RestoreFormat();
}

} // namespace ReportSections
