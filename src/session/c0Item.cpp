#include "session/c0Item.h"

#include "session/SessionState.h"
#include "session/u19RowData.h"

void c0Item::Initialize(Long key)
{
    m_itemKey = key;
    platform::Recordset items = OpenDatabase().OpenTable("Items");
    items.Seek(key);
    m_itemName = u19RowData::ReadText(items, "ItemName");
    m_heading = u19RowData::ReadText(items, "Heading");
    m_body = u19RowData::ReadText(items, "Body");
    m_itemText = u19RowData::ReadText(items, "ItemText");
}

void c0Item::SaveChanges()
{
    if (!m_changed.IsSet()) {
        return;
    }
    platform::Recordset items = OpenDatabase().OpenTable("Items");
    items.Seek(m_itemKey);
    if (items.NoMatch()) {
        items.AddNew();
        items.Set("ItemKey", m_itemKey);
    } else {
        items.Edit();
    }
    items.Set("ItemName", m_itemName);
    items.Set("Heading", m_heading);
    items.Set("Body", Body());
    items.Set("ItemText", m_itemText);
    items.Update();
    m_changed.Clear();
}
