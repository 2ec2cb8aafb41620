#include "model/g51Alternatives.h"

#include "model/g53Outcomes.h"
#include "platform/base/Texts.h"
#include "platform/data/Schema.h"
#include "session/SessionState.h"
#include "session/g0Items.h"
#include "session/u14Properties.h"
#include "session/u19RowData.h"

#include <optional>

namespace g51Alternatives {

namespace {

constexpr const char* kSelectedProperty = "SelectedAlternativeKey";

std::optional<Alternatives> g_alternatives;

std::shared_ptr<c51Alternative>
MakeAlternative(Long key, const std::string& itemName, const std::string& heading, const std::string& body)
{
    auto alternative = std::make_shared<c51Alternative>();
    alternative->Initialize(key, itemName, heading, body);
    return alternative;
}

Alternatives LoadAlternatives()
{
    using u19RowData::ReadText;
    Alternatives alternatives("alternatives");
    platform::Recordset rows =
        OpenDatabase().OpenQuery(platform::Query::ItemsOfParentByChildIndex, g0Items::AlternativeGroup);
    for (; !rows.Eof(); rows.MoveNext()) {
        const Long key = u19RowData::ReadLong(rows, "ItemKey");
        alternatives.Add(
            key,
            MakeAlternative(
                key, ReadText(rows, "ItemName"), ReadText(rows, "Heading"), ReadText(rows, "Body")));
    }
    return alternatives;
}

Alternatives& EnsureAlternatives()
{
    if (!g_alternatives) {
        g_alternatives.emplace(LoadAlternatives());
    }
    return *g_alternatives;
}

} // namespace

const Alternatives& AlternativeCollection() { return EnsureAlternatives(); }

std::shared_ptr<c51Alternative> Alternative(Long key) { return EnsureAlternatives().Member(key); }

std::shared_ptr<c51Alternative> SelectedAlternative()
{
    const std::string value = u14Properties::Property_Get(kSelectedProperty);
    const Long key = platform::ToLong(platform::Val(value));
    return key < 1 ? nullptr : Alternative(key);
}

void SetSelectedAlternative(const c51Alternative& alternative)
{
    u14Properties::Property_Set(kSelectedProperty, platform::TextOf(alternative.ItemKey()));
}

Long SelectedAlternativeKey()
{
    const std::shared_ptr<c51Alternative> selected = SelectedAlternative();
    return selected == nullptr ? 0 : selected->ItemKey();
}

std::shared_ptr<c51Alternative> MostCostEffectiveAlternative()
{
    std::shared_ptr<c51Alternative> best;
    std::optional<Single> lowest; // the cost of the best, computed once there is another to compare
    for (const auto& alternative : EnsureAlternatives()) {
        if (best == nullptr) {
            best = alternative;
            continue;
        }
        lowest = lowest ? lowest : best->ExpectedCost();
        const Single cost = alternative->ExpectedCost();
        if (cost < *lowest) {
            best = alternative;
            lowest = cost;
        }
    }
    return best;
}

void AddItem(platform::ListContents& list)
{
    list.Clear();
    for (const auto& alternative : EnsureAlternatives()) {
        list.AddItem(alternative->Label());
        list.SetItemData(list.NewIndex(), alternative->ItemKey());
    }
}

void SaveAlternatives()
{
    if (g_alternatives) {
        for (const auto& alternative : *g_alternatives) {
            alternative->SaveChanges();
        }
    }
}

void ResetAlternatives()
{
    g_alternatives.reset();
    g53Outcomes::ResetExtremeOutcome();
}

std::shared_ptr<c51Alternative> NewAlternative(const std::string& label)
{
    EnsureAlternatives(); // before the row is there, so that it is not loaded half made
    platform::Transaction together(OpenDatabase()); // a kill must not leave one without its outcomes
    const Long key = g0Items::NewItem(label, g0Items::AlternativeGroup);
    g53Outcomes::AddOutcomes(key);
    together.Commit();
    return EnsureAlternatives().Add(key, MakeAlternative(key, label, "", kDefaultBody));
}

void DeleteAlternative(Long key)
{
    platform::Transaction together(OpenDatabase());
    Alternative(key)->Delete();
    together.Commit();
    EnsureAlternatives().Remove(key);
}

} // namespace g51Alternatives
