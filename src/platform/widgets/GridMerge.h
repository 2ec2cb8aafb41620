#pragma once

#include "platform/widgets/GridModel.h"

#include <vector>

namespace platform {

/// Cells that stand as one: a place and how many rows and columns it takes.
struct GridBlock
{
    Long row = 0;
    Long column = 0;
    Long rows = 1;
    Long columns = 1;
    friend bool operator==(const GridBlock&, const GridBlock&) = default;
};

/// The blocks of more than one cell among the rows from `first` up to but without `end`: neighbours of equal
/// text to the right in a merged row, below in a merged column. Empty texts never merge, and below the header
/// no figures along a row: two equal amounts are two amounts. Blanks count.
std::vector<GridBlock> MergedBlocks(const GridModel& model, Long first, Long end);

} // namespace platform
