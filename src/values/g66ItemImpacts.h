#pragma once

#include "platform/base/Numbers.h"

/// Rows of ItemImpacts. Rows of ValuesProtected stay. All throw DatabaseError.
namespace g66ItemImpacts {

void DeleteImpactsOfItem(Long itemKey);
void DeleteImpactsOfOutcome(Long outcomeKey);

} // namespace g66ItemImpacts
