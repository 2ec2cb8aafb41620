#include "reports/ReportUtilities.h"

#include "reports/ReportRun.h"
#include "reports/ReportState.h"
#include "session/g0Items.h"

#include <algorithm>

namespace ReportUtilities {

namespace {

using platform::print::HeaderField;

constexpr Long analysisNumber = 221; // key of the item
constexpr Double headerSize = 10.0, headingSize = 12.0, bannerSize = 11.0;
constexpr Long ruleLeft = 720, ruleRight = 11520, bannerHeight = 250;
constexpr Double headingGap = 50.0; // from the top margin
/// A report of fewer sections has a blank for the page number, to be filled in by hand when it is put
/// together with other pages.
constexpr Integer sectionsNumbered = 8;

HeaderField PageField()
{
    return ReportRun::nSelected() < sectionsNumbered ? HeaderField{"Page ___", false}
                                                     : HeaderField{"Page %d", true};
}

bool IsServed(const std::string& family)
{
    const platform::print::PrintControl& printer = VSPrinter1();
    for (Long place = 0; place < printer.FontCount(); ++place) {
        if (printer.Fonts(place) == family) return true;
    }
    return false;
}

} // namespace

void SetPageHeader()
{
    platform::print::PrintControl& printer = VSPrinter1();
    printer.SetHdrFontName(GetPrintFont());
    printer.SetHdrFontSize(headerSize);
    printer.SetHdrFontBold(false);
    const std::string fireName = g0Items::GetItem(g0Items::FireName)->Body();
    const std::string number = g0Items::GetItem(analysisNumber)->Body();
    printer.SetHeader({HeaderField{fireName, false}, HeaderField{"VEXA No. " + number, false}, PageField()});
    printer.SetPageBorder(platform::print::pageBorderRule);
}

void PrintHeading(const std::string& text)
{
    platform::print::PrintControl& printer = VSPrinter1();
    SaveFormat();
    printer.SetCurrentY(printer.MarginTop() + headingGap);
    printer.SetTextAlign(platform::print::alignCenterTop);
    printer.SetFontName(GetPrintFont());
    printer.SetFontSize(headingSize);
    printer.SetFontBold(true);
    printer.AddBookmark(text);
    printer.Paragraph(platform::print::Plain(text));
    printer.Paragraph("");
    RestoreFormat();
}

void BeginTables(const std::string& heading)
{
    constexpr Double firstTable = 1440.0;
    SetPageHeader();
    PrintHeading(heading);
    VSPrinter1().SetCurrentX(VSPrinter1().MarginLeft());
    VSPrinter1().SetCurrentY(firstTable);
}

void AddTitledColumns(
    const std::string& format, Long columns, const std::string& title, Long span, Integer align)
{
    using namespace platform::print;
    constexpr Double rule = 7.0;
    PrintControl& printer = VSPrinter1();
    PrintCells header(static_cast<std::size_t>(columns));
    header.front() = Plain(title);
    printer.AddTable(format, header);
    printer.SetTableCell(tcColSpan, 0, 1, span);
    printer.SetTableCell(tcAlign, 0, 1, align);
    printer.SetTableCell(tcFontSize, 0, 1, 11);
    printer.SetTableCell(tcFontBold, 0, 1, true);
    printer.SetTableCell(tcRowBorderAbove, 0, 1, rule);
    printer.SetTableCell(tcRowBorderBelow, 0, 1, rule);
}

void PrintBanner(const std::string& text)
{
    platform::print::PrintControl& printer = VSPrinter1();
    const Long top = platform::ToLong(printer.MarginTop());
    DrawRule(ruleLeft, top, ruleRight, top);
    DrawRule(ruleLeft, top + bannerHeight, ruleRight, top + bannerHeight);
    printer.SetCurrentX(printer.MarginLeft());
    printer.SetCurrentY(printer.MarginTop());
    printer.SetFontSize(bannerSize);
    printer.SetFontBold(true);
    printer.SetTextAlign(platform::print::alignCenterTop);
    printer.Paragraph(platform::print::Plain(text));
    printer.SetTextAlign(platform::print::alignLeftTop);
}

std::string GetPrintFont()
{
    std::string& chosen = State().printFont;
    if (!chosen.empty()) return chosen;
    for (const char* family : {"Arial", "Microsoft Sans Serif"}) {
        if (IsServed(family)) return chosen = family;
    }
    return VSPrinter1().FontName(); // not kept: the next call searches again
}

Long GetTextWidth()
{
    constexpr Double margins = 1440.0;
    return platform::ToLong(VSPrinter1().PageWidth() - margins);
}

Long MaxLong(Long a, Long b) { return std::max(a, b); }

} // namespace ReportUtilities
