#pragma once

#include "platform/base/Collection.h"
#include "platform/base/Numbers.h"
#include "platform/controls/GridContents.h"
#include "values/c36ThreatenedItem.h"

#include <memory>
#include <string>

/// The threatened items of the file in key order, loaded on first use. All throw DatabaseError, and Overflow
/// where a stored figure is out of range.
namespace g36ThreatenedItems {

/// Throws MissingMember.
std::shared_ptr<c36ThreatenedItem> GetThreatenedItem(Long key);
const platform::Collection<std::shared_ptr<c36ThreatenedItem>>& ThreatenedItemCollection();
/// Dollars over all items.
Double TotalValueAtRisk();
/// Leaves the header row and adds one for each item: name, potential loss, probability, value at risk. Row
/// data is the item, a std::shared_ptr<c36ThreatenedItem>. Columns that the grid has not are left out.
void FillThreatenedItemGrid(platform::GridContents& grid);
/// Adds the item and its row of Items; ValuesAtRisk gets one with the first save.
std::shared_ptr<c36ThreatenedItem> NewThreatenedItem(const std::string& name);
/// Deletes the item, its row of Items and its impacts; its row of ValuesAtRisk stays. Throws MissingMember.
void DeleteThreatenedItem(Long key);
/// Drops the items; the next use reads the file again.
void ReleaseThreatenedItems();

} // namespace g36ThreatenedItems
