#pragma once

#include <string>

namespace platform {

bool FileExists(const std::string& path);
/// Whether a folder can be listed; `error` becomes the system's error number, 0 for none.
bool FolderCanBeListed(const std::string& folder, int& error);
/// Whether both paths lead to one file that exists (through links, "..", another spelling).
bool IsSameFile(const std::string& a, const std::string& b);
/// The whole path of a file, which need not exist, as the running program sees it.
std::string FullPath(const std::string& path);

/// Copies through a temporary file beside the target that is synced and then takes its name, so that a
/// failed copy leaves an existing target whole. Returns the cause of a failure, empty for success.
std::string CopyWhole(const std::string& source, const std::string& target);
/// Appends text to a file, opened and closed for it; false when it cannot be written.
bool AppendText(const std::string& path, const std::string& text);
/// Writes a file anew; false when it cannot be written.
bool WriteText(const std::string& path, const std::string& text);

} // namespace platform
