#include "platform/print/TextLayout.h"

#include "platform/print/ParagraphLayout.h"
#include "platform/print/TableLayout.h"

#include <algorithm>

namespace platform::print {

bool LaidLine::IsBlank() const
{
    return ink.texts.empty() && ink.pictures.empty() && ink.lines.empty() && ink.fills.empty();
}

Double LaidText::Height() const
{
    Double height = 0.0;
    for (const LaidLine& line : lines)
        height += line.before + line.height + line.after;
    return height;
}

Double LaidText::Width() const
{
    Double width = 0.0;
    for (const LaidLine& line : lines)
        width = std::max(width, line.end);
    return width;
}

LaidText TextLayout::LayOut(const richtext::RichDocument& document, const TextFrame& frame)
{
    richtext::ListCounter counter(document);
    return LayOut(document.blocks, counter, frame, document.defaultTab);
}

LaidText TextLayout::LayOut(std::span<const richtext::Block> blocks,
                            richtext::ListCounter& counter,
                            const TextFrame& frame,
                            Long defaultTab)
{
    LaidText laid;
    TextFrame rest = frame;
    for (std::size_t place = 0; place < blocks.size(); ++place) {
        const std::size_t before = laid.lines.size();
        if (const richtext::Table* table = blocks[place].AsTable()) {
            TableLayout(m_looks, counter, defaultTab).AppendRows(laid, *table, rest);
        } else {
            const richtext::Paragraph& paragraph = *blocks[place].AsParagraph();
            ParagraphLayout(m_looks, paragraph, counter.NextMarker(paragraph.format), rest, defaultTab)
                .AppendTo(laid);
        }
        for (std::size_t line = before; line < laid.lines.size(); ++line)
            laid.lines[line].block = place;
        rest.firstX = 0.0;
    }
    return laid;
}

} // namespace platform::print
