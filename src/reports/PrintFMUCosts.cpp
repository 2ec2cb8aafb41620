#include "model/c51Alternative.h"
#include "model/c53Outcome.h"
#include "platform/base/Formats.h"
#include "platform/base/Texts.h"
#include "reports/CostTables.h"
#include "reports/ReportUtilities.h"
#include "values/g33FMUs.h"

#include <string>

// Row 0 is the title, row 1 the outcomes, row 2 the heads of the columns, and below stands a land unit a row.

namespace {

using namespace ReportUtilities;
using namespace platform::print;
using CostTables::Column;

constexpr Long columnCount = 10, firstColumn = 2, columnsPerOutcome = 3;
constexpr Long headRows = 2;

Long ColumnOf(const Column& column) { return firstColumn + columnsPerOutcome * column.place; }

std::string Format()
{
    const Long width = platform::ToLong(Double(GetTextWidth()) / 4.0);
    const std::string outcome = "|^540|^900|>" + platform::TextOf(width - 1440);
    return platform::TextOf(width) + outcome + outcome + outcome + ";";
}

void AddUnitRows()
{
    PrintControl& printer = VSPrinter1();
    const Long last = g33FMUs::FMUCount() + headRows;
    printer.SetTableCell(tcRows, last);
    printer.SetTableCell(tcRowKeepWithNext, 0, 1, last, true);
    printer.SetTableCell(tcText, 2, 1, "FMU");
    printer.SetTableCell(tcAlign, 1, 1, 2, columnCount, alignCenterBottom);
    Long row = headRows;
    for (const c33FMU& unit : g33FMUs::FMUCollection())
        printer.SetTableCell(tcText, ++row, 1, Plain(unit.ItemName()));
}

void AddHeads(const Column& column)
{
    PrintControl& printer = VSPrinter1();
    const Long first = ColumnOf(column);
    printer.SetTableCell(tcText, 1, first, column.caption);
    printer.SetTableCell(tcColSpan, 1, first, columnsPerOutcome);
    printer.SetTableCell(tcFontBold, 1, first, true);
    printer.SetTableCell(tcText, 2, first, "%");
    printer.SetTableCell(tcText, 2, first + 1, "$/acre");
    printer.SetTableCell(tcText, 2, first + 2, "Cost");
}

/// The land unit at a place from 1. Its rate is that of the whole fire's size.
void AddFigures(const Column& column, Long place)
{
    PrintControl& printer = VSPrinter1();
    const Double acres = platform::NumberOf(column.outcome->FireSize());
    const Long key = g33FMUs::FMUCollection().At(place).ItemKey();
    const Single rate = g33FMUs::GetAACTable(key).CostForSize(platform::ToSingle(acres));
    const Long percent = column.outcome->FMUPercent(place);
    const Double cost = Double(rate) * Double(percent) * acres / 100.0;
    const Long row = headRows + place, first = ColumnOf(column);
    printer.SetTableCell(tcText, row, first, platform::TextOf(percent));
    printer.SetTableCell(tcText, row, first + 1, platform::TextOf(rate));
    printer.SetTableCell(tcText, row, first + 2, platform::Format(cost, "0"));
}

} // namespace

void CostTables::PrintFMUCosts(c51Alternative& alternative)
{
    PrintControl& printer = VSPrinter1();
    printer.StartTable();
    printer.SetFontSize(8.0);
    printer.SetFontBold(false);
    printer.SetTableBorder(tableBorderAll);
    constexpr Long wholeRow = 12; // kept: more than the table has, which cuts it to its width
    AddTitledColumns(
        Format(), columnCount, "Alternative " + alternative.Label(), wholeRow, alignCenterBottom);
    AddUnitRows();
    for (const Column& column : ColumnsOf(alternative)) {
        AddHeads(column);
        for (Long place = 1; place <= g33FMUs::FMUCount(); ++place)
            AddFigures(column, place);
    }
    printer.EndTable();
}
