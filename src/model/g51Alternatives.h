#pragma once

#include "model/c51Alternative.h"
#include "platform/base/Collection.h"
#include "platform/base/Numbers.h"
#include "platform/controls/ListContents.h"

#include <memory>
#include <string>

/// The alternatives in list order, loaded on first use, and which of them is selected. All throw
/// DatabaseError.
namespace g51Alternatives {

using Alternatives = platform::Collection<std::shared_ptr<c51Alternative>>;

const Alternatives& AlternativeCollection();
/// Throws MissingMember.
std::shared_ptr<c51Alternative> Alternative(Long key);
/// Nothing when none is selected; throws MissingMember when the file names one that is not there.
std::shared_ptr<c51Alternative> SelectedAlternative();
void SetSelectedAlternative(const c51Alternative& alternative);
/// 0 when none is selected.
Long SelectedAlternativeKey();
/// The first of those with the lowest expected cost; nothing with no alternatives. Throws what ExpectedCost
/// throws.
std::shared_ptr<c51Alternative> MostCostEffectiveAlternative();
/// Clears the list and adds each alternative's Label with its ItemKey.
void AddItem(platform::ListContents& list);
/// Saves the loaded alternatives, not their outcomes.
void SaveAlternatives();
/// Drops the alternatives and all below, and the shared Extreme outcome; the next use reads the file again.
void ResetAlternatives();
/// Adds an alternative with this letter and its outcomes, with all their rows.
std::shared_ptr<c51Alternative> NewAlternative(const std::string& label);
/// Throws MissingMember.
void DeleteAlternative(Long key);

} // namespace g51Alternatives
