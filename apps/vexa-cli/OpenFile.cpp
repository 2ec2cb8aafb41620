#include "vexa-cli/OpenFile.h"

#include "session/a1VEXA.h"
#include "session/u11Datafile.h"
#include "vexa-cli/Progress.h"

#include <exception>

namespace vexa_cli {

OpenFile::OpenFile(const std::string& path, Console& console)
{
    console.desktop.StartAfresh();
    const FileProgress progress(console.err);
    const bool open = u11Datafile::OpenDatafile(path);
    m_status = open                           ? ExitStatus::Done
               : console.desktop.AnsweredNo() ? ExitStatus::Cancelled
                                              : ExitStatus::Failed;
    a1VEXA::ClearAllStores();
}

OpenFile::~OpenFile()
{
    try {
        a1VEXA::ClearAllStores();
        a1VEXA::CloseDatafileIfOpen();
    } catch (const std::exception&) {
        // Nothing is pending: every write was durable when it returned.
    }
}

} // namespace vexa_cli
