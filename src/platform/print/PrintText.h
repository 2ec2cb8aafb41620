#pragma once

#include "platform/richtext/RtfReader.h"

#include <string>
#include <vector>

namespace platform::print {

/// A text handed to the print control: pieces that are marked as typed or as rich. It owns its pieces, so it
/// may be kept. "|", ";", backslashes and braces of a typed piece are characters.
class PrintText
{
public:
    using Kind = richtext::TextPart::Kind;

    PrintText() = default;
    /// A stored body if it begins with "{\rtf", else as typed.
    PrintText(std::string text);
    PrintText(const char* text);
    /// Copies the pieces.
    PrintText(const std::vector<richtext::TextPart>& parts);

    /// Adds what a user typed into a plain box: it shows as typed, line ends end lines.
    PrintText& Plain(std::string text);
    /// Adds a fragment of rich text that the program itself wrote: "{\par\b Unit:}  ".
    PrintText& Rich(std::string text);
    /// Adds a stored body: rich if it begins with "{\rtf", else as typed.
    PrintText& Body(std::string text);

    bool IsEmpty() const; // nothing is in any piece
    /// The pieces for the reader; valid as long as this text is neither changed nor gone.
    std::vector<richtext::TextPart> Parts() const;

private:
    struct Piece
    {
        Kind kind;
        std::string text;
    };
    PrintText& Add(Kind kind, std::string text);

    std::vector<Piece> m_pieces;
};

/// A text of one piece; see the members of the same names.
PrintText Plain(std::string text);
PrintText Rich(std::string text);
PrintText Body(std::string text);

/// One row of a table.
using PrintCells = std::vector<PrintText>;

} // namespace platform::print
