#pragma once

#include "platform/data/Database.h"

#include <string>

namespace vexa_cli {

/// A file of any format for reading alone, not a byte of it changed. Throws DatabaseError when it is no
/// database, and platform::Error for a Jet database.
platform::Database OpenAsItStands(const std::string& path);

} // namespace vexa_cli
