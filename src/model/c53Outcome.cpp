#include "model/c53Outcome.h"

#include "model/c51Alternative.h"
#include "model/c61RatingList.h"
#include "model/g51Alternatives.h"
#include "platform/base/Errors.h"
#include "platform/base/Texts.h"
#include "values/c63BurnAreaList.h"
#include "values/c65ItemImpactList.h"
#include "values/c67SRUseList.h"

namespace {

constexpr const char* kExtremeName = "Extreme Outcome";
constexpr std::size_t kFullNameLabel = 32; // characters

/// Days as a box shows them.
std::string DaysText(Long days) { return days == 0 ? std::string() : platform::TextOf(days); }

Long DaysOf(const std::string& text) { return platform::ToLong(platform::Val(text)); }

/// The list, made and loaded on first need; a load that fails leaves none behind.
template <class List> List& Ensure(std::unique_ptr<List>& list, Long outcomeKey)
{
    if (list == nullptr) {
        auto made = std::make_unique<List>();
        made->Initialize(outcomeKey);
        list = std::move(made);
    }
    return *list;
}

} // namespace

c53Outcome::c53Outcome() = default;

c53Outcome::~c53Outcome() = default;

std::shared_ptr<c51Alternative> c53Outcome::Alternative() const
{
    return m_alternativeKey > 0 ? g51Alternatives::Alternative(m_alternativeKey) : nullptr;
}

std::string c53Outcome::LongName() const
{
    return m_alternativeKey == 0 ? kExtremeName : AlternativeLabel() + " - " + ShortName();
}

std::string c53Outcome::FullName() const
{
    return m_alternativeKey == 0 ? kExtremeName
                                 : platform::Left(AlternativeLabel(), kFullNameLabel) + " - " + ShortName();
}

std::string c53Outcome::ShortName() const
{
    if (m_alternativeKey == 0) {
        return kExtremeName;
    }
    switch (m_outcomeIndex) {
    case 1: return "Target";
    case 2: return "Fallback";
    case 0:
    case 3: return kExtremeName;
    default: return std::string();
    }
}

void c53Outcome::SetbShow(bool show)
{
    if (!show) {
        SetSuccess(kNotShown);
    } else {
        SetSuccess(bShow() ? m_success : 0);
    }
}

std::string c53Outcome::FireSize() const { return platform::TextOf(m_fireSize); }

void c53Outcome::SetFireSize(const std::string& text)
{
    m_changed.Write(m_fireSize, platform::ToSingle(platform::NumberOf(text)));
}

std::string c53Outcome::ContainTimeString() const { return DaysText(m_containTime); }

void c53Outcome::SetContainTimeString(const std::string& text)
{
    m_changed.Write(m_containTime, DaysOf(text));
}

std::string c53Outcome::ControlTimeString() const { return DaysText(m_controlTime); }

void c53Outcome::SetControlTimeString(const std::string& text)
{
    m_changed.Write(m_controlTime, DaysOf(text));
}

c64BurnArea& c53Outcome::BurnArea(Long fmuKey) { return EnsureBurnAreaList().BurnArea(fmuKey); }

c63BurnAreaList& c53Outcome::BurnAreaList() { return EnsureBurnAreaList(); }

const platform::Collection<c64BurnArea>& c53Outcome::BurnAreaCollection()
{
    return EnsureBurnAreaList().BurnAreaCollection();
}

void c53Outcome::Reset() { m_srUseList.reset(); }

c61RatingList& c53Outcome::EnsureRatingList() { return Ensure(m_ratingList, m_itemKey); }

c63BurnAreaList& c53Outcome::EnsureBurnAreaList() { return Ensure(m_burnAreaList, m_itemKey); }

c65ItemImpactList& c53Outcome::EnsureItemImpactList() { return Ensure(m_itemImpactList, m_itemKey); }

c67SRUseList& c53Outcome::EnsureSRUseList() { return Ensure(m_srUseList, m_itemKey); }

std::string c53Outcome::AlternativeLabel() const
{
    const std::shared_ptr<c51Alternative> alternative = Alternative();
    if (alternative == nullptr) {
        throw platform::MissingMember("alternatives", m_alternativeKey);
    }
    return alternative->Label();
}
