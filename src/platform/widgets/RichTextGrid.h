#pragma once

#include "platform/richtext/RichDocument.h"

#include <vector>

namespace platform {

/// A table's cells on one grid of columns, as the toolkit wants them: the rows of a rich text may differ in
/// the number and widths of their cells.
class RichTextGrid
{
public:
    struct Place
    {
        int row = 0;
        int column = 0;
        int rows = 1;
        int columns = 1;
        bool joined = false; // continues another cell and shows nothing of its own
    };

    explicit RichTextGrid(const richtext::Table& table);

    int Rows() const { return static_cast<int>(m_places.size()); }
    int Columns() const { return static_cast<int>(m_widths.size()); }
    /// The columns' widths, twips.
    const std::vector<Long>& Widths() const { return m_widths; }
    /// Where a cell stands, by its row and its number in the row.
    const Place& At(std::size_t row, std::size_t cell) const { return m_places[row][cell]; }

private:
    void FindColumns(const richtext::Table& table);
    void PlaceRow(const richtext::TableRow& row);
    void JoinDown(const richtext::Table& table);
    int ColumnAt(Long edge) const;

    std::vector<Long> m_edges; // twips, rising
    std::vector<Long> m_widths;
    std::vector<std::vector<Place>> m_places;
};

} // namespace platform
