#include "vexa-jet/TextDecoder.h"

#include "vexa-jet/Failure.h"

#include <array>
#include <cerrno>
#include <cstdint>

namespace vexa_jet {

namespace {

void Append(std::string& text, std::uint32_t code)
{
    const auto byte = [&text](std::uint32_t value) { text += static_cast<char>(value); };
    const auto tail = [&byte, code](unsigned shift) { byte(0x80U | ((code >> shift) & 0x3FU)); };
    if (code < 0x80) {
        byte(code);
    } else if (code < 0x800) {
        byte(0xC0U | (code >> 6U));
        tail(0);
    } else if (code < 0x10000) {
        byte(0xE0U | (code >> 12U));
        tail(6);
        tail(0);
    } else {
        byte(0xF0U | (code >> 18U));
        tail(12);
        tail(6);
        tail(0);
    }
}

/// UTF-16 as it comes; half a pair becomes the sign for what cannot be shown.
class Utf16
{
public:
    void Add(std::uint16_t unit)
    {
        const bool isSecond = unit >= 0xDC00 && unit < 0xE000;
        if (m_first != 0 && isSecond) {
            Append(m_text, 0x10000U + ((m_first - 0xD800U) << 10U) + (unit - 0xDC00U));
            m_first = 0;
            return;
        }
        DropFirst();
        if (unit >= 0xD800 && unit < 0xDC00) {
            m_first = unit;
        } else {
            Append(m_text, isSecond ? kReplacement : unit);
        }
    }
    std::string Take()
    {
        DropFirst();
        return std::move(m_text);
    }

private:
    static constexpr std::uint32_t kReplacement = 0xFFFD;

    void DropFirst()
    {
        if (m_first != 0) {
            Append(m_text, kReplacement);
            m_first = 0;
        }
    }

    std::string m_text;
    std::uint32_t m_first = 0; // of a pair
};

std::uint8_t ByteAt(std::string_view bytes, std::size_t place)
{
    return static_cast<std::uint8_t>(bytes[place]);
}

std::uint16_t UnitAt(std::string_view bytes, std::size_t place)
{
    if (place + 1 >= bytes.size()) {
        throw Failure("a text ends in the middle of a character");
    }
    return static_cast<std::uint16_t>(ByteAt(bytes, place) | (ByteAt(bytes, place + 1) << 8));
}

constexpr std::string_view kCompressed = "\xFF\xFE";

/// Characters below 256 stand as one byte each; a zero changes to two bytes each and back.
std::string DecodeCompressed(std::string_view bytes)
{
    Utf16 text;
    bool isShort = true;
    for (std::size_t i = kCompressed.size(); i < bytes.size();) {
        if (bytes[i] == '\0') {
            isShort = !isShort;
            ++i;
        } else if (isShort) {
            text.Add(ByteAt(bytes, i));
            ++i;
        } else {
            text.Add(UnitAt(bytes, i));
            i += 2;
        }
    }
    return text.Take();
}

std::string DecodeUtf16(std::string_view bytes)
{
    Utf16 text;
    for (std::size_t i = 0; i < bytes.size(); i += 2) {
        text.Add(UnitAt(bytes, i));
    }
    return text.Take();
}

iconv_t OpenCodePage(unsigned codePage)
{
    const iconv_t known = iconv_open("UTF-8", ("CP" + std::to_string(codePage)).c_str());
    // The library's sign for none is a pointer of minus one.
    const auto none = iconv_t(-1); // NOLINT
    if (known != none) {
        return known;
    }
    const iconv_t usual = iconv_open("UTF-8", "CP1252");
    if (usual == none) {
        throw Failure("this system knows no code pages");
    }
    return usual;
}

} // namespace

TextDecoder::TextDecoder(const Header& header)
    : m_codePage(header.isJet4 ? nullptr : OpenCodePage(header.codePage))
{}

TextDecoder::~TextDecoder()
{
    if (m_codePage != nullptr) {
        iconv_close(m_codePage);
    }
}

std::string TextDecoder::Decode(std::string_view bytes) const
{
    if (m_codePage != nullptr) {
        return DecodeCodePage(bytes);
    }
    return bytes.substr(0, kCompressed.size()) == kCompressed ? DecodeCompressed(bytes) : DecodeUtf16(bytes);
}

std::string TextDecoder::DecodeCodePage(std::string_view bytes) const
{
    std::string text;
    std::string source(bytes);
    char* in = source.data();
    std::size_t left = source.size();
    iconv(m_codePage, nullptr, nullptr, nullptr, nullptr);
    while (left > 0) {
        std::array<char, 4096> piece{};
        char* out = piece.data();
        std::size_t room = piece.size();
        const bool failed = iconv(m_codePage, &in, &left, &out, &room) == static_cast<std::size_t>(-1);
        const bool isFull = failed && errno == E2BIG;
        text.append(piece.data(), piece.size() - room);
        if (failed && !isFull) { // a place of the code page that is not given away: its own control character
            Append(text, static_cast<std::uint8_t>(*in));
            ++in;
            --left;
        }
    }
    return text;
}

} // namespace vexa_jet
