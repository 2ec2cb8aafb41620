#include "vexa-cli/TextTable.h"

#include "platform/base/Texts.h"

#include <algorithm>

namespace vexa_cli {

namespace {

constexpr std::size_t kGap = 2;
constexpr std::size_t kLeastTextWidth = 12;

/// How many characters a valid UTF-8 text has.
std::size_t Length(const std::string& text)
{
    return static_cast<std::size_t>(std::count_if(
        text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

std::string Cut(const std::string& text, std::size_t width)
{
    return Length(text) <= width ? text : platform::Left(text, width - 1) + "\u2026";
}

/// Whether a two-byte character is one of the control characters U+0080 to U+009F.
bool IsControlPair(const std::string& text, std::size_t place)
{
    return text[place] == '\xC2' && place + 1 < text.size() &&
           static_cast<unsigned char>(text[place + 1]) < 0xA0U;
}

} // namespace

std::vector<std::size_t> TextTable::Widths(std::size_t width) const
{
    std::vector<std::size_t> widths(m_rows.front().size(), 0);
    for (const std::vector<std::string>& row : m_rows) {
        for (std::size_t i = 0; row.size() > 1 && i < row.size(); ++i) {
            widths[i] = std::max(widths[i], Length(row[i]));
        }
    }
    std::size_t others = 0;
    for (std::size_t i = 1; i < widths.size(); ++i) {
        others += kGap + widths[i];
    }
    const std::size_t left = width > others ? width - others : 0;
    widths.front() = std::min(widths.front(), std::max(left, kLeastTextWidth));
    return widths;
}

std::string TextTable::Text(std::size_t width) const
{
    const std::vector<std::size_t> widths = Widths(width);
    std::string text;
    for (const std::vector<std::string>& row : m_rows) {
        if (row.size() == 1) {
            text += Cut(row.front(), width) + '\n';
            continue;
        }
        const std::string first = Cut(row.front(), widths.front());
        text += first + std::string(widths.front() - Length(first), ' ');
        for (std::size_t i = 1; i < row.size(); ++i) {
            text += std::string(kGap + widths[i] - Length(row[i]), ' ') + row[i];
        }
        text += '\n';
    }
    return text;
}

std::string OneLine(const std::string& text)
{
    const std::string valid = platform::ValidUtf8(text);
    std::string line;
    for (std::size_t i = 0; i < valid.size(); ++i) {
        const auto code = static_cast<unsigned char>(valid[i]);
        if (code < 0x20 || code == 0x7F) {
            line += ' ';
        } else if (IsControlPair(valid, i)) {
            line += ' ';
            ++i;
        } else {
            line += valid[i];
        }
    }
    return line;
}

} // namespace vexa_cli
