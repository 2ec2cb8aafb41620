#include "platform/richtext/RtfWriter.h"

#include "platform/richtext/ListCounter.h"
#include "platform/richtext/RtfLists.h"
#include "platform/richtext/RtfOutput.h"
#include "platform/richtext/RtfParagraphWords.h"
#include "platform/richtext/RtfRowWords.h"
#include "platform/richtext/RtfRuns.h"
#include "platform/richtext/RtfTables.h"

namespace platform::richtext {

namespace {

const Paragraph emptyParagraph;

/// Writes the blocks of a document and gathers the fonts, colours and lists they use.
class BodyWriter
{
public:
    explicit BodyWriter(const RichDocument& document)
        : m_document(document), m_runs(m_body, m_tables), m_lists(document), m_counter(document)
    {}

    std::string Write();

private:
    void WriteBlocks();
    void WriteParagraph(const Paragraph& paragraph, Long depth);
    void WriteItemStart(const ParagraphFormat& format, Long depth);
    void WritePlace(Long depth);
    void WriteTable(const Table& table, Long depth);
    void WriteRow(const TableRow& row, Long depth);
    void WriteNestedRow(const TableRow& row, Long depth);
    void WriteCell(const TableCell& cell, Long depth);

    const RichDocument& m_document;
    std::string m_body;
    RtfTables m_tables;
    RtfRuns m_runs;
    RtfLists m_lists;
    ListCounter m_counter;
};

std::string BodyWriter::Write()
{
    WriteBlocks();
    std::string rtf = "{\\rtf1\\ansi\\ansicpg1252\\uc0\\deff0";
    m_tables.AppendTo(rtf);
    m_lists.AppendTo(rtf);
    if (m_document.defaultTab != RichDocument::defaultTabTwips) {
        AppendWord(rtf, "\\deftab", m_document.defaultTab);
    }
    rtf += "\\plain\\f0\\fs20 ";
    return rtf.append(m_body).append("}");
}

void BodyWriter::WriteBlocks()
{
    for (const Block& block : m_document.blocks) {
        if (const Table* table = block.AsTable()) {
            WriteTable(*table, 1);
        } else {
            WriteParagraph(*block.AsParagraph(), 0);
            m_body += "\\par ";
        }
    }
    const bool endsInParagraph =
        !m_document.blocks.empty() && m_document.blocks.back().AsParagraph() != nullptr;
    if (endsInParagraph) return;
    WriteParagraph(emptyParagraph, 0);
    m_body += "\\par ";
}

/// A paragraph without the word that ends it, which depends on where it stands.
void BodyWriter::WriteParagraph(const Paragraph& paragraph, Long depth)
{
    m_body += "\\pard";
    WritePlace(depth);
    if (m_lists.IsItem(paragraph.format)) {
        WriteItemStart(paragraph.format, depth);
    } else {
        AppendParagraphWords(m_body, paragraph.format, m_tables);
    }
    m_body += ' ';
    if (paragraph.runs.empty()) {
        m_runs.WriteEmpty(paragraph.emptyFormat);
    } else {
        m_runs.Write(paragraph.runs);
    }
}

/// The marker stands first, then the list, then the look: the reports put a \pard behind the marker, which
/// takes back what stands before. So the place in a table is told once more.
void BodyWriter::WriteItemStart(const ParagraphFormat& format, Long depth)
{
    const Long number = m_lists.NumberOf(format);
    m_body += " {\\listtext ";
    AppendRtfText(m_body, m_counter.NextMarker(format));
    AppendWord(m_body += "\\tab}", "\\ls", number);
    AppendWord(m_body, "\\ilvl", format.level);
    WritePlace(depth);
    AppendItemWords(m_body, format, m_tables);
}

void BodyWriter::WritePlace(Long depth)
{
    if (depth > 0) m_body += "\\intbl";
    if (depth > 1) AppendWord(m_body, "\\itap", depth);
}

void BodyWriter::WriteTable(const Table& table, Long depth)
{
    for (const TableRow& row : table.rows) {
        if (row.cells.empty()) continue;
        depth == 1 ? WriteRow(row, depth) : WriteNestedRow(row, depth);
    }
}

void BodyWriter::WriteRow(const TableRow& row, Long depth)
{
    AppendRowWords(m_body, row, m_tables);
    for (const TableCell& cell : row.cells) {
        WriteCell(cell, depth);
        m_body += "\\cell";
    }
    m_body += "\\row";
}

/// A row within a cell tells what it is at its end, in a group that old readers skip; those take the text
/// with line ends.
void BodyWriter::WriteNestedRow(const TableRow& row, Long depth)
{
    for (const TableCell& cell : row.cells) {
        WriteCell(cell, depth);
        m_body += "\\nestcell{\\nonesttables\\par}";
    }
    m_body += "{\\*\\nesttableprops";
    AppendRowWords(m_body, row, m_tables);
    m_body += "\\nestrow}{\\nonesttables\\par}";
}

/// The last paragraph of a cell ends with the cell; one that ends in a table gets an empty paragraph.
void BodyWriter::WriteCell(const TableCell& cell, Long depth)
{
    bool openParagraph = false;
    for (const Block& block : cell.blocks) {
        if (openParagraph) m_body += "\\par ";
        const Paragraph* paragraph = block.AsParagraph();
        openParagraph = paragraph != nullptr;
        openParagraph ? WriteParagraph(*paragraph, depth) : WriteTable(*block.AsTable(), depth + 1);
    }
    if (!openParagraph) WriteParagraph(emptyParagraph, depth);
}

} // namespace

std::string WriteRtf(const RichDocument& document) { return BodyWriter(document).Write(); }

} // namespace platform::richtext
