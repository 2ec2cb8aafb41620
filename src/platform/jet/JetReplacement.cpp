#include "platform/jet/JetReplacement.h"

#include "platform/jet/Descriptor.h"
#include "platform/jet/JetTables.h"

#include <sys/file.h>
#include <sys/stat.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <system_error>

namespace platform {

namespace fs = std::filesystem;

namespace {

constexpr int kMostKept = 1000;

std::string Canonical(const std::string& path)
{
    std::error_code error;
    const fs::path canonical = fs::canonical(path, error);
    if (error) {
        throw JetError("Opening " + path + ": " + error.message());
    }
    return canonical.string();
}

bool IsSameFile(const struct stat& a, const struct stat& b)
{
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

bool HasSameBytes(const std::string& a, const std::string& b)
{
    std::ifstream first(a, std::ios::binary);
    std::ifstream second(b, std::ios::binary);
    constexpr std::size_t kPiece = 1 << 16;
    std::array<char, kPiece> left{};
    std::array<char, kPiece> right{};
    while (first && second) {
        first.read(left.data(), kPiece);
        second.read(right.data(), kPiece);
        if (first.gcount() != second.gcount() ||
            std::memcmp(left.data(), right.data(), static_cast<std::size_t>(first.gcount())) != 0) {
            return false;
        }
    }
    return first.eof() && second.eof();
}

/// A process that was killed lets go of its lock at its end, which may be a moment later.
bool TakeLock(int file)
{
    constexpr int kTries = 50;
    constexpr useconds_t kMoment = 10000;
    for (int i = 0; i < kTries; ++i) {
        if (::flock(file, LOCK_EX | LOCK_NB) == 0) {
            return true;
        }
        ::usleep(kMoment);
    }
    return false;
}

/// The same file, opened anew, so that who is handed it does not hold its lock.
int OpenAgain(int file) { return OpenPlain("/proc/self/fd/" + std::to_string(file), O_RDONLY); }

std::string KeptName(const std::string& path, int number)
{
    return path + ".jet" + (number == 1 ? "" : std::to_string(number));
}

std::string UnfinishedCopy(const std::string& path) { return path + ".keep~"; }

void Sync(const std::string& path, int flags)
{
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | flags));
    if (file.Number() < 0 || (::fsync(file.Number()) != 0 && flags == 0)) {
        FailAt("Writing " + path + " to the disk");
    }
}

void SyncFolderOf(const std::string& path) { Sync(fs::path(path).parent_path().string(), O_DIRECTORY); }

/// For a file system without links, and so perhaps without order.
void CopyOriginal(const std::string& path, const std::string& kept)
{
    const std::string unfinished = UnfinishedCopy(path);
    std::error_code error;
    fs::remove(unfinished, error);
    if (!fs::copy_file(path, unfinished, error)) {
        throw JetError("Keeping " + path + ": " + error.message());
    }
    Sync(unfinished, 0);
    fs::rename(unfinished, kept, error);
    if (error) {
        throw JetError("Keeping " + path + ": " + error.message());
    }
    SyncFolderOf(kept);
}

} // namespace

JetReplacement::JetReplacement(const std::string& path)
    : m_path(Canonical(path)), m_newPath(m_path + ".import~")
{
    try {
        Lock(path);
        RemoveLeftovers();
        MakeNewFile();
        m_database = std::make_unique<Database>(m_newPath, Database::Mode::Importing);
        const Descriptor unlocked(OpenAgain(m_original));
        ReadJetTables(unlocked.Number(), *m_database);
    } catch (...) {
        m_database.reset();
        if (m_original >= 0) {
            ::unlink(m_newPath.c_str());
            ::close(m_original);
        }
        throw;
    }
}

JetReplacement::~JetReplacement()
{
    m_database.reset();
    ::unlink(m_newPath.c_str()); // not there any more once it has its name
    ::unlink(UnfinishedCopy(m_path).c_str());
    ::close(m_original);
}

/// Nobody else may take the file's place meanwhile, nor may this one when somebody just did. Leaves
/// m_original at -1 when it throws.
void JetReplacement::Lock(const std::string& path)
{
    const int file = OpenPlain(m_path, O_RDWR);
    if (file < 0) {
        FailAt("Opening " + path);
    }
    struct stat held = {};
    struct stat named = {};
    const bool mine = TakeLock(file) && ::fstat(file, &held) == 0 && ::stat(m_path.c_str(), &named) == 0 &&
                      IsSameFile(held, named);
    if (!mine) {
        ::close(file);
        throw JetError("Opening " + path + ": another program is working on it");
    }
    m_original = file;
}

/// What a killed process left: an unfinished database, and an original that was kept though the new database
/// never took its name.
void JetReplacement::RemoveLeftovers() const
{
    std::error_code error;
    const bool interrupted = fs::exists(m_newPath, error);
    for (int number = 1; number < kMostKept && fs::exists(KeptName(m_path, number), error); ++number) {
        if (IsSpare(KeptName(m_path, number), interrupted)) {
            fs::remove(KeptName(m_path, number), error);
        }
    }
    fs::remove(UnfinishedCopy(m_path), error);
    fs::remove(m_newPath, error); // the last one: it is what tells of the others
}

/// A kept file that is the named one itself. A copy counts only behind an interruption: anybody may have a
/// copy.
bool JetReplacement::IsSpare(const std::string& kept, bool interrupted) const
{
    struct stat original = {};
    struct stat other = {};
    if (::fstat(m_original, &original) != 0 || ::lstat(kept.c_str(), &other) != 0) {
        return false;
    }
    return IsSameFile(original, other) || (interrupted && HasSameBytes(m_path, kept));
}

void JetReplacement::MakeNewFile() const
{
    struct stat original = {};
    ::fstat(m_original, &original);
    constexpr mode_t kPermissions = 0666;
    constexpr mode_t kOwner = 0600;
    const Descriptor file(::open(m_newPath.c_str(),
                                 O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC,
                                 (original.st_mode & kPermissions) | kOwner));
    if (file.Number() < 0) {
        FailAt("Making " + m_newPath);
    }
}

/// The name under which the original stands now as well.
std::string JetReplacement::KeepOriginal() const
{
    for (int number = 1; number < kMostKept; ++number) {
        const std::string kept = KeptName(m_path, number);
        std::error_code error;
        if (fs::symlink_status(kept, error).type() != fs::file_type::not_found) {
            continue;
        }
        if (::link(m_path.c_str(), kept.c_str()) != 0) {
            CopyOriginal(m_path, kept);
        }
        return kept;
    }
    throw JetError("Too many originals are kept beside " + m_path);
}

void JetReplacement::SyncNewFile() const { Sync(m_newPath, 0); }

void JetReplacement::TakeName()
{
    m_database.reset();
    SyncNewFile();
    const std::string kept = KeepOriginal();
    // At once, so that a kill hardly ever finds both names: file systems with links keep the order of the
    // two.
    if (::rename(m_newPath.c_str(), m_path.c_str()) != 0) {
        const int error = errno;
        ::unlink(kept.c_str());
        errno = error;
        FailAt("Renaming " + m_newPath);
    }
    SyncFolderOf(m_path);
}

} // namespace platform
