#pragma once

#include "platform/base/ChangedFlag.h"
#include "platform/base/Numbers.h"
#include "values/c38SRType.h"

#include <memory>

/// A line of an outcome's resource list: so many units of a type for so many periods. A row of SRUses. Shared
/// by its c67SRUseList. Saves throw DatabaseError.
class c68SRUse
{
public:
    /// Dollars. The periods count for types by time only. Throws Overflow.
    Single UseCost() const;
    Long ItemKey() const { return m_itemKey; }
    /// Line number in the outcome's list.
    Long ItemIndex() const { return m_itemIndex; }
    /// Saves at once: a row that moves renumbers several lines.
    void SetItemIndex(Long index);
    /// Shared with g38SRTypes.
    const std::shared_ptr<c38SRType>& SRType() const { return m_srType; }
    Long Quantity() const { return m_quantity; }
    void SetQuantity(Long quantity) { m_changed.Write(m_quantity, quantity); }
    Long TimePeriods() const { return m_timePeriods; }
    void SetTimePeriods(Long periods) { m_changed.Write(m_timePeriods, periods); }

    /// Throws MissingMember when there is no such type. The outcome's key is not kept.
    void
    Initialize(Long useKey, Long outcomeKey, Long itemIndex, Long srTypeKey, Long quantity, Long periods);
    /// Only when changed. A missing row fails at the edit.
    void SaveChanges();

private:
    Single ComputeUseCost() const;

    Long m_itemKey = 0;
    Long m_itemIndex = 0;
    std::shared_ptr<c38SRType> m_srType;
    Long m_quantity = 0;
    Long m_timePeriods = 0;
    platform::ChangedFlag m_changed;
};
