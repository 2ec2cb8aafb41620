#pragma once

#include <string>
#include <string_view>

namespace platform::richtext {

/// The repair that every editor of a body makes at a change: when there is text, a rich text that ends in "}"
/// but not in "\par }" gets that end in place of its last brace. Without it a body ending in a line with no
/// paragraph mark loses that line's look in the report. Anything else comes back as it is; so does whatever
/// WriteRtf wrote.
std::string NormalizeBody(std::string rtf, std::string_view plainText);

} // namespace platform::richtext
