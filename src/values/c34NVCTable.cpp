#include "values/c34NVCTable.h"

#include "session/SessionState.h"
#include "session/u14Properties.h"
#include "session/u19RowData.h"
#include "session/u92Utilities.h"
#include "values/FixedRows.h"

#include <optional>
#include <string>

namespace {

std::string ColumnOf(Long fil) { return "Fil" + std::to_string(fil); }

/// The property `UseNVCGains`, looked up again whenever any property may have changed.
bool GainsCount()
{
    static std::optional<unsigned long> version;
    static bool gainsCount = false;
    if (version != u14Properties::PropertiesVersion()) {
        version.reset(); // until the look-up has succeeded
        gainsCount = u14Properties::Property_GetOrAdd("UseNVCGains", "No") != "No";
        version = u14Properties::PropertiesVersion();
    }
    return gainsCount;
}

} // namespace

Single c34NVCTable::NVCCellValue(Long resource, Long fil) const
{
    return m_cells[FixedRow(resource, kResources, "resources")][FixedRow(fil, kLevels, "intensity levels")];
}

void c34NVCTable::SetNVCCellValue(Long resource, Long fil, Single dollars)
{
    m_changed.Write(
        m_cells[FixedRow(resource, kResources, "resources")][FixedRow(fil, kLevels, "intensity levels")],
        dollars);
}

Single c34NVCTable::NVCCellFilteredValue(Long resource, Long fil) const
{
    const bool gainsCount = GainsCount();
    const Single cell = NVCCellValue(resource, fil);
    return gainsCount || cell <= 0 ? cell : 0;
}

Single c34NVCTable::FilTotal(Long fil) const
{
    return platform::ToSingle(u92Utilities::RoundSignificant(Double(SumOfLevel(fil)), 3));
}

bool c34NVCTable::bResourceValue(Long resource) const { return AnyFilteredCell(resource); }

void c34NVCTable::Initialize(Long landUnitKey)
{
    m_landUnitKey = landUnitKey;
    platform::Recordset rows = OpenDatabase().OpenTable("NVCPerAcre");
    for (Long resource = 1; resource <= kResources; ++resource) {
        rows.Seek(landUnitKey, resource);
        for (Long fil = 1; fil <= kLevels; ++fil) {
            m_cells[FixedRow(resource, kResources, "resources")][FixedRow(fil, kLevels, "intensity levels")] =
                u19RowData::ReadSingle(rows, ColumnOf(fil));
        }
    }
}

void c34NVCTable::SaveChanges()
{
    if (!m_changed.IsSet()) {
        return;
    }
    platform::Recordset rows = OpenDatabase().OpenTable("NVCPerAcre");
    for (Long resource = 1; resource <= kResources; ++resource) {
        rows.Seek(m_landUnitKey, resource);
        rows.Edit();
        for (Long fil = 1; fil <= kLevels; ++fil) {
            rows.Set(ColumnOf(fil), NVCCellValue(resource, fil));
        }
        rows.Update();
    }
    m_changed.Clear();
}

Single c34NVCTable::SumOfLevel(Long fil) const
{
    Single sum = 0;
    for (Long resource = 1; resource <= kResources; ++resource) {
        sum = platform::ToSingle(Double(sum) + Double(NVCCellFilteredValue(resource, fil)));
    }
    return sum;
}

bool c34NVCTable::AnyFilteredCell(Long resource) const
{
    for (Long fil = 1; fil <= kLevels; ++fil) {
        if (NVCCellFilteredValue(resource, fil) != 0) {
            return true;
        }
    }
    return false;
}
