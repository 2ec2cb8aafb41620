#pragma once

#include "platform/base/Numbers.h"

class c51Alternative;

/// The tables of what the outcomes would cost in resource values, one for each alternative.
namespace ImpactTable {

/// A code of two digits by the number of rows that a table takes, resources and threatened items together:
/// how many tables stand on a page, and their font size in points. Throws DatabaseError, Overflow.
Long ImpactLayout();
/// Writes the table of an alternative below a banner at the top margin, the font size in points. Leaves the
/// border of the rows in force. Throws DatabaseError, Overflow.
void PrintImpactTable(c51Alternative& alternative, Long fontSize);

} // namespace ImpactTable
