#pragma once

#include "platform/base/Collection.h"
#include "platform/base/Numbers.h"
#include "values/c66ItemImpact.h"

/// What each threatened item loses in one outcome, in the items' order; holds the rows as they were when it
/// was built. Owned by its c53Outcome. An item unknown to it throws MissingMember; reads of the file throw
/// DatabaseError, figures out of range Overflow.
class c65ItemImpactList
{
public:
    explicit c65ItemImpactList(Edition edition = kEdition) : m_edition(edition) {}

    /// Dollars lost over all items.
    Single ImpactOnAllItems() const;
    Single SingleItemImpact(Long itemKey) const;
    /// Dollars saved over all items; 0 in this edition.
    Double TotalProtected() const;
    Double SingleItemProtection(Long itemKey) const;

    void Initialize(Long outcomeKey);

private:
    void AddEmptyImpacts();
    void ReadLosses();
    void LoadOneByOne();
    Single SumOfAmounts() const;
    Double SumOfProtected() const;

    Edition m_edition;
    Long m_outcomeKey = 0;
    platform::Collection<c66ItemImpact> m_impacts{"item impacts"};
};
