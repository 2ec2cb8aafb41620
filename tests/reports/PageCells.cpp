#include "PageCells.h"

#include <algorithm>
#include <map>

namespace support {

namespace {

constexpr Double headerEnd = 720.0; // the running header stands above

void AddText(std::string& cell, const std::string& text) { cell += (cell.empty() ? "" : " ") + text; }

std::vector<platform::print::PlacedText> FromLeft(std::vector<platform::print::PlacedText> texts)
{
    std::stable_sort(texts.begin(), texts.end(), [](const auto& a, const auto& b) { return a.x < b.x; });
    return texts;
}

} // namespace

std::vector<CellRow>
RowsBetween(const platform::print::Document& document, Mark from, Mark to, const std::vector<Double>& edges)
{
    std::map<Mark, std::vector<std::string>> rows;
    for (const auto& page : document.pages) {
        for (const auto& text : FromLeft(page.ink.texts)) {
            const Mark mark{page.number, text.y};
            const auto edge = std::upper_bound(edges.begin(), edges.end(), text.x);
            const bool isOutside = edge == edges.begin() || edge == edges.end();
            if (text.upward || isOutside || text.y < headerEnd || mark < from || !(mark < to)) continue;
            auto& cells = rows.try_emplace(mark, edges.size() - 1).first->second;
            AddText(cells[static_cast<std::size_t>(edge - edges.begin()) - 1], text.text);
        }
    }
    std::vector<CellRow> found;
    for (auto& [mark, cells] : rows)
        found.push_back({mark, std::move(cells)});
    return found;
}

std::string ColumnText(const std::vector<CellRow>& rows, std::size_t column)
{
    std::string words;
    for (const CellRow& row : rows) {
        if (!row.cells.at(column).empty()) AddText(words, row.cells[column]);
    }
    return words;
}

} // namespace support
