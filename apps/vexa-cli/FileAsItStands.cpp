#include "vexa-cli/FileAsItStands.h"

#include "platform/jet/JetFile.h"

namespace vexa_cli {

std::unique_ptr<platform::Database> OpenAsItStands(const std::string& path)
{
    using platform::Database;
    return platform::IsJetFile(path) ? platform::ReadJetFile(path)
                                     : std::make_unique<Database>(path, Database::Mode::ReadOnly);
}

} // namespace vexa_cli
