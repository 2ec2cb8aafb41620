#pragma once

#include "platform/base/Numbers.h"
#include "platform/print/Document.h"
#include "platform/print/PrintError.h"
#include "platform/print/PrintText.h"
#include "platform/print/TableSettings.h"

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace platform::print {

/// Alignment codes of `TextAlign` and tcAlign: 0 left, 1 centre, 2 right at the top; 3, 4, 5 in the middle;
/// 6, 7, 8 at the bottom.
constexpr Integer alignLeftTop = 0, alignCenterTop = 1, alignRightTop = 2, alignLeftMiddle = 3,
                  alignCenterMiddle = 4, alignRightMiddle = 5, alignLeftBottom = 6, alignCenterBottom = 7,
                  alignRightBottom = 8;

/// Values of `TableBorder`: no rules, a thin rule above each row, all rules.
constexpr Integer tableBorderNone = 0, tableBorderAbove = 2, tableBorderAll = 7;

/// Values of `PageBorder`.
constexpr Integer pageBorderNone = 0, pageBorderRule = 2;

/// `ExportFormat` of a rich text file, the only one.
constexpr Long exportRtf = 5;

/// The print control: reports are written to it, and it lays them out on pages, once, at printer resolution.
/// What becomes of the pages is told before: `Preview` keeps them, else they go to the printer (SetPrinter);
/// while `ExportFile` is set they are written to that file and not printed. Positions and lengths are in
/// twips from the top left corner of the paper. It needs a QGuiApplication (Toolkit.h) and no display; it
/// opens no file but the export.
///
///     PrintControl printer;
///     printer.OnNewPage([&] { printer.SetHeader({{{fireName}, {"VEXA No. 7"}, {"Page %d", true}}}); });
///     printer.StartDoc();
///     printer.SetTextAlign(alignCenterTop);
///     printer.Paragraph("Objectives");                            // typed text
///     printer.SetTextAlign(alignLeftTop);
///     printer.Paragraph(Plain("1         ").Body(description));    // typed text, then a stored body
///     printer.Table("7800|>2100|^800;", {{Plain(name), "9", "0.50"}}); // cells as a list: "|" is a
///     character printer.EndDoc(); WritePdf(printer.Pages(), "report.pdf");                    // PdfFile.h;
///     PNG: PngPages.h
///
/// A table in steps: StartTable, AddTable, SetTableCell(tcRows, 3), SetTableCell(tcText, 1, 2, Plain("x")),
/// EndTable.
///
/// Text as typed takes the control's font, and so do rich fragments until they change it; a whole rich text
/// has fonts of its own. Alignment: a paragraph of a rich text that has none takes that of `TextAlign`.
class PrintControl
{
public:
    PrintControl();
    PrintControl(const PrintControl&) = delete;
    PrintControl& operator=(const PrintControl&) = delete;
    ~PrintControl();

    // The document

    /// Drops the pages, returns every setting of the page and the text to its default and opens page 1,
    /// without the event: margins 720, at the top 1440; no indents, one column, `TextAlign` 0, the report
    /// font, size 10, no header, no borders, pen black and 10 wide. `Preview` and the export stay as told.
    void StartDoc();
    /// Ends the last page and does with the pages what is told. Throws PrintError when the export fails and
    /// PrintCancelled.
    void EndDoc();
    /// Draws header and border of the page, ends it, begins the next at `MarginTop` and raises the event.
    /// Pages that fill up do the same. Throws PrintCancelled.
    void NewPage();
    /// Goes to the top of the next text column; behind the last one that is a new page.
    void NewColumn();
    /// Drops an unfinished document and its pages. Nothing is written.
    void Abandon();
    /// Between StartDoc and EndDoc.
    bool IsOpen() const;

    /// The event: raised when a new page has begun, not for the first one. `CurrentY` is `MarginTop` then,
    /// and may be changed, like any setting.
    void OnNewPage(std::function<void()> handler);
    /// Called at each page that ends, with its number from 1, so that events may run; false cancels the run.
    void OnProgress(std::function<bool(Long)> handler);

    /// What has been laid out: the pages that have ended. After EndDoc all of them, until the next StartDoc.
    const Document& Pages() const;
    /// Title of the document, for the PDF and the RTF; survives StartDoc.
    void SetTitle(std::string title);
    /// The next paragraph is a heading: the outline of PDF and RTF leads to it under this name.
    void AddBookmark(std::string title);

    // Where it goes

    bool Preview() const; // starts true
    void SetPreview(bool preview);
    /// 8: the page on show (`PreviewPage`) goes to the printer. Other numbers do nothing.
    void SetAction(Integer action);
    Long PreviewPage() const; // from 1; 0 when there is none
    void SetPreviewPage(Long page);
    /// Takes a document's pages, first to last from 0, to the printer. Without it nothing is printed.
    void SetPrinter(std::function<void(const Document&, Long, Long)> printer);
    std::string ExportFile() const;
    void SetExportFile(std::string path);
    Long ExportFormat() const;
    void SetExportFormat(Long format);
    /// Puts ASCII text as it is into the export, at this place.
    void SetExportRaw(std::string text);

    // The paper and its margins

    /// Size of the paper, Letter from the start; from the next StartDoc on.
    void SetPaper(Double width, Double height);
    Double PageWidth() const;
    Double PageHeight() const;
    Double MarginLeft() const;
    void SetMarginLeft(Double twips);
    Double MarginTop() const;
    void SetMarginTop(Double twips); // does not move the writing position
    Double MarginRight() const;
    void SetMarginRight(Double twips);
    Double MarginBottom() const;
    void SetMarginBottom(Double twips);
    Double IndentLeft() const; // of all lines, from the left margin
    void SetIndentLeft(Double twips);
    Double IndentFirst() const; // of the first line, on top of it; not where `CurrentX` was set
    void SetIndentFirst(Double twips);
    Double IndentRight() const;
    void SetIndentRight(Double twips);
    Integer Columns() const;
    /// The columns begin at `MarginTop`; writing goes on in the first one where it is.
    void SetColumns(Integer columns);
    /// The left margin of the column (or where Text ended), until it is set; a paragraph returns to that.
    Double CurrentX() const;
    void SetCurrentX(Double twips);
    Double CurrentY() const;
    void SetCurrentY(Double twips);

    // Text

    std::string FontName() const;
    void SetFontName(std::string family);
    Single FontSize() const; // points; laid out in half points
    void SetFontSize(Double points);
    bool FontBold() const;
    void SetFontBold(bool bold);
    bool FontItalic() const;
    void SetFontItalic(bool italic);
    Integer TextAlign() const;
    void SetTextAlign(Integer code);
    Double SpaceBefore() const;
    void SetSpaceBefore(Double twips);
    Double SpaceAfter() const;
    void SetSpaceAfter(Double twips);

    /// Writes a text and a line end at the writing position; the first line begins at `CurrentX`, the others
    /// at the left edge. An empty text is a blank line.
    void Paragraph(const PrintText& text);
    /// Writes a text and stays on its line: the next Paragraph goes on there.
    void Text(const PrintText& text);
    /// Measures the paragraph at the writing position, as if the page had no end: `X1`, `Y1`, `X2`, `Y2`,
    /// `TextHei`.
    void CalcParagraph(const PrintText& text);
    /// Writes a text into a box on the paper, height 0: as high as the text. With `calcOnly` it only
    /// measures. The writing position stays. What is below the bottom margin goes on at the top of a page of
    /// its own.
    void TextBox(const PrintText& text,
                 Double left,
                 Double top,
                 Double width,
                 Double height = 0.0,
                 bool wrap = true,
                 bool calcOnly = false);
    Double TextHei() const;

    // Lines

    std::uint32_t PenColor() const; // 0xBBGGRR
    void SetPenColor(std::uint32_t color);
    Double PenWidth() const; // twips
    void SetPenWidth(Double twips);
    void DrawLine(Double x1, Double y1, Double x2, Double y2);
    Double X1() const;
    void SetX1(Double twips);
    Double Y1() const;
    void SetY1(Double twips);
    Double X2() const;
    void SetX2(Double twips);
    Double Y2() const;
    void SetY2(Double twips);
    void SetDraw(Integer shape); // 1: a line from `X1`, `Y1` to `X2`, `Y2`. Other numbers do nothing

    // The running header

    /// The three fields, joined by "|".
    std::string Header() const;
    /// Three fields parted by "|"; "%d" in each is the page number.
    void SetHeader(const std::string& fields);
    /// The fields as a list: "|" is a character, "%d" too in a field that is not numbered.
    void SetHeader(const std::array<HeaderField, 3>& fields);
    std::string HdrFontName() const;
    void SetHdrFontName(std::string family);
    Single HdrFontSize() const;
    void SetHdrFontSize(Double points);
    bool HdrFontBold() const;
    void SetHdrFontBold(bool bold);
    Integer PageBorder() const;
    void SetPageBorder(Integer border);

    // Tables

    Integer TableBorder() const;
    void SetTableBorder(Integer border);
    /// Writes a table from a format string with its data behind it: "2880|>1800;left|right;". A "|" or ";"
    /// within braces is text.
    void Table(const std::string& formatAndData);
    /// The same with the cells as a list. Data behind the format's ";" comes first.
    void Table(const std::string& format, const std::vector<PrintCells>& rows);

    /// Opens a table that EndTable lays out.
    void StartTable();
    /// Adds columns and rows in the font and border in force: the header is one row of cells.
    void AddTable(const std::string& format, const std::string& header, const std::string& body = {});
    void
    AddTable(const std::string& format, const PrintCells& header, const std::vector<PrintCells>& body = {});
    void EndTable();

    /// Sets a setting of the table, of a row, of a cell, of the cells of several rows in one column, of a
    /// range. What is outside of the table is passed over.
    void SetTableCell(TableSetting setting, const CellValue& value);
    void SetTableCell(TableSetting setting, Long row, const CellValue& value);
    void SetTableCell(TableSetting setting, Long row, Long column, const CellValue& value);
    void SetTableCell(TableSetting setting, Long row1, Long column1, Long row2, const CellValue& value);
    void SetTableCell(
        TableSetting setting, Long row1, Long column1, Long row2, Long column2, const CellValue& value);
    /// What is set; of a cell outside of the table 0.
    CellValue TableCell(TableSetting setting, Long row = 0, Long column = 1) const;

    // The printer's fonts

    /// The families that the printer offers, among them those served by a substitute of equal metrics
    /// ("Arial").
    Long FontCount() const;
    std::string Fonts(Long place) const; // from 0
    /// Other fonts than the system's, for a printer that has its own.
    void SetFonts(std::vector<std::string> families);

private:
    struct State;
    std::unique_ptr<State> m_state;
};

} // namespace platform::print
