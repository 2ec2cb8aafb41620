#include "platform/data/FileGuard.h"

#include "platform/data/DatabaseError.h"

#include <fcntl.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <set>

namespace platform {

namespace {

using Identity = std::pair<dev_t, ino_t>;

/// The files that this process guards: they are not even opened a second time. Never destroyed, since the
/// session's database may be closed as the last thing of all.
std::set<Identity>& Guarded()
{
    static auto* const guarded = new std::set<Identity>;
    return *guarded;
}

[[noreturn]] void ThrowLocked(const std::string& path)
{
    throw DatabaseError(SQLITE_BUSY, "Opening " + path + ": database is locked");
}

/// A byte that the engine's locks, from 2^30 on, leave alone.
struct flock TheByte(short type)
{
    constexpr off_t kPlace = (off_t{1} << 30) + 4096;
    struct flock byte = {};
    byte.l_type = type;
    byte.l_whence = SEEK_SET;
    byte.l_start = kPlace;
    byte.l_len = 1;
    return byte;
}

/// Opens a plain file that this process does not guard; -1 where that cannot be.
int OpenUnguarded(const std::string& path, int access, Identity& identity)
{
    struct stat status = {};
    if (::stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) {
        return -1;
    }
    identity = {status.st_dev, status.st_ino};
    if (Guarded().contains(identity)) {
        ThrowLocked(path);
    }
    return ::open(path.c_str(), access | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
}

} // namespace

FileGuard::FileGuard(const std::string& path) : m_file(OpenUnguarded(path, O_RDWR, m_identity))
{
    struct flock byte = TheByte(F_WRLCK);
    if (m_file < 0) {
        return;
    }
    if (::fcntl(m_file, F_OFD_SETLK, &byte) != 0 && (errno == EAGAIN || errno == EACCES)) {
        ::close(m_file);
        ThrowLocked(path);
    }
    Guarded().insert(m_identity);
}

FileGuard::~FileGuard()
{
    if (m_file >= 0) {
        Guarded().erase(m_identity);
        ::close(m_file);
    }
}

void FileGuard::RequireNone(const std::string& path)
{
    Identity identity;
    const int file = OpenUnguarded(path, O_RDONLY, identity);
    if (file < 0) {
        return;
    }
    struct flock byte = TheByte(F_RDLCK);
    const bool isGuarded = ::fcntl(file, F_OFD_GETLK, &byte) == 0 && byte.l_type != F_UNLCK;
    ::close(file);
    if (isGuarded) {
        ThrowLocked(path);
    }
}

} // namespace platform
