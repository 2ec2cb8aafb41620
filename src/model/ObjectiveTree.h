#pragma once

#include "model/c41Objective.h"
#include "platform/base/Collection.h"
#include "platform/base/Numbers.h"
#include "platform/data/Recordset.h"

#include <functional>
#include <memory>

/// The links between the rows of Objectives: first child, next sibling. They may come from a stranger's file,
/// so none of these trusts that they end. All throw DatabaseError.
namespace ObjectiveTree {

/// The row and all below it, depth first, children in the order of their chain. A link to a row that is not
/// there gives an object without texts. Throws DuplicateMember for a key met twice. `name` as in Collection.
platform::Collection<std::shared_ptr<c41Objective>> Load(Long rootKey, const char* name);

/// Walks a chain of siblings from its first row on and leaves the cursor on the row whose SiblingKey is
/// wanted; false when the chain ends (a key below 1) or runs in a circle.
bool FindInChain(platform::Recordset& rows,
                 Long firstKey,
                 const std::function<bool(Long siblingKey)>& wanted);

/// Writes one link into the current row.
void SetLink(platform::Recordset& rows, const char* column, Long key);

} // namespace ObjectiveTree
