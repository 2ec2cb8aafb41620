#pragma once

#include "vexa-cli/ExitStatus.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace vexa_cli {

struct Console;
struct Request;

/// The command that makes reports. It alone needs the toolkit, so only the programs that have it name it;
/// without it the command is refused.
using ReportCommand = ExitStatus (*)(const Request&, Console&);
void SetReportCommand(ReportCommand command);

/// The whole program behind main(): runs the command that the arguments name (without the program's own name)
/// and returns the exit status. Results go to `out`, all other words to `err`. Does not throw.
int Run(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err);

} // namespace vexa_cli
