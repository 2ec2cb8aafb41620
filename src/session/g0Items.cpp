#include "session/g0Items.h"

#include "platform/base/Collection.h"
#include "platform/base/Errors.h"
#include "session/SessionState.h"
#include "session/u11Datafile.h"

#include <optional>

namespace g0Items {

namespace {

using ItemCollection = platform::Collection<std::shared_ptr<c0Item>>;

std::optional<ItemCollection> g_items;
// Stays as it is when another file is opened: the next item takes the following number.
Long gLastItemKey = 0;

ItemCollection& EnsureItems()
{
    if (!g_items) {
        g_items.emplace("items");
    }
    return *g_items;
}

platform::Recordset Children(Long parentKey)
{
    return OpenDatabase().OpenQuery(platform::Query::ItemsOfParentByChildIndex, parentKey);
}

void DeleteRow(Long key)
{
    platform::Recordset items = OpenDatabase().OpenTable("Items");
    items.Seek(key);
    items.Delete();
}

/// Errors are ignored throughout a deletion.
template <class Action> void Try(Action action)
{
    try {
        action();
    } catch (const platform::Error&) { // nothing to take away, or nothing that can be
    }
}

} // namespace

std::shared_ptr<c0Item> GetItem(Long key)
{
    if (const auto* found = EnsureItems().Find(key)) {
        return *found;
    }
    auto item = std::make_shared<c0Item>();
    item->Initialize(key);
    return EnsureItems().Add(key, std::move(item));
}

std::vector<Long> GetChildKeys(Long parentKey)
{
    std::vector<Long> keys;
    for (platform::Recordset rows = Children(parentKey); !rows.Eof(); rows.MoveNext()) {
        keys.push_back(rows.LongValue("ItemKey"));
    }
    return keys;
}

std::vector<std::shared_ptr<c0Item>> GetChildren(Long parentKey)
{
    std::vector<std::shared_ptr<c0Item>> items;
    for (const Long key : GetChildKeys(parentKey)) {
        items.push_back(GetItem(key));
    }
    return items;
}

Long CountChildren(Long parentKey) { return Children(parentKey).RecordCount(); }

void SaveAllItems()
{
    for (const auto& item : EnsureItems()) {
        item->SaveChanges();
    }
}

void ClearItems() { g_items.reset(); }

Long NewItem(const std::string& name, Long parentKey)
{
    const Long childIndex = platform::Add(CountChildren(parentKey), 1);
    gLastItemKey = platform::Add(LastItemKey(), 1);
    platform::Recordset items = OpenDatabase().OpenTable("Items");
    items.AddNew();
    items.Set("ItemKey", gLastItemKey);
    items.Set("ItemName", name);
    items.Set("ParentKey", parentKey);
    items.Set("ChildIndex", childIndex);
    items.Set("Body", std::string(kDefaultBody));
    items.Update();
    return gLastItemKey;
}

void DeleteItem(Long key)
{
    Try([key] { EnsureItems().Remove(key); });
    Try([key] { DeleteRow(key); });
}

Long LastItemKey()
{
    if (gLastItemKey == 0) {
        gLastItemKey = u11Datafile::LastKeyInTable("Items", "ItemKey");
    }
    return gLastItemKey;
}

} // namespace g0Items
