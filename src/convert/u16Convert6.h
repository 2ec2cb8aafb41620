#pragma once

/// The road of files of format "05.01.02" to the current one.
namespace u16Convert6 {

/// The question for a file that is exactly "05.01.02"; true on OK. Throws DatabaseError.
bool QueryConvertTo6();
/// Brings the file that is being opened, of format "05.01.02", to "06.01.01". Throws DatabaseError, with the
/// steps before the failure made.
void Convert5to6();

} // namespace u16Convert6
