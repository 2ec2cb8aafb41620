#pragma once

/// The road of files of format "04.01.01" to "05.01.02".
namespace u16Convert5 {

/// The one question for all files older than "05.01.02"; true on OK. Throws DatabaseError.
bool QueryConvertTo5();

} // namespace u16Convert5
