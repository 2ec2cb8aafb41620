#pragma once

#include "platform/base/Numbers.h"
#include "platform/print/PrintControl.h"

#include <optional>
#include <string>

/// What all sections of the report share: the print control, the state of a session's reports, and the steps
/// that headings, rules and lines are made of. Lengths are twips.
namespace ReportUtilities {

/// The print control, the only one of the program, made on first use; a QGuiApplication must run. Reports are
/// written to it, the preview shows its pages.
platform::print::PrintControl& VSPrinter1();
/// The program ends: drops the print control and all that a session keeps of its reports.
void EndReports();

/// True only while a rich text export runs.
bool bSavingRtf();
void SetbSavingRtf(bool saving);
/// How many rich texts that hold a list have passed through FixRtfList in this session.
Integer nRtfLists();
/// The font chosen by GetPrintFont; empty until one of its own choice was found.
const std::string& sPrintFont();

/// A saved state of the print control.
struct PrintFormat
{
    Long MarginTop = 0;
    Long MarginLeft = 0;
    Long MarginRight = 0;
    Long MarginBottom = 0;
    Integer Columns = 0;
    Integer TextAlign = 0;
    Long IndentLeft = 0;
    Long IndentFirst = 0;
    Long IndentRight = 0;
    std::string FontName;           // empty: not written back
    std::optional<Single> FontSize; // points; nothing: not written back
    bool FontBold = false;
    bool FontItalic = false;
};

/// Puts the control's state on the stack: the 13 fields and nothing else.
void SaveFormat();
/// Takes the top of the stack back into the control. One for each SaveFormat.
void RestoreFormat();
/// Empties the stack, so that a report that failed leaves nothing on it.
void PrintSet_Init();

/// The running header: fire name, number of the analysis and page, and the rule under it. Throws
/// DatabaseError.
void SetPageHeader();
/// Prints a section's heading; it stands in the outline under its own words.
void PrintHeading(const std::string& text);
/// Begins a section of tables: running header, heading, and the place below it.
void BeginTables(const std::string& heading);
/// Adds columns to the open table. Row 0 is its title, bold in 11 points between two rules: over `span`
/// columns and aligned as told.
void AddTitledColumns(
    const std::string& format, Long columns, const std::string& title, Long span, Integer align);
/// Prints a heading between two rules over the width of a letter page. Leaves size and weight of the font.
void PrintBanner(const std::string& text);
/// The report font: "Arial", else "Microsoft Sans Serif", else that of the control.
std::string GetPrintFont();
/// The width of a table between margins of half an inch.
Long GetTextWidth();
Long MaxLong(Long a, Long b);

/// Draws a line and, in an export, writes it once more as a shape.
void DrawReportLine(Long x1, Long y1, Long x2, Long y2);
/// Draws a line by way of the control's corners.
void DrawRule(Long x1, Long y1, Long x2, Long y2);

/// The text without blanks, carriage returns and line feeds at its end.
std::string TrimRight(std::string text);
/// Gives a rich text's list a number of its own, so that the lists of two texts are not taken for one, and
/// its first paragraph the list's indentation.
std::string FixRtfList(std::string rtf);

} // namespace ReportUtilities
