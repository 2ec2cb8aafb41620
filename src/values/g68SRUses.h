#pragma once

#include "platform/base/Numbers.h"

/// Rows of SRUses. All throw DatabaseError.
namespace g68SRUses {

/// Adds a row of one unit for one period; returns its key.
Long NewSRUseRow(Long outcomeKey, Long srTypeKey);
void DeleteSRUses(Long outcomeKey);
/// Forgets the last key handed out, which belongs to the file now closed.
void ResetLastSRUseKey();

} // namespace g68SRUses
