#pragma once

#include "platform/jet/JetError.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string>

namespace platform {

/// A file descriptor that closes itself.
class Descriptor
{
public:
    explicit Descriptor(int number) : m_number(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor()
    {
        if (m_number >= 0) {
            ::close(m_number);
        }
    }
    int Number() const { return m_number; }

private:
    int m_number;
};

/// Does not wait for what is no plain file.
inline int OpenPlain(const std::string& path, int access)
{
    return ::open(path.c_str(), access | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
}

/// Throws JetError with the system's last error.
[[noreturn]] inline void FailAt(const std::string& what)
{
    throw JetError(what + ": " + std::strerror(errno));
}

} // namespace platform
