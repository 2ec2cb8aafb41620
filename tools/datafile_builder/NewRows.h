#pragma once

#include "datafile_builder/DatafileWriter.h"

#include <optional>
#include <string>

namespace datafile_builder {

// Rows as the program itself writes them when a user adds something.

/// Adds an item behind the others of a group, with the next key and the default body; returns the key.
Long AddItem(DatafileWriter& writer, const std::string& name, Long group);

/// Adds an outcome with the next key: a Target at 100 percent, a Fallback that is not shown. Returns the key.
/// `fuelSource` is the outcome from which AddBurnArea takes the mix.
Long AddOutcome(DatafileWriter& writer, Long alternative, Long index, std::optional<Long> fuelSource);

/// Adds the burn area of an outcome in land unit 0: portion 50 and the mix of intensity levels of `source`,
/// the first alternative's Target; with no alternative yet, level 4 alone.
void AddBurnArea(DatafileWriter& writer, Long outcome, std::optional<Long> source);

/// Adds a safety issue at the end of the chain under row 2 and returns its key.
Long AddSafetyIssue(DatafileWriter& writer,
                    const std::string& name,
                    const std::string& explanation,
                    Long priority);

/// Sets a named value, whether the file has it yet or not.
void SetProperty(DatafileWriter& writer, const std::string& name, const std::string& value);

} // namespace datafile_builder
