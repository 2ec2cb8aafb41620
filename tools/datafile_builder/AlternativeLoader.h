#pragma once

#include "datafile_builder/DatafileWriter.h"
#include "datafile_builder/FireKeys.h"
#include "datafile_builder/SourceObject.h"

namespace datafile_builder {

/// Adds an alternative with its Target and Fallback rows and fills the outcomes that the source has; the
/// others stay as new ones are. Throws BuildError.
void WriteAlternative(DatafileWriter& writer, const SourceObject& alternative, FireKeys& keys);

/// Writes an outcome's columns, ratings and resource list into its row. Throws BuildError.
void FillOutcome(DatafileWriter& writer, const SourceObject& outcome, Long key, const FireKeys& keys);

} // namespace datafile_builder
