#include "values/g68SRUses.h"

#include "platform/data/Database.h"
#include "session/SessionState.h"
#include "values/RowWalks.h"

namespace {

Long lastKey = 0; // the highest key handed out; 0: not yet known

Long LastSRUseKey()
{
    if (lastKey == 0) {
        lastKey = OpenDatabase().LastKeyInTable("SRUses", "ItemKey");
    }
    return lastKey;
}

Long SRUseRowCount(Long outcomeKey)
{
    return OpenDatabase().OpenQuery(platform::Query::SRUsesOfOutcomeByItemIndex, outcomeKey).RecordCount();
}

} // namespace

Long g68SRUses::NewSRUseRow(Long outcomeKey, Long srTypeKey)
{
    lastKey = platform::Add(LastSRUseKey(), 1);
    // Kept: by the count of the lines, so that after a deletion two lines can share an ItemIndex.
    const Long itemIndex = platform::Add(SRUseRowCount(outcomeKey), 1);
    platform::Recordset rows = OpenDatabase().OpenTable("SRUses");
    rows.AddNew();
    rows.Set("ItemKey", lastKey);
    rows.Set("OutcomeKey", outcomeKey);
    rows.Set("ItemIndex", itemIndex);
    rows.Set("SRTypeKey", srTypeKey);
    rows.Set("Quantity", Long(1));
    rows.Set("Periods", Long(1));
    rows.Update();
    return lastKey;
}

void g68SRUses::DeleteSRUses(Long outcomeKey)
{
    RowWalks::DeleteRows(OpenDatabase().OpenQuery(platform::Query::SRUsesOfOutcome, outcomeKey));
}

void g68SRUses::ResetLastSRUseKey() { lastKey = 0; }
