#include "model/c51Alternative.h"
#include "model/g51Alternatives.h"
#include "platform/base/Formats.h"
#include "reports/ReportSections.h"
#include "reports/ReportUtilities.h"
#include "session/u91Trace.h"

namespace {

using namespace ReportUtilities;
using namespace platform::print;

void WriteTarget()
{
    PrintControl& printer = VSPrinter1();
    printer.SetTextAlign(alignCenterBottom);
    printer.SetFontSize(10.0);
    printer.SetFontBold(false);
    const auto selected = g51Alternatives::SelectedAlternative();
    if (!selected) return;
    printer.SetTableBorder(tableBorderNone);
    printer.Table(">1860|<1200|6360;",
                  {{Plain(platform::Format(selected->EstimatedCost(), "$#,0")),
                    Plain(platform::Format(selected->EstimatedSize(), "#,0")),
                    Plain("Estimated target suppression cost and size")}});
}

/// Five narrow columns, whose heads read upward, and three wide ones.
void SetUpHeads()
{
    constexpr Long lastNarrow = 5, lastColumn = 8;
    PrintControl& printer = VSPrinter1();
    printer.SetTableCell(tcAlign, 0, 1, 0, lastNarrow, alignLeftBottom);
    printer.SetTableCell(tcAlign, 0, lastNarrow + 1, 0, lastColumn, alignCenterMiddle);
    printer.SetTableCell(tcRowIsHeader, 0, 0);
    printer.SetTableCell(tcRows, 10);
    printer.SetTableCell(tcVertical, 0, 1, 0, lastNarrow, true);
}

void WriteReviewTable()
{
    constexpr Long headHeight = 3900, rowHeight = 480, rows = 10;
    PrintControl& printer = VSPrinter1();
    printer.Paragraph("");
    printer.SetTableBorder(tableBorderAll);
    printer.StartTable();
    // The blank ahead of the turned heads keeps them off the rule.
    printer.AddTable("420|420|1020|720|480|4320|1080|960;",
                     " National Preparedness Level| Regional Preparedness Level| Suppression cost to date"
                     "| Size to date|Selected alternative remains valid (Y or N)|By|Date|Time;");
    SetUpHeads();
    printer.SetTableCell(tcRowHeight, 0, headHeight);
    printer.SetTableCell(tcRowHeight, 1, 1, rows, rowHeight);
    printer.EndTable();
}

void WriteLine(const char* text)
{
    VSPrinter1().Paragraph("");
    VSPrinter1().Paragraph("");
    VSPrinter1().Paragraph(text);
}

void WriteFinalReview()
{
    PrintControl& printer = VSPrinter1();
    printer.SetTextAlign(alignCenterBottom);
    printer.SetFontSize(12.0);
    printer.SetFontBold(true);
    WriteLine("Final Review");
    printer.SetFontSize(11.0);
    printer.SetFontBold(false);
    WriteLine("The elements of the selected alternative were met on:");
    WriteLine("Date:__________________________     Time:______________________");
    WriteLine("By:__________________________________________________________");
    printer.Paragraph("Agency Administrator");
}

} // namespace

namespace ReportSections {

void PrintDailyReview()
{
    u91Trace::Trace("PrintDailyReview");
    SaveFormat();
    SetPageHeader();
    PrintHeading("Daily Review");
    WriteTarget();
    WriteReviewTable();
    WriteFinalReview();
    RestoreFormat();
}

} // namespace ReportSections
