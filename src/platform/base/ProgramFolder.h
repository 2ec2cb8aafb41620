#pragma once

#include <string>

namespace platform {

/// The folder that holds the template, the logs, the help file and the user's data folders, without a
/// trailing separator: VEXA_HOME where it is set; else the executable's folder where "QEL.new" stands in it;
/// else the user's own data folder, filled on first use from the installed share folder, whose help also
/// replaces an older copy later on.
std::string ProgramFolder();
/// Settles the folder for the rest of the process (tests; an empty text asks the rule above again).
void SetProgramFolder(const std::string& folder);
/// A name in the program folder.
std::string InProgramFolder(const std::string& name);

} // namespace platform
