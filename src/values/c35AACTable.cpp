#include "values/c35AACTable.h"

#include "session/SessionState.h"
#include "session/u19RowData.h"
#include "session/u91Trace.h"
#include "values/FixedRows.h"

#include <string>

Single c35AACTable::TopSize(Long row) const { return RowAt(row).topSize; }

void c35AACTable::SetTopSize(Long row, Single acres) { m_changed.Write(RowAt(row).topSize, acres); }

Single c35AACTable::Cost(Long row) const { return RowAt(row).cost; }

void c35AACTable::SetCost(Long row, Single dollars) { m_changed.Write(RowAt(row).cost, dollars); }

Single c35AACTable::CostForSize(Single acres) const { return FindCostForSize(acres); }

void c35AACTable::Initialize(Long landUnitKey)
{
    u91Trace::Trace("c35AACTable.Initialize " + std::to_string(landUnitKey));
    m_landUnitKey = landUnitKey;
    platform::Recordset rows = OpenDatabase().OpenTable("SuppressionPerAcreCost");
    for (Long row = 1; row <= kSizeClasses; ++row) {
        rows.Seek(landUnitKey, row);
        RowAt(row) = {u19RowData::ReadSingle(rows, "TopSize"), u19RowData::ReadSingle(rows, "Cost")};
    }
}

void c35AACTable::SaveChanges()
{
    u91Trace::Trace("c35AACTable.SaveChanges");
    if (!m_changed.IsSet()) {
        return;
    }
    platform::Recordset rows = OpenDatabase().OpenTable("SuppressionPerAcreCost");
    for (Long row = 1; row <= kSizeClasses; ++row) {
        rows.Seek(m_landUnitKey, row);
        rows.Edit();
        rows.Set("TopSize", TopSize(row));
        rows.Set("Cost", Cost(row));
        rows.Update();
    }
    m_changed.Clear();
}

const c35AACTable::SizeClass& c35AACTable::RowAt(Long row) const
{
    return m_rows[FixedRow(row, kSizeClasses, "size classes")];
}

c35AACTable::SizeClass& c35AACTable::RowAt(Long row)
{
    return m_rows[FixedRow(row, kSizeClasses, "size classes")];
}

Single c35AACTable::FindCostForSize(Single acres) const
{
    for (Long row = 1; row <= kSizeClasses; ++row) {
        if (acres <= TopSize(row)) {
            return Cost(row);
        }
    }
    for (Long row = kSizeClasses; row >= 1; --row) {
        if (IsOpenEnded(row)) {
            return Cost(row);
        }
    }
    return 0;
}

/// Whether sizes above every bound may take this row's cost: it has one, and a bound of its own or in the row
/// before.
bool c35AACTable::IsOpenEnded(Long row) const
{
    return Cost(row) > 0 && (row == 1 || TopSize(row) > 0 || TopSize(row - 1) > 0);
}
