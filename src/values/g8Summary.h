#pragma once

#include "platform/controls/ListContents.h"
#include "session/c0Item.h"

#include <memory>
#include <vector>

/// The narrative topics that close the analysis: group 28 of the items. Keeps nothing of its own.
/// All throw DatabaseError.
namespace g8Summary {

std::vector<std::shared_ptr<c0Item>> SummaryItems();
std::shared_ptr<c0Item> SummaryItem(Long key);
/// Clears the list and adds each topic's Heading with its ItemKey.
void AddItem(platform::ListContents& list);
void SaveSummaryItems();

} // namespace g8Summary
