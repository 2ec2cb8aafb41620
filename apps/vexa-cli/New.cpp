#include "platform/base/Files.h"
#include "session/a1VEXA.h"
#include "session/u11Datafile.h"
#include "session/u12qelFiles.h"
#include "vexa-cli/Commands.h"

namespace vexa_cli {

ExitStatus New(const Request& request, Console&)
{
    const std::string path = platform::FullPath(request.files.front());
    if (platform::FileExists(path) && !u12qelFiles::ConfirmReplace(u12qelFiles::kReplaceTitle)) {
        return ExitStatus::Cancelled;
    }
    const bool created = u11Datafile::CreateDatafile(path) == u11Datafile::Status::Ready;
    a1VEXA::CloseDatafileIfOpen();
    return created ? ExitStatus::Done : ExitStatus::Failed;
}

} // namespace vexa_cli
