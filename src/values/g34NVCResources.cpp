#include "values/g34NVCResources.h"

#include "session/SessionState.h"
#include "session/u19RowData.h"
#include "values/FixedRows.h"
#include "values/c34NVCTable.h"

#include <array>

namespace {

std::array<std::string, c34NVCTable::kResources> names;
bool isLoaded = false;

void LoadNVCResources()
{
    platform::Recordset rows = OpenDatabase().OpenTable("NVCResources");
    for (Long index = 1; index <= c34NVCTable::kResources; ++index) {
        rows.Seek(index);
        names[FixedRow(index, c34NVCTable::kResources, "resources")] =
            u19RowData::ReadText(rows, "ResourceName");
    }
    isLoaded = true;
}

} // namespace

const std::string& g34NVCResources::NVCResourceName(Long index)
{
    if (!isLoaded) {
        LoadNVCResources();
    }
    return names[FixedRow(index, c34NVCTable::kResources, "resources")];
}

void g34NVCResources::ResetNVCResources() { isLoaded = false; }
