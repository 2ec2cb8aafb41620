#pragma once

#include "platform/data/Database.h"

#include <memory>
#include <string>

namespace platform {

/// Whether a file is a Jet database, of whatever version, by what it begins with.
bool IsJetFile(const std::string& path);

/// The tables of a Jet database for reading, in a database that goes when it is closed. Not a byte is
/// changed, nor anything written beside the file. Throws JetError and DatabaseError.
std::unique_ptr<Database> ReadJetFile(const std::string& path);

} // namespace platform
