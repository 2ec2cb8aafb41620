// The program's start with a file, ended as soon as its first worksheet is on the screen. Takes the path
// alone.

#include "FirstPaint.h"
#include "platform/widgets/Application.h"
#include "vexa/Program.h"

int main(int argc, char** argv)
{
    int toolkitArguments = 1;
    platform::Application application(toolkitArguments, argv);
    QuitAfterFirstPaint(application, "frm11Intro");
    Program program;
    program.Start(argc > 1 ? argv[1] : "");
    return application.exec();
}
