#pragma once

namespace u16Convert4 {

// The steps that bring tables to their new columns. Each throws DatabaseError, and Overflow for a figure that
// does not fit.

/// Outcomes gets a key of its own, made of the alternative's key and the outcome's number, and drops what is
/// computed now. A final cost that is neither the size's nor the resources' becomes the adjusted cost.
void ConvertOutcomesTable();
/// SRMasterList becomes SRTypes.
void ConvertSRTypesTable();
/// SuppressionResources becomes SRUses, its rows numbered from 1.
void ConvertSRUsesTable();
/// ListedItemImpacts becomes ItemImpacts: a gain there is a negative loss here.
void ConvertItemImpactsTable();
/// Explanations become rich texts, and the safety row is cut loose from the tree.
void ConvertObjectivesTable();
/// Scores get their notes.
void ConvertRatingsTable();

} // namespace u16Convert4
