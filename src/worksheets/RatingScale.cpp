#include "worksheets/RatingScale.h"

#include "platform/base/Formats.h"
#include "platform/base/Texts.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr Double kPercentOfAScore = 10.0;

} // namespace

Single RatingScale::ScoreOf(std::string_view text)
{
    return platform::ToSingle(std::clamp(platform::Val(text), Double(kWorst), Double(kBest)));
}

Double RatingScale::PercentOf(Single score)
{
    return kPercentOfAScore * Double(std::clamp(score, kWorst, kBest));
}

Double RatingScale::PercentWhileTyped(Single score)
{
    return platform::Val(platform::Format(PercentOf(score), "0"));
}

RatingScale::Step RatingScale::StepAt(Single place)
{
    // Kept: the place is cut to tenths before it becomes a score, so a drag leads to whole scores alone.
    const Double tenths = platform::Val(platform::Format(std::clamp(place, 0.0F, 1.0F), "0.0"));
    return {platform::ToSingle(tenths * Double(kBest)), tenths * 100.0};
}

Single RatingScale::PlaceBeside(Single score, int steps)
{
    const Single from = steps > 0 ? std::floor(score) : std::ceil(score);
    return platform::ToSingle((Double(from) + Double(steps)) / Double(kBest));
}
