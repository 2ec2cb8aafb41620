#include "platform/richtext/RtfTables.h"

#include <algorithm>
#include <array>

namespace platform::richtext {

namespace {

constexpr std::string_view defaultFamily = "Arial";

/// What the table says of a family beside its name, so that a machine without it finds one of its kind.
struct FontClass
{
    std::string_view family;
    std::string_view words;
};

constexpr std::string_view romanWords = "\\froman\\fcharset0\\fprq2";
constexpr std::string_view swissWords = "\\fswiss\\fcharset0\\fprq2";
constexpr std::string_view modernWords = "\\fmodern\\fcharset0\\fprq1";
constexpr std::string_view symbolWords = "\\froman\\fcharset2\\fprq2";
constexpr std::string_view otherWords = "\\fnil\\fcharset0\\fprq2";

constexpr std::array fontClasses{
    FontClass{"Times New Roman", romanWords},  FontClass{"Times", romanWords},
    FontClass{"Liberation Serif", romanWords}, FontClass{"Georgia", romanWords},
    FontClass{"Garamond", romanWords},         FontClass{"Cambria", romanWords},
    FontClass{"Book Antiqua", romanWords},     FontClass{"Palatino Linotype", romanWords},
    FontClass{"Arial Narrow", swissWords},     FontClass{"Arial Black", swissWords},
    FontClass{"Helvetica", swissWords},        FontClass{"Liberation Sans", swissWords},
    FontClass{"Calibri", swissWords},          FontClass{"Verdana", swissWords},
    FontClass{"Tahoma", swissWords},           FontClass{"Segoe UI", swissWords},
    FontClass{"Courier New", modernWords},     FontClass{"Courier", modernWords},
    FontClass{"Liberation Mono", modernWords}, FontClass{"Consolas", modernWords},
    FontClass{"Lucida Console", modernWords},  FontClass{"Symbol", symbolWords},
    FontClass{"Wingdings", symbolWords},       FontClass{"Wingdings 2", symbolWords},
    FontClass{"Wingdings 3", symbolWords},     FontClass{"Webdings", symbolWords},
};

std::string_view WordsOf(std::string_view family)
{
    const auto found = std::find_if(fontClasses.begin(), fontClasses.end(), [&](const FontClass& known) {
        return known.family == family;
    });
    return found == fontClasses.end() ? otherWords : found->words;
}

void AppendFont(std::string& rtf, std::size_t number, std::string_view family)
{
    AppendWord(rtf += '{', "\\f", static_cast<std::int64_t>(number));
    rtf.append(WordsOf(family)).append(" ");
    std::string name(family);
    std::erase(name, ';'); // would end it
    AppendRtfText(rtf, name);
    rtf += ";}";
}

void AppendColor(std::string& rtf, std::uint32_t color)
{
    AppendWord(rtf, "\\red", (color >> 16) & 0xFF);
    AppendWord(rtf, "\\green", (color >> 8) & 0xFF);
    AppendWord(rtf, "\\blue", color & 0xFF);
    rtf += ';';
}

} // namespace

RtfTables::Font RtfTables::FontOf(const std::string& family)
{
    if (family.empty() || family == defaultFamily) return {};
    const auto [place, isNew] = m_fonts.try_emplace(family);
    if (isNew) {
        m_families.push_back(family);
        place->second = {static_cast<Long>(m_families.size()),
                         WordsOf(family) == symbolWords ? FontBytes::Symbol : FontBytes::Latin};
    }
    return place->second;
}

Long RtfTables::ColorOf(const Color& color)
{
    constexpr std::uint32_t black = 0x000000;
    constexpr std::uint32_t white = 0xFFFFFF;
    constexpr Long firstOwn = 3;
    if (!color) return 0;
    if (*color == black) return 1;
    if (*color == white) return 2;
    const auto [place, isNew] =
        m_colorNumbers.try_emplace(*color, firstOwn + static_cast<Long>(m_colors.size()));
    if (isNew) m_colors.push_back(*color);
    return place->second;
}

void RtfTables::AppendTo(std::string& rtf) const
{
    rtf += "{\\fonttbl{\\f0\\fswiss\\fcharset0\\fprq2 Arial;}";
    for (std::size_t i = 0; i < m_families.size(); ++i)
        AppendFont(rtf, i + 1, m_families[i]);
    rtf += "}{\\colortbl;\\red0\\green0\\blue0;\\red255\\green255\\blue255;";
    for (const std::uint32_t color : m_colors)
        AppendColor(rtf, color);
    rtf += '}';
}

} // namespace platform::richtext
