#pragma once

#include "platform/base/Numbers.h"

#include <string>

/// The lower bound (acres) of the size class behind the one that ends at this upper bound, as a text; empty
/// where there is none behind it.
std::string FromBound(Single top);
