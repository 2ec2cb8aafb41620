#pragma once

#include "model/c53Outcome.h"
#include "platform/base/Numbers.h"
#include "platform/controls/GridContents.h"

#include <memory>

/// The shared Extreme outcome, the rows of new outcomes, and the table of outcomes that many worksheets show.
/// All throw DatabaseError.
namespace g53Outcomes {

/// One for all alternatives, read on first use.
std::shared_ptr<c53Outcome> ExtremeOutcome();
/// Drops it; the next use reads the file again.
void ResetExtremeOutcome();
/// Adds the rows of a new alternative: a Target at 100 percent and a Fallback not shown, each with burn
/// areas.
void AddOutcomes(Long alternativeKey);

/// The columns of the table: outcome (two columns), then acres, then contain and control times. Columns that
/// the grid has not yet are added. The size of a grid is otherwise the caller's.
void SetupOutcomeGrid(platform::GridContents& grid);
void SetupOutcomeGridWithSize(platform::GridContents& grid);
void SetupOutcomeGridWithTimes(platform::GridContents& grid);
/// The rows: the header is kept, then Target and (where shown) Fallback of each alternative; row data is the
/// outcome, a std::shared_ptr<c53Outcome>.
void LoadAlternativeOutcomes(platform::GridContents& grid);
/// The same with a row for the Extreme outcome at the end, merged across.
void LoadOutcomes(platform::GridContents& grid);
/// What stands beside the outcomes; rows without an outcome are left alone.
void ShowOutcomeSizes(platform::GridContents& grid);
void ShowOutcomeTimes(platform::GridContents& grid);
/// Cost per acre and cost by size, in columns 3 and 4. Throws Overflow for a figure out of range.
void ShowOutcomeCosts(platform::GridContents& grid);
void LoadOutcomesWithSizes(platform::GridContents& grid);
void LoadOutcomesWithTimes(platform::GridContents& grid);

} // namespace g53Outcomes
