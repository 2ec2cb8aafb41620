#include "worksheets/TypedNumber.h"

#include "platform/base/Errors.h"
#include "platform/base/Texts.h"

std::optional<Single> TypedNumber(std::string_view text)
{
    if (!platform::IsNumeric(text)) return std::nullopt;
    try {
        return platform::ToSingle(platform::NumberOf(text));
    } catch (const platform::Overflow&) {
        return std::nullopt;
    }
}
