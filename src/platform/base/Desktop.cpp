#include "platform/base/Desktop.h"

#include <cassert>
#include <utility>

namespace platform {

namespace {
Desktop* g_desktop = nullptr;
} // namespace

Desktop& TheDesktop()
{
    assert(g_desktop != nullptr);
    return *g_desktop;
}

void SetDesktop(Desktop* desktop) { g_desktop = desktop; }

Hourglass::Hourglass() { TheDesktop().SetPointer(Pointer::Hourglass); }

Hourglass::~Hourglass() { TheDesktop().SetPointer(Pointer::Default); }

void ShowMessage(std::vector<std::string> lines)
{
    Message message;
    message.lines = std::move(lines);
    TheDesktop().Show(message);
}

} // namespace platform
