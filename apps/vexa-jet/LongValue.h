#pragma once

#include "vexa-jet/Library.h"

#include <string>
#include <string_view>

namespace vexa_jet {

/// The bytes of a long text or picture, of which the row holds only where they are. Uses the library's second
/// page buffer. Throws Failure for one that is not whole.
std::string ReadLongValue(MdbHandle& database, std::string_view field);

} // namespace vexa_jet
