#include "model/c61RatingList.h"

#include "model/g41Objectives.h"
#include "model/g42SafetyIssues.h"
#include "session/SessionState.h"
#include "values/RowWalks.h"

#include <optional>

namespace {

/// A rating without a row in its place in the collection, which has room for it.
c62Rating& AddRating(platform::Collection<c62Rating>& ratings,
                     Long outcomeKey,
                     const c41Objective& criterion,
                     bool bSafety)
{
    c62Rating rating;
    rating.InitializeEmpty(outcomeKey, criterion.ItemKey(), bSafety);
    return ratings.Add(criterion.ItemKey(), std::move(rating));
}

Single Sum(Single sum, Single term) { return platform::ToSingle(Double(sum) + Double(term)); }

} // namespace

Single c61RatingList::TotalScore() const { return SumObjectiveScores(); }

Single c61RatingList::CategoryScore(Long key) const { return m_objectives.Member(key).CategoryScore(); }

Single c61RatingList::WeightedObjScore(Long key) const { return m_objectives.Member(key).WeightedScore(); }

Single c61RatingList::RawObjScore(Long key) const { return m_objectives.Member(key).RawScore(); }

Single c61RatingList::SafetyScore() const { return SumSafetyScores(); }

Single c61RatingList::WeightedSafetyScore(Long key) const
{
    return m_safetyIssues.Member(key).WeightedScore();
}

Single c61RatingList::RawSafetyScore(Long key) const { return m_safetyIssues.Member(key).RawScore(); }

void c61RatingList::Initialize(Long outcomeKey)
{
    AddObjectiveRatings(outcomeKey);
    AddSafetyRatings(outcomeKey);
    ReadScores(outcomeKey);
}

void c61RatingList::AddObjectiveRatings(Long outcomeKey)
{
    const auto& objectives = g41Objectives::ObjectiveCollection();
    m_objectives.Reserve(
        static_cast<std::size_t>(objectives.Count())); // children are pointed at: none may move
    c62Rating* parent = nullptr;
    for (const auto& objective : objectives) {
        c62Rating& rating = AddRating(m_objectives, outcomeKey, *objective, false);
        if (objective->bCategory()) {
            parent = &rating;
        } else if (objective->ParentKey() != 0 && parent != nullptr) {
            parent->AddChild(rating);
        }
    }
}

void c61RatingList::AddSafetyRatings(Long outcomeKey)
{
    const auto& issues = g42SafetyIssues::SafetyIssueCollection();
    m_safetyIssues.Reserve(static_cast<std::size_t>(issues.Count()));
    c62Rating* parent = nullptr;
    for (const auto& issue : issues) {
        c62Rating& rating = AddRating(m_safetyIssues, outcomeKey, *issue, true);
        if (issue->bSafetyRoot()) {
            parent = &rating;
        } else if (parent != nullptr) {
            parent->AddChild(rating);
        }
    }
}

void c61RatingList::ReadScores(Long outcomeKey)
{
    // One query for the outcome; of rows that belong to no criterion nothing but the key is looked at.
    platform::Recordset rows = OpenDatabase().OpenQuery(platform::Query::ScoresOfOutcome, outcomeKey);
    for (; !rows.Eof(); rows.MoveNext()) {
        const std::optional<Long> key = RowWalks::KeyIn(rows, "CriterionKey");
        for (Ratings* ratings : {&m_objectives, &m_safetyIssues}) {
            if (c62Rating* rating = key ? ratings->Find(*key) : nullptr) {
                rating->ReadRow(rows);
            }
        }
    }
}

Single c61RatingList::SumObjectiveScores() const
{
    Single sum = 0.0F;
    for (const c62Rating& rating : m_objectives) {
        sum = rating.bCategory() ? sum : Sum(sum, rating.WeightedScore());
    }
    return sum;
}

Single c61RatingList::SumSafetyScores() const
{
    Single sum = 0.0F;
    for (const c62Rating& rating : m_safetyIssues) {
        sum = rating.bSafetyRoot() ? sum : Sum(sum, rating.WeightedScore());
    }
    return sum;
}
