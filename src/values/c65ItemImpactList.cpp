#include "values/c65ItemImpactList.h"

#include "platform/data/Database.h"
#include "session/SessionState.h"
#include "values/RowWalks.h"
#include "values/g36ThreatenedItems.h"

Single c65ItemImpactList::ImpactOnAllItems() const { return SumOfAmounts(); }

Single c65ItemImpactList::SingleItemImpact(Long itemKey) const
{
    return platform::ToSingle(m_impacts.Member(itemKey).Amount());
}

Double c65ItemImpactList::TotalProtected() const
{
    if (m_edition == Edition::Standard) {
        return g36ThreatenedItems::TotalValueAtRisk() - Double(ImpactOnAllItems());
    }
    return SumOfProtected();
}

Double c65ItemImpactList::SingleItemProtection(Long itemKey) const
{
    return m_impacts.Member(itemKey).ProtectedValue();
}

void c65ItemImpactList::Initialize(Long outcomeKey)
{
    m_outcomeKey = outcomeKey;
    m_impacts = platform::Collection<c66ItemImpact>("item impacts");
    AddEmptyImpacts();
    if (m_impacts.IsEmpty()) {
        return;
    }
    if (m_edition == Edition::Basic) {
        ReadLosses();
    } else {
        LoadOneByOne();
    }
}

void c65ItemImpactList::AddEmptyImpacts()
{
    const auto& items = g36ThreatenedItems::ThreatenedItemCollection();
    m_impacts.Reserve(static_cast<std::size_t>(items.Count()));
    for (const auto& item : items) {
        m_impacts.Add(item->ItemKey(), c66ItemImpact(m_edition))
            .InitializeEmpty(m_outcomeKey, item->ItemKey());
    }
}

/// One walk over the outcome's rows; rows of items that are not threatened are passed over unread.
void c65ItemImpactList::ReadLosses()
{
    platform::Recordset rows = OpenDatabase().OpenQuery(platform::Query::ItemImpactsOfOutcome, m_outcomeKey);
    for (; !rows.Eof(); rows.MoveNext()) {
        const std::optional<Long> itemKey = RowWalks::KeyIn(rows, "ItemKey");
        c66ItemImpact* impact = itemKey ? m_impacts.Find(*itemKey) : nullptr;
        if (impact != nullptr) {
            impact->ReadLoss(rows);
        }
    }
}

/// The sibling editions read each pair's protection too.
void c65ItemImpactList::LoadOneByOne()
{
    for (const auto& item : g36ThreatenedItems::ThreatenedItemCollection()) {
        m_impacts.Member(item->ItemKey()).Initialize(m_outcomeKey, item->ItemKey());
    }
}

/// Each step is an addition of currencies, kept as a single: it rounds to four decimals, then to single
/// precision.
Single c65ItemImpactList::SumOfAmounts() const
{
    Single sum = 0;
    for (const c66ItemImpact& impact : m_impacts) {
        sum = platform::ToSingle(platform::Add(platform::ToCurrency(Double(sum)), impact.Amount()));
    }
    return sum;
}

Double c65ItemImpactList::SumOfProtected() const
{
    Single sum = 0;
    for (const c66ItemImpact& impact : m_impacts) {
        sum = platform::ToSingle(Double(sum) + impact.ProtectedValue());
    }
    return Double(sum);
}
