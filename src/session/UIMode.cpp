#include "session/UIMode.h"

#include "platform/base/Desktop.h"

namespace UIMode {

namespace {
int g_depth = 0;
bool g_busy = false;
} // namespace

void BeginBusy()
{
    g_busy = true;
    ++g_depth;
    platform::TheDesktop().SetPointer(platform::Pointer::Hourglass);
}

void EndBusy()
{
    --g_depth;
    if (g_depth == 0) {
        g_busy = false;
        platform::TheDesktop().SetPointer(platform::Pointer::Default);
    }
}

bool NotBusy() { return !g_busy; }

} // namespace UIMode
