#pragma once

#include "platform/richtext/ListCounter.h"
#include "platform/richtext/RichDocument.h"
#include "platform/richtext/RtfLists.h"
#include "platform/richtext/RtfRuns.h"
#include "platform/richtext/RtfTables.h"

#include <string>
#include <string_view>

namespace platform::richtext {

/// Writes paragraphs and tables in their order and gathers the fonts, colours and lists they use.
class RtfBlocks
{
public:
    /// What a paragraph bears beside its own look.
    struct Extras
    {
        std::string_view words; // control words behind its look
        std::string_view start; // rich text ahead of its own: a drawing anchored to it
    };

    /// All must outlive the object, the document for its lists, and so must whatever is written.
    RtfBlocks(std::string& rtf, RtfTables& tables, RtfLists& lists, const RichDocument& document);

    /// A paragraph without the word that ends it, which depends on where it stands: depth 0 is outside of
    /// tables.
    void WriteParagraph(const Paragraph& paragraph, Long depth, const Extras& extras = {});
    /// A table; depth 1 is one that stands in no other.
    void WriteTable(const Table& table, Long depth);

private:
    void WriteItemStart(const ParagraphFormat& format, Long depth);
    void WritePlace(Long depth);
    void WriteRow(const TableRow& row, Long depth);
    void WriteNestedRow(const TableRow& row, Long depth);
    void WriteCell(const TableCell& cell, Long depth);

    std::string& m_rtf;
    RtfTables& m_tables;
    RtfLists& m_lists;
    RtfRuns m_runs;
    ListCounter m_counter;
};

/// A paragraph of the default look and no text.
const Paragraph& EmptyParagraph();

} // namespace platform::richtext
