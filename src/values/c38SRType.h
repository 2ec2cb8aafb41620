#pragma once

#include "platform/base/ChangedFlag.h"
#include "platform/base/Numbers.h"

#include <string>

/// A type of suppression resource, an entry of the file's master list: a row of SRTypes. Shared by
/// g38SRTypes.
class c38SRType
{
public:
    /// Allotted by the engine.
    Long ItemKey() const { return m_itemKey; }
    /// Position in the master list.
    Long Index() const { return m_index; }
    void SetIndex(Long index) { m_changed.Write(m_index, index); }
    /// As the master list shows it.
    const std::string& LongName() const { return m_longName; }
    void SetLongName(const std::string& name) { m_changed.Write(m_longName, name); }
    /// As a line of use shows it.
    const std::string& ShortName() const { return m_shortName; }
    void SetShortName(const std::string& name) { m_changed.Write(m_shortName, name); }
    /// Exactly "time", or "item" and anything else; fixed at creation.
    const std::string& UnitType() const { return m_unitType; }
    /// Days, shifts, loads.
    const std::string& UnitName() const { return m_unitName; }
    void SetUnitName(const std::string& name) { m_changed.Write(m_unitName, name); }
    /// Dollars per unit.
    Single UnitCost() const { return m_unitCost; }
    void SetUnitCost(Single dollars) { m_changed.Write(m_unitCost, dollars); }

    void Initialize(Long key,
                    Long index,
                    const std::string& longName,
                    const std::string& shortName,
                    const std::string& unitType,
                    const std::string& unitName,
                    Single unitCost);
    /// Only when changed; `UnitType` is not written. A missing row fails at the edit. Throws DatabaseError,
    /// and Overflow for a cost beyond currency.
    void SaveChanges();

private:
    Long m_itemKey = 0;
    Long m_index = 0;
    std::string m_longName;
    std::string m_shortName;
    std::string m_unitType;
    std::string m_unitName;
    Single m_unitCost = 0;
    platform::ChangedFlag m_changed;
};
