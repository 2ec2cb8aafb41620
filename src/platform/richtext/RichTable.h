#pragma once

#include "platform/base/Numbers.h"
#include "platform/richtext/CharacterFormat.h"
#include "platform/richtext/ParagraphFormat.h"

#include <cstdint>
#include <vector>

namespace platform::richtext {

struct Block;

/// Cells that are joined: the first shows, those that continue it are empty but stand in their row.
enum class CellMerge : std::uint8_t { None, First, Continued };

enum class CellAlignment : std::uint8_t { Top, Center, Bottom };

enum class BorderStyle : std::uint8_t { None, Single, Double, Dotted, Dashed, Thick };

struct Border
{
    BorderStyle style = BorderStyle::None;
    Long width = 0; // twips, 0 to 255; 0 where style is None
    Color color;    // nothing: the text's; nothing where style is None

    friend bool operator==(const Border&, const Border&) = default;
};

struct TableCell
{
    Long width = 0; // twips, from edge to edge; above 0
    CellMerge mergeAcross = CellMerge::None;
    CellMerge mergeDown = CellMerge::None; // cells with equal left edges
    CellAlignment alignment = CellAlignment::Top;
    Border top, left, bottom, right;
    Color background;
    bool upward = false;       // the text stands turned by a quarter, reading upward
    std::vector<Block> blocks; // at least one; the last is a paragraph

    friend bool operator==(const TableCell& a, const TableCell& b);
};

/// One row. Rows of a table may differ in the number and widths of their cells.
struct TableRow
{
    std::vector<TableCell> cells; // 1 to maxColumns
    Long left = 0;                // twips from the left margin to the first cell's edge
    Long cellGap = 0;             // twips, half the space between the texts of neighbouring cells
    Long height = 0;              // twips; 0: as needed, above: at least, below: exactly its opposite
    Alignment alignment = Alignment::Left; // of the row on the page; never Justify
    bool heading = false;                  // repeated on each page; only the first rows of a table
    bool keepTogether = false;             // not broken over pages

    friend bool operator==(const TableRow&, const TableRow&) = default;
};

struct Table
{
    std::vector<TableRow> rows; // at least one

    friend bool operator==(const Table&, const Table&) = default;
};

constexpr Long maxColumns = 64;
/// How deep tables may stand in cells of tables; what is deeper joins the cell that it stands in.
constexpr Long maxTableDepth = 16;

} // namespace platform::richtext
