#include "session/u13Folders.h"

#include "platform/base/Files.h"
#include "platform/base/ProgramFolder.h"
#include "session/u91Trace.h"

namespace u13Folders {

std::string GetDataFolder()
{
    const std::string folder = platform::ProgramFolder();
    int error = 0;
    for (const char* name : {"VEXAData", "DATA99"}) {
        if (platform::FolderCanBeListed(folder + "/" + name, error)) {
            return folder + "/" + name;
        }
    }
    u91Trace::TraceWarning(folder + "  Err = " + std::to_string(error) + ", DataPath = " + folder);
    return folder;
}

std::string FileNameOf(const std::string& path)
{
    const std::size_t separator = path.find_last_of("\\/");
    return separator == std::string::npos ? path : path.substr(separator + 1);
}

} // namespace u13Folders
