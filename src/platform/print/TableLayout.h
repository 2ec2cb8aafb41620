#pragma once

#include "platform/print/TextLayout.h"
#include "platform/richtext/RichTable.h"

#include <vector>

namespace platform::print {

/// A cell of a row that is laid out. `left` is from the table's own left margin.
struct LaidCell
{
    Double left = 0.0, width = 0.0, inset = 0.0;
    richtext::CellAlignment alignment = richtext::CellAlignment::Top;
    richtext::Border top, leftSide, bottom, right;
    richtext::Color background;
    bool upward = false;
    LaidText text;

    /// How high the row must be for its text.
    Double Needs() const;
};

/// A row that is laid out.
struct LaidRow
{
    Double spaceBefore = 0.0; // above its rule; the vertical rules run through it
    Double spacing = 0.0;     // above its text
    Double height = 0.0;      // of the row, `spacing` included and `spaceBefore` not
    std::vector<LaidCell> cells;

    /// Everything of it, its top at 0.
    Ink Drawn() const;
    /// Takes off the front what fits into a height, lines being whole. At least one line of some cell is
    /// taken when `force` is told; else nothing may come. The rest stays in this row.
    LaidRow TakeFront(Double available, bool force);
    /// Whether it can be broken: some cell has more than one line.
    bool CanBreak() const;
    /// How high the first line of its text is, with what stands above it.
    Double FirstLine() const;
};

/// Lays out tables: those of the reports, and those in bodies.
class TableLayout
{
public:
    /// All must outlive the object.
    TableLayout(LookBook& looks, richtext::ListCounter& counter, Long defaultTab);

    /// A row, its widths times `scale`.
    LaidRow LayOut(const richtext::TableRow& row, Double scale, Double tallest);
    /// Adds a table within a text: a row a line, a row that is too high in several. One that is wider than
    /// the text is made to fit.
    void AppendRows(LaidText& text, const richtext::Table& table, const TextFrame& frame);

private:
    LaidCell LayOutCell(
        const richtext::TableCell& cell, Double width, Double gap, Double upwardLength, Double tallest);

    LookBook& m_looks;
    richtext::ListCounter& m_counter;
    Long m_defaultTab;
};

} // namespace platform::print
