#pragma once

#include "platform/base/Numbers.h"
#include "values/c68SRUse.h"

/// The arithmetic of the resource list's grid. Rows count from 1, as the lines do.
namespace ResourceLines {

/// Dollars of a line. Throws Overflow when quantity times periods leaves 32 bits.
Double RowCost(const c68SRUse& use);

/// The row that a typed number means among so many lines: the nearest one that there is.
Long RowTyped(Double number, Long lines);

/// The rows that make room for a row that moves, and by how much their numbers change.
struct Renumbering
{
    Long first = 0;
    Long last = 0; // below the first: none
    Long shift = 0;
};
/// `from` is the line's stored number, which after deletions may stand for no row; rows beyond the list are
/// left out.
Renumbering MakeRoom(Long from, Long to, Long lines);

} // namespace ResourceLines
