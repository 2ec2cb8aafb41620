#pragma once

#include "platform/base/Numbers.h"

#include <cstdint>
#include <optional>
#include <string>

namespace platform::richtext {

/// A colour as 0xRRGGBB; nothing is the automatic colour: the window's text, or no background.
using Color = std::optional<std::uint32_t>;

enum class Underline : std::uint8_t {
    None,
    Single,
    Double,
    Dotted,
    Dash,
    DashDot,
    DashDotDot,
    Wave,
    Words, // single, blanks left out
    Thick
};

enum class Capitals : std::uint8_t {
    AsTyped,
    All,  // shown as capitals
    Small // small letters shown as small capitals
};

enum class VerticalPosition : std::uint8_t { Normal, Superscript, Subscript };

/// The look of characters. The default is that of an empty body: Arial, 10 point.
struct CharacterFormat
{
    std::string font = "Arial"; // the family asked for, not the one found
    Long halfPoints = 20;       // the size in half-points, 2 to 3276
    bool bold = false;
    bool italic = false;
    bool strike = false;
    Underline underline = Underline::None;
    Capitals capitals = Capitals::AsTyped;
    VerticalPosition position = VerticalPosition::Normal;
    Color color;      // of the text
    Color background; // behind the text
    /// Empty: no link. An http, https or mailto address, which a click follows; or "#" and the name of a
    /// place in the text that it came from, which nothing follows.
    std::string href;

    friend bool operator==(const CharacterFormat&, const CharacterFormat&) = default;
};

} // namespace platform::richtext
