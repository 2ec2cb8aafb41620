#pragma once

#include "platform/base/Collection.h"
#include "platform/base/Numbers.h"
#include "values/c33FMU.h"

/// The land units of the file in key order, loaded on first use. A file without any works with one default
/// table of each kind, stored under land unit key 0. All throw DatabaseError.
namespace g33FMUs {

const platform::Collection<c33FMU>& FMUCollection();
Long FMUCount();
/// Throws MissingMember for an unknown key.
c33FMU& GetFMU(Long key);
/// The land unit's table; with no land units the default one, whatever the key is. Throws MissingMember.
c34NVCTable& GetNVCTable(Long key);
c35AACTable& GetAACTable(Long key);
/// Whether any land unit's table (or the default one) answers `bResourceValue`. Throws OutOfBounds.
bool bResourceValueAnywhere(Long resource);
/// Whether no resource has a value anywhere: then nothing is to be said of resource values.
bool bNoResourceValues();
/// Drops the land units and both default tables; the next use reads the file again.
void ReleaseFMUs();

} // namespace g33FMUs
