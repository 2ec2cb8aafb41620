#include "platform/print/PrintSettings.h"

#include <algorithm>
#include <cmath>

namespace platform::print {

richtext::CharacterFormat PrintFont::Look() const
{
    constexpr Long smallest = 2;
    constexpr Long greatest = 3276;
    richtext::CharacterFormat look;
    look.font = family;
    look.halfPoints = std::clamp(ToLong(std::round(2.0 * size)), smallest, greatest);
    look.bold = bold;
    look.italic = italic;
    return look;
}

} // namespace platform::print
