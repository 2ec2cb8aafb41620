#pragma once

#include "platform/base/Errors.h"

#include <string>

namespace platform {

/// A fault of the engine or of the file it holds: its code is SQLite's (extended) result code.
class DatabaseError : public Error
{
public:
    DatabaseError(int code, const std::string& message) : Error(code, message) {}
};

} // namespace platform
