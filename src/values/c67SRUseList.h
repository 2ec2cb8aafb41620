#pragma once

#include "platform/base/Collection.h"
#include "platform/base/Numbers.h"
#include "values/c68SRUse.h"

#include <memory>

/// The resources that one outcome needs, in line order. Owned by its c53Outcome. All throw DatabaseError, and
/// MissingMember for a type or a line that is not there.
class c67SRUseList
{
public:
    /// Dollars over all lines. Throws Overflow.
    Single SRUseCost() const;
    const platform::Collection<std::shared_ptr<c68SRUse>>& SRUseCollection() const { return m_uses; }
    Long SRUseCount() const { return m_uses.Count(); }

    void Initialize(Long outcomeKey);
    /// Adds a line of one unit for one period at the end.
    std::shared_ptr<c68SRUse> NewSRUse(Long srTypeKey);
    /// Deletes the own lines, then appends the other's.
    void ReplaceList(const c67SRUseList& other);
    /// Copies the lines that the other list holds now behind the own ones; the other may be this one.
    void AppendList(const c67SRUseList& other);
    /// The lines behind it keep their ItemIndex.
    void DeleteSRUse(Long useKey);

private:
    Single SumOfUseCosts() const;

    Long m_outcomeKey = 0;
    platform::Collection<std::shared_ptr<c68SRUse>> m_uses{"resource uses"};
};
