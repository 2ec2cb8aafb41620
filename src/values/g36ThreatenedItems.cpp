#include "values/g36ThreatenedItems.h"

#include "platform/base/Formats.h"
#include "platform/base/Texts.h"
#include "platform/data/Schema.h"
#include "session/SessionState.h"
#include "session/g0Items.h"
#include "session/u19RowData.h"
#include "values/g66ItemImpacts.h"

#include <optional>

namespace {

using Items = platform::Collection<std::shared_ptr<c36ThreatenedItem>>;

std::optional<Items> items;

Items LoadThreatenedItems()
{
    Items loaded("threatened items");
    platform::Recordset rows =
        OpenDatabase().OpenQuery(platform::Query::ItemsOfParentByItemKey, g0Items::ThreatenedGroup);
    for (; !rows.Eof(); rows.MoveNext()) {
        const Long key = u19RowData::ReadLong(rows, "ItemKey");
        // Here, not ahead of the loop: a file without items needs no such table.
        platform::Recordset valuesAtRisk = OpenDatabase().OpenTable("ValuesAtRisk");
        auto item = std::make_shared<c36ThreatenedItem>();
        item->InitializeFrom(key,
                             u19RowData::ReadText(rows, "ItemName"),
                             u19RowData::ReadText(rows, "ItemText"),
                             valuesAtRisk);
        loaded.Add(key, std::move(item));
    }
    return loaded;
}

Items& EnsureItems()
{
    if (!items) {
        items = LoadThreatenedItems();
    }
    return *items;
}

/// Adds a row; a tab in a name must not push the figures into the next column.
void AddGridRow(platform::GridContents& grid, const std::shared_ptr<c36ThreatenedItem>& item)
{
    const std::string texts[] = {item->ItemName(),
                                 platform::Format(item->PotentialLoss(), "#,0"),
                                 platform::TextOf(item->Probability()),
                                 platform::Format(item->ValueAtRisk(), "#,0")};
    grid.AddItem("");
    const Long row = grid.Rows() - 1;
    Long column = 0;
    for (const std::string& text : texts) {
        if (column < grid.Cols()) {
            grid.SetText(row, column++, text);
        }
    }
    grid.SetRowData(row, item);
}

} // namespace

std::shared_ptr<c36ThreatenedItem> g36ThreatenedItems::GetThreatenedItem(Long key)
{
    return EnsureItems().Member(key);
}

const platform::Collection<std::shared_ptr<c36ThreatenedItem>>& g36ThreatenedItems::ThreatenedItemCollection()
{
    return EnsureItems();
}

Double g36ThreatenedItems::TotalValueAtRisk()
{
    Double total = 0;
    for (const auto& item : EnsureItems()) {
        total = platform::Finite(total + item->ValueAtRisk());
    }
    return total;
}

void g36ThreatenedItems::FillThreatenedItemGrid(platform::GridContents& grid)
{
    grid.SetRows(1);
    for (const auto& item : EnsureItems()) {
        AddGridRow(grid, item);
    }
}

std::shared_ptr<c36ThreatenedItem> g36ThreatenedItems::NewThreatenedItem(const std::string& name)
{
    Items& collection = EnsureItems(); // before the row is there, or it would be loaded on the way
    const Long key = g0Items::NewItem(name, g0Items::ThreatenedGroup);
    auto item = std::make_shared<c36ThreatenedItem>();
    item->Initialize(key, name);
    return collection.Add(key, std::move(item));
}

void g36ThreatenedItems::DeleteThreatenedItem(Long key)
{
    Items& collection = EnsureItems(); // while the row is still there
    platform::Transaction together(OpenDatabase());
    g66ItemImpacts::DeleteImpactsOfItem(key);
    platform::Recordset rows = OpenDatabase().OpenTable("Items");
    rows.Seek(key);
    rows.Delete();
    together.Commit();
    // Kept: the row of ValuesAtRisk is left behind.
    collection.Remove(key);
}

void g36ThreatenedItems::ReleaseThreatenedItems() { items.reset(); }
