#pragma once

#include "platform/base/Numbers.h"

#include <array>
#include <string>

class c51Alternative;

// What both builders of the alternatives write of an outcome.

namespace ReportSections {

enum OutcomeIndex : Long { Target = 1, Fallback = 2, Extreme = 3 };

struct Figure
{
    const char* caption;
    std::string value;
};

/// Probability, size and times, in the order of their rows.
using Figures = std::array<Figure, 4>;

/// The four figures of an outcome. The Extreme one is shared; only its probability is the alternative's.
/// Throws DatabaseError.
Figures FiguresOf(c51Alternative& alternative, Long outcome);

} // namespace ReportSections
