#include "convert/Convert4Items.h"

#include "convert/ItemRows.h"
#include "convert/Rows.h"
#include "convert/u16Convert5.h"
#include "platform/base/Texts.h"
#include "session/g0Items.h"
#include "session/u14Properties.h"

#include <functional>
#include <map>

namespace u16Convert4 {

namespace {

using platform::Recordset;

/// Adds items to the end of a group, under the keys behind the table's last one.
class NewItems
{
public:
    explicit NewItems(Long group)
        : m_items(ItemRows::Items()), m_group(group), m_childIndex(g0Items::CountChildren(group)),
          m_lastKey(OpenDatabase().LastKeyInTable("Items", "ItemKey"))
    {}

    Long Add(const std::string& name, const std::string& plainBody)
    {
        m_lastKey = platform::Add(m_lastKey, 1);
        ItemRows::Begin(m_items, m_lastKey, name);
        m_items.Set("Body", u16Convert5::PlainToRichText(plainBody));
        ItemRows::Place(m_items, m_group, ++m_childIndex);
        m_items.Update();
        return m_lastKey;
    }

private:
    Recordset m_items;
    Long m_group;
    Long m_childIndex;
    Long m_lastKey;
};

using NewKeys = std::map<Long, Long>; // by old key

void MoveOutcomes(const NewKeys& newKeys)
{
    Rows::ForEach("Outcomes", [&](Recordset& outcome) {
        const auto found = newKeys.find(outcome.LongValue("ParentKey"));
        if (!outcome.IsNull("ParentKey") && found != newKeys.end()) {
            outcome.Edit();
            outcome.Set("ParentKey", found->second);
            outcome.Update();
        }
    });
}

void MoveSelection(const NewKeys& newKeys)
{
    const std::string selected = u14Properties::Property_Get("SelectedAlternativeKey");
    for (const auto& [old, now] : newKeys) {
        if (platform::IsNumeric(selected) && platform::NumberOf(selected) == Double(old)) {
            Rows::WriteProperty("SelectedAlternativeKey", platform::TextOf(now));
        }
    }
}

/// The threatened items' new keys: they were added in the order of their old ones.
NewKeys NewKeysOfItems()
{
    NewKeys newKeys;
    Recordset items =
        OpenDatabase().OpenQuery(platform::Query::ItemsOfParentByItemKey, g0Items::ThreatenedGroup);
    Rows::ForEach("ListOfItems", [&](const Recordset& old) {
        newKeys[old.LongValue("Key")] = items.LongValue("ItemKey");
        items.MoveNext();
    });
    return newKeys;
}

/// Outcome and item of every impact on one of the items, the highest item first: a new key is above its old
/// one, so none is taken by a row that has yet to move.
std::multimap<Long, Long, std::greater<>> ImpactsOn(const NewKeys& items)
{
    std::multimap<Long, Long, std::greater<>> impacts;
    Rows::ForEach("ItemImpacts", [&](const Recordset& impact) {
        if (items.count(impact.LongValue("ItemKey")) > 0) {
            impacts.emplace(impact.LongValue("ItemKey"), impact.LongValue("OutcomeKey"));
        }
    });
    return impacts;
}

} // namespace

void CopyAlternativesToItemsTable()
{
    NewItems alternatives(g0Items::AlternativeGroup);
    NewKeys newKeys;
    Rows::ForEach("Alternatives", [&](const Recordset& old) {
        newKeys[old.LongValue("Key")] = alternatives.Add(old.Text("Name"), old.Text("Explanation"));
    });
    MoveOutcomes(newKeys);
    MoveSelection(newKeys);
}

void CopyManagementGoals()
{
    NewItems goals(GoalGroup);
    Rows::ForEach("ManagementGoals", [&](const Recordset& old) {
        goals.Add(old.Text("ManagementArea"), old.Text("Explanation"));
    });
}

void CopyListOfItems()
{
    NewItems threatened(g0Items::ThreatenedGroup);
    Rows::ForEach("ListOfItems", [&](const Recordset& old) { threatened.Add(old.Text("Name"), ""); });
}

void MapItemImpacts()
{
    const NewKeys newKeys = NewKeysOfItems();
    Recordset impacts = OpenDatabase().OpenTable("ItemImpacts");
    for (const auto& [item, outcome] : ImpactsOn(newKeys)) {
        impacts.Seek(outcome, item);
        impacts.Edit();
        impacts.Set("ItemKey", newKeys.at(item));
        impacts.Update();
    }
}

} // namespace u16Convert4
