#include "convert/ItemRows.h"

#include "session/SessionState.h"

namespace ItemRows {

platform::Recordset Items() { return OpenDatabase().OpenTable("Items"); }

void Begin(platform::Recordset& items, Long key, const std::string& name)
{
    items.AddNew();
    items.Set("ItemKey", key);
    items.Set("ItemName", name);
}

void Place(platform::Recordset& items, Long parent, Long childIndex)
{
    items.Set("ParentKey", parent);
    items.Set("ChildIndex", childIndex);
}

} // namespace ItemRows
