#include "values/g8Summary.h"

#include "session/g0Items.h"

std::vector<std::shared_ptr<c0Item>> g8Summary::SummaryItems()
{
    return g0Items::GetChildren(g0Items::SummaryGroup);
}

std::shared_ptr<c0Item> g8Summary::SummaryItem(Long key) { return g0Items::GetItem(key); }

void g8Summary::AddItem(platform::ListContents& list)
{
    list.Clear();
    for (const auto& item : SummaryItems()) {
        list.AddItem(item->Heading());
        list.SetItemData(list.NewIndex(), item->ItemKey());
    }
}

void g8Summary::SaveSummaryItems() { g0Items::SaveAllItems(); }
