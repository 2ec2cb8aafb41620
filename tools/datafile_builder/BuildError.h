#pragma once

#include <stdexcept>
#include <string>

namespace datafile_builder {

/// A source that cannot become a data file. The message says where in the source and why.
class BuildError : public std::runtime_error
{
public:
    explicit BuildError(const std::string& message) : std::runtime_error(message) {}
};

} // namespace datafile_builder
