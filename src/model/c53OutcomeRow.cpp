// The row of an outcome: loaded, saved, deleted.

#include "model/c53Outcome.h"
#include "model/g62Ratings.h"
#include "platform/data/DatabaseError.h"
#include "session/SessionState.h"
#include "session/u19RowData.h"
#include "values/g64BurnAreas.h"
#include "values/g66ItemImpacts.h"
#include "values/g68SRUses.h"

void c53Outcome::Initialize(Long alternativeKey, Long index)
{
    m_alternativeKey = alternativeKey;
    m_outcomeIndex = index;
    platform::Recordset rows =
        OpenDatabase().OpenQuery(platform::Query::OutcomeOfParentAndChildIndex, alternativeKey, index);
    MoveToRow(rows);
    ReadRow(rows);
}

void c53Outcome::MoveToRow(platform::Recordset& rows) const
{
    try {
        rows.MoveFirst();
    } catch (const platform::DatabaseError& cause) {
        throw platform::DatabaseError(cause.Number(),
                                      "No outcome " + std::to_string(m_outcomeIndex) + " of alternative " +
                                          std::to_string(m_alternativeKey) + ": " + cause.what());
    }
}

void c53Outcome::ReadRow(const platform::Recordset& row)
{
    using u19RowData::ReadLong;
    using u19RowData::ReadSingle;
    using u19RowData::ReadText;
    m_itemKey = ReadLong(row, "ItemKey");
    m_description = ReadText(row, "Description");
    m_fireSize = ReadSingle(row, "FireSize");
    m_containTime = ReadLong(row, "ContainTime");
    m_controlTime = ReadLong(row, "ControlTime");
    m_success = platform::ToLong(Double(ReadSingle(row, "Success")));
    m_successRationale = ReadText(row, "SuccessRationale");
    m_dailyContainCost = ReadSingle(row, "DailyContainCost");
    m_dailyControlCost = ReadSingle(row, "DailyControlCost");
    m_adjustedCost = ReadSingle(row, "AdjustedCost");
    const Long source = ReadLong(row, "CostSource");
    m_costSource = source == 0 ? Long(costSize) : source;
    m_costRationale = ReadText(row, "CostRationale");
}

void c53Outcome::SaveChanges()
{
    if (!m_changed.IsSet()) {
        return;
    }
    platform::Recordset rows = OpenDatabase().OpenTable("Outcomes");
    rows.Seek(m_itemKey);
    rows.Edit();
    SetColumns(rows);
    rows.Update();
    m_changed.Clear();
}

void c53Outcome::SetColumns(platform::Recordset& row) const
{
    row.Set("Description", Description());
    row.Set("FireSize", m_fireSize);
    row.Set("ContainTime", m_containTime);
    row.Set("ControlTime", m_controlTime);
    row.Set("Success", platform::ToSingle(Double(m_success)));
    row.Set("SuccessRationale", m_successRationale);
    row.Set("DailyContainCost", m_dailyContainCost);
    row.Set("DailyControlCost", m_dailyControlCost);
    row.Set("AdjustedCost", platform::ToCurrency(Double(m_adjustedCost)));
    row.Set("CostSource", m_costSource);
    row.Set("CostRationale", m_costRationale);
}

void c53Outcome::Delete()
{
    platform::Recordset rows = OpenDatabase().OpenTable("Outcomes");
    rows.Seek(m_itemKey);
    rows.Delete();
    g64BurnAreas::DeleteBurnAreas(m_itemKey);
    g66ItemImpacts::DeleteImpactsOfOutcome(m_itemKey);
    g68SRUses::DeleteSRUses(m_itemKey);
    g62Ratings::DeleteOutcomeRatings(m_itemKey);
}
