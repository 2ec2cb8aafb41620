#include "model/g62Ratings.h"

#include "session/SessionState.h"
#include "values/RowWalks.h"

namespace g62Ratings {

void DeleteCriterionRatings(Long criterionKey)
{
    RowWalks::DeleteRows(OpenDatabase().OpenQuery(platform::Query::ScoresOfCriterion, criterionKey));
}

void DeleteOutcomeRatings(Long outcomeKey)
{
    RowWalks::DeleteRows(OpenDatabase().OpenQuery(platform::Query::ScoresOfOutcome, outcomeKey));
}

} // namespace g62Ratings
