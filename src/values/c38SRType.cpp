#include "values/c38SRType.h"

#include "platform/data/Database.h"
#include "session/SessionState.h"

void c38SRType::Initialize(Long key,
                           Long index,
                           const std::string& longName,
                           const std::string& shortName,
                           const std::string& unitType,
                           const std::string& unitName,
                           Single unitCost)
{
    m_itemKey = key;
    m_index = index;
    m_longName = longName;
    m_shortName = shortName;
    m_unitType = unitType;
    m_unitName = unitName;
    m_unitCost = unitCost;
}

void c38SRType::SaveChanges()
{
    if (!m_changed.IsSet()) {
        return;
    }
    platform::Recordset rows = OpenDatabase().OpenTable("SRTypes");
    rows.Seek(m_itemKey);
    rows.Edit();
    rows.Set("ChildIndex", m_index);
    rows.Set("LongName", m_longName);
    rows.Set("ShortName", m_shortName);
    rows.Set("UnitName", m_unitName);
    rows.Set("UnitCost", platform::ToCurrency(Double(m_unitCost)));
    rows.Update();
    m_changed.Clear();
}
