#pragma once

#include <string>

/// Reads every cell of every row of a file through the bare engine, from open to close: the floor. Returns a
/// sum of what it read, so that nothing of it can be left out.
double BareRead(const std::string& path);
