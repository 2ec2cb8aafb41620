#pragma once

#include "model/c53Outcome.h"
#include "platform/base/Numbers.h"

#include <array>
#include <memory>

/// Target and Fallback of one alternative, weighed with the shared Extreme outcome by their probabilities.
/// Owned by its c51Alternative. Expected figures are rounded to two digits and computed anew at each call;
/// they throw what the outcomes' figures throw, and Overflow.
class c52OutcomeList
{
public:
    enum Index : Long { Target = 1, Fallback = 2, Extreme = 3 };

    /// 1 Target, 2 Fallback; throws OutOfBounds for any other index.
    std::shared_ptr<c53Outcome> Outcome(Long index) const;
    /// Whole percent for 1 Target, 2 Fallback, 3 Extreme, together always 100; 0 for any other index.
    Long OutcomePercent(Long index) const;
    Single ExpectedScore() const;
    /// Keys are those of Objectives.
    Single ExpectedCategoryScore(Long criterionKey) const;
    Single ExpectedWgtObjScore(Long criterionKey) const;
    Single ExpectedRawObjScore(Long criterionKey) const;
    Single ExpectedSafetyScore() const;
    Single ExpectedWgtSafetyScore(Long criterionKey) const;
    Single ExpectedRawSafetyScore(Long criterionKey) const;
    /// Dollars, as all below.
    Double ExpectedProtection() const;
    Single ExpectedNVCLoss() const;
    Single ExpectedLoss() const;
    Single ExpectedCost() const;
    /// The Target's alone, not rounded here.
    Single EstimatedCost() const;
    /// The Target's acres.
    Long EstimatedSize() const;

    /// Throws DatabaseError where a row is missing.
    void Initialize(Long alternativeKey);
    /// Deletes Target and Fallback; the shared Extreme outcome stays.
    void Delete();

private:
    using Score = Single (c53Outcome::*)();
    using ScoreByKey = Single (c53Outcome::*)(Long);

    Long FallbackPercent() const;
    Single Expected(Score figure) const;
    Single Expected(ScoreByKey figure, Long key) const;

    std::array<std::shared_ptr<c53Outcome>, 2> m_outcomes;
};
