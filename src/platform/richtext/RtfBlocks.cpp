#include "platform/richtext/RtfBlocks.h"

#include "platform/richtext/RtfOutput.h"
#include "platform/richtext/RtfParagraphWords.h"
#include "platform/richtext/RtfRowWords.h"

namespace platform::richtext {

const Paragraph& EmptyParagraph()
{
    static const Paragraph empty;
    return empty;
}

RtfBlocks::RtfBlocks(std::string& rtf, RtfTables& tables, RtfLists& lists, const RichDocument& document)
    : m_rtf(rtf), m_tables(tables), m_lists(lists), m_runs(rtf, tables), m_counter(document)
{}

void RtfBlocks::WriteParagraph(const Paragraph& paragraph, Long depth, const Extras& extras)
{
    m_rtf += "\\pard";
    WritePlace(depth);
    if (m_lists.IsItem(paragraph.format)) {
        WriteItemStart(paragraph.format, depth);
    } else {
        AppendParagraphWords(m_rtf, paragraph.format, m_tables);
    }
    m_rtf.append(extras.words).append(" ").append(extras.start);
    if (paragraph.runs.empty()) {
        m_runs.WriteEmpty(paragraph.emptyFormat);
    } else {
        m_runs.Write(paragraph.runs);
    }
}

/// The marker stands first, then the list, then the look: the reports put a \pard behind the marker, which
/// takes back what stands before. So the place in a table is told once more.
void RtfBlocks::WriteItemStart(const ParagraphFormat& format, Long depth)
{
    const Long number = m_lists.NumberOf(format);
    m_rtf += " {\\listtext ";
    AppendRtfText(m_rtf, m_counter.NextMarker(format));
    AppendWord(m_rtf += "\\tab}", "\\ls", number);
    AppendWord(m_rtf, "\\ilvl", format.level);
    WritePlace(depth);
    AppendItemWords(m_rtf, format, m_tables);
}

void RtfBlocks::WritePlace(Long depth)
{
    if (depth > 0) m_rtf += "\\intbl";
    if (depth > 1) AppendWord(m_rtf, "\\itap", depth);
}

void RtfBlocks::WriteTable(const Table& table, Long depth)
{
    for (const TableRow& row : table.rows) {
        if (row.cells.empty()) continue;
        depth == 1 ? WriteRow(row, depth) : WriteNestedRow(row, depth);
    }
}

void RtfBlocks::WriteRow(const TableRow& row, Long depth)
{
    AppendRowWords(m_rtf, row, m_tables);
    for (const TableCell& cell : row.cells) {
        WriteCell(cell, depth);
        m_rtf += "\\cell";
    }
    m_rtf += "\\row";
}

/// A row within a cell tells what it is at its end, in a group that old readers skip; those take the text
/// with line ends.
void RtfBlocks::WriteNestedRow(const TableRow& row, Long depth)
{
    for (const TableCell& cell : row.cells) {
        WriteCell(cell, depth);
        m_rtf += "\\nestcell{\\nonesttables\\par}";
    }
    m_rtf += "{\\*\\nesttableprops";
    AppendRowWords(m_rtf, row, m_tables);
    m_rtf += "\\nestrow}{\\nonesttables\\par}";
}

/// The last paragraph of a cell ends with the cell; one that ends in a table gets an empty paragraph.
void RtfBlocks::WriteCell(const TableCell& cell, Long depth)
{
    bool openParagraph = false;
    for (const Block& block : cell.blocks) {
        if (openParagraph) m_rtf += "\\par ";
        const Paragraph* paragraph = block.AsParagraph();
        openParagraph = paragraph != nullptr;
        openParagraph ? WriteParagraph(*paragraph, depth) : WriteTable(*block.AsTable(), depth + 1);
    }
    if (!openParagraph) WriteParagraph(EmptyParagraph(), depth);
}

} // namespace platform::richtext
