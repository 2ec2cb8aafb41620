#pragma once

#include <sys/types.h>

#include <string>

namespace platform {

/// A process that reads an open file as its standard input; its standard output comes here. The destructor
/// ends it. Throws JetError when it cannot be started.
class ReaderProcess
{
public:
    ReaderProcess(const std::string& program, int file);
    ReaderProcess(const ReaderProcess&) = delete;
    ReaderProcess& operator=(const ReaderProcess&) = delete;
    ~ReaderProcess();

    /// Where its output is read.
    int Output() const { return m_output; }
    /// Waits for its end; whether it was content.
    bool EndsWell();

private:
    pid_t m_process = -1;
    int m_output = -1;
};

} // namespace platform
