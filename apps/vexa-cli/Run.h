#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace vexa_cli {

/// The whole program behind main(): runs the command that the arguments name (without the program's own name)
/// and returns the exit status. Results go to `out`, all other words to `err`. Does not throw.
int Run(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err);

} // namespace vexa_cli
