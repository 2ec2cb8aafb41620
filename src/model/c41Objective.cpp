#include "model/c41Objective.h"

#include "model/ObjectiveTree.h"
#include "model/g41Objectives.h"
#include "model/g42SafetyIssues.h"
#include "model/g62Ratings.h"
#include "platform/base/Errors.h"
#include "platform/data/Schema.h"
#include "session/SessionState.h"
#include "session/u19RowData.h"
#include "session/u91Trace.h"

namespace {

/// The quotient in double, kept as a single.
Single Quotient(Double dividend, Long divisor)
{
    if (divisor == 0) {
        throw platform::DivisionByZero("weight of an objective");
    }
    return platform::ToSingle(dividend / Double(divisor));
}

} // namespace

bool c41Objective::bObjective() const
{
    return !bRoot() && !bCategory() && !bSafetyRoot() && !bSafetyIssue();
}

Single c41Objective::Weight() const { return CalculateWeight(); }

Long c41Objective::ChildrenPriorities() const { return SumChildrenPriorities(); }

void c41Objective::Initialize(
    Long key, const std::string& name, const std::string& description, Long priority, Long parentKey)
{
    m_itemKey = key;
    m_itemName = name;
    m_description = description;
    m_priority = priority;
    m_parentKey = parentKey;
}

void c41Objective::SaveChanges()
{
    if (!m_changed.IsSet()) {
        return;
    }
    platform::Recordset rows = OpenDatabase().OpenTable("Objectives");
    rows.Seek(m_itemKey);
    rows.Edit();
    rows.Set("Name", m_itemName);
    rows.Set("Explanation", Description());
    rows.Set("Priority", m_priority);
    rows.Update();
    m_changed.Clear();
}

void c41Objective::Delete()
{
    platform::Transaction together(OpenDatabase());
    UnlinkRow();
    DeleteRow();
    g62Ratings::DeleteCriterionRatings(m_itemKey);
    together.Commit();
}

platform::Collection<std::shared_ptr<c41Objective>> c41Objective::GetChildren() const
{
    // The objective tree alone is looked at, so a safety row has no children here.
    platform::Collection<std::shared_ptr<c41Objective>> children("children of an objective");
    for (const auto& objective : g41Objectives::ObjectiveCollection()) {
        if (objective->ParentKey() == m_itemKey) {
            children.Add(objective->ItemKey(), objective);
        }
    }
    return children;
}

Single c41Objective::CalculateWeight() const
{
    if (bRoot() || bSafetyRoot()) {
        return 1.0F;
    }
    const Long total =
        bSafetyIssue() ? g42SafetyIssues::TotalSafetyPriority() : g41Objectives::TotalObjectivePriority();
    if (total != 0) {
        return Quotient(Double(m_priority), total);
    }
    return Quotient(1.0,
                    bSafetyIssue() ? g42SafetyIssues::SafetyIssueCount() : g41Objectives::ObjectiveCount());
}

Long c41Objective::SumChildrenPriorities() const
{
    Long sum = 0;
    for (const auto& child : GetChildren()) {
        sum = platform::Add(sum, child->Priority());
    }
    return sum;
}

void c41Objective::UnlinkRow() const
{
    platform::Recordset rows = OpenDatabase().OpenTable("Objectives");
    rows.Seek(m_itemKey);
    const Long follower = u19RowData::ReadLong(rows, "SiblingKey");
    rows.Seek(m_parentKey);
    const Long first = u19RowData::ReadLong(rows, "ChildKey");
    if (first == m_itemKey) {
        ObjectiveTree::SetLink(rows, "ChildKey", follower);
    } else if (ObjectiveTree::FindInChain(rows, first, [this](Long key) { return key == m_itemKey; })) {
        ObjectiveTree::SetLink(rows, "SiblingKey", follower);
    } else {
        u91Trace::TraceError("ChildLink between " + std::to_string(m_parentKey) + " and " +
                             std::to_string(m_itemKey) + " not found");
    }
}

void c41Objective::DeleteRow() const
{
    platform::Recordset rows = OpenDatabase().OpenTable("Objectives");
    rows.Seek(m_itemKey);
    rows.Delete();
}
