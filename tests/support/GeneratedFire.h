#pragma once

#include <string>

/// Turns a copy of the template into a fire of this many alternatives, with 8 categories, 12 safety issues
/// and 100 threatened items, every rating and every loss filled in, and 6 resource lines an outcome.
void GenerateFire(const std::string& path, int alternatives);
