#pragma once

#include "model/c41Objective.h"
#include "platform/base/Collection.h"
#include "platform/base/Numbers.h"

#include <memory>
#include <string>

/// The safety tree: its root and the safety issues of this fire, loaded on first use. All throw
/// DatabaseError, and DuplicateMember for a file whose links run in a circle.
namespace g42SafetyIssues {

using SafetyIssues = platform::Collection<std::shared_ptr<c41Objective>>;

/// The root, then the issues in chain order.
const SafetyIssues& SafetyIssueCollection();
/// Throws MissingMember.
std::shared_ptr<c41Objective> SafetyIssue(Long key);
/// The sum of Priority over the issues. Throws Overflow.
Long TotalSafetyPriority();
Long SafetyIssueCount();
/// Drops the tree; the next use reads the file again.
void ResetSafetyIssues();
/// Adds a row at the end of the parent's chain and its object; the name reaches the row with SaveChanges.
std::shared_ptr<c41Objective> NewSafetyIssue(const std::string& name, Long parentKey);
/// Deletes the row and its ratings, and drops the alternatives, whose ratings would ask for its weight.
/// Throws MissingMember.
void DeleteSafetyIssue(Long key);

} // namespace g42SafetyIssues
