#pragma once

#include "platform/base/Numbers.h"

#include <functional>
#include <vector>

/// The steps of a conversion, each made whole or not at all.
namespace ConversionSteps {

using Step = std::function<void()>;

/// Runs the steps in their order on the file that is being opened, each as one change of the file, and traces
/// the start and the end under the title. The last step is the one that names the new format. A step that
/// fails is taken back and the ones before it stay; a file that was left half way, by a failure or a power
/// cut, goes on where it stopped. `number` tells the conversions apart, 1 to 255. Throws what the steps
/// throw.
void Run(const char* title, Long number, const std::vector<Step>& steps);

} // namespace ConversionSteps
