#include "platform/base/Files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <utility>

namespace platform {

namespace fs = std::filesystem;

namespace {

/// A file descriptor that closes itself.
class Descriptor
{
public:
    explicit Descriptor(int number) : m_number(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() { Close(); }
    bool IsOpen() const { return m_number >= 0; }
    int Number() const { return m_number; }
    bool Close()
    {
        const int number = std::exchange(m_number, -1);
        return number < 0 || ::close(number) == 0;
    }

private:
    int m_number;
};

bool WriteAll(int descriptor, const char* data, std::size_t size)
{
    while (size > 0) {
        const ssize_t written = ::write(descriptor, data, size);
        if (written < 0 && errno == EINTR) {
            continue;
        }
        if (written <= 0) {
            return false;
        }
        data += written;
        size -= static_cast<std::size_t>(written);
    }
    return true;
}

bool Pump(int from, int to)
{
    constexpr std::size_t kChunk = 1 << 16;
    std::array<char, kChunk> buffer{};
    for (;;) {
        const ssize_t count = ::read(from, buffer.data(), buffer.size());
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count <= 0) {
            return count == 0;
        }
        if (!WriteAll(to, buffer.data(), static_cast<std::size_t>(count))) {
            return false;
        }
    }
}

std::string Cause() { return std::strerror(errno); }

void SyncFolderOf(const std::string& path)
{
    const fs::path folder = fs::path(path).parent_path();
    const Descriptor descriptor(
        ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor.IsOpen()) {
        ::fsync(descriptor.Number()); // a folder that cannot be synced is no reason to fail a finished copy
    }
}

/// The permissions a copy gets: the source's, writable by the owner.
mode_t CopyMode(int descriptor)
{
    struct stat status = {};
    constexpr mode_t kOwnerMayWrite = 0600;
    constexpr mode_t kPermissions = 0666;
    return ::fstat(descriptor, &status) == 0 ? (status.st_mode & kPermissions) | kOwnerMayWrite
                                             : kOwnerMayWrite;
}

bool Write(const std::string& path, const std::string& text, int flags)
{
    constexpr mode_t kUsual = 0666;
    Descriptor descriptor(::open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | flags, kUsual));
    return descriptor.IsOpen() && WriteAll(descriptor.Number(), text.data(), text.size()) &&
           descriptor.Close();
}

std::string CopyInto(const std::string& source, const std::string& temporary)
{
    const Descriptor from(::open(source.c_str(), O_RDONLY | O_CLOEXEC));
    if (!from.IsOpen()) {
        return Cause();
    }
    Descriptor to(
        ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, CopyMode(from.Number())));
    if (!to.IsOpen()) {
        return Cause();
    }
    const bool done = Pump(from.Number(), to.Number()) && ::fsync(to.Number()) == 0 && to.Close();
    return done ? std::string() : Cause();
}

} // namespace

bool FileExists(const std::string& path)
{
    std::error_code error;
    return fs::exists(path, error);
}

bool FolderCanBeListed(const std::string& folder, int& error)
{
    std::error_code cause;
    const fs::directory_iterator listing(folder, cause);
    error = cause.value();
    return !cause;
}

bool IsSameFile(const std::string& a, const std::string& b)
{
    std::error_code error;
    return fs::equivalent(a, b, error) && !error;
}

std::string FullPath(const std::string& path)
{
    std::error_code error;
    const fs::path full = fs::absolute(path, error);
    return error ? path : full.lexically_normal().string();
}

std::string CopyWhole(const std::string& source, const std::string& target)
{
    const std::string temporary = target + ".new~" + std::to_string(::getpid());
    std::string cause = CopyInto(source, temporary);
    if (cause.empty() && ::rename(temporary.c_str(), target.c_str()) != 0) {
        cause = Cause();
    }
    if (cause.empty()) {
        SyncFolderOf(target);
    } else {
        ::unlink(temporary.c_str());
    }
    return cause;
}

bool AppendText(const std::string& path, const std::string& text) { return Write(path, text, O_APPEND); }

bool WriteText(const std::string& path, const std::string& text) { return Write(path, text, O_TRUNC); }

} // namespace platform
