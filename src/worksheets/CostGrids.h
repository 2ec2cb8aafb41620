#pragma once

#include "model/c53Outcome.h"
#include "platform/widgets/Grid.h"

#include <memory>

/// The grids of outcomes on the cost screens.
namespace CostGrids {

using Outcome = std::shared_ptr<c53Outcome>;

/// The column of the cost in a grid with sizes and times.
constexpr Long kCost = 5;

/// Outcomes, acres, times and cost; the header alone.
void SetUpWithCost(platform::Grid& grid);
/// Outcomes, acres, cost per acre and cost by size; the header alone.
void SetUpWithCostPerAcre(platform::Grid& grid);
/// All outcomes with sizes and times.
void LoadWithTimes(platform::Grid& grid);
/// The outcome of a row; nothing for the header.
Outcome OutcomeIn(const platform::Grid& grid, Long row);
/// The row of an outcome; 0 where there is none.
Long RowOf(const platform::Grid& grid, const Outcome& outcome);

} // namespace CostGrids
