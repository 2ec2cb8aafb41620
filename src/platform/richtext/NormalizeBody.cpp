#include "platform/richtext/NormalizeBody.h"

namespace platform::richtext {

std::string NormalizeBody(std::string rtf, std::string_view plainText)
{
    constexpr std::string_view wholeEnd = "\\par }";
    if (plainText.empty() || !rtf.ends_with('}') || rtf.ends_with(wholeEnd)) return rtf;
    rtf.pop_back();
    return rtf.append(wholeEnd);
}

} // namespace platform::richtext
