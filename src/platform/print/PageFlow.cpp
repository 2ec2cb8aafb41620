#include "platform/print/PageFlow.h"

#include "platform/print/HeaderLayout.h"
#include "platform/print/PrintError.h"
#include "platform/print/TextSplit.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace platform::print {

PageFlow::PageFlow(Document& document, PrintSettings& settings, LookBook& looks)
    : m_document(document), m_settings(settings), m_looks(looks)
{}

void PageFlow::Begin()
{
    m_boxes.clear();
    BeginPage();
}

void PageFlow::End()
{
    FinishBoxes();
    EndPage();
}

void PageFlow::NewPage()
{
    FinishBoxes();
    Note(FlowPageBreak());
    EndPage();
    BeginPage();
    Raise();
}

void PageFlow::NextPage()
{
    if (FinishBoxes()) Note(FlowPageBreak());
    EndPage();
    BeginPage();
    Raise();
}

void PageFlow::BeginPage()
{
    m_page = Page();
    m_page.number = PageIndex() + 1;
    m_page.width = m_settings.pageWidth;
    m_page.height = m_settings.pageHeight;
    m_setup = {
        m_settings.marginLeft, m_settings.marginTop, m_settings.marginRight, m_settings.marginBottom, {}};
    m_column = 0;
    m_y = m_columnTop = m_settings.marginTop;
}

/// The header is that of the page's end: a report may take it off its first page.
void PageFlow::EndPage()
{
    m_setup.header = m_settings.header;
    m_setup.header.ruled = m_settings.pageBorder != 0;
    DrawHeader(m_page.ink, m_setup.header, m_page.number, m_page.width, m_looks);
    const Long number = m_page.number;
    m_document.pages.push_back(std::move(m_page));
    m_document.setups.push_back(std::move(m_setup));
    if (onProgress && !onProgress(number)) throw PrintCancelled();
}

void PageFlow::Raise()
{
    if (onNewPage) onNewPage();
    m_setup.marginTop = m_settings.marginTop; // the event may have moved it
    m_columnTop = m_y;
}

/// What did not fit on the page that now ends stands on pages of its own.
bool PageFlow::FinishBoxes()
{
    const bool hasBoxes = !m_boxes.empty();
    while (!m_boxes.empty()) {
        std::vector<BoxRest> boxes = std::exchange(m_boxes, {});
        Note(FlowPageBreak());
        EndPage();
        BeginPage();
        Raise();
        for (BoxRest& rest : boxes) {
            rest.box.top = m_settings.marginTop;
            PlaceBox(std::move(rest.text), std::move(rest.box));
        }
    }
    return hasBoxes;
}

void PageFlow::NextColumn()
{
    if (m_column + 1 >= m_settings.columns) return NextPage();
    ++m_column;
    m_y = m_columnTop = m_settings.marginTop;
}

Double PageFlow::ColumnWidth() const
{
    const Double gaps = columnGap * (m_settings.columns - 1);
    const Double text = m_settings.pageWidth - m_settings.marginLeft - m_settings.marginRight;
    return (text - gaps) / m_settings.columns;
}

Double PageFlow::ColumnLeft() const { return m_settings.marginLeft + m_column * (ColumnWidth() + columnGap); }

Double PageFlow::Bottom() const { return m_settings.pageHeight - m_settings.marginBottom; }

Double PageFlow::ColumnHeight() const { return Bottom() - m_settings.marginTop; }

void PageFlow::Place(const LaidText& text, Double left)
{
    for (const LaidLine& line : text.lines) {
        Double before = line.before;
        const bool breaks = m_y + before + line.height > Bottom() && !AtTop() && !line.IsBlank();
        if (breaks) {
            NextColumn();
            before = 0.0;
        }
        m_page.ink.Append(line.ink, ColumnLeft() + left, m_y + before);
        m_y += before + line.height + line.after;
    }
}

void PageFlow::PlaceBox(LaidText text, FlowTextBox box)
{
    Double y = box.top;
    std::size_t placed = 0;
    for (; placed < text.lines.size(); ++placed) {
        const LaidLine& line = text.lines[placed];
        const bool isLow = y + line.before + line.height > Bottom() && !line.IsBlank();
        if (isLow && (placed > 0 || box.top > m_settings.marginTop)) break;
        m_page.ink.Append(line.ink, box.left, y + line.before);
        y += line.before + line.height + line.after;
    }
    box.height = y - box.top;
    if (placed < text.lines.size()) {
        BoxRest rest{{}, box};
        rest.box.blocks = SplitBlocks(box.blocks, text.lines[placed]);
        rest.text.lines.assign(
            std::make_move_iterator(text.lines.begin() + static_cast<std::ptrdiff_t>(placed)),
            std::make_move_iterator(text.lines.end()));
        Renumber(rest.text);
        m_boxes.push_back(std::move(rest));
    }
    if (placed > 0) Note(std::move(box));
}

FlowItem& PageFlow::Note(decltype(FlowItem::content) content)
{
    FlowItem item;
    item.content = std::move(content);
    item.page = item.endPage = PageIndex();
    item.top = item.bottom = m_y;
    item.marginLeft = m_settings.marginLeft;
    item.marginRight = m_settings.marginRight;
    m_document.flow.push_back(std::move(item));
    return m_document.flow.back();
}

void PageFlow::NoteEnd()
{
    m_document.flow.back().endPage = PageIndex();
    m_document.flow.back().bottom = m_y;
}

} // namespace platform::print
