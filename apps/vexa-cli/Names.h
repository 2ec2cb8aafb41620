#pragma once

#include <string_view>

namespace vexa_cli {

/// Whether two names of tables or columns are one to the engine: letters of either case.
bool SameName(std::string_view a, std::string_view b);
/// Whether the first name comes earlier in a list, letters of either case alike.
bool NameBefore(std::string_view a, std::string_view b);

} // namespace vexa_cli
