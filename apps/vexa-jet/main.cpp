// Reads the Jet database on standard input and writes its tables to standard output, as
// platform/jet/JetStream.h says. The library it reads with was not written for hostile files: this program is
// all that such a file can harm.

#include "vexa-jet/Output.h"
#include "vexa-jet/Tables.h"

#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <exception>

namespace {

void Limit(decltype(RLIMIT_CPU) what, rlim_t most)
{
    const rlimit limit = {most, most};
    ::setrlimit(what, &limit);
}

/// Nothing the library does may last long, take the machine's memory, write a file or outlive the program
/// that asked.
void LimitProcess(std::uint64_t fileSize)
{
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    constexpr rlim_t kWarnings = 1 << 20;
    std::signal(SIGXFSZ, SIG_IGN);
    Limit(RLIMIT_CORE, 0);
    Limit(RLIMIT_FSIZE, kWarnings);
    Limit(RLIMIT_CPU, platform::jet::MostSeconds(fileSize));
#ifndef __SANITIZE_ADDRESS__ // which reserves terabytes
    constexpr rlim_t kMemory = rlim_t{256} << 20;
    Limit(RLIMIT_AS, kMemory);
#endif
}

std::uint64_t InputSize()
{
    struct stat status = {};
    ::fstat(STDIN_FILENO, &status);
    return static_cast<std::uint64_t>(status.st_size);
}

} // namespace

int main()
{
    const std::uint64_t size = InputSize();
    LimitProcess(size);
    vexa_jet::Output output(platform::jet::MostBytes(size));
    try {
        vexa_jet::WriteTables(size, output);
    } catch (const std::exception& failure) {
        output.Fail(failure.what());
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
