#pragma once

#include <stdexcept>
#include <string>

namespace vexa_jet {

/// Why the database cannot be read, in words for a log.
class Failure : public std::runtime_error
{
public:
    explicit Failure(const std::string& what) : std::runtime_error(what) {}
};

} // namespace vexa_jet
