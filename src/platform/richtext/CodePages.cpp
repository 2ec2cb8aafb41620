#include "platform/richtext/CodePages.h"

#include <algorithm>
#include <cerrno>
#include <iconv.h>
#include <optional>
#include <unordered_map>
#include <utility>

namespace platform::richtext::reader {

namespace {

constexpr char32_t replacement = 0xFFFD;
constexpr std::string_view replacementText = "\xEF\xBF\xBD";

struct PageName
{
    Long page;
    const char* name;
    bool severalBytes;
};

// Only these are ever asked for, so no document names a converter to load.
constexpr PageName pageNames[] = {
    {437, "CP437", false},        {708, "ISO-8859-6", false},  {737, "CP737", false},
    {775, "CP775", false},        {850, "CP850", false},       {852, "CP852", false},
    {855, "CP855", false},        {857, "CP857", false},       {860, "CP860", false},
    {861, "CP861", false},        {862, "CP862", false},       {863, "CP863", false},
    {864, "CP864", false},        {865, "CP865", false},       {866, "CP866", false},
    {869, "CP869", false},        {874, "CP874", false},       {932, "CP932", true},
    {936, "CP936", true},         {949, "CP949", true},        {950, "BIG5", true},
    {1250, "CP1250", false},      {1251, "CP1251", false},     {1252, "CP1252", false},
    {1253, "CP1253", false},      {1254, "CP1254", false},     {1255, "CP1255", false},
    {1256, "CP1256", false},      {1257, "CP1257", false},     {1258, "CP1258", false},
    {1361, "JOHAB", true},        {10000, "MACINTOSH", false}, {10007, "MAC-CYRILLIC", false},
    {20127, "ASCII", false},      {20866, "KOI8-R", false},    {28591, "ISO-8859-1", false},
    {28592, "ISO-8859-2", false}, {54936, "GB18030", true},    {65001, "UTF-8", true}};

const PageName* FindPage(Long page)
{
    const auto* found = std::ranges::find(pageNames, page, &PageName::page);
    return found == std::end(pageNames) ? nullptr : found;
}

// The upper half of the Western code page from 0x80 to 0x9F; the rest is Latin-1.
constexpr char16_t western[32] = {0x20AC, 0xFFFD, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                  0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0xFFFD, 0x017D, 0xFFFD,
                                  0xFFFD, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                  0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0xFFFD, 0x017E, 0x0178};

// From 0x20; 0 where the font has nothing.
constexpr char16_t symbols[] = {
    0x0020, 0x0021, 0x2200, 0x0023, 0x2203, 0x0025, 0x0026, 0x220D, 0x0028, 0x0029, 0x2217, 0x002B, 0x002C,
    0x2212, 0x002E, 0x002F, 0x0030, 0x0031, 0x0032, 0x0033, 0x0034, 0x0035, 0x0036, 0x0037, 0x0038, 0x0039,
    0x003A, 0x003B, 0x003C, 0x003D, 0x003E, 0x003F, 0x2245, 0x0391, 0x0392, 0x03A7, 0x0394, 0x0395, 0x03A6,
    0x0393, 0x0397, 0x0399, 0x03D1, 0x039A, 0x039B, 0x039C, 0x039D, 0x039F, 0x03A0, 0x0398, 0x03A1, 0x03A3,
    0x03A4, 0x03A5, 0x03C2, 0x03A9, 0x039E, 0x03A8, 0x0396, 0x005B, 0x2234, 0x005D, 0x22A5, 0x005F, 0x203E,
    0x03B1, 0x03B2, 0x03C7, 0x03B4, 0x03B5, 0x03C6, 0x03B3, 0x03B7, 0x03B9, 0x03D5, 0x03BA, 0x03BB, 0x03BC,
    0x03BD, 0x03BF, 0x03C0, 0x03B8, 0x03C1, 0x03C3, 0x03C4, 0x03C5, 0x03D6, 0x03C9, 0x03BE, 0x03C8, 0x03B6,
    0x007B, 0x007C, 0x007D, 0x223C, 0,      0,      0,      0,      0,      0,      0,      0,      0,
    0,      0,      0,      0,      0,      0,      0,      0,      0,      0,      0,      0,      0,
    0,      0,      0,      0,      0,      0,      0,      0,      0,      0,      0,      0x20AC, 0x03D2,
    0x2032, 0x2264, 0x2044, 0x221E, 0x0192, 0x2663, 0x2666, 0x2665, 0x2660, 0x2194, 0x2190, 0x2191, 0x2192,
    0x2193, 0x00B0, 0x00B1, 0x2033, 0x2265, 0x00D7, 0x221D, 0x2202, 0x2022, 0x00F7, 0x2260, 0x2261, 0x2248,
    0x2026, 0x23D0, 0x23AF, 0x21B5, 0x2135, 0x2111, 0x211C, 0x2118, 0x2297, 0x2295, 0x2205, 0x2229, 0x222A,
    0x2283, 0x2287, 0x2284, 0x2282, 0x2286, 0x2208, 0x2209, 0x2220, 0x2207, 0x00AE, 0x00A9, 0x2122, 0x220F,
    0x221A, 0x22C5, 0x00AC, 0x2227, 0x2228, 0x21D4, 0x21D0, 0x21D1, 0x21D2, 0x21D3, 0x25CA, 0x27E8, 0x00AE,
    0x00A9, 0x2122, 0x2211, 0x239B, 0x239C, 0x239D, 0x23A1, 0x23A2, 0x23A3, 0x23A7, 0x23A8, 0x23A9, 0x23AA,
    0,      0x27E9, 0x222B, 0x2320, 0x23AE, 0x2321, 0x239E, 0x239F, 0x23A0, 0x23A4, 0x23A5, 0x23A6, 0x23AB,
    0x23AC, 0x23AD, 0};
static_assert(std::size(symbols) == 224);

using ByteTable = std::array<char32_t, 256>;

char32_t OneByteCharacter(iconv_t converter, unsigned char byte)
{
    char input = static_cast<char>(byte);
    char* in = &input;
    std::size_t left = 1;
    char32_t character = 0;
    char* out = reinterpret_cast<char*>(&character);
    std::size_t room = sizeof(character);
    const std::size_t status = iconv(converter, &in, &left, &out, &room);
    iconv(converter, nullptr, nullptr, &out, &room); // some wait for an accent that may follow
    return status != static_cast<std::size_t>(-1) && room == 0 ? character : replacement;
}

ByteTable MakeTable(const char* name)
{
    ByteTable table{};
    const iconv_t converter = iconv_open("UTF-32LE", name);
    const bool open = converter != reinterpret_cast<iconv_t>(-1);
    for (unsigned byte = 0; byte < 256; ++byte) {
        const auto one = static_cast<unsigned char>(byte);
        table[byte] = byte < 0x80 ? byte : open ? OneByteCharacter(converter, one) : WesternCharacter(one);
    }
    if (open) iconv_close(converter);
    return table;
}

/// The characters of a page of single bytes, made on first need.
const ByteTable& TableOf(Long page)
{
    thread_local std::unordered_map<Long, ByteTable> tables;
    const auto found = tables.find(page);
    return found != tables.end() ? found->second
                                 : tables.emplace(page, MakeTable(FindPage(page)->name)).first->second;
}

char32_t SingleByte(Long page, unsigned char byte)
{
    switch (page) {
    case westernPage: return WesternCharacter(byte);
    case privatePage: return byte < 0x20 ? byte : 0xF000u + byte;
    case symbolPage:
        return byte < 0x20 ? byte : SymbolCharacter(byte) != 0 ? SymbolCharacter(byte) : 0xF000u + byte;
    default: return TableOf(page)[byte];
    }
}

constexpr std::pair<Long, Long> charsetPages[] = {{0, 1252},
                                                  {2, privatePage},
                                                  {77, 10000},
                                                  {128, 932},
                                                  {129, 949},
                                                  {130, 1361},
                                                  {134, 936},
                                                  {136, 950},
                                                  {161, 1253},
                                                  {162, 1254},
                                                  {163, 1258},
                                                  {177, 1255},
                                                  {178, 1256},
                                                  {186, 1257},
                                                  {204, 1251},
                                                  {222, 874},
                                                  {238, 1250},
                                                  {254, 437},
                                                  {255, 850}};

} // namespace

void AppendUtf8(std::string& text, char32_t character)
{
    if (character > 0x10FFFF || (character >= 0xD800 && character < 0xE000)) character = replacement;
    const auto add = [&](char32_t bits) { text += static_cast<char>(static_cast<unsigned char>(bits)); };
    if (character < 0x80) return add(character);
    if (character < 0x800) {
        add(0xC0 | character >> 6);
    } else if (character < 0x10000) {
        add(0xE0 | character >> 12);
        add(0x80 | (character >> 6 & 0x3F));
    } else {
        add(0xF0 | character >> 18);
        add(0x80 | (character >> 12 & 0x3F));
        add(0x80 | (character >> 6 & 0x3F));
    }
    add(0x80 | (character & 0x3F));
}

char32_t TakeCharacter(std::string_view& text)
{
    const auto first = static_cast<unsigned char>(text.front());
    const std::size_t length = first < 0x80 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    char32_t character = length == 1 ? first : first & (0x7Fu >> length);
    for (std::size_t at = 1; at < length && at < text.size(); ++at) {
        character = character << 6 | (static_cast<unsigned char>(text[at]) & 0x3F);
    }
    text.remove_prefix(std::min(length, text.size()));
    return character;
}

char32_t WesternCharacter(unsigned char byte)
{
    return byte >= 0x80 && byte < 0xA0 ? western[byte - 0x80] : byte;
}

Long PageOfCharset(Long charset)
{
    const auto* found = std::ranges::find(charsetPages, charset, &std::pair<Long, Long>::first);
    return found == std::end(charsetPages) ? 0 : found->second;
}

Long KnownPage(Long page) { return FindPage(page) != nullptr ? page : 0; }

char32_t SymbolCharacter(unsigned char byte) { return byte < 0x20 ? 0 : symbols[byte - 0x20]; }

struct ByteDecoder::Converter
{
    explicit Converter(const char* name) : handle(iconv_open("UTF-8", name)) {}
    ~Converter()
    {
        if (IsOpen()) iconv_close(handle);
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;
    bool IsOpen() const { return handle != reinterpret_cast<iconv_t>(-1); }

    /// The text of the bytes; nothing while they begin a character that is not whole, U+FFFD for what is
    /// none.
    std::optional<std::string> Decode(const char* bytes, std::size_t count)
    {
        if (!IsOpen()) return std::string(replacementText);
        char* in = const_cast<char*>(bytes); // iconv does not write there
        std::array<char, 16> buffer{};
        char* out = buffer.data();
        std::size_t room = buffer.size();
        const bool failed = iconv(handle, &in, &count, &out, &room) == static_cast<std::size_t>(-1);
        const bool incomplete = failed && errno == EINVAL;
        iconv(handle, nullptr, nullptr, nullptr, nullptr);
        if (incomplete) return std::nullopt;
        return failed ? std::string(replacementText) : std::string(buffer.data(), out);
    }

    iconv_t handle;
};

ByteDecoder::ByteDecoder() = default;
ByteDecoder::~ByteDecoder() = default;

void ByteDecoder::SetPage(Long page, std::string& out)
{
    if (page == m_page) return;
    Flush(out);
    m_page = page;
    const PageName* name = FindPage(page);
    m_converter = name != nullptr && name->severalBytes ? std::make_unique<Converter>(name->name) : nullptr;
}

void ByteDecoder::Push(unsigned char byte, std::string& out)
{
    if (m_converter == nullptr) return AppendUtf8(out, SingleByte(m_page, byte));
    PushLong(byte, out);
}

void ByteDecoder::PushLong(unsigned char byte, std::string& out)
{
    if (m_held == 0 && byte < 0x80) {
        out += static_cast<char>(byte);
        return;
    }
    m_bytes[m_held++] = static_cast<char>(byte);
    const std::optional<std::string> text = m_converter->Decode(m_bytes.data(), m_held);
    if (!text && m_held < m_bytes.size()) return;
    const bool asciiFollows = byte < 0x80 && text == replacementText;
    out += text.value_or(std::string(replacementText));
    m_held = 0;
    if (asciiFollows) out += static_cast<char>(byte); // a character cut short does not swallow the next
}

void ByteDecoder::Flush(std::string& out)
{
    if (m_held != 0) out += replacementText;
    m_held = 0;
}

} // namespace platform::richtext::reader
