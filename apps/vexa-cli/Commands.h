#pragma once

#include "vexa-cli/CommandLine.h"
#include "vexa-cli/Console.h"
#include "vexa-cli/ExitStatus.h"

// The commands, each in the file of its name. They throw platform::Error for what stops them.
namespace vexa_cli {

/// Makes a new data file from the template, as the desktop's File, New does; an existing file is a question.
ExitStatus New(const Request& request, Console& console);
/// Prints the figures of each file: one document, or with several files a line for each of them, failed or
/// not.
ExitStatus Evaluate(const Request& request, Console& console);
/// Writes the report as PDF, as rich text or as pictures of its pages. An old file stays whole where the new
/// one cannot be written.
ExitStatus Report(const Request& request, Console& console);
/// Opens the file as the desktop does, converting it where it must.
ExitStatus Convert(const Request& request, Console& console);
/// Prints the rows of the tables.
ExitStatus Dump(const Request& request, Console& console);
/// Prints what is wrong with a file, one finding a line, "ok" when nothing is. Findings are what was asked
/// for: the status is Done with them too.
ExitStatus Check(const Request& request, Console& console);
/// Prints the decision as a table for a person to read.
ExitStatus Table(const Request& request, Console& console);

} // namespace vexa_cli
