#pragma once

#include "model/c41Objective.h"
#include "platform/base/Collection.h"
#include "platform/base/Numbers.h"

#include <memory>

/// The objective tree: root, categories and the objectives below them, loaded on first use. All throw
/// DatabaseError, and DuplicateMember for a file whose links run in a circle.
namespace g41Objectives {

using Objectives = platform::Collection<std::shared_ptr<c41Objective>>;

/// Depth first: the root, then each category followed by its objectives.
const Objectives& ObjectiveCollection();
/// A new collection of the rows directly below the root, in tree order.
Objectives GetCategoryCollection();
/// Throws MissingMember.
std::shared_ptr<c41Objective> Objective(Long key);
/// The sum of Priority over the rows below the category level. Throws Overflow.
Long TotalObjectivePriority();
/// How many rows there are below the category level.
Long ObjectiveCount();
/// Drops the tree; the next use reads the file again.
void ResetObjectives();

/// What a new row under this parent starts with; 0 where the table decides.
Long NewPriority(Long parentKey);
/// Appends a row with an empty description at the end of the parent's chain, in either tree; returns its key.
/// The caches are not touched.
Long NewObjectiveKey(Long parentKey);

} // namespace g41Objectives
