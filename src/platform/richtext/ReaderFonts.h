#pragma once

#include "platform/base/Numbers.h"
#include "platform/richtext/CharacterFormat.h"

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace platform::richtext::reader {

/// The font table of one document.
class FontTable
{
public:
    /// Begins the entry of a font; of two with one number the later counts.
    void Begin(Long number);
    void SetCharset(Long charset);
    void SetPage(Long page);
    /// Adds to the name of the entry begun; a ';' ends it.
    void AddName(std::string_view text);

    /// The family's name; empty when the table has none of that number.
    const std::string& NameOf(Long number) const;
    /// The code page of the font's bytes; 0 where the document's own counts.
    Long PageOf(Long number) const;
    /// The code page that the name of the entry begun is written in; 0 where the document's own counts.
    Long PageOfName() const;

private:
    struct Font
    {
        std::string name;
        Long page = 0;
        std::size_t blanks = 0; // behind the name so far
        bool isNamed = false;   // the name has been ended
    };

    static void AddToName(Font& font, char sign);
    const Font* Find(Long number) const;
    Font* Begun() { return m_begun < m_fonts.size() ? &m_fonts[m_begun] : nullptr; }

    std::vector<Font> m_fonts;
    std::unordered_map<Long, std::size_t> m_numbers;
    std::size_t m_begun = static_cast<std::size_t>(-1);
};

/// The colour table of one document.
class ColorTable
{
public:
    /// One of the three parts of the entry begun: shift 16 red, 8 green, 0 blue; `value` 0 to 255.
    void SetPart(int shift, Long value);
    /// Reads the text of the table: each ';' ends an entry.
    void AddText(std::string_view text);
    /// Nothing for an entry without parts and for numbers beyond the table.
    Color Find(Long number) const;

private:
    std::vector<Color> m_colors;
    Color m_begun;
};

} // namespace platform::richtext::reader
