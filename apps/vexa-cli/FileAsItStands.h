#pragma once

#include "platform/data/Database.h"

#include <memory>
#include <string>

namespace vexa_cli {

/// A file of any format and either engine for reading alone, not a byte of it changed. Throws platform::Error
/// when it is no database.
std::unique_ptr<platform::Database> OpenAsItStands(const std::string& path);

} // namespace vexa_cli
