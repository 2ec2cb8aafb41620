#pragma once

#include "platform/print/Document.h"
#include "platform/print/RtfSections.h"
#include "platform/richtext/RtfBlocks.h"

#include <string>
#include <vector>

namespace platform::print {

/// Writes the flow record as the body of a rich text document and gathers the fonts, colours and lists it
/// uses.
///
/// Pages come out as they are told: a page that was ended begins a new one, text that ran over a page's end
/// does so by itself. Positions that were told become space above the next paragraph; where the writing
/// position went back up, what follows stands below what is there, and the bottom margin makes room for that.
class RtfFlow
{
public:
    /// The document must outlive the object.
    explicit RtfFlow(const Document& document);

    /// The whole document as rich text.
    std::string Write();

private:
    void WriteItem(std::size_t place);
    void WriteText(FlowItem& item, FlowText& text);
    void WriteTable(FlowItem& item, FlowTable& table);
    void WriteBox(FlowTextBox& box);
    void BreakPage(std::size_t place);
    void BreakColumn();
    void ChangeColumns(std::size_t place, const FlowColumns& columns);
    void BeginSection(const RtfSection& section, bool goesOn);
    Double TopFrom(std::size_t place, Long page, Double margin) const;
    RtfSection SectionAt(std::size_t place, Long page) const;
    Long GroupEnd(std::size_t place) const;
    Double SlackFrom(std::size_t place) const;
    bool IsJumpedOver(std::size_t place) const;

    void WriteParagraph(const richtext::Paragraph& paragraph, bool isHeading);
    void WriteSpacer(Double height);
    void FlushAnchors();
    void MoveTo(const FlowItem& item, Double& gap);
    Double ColumnWidth() const; // of the section that is being written
    Double TextHeight() const;
    void PrepareRows(richtext::Table& table, Double left);
    void PrepareRules(FlowTable& table);
    std::string TakeStart();

    const Document& m_document;
    std::vector<FlowItem> m_items;  // copies, with what the place on the page adds to them
    richtext::RichDocument m_lists; // holds the lists alone
    std::string m_body;
    richtext::RtfTables m_tables;
    richtext::RtfLists m_rtfLists;
    richtext::RtfBlocks m_blocks;
    RtfSection m_section;
    Long m_columns = 1; // that the control has, whether a section was begun for them or not
    Double m_columnGap = 0.0;
    std::string m_anchored;    // drawings that wait for a paragraph
    bool m_breaksPage = false; // the next paragraph begins a page
    bool m_breaksColumn = false;
    bool m_sectionIsEmpty = true;
    bool m_endsInParagraph = false;
    std::vector<Long> m_edges; // of the cells of the last row written
    Double m_y = 0.0;          // where the export stands on its page
    Long m_order = 0;          // of drawings
};

} // namespace platform::print
