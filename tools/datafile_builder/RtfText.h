#pragma once

#include <string>
#include <string_view>

namespace datafile_builder {

/// A text as RTF characters, ASCII alone: backslashes and braces escaped, tabs as \tab, the upper half of
/// Latin-1 as
/// \'e9, all else by \u numbers without a fallback, two of them where a character needs a surrogate pair.
/// Throws BuildError for other control characters and for bytes that are no UTF-8.
std::string RtfText(std::string_view text);

} // namespace datafile_builder
