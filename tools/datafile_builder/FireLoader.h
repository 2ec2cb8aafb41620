#pragma once

#include "datafile_builder/DatafileWriter.h"
#include "datafile_builder/SourceObject.h"

namespace datafile_builder {

/// Writes a fire into a fresh copy of the template, so that the file is as if someone had typed the fire in.
/// A member that the source leaves out leaves what the template or a new row has. resources/samples/README.md
/// tells the shape of the source. Throws BuildError.
void WriteFire(DatafileWriter& writer, const SourceObject& fire);

} // namespace datafile_builder
