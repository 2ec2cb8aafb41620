#include "values/c33FMU.h"

#include "session/SessionState.h"
#include "values/RowWalks.h"

namespace {

template <class Table> Table& EnsureTable(std::unique_ptr<Table>& owned, Long key)
{
    if (owned == nullptr) {
        auto table = std::make_unique<Table>();
        table->Initialize(key);
        owned = std::move(table);
    }
    return *owned;
}

} // namespace

c34NVCTable& c33FMU::NVCTable() { return EnsureTable(m_nvcTable, m_itemKey); }

c35AACTable& c33FMU::AACTable() { return EnsureTable(m_aacTable, m_itemKey); }

void c33FMU::Initialize(Long key, const std::string& code, const std::string& name)
{
    m_itemKey = key;
    m_fmzCode = code;
    m_itemName = name;
}

void c33FMU::Delete()
{
    platform::Recordset units = OpenDatabase().OpenTable("FMZList");
    units.Seek(m_itemKey);
    units.Delete();
    for (const char* table : {"OutcomeFMZs", "NVCPerAcre", "SuppressionPerAcreCost"}) {
        RowWalks::DeleteRowsOf(OpenDatabase().OpenTable(table), "FMZKey", m_itemKey);
    }
}
