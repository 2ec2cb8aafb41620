#pragma once

#include "platform/base/Collection.h"
#include "platform/base/Numbers.h"
#include "values/c64BurnArea.h"

#include <optional>
#include <vector>

/// Where and how hot one outcome burns: an area for each land unit, or one default area with no land units.
/// It weighs the value and cost tables by the shares. Owned by its c53Outcome. All throw DatabaseError for
/// what the file refuses and Overflow for a figure out of range.
class c63BurnAreaList
{
public:
    /// Value change in dollars per acre over all resources; negative: a loss. Gains count as `UseNVCGains`
    /// says.
    Single AverageNVCPerAcre() const;
    /// The same for one resource; with no land units gains count whatever `UseNVCGains` says. Throws
    /// OutOfBounds.
    Single ResourceNVCPerAcre(Long resource) const;
    /// Suppression cost in dollars of an outcome of `acres`; each land unit's rate is that of the whole size.
    Single CostBySize(Single acres) const;
    /// Dollars per acre.
    Single CostPerAcre(Single acres) const;
    /// Key 0: the default area, also where there is none; else the land unit's. Throws MissingMember.
    c64BurnArea& BurnArea(Long fmuKey);
    /// In land unit order; empty with no land units.
    const platform::Collection<c64BurnArea>& BurnAreaCollection() const { return m_areas; }
    /// The share in whole percent of the area at a place in the collection, from 1; 100 whatever the place is
    /// when there are fewer than two areas. Throws OutOfBounds.
    Long FMUPercent(Long position) const;

    void Initialize(Long outcomeKey);

private:
    std::vector<Long> FMUPercents() const;
    void AddEmptyAreas();
    template <class Term> Single AverageByLevel(Term term) const;
    template <class Term> Single CostOverAreas(Single acres, Term term) const;

    Long m_outcomeKey = 0;
    platform::Collection<c64BurnArea> m_areas{"burn areas"};
    std::optional<c64BurnArea> m_defaultArea; // only with no land units
};
