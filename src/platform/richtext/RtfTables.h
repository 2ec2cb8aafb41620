#pragma once

#include "platform/base/Numbers.h"
#include "platform/richtext/CharacterFormat.h"
#include "platform/richtext/RtfOutput.h"

#include <string>
#include <unordered_map>
#include <vector>

namespace platform::richtext {

/// The fonts and colours of a text being written, numbered as they are first used. Font 0 is Arial; colour 0
/// the automatic one, 1 black, 2 white.
class RtfTables
{
public:
    struct Font
    {
        Long number = 0;
        FontBytes bytes = FontBytes::Latin;
    };

    /// The font of a family's name, a new one if need be. The empty name is Arial.
    Font FontOf(const std::string& family);
    /// The number of a colour, a new one if need be.
    Long ColorOf(const Color& color);

    /// Adds the font table, then the colour table.
    void AppendTo(std::string& rtf) const;

private:
    std::unordered_map<std::string, Font> m_fonts;
    std::vector<std::string> m_families; // from font 1 on
    std::unordered_map<std::uint32_t, Long> m_colorNumbers;
    std::vector<std::uint32_t> m_colors; // from colour 3 on
};

} // namespace platform::richtext
