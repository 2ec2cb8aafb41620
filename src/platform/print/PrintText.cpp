#include "platform/print/PrintText.h"

#include <algorithm>
#include <utility>

namespace platform::print {

PrintText::PrintText(std::string text) { Body(std::move(text)); }

PrintText::PrintText(const char* text) : PrintText(std::string(text)) {}

PrintText::PrintText(const std::vector<richtext::TextPart>& parts)
{
    for (const richtext::TextPart& part : parts)
        Add(part.kind, std::string(part.text));
}

PrintText& PrintText::Plain(std::string text) { return Add(Kind::Plain, std::move(text)); }

PrintText& PrintText::Rich(std::string text) { return Add(Kind::Rich, std::move(text)); }

PrintText& PrintText::Body(std::string text)
{
    const Kind kind = richtext::IsRtf(text) ? Kind::Rich : Kind::Plain;
    return Add(kind, std::move(text));
}

bool PrintText::IsEmpty() const
{
    return std::all_of(
        m_pieces.begin(), m_pieces.end(), [](const Piece& piece) { return piece.text.empty(); });
}

std::vector<richtext::TextPart> PrintText::Parts() const
{
    std::vector<richtext::TextPart> parts;
    for (const Piece& piece : m_pieces)
        parts.push_back({piece.kind, piece.text});
    return parts;
}

PrintText& PrintText::Add(Kind kind, std::string text)
{
    m_pieces.push_back({kind, std::move(text)});
    return *this;
}

PrintText Plain(std::string text) { return PrintText().Plain(std::move(text)); }

PrintText Rich(std::string text) { return PrintText().Rich(std::move(text)); }

PrintText Body(std::string text) { return PrintText(std::move(text)); }

} // namespace platform::print
