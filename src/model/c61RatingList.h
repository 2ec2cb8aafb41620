#pragma once

#include "model/c62Rating.h"
#include "platform/base/Collection.h"
#include "platform/base/Numbers.h"

/// All ratings of one outcome as the file held them when the list was made, for every row of both trees.
/// Owned by its c53Outcome. Nothing is rounded here beyond the single. A key of neither tree throws
/// MissingMember.
class c61RatingList
{
public:
    c61RatingList() = default;
    // Ratings point at each other.
    c61RatingList(const c61RatingList&) = delete;
    c61RatingList& operator=(const c61RatingList&) = delete;

    /// The sum of WeightedScore over the objective tree.
    Single TotalScore() const;
    Single CategoryScore(Long key) const;
    Single WeightedObjScore(Long key) const;
    Single RawObjScore(Long key) const;
    /// The sum of WeightedScore over the safety tree.
    Single SafetyScore() const;
    Single WeightedSafetyScore(Long key) const;
    Single RawSafetyScore(Long key) const;

    /// Loads both trees where they are not loaded yet. Throws DatabaseError.
    void Initialize(Long outcomeKey);

private:
    using Ratings = platform::Collection<c62Rating>;

    void AddObjectiveRatings(Long outcomeKey);
    void AddSafetyRatings(Long outcomeKey);
    void ReadScores(Long outcomeKey);
    Single SumObjectiveScores() const;
    Single SumSafetyScores() const;

    Ratings m_objectives{"objective ratings"};
    Ratings m_safetyIssues{"safety ratings"};
};
