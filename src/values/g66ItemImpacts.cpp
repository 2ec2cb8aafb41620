#include "values/g66ItemImpacts.h"

#include "platform/data/Database.h"
#include "session/SessionState.h"
#include "values/RowWalks.h"

void g66ItemImpacts::DeleteImpactsOfItem(Long itemKey)
{
    RowWalks::DeleteRows(OpenDatabase().OpenQuery(platform::Query::ItemImpactsOfItem, itemKey));
}

void g66ItemImpacts::DeleteImpactsOfOutcome(Long outcomeKey)
{
    RowWalks::DeleteRows(OpenDatabase().OpenQuery(platform::Query::ItemImpactsOfOutcome, outcomeKey));
}
