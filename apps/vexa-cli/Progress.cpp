#include "vexa-cli/Progress.h"

#include "platform/base/LongWork.h"
#include "vexa-cli/TextTable.h"

#include <unistd.h>

#include <iostream>

namespace vexa_cli {

namespace {
constexpr const char* kClearLine = "\r\x1b[K";

bool IsTerminal(const std::ostream& err) { return &err == &std::cerr && ::isatty(STDERR_FILENO) == 1; }
} // namespace

Progress::Progress(std::ostream& err, std::size_t count)
    : m_err(err), m_count(count), m_shown(count > 1 && IsTerminal(err))
{}

Progress::~Progress()
{
    if (m_shown) {
        m_err << kClearLine << std::flush;
    }
}

FileProgress::FileProgress(std::ostream& err) : m_err(err), m_shown(IsTerminal(err))
{
    if (m_shown) {
        platform::SetProgressListener([this](const std::string& what, double part) {
            constexpr double kPercent = 100.0;
            m_err << kClearLine;
            if (!what.empty()) {
                m_err << OneLine(what) << "  " << static_cast<int>(part * kPercent) << " %";
            }
            m_err.flush();
        });
    }
}

FileProgress::~FileProgress()
{
    if (m_shown) {
        platform::SetProgressListener({});
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
