#include "platform/widgets/Application.h"
#include "vexa/Program.h"

#include <string>

namespace {

/// The arguments joined by one blank: together they are one path, with or without blanks in it.
std::string CommandLine(int argc, char** argv)
{
    std::string line;
    for (int i = 1; i < argc; ++i) {
        line += (i == 1 ? "" : " ") + std::string(argv[i]);
    }
    return line;
}

} // namespace

int main(int argc, char** argv)
{
    // The toolkit sees the program's name alone: no option of its own is taken from the command line.
    int toolkitArguments = 1;
    platform::Application application(toolkitArguments, argv);
    Program program;
    program.Start(CommandLine(argc, argv));
    return application.exec();
}
