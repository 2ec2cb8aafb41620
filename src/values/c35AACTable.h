#pragma once

#include "platform/base/ChangedFlag.h"
#include "platform/base/Numbers.h"

#include <array>

/// What suppression costs an acre of one land unit, by size class (rows 1 to 9): the rows of
/// SuppressionPerAcreCost under the land unit's key. Owned by its c33FMU, the default table by g33FMUs.
/// A row outside throws OutOfBounds; reads of the file and saves throw DatabaseError.
class c35AACTable
{
public:
    static constexpr Long kSizeClasses = 9;

    /// Upper bound of the class, acres; 0: blank.
    Single TopSize(Long row) const;
    void SetTopSize(Long row, Single acres);
    /// Dollars per acre.
    Single Cost(Long row) const;
    void SetCost(Long row, Single dollars);
    /// Dollars per acre of a fire of this size: that of the first class that holds it, of the open-ended
    /// class behind the last bound, or 0. No interpolation.
    Single CostForSize(Single acres) const;

    /// Loads the rows; a missing one reads as 0.
    void Initialize(Long landUnitKey);
    /// Only when changed. A missing row fails at the edit: rows are never added.
    void SaveChanges();

private:
    struct SizeClass
    {
        Single topSize = 0;
        Single cost = 0;
    };
    const SizeClass& RowAt(Long row) const;
    SizeClass& RowAt(Long row);
    Single FindCostForSize(Single acres) const;
    bool IsOpenEnded(Long row) const;

    Long m_landUnitKey = 0;
    std::array<SizeClass, kSizeClasses> m_rows{};
    platform::ChangedFlag m_changed;
};
