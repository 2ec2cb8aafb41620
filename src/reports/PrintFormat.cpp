#include "reports/ReportState.h"

#include <cassert>

namespace ReportUtilities {

using platform::ToLong;

void PrintSet_Init() { State().formatStack.assign(1, PrintFormat()); }

void SaveFormat()
{
    const platform::print::PrintControl& printer = VSPrinter1();
    PrintFormat format;
    format.MarginTop = ToLong(printer.MarginTop());
    format.MarginLeft = ToLong(printer.MarginLeft());
    format.MarginRight = ToLong(printer.MarginRight());
    format.MarginBottom = ToLong(printer.MarginBottom());
    format.Columns = printer.Columns();
    format.TextAlign = printer.TextAlign();
    format.IndentLeft = ToLong(printer.IndentLeft());
    format.IndentFirst = ToLong(printer.IndentFirst());
    format.IndentRight = ToLong(printer.IndentRight());
    format.FontName = printer.FontName();
    format.FontSize = printer.FontSize();
    format.FontBold = printer.FontBold();
    format.FontItalic = printer.FontItalic();
    State().formatStack.push_back(format);
}

void RestoreFormat()
{
    assert(State().formatStack.size() > 1);
    platform::print::PrintControl& printer = VSPrinter1();
    const PrintFormat format = State().formatStack.back();
    printer.SetMarginTop(format.MarginTop);
    printer.SetMarginLeft(format.MarginLeft);
    printer.SetMarginRight(format.MarginRight);
    printer.SetMarginBottom(format.MarginBottom);
    printer.SetColumns(format.Columns);
    printer.SetTextAlign(format.TextAlign);
    printer.SetIndentLeft(format.IndentLeft);
    printer.SetIndentFirst(format.IndentFirst);
    printer.SetIndentRight(format.IndentRight);
    if (!format.FontName.empty()) printer.SetFontName(format.FontName);
    if (format.FontSize) printer.SetFontSize(Double(*format.FontSize));
    printer.SetFontBold(format.FontBold);
    printer.SetFontItalic(format.FontItalic);
    State().formatStack.pop_back();
}

} // namespace ReportUtilities
