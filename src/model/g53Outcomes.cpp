#include "model/g53Outcomes.h"

#include "platform/base/Errors.h"
#include "session/SessionState.h"
#include "session/c0Item.h"
#include "session/u19RowData.h"
#include "session/u91Trace.h"
#include "values/g33FMUs.h"
#include "values/g64BurnAreas.h"

#include <string>

namespace g53Outcomes {

namespace {

std::shared_ptr<c53Outcome> g_extremeOutcome;

constexpr Long kTarget = 1;
constexpr Long kFallback = 2;
constexpr Long kCertain = 100; // percent

/// The row of a new outcome; returns its key.
Long AddOutcomeRow(Long alternativeKey, Long index)
{
    platform::Recordset rows = OpenDatabase().OpenTable("Outcomes");
    rows.MoveLast();
    const Long key = platform::Add(u19RowData::ReadLong(rows, "ItemKey"), 1);
    rows.AddNew();
    rows.Set("ItemKey", key);
    rows.Set("ParentKey", alternativeKey);
    rows.Set("ChildIndex", index);
    rows.Set("Description", std::string(kDefaultBody));
    rows.Set("Success", platform::ToSingle(Double(index == kTarget ? kCertain : c53Outcome::kNotShown)));
    rows.Set("CostSource", Long(c53Outcome::costSize));
    rows.Update();
    return key;
}

void AddOutcome(Long alternativeKey, Long index)
{
    const Long key = AddOutcomeRow(alternativeKey, index);
    g64BurnAreas::NewBurnArea(key, 0);
    for (const c33FMU& unit : g33FMUs::FMUCollection()) {
        g64BurnAreas::NewBurnArea(key, unit.ItemKey());
    }
}

} // namespace

std::shared_ptr<c53Outcome> ExtremeOutcome()
{
    if (g_extremeOutcome == nullptr) {
        auto extreme = std::make_shared<c53Outcome>();
        extreme->Initialize(0, 1);
        g_extremeOutcome = std::move(extreme);
    }
    return g_extremeOutcome;
}

void ResetExtremeOutcome() { g_extremeOutcome.reset(); }

void AddOutcomes(Long alternativeKey)
{
    u91Trace::Trace("AltServer.AddOutcomes");
    AddOutcome(alternativeKey, kTarget);
    AddOutcome(alternativeKey, kFallback);
}

} // namespace g53Outcomes
