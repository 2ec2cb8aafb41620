#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>

namespace fuzz {

/// Ends the fuzzer, and so makes a finding of its input, where a promise is broken.
inline void Require(bool holds, const std::string& what)
{
    if (holds) return;
    std::fprintf(stderr, "%s\n", what.c_str());
    std::abort();
}

} // namespace fuzz
