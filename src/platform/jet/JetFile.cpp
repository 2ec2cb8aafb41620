#include "platform/jet/JetFile.h"

#include "platform/jet/Descriptor.h"
#include "platform/jet/JetTables.h"

#include <sys/stat.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <string_view>
#include <system_error>

namespace platform {

namespace {

/// Behind the first four bytes stands the engine's name; the second is that of a later engine's files.
constexpr std::array<std::string_view, 2> kEngines = {"Standard Jet DB", "Standard ACE DB"};
constexpr off_t kEnginePlace = 4;

/// A new empty file in the folder for such; its path.
std::string MakeTemporaryFile()
{
    std::error_code error;
    std::string path = (std::filesystem::temp_directory_path(error) / "vexa-XXXXXX").string();
    const Descriptor file(::mkostemp(path.data(), O_CLOEXEC));
    if (file.Number() < 0) {
        FailAt("Making a file in the folder for temporary ones");
    }
    return path;
}

} // namespace

bool IsJetFile(const std::string& path)
{
    const Descriptor file(OpenPlain(path, O_RDONLY));
    struct stat status = {};
    if (file.Number() < 0 || ::fstat(file.Number(), &status) != 0 || !S_ISREG(status.st_mode)) {
        return false;
    }
    std::array<char, kEngines.front().size()> name{};
    const bool read =
        ::pread(file.Number(), name.data(), name.size(), kEnginePlace) == static_cast<ssize_t>(name.size());
    const std::string_view engine(name.data(), name.size());
    return read && (engine == kEngines[0] || engine == kEngines[1]);
}

std::unique_ptr<Database> ReadJetFile(const std::string& path)
{
    const Descriptor file(OpenPlain(path, O_RDONLY));
    if (file.Number() < 0) {
        FailAt("Opening " + path);
    }
    const std::string temporary = MakeTemporaryFile();
    try {
        auto database = std::make_unique<Database>(temporary, Database::Mode::Importing);
        ::unlink(temporary.c_str()); // the database keeps it for as long as it lives
        ReadJetTables(file.Number(), *database);
        return database;
    } catch (...) {
        ::unlink(temporary.c_str());
        throw;
    }
}

} // namespace platform
