#pragma once

#include "platform/data/Recordset.h"

#include <string>

/// New rows of the table Items. All throw DatabaseError.
namespace ItemRows {

/// The table of the file that is being opened.
platform::Recordset Items();
/// Begins a row.
void Begin(platform::Recordset& items, Long key, const std::string& name);
/// Puts the row into a group.
void Place(platform::Recordset& items, Long parent, Long childIndex);

} // namespace ItemRows
