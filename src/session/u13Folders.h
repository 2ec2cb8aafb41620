#pragma once

#include <string>

namespace u13Folders {

/// "VEXAData" or "DATA99" in the program folder, the first that can be listed; else the program folder, with
/// a warning in the log. Without a trailing separator.
std::string GetDataFolder();
/// What stands behind the last separator; "\" and "/" both part.
std::string FileNameOf(const std::string& path);

} // namespace u13Folders
