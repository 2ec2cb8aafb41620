#pragma once

/// The road of files of format "05.01.02" to the current one.
namespace u16Convert6 {

/// The question for a file that is exactly "05.01.02"; true on OK. Throws DatabaseError.
bool QueryConvertTo6();

} // namespace u16Convert6
