#include "model/g41Objectives.h"

#include "model/ObjectiveTree.h"
#include "platform/base/Errors.h"
#include "platform/data/Schema.h"
#include "session/SessionState.h"
#include "session/c0Item.h"
#include "session/u19RowData.h"
#include "session/u91Trace.h"

#include <optional>

namespace g41Objectives {

namespace {

constexpr Long kNewIssuePriority = 10;

std::optional<Objectives> g_objectives;

void GetObjectives()
{
    u91Trace::Trace("Objectives.GetObjectives");
    g_objectives.emplace(ObjectiveTree::Load(c41Objective::kRootKey, "objectives"));
}

bool BelowCategories(const c41Objective& objective) { return objective.ParentKey() > c41Objective::kRootKey; }

/// Adds the row itself, linked to its parent alone; the engine allots the key.
Long AddRow(platform::Recordset& rows, Long parentKey)
{
    rows.AddNew();
    rows.Set("ParentKey", parentKey);
    if (NewPriority(parentKey) != 0) {
        rows.Set("Priority", NewPriority(parentKey));
    }
    rows.Set("Explanation", std::string(kDefaultBody));
    rows.Update();
    rows.MoveLast();
    return u19RowData::ReadLong(rows, "Key");
}

void LinkBehindSiblings(platform::Recordset& rows, Long parentKey, Long key)
{
    rows.Seek(parentKey);
    const Long first = u19RowData::ReadLong(rows, "ChildKey");
    if (first < 1) {
        ObjectiveTree::SetLink(rows, "ChildKey", key);
        return;
    }
    if (!ObjectiveTree::FindInChain(rows, first, [](Long sibling) { return sibling <= 0; })) {
        throw platform::DuplicateMember("chain of siblings that begins with", first);
    }
    ObjectiveTree::SetLink(rows, "SiblingKey", key);
}

} // namespace

const Objectives& ObjectiveCollection()
{
    if (!g_objectives) {
        GetObjectives();
    }
    return *g_objectives;
}

Objectives GetCategoryCollection()
{
    u91Trace::Trace("Objectives.GetCategoryCollection");
    Objectives categories("objective categories");
    for (const auto& objective : ObjectiveCollection()) {
        if (objective->bCategory()) {
            categories.Add(objective->ItemKey(), objective);
        }
    }
    return categories;
}

std::shared_ptr<c41Objective> Objective(Long key) { return ObjectiveCollection().Member(key); }

Long TotalObjectivePriority()
{
    Long total = 0;
    for (const auto& objective : ObjectiveCollection()) {
        total = BelowCategories(*objective) ? platform::Add(total, objective->Priority()) : total;
    }
    return total;
}

Long ObjectiveCount()
{
    Long count = 0;
    for (const auto& objective : ObjectiveCollection()) {
        count += BelowCategories(*objective) ? 1 : 0;
    }
    return count;
}

void ResetObjectives() { g_objectives.reset(); }

Long NewPriority(Long parentKey) { return parentKey == c41Objective::kSafetyRootKey ? kNewIssuePriority : 0; }

Long NewObjectiveKey(Long parentKey)
{
    u91Trace::Trace("NewObjectiveKey");
    platform::Transaction together(OpenDatabase()); // a kill must not leave a row that hangs nowhere
    platform::Recordset rows = OpenDatabase().OpenTable("Objectives");
    const Long key = AddRow(rows, parentKey);
    LinkBehindSiblings(rows, parentKey, key);
    rows.Seek(key);
    ObjectiveTree::SetLink(rows, "SiblingKey", 0);
    together.Commit();
    return key;
}

} // namespace g41Objectives
