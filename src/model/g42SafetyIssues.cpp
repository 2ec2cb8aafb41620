#include "model/g42SafetyIssues.h"

#include "model/ObjectiveTree.h"
#include "model/g41Objectives.h"
#include "model/g51Alternatives.h"
#include "session/c0Item.h"
#include "session/u91Trace.h"

#include <optional>

namespace g42SafetyIssues {

namespace {

std::optional<SafetyIssues> g_safetyIssues;

void GetSafetyIssues()
{
    u91Trace::Trace("SafetyIssues.GetSafetyIssues");
    g_safetyIssues.emplace(ObjectiveTree::Load(c41Objective::kSafetyRootKey, "safety issues"));
}

SafetyIssues& EnsureSafetyIssues()
{
    if (!g_safetyIssues) {
        GetSafetyIssues();
    }
    return *g_safetyIssues;
}

} // namespace

const SafetyIssues& SafetyIssueCollection() { return EnsureSafetyIssues(); }

std::shared_ptr<c41Objective> SafetyIssue(Long key) { return EnsureSafetyIssues().Member(key); }

Long TotalSafetyPriority()
{
    Long total = 0;
    for (const auto& issue : EnsureSafetyIssues()) {
        total = issue->bSafetyIssue() ? platform::Add(total, issue->Priority()) : total;
    }
    return total;
}

Long SafetyIssueCount()
{
    Long count = 0;
    for (const auto& issue : EnsureSafetyIssues()) {
        count += issue->bSafetyIssue() ? 1 : 0;
    }
    return count;
}

void ResetSafetyIssues() { g_safetyIssues.reset(); }

std::shared_ptr<c41Objective> NewSafetyIssue(const std::string& name, Long parentKey)
{
    EnsureSafetyIssues(); // before the row is there, so that it is not loaded with it
    const Long key = g41Objectives::NewObjectiveKey(parentKey);
    auto issue = std::make_shared<c41Objective>();
    issue->Initialize(key, "", kDefaultBody, g41Objectives::NewPriority(parentKey), parentKey);
    issue->SetItemName(name); // the row has no name yet: its first save writes it
    return EnsureSafetyIssues().Add(key, issue);
}

void DeleteSafetyIssue(Long key)
{
    SafetyIssue(key)->Delete();
    EnsureSafetyIssues().Remove(key);
    g51Alternatives::ResetAlternatives();
}

} // namespace g42SafetyIssues
