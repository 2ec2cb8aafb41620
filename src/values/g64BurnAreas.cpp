#include "values/g64BurnAreas.h"

#include "model/c51Alternative.h"
#include "model/c53Outcome.h"
#include "model/g51Alternatives.h"
#include "platform/data/Database.h"
#include "session/SessionState.h"
#include "session/u19RowData.h"
#include "values/RowWalks.h"
#include "values/c64BurnArea.h"

#include <array>

namespace {

/// Kept: the new row's share is this whatever the first alternative's is; only its levels are copied.
constexpr Long kPortion = 50;

/// The portions of the new row's levels; a missing row of the first alternative gives none.
c64BurnArea NewLevels(Long fmuKey)
{
    c64BurnArea levels;
    const auto& alternatives = g51Alternatives::AlternativeCollection();
    if (alternatives.IsEmpty()) {
        levels.SetFILPortion(4, 5);
    } else {
        levels.Initialize(alternatives.At(1)->Outcome(1)->ItemKey(), fmuKey);
    }
    return levels;
}

} // namespace

void g64BurnAreas::NewBurnArea(Long outcomeKey, Long fmuKey)
{
    const c64BurnArea levels = NewLevels(fmuKey);
    platform::Recordset rows = OpenDatabase().OpenTable("OutcomeFMZs");
    rows.AddNew();
    rows.Set("OutcomeKey", outcomeKey);
    rows.Set("FMZKey", fmuKey);
    rows.Set("Portion", kPortion);
    for (Long fil = 1; fil <= c64BurnArea::kLevels; ++fil) {
        rows.Set(c64BurnArea::PortionColumn(fil), levels.FILPortion(fil));
    }
    rows.Update();
}

void g64BurnAreas::DeleteBurnAreas(Long outcomeKey)
{
    RowWalks::DeleteRows(OpenDatabase().OpenQuery(platform::Query::OutcomeFMZsOfOutcome, outcomeKey));
}
