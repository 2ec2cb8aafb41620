#pragma once

#include "platform/base/Numbers.h"

#include <string>

/// The names of the resources of the value tables, 1 to 14, loaded on first use.
namespace g34NVCResources {

/// Empty where the file has no such row. Throws OutOfBounds, DatabaseError.
const std::string& NVCResourceName(Long index);
/// The next use reads the file again.
void ResetNVCResources();

} // namespace g34NVCResources
