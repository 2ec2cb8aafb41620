#pragma once

#include "vexa-cli/ConsoleDesktop.h"

#include <iosfwd>

namespace vexa_cli {

/// What a command talks to: results go to `out` and nothing else does, all other words to `err`.
struct Console
{
    std::ostream& out;
    std::ostream& err;
    ConsoleDesktop& desktop;
};

} // namespace vexa_cli
