#pragma once

#include "platform/base/Numbers.h"

#include <memory>
#include <vector>

class c51Alternative;
class c53Outcome;

/// The two tables of an alternative in the cost report. Both stand side by side for its three outcomes. All
/// write to VSPrinter1 and throw DatabaseError and what the figures of the model throw.
namespace CostTables {

/// The three outcomes' places from left to right.
enum Place : Long { Target, Fallback, Extreme };

/// An outcome that has figures in the tables.
struct Column
{
    Place place;
    const char* caption;
    std::shared_ptr<c53Outcome> outcome;
};

/// Target, Fallback where it is shown, Extreme. A Fallback that is not shown leaves its place empty.
std::vector<Column> ColumnsOf(c51Alternative& alternative);

/// The greatest number of resource uses of an outcome, a Fallback that is not shown among them.
Long MaxSRUses(c51Alternative& alternative);

/// The costs by land unit, under the alternative's title.
void PrintFMUCosts(c51Alternative& alternative);
/// The resources of the outcomes in so many rows, with the cost and its basis. It has the title where the
/// session's reports have no table of land units above it, else an empty row in its place.
void PrintResourceCosts(c51Alternative& alternative, Long rows);

} // namespace CostTables
