#pragma once

#include "platform/base/ChangedFlag.h"
#include "platform/base/Numbers.h"
#include "platform/data/Recordset.h"

#include <array>
#include <string>

/// How much of an outcome burns in one land unit and how hot: a row of OutcomeFMZs. The portions are relative
/// weights. Owned by its c63BurnAreaList. Reads of the file and saves throw DatabaseError.
class c64BurnArea
{
public:
    static constexpr Long kLevels = 6;
    /// The column of a level's portion.
    static std::string PortionColumn(Long fil);

    c64BurnArea() = default;
    /// An area whose portions are 0, as without a row.
    c64BurnArea(Long outcomeKey, Long fmuKey) : m_outcomeKey(outcomeKey), m_fmuKey(fmuKey) {}

    /// The land unit; 0 for the default area.
    Long FMUKey() const { return m_fmuKey; }
    Long FMUPortion() const { return m_fmuPortion; }
    void SetFMUPortion(Long portion) { m_changed.Write(m_fmuPortion, portion); }
    /// A level outside 1 to 6 throws OutOfBounds, here and below.
    Long FILPortion(Long fil) const;
    /// Counts as a change only if the value differs.
    void SetFILPortion(Long fil, Long portion);
    /// The level's share in whole percent, each rounded by itself: they need not total 100. Throws Overflow
    /// if the share of any level cannot be computed.
    Long FILPercent(Long fil) const;

    /// Loads the row; without one all portions are 0.
    void Initialize(Long outcomeKey, Long fmuKey);
    /// The same from a row of OutcomeFMZs at hand.
    void InitializeFrom(const platform::Recordset& row, Long outcomeKey, Long fmuKey);
    /// Only when changed. A missing row fails at the edit.
    void SaveChanges();

private:
    std::array<Long, kLevels> FILPercents() const;

    Long m_outcomeKey = 0;
    Long m_fmuKey = 0;
    Long m_fmuPortion = 0;
    std::array<Long, kLevels> m_filPortions{};
    platform::ChangedFlag m_changed;
};
