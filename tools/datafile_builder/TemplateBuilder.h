#pragma once

#include "datafile_builder/DatafileWriter.h"
#include "datafile_builder/SourceObject.h"

namespace datafile_builder {

/// Writes the standard rows of a new data file into empty tables. The source's members bear the names of
/// tables and columns; `Groups` are rows of Items that hold no topic. A topic's heading is its name where
/// none is given. Throws BuildError.
void WriteTemplate(DatafileWriter& writer, const SourceObject& content);

} // namespace datafile_builder
