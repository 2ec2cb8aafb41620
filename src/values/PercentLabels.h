#pragma once

#include "platform/base/Numbers.h"

#include <span>
#include <string>
#include <string_view>

/// Percents that bear a name, such as "Medium (50%)". Any other percent is shown as its number.
namespace PercentLabels {

struct Label
{
    Long percent;
    const char* text;
};

std::string TextOf(std::span<const Label> labels, Long percent);
/// A numeric text's value, a label's percent, else what the text begins with as a number; halves to even.
/// Throws Overflow.
Long PercentOf(std::span<const Label> labels, std::string_view text);

} // namespace PercentLabels
