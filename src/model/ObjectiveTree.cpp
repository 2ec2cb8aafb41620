#include "model/ObjectiveTree.h"

#include "session/SessionState.h"
#include "session/u19RowData.h"

#include <vector>

namespace ObjectiveTree {

using u19RowData::ReadLong;
using u19RowData::ReadText;

namespace {

/// The row as an object; without one the object has the key alone.
std::shared_ptr<c41Objective> ObjectiveAt(const platform::Recordset& rows, Long key)
{
    auto objective = std::make_shared<c41Objective>();
    objective->Initialize(key,
                          ReadText(rows, "Name"),
                          ReadText(rows, "Explanation"),
                          ReadLong(rows, "Priority"),
                          ReadLong(rows, "ParentKey"));
    return objective;
}

} // namespace

platform::Collection<std::shared_ptr<c41Objective>> Load(Long rootKey, const char* name)
{
    platform::Collection<std::shared_ptr<c41Objective>> objectives(name);
    platform::Recordset rows = OpenDatabase().OpenTable("Objectives");
    // Keys still to be loaded, the next one last: a stack of our own, since a chain may be of any length.
    std::vector<Long> waiting{rootKey};
    while (!waiting.empty()) {
        const Long key = waiting.back();
        waiting.pop_back();
        rows.Seek(key);
        objectives.Add(key, ObjectiveAt(rows, key));
        const Long sibling = key == rootKey ? 0 : ReadLong(rows, "SiblingKey");
        for (const Long next : {sibling, ReadLong(rows, "ChildKey")}) {
            if (next > 0) {
                waiting.push_back(next);
            }
        }
    }
    return objectives;
}

bool FindInChain(platform::Recordset& rows, Long firstKey, const std::function<bool(Long siblingKey)>& wanted)
{
    Long rowsLeft = rows.RecordCount(); // a walk of more rows than there are has come round
    for (Long key = firstKey; key >= 1 && rowsLeft >= 0; --rowsLeft) {
        rows.Seek(key);
        const Long sibling = ReadLong(rows, "SiblingKey");
        if (wanted(sibling)) {
            return true;
        }
        key = sibling;
    }
    return false;
}

void SetLink(platform::Recordset& rows, const char* column, Long key)
{
    rows.Edit();
    rows.Set(column, key);
    rows.Update();
}

} // namespace ObjectiveTree
