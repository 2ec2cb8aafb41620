#include "platform/print/RtfAdjust.h"

#include "platform/print/Pictures.h"
#include "platform/print/TextReading.h"

#include <algorithm>
#include <cmath>

namespace platform::print {

using richtext::Block;
using richtext::Paragraph;

Long Twips(Double value) { return static_cast<Long>(std::llround(value)); }

Paragraph* FirstParagraph(std::vector<Block>& blocks) { return blocks.front().AsParagraph(); }

void AddSpaceBefore(std::vector<Block>& blocks, Long space)
{
    if (Paragraph* first = FirstParagraph(blocks)) first->format.spaceBefore += space;
}

void AddSpaceAfter(std::vector<Block>& blocks, Long space)
{
    if (Paragraph* last = blocks.back().AsParagraph()) last->format.spaceAfter += space;
}

void Tighten(std::vector<Block>& blocks)
{
    constexpr Long withoutLeading = 233; // of 240ths of a line
    ForEachParagraph(blocks, [](Paragraph& paragraph) {
        richtext::LineSpacing& spacing = paragraph.format.lineSpacing;
        const bool hasPicture = std::any_of(paragraph.runs.begin(),
                                            paragraph.runs.end(),
                                            [](const richtext::Run& run) { return run.picture; });
        if (spacing == richtext::LineSpacing() && !hasPicture) spacing.value = withoutLeading;
    });
}

void DropDamagedPictures(std::vector<Block>& blocks)
{
    ForEachParagraph(blocks, [](Paragraph& paragraph) {
        std::erase_if(paragraph.runs,
                      [](const richtext::Run& run) { return run.picture && !IsSound(*run.picture); });
    });
}

void MakeRoomForRules(richtext::TableCell& cell)
{
    Paragraph* first = FirstParagraph(cell.blocks);
    if (first == nullptr) return;
    Long rules = 0;
    for (const richtext::Border* border : {&cell.top, &cell.bottom})
        rules += border->style == richtext::BorderStyle::None ? 0 : border->width;
    const Long fromSpace = std::min(rules, first->format.spaceBefore);
    first->format.spaceBefore -= fromSpace;
    if (cell.blocks.size() != 1) return;
    const Long halfPoints =
        first->runs.empty() ? first->emptyFormat.halfPoints : first->runs.front().format.halfPoints;
    constexpr Double lineOfHalfPoint = 11.49; // twips, leading included
    constexpr Double share = 0.7;             // of a rule's width that they were seen to add
    first->format.lineSpacing.value -=
        Twips(share * 240.0 * (rules - fromSpace) / (halfPoints * lineOfHalfPoint));
}

void Indent(Paragraph& paragraph, Long left, Long right)
{
    paragraph.format.indentLeft += left;
    paragraph.format.indentRight += right;
    for (richtext::TabStop& tab : paragraph.format.tabs)
        tab.position += left;
}

} // namespace platform::print
