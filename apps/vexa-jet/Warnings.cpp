#include "vexa-jet/Warnings.h"

#include "vexa-jet/Failure.h"

#include <sys/mman.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <string>

namespace vexa_jet {

Warnings::Warnings() : m_memory(::memfd_create("warnings", MFD_CLOEXEC))
{
    if (m_memory < 0 || ::dup2(m_memory, STDERR_FILENO) < 0) {
        throw Failure("the system has no memory for warnings");
    }
}

Warnings::~Warnings() { ::close(m_memory); }

void Warnings::RequireNone() const
{
    std::fflush(stderr);
    std::array<char, 200> words{};
    const ssize_t size = ::pread(m_memory, words.data(), words.size(), 0);
    if (size != 0) {
        std::string line(words.data(), size > 0 ? static_cast<std::size_t>(size) : 0);
        throw Failure(line.substr(0, line.find('\n')));
    }
}

} // namespace vexa_jet
