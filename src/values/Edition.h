#pragma once

#include "session/SessionState.h"

#include <string_view>

/// The system's editions. The sibling editions keep their branches of the threatened items.
enum class Edition : unsigned char { Basic, Standard, Advanced };

/// Any other name is Basic.
constexpr Edition EditionNamed(std::string_view name)
{
    return name == "Standard" ? Edition::Standard : name == "Advanced" ? Edition::Advanced : Edition::Basic;
}

/// This one.
inline constexpr Edition kEdition = EditionNamed(EditionName);
