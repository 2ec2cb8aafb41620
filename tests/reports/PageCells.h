#pragma once

#include "platform/print/Document.h"

#include <compare>
#include <string>
#include <vector>

// Reads pages back as the cells that a reader sees: by where a text stands and not by how it came there.

namespace support {

/// A place in reading order: a page, from 1, and a height on it.
struct Mark
{
    Long page = 0;
    Double y = 0.0;

    friend auto operator<=>(const Mark&, const Mark&) = default;
};

/// The place in front of everything, and the one behind it.
constexpr Mark firstMark{}, lastMark{1'000'000, 0.0};

/// A line of text by its columns.
struct CellRow
{
    Mark mark; // its baseline
    std::vector<std::string> cells;
};

/// The lines whose baseline is at or below `from` and above `to`, without the running header. The columns
/// begin at all `edges` but the last, where the last one ends; a text belongs to the column where it begins.
/// Lines with nothing between the edges are left out. Turned text is none.
std::vector<CellRow>
RowsBetween(const platform::print::Document& document, Mark from, Mark to, const std::vector<Double>& edges);
/// The words of one column of such lines, joined by blanks.
std::string ColumnText(const std::vector<CellRow>& rows, std::size_t column);

} // namespace support
