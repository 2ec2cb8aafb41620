#include "values/c67SRUseList.h"

#include "platform/data/Database.h"
#include "session/SessionState.h"
#include "session/u19RowData.h"
#include "values/g68SRUses.h"

#include <vector>

namespace {

using Uses = platform::Collection<std::shared_ptr<c68SRUse>>;

/// The lines as they stand now: the list may change on the way.
std::vector<std::shared_ptr<c68SRUse>> LinesOf(const Uses& uses) { return {uses.begin(), uses.end()}; }

std::shared_ptr<c68SRUse> UseIn(const platform::Recordset& row, Long outcomeKey)
{
    auto use = std::make_shared<c68SRUse>();
    use->Initialize(u19RowData::ReadLong(row, "ItemKey"),
                    outcomeKey,
                    u19RowData::ReadLong(row, "ItemIndex"),
                    u19RowData::ReadLong(row, "SRTypeKey"),
                    u19RowData::ReadLong(row, "Quantity"),
                    u19RowData::ReadLong(row, "Periods"));
    return use;
}

Long StoredItemIndex(Long useKey)
{
    platform::Recordset rows = OpenDatabase().OpenTable("SRUses");
    rows.Seek(useKey);
    return u19RowData::ReadLong(rows, "ItemIndex");
}

} // namespace

Single c67SRUseList::SRUseCost() const { return SumOfUseCosts(); }

void c67SRUseList::Initialize(Long outcomeKey)
{
    m_outcomeKey = outcomeKey;
    m_uses = Uses("resource uses");
    platform::Recordset rows =
        OpenDatabase().OpenQuery(platform::Query::SRUsesOfOutcomeByItemIndex, outcomeKey);
    for (; !rows.Eof(); rows.MoveNext()) {
        auto use = UseIn(rows, outcomeKey);
        m_uses.Add(use->ItemKey(), use);
    }
}

std::shared_ptr<c68SRUse> c67SRUseList::NewSRUse(Long srTypeKey)
{
    const Long key = g68SRUses::NewSRUseRow(m_outcomeKey, srTypeKey);
    auto use = std::make_shared<c68SRUse>();
    use->Initialize(key, m_outcomeKey, StoredItemIndex(key), srTypeKey, 1, 1);
    return m_uses.Add(key, use);
}

void c67SRUseList::ReplaceList(const c67SRUseList& other)
{
    for (const auto& use : LinesOf(m_uses)) {
        DeleteSRUse(use->ItemKey());
    }
    AppendList(other);
}

void c67SRUseList::AppendList(const c67SRUseList& other)
{
    for (const auto& line : LinesOf(other.m_uses)) {
        const std::shared_ptr<c68SRUse> copy = NewSRUse(line->SRType()->ItemKey());
        copy->SetQuantity(line->Quantity());
        copy->SetTimePeriods(line->TimePeriods());
        copy->SaveChanges();
    }
}

void c67SRUseList::DeleteSRUse(Long useKey)
{
    platform::Recordset rows = OpenDatabase().OpenTable("SRUses");
    rows.Seek(useKey);
    rows.Delete();
    m_uses.Remove(useKey);
}

Single c67SRUseList::SumOfUseCosts() const
{
    Single sum = 0;
    for (const auto& use : m_uses) {
        sum = platform::ToSingle(Double(sum) + Double(use->UseCost()));
    }
    return sum;
}
