#include "platform/base/Texts.h"
#include "reports/ReportSections.h"
#include "reports/ReportUtilities.h"
#include "session/c0Item.h"
#include "session/g2Situation.h"
#include "session/u91Trace.h"

namespace {

using namespace ReportUtilities;
using namespace platform::print;

enum Key : Long {
    FireName = 11,
    IncidentNumber = 52,
    Jurisdictions = 53,
    FireUnit = 54,
    GeographicArea = 55,
    FireSize = 57,
    StartDate = 61,
    StartTime = 62,
    AccountingCode = 217,
    AnalysisNumber = 221,
    DatePrepared = 222,
    TimePrepared = 223,
};

std::string ItemText(Key key) { return g2Situation::GetItem(key)->Body(); }

/// A row with a title over both columns, between two rules.
void SetTitleRow(Long row, const char* title)
{
    constexpr Double rule = 7.0;
    PrintControl& printer = VSPrinter1();
    printer.SetTableCell(tcText, row, 1, Plain(title));
    printer.SetTableCell(tcColSpan, row, 1, 2);
    printer.SetTableCell(tcRowBorderAbove, row, 1, rule);
    printer.SetTableCell(tcRowBorderBelow, row, 1, rule);
    printer.SetTableCell(tcFontSize, row, 1, 12);
    printer.SetTableCell(tcFontBold, row, 1, true);
    printer.SetTableCell(tcAlign, row, 1, alignCenterBottom);
}

PrintText FireItems()
{
    PrintText text;
    text.Rich("{\\par\\b VEXA Number:}  ").Plain(ItemText(AnalysisNumber));
    text.Rich("{\\par\\par\\b Fire Name:}  ").Plain(ItemText(FireName));
    text.Rich("{\\par\\par\\b Incident Number:}  ").Plain(ItemText(IncidentNumber));
    text.Rich("{\\par\\par\\b Date/Time Prepared:}  ").Plain(ItemText(DatePrepared));
    return text.Plain(" ").Plain(ItemText(TimePrepared)).Rich("{\\par}");
}

PrintText PlaceItems()
{
    PrintText text;
    text.Rich("{\\par\\b Jurisdiction(s):}  ").Plain(ItemText(Jurisdictions));
    text.Rich("{\\par\\par\\b Geographic Area:}  ").Plain(ItemText(GeographicArea));
    text.Rich("{\\par\\par\\b Unit:}  ").Plain(ItemText(FireUnit));
    text.Rich("{\\par\\par\\b Accounting or Management Code:}  ").Plain(ItemText(AccountingCode));
    return text.Rich("{\\par}");
}

void WriteTitleTable()
{
    PrintControl& printer = VSPrinter1();
    const std::string half = platform::TextOf(platform::ToLong(Double(GetTextWidth()) / 2.0));
    printer.StartTable();
    printer.AddTable(half + "|" + half + ";", PrintCells{Plain("Vexarium\r\n"), PrintText()});
    printer.SetTableCell(tcColSpan, 0, 1, 2);
    printer.SetTableCell(tcAlign, 0, 1, alignCenterBottom);
    printer.SetTableCell(tcFontSize, 0, 1, 14);
    printer.SetTableCell(tcFontBold, 0, 1, true);
    printer.SetTableCell(tcRows, 3);
    SetTitleRow(1, "VEXA Information");
    printer.SetTableCell(tcText, 2, 1, FireItems());
    printer.SetTableCell(tcText, 2, 2, PlaceItems());
    SetTitleRow(3, "Fire Situation");
    printer.EndTable();
}

/// The front page bears no running header; the next one does.
void ShowVEXAInformation()
{
    u91Trace::Trace("r1Situation.ShowVEXAInformation");
    PrintControl& printer = VSPrinter1();
    printer.SetHeader("||");
    printer.SetPageBorder(pageBorderNone);
    printer.AddBookmark("Situation");
    printer.Paragraph("");
    printer.Paragraph("");
    printer.SetFontSize(11.0);
    printer.SetFontBold(false);
    printer.SetTableBorder(tableBorderNone);
    WriteTitleTable();
}

/// A fact in one line, its caption bold.
void WriteFact(const char* caption, const std::string& fact)
{
    PrintControl& printer = VSPrinter1();
    printer.SetFontBold(true);
    printer.Text(Plain(caption));
    printer.SetFontBold(false);
    printer.Paragraph(Plain(fact));
}

void WriteTopic(const c0Item& topic)
{
    constexpr Double least = 1080.0; // to the end of the paper: below that a heading would stand alone
    PrintControl& printer = VSPrinter1();
    printer.Paragraph("");
    if (printer.CurrentY() + least > printer.PageHeight()) printer.NewColumn();
    printer.SetFontBold(true);
    printer.Paragraph(Plain(topic.Heading()));
    printer.SetFontBold(false);
    printer.Paragraph(Body(topic.Body()));
}

/// Two columns, which begin below the table: the top margin moves down to it.
void ShowFireSituation()
{
    u91Trace::Trace("r1Situation.ShowFireSituation");
    PrintControl& printer = VSPrinter1();
    printer.Paragraph("");
    printer.SetMarginTop(printer.CurrentY());
    printer.SetColumns(2);
    WriteFact("Start Date/Time:   ", ItemText(StartDate) + " " + ItemText(StartTime));
    printer.Paragraph("");
    WriteFact("Current Fire Size:   ", ItemText(FireSize) + " acres");
    for (const auto& topic : g2Situation::GetSituationTopics())
        WriteTopic(*topic);
}

} // namespace

namespace ReportSections {

void PrintSituation()
{
    u91Trace::Trace("r1Situation.PrintSituation");
    SaveFormat();
    ShowVEXAInformation();
    ShowFireSituation();
    RestoreFormat();
}

} // namespace ReportSections
