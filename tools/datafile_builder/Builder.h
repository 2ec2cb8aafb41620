#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace datafile_builder {

/// The program without its process: builds the file that the arguments name, or tells on `errors` why not.
///   template SCHEMA CONTENT OUTPUT   an empty data file from the tables' SQL and the standard rows
///   fire TEMPLATE FIRE OUTPUT        a copy of the template with a fire in it
/// Returns the exit code: 0 built, 1 not built, and then OUTPUT is what it was before.
int RunBuilder(const std::vector<std::string>& arguments, std::ostream& errors);

} // namespace datafile_builder
