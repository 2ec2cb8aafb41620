// The bytes of a Jet database, in the part of the program that reads them. The library behind it was not
// written for hostile files: what ends inside that library is what the process of its own is for.

#include "Require.h"
#include "vexa-jet/Failure.h"
#include "vexa-jet/Output.h"
#include "vexa-jet/Tables.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <exception>

namespace {

/// Standard error, which the reading turns to a place in memory, as it was.
class KeptError
{
public:
    KeptError() : m_kept(::dup(STDERR_FILENO)) {}
    KeptError(const KeptError&) = delete;
    KeptError& operator=(const KeptError&) = delete;
    ~KeptError()
    {
        ::dup2(m_kept, STDERR_FILENO);
        ::close(m_kept);
    }

private:
    int m_kept;
};

void TakeAsInput(const std::uint8_t* data, std::size_t size)
{
    const int file = ::memfd_create("database", MFD_CLOEXEC);
    fuzz::Require(file >= 0 && ::write(file, data, size) == static_cast<ssize_t>(size), "no memory");
    ::dup2(file, STDIN_FILENO);
    ::close(file);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    ::dup2(::open("/dev/null", O_WRONLY), STDOUT_FILENO);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    TakeAsInput(data, size);
    const KeptError kept;
    vexa_jet::Output output(platform::jet::MostBytes(size));
    try {
        vexa_jet::WriteTables(size, output);
    } catch (const std::exception& failure) {
        output.Fail(failure.what());
    }
    return 0;
}
