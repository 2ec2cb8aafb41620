#pragma once

#include <string>
#include <string_view>

/// Whether a file of a certain edition may be opened in this one. A file without a clear mark gets one here.
/// All throw DatabaseError.
namespace EditionCheck {

/// The check of the edition that is running; any other than the three passes.
bool CheckMode(std::string_view edition, const std::string& programID);
/// A file without a clear mark counts as Standard as soon as it holds land units; even an Advanced one is
/// then rewritten before it is refused.
bool CheckBasicMode(const std::string& programID);
/// The sibling editions' checks, for completeness of the format.
bool CheckStandardMode(const std::string& programID);
bool CheckAdvancedMode(const std::string& programID);

} // namespace EditionCheck
