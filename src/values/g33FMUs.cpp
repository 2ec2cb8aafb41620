#include "values/g33FMUs.h"

#include "session/SessionState.h"
#include "session/u19RowData.h"

#include <memory>
#include <optional>

namespace {

std::optional<platform::Collection<c33FMU>> fmus;
std::unique_ptr<c34NVCTable> defaultNVCTable;
std::unique_ptr<c35AACTable> defaultAACTable;

platform::Collection<c33FMU> LoadFMUs()
{
    platform::Collection<c33FMU> loaded("land units");
    platform::Recordset rows = OpenDatabase().OpenTable("FMZList");
    if (rows.RecordCount() == 0) {
        return loaded;
    }
    for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext()) {
        c33FMU unit;
        unit.Initialize(u19RowData::ReadLong(rows, "Key"),
                        u19RowData::ReadText(rows, "FMZCode"),
                        u19RowData::ReadText(rows, "Name"));
        const Long key = unit.ItemKey();
        loaded.Add(key, std::move(unit));
    }
    return loaded;
}

platform::Collection<c33FMU>& EnsureFMUs()
{
    if (!fmus) {
        fmus = LoadFMUs();
    }
    return *fmus;
}

/// The table under land unit key 0, which stands in while there are no land units.
template <class Table> Table& EnsureDefault(std::unique_ptr<Table>& owned)
{
    if (owned == nullptr) {
        auto table = std::make_unique<Table>();
        table->Initialize(0);
        owned = std::move(table);
    }
    return *owned;
}

} // namespace

const platform::Collection<c33FMU>& g33FMUs::FMUCollection() { return EnsureFMUs(); }

Long g33FMUs::FMUCount() { return EnsureFMUs().Count(); }

c33FMU& g33FMUs::GetFMU(Long key) { return EnsureFMUs().Member(key); }

c34NVCTable& g33FMUs::GetNVCTable(Long key)
{
    return FMUCount() > 0 ? GetFMU(key).NVCTable() : EnsureDefault(defaultNVCTable);
}

c35AACTable& g33FMUs::GetAACTable(Long key)
{
    return FMUCount() > 0 ? GetFMU(key).AACTable() : EnsureDefault(defaultAACTable);
}

bool g33FMUs::bResourceValueAnywhere(Long resource)
{
    if (FMUCount() == 0) {
        return GetNVCTable(0).bResourceValue(resource);
    }
    for (c33FMU& unit : EnsureFMUs()) {
        if (unit.NVCTable().bResourceValue(resource)) {
            return true;
        }
    }
    return false;
}

bool g33FMUs::bNoResourceValues()
{
    for (Long resource = 1; resource <= c34NVCTable::kResources; ++resource) {
        if (bResourceValueAnywhere(resource)) {
            return false;
        }
    }
    return true;
}

void g33FMUs::ReleaseFMUs()
{
    fmus.reset();
    defaultNVCTable.reset();
    defaultAACTable.reset();
}
