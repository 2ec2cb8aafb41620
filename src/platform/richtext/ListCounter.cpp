#include "platform/richtext/ListCounter.h"

#include <algorithm>
#include <limits>
#include <string_view>

namespace platform::richtext {

namespace {

constexpr Long none = -1;

std::string Letters(Long number, char first)
{
    constexpr Long letters = 26;
    constexpr Long mostRepeated = 30 * letters;
    if (number < 1 || number > mostRepeated) return std::to_string(number);
    const auto letter = static_cast<char>(first + (number - 1) % letters);
    return std::string(static_cast<std::size_t>((number - 1) / letters + 1), letter);
}

struct RomanStep
{
    Long value;
    std::string_view upper;
    std::string_view lower;
};

constexpr std::array romanSteps{
    RomanStep{1000, "M", "m"},
    RomanStep{900, "CM", "cm"},
    RomanStep{500, "D", "d"},
    RomanStep{400, "CD", "cd"},
    RomanStep{100, "C", "c"},
    RomanStep{90, "XC", "xc"},
    RomanStep{50, "L", "l"},
    RomanStep{40, "XL", "xl"},
    RomanStep{10, "X", "x"},
    RomanStep{9, "IX", "ix"},
    RomanStep{5, "V", "v"},
    RomanStep{4, "IV", "iv"},
    RomanStep{1, "I", "i"},
};

std::string Roman(Long number, bool upper)
{
    constexpr Long greatest = 3999;
    if (number < 1 || number > greatest) return std::to_string(number);
    std::string text;
    for (const RomanStep& step : romanSteps) {
        for (; number >= step.value; number -= step.value)
            text += upper ? step.upper : step.lower;
    }
    return text;
}

} // namespace

std::string NumberText(Long number, NumberStyle style)
{
    switch (style) {
    case NumberStyle::UpperRoman: return Roman(number, true);
    case NumberStyle::LowerRoman: return Roman(number, false);
    case NumberStyle::UpperLetter: return Letters(number, 'A');
    case NumberStyle::LowerLetter: return Letters(number, 'a');
    case NumberStyle::Arabic: break;
    }
    return std::to_string(number);
}

ListCounter::ListCounter(const RichDocument& document)
    : m_document(document), m_numbers(document.lists.size())
{
    for (Numbers& numbers : m_numbers)
        numbers.fill(none);
}

Long ListCounter::NextNumber(Long list, Long level, Long start)
{
    Numbers& numbers = m_numbers[static_cast<std::size_t>(list - 1)];
    const auto place = static_cast<std::size_t>(std::clamp<Long>(level, 0, maxListLevels - 1));
    Long& number = numbers[place];
    if (number == none) {
        number = start;
    } else if (number < std::numeric_limits<Long>::max()) {
        ++number;
    }
    for (std::size_t below = place + 1; below < numbers.size(); ++below)
        numbers[below] = none;
    return number;
}

std::string ListCounter::NextMarker(const ParagraphFormat& format)
{
    const ListLevel* level = LevelOf(m_document, format);
    if (level == nullptr) return {};
    const Long number = NextNumber(format.list, format.level, level->start);
    if (level->kind == ListKind::None) return {};
    if (level->kind == ListKind::Bullet) return level->bullet;
    return level->textBefore + NumberText(number, level->style) + level->textAfter;
}

} // namespace platform::richtext
