#include "platform/widgets/RichTextGrid.h"

#include <algorithm>

namespace platform {

using richtext::CellMerge;

RichTextGrid::RichTextGrid(const richtext::Table& table)
{
    FindColumns(table);
    for (const richtext::TableRow& row : table.rows)
        PlaceRow(row);
    JoinDown(table);
}

void RichTextGrid::FindColumns(const richtext::Table& table)
{
    for (const richtext::TableRow& row : table.rows) {
        Long edge = row.left;
        m_edges.push_back(edge);
        for (const richtext::TableCell& cell : row.cells)
            m_edges.push_back(edge += std::max(1, cell.width));
    }
    std::sort(m_edges.begin(), m_edges.end());
    m_edges.erase(std::unique(m_edges.begin(), m_edges.end()), m_edges.end());
    for (std::size_t i = 1; i < m_edges.size(); ++i)
        m_widths.push_back(m_edges[i] - m_edges[i - 1]);
}

int RichTextGrid::ColumnAt(Long edge) const
{
    return static_cast<int>(std::lower_bound(m_edges.begin(), m_edges.end(), edge) - m_edges.begin());
}

/// A row that is shorter than the table lends the rest to its first and last cell.
void RichTextGrid::PlaceRow(const richtext::TableRow& row)
{
    std::vector<Place> places;
    Long edge = row.left;
    int column = 0;
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
        edge += std::max(1, row.cells[i].width);
        const int end = i + 1 == row.cells.size() ? Columns() : ColumnAt(edge);
        const bool joined = i > 0 && row.cells[i].mergeAcross == CellMerge::Continued;
        places.push_back({Rows(), column, 1, end - column, joined});
        if (joined) {
            std::size_t first = i;
            while (first > 0 && places[first].joined)
                --first;
            places[first].columns = end - places[first].column;
        }
        column = end;
    }
    m_places.push_back(std::move(places));
}

void RichTextGrid::JoinDown(const richtext::Table& table)
{
    for (std::size_t row = 1; row < m_places.size(); ++row) {
        for (std::size_t cell = 0; cell < m_places[row].size(); ++cell) {
            Place& place = m_places[row][cell];
            if (table.rows[row].cells[cell].mergeDown != CellMerge::Continued || place.joined) continue;
            for (std::size_t above = row; above-- > 0;) {
                auto& places = m_places[above];
                const auto top = std::find_if(places.begin(), places.end(), [&](const Place& each) {
                    return each.column == place.column && !each.joined;
                });
                if (top == places.end()) {
                    const bool through = std::any_of(places.begin(), places.end(), [&](const Place& each) {
                        return each.column == place.column;
                    });
                    if (through) continue; // itself joined: go on upwards
                    break;
                }
                if (top->columns != place.columns || top->row + top->rows != place.row) break;
                ++top->rows;
                place.joined = true;
                break;
            }
        }
    }
}

} // namespace platform
