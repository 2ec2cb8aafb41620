#pragma once

#include <string>
#include <vector>

/// The question that is asked before a file of an older format is converted.
namespace ConversionQuestion {

/// Asks with the given lines, between which and the common last lines stands the one on worst case data where
/// the file holds such. True on OK; Cancel is the default. Throws DatabaseError.
bool Ask(std::vector<std::string> losses, const std::string& saved);

} // namespace ConversionQuestion
