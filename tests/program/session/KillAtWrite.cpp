#include "program/session/KillAtWrite.h"

#include <sys/syscall.h>
#include <unistd.h>

#include <csignal>

// The engine's library finds these ahead of the system's.

namespace {

int g_left = 0; // until the kill; 0: there will be none

void Count()
{
    if (g_left > 0 && --g_left == 0) ::raise(SIGKILL);
}

} // namespace

void KillAtWrite(int count) { g_left = count; }

extern "C" ssize_t pwrite64(int file, const void* bytes, size_t size, off64_t place)
{
    Count();
    return ::syscall(SYS_pwrite64, file, bytes, size, place);
}

extern "C" int fdatasync(int file)
{
    Count();
    return static_cast<int>(::syscall(SYS_fdatasync, file));
}

extern "C" int unlink(const char* path) noexcept
{
    Count();
    return static_cast<int>(::syscall(SYS_unlink, path));
}
