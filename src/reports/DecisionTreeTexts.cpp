#include "reports/DecisionTreeTexts.h"

#include "model/c51Alternative.h"
#include "model/c53Outcome.h"
#include "platform/base/Formats.h"
#include "platform/base/Texts.h"
#include "values/g33FMUs.h"

namespace DecisionTreeTexts {

namespace {

using platform::Format;

constexpr const char* dollars = "$#,0";
constexpr const char* score = "0.0";

/// Lines of the editions that know what is protected; resources are left out where none has a value.
std::string ProtectionLines(const std::string& protectedValues, const std::string& resourceLoss)
{
    return g33FMUs::bNoResourceValues() ? protectedValues : protectedValues + lineEnd + resourceLoss;
}

std::string ExpectedLossLines(c51Alternative& alternative, Edition edition)
{
    if (edition == Edition::Basic) return "Expected Loss: " + Format(alternative.ExpectedLoss(), dollars);
    return ProtectionLines("Values Protected: " + Format(alternative.ExpectedProtection(), dollars),
                           "Expected NVC Loss: " + Format(alternative.ExpectedNVCLoss(), dollars));
}

std::string OutcomeLossLines(c53Outcome& outcome, Edition edition)
{
    if (edition == Edition::Basic) return "Estimated Loss:  " + Format(outcome.EstimatedLoss(), dollars);
    return ProtectionLines("Values Protected:  " + Format(outcome.ValueProtected(), dollars),
                           "Estimated NVC Loss:  " + Format(outcome.NVCLoss(), dollars));
}

} // namespace

// On purpose one blank behind "Expected Cost:" and "Expected Loss:", two behind all the others.

std::string ExpectedValues(c51Alternative& alternative, Edition edition)
{
    return "Expected Objectives Score:  " + Format(alternative.ExpectedScore(), score) + lineEnd +
           "Expected Safety Score:  " + Format(alternative.ExpectedSafetyScore(), score) + lineEnd +
           "Expected Cost: " + Format(alternative.ExpectedCost(), dollars) + lineEnd +
           ExpectedLossLines(alternative, edition);
}

std::string OutcomeValues(c53Outcome& outcome, Edition edition)
{
    return "Size:  " + outcome.FireSize() + " acres.  Control: " + platform::TextOf(outcome.ControlTime()) +
           " days" + lineEnd + "Objectives Score:  " + Format(outcome.TotalScore(), score) + lineEnd +
           "Safety Score:  " + Format(outcome.SafetyScore(), score) + lineEnd +
           "Estimated Cost:  " + Format(outcome.EstimatedCost(), dollars) + lineEnd +
           OutcomeLossLines(outcome, edition);
}

} // namespace DecisionTreeTexts
