#pragma once

#include "platform/base/Numbers.h"

#include <optional>
#include <string_view>

/// The number of a typed or pasted text; nothing for a text that is none and for one beyond a single.
std::optional<Single> TypedNumber(std::string_view text);
