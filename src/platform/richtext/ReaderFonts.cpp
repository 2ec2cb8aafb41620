#include "platform/richtext/ReaderFonts.h"

#include "platform/richtext/CodePages.h"

#include <algorithm>
#include <utility>

namespace platform::richtext::reader {

namespace {

constexpr std::size_t maxEntries = 32768; // of a table: what a document can number
constexpr std::size_t maxNameBytes = 255;

} // namespace

void FontTable::Begin(Long number)
{
    if (m_fonts.size() >= maxEntries) return;
    m_begun = m_fonts.size();
    m_fonts.emplace_back();
    m_numbers[number] = m_begun;
}

void FontTable::SetCharset(Long charset)
{
    if (Font* font = Begun()) font->page = PageOfCharset(charset);
}

void FontTable::SetPage(Long page)
{
    if (Font* font = Begun()) font->page = KnownPage(page);
}

void FontTable::AddName(std::string_view text)
{
    Font* font = Begun();
    if (font == nullptr) return;
    for (; !font->isNamed && !text.empty(); text.remove_prefix(1))
        AddToName(*font, text.front());
}

void FontTable::AddToName(Font& font, char sign)
{
    const bool beginsCharacter = (static_cast<unsigned char>(sign) & 0xC0) != 0x80;
    font.isNamed = sign == ';' || (beginsCharacter && font.name.size() + font.blanks >= maxNameBytes);
    if (font.isNamed || (static_cast<unsigned char>(sign) < 0x20)) return;
    if (sign == ' ') { // counts only between words
        font.blanks += font.name.empty() ? 0 : 1;
        return;
    }
    font.name.append(std::exchange(font.blanks, 0), ' ');
    font.name += sign;
}

const FontTable::Font* FontTable::Find(Long number) const
{
    const auto found = m_numbers.find(number);
    return found == m_numbers.end() ? nullptr : &m_fonts[found->second];
}

const std::string& FontTable::NameOf(Long number) const
{
    static const std::string none;
    const Font* font = Find(number);
    return font == nullptr ? none : font->name;
}

Long FontTable::PageOf(Long number) const
{
    const Font* font = Find(number);
    if (font == nullptr) return 0;
    return font->page == privatePage && font->name == "Symbol" ? symbolPage : font->page;
}

Long FontTable::PageOfName() const
{
    const Long page = m_begun < m_fonts.size() ? m_fonts[m_begun].page : 0;
    return page == privatePage || page == symbolPage ? 0 : page; // a font of signs is named in letters
}

void ColorTable::SetPart(int shift, Long value)
{
    const auto part = static_cast<std::uint32_t>(std::clamp<Long>(value, 0, 255)) << shift;
    m_begun = (m_begun.value_or(0) & ~(std::uint32_t{0xFF} << shift)) | part;
}

void ColorTable::AddText(std::string_view text)
{
    for (const char sign : text) {
        if (sign != ';') continue;
        if (m_colors.size() < maxEntries) m_colors.push_back(m_begun);
        m_begun.reset();
    }
}

Color ColorTable::Find(Long number) const
{
    const bool isThere = number >= 0 && static_cast<std::size_t>(number) < m_colors.size();
    return isThere ? m_colors[static_cast<std::size_t>(number)] : Color();
}

} // namespace platform::richtext::reader
