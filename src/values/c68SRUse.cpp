#include "values/c68SRUse.h"

#include "platform/data/Database.h"
#include "session/SessionState.h"
#include "values/g38SRTypes.h"

Single c68SRUse::UseCost() const { return ComputeUseCost(); }

void c68SRUse::SetItemIndex(Long index)
{
    m_changed.Write(m_itemIndex, index);
    SaveChanges();
}

void c68SRUse::Initialize(
    Long useKey, Long /*outcomeKey*/, Long itemIndex, Long srTypeKey, Long quantity, Long periods)
{
    m_itemKey = useKey;
    m_itemIndex = itemIndex;
    m_quantity = quantity;
    m_timePeriods = periods;
    m_srType = g38SRTypes::GetSRType(srTypeKey);
}

void c68SRUse::SaveChanges()
{
    if (!m_changed.IsSet()) {
        return;
    }
    platform::Recordset rows = OpenDatabase().OpenTable("SRUses");
    rows.Seek(m_itemKey);
    rows.Edit();
    rows.Set("ItemIndex", m_itemIndex);
    rows.Set("Quantity", m_quantity);
    rows.Set("Periods", m_timePeriods);
    rows.Update();
    m_changed.Clear();
}

Single c68SRUse::ComputeUseCost() const
{
    // Kept: exactly "time"; "Time" counts as an item.
    const bool byTime = m_srType->UnitType() == "time";
    const Long units = byTime ? platform::Multiply(m_quantity, m_timePeriods) : m_quantity;
    return platform::ToSingle(Double(units) * Double(m_srType->UnitCost()));
}
