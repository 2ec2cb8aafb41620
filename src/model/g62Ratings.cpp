#include "model/g62Ratings.h"

#include "session/SessionState.h"

namespace g62Ratings {

namespace {

void DeleteRows(platform::Query query, Long key)
{
    for (platform::Recordset rows = OpenDatabase().OpenQuery(query, key); !rows.Eof(); rows.MoveNext()) {
        rows.Delete();
    }
}

} // namespace

void DeleteCriterionRatings(Long criterionKey)
{
    DeleteRows(platform::Query::ScoresOfCriterion, criterionKey);
}

void DeleteOutcomeRatings(Long outcomeKey) { DeleteRows(platform::Query::ScoresOfOutcome, outcomeKey); }

} // namespace g62Ratings
