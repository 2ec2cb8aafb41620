#include "model/c51Alternative.h"
#include "model/c53Outcome.h"
#include "model/g51Alternatives.h"
#include "model/g53Outcomes.h"
#include "platform/base/Texts.h"
#include "reports/AlternativeFigures.h"
#include "reports/AlternativesRtf.h"
#include "reports/ReportSections.h"
#include "reports/ReportUtilities.h"
#include "session/u91Trace.h"

#include <string>

namespace {

using namespace ReportUtilities;
using namespace platform::print;
using ReportSections::Extreme;
using ReportSections::Fallback;
using ReportSections::Target;

constexpr Long columnCount = 6;

constexpr Long titleRow = 0, bodyRow = 1, headRow = 2, descriptionRow = 3, firstFigure = 4, lastRow = 7;

std::string SixColumns()
{
    const std::string width = platform::TextOf(platform::ToLong(Double(GetTextWidth()) / columnCount));
    std::string format = width;
    for (Long column = 2; column <= columnCount; ++column)
        format += "|" + width;
    return format + ";";
}

/// Rows that belong together stay on one page, where one can hold them.
void AlternativeHeader(const c51Alternative& alternative)
{
    PrintControl& printer = VSPrinter1();
    printer.SetFontSize(9.0);
    printer.SetFontBold(false);
    printer.SetTableBorder(tableBorderNone);
    AddTitledColumns(
        SixColumns(), columnCount, "Alternative " + alternative.Label(), columnCount, alignCenterTop);
    printer.SetTableCell(tcRows, lastRow);
    printer.SetTableCell(tcRowLongText, bodyRow, 1, descriptionRow, true);
    printer.SetTableCell(tcRowKeepWithNext, titleRow, 1, lastRow, true);
}

/// A stored text without the blanks and line ends behind it, and one line end, which leaves an empty line
/// below it. Behind a whole rich text a line end counts nothing: there a blank that is none stands for that
/// line.
PrintText Ended(const std::string& text)
{
    const std::string trimmed = TrimRight(text);
    return platform::richtext::IsRtf(trimmed) ? Rich(trimmed).Rich("\\~") : Plain(trimmed + "\r\n");
}

void AlternativeBody(const std::string& text)
{
    VSPrinter1().SetTableCell(tcText, bodyRow, 1, Ended(text));
    VSPrinter1().SetTableCell(tcColSpan, bodyRow, 1, columnCount);
}

void OutcomeHead(const char* label, const std::string& description, Long column, Long span)
{
    PrintControl& printer = VSPrinter1();
    printer.SetTableCell(tcText, headRow, column, label);
    printer.SetTableCell(tcColSpan, headRow, column, span);
    printer.SetTableCell(tcFontBold, headRow, column, true);
    printer.SetTableCell(tcText, descriptionRow, column, Ended(description));
    printer.SetTableCell(tcColSpan, descriptionRow, column, span);
}

void WriteFigures(const ReportSections::Figures& figures, Long column)
{
    Long row = firstFigure;
    for (const ReportSections::Figure& figure : figures) {
        VSPrinter1().SetTableCell(tcText, row, column, figure.caption);
        VSPrinter1().SetTableCell(tcText, row, column + 1, Plain(figure.value));
        ++row;
    }
}

void OutcomeFigures(c51Alternative& alternative, Long outcome, Long column)
{
    WriteFigures(ReportSections::FiguresOf(alternative, outcome), column);
}

void ExtremeFigures(c51Alternative& alternative, Long column)
{
    OutcomeFigures(alternative, Extreme, column);
}

void PrintAlternativeTable(c51Alternative& alternative)
{
    const bool hasFallback = alternative.Outcome(Fallback)->bShow();
    const Long span = hasFallback ? 2 : 3;
    const std::string& extreme = g53Outcomes::ExtremeOutcome()->Description();
    SaveFormat();
    VSPrinter1().Paragraph("");
    VSPrinter1().StartTable();
    AlternativeHeader(alternative);
    AlternativeBody(alternative.Body());
    OutcomeHead("Target Outcome", alternative.Outcome(Target)->Description(), 1, span);
    OutcomeFigures(alternative, Target, 1);
    if (hasFallback) {
        OutcomeHead("Fallback Outcome", alternative.Outcome(Fallback)->Description(), 3, span);
        OutcomeFigures(alternative, Fallback, 3);
        OutcomeHead("Extreme Outcome", extreme, 5, span);
    } else {
        OutcomeHead("Extreme Outcome", extreme, 4, span);
    }
    ExtremeFigures(alternative, 5); // on purpose also below a head that begins in column 4
    VSPrinter1().EndTable();
    RestoreFormat();
}

} // namespace

namespace ReportSections {

void PrintAlternatives()
{
    u91Trace::Trace("PrintAlternatives");
    SaveFormat();
    BeginTables("Alternatives");
    if (bSavingRtf()) {
        VSPrinter1().Paragraph(Body(RtfAlternatives()));
    } else {
        for (const auto& alternative : g51Alternatives::AlternativeCollection())
            PrintAlternativeTable(*alternative);
    }
    RestoreFormat();
}

} // namespace ReportSections
