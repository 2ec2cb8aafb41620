// The table of outcomes that many worksheets show.

#include "model/c51Alternative.h"
#include "model/g51Alternatives.h"
#include "model/g53Outcomes.h"
#include "platform/base/Formats.h"
#include "platform/base/Texts.h"
#include "session/UIMode.h"

#include <algorithm>

namespace g53Outcomes {

namespace {

using platform::Alignment;
using platform::GridContents;

enum Column : Long { Name = 0, Kind = 1, Size = 2, Contain = 3, Control = 4, PerAcre = 3, BySize = 4 };

// Twips.
constexpr Long kNameWidth = 2700;
constexpr Long kKindWidth = 675;
constexpr Long kSizeWidth = 900;
constexpr Long kTimeWidth = 720;

constexpr Single kLastWithoutThousands = 9999.0F;

void EnsureColumns(GridContents& grid, Long columns) { grid.SetCols(std::max(grid.Cols(), columns)); }

void SetHeader(GridContents& grid, Long column, Long width, const char* text)
{
    grid.SetColWidth(column, width);
    grid.SetText(0, column, text);
}

void AddRow(GridContents& grid, const std::string& name, const std::shared_ptr<c53Outcome>& outcome)
{
    grid.AddItem(""); // cell by cell: a tab in a name is no new column
    const Long row = grid.Rows() - 1;
    grid.SetText(row, Name, name);
    grid.SetText(row, Kind, outcome->ShortName());
    grid.SetRowData(row, outcome);
}

void AddExtremeRow(GridContents& grid)
{
    const std::shared_ptr<c53Outcome> extreme = ExtremeOutcome();
    AddRow(grid, extreme->ShortName(), extreme);
    const Long row = grid.Rows() - 1;
    grid.SetMergeRow(row, true);
    grid.SetCellAlignment(row, Name, Alignment::Center);
    grid.SetCellAlignment(row, Kind, Alignment::Center);
}

/// Does something for each row below the header that has an outcome.
template <class Action> void ForEachOutcome(GridContents& grid, Action action)
{
    for (Long row = 1; row < grid.Rows(); ++row) {
        if (const auto outcome = grid.RowObject<std::shared_ptr<c53Outcome>>(row)) {
            action(row, *outcome);
        }
    }
}

std::string Spaced(const std::string& text) { return " " + text + " "; }

std::string SizeText(const c53Outcome& outcome)
{
    const Single acres = platform::ToSingle(platform::NumberOf(outcome.FireSize()));
    return Spaced(platform::Format(acres, acres > kLastWithoutThousands ? "#,0" : "0"));
}

} // namespace

void SetupOutcomeGrid(GridContents& grid)
{
    const UIMode::Busy busy;
    EnsureColumns(grid, Kind + 1);
    grid.SetRows(std::max<Long>(grid.Rows(), 1));
    grid.SetFixedRows(1);
    for (Long column = 0; column < grid.Cols(); ++column) {
        grid.SetColAlignment(column, column == Name ? Alignment::Left : Alignment::Center);
        grid.SetCellAlignment(0, column, Alignment::Center);
    }
    SetHeader(grid, Name, kNameWidth, "Outcomes");
    SetHeader(grid, Kind, kKindWidth, "Outcomes");
    grid.SetMergeRow(0, true);
}

void SetupOutcomeGridWithSize(GridContents& grid)
{
    const UIMode::Busy busy;
    EnsureColumns(grid, Size + 1);
    SetupOutcomeGrid(grid);
    SetHeader(grid, Size, kSizeWidth, "Acres");
}

void SetupOutcomeGridWithTimes(GridContents& grid)
{
    const UIMode::Busy busy;
    EnsureColumns(grid, Control + 1);
    SetupOutcomeGridWithSize(grid);
    SetHeader(grid, Contain, kTimeWidth, "Contain");
    SetHeader(grid, Control, kTimeWidth, "Control");
}

void LoadAlternativeOutcomes(GridContents& grid)
{
    const UIMode::Busy busy;
    grid.SetRows(1);
    for (const auto& alternative : g51Alternatives::AlternativeCollection()) {
        AddRow(grid, alternative->Label(), alternative->Outcome(1));
        const std::shared_ptr<c53Outcome> fallback = alternative->Outcome(2);
        if (fallback->bShow()) {
            AddRow(grid, alternative->Label(), fallback);
        }
    }
}

void LoadOutcomes(GridContents& grid)
{
    const UIMode::Busy busy;
    LoadAlternativeOutcomes(grid);
    AddExtremeRow(grid);
}

void ShowOutcomeSizes(GridContents& grid)
{
    const UIMode::Busy busy;
    ForEachOutcome(grid, [&](Long row, c53Outcome& outcome) { grid.SetText(row, Size, SizeText(outcome)); });
}

void ShowOutcomeTimes(GridContents& grid)
{
    const UIMode::Busy busy;
    ShowOutcomeSizes(grid);
    ForEachOutcome(grid, [&](Long row, c53Outcome& outcome) {
        grid.SetText(row, Contain, Spaced(platform::Format(outcome.ContainTime(), "0")));
        grid.SetText(row, Control, Spaced(platform::Format(outcome.ControlTime(), "0")));
    });
}

void ShowOutcomeCosts(GridContents& grid)
{
    const UIMode::Busy busy;
    ForEachOutcome(grid, [&](Long row, c53Outcome& outcome) {
        grid.SetText(row, PerAcre, platform::Format(outcome.CostPerAcre(), "#,0"));
        grid.SetText(row, BySize, platform::Format(outcome.CostBySize(), "#,0"));
    });
}

void LoadOutcomesWithSizes(GridContents& grid)
{
    const UIMode::Busy busy;
    LoadOutcomes(grid);
    ShowOutcomeSizes(grid);
}

void LoadOutcomesWithTimes(GridContents& grid)
{
    const UIMode::Busy busy;
    LoadOutcomes(grid);
    ShowOutcomeTimes(grid);
}

} // namespace g53Outcomes
