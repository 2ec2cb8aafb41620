#include "model/c51Alternative.h"
#include "model/c53Outcome.h"
#include "platform/base/Formats.h"
#include "platform/base/Texts.h"
#include "reports/CostTables.h"
#include "reports/ReportState.h"
#include "reports/ReportUtilities.h"
#include "values/c67SRUseList.h"

#include <string>

// Row 0 is the title, row 1 the outcomes; a resource use a row; the last two rows are the cost and its basis.

namespace {

using namespace ReportUtilities;
using namespace platform::print;
using CostTables::Column;

constexpr Long columnCount = 12, columnsPerOutcome = 4;
constexpr Double costSize = 9.0;

Long ColumnOf(const Column& column) { return 1 + columnsPerOutcome * column.place; }

std::string Format()
{
    const Long width = platform::ToLong(Double(GetTextWidth()) / 3.0);
    const std::string outcome = ">600|1440|>540|" + platform::TextOf(width - 2580);
    return outcome + "|" + outcome + "|" + outcome + ";";
}

/// Empty where the table of land units above has already named the alternative.
std::string Title(const c51Alternative& alternative)
{
    return State().bCostByFMU ? std::string() : "Alternative " + alternative.Label();
}

void AddCaption(const Column& column)
{
    PrintControl& printer = VSPrinter1();
    const Long first = ColumnOf(column);
    printer.SetTableCell(tcText, 1, first, column.caption);
    printer.SetTableCell(tcColSpan, 1, first, columnsPerOutcome);
    printer.SetTableCell(tcFontBold, 1, first, true);
    printer.SetTableCell(tcAlign, 1, first, alignLeftBottom);
}

void AddUses(const Column& column)
{
    PrintControl& printer = VSPrinter1();
    const Long first = ColumnOf(column);
    Long row = 1;
    for (const auto& use : column.outcome->SRUseList().SRUseCollection()) {
        ++row;
        printer.SetTableCell(tcText, row, first, platform::TextOf(use->Quantity()));
        printer.SetTableCell(tcText, row, first + 1, Plain(use->SRType()->ShortName()));
        printer.SetTableCell(tcText, row, first + 2, platform::TextOf(use->TimePeriods()));
        printer.SetTableCell(tcText, row, first + 3, Plain(use->SRType()->UnitName()));
    }
}

/// Empty for a source that is none.
PrintText BasisOf(const c53Outcome& outcome)
{
    PrintText text = Plain("Basis for cost estimate:\r\n");
    switch (outcome.CostSource()) {
    case c53Outcome::costSize: return text.Plain("Historic average cost per acre");
    case c53Outcome::costSRUse: return text.Plain("Estimated suppression resources needed");
    case c53Outcome::costDaily: return text.Plain("Daily expense rate");
    case c53Outcome::costAdjust: return text.Body(outcome.CostRationale());
    default: return {};
    }
}

void AddCostCell(Long row, Long column, const PrintText& text)
{
    PrintControl& printer = VSPrinter1();
    printer.SetTableCell(tcColSpan, row, column, columnsPerOutcome);
    printer.SetTableCell(tcText, row, column, text);
    printer.SetTableCell(tcFontSize, row, column, costSize);
    printer.SetTableCell(tcAlign, row, column, alignLeftBottom);
}

void AddCost(const Column& column, Long lastRow)
{
    constexpr Double spacing = 60.0;
    const std::string cost = platform::Format(column.outcome->EstimatedCost(), "$#,0");
    AddCostCell(lastRow - 1, ColumnOf(column), Plain("Estimated suppression cost: " + cost));
    VSPrinter1().SetTableCell(tcRowSpacing, lastRow - 1, ColumnOf(column), spacing);
    AddCostCell(lastRow, ColumnOf(column), BasisOf(*column.outcome));
}

void AddOutcome(const Column& column, Long lastRow)
{
    AddCaption(column);
    // Kept: the cost of the Extreme outcome is written twice, with the same content.
    if (column.place == CostTables::Extreme) AddCost(column, lastRow);
    AddUses(column);
    AddCost(column, lastRow);
}

} // namespace

void CostTables::PrintResourceCosts(c51Alternative& alternative, Long rows)
{
    PrintControl& printer = VSPrinter1();
    const Long lastRow = rows + 3;
    printer.StartTable();
    printer.SetFontSize(8.0);
    printer.SetFontBold(false);
    printer.SetTableBorder(tableBorderNone);
    AddTitledColumns(Format(), columnCount, Title(alternative), columnCount, alignCenterBottom);
    printer.SetTableCell(tcRows, lastRow);
    printer.SetTableCell(tcRowKeepWithNext, 0, 1, lastRow - 1, true);
    for (const Column& column : ColumnsOf(alternative))
        AddOutcome(column, lastRow);
    printer.EndTable();
}
