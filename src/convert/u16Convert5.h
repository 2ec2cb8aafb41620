#pragma once

#include <string>

/// The road of files of format "04.01.01" to "05.01.02".
namespace u16Convert5 {

/// The one question for all files older than "05.01.02"; true on OK. Throws DatabaseError.
bool QueryConvertTo5();
/// Brings the file that is being opened, of format "04.01.01", to "05.01.02". Throws DatabaseError, with the
/// steps before the failure made.
void Convert41to5();
/// A plain text as a rich one. Blanks at its end go; each line break becomes a paragraph's end.
std::string PlainToRichText(std::string text);

} // namespace u16Convert5
