#pragma once

#include "platform/richtext/Picture.h"

#include <string>

namespace platform::richtext {

/// Adds a picture as it came, byte for byte in hexadecimal digits, with its sizes and scales. A bitmap goes
/// without its file header, which RTF does not want.
void AppendPicture(std::string& rtf, const Picture& picture);

} // namespace platform::richtext
