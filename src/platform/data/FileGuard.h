#pragma once

#include <sys/types.h>

#include <string>
#include <utility>

namespace platform {

/// Keeps other programs of this house from a data file for as long as it lives. The engine's own locks do not
/// suffice: the system takes them away when anything in the process opens the file and closes it again, as a
/// file dialog does that looks for an icon. This one is not taken away. It must go after the engine's
/// connection, since its own going is such a closing.
///
/// Where the file system knows no such locks, and for a file that may not be written, it does nothing.
class FileGuard
{
public:
    /// Throws DatabaseError (SQLITE_BUSY) when the file is guarded already, by this process too.
    explicit FileGuard(const std::string& path);
    FileGuard(const FileGuard&) = delete;
    FileGuard& operator=(const FileGuard&) = delete;
    ~FileGuard();

    /// Throws DatabaseError (SQLITE_BUSY) when the file is guarded. No connection to it may be open here.
    static void RequireNone(const std::string& path);

private:
    int m_file = -1;
    std::pair<dev_t, ino_t> m_identity; // of the file, when it is guarded
};

} // namespace platform
