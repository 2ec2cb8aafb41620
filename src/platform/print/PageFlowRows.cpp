#include "platform/print/PageFlow.h"

#include <algorithm>
#include <utility>

namespace platform::print {

namespace {

/// A row is not broken for less than this at the foot of a page.
constexpr Double leastPart = 720.0;

Double FullHeight(const LaidRow& row) { return row.spaceBefore + row.height; }

bool IsBlank(const LaidRow& row)
{
    const Ink ink = row.Drawn();
    return ink.fills.empty() && ink.pictures.empty() && ink.lines.empty() && ink.texts.empty();
}

} // namespace

template <class Action>
void PageFlow::ForEachRepeated(const Rows& rows, std::size_t number, const Action& action) const
{
    if (number < rows.leading) return;
    for (std::size_t i = 0; i < rows.leading; ++i)
        action(rows.rows[i]);
    const bool isHeader = number < rows.rules.size() && rows.rules[number].header;
    if (isHeader) return;
    for (std::size_t i = rows.group; i < rows.groupEnd; ++i)
        action(rows.rows[i]);
}

/// Heads that would fill most of a page are not repeated: nothing else would fit.
Double PageFlow::RepeatedHeight(const Rows& rows, std::size_t number) const
{
    Double height = 0.0;
    ForEachRepeated(rows, number, [&](const LaidRow& row) { height += row.height; });
    return height > ColumnHeight() / 2.0 ? 0.0 : height;
}

/// Remembers the heads within the table that the rows behind them stand under.
void PageFlow::NoteHeader(Rows& rows, std::size_t number) const
{
    if (number < rows.leading || !rows.rules[number].header) return;
    if (rows.groupEnd != number) rows.group = number;
    rows.groupEnd = number + 1;
}

/// The height of the rows from this one on that are to stay on one page.
Double PageFlow::HeightKept(const Rows& rows, std::size_t number) const
{
    Double height = FullHeight(rows.rows[number]);
    for (std::size_t next = number + 1; next < rows.rows.size(); ++next) {
        if (!rows.rules[next - 1].keepWithNext) break;
        height += FullHeight(rows.rows[next]) + rows.rules[next].spaceAfter;
    }
    return height;
}

/// Whether rows that belong to the next one would stand at the foot of the page without it, their group being
/// too high to stay together.
bool PageFlow::LeavesHead(const Rows& rows, std::size_t number) const
{
    constexpr std::size_t mostHeads = 3;
    std::size_t next = number;
    Double height = 0.0;
    const auto isHead = [&](std::size_t i) {
        return i < number + mostHeads && i + 1 < rows.rows.size() && rows.rules[i].keepWithNext &&
               FullHeight(rows.rows[i]) <= leastPart;
    };
    for (; isHead(next); ++next)
        height += FullHeight(rows.rows[next]);
    const LaidRow& last = rows.rows[next];
    height += std::min(FullHeight(last), std::max(leastPart, last.FirstLine()));
    return next > number && m_y + height > Bottom();
}

void PageFlow::PlaceRow(const LaidRow& row, Double left)
{
    m_page.ink.Append(row.Drawn(), ColumnLeft() + left, m_y);
    m_y += FullHeight(row);
}

void PageFlow::BreakBefore(const Rows& rows, std::size_t number)
{
    NextColumn();
    if (RepeatedHeight(rows, number) <= 0.0) return;
    ForEachRepeated(rows, number, [&](LaidRow row) {
        row.spaceBefore = 0.0;
        PlaceRow(row, rows.left);
    });
}

/// Breaks a row over as many pages as it takes. On a fresh page at least a line comes, however little room
/// there is.
void PageFlow::BreakRow(Rows& rows, std::size_t number)
{
    LaidRow& row = rows.rows[number];
    bool isFresh = AtTop();
    const auto goOn = [&] {
        BreakBefore(rows, number);
        isFresh = true;
    };
    if (!isFresh && Bottom() - m_y < std::max(leastPart, row.FirstLine())) goOn();
    while (m_y + FullHeight(row) > Bottom() && row.CanBreak()) {
        if (isFresh || m_y + row.FirstLine() <= Bottom())
            PlaceRow(row.TakeFront(Bottom() - m_y, isFresh), rows.left);
        goOn();
    }
    PlaceRow(row, rows.left);
}

/// Blank rows at the end begin no page: it would show the repeated heads and nothing below them.
bool PageFlow::IsOver(const Rows& rows, std::size_t number) const
{
    if (m_y + FullHeight(rows.rows[number]) <= Bottom()) return false;
    const auto rest = rows.rows.begin() + static_cast<std::ptrdiff_t>(number);
    return std::all_of(rest, rows.rows.end(), IsBlank);
}

void PageFlow::PlaceRowNumbered(Rows& rows, std::size_t number)
{
    const Double room = ColumnHeight() - RepeatedHeight(rows, number);
    const bool begins =
        number == 0 || !rows.rules[number - 1].keepWithNext || !rows.rules[number].keepWithNext;
    const Double kept = begins ? HeightKept(rows, number) : 0.0;
    LaidRow& row = rows.rows[number];
    const bool keepsTogether = (kept <= room && m_y + kept > Bottom()) || LeavesHead(rows, number);
    const bool fitsElsewhere = FullHeight(row) <= room && m_y + FullHeight(row) > Bottom();
    if ((keepsTogether || fitsElsewhere) && !AtTop()) {
        BreakBefore(rows, number);
        row.spaceBefore = 0.0;
    }
    m_y + FullHeight(row) > Bottom() ? BreakRow(rows, number) : PlaceRow(row, rows.left);
    m_y += rows.rules[number].spaceAfter;
}

std::size_t PageFlow::Place(std::vector<LaidRow> laid, const std::vector<RowRules>& rules, Double left)
{
    Rows rows{std::move(laid), rules, left};
    while (rows.leading < rules.size() && rules[rows.leading].header)
        ++rows.leading;
    if (rows.leading == rules.size()) rows.leading = 0; // nothing for them to stand above
    for (std::size_t number = 0; number < rows.rows.size(); ++number) {
        if (IsOver(rows, number)) return number;
        NoteHeader(rows, number);
        PlaceRowNumbered(rows, number);
    }
    return rules.size();
}

} // namespace platform::print
