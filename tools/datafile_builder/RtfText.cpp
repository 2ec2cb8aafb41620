#include "datafile_builder/RtfText.h"

#include "datafile_builder/BuildError.h"
#include "platform/base/Numbers.h"

#include <bit>
#include <cstdint>

namespace datafile_builder {

namespace {

/// Takes the first character off a UTF-8 text.
char32_t TakeCharacter(std::string_view& text)
{
    const auto byteAt = [&](std::size_t i) {
        return i < text.size() ? static_cast<unsigned char>(text[i]) : 0U;
    };
    const auto lead = static_cast<std::uint8_t>(byteAt(0));
    const auto ones = static_cast<std::size_t>(std::countl_one(lead));
    const std::size_t length = ones == 0 ? 1 : ones;
    if (ones == 1 || ones > 4) throw BuildError("a byte that is no UTF-8");
    char32_t character = ones == 0 ? lead : lead & (0x7FU >> ones);
    for (std::size_t i = 1; i < length; ++i) {
        if ((byteAt(i) & 0xC0U) != 0x80U) throw BuildError("a byte that is no UTF-8");
        character = (character << 6) | (byteAt(i) & 0x3FU);
    }
    text.remove_prefix(length);
    return character;
}

/// \u takes a signed number of 16 bits.
std::string UnicodeWord(char32_t unit)
{
    const Long number = unit < 0x8000 ? static_cast<Long>(unit) : static_cast<Long>(unit) - 0x10000;
    return "\\u" + std::to_string(number) + " ";
}

std::string UnicodeWords(char32_t character)
{
    if (character < 0x10000) return UnicodeWord(character);
    const char32_t beyond = character - 0x10000;
    return UnicodeWord(0xD800 + (beyond >> 10)) + UnicodeWord(0xDC00 + (beyond & 0x3FF));
}

std::string ByteSymbol(char32_t character)
{
    constexpr std::string_view digits = "0123456789abcdef";
    return {'\\', '\'', digits[character >> 4], digits[character & 0xF]};
}

std::string Escaped(char32_t character)
{
    if (character == '\\' || character == '{' || character == '}')
        return {'\\', static_cast<char>(character)};
    if (character == '\t') return "\\tab ";
    if (character < 0x20 || character == 0x7F) throw BuildError("a control character in a text");
    if (character < 0x7F) return {static_cast<char>(character)};
    // From A0 on, Latin-1 and the code page of a body agree.
    if (character >= 0xA0 && character <= 0xFF) return ByteSymbol(character);
    return UnicodeWords(character);
}

} // namespace

std::string RtfText(std::string_view text)
{
    std::string rtf;
    while (!text.empty())
        rtf += Escaped(TakeCharacter(text));
    return rtf;
}

} // namespace datafile_builder
