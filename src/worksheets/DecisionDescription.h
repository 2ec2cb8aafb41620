#pragma once

#include <string>

class c51Alternative;

/// The description that a selected alternative is given: one body that holds its own narrative and those of
/// its outcomes, each as it looks where it was written. Throws what reading the outcomes throws.
namespace DecisionDescription {

/// The alternative's narrative, an empty line, the Target's.
std::string WithoutFallback(c51Alternative& alternative);
/// A line that tells of the Fallback, the alternative's narrative, then the Target's and the Fallback's, each
/// below a line that names it.
std::string WithFallback(c51Alternative& alternative);

} // namespace DecisionDescription
