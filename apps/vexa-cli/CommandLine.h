#pragma once

#include "vexa-cli/ExitStatus.h"

#include <optional>
#include <string>
#include <vector>

namespace vexa_cli {

enum class Command { New, Evaluate, Report, Convert, Dump, Check, Table };

/// A command line that was understood.
struct Request
{
    Command command = Command::Check;
    std::vector<std::string> files;  // as given; one, for `evaluate` one or more
    std::vector<std::string> tables; // for `dump`; empty: all
    std::string reportTarget;        // for `report`
    std::vector<int> reportSections; // for `report`; empty: all
    bool yes = false;
};

/// What the arguments come to: a request, or (for help, the version and mistakes) what is to be said instead.
struct CommandLine
{
    std::optional<Request> request;
    ExitStatus status = ExitStatus::Done; // without a request
    std::string out;
    std::string err;
};

/// Reads the arguments behind the program's name.
CommandLine ReadCommandLine(const std::vector<std::string>& arguments);

} // namespace vexa_cli
