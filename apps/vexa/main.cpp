#include "common/ConnectConversions.h"
#include "common/ConnectStores.h"
#include "platform/widgets/Application.h"
#include "platform/widgets/QtDesktop.h"
#include "session/SessionState.h"
#include "worksheets/ConnectScreens.h"
#include "worksheets/frm0_VEXA.h"

#include <string>

namespace {

/// The arguments joined by one blank: together they are one path, with or without blanks in it.
std::string CommandLine(int argc, char** argv)
{
    std::string line;
    for (int i = 1; i < argc; ++i)
        line += (i == 1 ? "" : " ") + std::string(argv[i]);
    return line;
}

} // namespace

int main(int argc, char** argv)
{
    // The toolkit sees the program's name alone: no option of its own is taken from the command line.
    int toolkitArguments = 1;
    platform::Application application(toolkitArguments, argv);
    platform::QtDesktop desktop(QString::fromUtf8(kProgramTitle));
    platform::SetDesktop(&desktop);
    ConnectStores();
    ConnectConversions();
    frm0_VEXA window;
    ConnectScreens(window);
    window.MDIForm_Load(CommandLine(argc, argv));
    window.ShowAsFitted();
    return application.exec();
}
