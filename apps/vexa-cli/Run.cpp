#include "vexa-cli/Run.h"

#include "common/ConnectConversions.h"
#include "common/ConnectStores.h"
#include "vexa-cli/CommandLine.h"
#include "vexa-cli/Commands.h"

#include <exception>
#include <ostream>

namespace vexa_cli {

namespace {

ReportCommand g_report = nullptr;

/// The console's desktop in use from constructor to destructor.
class DesktopInUse
{
public:
    explicit DesktopInUse(ConsoleDesktop& desktop) { platform::SetDesktop(&desktop); }
    DesktopInUse(const DesktopInUse&) = delete;
    DesktopInUse& operator=(const DesktopInUse&) = delete;
    ~DesktopInUse() { platform::SetDesktop(nullptr); }
};

ExitStatus RunCommand(const Request& request, Console& console)
{
    switch (request.command) {
    case Command::New: return New(request, console);
    case Command::Evaluate: return Evaluate(request, console);
    case Command::Convert: return Convert(request, console);
    case Command::Dump: return Dump(request, console);
    case Command::Check: return Check(request, console);
    case Command::Table: return Table(request, console);
    case Command::Report: break;
    }
    if (g_report != nullptr) return g_report(request, console);
    console.err << "Reports are made by the program vexa-report, which is missing here.\n";
    return ExitStatus::Failed;
}

ExitStatus RunRequest(const Request& request, std::ostream& out, std::ostream& err)
{
    ConsoleDesktop desktop(err, request.yes);
    const DesktopInUse inUse(desktop);
    ConnectStores();
    ConnectConversions();
    Console console{out, err, desktop};
    try {
        return RunCommand(request, console);
    } catch (const std::exception& error) {
        err << request.files.front() << ": " << error.what() << '\n';
        return ExitStatus::Failed;
    }
}

} // namespace

void SetReportCommand(ReportCommand command) { g_report = command; }

int Run(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err)
{
    const CommandLine line = ReadCommandLine(arguments);
    out << line.out;
    err << line.err;
    ExitStatus status = line.request ? RunRequest(*line.request, out, err) : line.status;
    if (!out.flush()) {
        err << "The results could not be written.\n";
        status = ExitStatus::Failed;
    }
    return static_cast<int>(status);
}

} // namespace vexa_cli
