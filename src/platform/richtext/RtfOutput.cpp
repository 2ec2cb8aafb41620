#include "platform/richtext/RtfOutput.h"

#include <array>
#include <bit>
#include <charconv>

namespace platform::richtext {

namespace {

constexpr std::string_view hexDigits = "0123456789abcdef";
constexpr char32_t replacement = 0xFFFD;

std::uint8_t ByteAt(std::string_view text, std::size_t position)
{
    return position < text.size() ? static_cast<std::uint8_t>(text[position]) : std::uint8_t{0};
}

/// The bytes that a lead byte announces; 0 for one that leads nothing.
std::size_t LengthOf(std::uint8_t lead)
{
    const auto ones = static_cast<std::size_t>(std::countl_one(lead));
    if (ones == 0) return 1;
    return ones >= 2 && ones <= 4 ? ones : 0;
}

bool IsCharacter(char32_t value, std::size_t length)
{
    constexpr std::array<char32_t, 5> least{0, 0, 0x80, 0x800, 0x10000};
    return value >= least[length] && value <= 0x10FFFF && (value < 0xD800 || value > 0xDFFF);
}

/// Takes the character at a position and moves behind it; a stray byte counts as one U+FFFD.
char32_t TakeCharacter(std::string_view text, std::size_t& position)
{
    const std::uint8_t lead = ByteAt(text, position);
    const std::size_t length = LengthOf(lead);
    char32_t value = length == 1 ? lead : lead & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        const std::uint8_t next = ByteAt(text, position + i);
        if ((next & 0xC0U) != 0x80U) return ++position, replacement;
        value = (value << 6) | (next & 0x3FU);
    }
    if (length == 0 || !IsCharacter(value, length)) return ++position, replacement;
    position += length;
    return value;
}

/// \u takes a signed number of 16 bits; the blank ends it and there is no fallback.
void AppendUnit(std::string& rtf, char32_t unit)
{
    const auto number = static_cast<std::int64_t>(unit);
    AppendWord(rtf, "\\u", number < 0x8000 ? number : number - 0x10000);
    rtf += ' ';
}

void AppendNumbered(std::string& rtf, char32_t character)
{
    if (character < 0x10000) return AppendUnit(rtf, character);
    const char32_t beyond = character - 0x10000;
    AppendUnit(rtf, 0xD800 + (beyond >> 10));
    AppendUnit(rtf, 0xDC00 + (beyond & 0x3FF));
}

/// The word for a character that has one of its own.
std::string_view WordFor(char32_t character)
{
    switch (character) {
    case U'\t': return "\\tab ";
    case U'\n': return "\\line ";
    case U'\u2013': return "\\endash ";
    case U'\u2014': return "\\emdash ";
    case U'\u2018': return "\\lquote ";
    case U'\u2019': return "\\rquote ";
    case U'\u201C': return "\\ldblquote ";
    case U'\u201D': return "\\rdblquote ";
    default: return {};
    }
}

void AppendEscaped(std::string& rtf, char32_t character, FontBytes bytes)
{
    if (const std::string_view word = WordFor(character); !word.empty()) {
        rtf += word;
    } else if (character < 0x20 || character == 0x7F) {
        return; // has no place in a text
    } else if (bytes == FontBytes::Symbol || character > 0xFF) {
        AppendNumbered(rtf, character);
    } else if (character < 0x7F) {
        if (character == U'\\' || character == U'{' || character == U'}') rtf += '\\';
        rtf += static_cast<char>(character);
    } else if (character < 0xA0) {
        AppendNumbered(rtf, character); // as a byte, the code page would make it another character
    } else {
        AppendByte(rtf, character);
    }
}

/// Whether a byte of a text is written as it stands.
constexpr bool IsPlain(char byte)
{
    return byte >= ' ' && byte <= '~' && byte != '\\' && byte != '{' && byte != '}';
}

constexpr std::array<bool, 256> plainBytes = [] {
    std::array<bool, 256> plain{};
    for (std::size_t i = 0; i < plain.size(); ++i)
        plain[i] = IsPlain(static_cast<char>(i));
    return plain;
}();

/// The end of the bytes that are written as they stand.
std::size_t PlainEnd(std::string_view text, std::size_t position)
{
    while (position < text.size() && plainBytes[static_cast<std::uint8_t>(text[position])])
        ++position;
    return position;
}

} // namespace

void AppendWord(std::string& rtf, std::string_view word, std::int64_t number)
{
    std::array<char, 24> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    rtf.append(word).append(digits.data(), end);
}

void AppendRtfText(std::string& rtf, std::string_view text, FontBytes bytes)
{
    for (std::size_t position = 0; position < text.size();) {
        const std::size_t end = bytes == FontBytes::Latin ? PlainEnd(text, position) : position;
        rtf.append(text, position, end - position);
        position = end;
        if (position < text.size()) AppendEscaped(rtf, TakeCharacter(text, position), bytes);
    }
}

std::size_t UnitsOf(std::string_view text)
{
    std::size_t units = 0;
    for (std::size_t position = 0; position < text.size();)
        units += TakeCharacter(text, position) < 0x10000 ? 1U : 2U;
    return units;
}

void AppendByte(std::string& rtf, std::size_t byte)
{
    rtf += "\\'";
    rtf += hexDigits[(byte >> 4) & 0xF];
    rtf += hexDigits[byte & 0xF];
}

void AppendHex(std::string& rtf, std::string_view bytes)
{
    std::size_t position = rtf.size();
    rtf.resize(position + 2 * bytes.size());
    for (const char byte : bytes) {
        const auto value = static_cast<std::uint8_t>(byte);
        rtf[position++] = hexDigits[value >> 4];
        rtf[position++] = hexDigits[value & 0xF];
    }
}

} // namespace platform::richtext
