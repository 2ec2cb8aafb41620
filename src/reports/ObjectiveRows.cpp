#include "reports/ObjectiveRows.h"

#include "reports/ReportUtilities.h"

namespace ObjectiveRows {

using namespace platform::print;
using ReportUtilities::VSPrinter1;

bool RunsOver(const std::string& description, double need)
{
    constexpr double tested = 12000.0;
    PrintControl& printer = VSPrinter1();
    printer.CalcParagraph(Plain("1         ").Body(description));
    return printer.CurrentY() > tested && printer.Y2() + need > printer.PageHeight();
}

namespace {

void WriteRow(PrintCells cells, double spaceBefore, Integer border, bool bold)
{
    PrintControl& printer = VSPrinter1();
    printer.SetSpaceBefore(spaceBefore);
    printer.SetTableBorder(border);
    printer.SetFontBold(bold);
    printer.Table(columns, {std::move(cells)});
}

} // namespace

void WriteCategory(const std::string& name) { WriteRow({Plain(name)}, 120.0, tableBorderAbove, true); }

void WriteItem(PrintCells cells) { WriteRow(std::move(cells), 60.0, tableBorderNone, false); }

void WriteDescription(const std::string& description)
{
    constexpr double indent = 1440.0;
    PrintControl& printer = VSPrinter1();
    printer.SetFontBold(false);
    printer.SetIndentLeft(indent);
    printer.SetCurrentX(printer.MarginLeft() + indent);
    printer.Paragraph(Body(description));
    printer.SetIndentLeft(0.0);
}

} // namespace ObjectiveRows
