// The program's start with a file, ended as soon as its first worksheet is on the screen. Takes the path
// alone.

#include "FirstPaint.h"
#include "common/ConnectConversions.h"
#include "common/ConnectStores.h"
#include "platform/widgets/Application.h"
#include "platform/widgets/QtDesktop.h"
#include "session/SessionState.h"
#include "worksheets/ConnectScreens.h"
#include "worksheets/frm0_VEXA.h"

int main(int argc, char** argv)
{
    int toolkitArguments = 1;
    platform::Application application(toolkitArguments, argv);
    QuitAfterFirstPaint(application, "frm11Intro");
    platform::QtDesktop desktop(QString::fromUtf8(kProgramTitle));
    platform::SetDesktop(&desktop);
    ConnectStores();
    ConnectConversions();
    frm0_VEXA window;
    ConnectScreens(window);
    window.MDIForm_Load(argc > 1 ? argv[1] : "");
    window.ShowAsFitted();
    return application.exec();
}
