#pragma once

#include "platform/base/Numbers.h"

#include <string>
#include <string_view>

namespace platform::richtext::reader {

/// What a field's instruction comes to. Fields that would bring in a file or start a program come to nothing.
struct FieldInstruction
{
    std::string href;        // of a HYPERLINK that may be kept; else empty
    Long symbol = 0;         // the byte of a SYMBOL; else 0
    bool symbolFont = false; // it is one of the font "Symbol"
};

FieldInstruction ReadInstruction(std::string_view text);

/// Whether a link may be kept: http, https or mailto, or "#" and the name of a place in its own text; and no
/// control character in it.
bool IsHarmless(std::string_view address);

} // namespace platform::richtext::reader
