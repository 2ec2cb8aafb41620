#pragma once

#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <exception>
#include <iostream>
#include <sched.h>
#include <string>

namespace support {

/// How a child process ended: its exit status, or minus the signal that ended it.
inline int WaitFor(pid_t child)
{
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFSIGNALED(status) ? -WTERMSIG(status) : WEXITSTATUS(status);
}

/// Runs checks in a child process of their own, whose limits, user or mounts they may change. The result is 0
/// when every check in it held.
template <class Checks> int InChild(Checks checks)
{
    std::fflush(nullptr);
    const pid_t child = ::fork();
    if (child != 0) {
        return WaitFor(child);
    }
    try {
        checks();
    } catch (const std::exception& error) {
        ADD_FAILURE() << "in the child: " << error.what();
    }
    std::cout.flush();
    std::fflush(nullptr);
    ::_exit(::testing::Test::HasFailure() ? 1 : 0);
}

/// For as long as it lives no file can grow beyond a size: a disk that is full.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        rlimit limit = m_before;
        limit.rlim_cur = bytes;
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;
    ~FileSizeLimit() { ::setrlimit(RLIMIT_FSIZE, &m_before); }

private:
    rlimit m_before = {};
};

/// In a child: makes a small disk of its own of a folder; false where the machine does not allow it.
inline bool MountSmallDisk(const std::string& folder, const std::string& size)
{
    return ::unshare(CLONE_NEWNS) == 0 && ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
           ::mount("tmpfs", folder.c_str(), "tmpfs", 0, ("size=" + size).c_str()) == 0;
}

/// Whether a process of this machine may mount in a place of its own.
inline bool CanMount()
{
    const pid_t child = ::fork();
    if (child != 0) {
        return WaitFor(child) == 0;
    }
    ::_exit(::unshare(CLONE_NEWNS) == 0 && ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0
                ? 0
                : 1);
}

/// In a child: goes on as a user whom the permissions of files bind; false where that cannot be.
inline bool BecomeOrdinaryUser()
{
    constexpr unsigned kNobody = 65534;
    return ::geteuid() != 0 || (::setgid(kNobody) == 0 && ::setuid(kNobody) == 0);
}

} // namespace support
