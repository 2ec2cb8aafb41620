#include "platform/print/TableFormat.h"

#include <algorithm>
#include <charconv>

namespace platform::print {

namespace {

Integer AlignOf(char mark)
{
    switch (mark) {
    case '^': return 1;
    case '>': return 2;
    default: return 0;
    }
}

TableColumn ReadColumn(std::string_view text)
{
    TableColumn column;
    const auto isBlank = [](char sign) { return sign == ' '; };
    text.remove_prefix(
        static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), isBlank) - text.begin()));
    if (!text.empty()) column.align = AlignOf(text.front());
    if (!text.empty() && std::string_view("<^>").find(text.front()) != std::string_view::npos)
        text.remove_prefix(1);
    constexpr Long widest = 31680;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), column.width);
    if (read.ec != std::errc()) column.width = 0;
    column.width = std::clamp<Long>(column.width, 1, widest);
    column.ruled = text.find('!') != std::string_view::npos;
    return column;
}

/// The end of the group that begins at an opening brace; npos when it is never closed.
std::size_t GroupEnd(std::string_view text, std::size_t start)
{
    std::size_t depth = 0;
    for (std::size_t i = start; i < text.size(); ++i) {
        if (text[i] == '\\') {
            ++i;
        } else if (text[i] == '{') {
            ++depth;
        } else if (text[i] == '}' && --depth == 0) {
            return i + 1;
        }
    }
    return std::string_view::npos;
}

} // namespace

TableFormat ReadFormat(std::string_view text)
{
    TableFormat format;
    const std::size_t end = std::min(text.find(';'), text.size());
    std::string_view columns = text.substr(0, end);
    for (bool more = true; more;) {
        const std::size_t bar = columns.find('|');
        more = bar != std::string_view::npos;
        format.columns.push_back(ReadColumn(columns.substr(0, bar)));
        columns.remove_prefix(more ? bar + 1 : columns.size());
    }
    format.data = text.substr(std::min(end + 1, text.size()));
    return format;
}

std::vector<std::vector<std::string>> SplitRows(std::string_view data)
{
    std::vector<std::vector<std::string>> rows;
    std::vector<std::string> cells;
    std::size_t start = 0;
    bool groupsClose = true;
    const auto endCell = [&](std::size_t end) {
        cells.emplace_back(data.substr(start, end - start));
        start = end + 1;
    };
    for (std::size_t i = 0; i < data.size(); ++i) {
        if (data[i] == '{' && groupsClose) {
            const std::size_t end = GroupEnd(data, i);
            groupsClose = end != std::string_view::npos;
            if (groupsClose) i = end - 1;
        } else if (data[i] == '|') {
            endCell(i);
        } else if (data[i] == ';') {
            endCell(i);
            rows.push_back(std::move(cells));
            cells.clear();
        }
    }
    if (start < data.size() || !cells.empty()) {
        endCell(data.size());
        rows.push_back(std::move(cells));
    }
    return rows;
}

} // namespace platform::print
