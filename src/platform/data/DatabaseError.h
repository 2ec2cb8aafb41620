#pragma once

#include "platform/base/Errors.h"

#include <string>

namespace platform {

/// A fault of the engine or of the file it holds: its code is SQLite's (extended) result code.
class DatabaseError : public Error
{
public:
    DatabaseError(int code, const std::string& message) : Error(code, message) {}
    /// Whether the file as a whole is damaged or out of reach, so that nothing more can be said of it.
    bool FileIsLost() const;
    /// Whether another program has the file open, or it may not be written.
    bool FileIsKept() const;
};

} // namespace platform
