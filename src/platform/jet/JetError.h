#pragma once

#include "platform/base/Errors.h"

#include <string>

namespace platform {

/// A Jet database that cannot be read, or whose place cannot be taken.
class JetError : public Error
{
public:
    explicit JetError(const std::string& message) : Error(kNumber, message) {}

private:
    static constexpr int kNumber = 3343; // "unrecognized database format", as the older programs had it
};

} // namespace platform
