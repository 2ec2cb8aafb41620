#include "common/ConnectStores.h"

#include "model/g41Objectives.h"
#include "model/g42SafetyIssues.h"
#include "model/g51Alternatives.h"
#include "session/SessionLinks.h"
#include "values/g33FMUs.h"
#include "values/g34NVCResources.h"
#include "values/g36ThreatenedItems.h"
#include "values/g38SRTypes.h"
#include "values/g68SRUses.h"

void ConnectStores()
{
    SessionLinks& links = Links();
    links.ReleaseFMUs = g33FMUs::ReleaseFMUs;
    links.ResetNVCResources = g34NVCResources::ResetNVCResources;
    links.ReleaseThreatenedItems = g36ThreatenedItems::ReleaseThreatenedItems;
    links.ReleaseSRTypes = g38SRTypes::ReleaseSRTypes;
    links.ResetSafetyIssues = g42SafetyIssues::ResetSafetyIssues;
    links.ResetObjectives = g41Objectives::ResetObjectives;
    links.ResetAlternatives = g51Alternatives::ResetAlternatives;
    links.ResetLastSRUseKey = g68SRUses::ResetLastSRUseKey;
}
