#pragma once

#include "platform/richtext/RichDocument.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

/// Small documents for tests, written down in one expression.
namespace rich {

using namespace platform::richtext;

inline Run TextRun(std::string text, CharacterFormat format = {})
{
    return {std::move(format), std::move(text), nullptr};
}

inline Run PictureRun(Picture picture, CharacterFormat format = {})
{
    return {std::move(format), "", std::make_shared<Picture>(std::move(picture))};
}

inline Paragraph ParagraphOf(std::vector<Run> runs, ParagraphFormat format = {})
{
    return {std::move(format), std::move(runs), {}};
}

inline Paragraph Line(std::string text, ParagraphFormat format = {})
{
    return ParagraphOf({TextRun(std::move(text))}, std::move(format));
}

inline RichDocument DocumentOf(std::vector<Paragraph> paragraphs, std::vector<RichList> lists = {})
{
    RichDocument document;
    for (Paragraph& paragraph : paragraphs)
        document.blocks.push_back(Block{std::move(paragraph)});
    document.lists = std::move(lists);
    return document;
}

inline ListLevel Bullets(Long place, std::string bullet = "\u2022")
{
    ListLevel level;
    level.bullet = std::move(bullet);
    level.indentLeft = 360 * (place + 1);
    level.indentFirst = -360;
    return level;
}

inline ListLevel Numbers(Long place, NumberStyle style = NumberStyle::Arabic, Long start = 1)
{
    ListLevel level = Bullets(place, "");
    level.kind = ListKind::Number;
    level.style = style;
    level.start = start;
    level.textAfter = ".";
    return level;
}

/// The look of an item as an editor gives it.
inline ParagraphFormat Item(Long list, Long level = 0)
{
    ParagraphFormat format;
    format.list = list;
    format.level = level;
    format.indentLeft = 360 * (level + 1);
    format.indentFirst = -360;
    return format;
}

inline TableCell CellOf(Long width, std::vector<Paragraph> paragraphs)
{
    TableCell cell;
    cell.width = width;
    for (Paragraph& paragraph : paragraphs)
        cell.blocks.push_back(Block{std::move(paragraph)});
    return cell;
}

} // namespace rich
