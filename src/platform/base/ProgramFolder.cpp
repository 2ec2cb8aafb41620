#include "platform/base/ProgramFolder.h"

#include "platform/base/Files.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace platform {

namespace fs = std::filesystem;

namespace {

constexpr const char* kTemplate = "QEL.new";
constexpr const char* kHelp = "VEXAPlus.hlp";

std::string& Settled()
{
    static std::string folder;
    return folder;
}

std::string Environment(const char* name)
{
    const char* value = std::getenv(name);
    return value == nullptr ? "" : value;
}

fs::path ExecutableFolder()
{
    std::error_code error;
    return fs::read_symlink("/proc/self/exe", error).parent_path();
}

fs::path UserFolder()
{
    const std::string data = Environment("XDG_DATA_HOME");
    return (data.empty() ? fs::path(Environment("HOME")) / ".local/share" : fs::path(data)) / "vexa";
}

/// Copies what the installed share folder holds and the user's folder lacks; what fails is missed later, by
/// name.
void Fill(const fs::path& folder, const fs::path& share)
{
    std::error_code error;
    fs::create_directories(folder / "VEXAData", error);
    fs::create_directories(folder / "docs", error);
    fs::copy(share, folder, fs::copy_options::recursive | fs::copy_options::skip_existing, error);
}

/// The help is the program's, not the user's: after an update the new one takes the place of the copy.
void RefreshHelp(const fs::path& folder, const fs::path& share)
{
    std::error_code error; // of a file that is not there, which is the oldest
    const auto installed = fs::last_write_time(share / kHelp, error);
    if (installed > fs::last_write_time(folder / kHelp, error)) {
        CopyWhole((share / kHelp).string(), (folder / kHelp).string());
    }
}

fs::path Find()
{
    if (const std::string home = Environment("VEXA_HOME"); !home.empty()) {
        return home;
    }
    std::error_code error;
    const fs::path executable = ExecutableFolder();
    if (fs::exists(executable / kTemplate, error)) {
        return executable;
    }
    const fs::path user = UserFolder();
    const fs::path share = executable.parent_path() / "share/vexa";
    if (!fs::exists(user / kTemplate, error)) {
        Fill(user, share);
    }
    RefreshHelp(user, share);
    return user;
}

} // namespace

std::string ProgramFolder()
{
    if (Settled().empty()) {
        fs::path folder = Find();
        Settled() = folder.has_filename() ? folder.string() : folder.parent_path().string();
    }
    return Settled();
}

void SetProgramFolder(const std::string& folder) { Settled() = folder; }

std::string InProgramFolder(const std::string& name) { return ProgramFolder() + "/" + name; }

} // namespace platform
