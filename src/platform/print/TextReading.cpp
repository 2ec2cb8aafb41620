#include "platform/print/TextReading.h"

#include "platform/richtext/RtfOutput.h"

#include <utility>

namespace platform::print {

namespace {

using richtext::Alignment;
using richtext::Block;
using richtext::CellAlignment;

/// A fragment that puts the control's font in force ahead of all else.
std::string FontWords(const PrintFont& font)
{
    const richtext::CharacterFormat look = font.Look();
    std::string family = look.font;
    std::erase(family, ';');
    std::string rtf = "{\\fonttbl{\\f0\\fcharset0 ";
    richtext::AppendRtfText(rtf += "", family);
    richtext::AppendWord(rtf += ";}}\\f0", "\\fs", look.halfPoints);
    if (look.bold) rtf += "\\b";
    if (look.italic) rtf += "\\i";
    return rtf += ' ';
}

} // namespace

richtext::RichDocument ReadText(const PrintText& text, const PrintFont& font)
{
    const std::string words = FontWords(font);
    std::vector<richtext::TextPart> parts = text.Parts();
    parts.insert(parts.begin(), {richtext::TextPart::Kind::Rich, words});
    return richtext::ReadParts(parts);
}

Alignment AcrossOf(Integer code)
{
    switch (code % 3) {
    case 1: return Alignment::Center;
    case 2: return Alignment::Right;
    default: return Alignment::Left;
    }
}

CellAlignment DownOf(Integer code)
{
    switch (code / 3) {
    case 1: return CellAlignment::Center;
    case 2: return CellAlignment::Bottom;
    default: return CellAlignment::Top;
    }
}

void Align(std::vector<Block>& blocks, Integer code)
{
    const Alignment across = AcrossOf(code);
    if (across == Alignment::Left) return;
    for (Block& block : blocks) {
        richtext::Paragraph* paragraph = block.AsParagraph();
        if (paragraph != nullptr && paragraph->format.alignment == Alignment::Left)
            paragraph->format.alignment = across;
    }
}

} // namespace platform::print
