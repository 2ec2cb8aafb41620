#pragma once

#include "values/Edition.h"

#include <string>

class c51Alternative;
class c53Outcome;

/// The figures beside a printed decision tree, in lines. The editions differ in what they say of losses. All
/// throw what the figures throw.
namespace DecisionTreeTexts {

inline constexpr const char* lineEnd = "\r\n";

/// Of an alternative's line.
std::string ExpectedValues(c51Alternative& alternative, Edition edition = kEdition);
/// Of an outcome.
std::string OutcomeValues(c53Outcome& outcome, Edition edition = kEdition);

} // namespace DecisionTreeTexts
