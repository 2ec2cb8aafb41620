#include "platform/print/RtfFlow.h"

#include "platform/print/RtfAdjust.h"
#include "platform/print/RtfShapes.h"
#include "platform/richtext/RtfOutput.h"

#include <algorithm>
#include <cmath>

namespace platform::print {

namespace {

using richtext::AppendWord;
using richtext::Block;
using richtext::Paragraph;

constexpr Double leastGap = 10.0;     // less is no distance
constexpr Double leastBottom = 240.0; // margin
constexpr Double looseLines = 0.005;  // what word processors may round up
constexpr Double smallest = 20.0;     // height of a paragraph that only bears drawings
constexpr std::string_view paragraphEnd = "\\par ";

template <class Content> bool Is(const FlowItem& item)
{
    return std::holds_alternative<Content>(item.content);
}

bool IsDrawing(const FlowItem& item)
{
    return Is<FlowTextBox>(item) || Is<FlowLine>(item) || Is<FlowRaw>(item);
}

bool IsBlank(const FlowItem& item)
{
    const FlowText* text = std::get_if<FlowText>(&item.content);
    if (text == nullptr || text->blocks.size() != 1) return false;
    const Paragraph* paragraph = text->blocks.front().AsParagraph();
    return paragraph != nullptr && paragraph->runs.empty();
}

/// Where the cells of a row end, and where the first begins.
std::vector<Long> EdgesOf(const richtext::TableRow& row)
{
    std::vector<Long> edges{row.left};
    for (const richtext::TableCell& cell : row.cells)
        edges.push_back(edges.back() + cell.width);
    return edges;
}

} // namespace

RtfFlow::RtfFlow(const Document& document)
    : m_document(document),
      m_items(document.flow), m_lists{{}, document.lists, richtext::RichDocument::defaultTabTwips},
      m_rtfLists(m_lists), m_blocks(m_body, m_tables, m_rtfLists, m_lists)
{}

std::string RtfFlow::Write()
{
    BeginSection(SectionAt(0, 0), false);
    m_y = m_section.marginTop;
    for (std::size_t place = 0; place < m_items.size(); ++place)
        WriteItem(place);
    FlushAnchors();
    if (!m_endsInParagraph) WriteSpacer(smallest);
    std::string rtf = "{\\rtf1\\ansi\\ansicpg1252\\uc0\\deff0";
    m_tables.AppendTo(rtf);
    rtf += "{\\stylesheet{\\ql\\f0\\fs20 Normal;}{\\s1\\ql\\outlinelevel0\\f0\\fs20\\sbasedon0\\snext0 "
           "heading 1;}}";
    m_rtfLists.AppendTo(rtf);
    rtf += "{\\info{\\title ";
    richtext::AppendRtfText(rtf, m_document.title);
    AppendWord(rtf += "}}", "\\paperw", Twips(m_document.pageWidth));
    AppendWord(rtf, "\\paperh", Twips(m_document.pageHeight));
    rtf += "\\margl720\\margr720\\margt1440\\margb720\\viewkind1";
    return rtf.append(m_body).append("}");
}

void RtfFlow::WriteItem(std::size_t place)
{
    FlowItem& item = m_items[place];
    if (FlowText* text = std::get_if<FlowText>(&item.content)) {
        if (!IsJumpedOver(place)) WriteText(item, *text);
    } else if (FlowTable* table = std::get_if<FlowTable>(&item.content)) {
        WriteTable(item, *table);
    } else if (FlowTextBox* box = std::get_if<FlowTextBox>(&item.content)) {
        WriteBox(*box);
    } else if (const FlowLine* line = std::get_if<FlowLine>(&item.content)) {
        AppendLineShape(m_anchored, line->line, m_order++);
    } else if (const FlowRaw* raw = std::get_if<FlowRaw>(&item.content)) {
        m_anchored += raw->text;
    } else if (const FlowColumns* columns = std::get_if<FlowColumns>(&item.content)) {
        ChangeColumns(place, *columns);
    } else {
        Is<FlowPageBreak>(item) || m_section.columns < 2 ? BreakPage(place) : BreakColumn();
    }
}

/// A blank line that the writing position went back over is none of the page's.
bool RtfFlow::IsJumpedOver(std::size_t place) const
{
    if (!IsBlank(m_items[place])) return false;
    for (std::size_t next = place + 1; next < m_items.size(); ++next) {
        const FlowItem& item = m_items[next];
        if (IsDrawing(item)) continue;
        const bool isText = Is<FlowText>(item) || Is<FlowTable>(item);
        if (!isText || item.page != m_items[place].page) return false;
        if (item.top < m_items[place].bottom - leastGap) return true;
        if (!IsBlank(item)) return false;
    }
    return false;
}

void RtfFlow::MoveTo(const FlowItem& item, Double& gap)
{
    gap = item.top - m_y;
    m_y = item.bottom;
    if (gap < leastGap) gap = 0.0;
}

std::string RtfFlow::TakeStart()
{
    std::string start = m_breaksColumn ? "\\column " : "";
    m_breaksColumn = false;
    start += m_anchored;
    m_anchored.clear();
    return start;
}

void RtfFlow::WriteParagraph(const Paragraph& paragraph, bool isHeading)
{
    std::string words = isHeading ? "\\s1\\outlinelevel0" : "";
    if (m_breaksPage) words += "\\pagebb";
    m_breaksPage = false;
    const std::string start = TakeStart();
    m_blocks.WriteParagraph(paragraph, 0, {words, start});
    m_body += paragraphEnd;
    m_endsInParagraph = true;
    m_sectionIsEmpty = false;
}

Double RtfFlow::ColumnWidth() const
{
    const Double text = m_document.pageWidth - m_section.marginLeft - m_section.marginRight;
    const Double columns = std::max<Double>(1.0, m_section.columns);
    return (text - (columns - 1.0) * m_section.columnGap) / columns;
}

Double RtfFlow::TextHeight() const
{
    return m_document.pageHeight - m_section.marginTop - m_section.marginBottom;
}

/// A paragraph of an exact height and no text.
void RtfFlow::WriteSpacer(Double height)
{
    m_body += "\\pard";
    if (m_breaksPage) m_body += "\\pagebb";
    AppendWord(m_body, "\\sl", -Twips(std::max(smallest, height)));
    m_body += "\\slmult0 ";
    m_breaksPage = false;
    m_body += TakeStart();
    m_body.append("{\\fs2 ").append(paragraphEnd).append("}");
    m_endsInParagraph = true;
    m_sectionIsEmpty = false;
}

void RtfFlow::FlushAnchors()
{
    if (!m_anchored.empty()) WriteSpacer(smallest);
}

void RtfFlow::WriteText(FlowItem& item, FlowText& text)
{
    Double gap = 0.0;
    MoveTo(item, gap);
    const Long left = Twips(text.left + item.marginLeft - m_section.marginLeft);
    const Long right = Twips(text.right + item.marginRight - m_section.marginRight);
    if (FirstParagraph(text.blocks) == nullptr && gap > 0.0) WriteSpacer(gap);
    Tighten(text.blocks);
    DropDamagedPictures(text.blocks);
    FitIn(text.blocks, std::max(1.0, ColumnWidth() - left - right), TextHeight());
    if (Paragraph* first = FirstParagraph(text.blocks))
        first->format.indentFirst += Twips(text.firstX.value_or(text.left) - text.left);
    AddSpaceBefore(text.blocks, Twips(gap + text.spaceBefore));
    AddSpaceAfter(text.blocks, Twips(text.spaceAfter));
    for (Block& block : text.blocks) {
        if (Paragraph* paragraph = block.AsParagraph()) {
            Indent(*paragraph, left, right);
            paragraph->format.pageBreakBefore = false;
            WriteParagraph(*paragraph, text.isHeading);
        } else {
            PrepareRows(*block.AsTable(), left);
            m_blocks.WriteTable(*block.AsTable(), 1);
            m_endsInParagraph = false;
        }
    }
}

/// A table has no paragraph of its own to begin a page or to bear drawings. Two that follow each other would
/// become one, which only those of equal columns may.
void RtfFlow::PrepareRows(richtext::Table& table, Double left)
{
    for (richtext::TableRow& row : table.rows)
        row.left += Twips(left);
    const bool joins = !m_endsInParagraph && EdgesOf(table.rows.front()) != m_edges;
    if (m_breaksPage || m_breaksColumn || !m_anchored.empty() || m_sectionIsEmpty || joins)
        WriteSpacer(smallest);
    m_edges = EdgesOf(table.rows.back());
}

void RtfFlow::PrepareRules(FlowTable& table)
{
    bool leading = true;
    for (std::size_t i = 0; i < table.rules.size(); ++i) {
        const RowRules& rules = table.rules[i];
        leading = leading && rules.header && i + 1 < table.rules.size();
        richtext::TableRow& row = table.table.rows[i];
        row.heading = leading;
        for (richtext::TableCell& cell : row.cells) {
            Tighten(cell.blocks);
            DropDamagedPictures(cell.blocks);
            FitIn(cell.blocks, std::max(1.0, cell.width - 2.0 * row.cellGap), TextHeight());
            MakeRoomForRules(cell);
            AddSpaceBefore(cell.blocks, Twips(rules.spaceBefore + rules.spacing));
            AddSpaceAfter(cell.blocks, Twips(rules.spaceAfter));
            for (Block& block : cell.blocks) {
                if (Paragraph* paragraph = block.AsParagraph())
                    paragraph->format.keepWithNext = rules.keepWithNext;
            }
        }
    }
}

void RtfFlow::WriteTable(FlowItem& item, FlowTable& table)
{
    Double gap = 0.0;
    MoveTo(item, gap);
    if (gap > 0.0) WriteSpacer(gap);
    PrepareRules(table);
    PrepareRows(table.table, table.left + item.marginLeft - m_section.marginLeft);
    m_blocks.WriteTable(table.table, 1);
    m_endsInParagraph = false;
}

/// The text of a box is written apart: what it leaves in force ends with it.
void RtfFlow::WriteBox(FlowTextBox& box)
{
    static const richtext::RichDocument noLists;
    std::string text;
    richtext::RtfBlocks blocks(text, m_tables, m_rtfLists, noLists);
    Tighten(box.blocks);
    DropDamagedPictures(box.blocks);
    for (const Block& block : box.blocks) {
        if (const Paragraph* paragraph = block.AsParagraph()) {
            blocks.WriteParagraph(*paragraph, 0);
            text += paragraphEnd;
        } else {
            blocks.WriteTable(*block.AsTable(), 1);
        }
    }
    if (box.blocks.back().AsParagraph() == nullptr) text += "\\pard\\par ";
    AppendBoxShape(m_anchored, box, text, m_order++);
}

/// The last page of those that begin behind a page break.
Long RtfFlow::GroupEnd(std::size_t place) const
{
    Long page = 0;
    for (; place < m_items.size(); ++place) {
        page = std::max(page, m_items[place].endPage);
        if (Is<FlowPageBreak>(m_items[place])) break;
    }
    return page;
}

/// How far, at most, what is on one page is pushed down because the writing position went back up.
Double RtfFlow::SlackFrom(std::size_t place) const
{
    Double slack = 0.0, onPage = 0.0, y = 0.0;
    Long page = -1;
    for (; place < m_items.size() && !Is<FlowPageBreak>(m_items[place]); ++place) {
        const FlowItem& item = m_items[place];
        const bool isText = Is<FlowText>(item) || Is<FlowTable>(item);
        if (!isText || IsJumpedOver(place)) continue;
        if (item.page != page) onPage = y = 0.0;
        if (item.top < y) onPage += y - item.top;
        slack = std::max(slack, onPage);
        page = item.endPage;
        y = item.bottom;
    }
    return slack;
}

/// Where the text of a page begins: at its margin, or above that where the writing position was moved first.
Double RtfFlow::TopFrom(std::size_t place, Long page, Double margin) const
{
    for (; place < m_items.size() && m_items[place].page == page; ++place) {
        const FlowItem& item = m_items[place];
        const bool isText = Is<FlowText>(item) || Is<FlowTable>(item);
        if (isText && !IsJumpedOver(place)) return std::min(margin, item.top);
    }
    return margin;
}

RtfSection RtfFlow::SectionAt(std::size_t place, Long page) const
{
    RtfSection section;
    const auto first = static_cast<std::size_t>(page);
    if (first >= m_document.setups.size()) return section;
    const auto last = static_cast<std::size_t>(std::max(page, GroupEnd(place)));
    const PageSetup& setup = m_document.setups[first];
    section.marginLeft = setup.marginLeft;
    section.marginTop = TopFrom(place, page, setup.marginTop);
    section.marginRight = setup.marginRight;
    const Double text = m_document.pageHeight - section.marginTop - setup.marginBottom;
    const Double slack = SlackFrom(place) + looseLines * text;
    section.marginBottom =
        std::max(std::min(leastBottom, setup.marginBottom), std::floor(setup.marginBottom - slack));
    section.columns = m_columns;
    section.columnGap = m_columnGap;
    section.first = setup.header;
    section.rest = m_document.setups[std::min({first + 1, last, m_document.setups.size() - 1})].header;
    return section;
}

void RtfFlow::BeginSection(const RtfSection& section, bool goesOn)
{
    m_section = section;
    AppendSection(m_body, section, m_document, goesOn, m_tables);
    m_sectionIsEmpty = true;
    m_endsInParagraph = false;
}

void RtfFlow::BreakPage(std::size_t place)
{
    FlushAnchors();
    const std::size_t next = place + 1;
    const Long page = next < m_items.size() ? m_items[next].page : m_items[place].page + 1;
    if (static_cast<std::size_t>(page) >= m_document.setups.size()) return;
    const RtfSection section = SectionAt(next, page);
    m_y = section.marginTop;
    if (section == m_section && !section.HasOwnFirstPage() && !m_breaksPage) {
        m_breaksPage = true;
        return;
    }
    if (m_breaksPage || !m_endsInParagraph) WriteSpacer(smallest);
    if (m_body.ends_with(paragraphEnd)) {
        m_body.resize(m_body.size() - paragraphEnd.size());
        m_body += "\\sect";
    } else {
        m_body += "\\sect";
    }
    BeginSection(section, false);
}

void RtfFlow::BreakColumn()
{
    FlushAnchors();
    m_breaksColumn = true;
    m_y = m_section.marginTop;
}

/// Columns that end where the page does need no section of their own.
void RtfFlow::ChangeColumns(std::size_t place, const FlowColumns& columns)
{
    m_columns = columns.count;
    m_columnGap = columns.gap;
    const bool pageEnds = place + 1 >= m_items.size() || Is<FlowPageBreak>(m_items[place + 1]);
    if (pageEnds) return;
    FlushAnchors();
    if (!m_endsInParagraph) WriteSpacer(smallest);
    RtfSection section = m_section;
    section.columns = m_columns;
    section.columnGap = m_columnGap;
    section.marginLeft = columns.marginLeft;
    section.marginRight = columns.marginRight;
    if (m_body.ends_with(paragraphEnd)) m_body.resize(m_body.size() - paragraphEnd.size());
    m_body += "\\sect";
    BeginSection(section, true);
}

} // namespace platform::print
