#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace platform::richtext {

/// What bytes beyond ASCII mean in the font in force, and so how characters must be written.
enum class FontBytes {
    Latin, // code page 1252
    Symbol // the font's own: every character is written by its number
};

/// Adds a control word with its number: ("\fs", 20) gives "\fs20".
void AppendWord(std::string& rtf, std::string_view word, std::int64_t number);

/// Adds UTF-8 text as ASCII: backslashes and braces escaped, tabs and line breaks, quotes and dashes as
/// words, the upper half of Latin-1 as \'e9, all else by numbers without a fallback (\uc0 is in force). Other
/// control characters are left out, bytes that are no UTF-8 become U+FFFD.
void AppendRtfText(std::string& rtf, std::string_view text, FontBytes bytes = FontBytes::Latin);

/// How many units of 16 bits a UTF-8 text has: what \leveltext counts.
std::size_t UnitsOf(std::string_view text);

/// Adds a byte as \'xx.
void AppendByte(std::string& rtf, std::size_t byte);

/// Adds bytes as pairs of hexadecimal digits.
void AppendHex(std::string& rtf, std::string_view bytes);

} // namespace platform::richtext
