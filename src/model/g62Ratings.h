#pragma once

#include "platform/base/Numbers.h"

/// Rows of Scores in bulk. All throw DatabaseError.
namespace g62Ratings {

void DeleteCriterionRatings(Long criterionKey);
void DeleteOutcomeRatings(Long outcomeKey);

} // namespace g62Ratings
