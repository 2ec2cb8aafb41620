#include "reports/AlternativeFigures.h"

#include "model/c51Alternative.h"
#include "model/c53Outcome.h"
#include "model/g53Outcomes.h"
#include "platform/base/Formats.h"
#include "platform/base/Texts.h"

namespace ReportSections {

Figures FiguresOf(c51Alternative& alternative, Long outcome)
{
    const auto source = outcome == Extreme ? g53Outcomes::ExtremeOutcome() : alternative.Outcome(outcome);
    return {{{"Probability:", platform::Format(alternative.OutcomePercent(outcome), "0") + "%"},
             {"Final Fire Size:", source->FireSize() + " acres"},
             {"Time to Contain:", platform::TextOf(source->ContainTime()) + " days"},
             {"Time to Control:", platform::TextOf(source->ControlTime()) + " days"}}};
}

} // namespace ReportSections
