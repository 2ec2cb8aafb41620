#pragma once

#include "vexa-jet/Output.h"

#include <cstdint>

namespace vexa_jet {

/// Writes the tables of the Jet database on standard input, whose size is told. From its start on standard
/// error is a place in memory. Throws Failure for a database that is not whole; what was written until then
/// ends with a whole record.
void WriteTables(std::uint64_t fileSize, Output& output);

} // namespace vexa_jet
