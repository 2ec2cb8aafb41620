#pragma once

#include "vexa-cli/Console.h"
#include "vexa-cli/ExitStatus.h"

#include <string>

namespace vexa_cli {

/// A data file opened as the desktop opens it (format check, conversion, edition check), with the stores
/// empty, and left again by the destructor.
class OpenFile
{
public:
    OpenFile(const std::string& path, Console& console);
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    ~OpenFile();

    /// Done when the file is open; else why it is not.
    ExitStatus Status() const { return m_status; }

private:
    ExitStatus m_status;
};

} // namespace vexa_cli
