#pragma once

#include "values/Edition.h"
#include "values/c36ThreatenedItem.h"
#include "values/c66ItemImpact.h"

#include <vector>

/// In the Basic edition an item's potential loss is not typed: it becomes the highest of its losses over all
/// outcomes, at least 0, at a probability of 100 percent. Other editions leave the item alone. Throws
/// Overflow.
void SetPotentialLossFromImpacts(c36ThreatenedItem& item,
                                 const std::vector<c66ItemImpact>& impacts,
                                 Edition edition = kEdition);
