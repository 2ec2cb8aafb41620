#pragma once

#include "platform/base/Numbers.h"
#include "session/c0Item.h"

#include <memory>
#include <string>
#include <vector>

/// The table Items: one shared object for each key. All throw DatabaseError.
namespace g0Items {

/// The fixed single items and groups.
enum Key : Long {
    FireName = 11,
    SituationGroup = 22,
    ThreatenedGroup = 23,
    AlternativeGroup = 26,
    SummaryGroup = 28,
};

std::shared_ptr<c0Item> GetItem(Long key);
/// The keys of a parent's children in ChildIndex order.
std::vector<Long> GetChildKeys(Long parentKey);
std::vector<std::shared_ptr<c0Item>> GetChildren(Long parentKey);
Long CountChildren(Long parentKey);
void SaveAllItems();
void ClearItems();
/// Adds a row with the default body at the place after the count of its siblings; returns its key. The object
/// is made later, by GetItem.
Long NewItem(const std::string& name, Long parentKey);
/// Takes object and row away; errors are ignored throughout. Siblings keep their ChildIndex.
void DeleteItem(Long key);
/// The highest key handed out in this process; it is not forgotten when another file is opened.
Long LastItemKey();

} // namespace g0Items
