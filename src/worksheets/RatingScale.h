#pragma once

#include "platform/base/Numbers.h"

#include <string_view>

/// The scale of the ratings, 0 (worst) to 10 (best), and the bar that shows a score on it.
namespace RatingScale {

inline constexpr Single kWorst = 0.0F;
inline constexpr Single kBest = 10.0F;

/// The score that a text begins with; beyond an end of the scale it is that end. No number is 0.
Single ScoreOf(std::string_view text);

/// How much of its bar a score fills, percent; a score off the scale is its end.
Double PercentOf(Single score);
/// The same in whole percent, as long as the score is being typed.
Double PercentWhileTyped(Single score);

/// Where a pointer on the bar leads to.
struct Step
{
    Single score = kWorst; // a whole number
    Double percent = 0;
};
/// The place is 0 at the bar's left end and 1 at its right one; beyond them it is that end.
Step StepAt(Single place);

/// The place on the bar of the whole score that is so many steps above (or below) a score: from 5.5 one step
/// leads up to 6 or down to 5.
Single PlaceBeside(Single score, int steps);

} // namespace RatingScale
