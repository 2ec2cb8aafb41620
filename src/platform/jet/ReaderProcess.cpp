#include "platform/jet/ReaderProcess.h"

#include "platform/jet/JetError.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <spawn.h>
#include <utility>

namespace platform {

namespace {

/// What the process is started with: the file as its input, a pipe as its output, nothing else open.
class SpawnActions
{
public:
    SpawnActions(int file, int output)
    {
        posix_spawn_file_actions_init(&m_actions);
        posix_spawn_file_actions_adddup2(&m_actions, file, STDIN_FILENO);
        posix_spawn_file_actions_adddup2(&m_actions, output, STDOUT_FILENO);
        posix_spawn_file_actions_addopen(&m_actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
        posix_spawn_file_actions_addclosefrom_np(&m_actions, STDERR_FILENO + 1);
    }
    SpawnActions(const SpawnActions&) = delete;
    SpawnActions& operator=(const SpawnActions&) = delete;
    ~SpawnActions() { posix_spawn_file_actions_destroy(&m_actions); }
    const posix_spawn_file_actions_t* Get() const { return &m_actions; }

private:
    posix_spawn_file_actions_t m_actions = {};
};

/// Signals as a program finds them at its start, whatever this one ignores.
class SpawnSignals
{
public:
    SpawnSignals()
    {
        posix_spawnattr_init(&m_attributes);
        sigset_t all;
        sigfillset(&all);
        posix_spawnattr_setsigdefault(&m_attributes, &all);
        sigset_t none;
        sigemptyset(&none);
        posix_spawnattr_setsigmask(&m_attributes, &none);
        posix_spawnattr_setflags(&m_attributes, POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
    }
    SpawnSignals(const SpawnSignals&) = delete;
    SpawnSignals& operator=(const SpawnSignals&) = delete;
    ~SpawnSignals() { posix_spawnattr_destroy(&m_attributes); }
    const posix_spawnattr_t* Get() const { return &m_attributes; }

private:
    posix_spawnattr_t m_attributes = {};
};

[[noreturn]] void Fail(const std::string& program, int error)
{
    throw JetError(program + " cannot be started: " + std::strerror(error));
}

} // namespace

ReaderProcess::ReaderProcess(const std::string& program, int file)
{
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
        Fail(program, errno);
    }
    std::string name = "vexa-jet";
    char* const arguments[] = {name.data(), nullptr};
    char* const environment[] = {nullptr};
    const SpawnActions actions(file, ends[1]);
    const SpawnSignals signals;
    const int error =
        ::posix_spawn(&m_process, program.c_str(), actions.Get(), signals.Get(), arguments, environment);
    ::close(ends[1]);
    if (error != 0) {
        ::close(ends[0]);
        Fail(program, error);
    }
    m_output = ends[0];
}

ReaderProcess::~ReaderProcess()
{
    ::close(m_output);
    if (m_process > 0) {
        ::kill(m_process, SIGKILL);
        ::waitpid(m_process, nullptr, 0);
    }
}

bool ReaderProcess::EndsWell()
{
    int status = 0;
    ::waitpid(std::exchange(m_process, -1), &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

} // namespace platform
