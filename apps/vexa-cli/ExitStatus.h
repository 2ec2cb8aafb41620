#pragma once

namespace vexa_cli {

/// How the process ends.
enum class ExitStatus : int {
    Done = 0,      // also when `check` found something: finding it is what was asked
    Failed = 1,    // the file could not be opened, read or written
    Usage = 2,     // the command line is wrong
    Cancelled = 3, // a question was answered Cancel or No
};

} // namespace vexa_cli
