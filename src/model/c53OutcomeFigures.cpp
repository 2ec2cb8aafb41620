// What an outcome scores, loses and costs.

#include "model/c53Outcome.h"
#include "model/c61RatingList.h"
#include "platform/base/Texts.h"
#include "session/u92Utilities.h"
#include "values/c63BurnAreaList.h"
#include "values/c65ItemImpactList.h"
#include "values/c67SRUseList.h"

namespace {

constexpr Long kScoreDigits = 2;
constexpr Long kLossDigits = 2;
constexpr Long kResourceLossDigits = 3;
constexpr Long kCostDigits = 3;

Single Rounded(Double value, Long digits)
{
    return platform::ToSingle(u92Utilities::RoundSignificant(value, digits));
}

} // namespace

Single c53Outcome::TotalScore() { return Rounded(Double(EnsureRatingList().TotalScore()), kScoreDigits); }

Single c53Outcome::CategoryScore(Long key)
{
    return Rounded(Double(EnsureRatingList().CategoryScore(key)), kScoreDigits);
}

Single c53Outcome::WeightedObjScore(Long key)
{
    return Rounded(Double(EnsureRatingList().WeightedObjScore(key)), kScoreDigits);
}

Single c53Outcome::RawObjScore(Long key)
{
    return Rounded(Double(EnsureRatingList().RawObjScore(key)), kScoreDigits);
}

Single c53Outcome::SafetyScore() { return Rounded(Double(EnsureRatingList().SafetyScore()), kScoreDigits); }

Single c53Outcome::WeightedSafetyScore(Long key)
{
    return Rounded(Double(EnsureRatingList().WeightedSafetyScore(key)), kScoreDigits);
}

Single c53Outcome::RawSafetyScore(Long key)
{
    return Rounded(Double(EnsureRatingList().RawSafetyScore(key)), kScoreDigits);
}

Single c53Outcome::EstimatedLoss() { return platform::ToSingle(Double(ItemImpact()) + Double(NVCLoss())); }

Single c53Outcome::NVCLoss()
{
    return -Rounded(Double(EnsureBurnAreaList().AverageNVCPerAcre()) * Double(m_fireSize), kLossDigits);
}

Single c53Outcome::ImpactPerAcre() { return EnsureBurnAreaList().AverageNVCPerAcre(); }

Single c53Outcome::NVCResourceLoss(Long resource)
{
    const Single perAcre = EnsureBurnAreaList().ResourceNVCPerAcre(resource);
    return -Rounded(Double(perAcre) * Double(m_fireSize), kResourceLossDigits);
}

Long c53Outcome::FMUPercent(Long position) { return EnsureBurnAreaList().FMUPercent(position); }

Single c53Outcome::ItemImpact() { return EnsureItemImpactList().ImpactOnAllItems(); }

Single c53Outcome::SingleItemImpact(Long itemKey) { return EnsureItemImpactList().SingleItemImpact(itemKey); }

Double c53Outcome::ValueProtected()
{
    return u92Utilities::RoundSignificant(EnsureItemImpactList().TotalProtected(), kLossDigits);
}

Double c53Outcome::SingleItemProtected(Long itemKey)
{
    return EnsureItemImpactList().SingleItemProtection(itemKey);
}

Single c53Outcome::EstimatedCost()
{
    switch (m_costSource) {
    case costSize: return CostBySize();
    case costSRUse: return SRUseCost();
    case costDaily: return DailyCost();
    case costAdjust: return m_adjustedCost;
    default: return 0.0F;
    }
}

Single c53Outcome::CostBySize()
{
    return Rounded(Double(EnsureBurnAreaList().CostBySize(m_fireSize)), kCostDigits);
}

Single c53Outcome::CostPerAcre() { return EnsureBurnAreaList().CostPerAcre(m_fireSize); }

c67SRUseList& c53Outcome::SRUseList() { return EnsureSRUseList(); }

Single c53Outcome::SRUseCost() { return Rounded(Double(EnsureSRUseList().SRUseCost()), kCostDigits); }

Single c53Outcome::DailyCost() const
{
    const Double contain = platform::Val(platform::TextOf(m_containTime));
    const Double control = platform::Val(platform::TextOf(m_controlTime));
    Single cost = platform::ToSingle(Double(m_dailyContainCost) * contain);
    const Extended behind = Extended(m_dailyControlCost) * (Extended(control) - Extended(contain));
    cost = platform::ToSingle(Extended(cost) + behind);
    return Rounded(Double(cost), kCostDigits);
}
