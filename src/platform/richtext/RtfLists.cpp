#include "platform/richtext/RtfLists.h"

#include "platform/richtext/RtfOutput.h"

#include <algorithm>

namespace platform::richtext {

namespace {

Long FormatNumber(const ListLevel& level)
{
    constexpr Long bullet = 23;
    constexpr Long noMarker = 255;
    if (level.kind == ListKind::Bullet) return bullet;
    if (level.kind == ListKind::None) return noMarker;
    switch (level.style) {
    case NumberStyle::UpperRoman: return 1;
    case NumberStyle::LowerRoman: return 2;
    case NumberStyle::UpperLetter: return 3;
    case NumberStyle::LowerLetter: return 4;
    case NumberStyle::Arabic: break;
    }
    return 0;
}

/// A part of a level's text: a semicolon would end it too early.
void AppendLevelText(std::string& rtf, std::string_view text)
{
    for (;;) {
        const std::size_t end = text.find(';');
        AppendRtfText(rtf, text.substr(0, end));
        if (end == std::string_view::npos) return;
        AppendByte(rtf, ';');
        text.remove_prefix(end + 1);
    }
}

void AppendCount(std::string& rtf, std::size_t count)
{
    constexpr std::size_t greatest = 255;
    AppendByte(rtf, std::min(count, greatest));
}

/// The text counts its characters first; a number's place is a byte that holds its level.
void AppendNumberText(std::string& rtf, const ListLevel& level, std::size_t place)
{
    const std::size_t before = UnitsOf(level.textBefore);
    AppendCount(rtf += "{\\leveltext", before + 1 + UnitsOf(level.textAfter));
    AppendLevelText(rtf, level.textBefore);
    AppendByte(rtf, place);
    AppendLevelText(rtf, level.textAfter);
    AppendCount(rtf += ";}{\\levelnumbers", before + 1);
    rtf += ";}";
}

void AppendMarkerText(std::string& rtf, const ListLevel& level)
{
    AppendCount(rtf += "{\\leveltext", UnitsOf(level.bullet));
    AppendLevelText(rtf, level.bullet);
    rtf += ";}{\\levelnumbers;}";
}

void AppendLevel(std::string& rtf, const ListLevel& level, std::size_t place)
{
    AppendWord(rtf += "{\\listlevel", "\\levelnfc", FormatNumber(level));
    AppendWord(rtf += "\\leveljc0\\levelfollow0", "\\levelstartat", level.start);
    rtf += "\\levelspace0\\levelindent0";
    if (level.kind == ListKind::Number) {
        AppendNumberText(rtf, level, place);
    } else {
        AppendMarkerText(rtf, level);
    }
    AppendWord(rtf, "\\fi", level.indentFirst);
    AppendWord(rtf, "\\li", level.indentLeft);
    AppendWord(rtf, "\\tx", level.indentLeft);
    rtf += '}';
}

void AppendList(std::string& rtf, const RichList& list, Long number)
{
    AppendWord(rtf += "{\\list", "\\listtemplateid", number);
    rtf += "\\listhybrid";
    for (std::size_t place = 0; place < list.levels.size(); ++place)
        AppendLevel(rtf, list.levels[place], place);
    AppendWord(rtf += "{\\listname ;}", "\\listid", number);
    rtf += '}';
}

void AppendOverride(std::string& rtf, Long number)
{
    AppendWord(rtf += "{\\listoverride", "\\listid", number);
    AppendWord(rtf, "\\listoverridecount0\\ls", number);
    rtf += '}';
}

} // namespace

Long RtfListNumber(std::size_t place)
{
    const auto behindFirst = static_cast<Long>(place);
    if (behindFirst == 0) return 1;
    Long base = 900;
    while (behindFirst >= base / 9)
        base *= 10;
    return base + behindFirst;
}

RtfLists::RtfLists(const RichDocument& document) : m_document(document), m_numbers(document.lists.size(), 0)
{}

bool RtfLists::IsItem(const ParagraphFormat& format) const
{
    return format.list > 0 && static_cast<std::size_t>(format.list) <= m_numbers.size();
}

Long RtfLists::NumberOf(const ParagraphFormat& item)
{
    const auto place = static_cast<std::size_t>(item.list - 1);
    Long& number = m_numbers[place];
    if (number == 0) {
        number = RtfListNumber(m_used.size());
        m_used.push_back(place);
    }
    return number;
}

void RtfLists::AppendTo(std::string& rtf) const
{
    if (m_used.empty()) return;
    rtf += "{\\*\\listtable";
    for (const std::size_t place : m_used)
        AppendList(rtf, m_document.lists[place], m_numbers[place]);
    rtf += "}{\\*\\listoverridetable";
    for (const std::size_t place : m_used)
        AppendOverride(rtf, m_numbers[place]);
    rtf += '}';
}

} // namespace platform::richtext
