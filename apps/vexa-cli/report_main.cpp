#include "vexa-cli/Commands.h"
#include "vexa-cli/Run.h"

#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

// vexa-report: the companion with the toolkit that lays out pages. The companion itself starts it for a
// report, so that its other commands need not load the toolkit.

int main(int count, char** arguments)
{
    ::setenv("QT_LOGGING_RULES", "*.warning=false", 0); // standard error is for what concerns the report
    vexa_cli::SetReportCommand(&vexa_cli::Report);
    return vexa_cli::Run(std::vector<std::string>(arguments + 1, arguments + count), std::cout, std::cerr);
}
