#include "program/Programs.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <spawn.h>
#include <stdexcept>
#include <thread>
#include <utility>

namespace programs {

namespace {

constexpr const char* kWords = "words";
constexpr const char* kResults = "results";

std::vector<char*> Pointers(std::vector<std::string>& texts)
{
    std::vector<char*> pointers;
    for (std::string& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

/// What the programs go by is theirs alone; the rest is handed on.
std::vector<std::string> Environment(const std::string& home)
{
    std::vector<std::string> settings = {"VEXA_HOME=" + home,
                                         "HOME=" + home,
                                         "XDG_DATA_HOME=" + home + "/data",
                                         "XDG_CONFIG_HOME=" + home + "/config",
                                         "QT_QPA_PLATFORM=offscreen"};
    const auto isOurs = [&](std::string_view setting) {
        for (const std::string& known : settings) {
            if (setting.starts_with(known.substr(0, known.find('=') + 1))) return true;
        }
        return false;
    };
    for (char** setting = environ; *setting != nullptr; ++setting) {
        if (!isOurs(*setting)) settings.emplace_back(*setting);
    }
    return settings;
}

} // namespace

Running::Running(const std::string& program,
                 const std::vector<std::string>& arguments,
                 const std::string& home,
                 const std::string& words)
{
    std::vector<std::string> line = {program};
    line.insert(line.end(), arguments.begin(), arguments.end());
    std::vector<std::string> settings = Environment(home);
    posix_spawn_file_actions_t actions = {};
    posix_spawn_file_actions_init(&actions);
    constexpr int kNew = O_WRONLY | O_CREAT | O_TRUNC;
    const std::string results = std::filesystem::path(words).replace_filename(kResults).string();
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, results.c_str(), kNew, 0600);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, words.c_str(), kNew, 0600);
    const int error = ::posix_spawn(
        &m_process, program.c_str(), &actions, nullptr, Pointers(line).data(), Pointers(settings).data());
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0) throw std::runtime_error(program + " cannot be started");
}

Running::~Running()
{
    Kill();
    Wait();
}

bool Running::IsRunning()
{
    if (!m_ended && ::waitpid(m_process, &m_status, WNOHANG) == m_process) m_ended = true;
    return !m_ended;
}

void Running::Kill()
{
    if (!m_ended) ::kill(m_process, SIGKILL);
}

int Running::Wait()
{
    if (!std::exchange(m_ended, true)) ::waitpid(m_process, &m_status, 0);
    return WIFSIGNALED(m_status) ? -WTERMSIG(m_status) : WEXITSTATUS(m_status);
}

Ground::Ground()
{
    support::CopyFile(support::BuiltFile("QEL.new"), File("QEL.new"));
    std::filesystem::create_directory(File("VEXAData"));
}

std::string Ground::CopySample(const std::string& name) const
{
    const std::string copy = File("VEXAData/" + name + ".qel");
    support::CopyFile(support::BuiltFile("samples/" + name + ".qel"), copy);
    return copy;
}

Running Ground::Start(const std::string& program, const std::vector<std::string>& arguments) const
{
    return Running(support::BuiltFile(program), arguments, m_folder.Path(), File(kWords));
}

Ended Ground::RunCompanion(const std::vector<std::string>& arguments) const
{
    const std::string folder = File("companion");
    std::filesystem::create_directories(folder);
    Running companion(support::BuiltFile("vexa-cli"), arguments, m_folder.Path(), folder + "/" + kWords);
    const int status = companion.Wait();
    return {status, support::ReadFile(folder + "/" + kResults), support::ReadFile(folder + "/" + kWords)};
}

void Pause(int milliseconds) { std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds)); }

} // namespace programs
