#include "platform/base/Files.h"
#include "session/u11Datafile.h"
#include "vexa-cli/Commands.h"
#include "vexa-cli/OpenFile.h"

namespace vexa_cli {

ExitStatus Convert(const Request& request, Console& console)
{
    const std::string& path = request.files.front();
    const OpenFile file(path, console);
    if (file.Status() == ExitStatus::Done && !u11Datafile::NameDatafile(platform::FullPath(path))) {
        return ExitStatus::Failed;
    }
    return file.Status();
}

} // namespace vexa_cli
