#pragma once

#include "platform/base/ChangedFlag.h"
#include "platform/base/Numbers.h"

#include <array>

/// What a burned acre of one land unit loses or gains, by resource (1 to 14) and fire intensity level (1 to
/// 6): the 14 rows of NVCPerAcre under the land unit's key. Owned by its c33FMU, the default table by
/// g33FMUs. An index outside throws OutOfBounds; reads of the file and saves throw DatabaseError.
class c34NVCTable
{
public:
    static constexpr Long kResources = 14;
    static constexpr Long kLevels = 6;

    /// Dollars per acre; negative: a loss.
    Single NVCCellValue(Long resource, Long fil) const;
    void SetNVCCellValue(Long resource, Long fil, Single dollars);
    /// The cell, but 0 for a gain while the property `UseNVCGains` is "No" (its value when the file has
    /// none).
    Single NVCCellFilteredValue(Long resource, Long fil) const;
    /// The filtered cells of a level summed over the resources, rounded to three digits.
    Single FilTotal(Long fil) const;
    /// Whether any filtered cell of the resource differs from 0.
    bool bResourceValue(Long resource) const;

    /// Loads the cells; a missing row reads as 0.
    void Initialize(Long landUnitKey);
    /// Only when changed. A missing row fails at the edit: rows are never added.
    void SaveChanges();

private:
    Single SumOfLevel(Long fil) const;
    bool AnyFilteredCell(Long resource) const;

    Long m_landUnitKey = 0;
    std::array<std::array<Single, kLevels>, kResources> m_cells{};
    platform::ChangedFlag m_changed;
};
