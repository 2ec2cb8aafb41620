#include "platform/richtext/RtfRowWords.h"

#include "platform/richtext/RtfOutput.h"

namespace platform::richtext {

namespace {

std::string_view StyleWord(BorderStyle style)
{
    switch (style) {
    case BorderStyle::Double: return "\\brdrdb";
    case BorderStyle::Dotted: return "\\brdrdot";
    case BorderStyle::Dashed: return "\\brdrdash";
    case BorderStyle::Thick: return "\\brdrth";
    case BorderStyle::Single:
    case BorderStyle::None: break;
    }
    return "\\brdrs";
}

void AppendBorder(std::string& rtf, std::string_view side, const Border& border, RtfTables& tables)
{
    if (border.style == BorderStyle::None) return;
    rtf.append(side).append(StyleWord(border.style));
    AppendWord(rtf, "\\brdrw", border.width);
    if (border.color) AppendWord(rtf, "\\brdrcf", tables.ColorOf(border.color));
}

void AppendMerge(std::string& rtf, CellMerge merge, std::string_view first, std::string_view continued)
{
    if (merge == CellMerge::First) rtf += first;
    if (merge == CellMerge::Continued) rtf += continued;
}

void AppendCellWords(std::string& rtf, const TableCell& cell, RtfTables& tables)
{
    AppendMerge(rtf, cell.mergeAcross, "\\clmgf", "\\clmrg");
    AppendMerge(rtf, cell.mergeDown, "\\clvmgf", "\\clvmrg");
    if (cell.alignment == CellAlignment::Center) rtf += "\\clvertalc";
    if (cell.alignment == CellAlignment::Bottom) rtf += "\\clvertalb";
    AppendBorder(rtf, "\\clbrdrt", cell.top, tables);
    AppendBorder(rtf, "\\clbrdrl", cell.left, tables);
    AppendBorder(rtf, "\\clbrdrb", cell.bottom, tables);
    AppendBorder(rtf, "\\clbrdrr", cell.right, tables);
    if (cell.background) AppendWord(rtf, "\\clcbpat", tables.ColorOf(cell.background));
    if (cell.upward) rtf += "\\cltxbtlr";
}

void AppendRowOptions(std::string& rtf, const TableRow& row)
{
    if (row.height != 0) AppendWord(rtf, "\\trrh", row.height);
    if (row.alignment == Alignment::Center) rtf += "\\trqc";
    if (row.alignment == Alignment::Right) rtf += "\\trqr";
    if (row.heading) rtf += "\\trhdr";
    if (row.keepTogether) rtf += "\\trkeep";
}

} // namespace

void AppendRowWords(std::string& rtf, const TableRow& row, RtfTables& tables)
{
    AppendWord(rtf, "\\trowd\\trgaph", row.cellGap);
    AppendWord(rtf, "\\trleft", row.left);
    AppendRowOptions(rtf, row);
    std::int64_t edge = row.left;
    for (const TableCell& cell : row.cells) {
        AppendCellWords(rtf, cell, tables);
        edge += cell.width;
        AppendWord(rtf, "\\cellx", edge);
    }
}

} // namespace platform::richtext
