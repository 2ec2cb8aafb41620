#pragma once

#include <string>
#include <string_view>

/// Named texts of the open file, in its table Properties. Names are of either case. All throw DatabaseError.
namespace u14Properties {

/// The value; the empty text if there is no such row.
std::string Property_Get(std::string_view name);
/// The stored value (also an empty one); without a row, adds one with the default and returns the default.
std::string Property_GetOrAdd(std::string_view name, const std::string& preset);
/// Writes the value where it differs. With no file open it only writes an error to the logs, save for
/// "ProgramID".
void Property_Set(std::string_view name, const std::string& value);

/// Counts up whenever a property may have changed (a write, a close): what was read before is then stale.
unsigned long PropertiesVersion();
/// For u11Datafile: the file was closed or opened.
void PropertiesReplaced();

} // namespace u14Properties
