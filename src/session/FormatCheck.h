#pragma once

#include <string>

/// Which formats of the data file are known, and the road of each to the current one.
namespace FormatCheck {

/// Brings the file that is being opened to the current format. False when the user declined or the format is
/// refused (the message was shown). Throws DatabaseError.
bool BringToCurrent(const std::string& formatID);

} // namespace FormatCheck
