#pragma once

#include "platform/base/Numbers.h"

#include <array>
#include <memory>
#include <string>
#include <string_view>

namespace platform::richtext::reader {

/// The code pages that are none of Windows' own: fonts of signs in place of letters.
constexpr Long symbolPage = 42;  // the font "Symbol": Greek and mathematics, known sign by sign
constexpr Long privatePage = 43; // any other: U+F000 plus the byte
constexpr Long westernPage = 1252;

/// Adds a character; what is none (a lone surrogate, beyond U+10FFFF) as U+FFFD.
void AppendUtf8(std::string& text, char32_t character);

/// Takes the first character off the front of valid UTF-8 text; the text must not be empty.
char32_t TakeCharacter(std::string_view& text);

/// The character of a byte of the Western code page, 1252.
char32_t WesternCharacter(unsigned char byte);

/// The code page of a font's \fcharset; 0 where the document's own counts.
Long PageOfCharset(Long charset);

/// `page` if its bytes can be read, else 0.
Long KnownPage(Long page);

/// The character of a byte in the font "Symbol"; 0 if it has none there.
char32_t SymbolCharacter(unsigned char byte);

/// Decodes bytes one at a time; those of a character of several bytes are held until it is whole.
class ByteDecoder
{
public:
    ByteDecoder();
    ~ByteDecoder();
    ByteDecoder(const ByteDecoder&) = delete;
    ByteDecoder& operator=(const ByteDecoder&) = delete;

    /// A change first gives up what is held. Takes a known page, symbolPage or privatePage.
    void SetPage(Long page, std::string& out);
    Long Page() const { return m_page; }
    /// Adds what the byte completes, UTF-8; U+FFFD for what the code page does not have.
    void Push(unsigned char byte, std::string& out);
    /// Whether the next byte belongs to a character begun.
    bool Holds() const { return m_held != 0; }
    /// Adds U+FFFD for a character that was never completed.
    void Flush(std::string& out);

private:
    struct Converter;

    void PushLong(unsigned char byte, std::string& out);

    Long m_page = westernPage;
    std::unique_ptr<Converter> m_converter; // of m_page, for pages of several bytes
    std::array<char, 4> m_bytes{};
    std::size_t m_held = 0;
};

} // namespace platform::richtext::reader
