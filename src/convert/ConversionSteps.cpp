#include "convert/ConversionSteps.h"

#include "platform/base/Desktop.h"
#include "platform/base/LongWork.h"
#include "platform/data/Schema.h"
#include "session/SessionState.h"
#include "session/u91Trace.h"

namespace ConversionSteps {

namespace {

/// What a half converted file is marked with: which conversion, and how many of its steps are made.
constexpr std::int64_t kMark = 0x51450000;
constexpr std::int64_t kStepRange = 0x100;

std::int64_t MarkOf(Long number, std::size_t stepsMade)
{
    return kMark + number * kStepRange + static_cast<std::int64_t>(stepsMade);
}

std::size_t StepsMade(Long number, std::size_t count)
{
    const std::int64_t made = platform::Schema(OpenDatabase()).Mark() - MarkOf(number, 0);
    return made > 0 && made < static_cast<std::int64_t>(count) ? static_cast<std::size_t>(made) : 0;
}

void Make(const Step& step, std::int64_t mark)
{
    platform::Transaction change(OpenDatabase());
    step();
    platform::Schema(OpenDatabase()).SetMark(mark);
    change.Commit();
}

} // namespace

void Run(const char* title, Long number, const std::vector<Step>& steps)
{
    const platform::Hourglass hourglass;
    u91Trace::TraceStart(title);
    const std::size_t count = steps.size();
    for (std::size_t i = StepsMade(number, count); i < count; ++i) {
        platform::TellProgress(title, static_cast<double>(i) / static_cast<double>(count));
        Make(steps[i], i + 1 == count ? 0 : MarkOf(number, i + 1));
    }
    platform::TellProgress({}, 1.0);
    u91Trace::TraceFinished(title);
}

} // namespace ConversionSteps
