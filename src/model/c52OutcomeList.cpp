#include "model/c52OutcomeList.h"

#include "model/g53Outcomes.h"
#include "platform/base/Errors.h"
#include "platform/base/Texts.h"
#include "session/u92Utilities.h"

namespace {

constexpr Long kWhole = 100; // percent
constexpr Long kHalf = 50;
constexpr Long kDigits = 2;

// The accumulator is kept at its own width after each addition, all else is double.

void Accumulate(Single& sum, Double term) { sum = platform::ToSingle(Double(sum) + term); }

void Accumulate(Double& sum, Double term) { sum = platform::Finite(sum + term); }

Single Rounded(Single value)
{
    return platform::ToSingle(u92Utilities::RoundSignificant(Double(value), kDigits));
}

Double Rounded(Double value) { return u92Utilities::RoundSignificant(value, kDigits); }

/// The mean of figure(outcome) over Target, Fallback (also when it is not shown, with its 0 percent) and
/// Extreme.
template <class Width, class Figure> Width Weighted(const c52OutcomeList& list, Figure figure)
{
    Width sum = 0;
    const auto add = [&](c53Outcome& outcome, Long index) {
        Accumulate(sum, Double(figure(outcome)) * Double(list.OutcomePercent(index)) / Double(kWhole));
    };
    for (const Long index : {c52OutcomeList::Target, c52OutcomeList::Fallback}) {
        add(*list.Outcome(index), index);
    }
    add(*g53Outcomes::ExtremeOutcome(), c52OutcomeList::Extreme);
    return Rounded(sum);
}

} // namespace

std::shared_ptr<c53Outcome> c52OutcomeList::Outcome(Long index) const
{
    if (index != Target && index != Fallback) {
        throw platform::OutOfBounds("outcome", index);
    }
    return m_outcomes[static_cast<std::size_t>(index) - 1];
}

Long c52OutcomeList::OutcomePercent(Long index) const
{
    switch (index) {
    case Target: return Outcome(Target)->Success();
    case Fallback: return FallbackPercent();
    case Extreme:
        return platform::Subtract(platform::Subtract(kWhole, Outcome(Target)->Success()), FallbackPercent());
    default: return 0;
    }
}

Single c52OutcomeList::ExpectedScore() const { return Expected(&c53Outcome::TotalScore); }

Single c52OutcomeList::ExpectedCategoryScore(Long criterionKey) const
{
    return Expected(&c53Outcome::CategoryScore, criterionKey);
}

Single c52OutcomeList::ExpectedWgtObjScore(Long criterionKey) const
{
    return Expected(&c53Outcome::WeightedObjScore, criterionKey);
}

Single c52OutcomeList::ExpectedRawObjScore(Long criterionKey) const
{
    return Expected(&c53Outcome::RawObjScore, criterionKey);
}

Single c52OutcomeList::ExpectedSafetyScore() const { return Expected(&c53Outcome::SafetyScore); }

Single c52OutcomeList::ExpectedWgtSafetyScore(Long criterionKey) const
{
    return Expected(&c53Outcome::WeightedSafetyScore, criterionKey);
}

Single c52OutcomeList::ExpectedRawSafetyScore(Long criterionKey) const
{
    return Expected(&c53Outcome::RawSafetyScore, criterionKey);
}

Double c52OutcomeList::ExpectedProtection() const
{
    return Weighted<Double>(*this, [](c53Outcome& outcome) { return outcome.ValueProtected(); });
}

Single c52OutcomeList::ExpectedNVCLoss() const { return Expected(&c53Outcome::NVCLoss); }

Single c52OutcomeList::ExpectedLoss() const { return Expected(&c53Outcome::EstimatedLoss); }

Single c52OutcomeList::ExpectedCost() const { return Expected(&c53Outcome::EstimatedCost); }

Single c52OutcomeList::EstimatedCost() const { return Outcome(Target)->EstimatedCost(); }

Long c52OutcomeList::EstimatedSize() const
{
    return platform::ToLong(platform::NumberOf(Outcome(Target)->FireSize()));
}

void c52OutcomeList::Initialize(Long alternativeKey)
{
    for (const Long index : {Target, Fallback}) {
        auto outcome = std::make_shared<c53Outcome>();
        outcome->Initialize(alternativeKey, index);
        m_outcomes[static_cast<std::size_t>(index) - 1] = std::move(outcome);
    }
}

void c52OutcomeList::Delete()
{
    Outcome(Target)->Delete();
    Outcome(Fallback)->Delete();
}

Long c52OutcomeList::FallbackPercent() const
{
    const c53Outcome& fallback = *Outcome(Fallback);
    if (!fallback.bShow()) {
        return 0;
    }
    const Long failure = platform::Subtract(kWhole, Outcome(Target)->Success());
    return platform::Add(platform::Multiply(failure, fallback.Success()), kHalf) / kWhole;
}

Single c52OutcomeList::Expected(Score figure) const
{
    return Weighted<Single>(*this, [figure](c53Outcome& outcome) { return (outcome.*figure)(); });
}

Single c52OutcomeList::Expected(ScoreByKey figure, Long key) const
{
    return Weighted<Single>(*this, [figure, key](c53Outcome& outcome) { return (outcome.*figure)(key); });
}
