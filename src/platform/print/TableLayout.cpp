#include "platform/print/TableLayout.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace platform::print {

namespace {

using richtext::Border;
using richtext::BorderStyle;

constexpr Double narrowestText = 120.0; // even where the insets leave less
constexpr Double thinnest = 5.0;
constexpr Double sliceHeight = 1440.0; // of a row in a text that is too high to stay whole

bool IsDrawn(const Border& border) { return border.style != BorderStyle::None; }

PlacedLine LineOf(const Border& border, Double x1, Double y1, Double x2, Double y2)
{
    const Double width = std::max<Double>(thinnest, border.width);
    return {x1, y1, x2, y2, width, border.color.value_or(0)};
}

/// The horizontal rules of a row at one height: one line for neighbouring cells of one rule.
void AddRules(Ink& ink, const std::vector<LaidCell>& cells, Border LaidCell::*side, Double y)
{
    for (std::size_t i = 0; i < cells.size();) {
        const Border& border = cells[i].*side;
        std::size_t end = i + 1;
        while (end < cells.size() && cells[end].*side == border)
            ++end;
        const LaidCell& last = cells[end - 1];
        if (IsDrawn(border)) ink.lines.push_back(LineOf(border, cells[i].left, y, last.left + last.width, y));
        i = end;
    }
}

Double Beneath(richtext::CellAlignment alignment, Double room)
{
    switch (alignment) {
    case richtext::CellAlignment::Center: return std::floor(room / 2.0);
    case richtext::CellAlignment::Bottom: return room;
    case richtext::CellAlignment::Top: break;
    }
    return 0.0;
}

void AddLines(Ink& ink, const LaidText& text, Double x, Double y)
{
    for (const LaidLine& line : text.lines) {
        y += line.before;
        ink.Append(line.ink, x, y);
        y += line.height + line.after;
    }
}

/// Turned text begins at the bottom of its cell and stands in the middle between its sides.
void AddTurned(Ink& ink, const LaidCell& cell, Double bottom)
{
    Ink turned;
    AddLines(turned, cell.text, 0.0, 0.0);
    ink.AppendUpward(turned,
                     cell.left + std::max(cell.inset, std::floor((cell.width - cell.text.Height()) / 2.0)),
                     bottom - cell.inset);
}

void AddCell(Ink& ink, const LaidCell& cell, Double top, Double spacing, Double height)
{
    if (cell.background) ink.fills.push_back({cell.left, top, cell.width, height, *cell.background});
    if (cell.upward) return AddTurned(ink, cell, top + height);
    const Double room = std::max(0.0, height - spacing - cell.text.Height());
    AddLines(ink, cell.text, cell.left + cell.inset, top + spacing + Beneath(cell.alignment, room));
}

/// The lines at the front of a text that fit into a height.
LaidText TakeLines(LaidText& text, Double available, bool force)
{
    LaidText front;
    Double used = 0.0;
    for (LaidLine& line : text.lines) {
        const bool isForced = force && front.lines.empty();
        if (used + line.before + line.height > available && !isForced) break;
        used += line.before + line.height + line.after;
        front.lines.push_back(std::move(line));
    }
    text.lines.erase(text.lines.begin(),
                     text.lines.begin() + static_cast<std::ptrdiff_t>(front.lines.size()));
    if (!text.lines.empty()) text.lines.front().before = 0.0;
    return front;
}

Double NeedsOf(const std::vector<LaidCell>& cells)
{
    Double height = 0.0;
    for (const LaidCell& cell : cells)
        height = std::max(height, cell.Needs());
    return height;
}

Double WidthOf(const richtext::Table& table)
{
    Double widest = 1.0;
    for (const richtext::TableRow& row : table.rows) {
        Double width = std::max<Long>(row.left, 0);
        for (const richtext::TableCell& cell : row.cells)
            width += cell.width;
        widest = std::max(widest, width);
    }
    return widest;
}

} // namespace

Double LaidCell::Needs() const { return upward ? text.Width() + 2.0 * inset : text.Height(); }

Ink LaidRow::Drawn() const
{
    Ink ink;
    const Double bottom = spaceBefore + height;
    for (const LaidCell& cell : cells)
        AddCell(ink, cell, spaceBefore, spacing, height);
    AddRules(ink, cells, &LaidCell::top, spaceBefore);
    AddRules(ink, cells, &LaidCell::bottom, bottom);
    for (const LaidCell& cell : cells) {
        const Double right = cell.left + cell.width;
        if (IsDrawn(cell.leftSide))
            ink.lines.push_back(LineOf(cell.leftSide, cell.left, 0.0, cell.left, bottom));
        if (IsDrawn(cell.right)) ink.lines.push_back(LineOf(cell.right, right, 0.0, right, bottom));
    }
    return ink;
}

bool LaidRow::CanBreak() const
{
    return std::any_of(
        cells.begin(), cells.end(), [](const LaidCell& cell) { return cell.text.lines.size() > 1; });
}

Double LaidRow::FirstLine() const
{
    Double first = 0.0;
    for (const LaidCell& cell : cells) {
        if (!cell.text.lines.empty())
            first = std::max(first, cell.text.lines[0].before + cell.text.lines[0].height);
    }
    return spaceBefore + spacing + first;
}

LaidRow LaidRow::TakeFront(Double available, bool force)
{
    std::vector<LaidText> texts; // are moved: a copy for every page would make long rows slow
    for (LaidCell& cell : cells)
        texts.push_back(std::exchange(cell.text, {}));
    LaidRow front = *this;
    const Double forLines = available - spaceBefore - spacing;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        cells[i].text = std::move(texts[i]);
        front.cells[i].text = TakeLines(cells[i].text, forLines, force);
        front.cells[i].alignment = cells[i].alignment = richtext::CellAlignment::Top;
    }
    front.height = spacing + NeedsOf(front.cells);
    spaceBefore = spacing = 0.0;
    height = NeedsOf(cells);
    return front;
}

TableLayout::TableLayout(LookBook& looks, richtext::ListCounter& counter, Long defaultTab)
    : m_looks(looks), m_counter(counter), m_defaultTab(defaultTab)
{}

LaidCell TableLayout::LayOutCell(
    const richtext::TableCell& cell, Double width, Double gap, Double upwardLength, Double tallest)
{
    LaidCell laid;
    laid.width = width;
    laid.inset = std::min(gap, std::max(0.0, (width - narrowestText) / 2.0));
    laid.alignment = cell.alignment;
    laid.top = cell.top;
    laid.leftSide = cell.left;
    laid.bottom = cell.bottom;
    laid.right = cell.right;
    laid.background = cell.background;
    laid.upward = cell.upward;
    TextFrame frame;
    frame.width = std::max(1.0, (cell.upward ? upwardLength : width) - 2.0 * laid.inset);
    frame.tallest = tallest;
    TextLayout layout(m_looks);
    laid.text = layout.LayOut(cell.blocks, m_counter, frame, m_defaultTab);
    return laid;
}

LaidRow TableLayout::LayOut(const richtext::TableRow& row, Double scale, Double tallest)
{
    constexpr Double anyLength = 5760.0;
    LaidRow laid;
    const Double told = std::abs(static_cast<Double>(row.height));
    Double left = std::max<Long>(row.left, 0) * scale;
    for (std::size_t i = 0; i < row.cells.size();) {
        Double width = row.cells[i].width * scale;
        std::size_t end = i + 1;
        while (end < row.cells.size() && row.cells[end].mergeAcross == richtext::CellMerge::Continued)
            width += row.cells[end++].width * scale;
        LaidCell cell =
            LayOutCell(row.cells[i], width, row.cellGap * scale, told > 0.0 ? told : anyLength, tallest);
        cell.left = left;
        laid.cells.push_back(std::move(cell));
        left += width;
        i = end;
    }
    laid.height = std::max(told, NeedsOf(laid.cells));
    return laid;
}

void TableLayout::AppendRows(LaidText& text, const richtext::Table& table, const TextFrame& frame)
{
    const Double scale = std::min(1.0, frame.width / WidthOf(table));
    for (std::size_t number = 0; number < table.rows.size(); ++number) {
        LaidRow row = LayOut(table.rows[number], scale, frame.tallest);
        const auto append = [&](const LaidRow& part) {
            LaidLine line;
            line.height = part.height;
            line.start = number;
            line.ink = part.Drawn();
            text.lines.push_back(std::move(line));
        };
        while (row.height > 2.0 * sliceHeight && row.CanBreak())
            append(row.TakeFront(sliceHeight, true));
        append(row);
    }
}

} // namespace platform::print
