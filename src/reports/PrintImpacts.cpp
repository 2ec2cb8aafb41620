#include "model/c51Alternative.h"
#include "model/g51Alternatives.h"
#include "reports/ImpactTable.h"
#include "reports/ReportSections.h"
#include "reports/ReportUtilities.h"
#include "session/u14Properties.h"
#include "session/u91Trace.h"

namespace {

using namespace ReportUtilities;

/// How many tables stand on a page, and their font size in points.
struct Layout
{
    Long perPage;
    Long fontSize;
};

Layout LayoutOf(Long code) { return {code / 10, code % 10}; }

/// Few tables get as much of the page as they can have.
Layout LayoutFor(Long alternatives)
{
    constexpr Long threeSmallTables = 38;
    const Long code = ImpactTable::ImpactLayout();
    const Layout layout = LayoutOf(code);
    switch (alternatives) {
    case 2: return layout.perPage > 2 ? Layout{2, 9} : layout;
    case 4: return code == threeSmallTables ? Layout{2, 9} : layout; // two full pages, not three and one
    case 3:
    case 5:
    case 6: return layout.perPage > 3 ? Layout{3, 9} : layout;
    default: return layout;
    }
}

void WriteHeading()
{
    const bool hasGains = u14Properties::Property_GetOrAdd("UseNVCGains", "No") == "Yes";
    PrintHeading(hasGains ? "Impact on Resource Values" : "Resource Value Losses");
    platform::print::PrintControl& printer = VSPrinter1();
    printer.SetFontSize(10.0);
    printer.Paragraph("Note: Outcome values, including totals, are rounded to 3 significant digits counting "
                      "from the left.");
    printer.Paragraph("Expected Impact is rounded to 2 significant digits.");
    printer.Paragraph("");
}

void BeginPage(Double topMargin)
{
    VSPrinter1().SetMarginTop(topMargin);
    VSPrinter1().NewPage();
}

/// The tables stand in bands of equal height, whatever theirs is.
void WriteTables(Double topMargin)
{
    constexpr Double firstBand = 2040.0, allBands = 12000.0;
    platform::print::PrintControl& printer = VSPrinter1();
    const auto& alternatives = g51Alternatives::AlternativeCollection();
    const Layout layout = LayoutFor(alternatives.Count());
    for (Long place = 1; place <= alternatives.Count(); ++place) {
        const Long band = (place - 1) % layout.perPage;
        const Double top = firstBand + allBands / layout.perPage * band;
        // Names of many lines may make the table above run into the band: nothing is printed over it.
        if (band > 0 && printer.CurrentY() > top) BeginPage(topMargin);
        printer.SetMarginTop(top);
        ImpactTable::PrintImpactTable(*alternatives.At(place), layout.fontSize);
        if (band + 1 == layout.perPage && place < alternatives.Count()) BeginPage(topMargin);
    }
}

} // namespace

namespace ReportSections {

void PrintImpacts()
{
    u91Trace::Trace("PrintImpacts");
    SaveFormat();
    const Double topMargin = VSPrinter1().MarginTop();
    SetPageHeader();
    WriteHeading();
    WriteTables(topMargin);
    RestoreFormat();
}

} // namespace ReportSections
