#include "values/PotentialLoss.h"

void SetPotentialLossFromImpacts(c36ThreatenedItem& item,
                                 const std::vector<c66ItemImpact>& impacts,
                                 Edition edition)
{
    if (edition != Edition::Basic) {
        return;
    }
    Single highest = 0.0F; // on purpose: a gain is no loss
    for (const c66ItemImpact& impact : impacts) {
        if (platform::ToDouble(impact.Amount()) > Double(highest)) {
            highest = platform::ToSingle(impact.Amount());
        }
    }
    item.SetPotentialLoss(Double(highest));
    item.SetProbabilityLabel("100");
}
