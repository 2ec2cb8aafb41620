#include "worksheets/CostGrids.h"

#include "model/g53Outcomes.h"

using platform::Alignment;
using platform::Grid;
using platform::GridContents;

namespace CostGrids {

namespace {

constexpr Long kPerAcre = 3;
constexpr Long kBySize = 4;
constexpr Long kPerAcreWidth = 900; // twips
constexpr Long kCostWidth = 1200;

void SetCostHead(GridContents& contents, Long column, const char* head)
{
    contents.SetColWidth(column, kCostWidth);
    contents.SetColAlignment(column, Alignment::Right);
    contents.SetText(0, column, head);
}

} // namespace

void SetUpWithCost(Grid& grid)
{
    grid.Fill([](GridContents& contents) {
        contents.SetCols(kCost + 1);
        g53Outcomes::SetupOutcomeGridWithTimes(contents);
        SetCostHead(contents, kCost, "Cost");
    });
    grid.SetStretchCol(0);
}

void SetUpWithCostPerAcre(Grid& grid)
{
    grid.Fill([](GridContents& contents) {
        contents.SetCols(kBySize + 1);
        g53Outcomes::SetupOutcomeGridWithSize(contents);
        contents.SetColWidth(kPerAcre, kPerAcreWidth);
        contents.SetText(0, kPerAcre, "$/acre");
        SetCostHead(contents, kBySize, "Estimated cost");
    });
    grid.SetStretchCol(0);
}

void LoadWithTimes(Grid& grid)
{
    grid.Fill([](GridContents& contents) { g53Outcomes::LoadOutcomesWithTimes(contents); });
}

Outcome OutcomeIn(const Grid& grid, Long row) { return grid.RowObject<Outcome>(row); }

Long RowOf(const Grid& grid, const Outcome& outcome)
{
    for (Long row = 1; row < grid.Rows(); ++row) {
        if (OutcomeIn(grid, row) == outcome) return row;
    }
    return 0;
}

} // namespace CostGrids
