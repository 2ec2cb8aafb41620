#include "vexa-cli/Progress.h"

#include <unistd.h>

#include <iostream>

namespace vexa_cli {

namespace {
constexpr const char* kClearLine = "\r\x1b[K";
} // namespace

Progress::Progress(std::ostream& err, std::size_t count)
    : m_err(err), m_count(count), m_shown(count > 1 && &err == &std::cerr && ::isatty(STDERR_FILENO) == 1)
{}

Progress::~Progress()
{
    if (m_shown) {
        m_err << kClearLine << std::flush;
    }
}

void Progress::Step(const std::string& what)
{
    ++m_done;
    if (m_shown) {
        m_err << kClearLine << m_done << " of " << m_count << "  " << what << std::flush;
    }
}

} // namespace vexa_cli
