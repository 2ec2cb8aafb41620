#pragma once

#include "platform/base/Errors.h"
#include "platform/base/Numbers.h"

#include <cstddef>
#include <string_view>

/// The place from 0 of row `number` (from 1) of a fixed list of `count` rows; throws OutOfBounds.
inline std::size_t FixedRow(Long number, Long count, std::string_view what)
{
    if (number < 1 || number > count) {
        throw platform::OutOfBounds(what, number);
    }
    return static_cast<std::size_t>(number) - 1;
}
