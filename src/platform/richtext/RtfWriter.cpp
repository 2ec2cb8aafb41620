#include "platform/richtext/RtfWriter.h"

#include "platform/richtext/RtfBlocks.h"
#include "platform/richtext/RtfOutput.h"

namespace platform::richtext {

namespace {

/// Writes the blocks of a document and gathers the fonts, colours and lists they use.
class BodyWriter
{
public:
    explicit BodyWriter(const RichDocument& document)
        : m_document(document), m_lists(document), m_blocks(m_body, m_tables, m_lists, document)
    {}

    std::string Write();

private:
    void WriteBlocks();
    void WriteParagraph(const Paragraph& paragraph);

    const RichDocument& m_document;
    std::string m_body;
    RtfTables m_tables;
    RtfLists m_lists;
    RtfBlocks m_blocks;
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
            m_blocks.WriteTable(*table, 1);
        } else {
            WriteParagraph(*block.AsParagraph());
        }
    }
    const bool endsInParagraph =
        !m_document.blocks.empty() && m_document.blocks.back().AsParagraph() != nullptr;
    if (!endsInParagraph) WriteParagraph(EmptyParagraph());
}

void BodyWriter::WriteParagraph(const Paragraph& paragraph)
{
    m_blocks.WriteParagraph(paragraph, 0);
    m_body += "\\par ";
}

} // namespace

std::string WriteRtf(const RichDocument& document) { return BodyWriter(document).Write(); }

} // namespace platform::richtext
