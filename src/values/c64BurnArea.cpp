#include "values/c64BurnArea.h"

#include "session/SessionState.h"
#include "session/u19RowData.h"
#include "values/FixedRows.h"

#include <string>

namespace {

/// The share of each level while no level has a portion. Six of them total 96 only; that stands.
constexpr Long kPercentWithoutPortions = 16;

std::size_t LevelRow(Long fil) { return FixedRow(fil, c64BurnArea::kLevels, "intensity levels"); }

} // namespace

Long c64BurnArea::FILPortion(Long fil) const { return m_filPortions[LevelRow(fil)]; }

void c64BurnArea::SetFILPortion(Long fil, Long portion)
{
    Long& stored = m_filPortions[LevelRow(fil)];
    if (stored != portion) {
        m_changed.Write(stored, portion);
    }
}

Long c64BurnArea::FILPercent(Long fil) const { return FILPercents()[LevelRow(fil)]; }

void c64BurnArea::Initialize(Long outcomeKey, Long fmuKey)
{
    platform::Recordset rows = OpenDatabase().OpenTable("OutcomeFMZs");
    rows.Seek(outcomeKey, fmuKey);
    InitializeFrom(rows, outcomeKey, fmuKey);
}

void c64BurnArea::InitializeFrom(const platform::Recordset& row, Long outcomeKey, Long fmuKey)
{
    m_outcomeKey = outcomeKey;
    m_fmuKey = fmuKey;
    m_fmuPortion = u19RowData::ReadLong(row, "Portion");
    for (Long fil = 1; fil <= kLevels; ++fil) {
        m_filPortions[LevelRow(fil)] = u19RowData::ReadLong(row, PortionColumn(fil));
    }
}

void c64BurnArea::SaveChanges()
{
    if (!m_changed.IsSet()) {
        return;
    }
    platform::Recordset rows = OpenDatabase().OpenTable("OutcomeFMZs");
    rows.Seek(m_outcomeKey, m_fmuKey);
    rows.Edit();
    rows.Set("Portion", m_fmuPortion);
    for (Long fil = 1; fil <= kLevels; ++fil) {
        rows.Set(PortionColumn(fil), FILPortion(fil));
    }
    rows.Update();
    m_changed.Clear();
}

std::string c64BurnArea::PortionColumn(Long fil) { return "FIL" + std::to_string(fil) + "Portion"; }

std::array<Long, c64BurnArea::kLevels> c64BurnArea::FILPercents() const
{
    Long sum = 0;
    for (const Long portion : m_filPortions) {
        sum = platform::Add(sum, portion);
    }
    std::array<Long, kLevels> percents{};
    percents.fill(kPercentWithoutPortions);
    for (std::size_t level = 0; sum != 0 && level < percents.size(); ++level) {
        percents[level] =
            platform::ToLong(Double(platform::Multiply(m_filPortions[level], 100)) / Double(sum));
    }
    return percents;
}
