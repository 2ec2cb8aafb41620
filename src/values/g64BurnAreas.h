#pragma once

#include "platform/base/Numbers.h"

/// Rows of OutcomeFMZs. All throw DatabaseError.
namespace g64BurnAreas {

/// Adds the outcome's row for a land unit, with the intensity levels of the first alternative's Target; while
/// there is no alternative all burns at level 4.
void NewBurnArea(Long outcomeKey, Long fmuKey);
void DeleteBurnAreas(Long outcomeKey);

} // namespace g64BurnAreas
