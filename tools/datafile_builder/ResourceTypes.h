#pragma once

#include "datafile_builder/DatafileWriter.h"
#include "datafile_builder/SourceObject.h"

namespace datafile_builder {

/// Adds a suppression resource at a position of the list. Throws BuildError for a unit type other than "time"
/// and "item" and for a short name that the list has already.
void AddResourceType(DatafileWriter& writer, const SourceObject& type, Long position);

} // namespace datafile_builder
