#include "model/c51Alternative.h"
#include "model/g51Alternatives.h"
#include "reports/ReportSections.h"
#include "reports/ReportUtilities.h"
#include "session/u91Trace.h"
#include "values/g8Summary.h"

namespace {

using namespace ReportUtilities;
using platform::print::Body;
using platform::print::Plain;

// What is below a heading is indented: the headings begin left of the left margin.
constexpr Double headingLeft = 1080.0;
constexpr Double headingSize = 11.0, labelSize = 10.0;

void SetUpBlock()
{
    platform::print::PrintControl& printer = VSPrinter1();
    printer.SetMarginTop(1440.0);
    printer.SetMarginLeft(2880.0);
    printer.SetMarginRight(1440.0);
    printer.SetFontSize(headingSize);
    printer.SetCurrentY(1440.0);
}

void WriteHeading(const std::string& text)
{
    platform::print::PrintControl& printer = VSPrinter1();
    printer.SetCurrentX(headingLeft);
    printer.SetFontBold(true);
    printer.Paragraph(Plain(text));
    printer.SetFontBold(false);
}

void WriteSelected()
{
    SetUpBlock();
    WriteHeading("Selected Alternative");
    if (const auto selected = g51Alternatives::SelectedAlternative())
        VSPrinter1().Paragraph(Plain(selected->Label()));
    VSPrinter1().Paragraph("");
}

/// With no alternative at all the words stand alone.
void WriteMostCostEffective()
{
    platform::print::PrintControl& printer = VSPrinter1();
    const auto cheapest = g51Alternatives::MostCostEffectiveAlternative();
    printer.SetCurrentX(headingLeft);
    printer.SetFontBold(false);
    printer.SetFontSize(labelSize);
    printer.Paragraph(
        Plain("     Most Cost Effective Alternative:   " + (cheapest ? cheapest->Label() : std::string())));
    printer.Paragraph("");
    printer.SetFontSize(headingSize);
}

/// Whether a topic begins in the lower half of the page and would end below its foot.
bool RunsOver(const c0Item& topic)
{
    constexpr Double tested = 8000.0, headingAndGap = 600.0, lowest = 13680.0;
    platform::print::PrintControl& printer = VSPrinter1();
    if (printer.CurrentY() <= tested) return false;
    printer.CalcParagraph(Body(topic.Body()));
    return printer.Y2() + headingAndGap > lowest;
}

void WriteTopic(const c0Item& topic)
{
    platform::print::PrintControl& printer = VSPrinter1();
    if (RunsOver(topic)) {
        RestoreFormat(); // the page begins with the margins of a fresh one
        printer.NewPage();
        SaveFormat();
        SetUpBlock();
    }
    WriteHeading(topic.Heading());
    printer.Paragraph(Body(topic.Body()));
    printer.Paragraph("");
}

void WriteBlankLines(int count)
{
    for (int i = 0; i < count; ++i)
        VSPrinter1().Paragraph("");
}

void WriteSignatures()
{
    constexpr Double lowest = 12240.0;
    platform::print::PrintControl& printer = VSPrinter1();
    printer.SetMarginLeft(1440.0);
    if (printer.CurrentY() > lowest) {
        printer.NewPage();
        WriteBlankLines(2);
        printer.SetCurrentY(5000.0);
    } else {
        WriteBlankLines(2);
    }
    printer.SetTableBorder(platform::print::tableBorderNone);
    const std::string line(45, '_'), longLine(48, '_'), shortLine(20, '_');
    printer.Table("2880|6660;Analysis prepared by:|" + line + "; | ;|" + line + "; | ; | ; | ;");
    printer.Table("6660|2880;" + longLine + "|" + shortLine + ";Agency Administrator Approval|Date/Time;");
}

} // namespace

namespace ReportSections {

void PrintDecisionSummary()
{
    u91Trace::Trace("PrintDecisionSummary");
    SaveFormat();
    SetPageHeader();
    PrintHeading("Decision Summary");
    WriteSelected();
    WriteMostCostEffective();
    for (const auto& topic : g8Summary::SummaryItems())
        WriteTopic(*topic);
    WriteSignatures();
    RestoreFormat();
}

} // namespace ReportSections
