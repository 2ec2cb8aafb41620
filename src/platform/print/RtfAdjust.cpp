#include "platform/print/RtfAdjust.h"

#include "platform/print/Pictures.h"
#include "platform/print/TextReading.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

namespace platform::print {

using richtext::Block;
using richtext::Paragraph;

namespace {

void FitPicture(richtext::Run& run, Double width, Double height)
{
    constexpr Double unbounded = 1e9;
    const PictureSize wanted = FittedSize(*run.picture, unbounded, unbounded);
    if (wanted.width <= width && wanted.height <= height) return;
    const PictureSize fitted = FittedSize(*run.picture, width, height);
    richtext::Picture picture = *run.picture;
    picture.widthGoal = Twips(fitted.width);
    picture.heightGoal = Twips(fitted.height);
    picture.scaleX = picture.scaleY = 100;
    run.picture = std::make_shared<const richtext::Picture>(std::move(picture));
}

Double WidthOf(const richtext::TableRow& row)
{
    Double width = std::max<Long>(row.left, 0);
    for (const richtext::TableCell& cell : row.cells)
        width += cell.width;
    return width;
}

void FitTable(richtext::Table& table, Double width)
{
    Double widest = 1.0;
    for (const richtext::TableRow& row : table.rows)
        widest = std::max(widest, WidthOf(row));
    if (widest <= width) return;
    const Double scale = width / widest;
    for (richtext::TableRow& row : table.rows) {
        row.left = Twips(row.left * scale);
        for (richtext::TableCell& cell : row.cells)
            cell.width = std::max<Long>(1, static_cast<Long>(cell.width * scale));
    }
}

/// The room for the text of a cell and of those that it is joined with.
Double RoomIn(const richtext::TableRow& row, std::size_t cell)
{
    Double room = row.cells[cell].width;
    while (++cell < row.cells.size() && row.cells[cell].mergeAcross == richtext::CellMerge::Continued)
        room += row.cells[cell].width;
    return std::max(1.0, room - 2.0 * row.cellGap);
}

} // namespace

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

void FitIn(std::vector<Block>& blocks, Double width, Double height)
{
    for (Block& block : blocks) {
        if (Paragraph* paragraph = block.AsParagraph()) {
            for (richtext::Run& run : paragraph->runs) {
                if (run.picture) FitPicture(run, width, height);
            }
            continue;
        }
        FitTable(*block.AsTable(), width);
        for (richtext::TableRow& row : block.AsTable()->rows) {
            for (std::size_t i = 0; i < row.cells.size(); ++i)
                FitIn(row.cells[i].blocks, RoomIn(row, i), height);
        }
    }
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
