#include "session/u91Trace.h"

#include "platform/base/Clock.h"
#include "platform/base/Desktop.h"
#include "platform/base/Files.h"
#include "platform/base/ProgramFolder.h"

namespace u91Trace {

namespace {

std::string Time() { return platform::TimeText(platform::Now()); }

// A log that cannot be written stops nobody, so the results of writing are left alone.

void Write(const std::string& lines) { platform::AppendText(platform::InProgramFolder("VEXA.LOG"), lines); }

constexpr const char* kErrorHead = "\n* * * ERROR * * *\n";

} // namespace

void TraceProgramStart(const std::string& text)
{
    platform::Desktop& desktop = platform::TheDesktop();
    platform::WriteText(platform::InProgramFolder("VEXA.LOG"),
                        "\n* * * * * Program Start * * * * *\n" + platform::DateText(platform::Now()) +
                            "\nApp.Path = " + platform::ProgramFolder() +
                            "\nScreen: " + std::to_string(desktop.ScreenWidth()) + " x " +
                            std::to_string(desktop.ScreenHeight()) + "\n" + Time() + " Start " + text +
                            "\n\n");
}

void TraceProgramEnd(const std::string& text)
{
    Write("\n" + Time() + " " + text + "\n* * * * * Program End * * * * *\n\n");
}

void Trace(const std::string& text) { Write(Time() + "   " + text + "\n"); }

void TraceLoad(const std::string& text) { Write(Time() + "   Load " + text + "\n"); }

void TraceUnload(const std::string& text) { Write(Time() + "   Unloaded " + text + "\n"); }

void TraceStart(const std::string& text) { Write("\n" + Time() + " Start " + text + "\n"); }

void TraceFinished(const std::string& text) { Write(Time() + " Finished " + text + "\n\n"); }

void TraceWarning(const std::string& text) { Write("\n" + Time() + "  Warning! " + text + "\n\n"); }

void TraceError(const std::string& text)
{
    const std::string line = Time() + "   " + text + "\n\n";
    Write(kErrorHead + line);
    platform::AppendText(platform::InProgramFolder("ERROR.LOG"),
                         kErrorHead + platform::DateText(platform::Now()) + "\n" + line);
}

} // namespace u91Trace
