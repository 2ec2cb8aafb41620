#include "values/g38SRTypes.h"

#include "session/SessionState.h"
#include "session/u19RowData.h"

#include <optional>

namespace {

using Types = platform::Collection<std::shared_ptr<c38SRType>>;

std::optional<Types> types;

std::shared_ptr<c38SRType> TypeIn(const platform::Recordset& row)
{
    auto type = std::make_shared<c38SRType>();
    type->Initialize(u19RowData::ReadLong(row, "ItemKey"),
                     u19RowData::ReadLong(row, "ChildIndex"),
                     u19RowData::ReadText(row, "LongName"),
                     u19RowData::ReadText(row, "ShortName"),
                     u19RowData::ReadText(row, "UnitType"),
                     u19RowData::ReadText(row, "UnitName"),
                     u19RowData::ReadSingle(row, "UnitCost"));
    return type;
}

Types LoadSRTypes()
{
    Types loaded("resource types");
    platform::Recordset rows = OpenDatabase().OpenQuery(platform::Query::SRTypesByChildIndex);
    for (; !rows.Eof(); rows.MoveNext()) {
        auto type = TypeIn(rows);
        loaded.Add(type->ItemKey(), type);
    }
    return loaded;
}

Types& EnsureTypes()
{
    if (!types) {
        types = LoadSRTypes();
    }
    return *types;
}

} // namespace

std::shared_ptr<c38SRType> g38SRTypes::GetSRType(Long key) { return EnsureTypes().Member(key); }

const platform::Collection<std::shared_ptr<c38SRType>>& g38SRTypes::SRTypeCollection()
{
    return EnsureTypes();
}

void g38SRTypes::AddItem(platform::ListContents& list)
{
    list.Clear();
    for (const auto& type : EnsureTypes()) {
        list.AddItem(type->LongName());
        list.SetItemData(list.NewIndex(), type->ItemKey());
    }
}

void g38SRTypes::ReleaseSRTypes() { types.reset(); }
