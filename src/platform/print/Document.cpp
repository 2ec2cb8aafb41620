#include "platform/print/Document.h"

#include <array>
#include <cmath>
#include <cstdio>

namespace platform::print {

namespace {

std::string Twips(Double value) { return std::to_string(static_cast<long long>(std::llround(value))); }

std::string Twips(std::initializer_list<Double> values)
{
    std::string text;
    for (const Double value : values)
        text += " " + Twips(value);
    return text;
}

std::string Hex(std::uint32_t color)
{
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), " #%06x", static_cast<unsigned>(color));
    return text.data();
}

std::string SizeText(Long halfPoints)
{
    return std::to_string(halfPoints / 2) + (halfPoints % 2 == 0 ? "" : ".5");
}

std::string LookText(const richtext::CharacterFormat& look)
{
    std::string text = " [" + look.font + " " + SizeText(look.halfPoints);
    if (look.bold) text += " b";
    if (look.italic) text += " i";
    if (look.underline != richtext::Underline::None) text += " u";
    if (look.strike) text += " s";
    if (look.position == richtext::VerticalPosition::Superscript) text += " super";
    if (look.position == richtext::VerticalPosition::Subscript) text += " sub";
    if (look.capitals != richtext::Capitals::AsTyped) text += " caps";
    if (look.color) text += Hex(*look.color);
    return text + "]";
}

void DumpInk(std::string& dump, const Ink& ink, const std::vector<richtext::CharacterFormat>& looks)
{
    for (const PlacedFill& fill : ink.fills)
        dump += "fill" + Twips({fill.x, fill.y, fill.width, fill.height}) + Hex(fill.color) + "\n";
    for (const PlacedPicture& picture : ink.pictures)
        dump += "picture" + Twips({picture.x, picture.y, picture.width, picture.height}) + "\n";
    for (const PlacedLine& line : ink.lines)
        dump += "line" + Twips({line.x1, line.y1, line.x2, line.y2, line.width}) + Hex(line.color) + "\n";
    for (const PlacedText& text : ink.texts) {
        dump += (text.upward ? "upward" : "text") + Twips({text.x, text.y, text.width}) +
                LookText(looks.at(static_cast<std::size_t>(text.look))) + " " + text.text + "\n";
    }
}

} // namespace

std::string DumpPages(const Document& document)
{
    std::string dump;
    for (const Page& page : document.pages) {
        dump += "page " + std::to_string(page.number) + " " + Twips(page.width) + " x " + Twips(page.height) +
                "\n";
        DumpInk(dump, page.ink, document.looks);
    }
    return dump;
}

} // namespace platform::print
