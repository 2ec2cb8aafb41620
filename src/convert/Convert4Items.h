#pragma once

#include "platform/base/Numbers.h"

namespace u16Convert4 {

/// The group of the goals of the older formats, in which no worksheet of today looks.
inline constexpr Long GoalGroup = 21;

// The steps that gather texts in the table Items. Each throws DatabaseError.

void CreateItemsTable();
/// The rows of the groups themselves.
void AddGroups();
/// The facts of the fire and the situation topics, which were named values; where one is missing, its item is
/// empty.
void CopyPropertiesToItemsTable();
/// Four report topics as they are, two fresh ones between them.
void CopyVEXATopicsToItemsTable();
/// Alternatives get new keys, which their outcomes and the selection follow.
void CopyAlternativesToItemsTable();
void CopyManagementGoals();
/// Threatened items get new keys.
void CopyListOfItems();
/// The impacts follow the threatened items to their new keys.
void MapItemImpacts();

} // namespace u16Convert4
