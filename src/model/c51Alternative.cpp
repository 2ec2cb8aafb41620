#include "model/c51Alternative.h"

#include "model/c52OutcomeList.h"
#include "session/SessionState.h"
#include "session/g0Items.h"
#include "session/u92Utilities.h"

namespace {

constexpr Long kDigits = 2;

// What the outcome list gives is rounded already; the figures of an alternative are rounded once more.

Double RoundedAgain(Double value) { return u92Utilities::RoundSignificant(value, kDigits); }

Single RoundedAgain(Single value) { return platform::ToSingle(RoundedAgain(Double(value))); }

} // namespace

c51Alternative::c51Alternative() = default;

c51Alternative::~c51Alternative() = default;

std::string c51Alternative::Label() const { return m_itemName + ". " + m_heading; }

Single c51Alternative::ExpectedScore() { return EnsureOutcomeList().ExpectedScore(); }

Single c51Alternative::ExpectedCategoryScore(Long criterionKey)
{
    return EnsureOutcomeList().ExpectedCategoryScore(criterionKey);
}

Single c51Alternative::ExpectedWgtObjScore(Long criterionKey)
{
    return EnsureOutcomeList().ExpectedWgtObjScore(criterionKey);
}

Single c51Alternative::ExpectedRawObjScore(Long criterionKey)
{
    return EnsureOutcomeList().ExpectedRawObjScore(criterionKey);
}

Single c51Alternative::ExpectedSafetyScore() { return EnsureOutcomeList().ExpectedSafetyScore(); }

Single c51Alternative::ExpectedWgtSafetyScore(Long criterionKey)
{
    return EnsureOutcomeList().ExpectedWgtSafetyScore(criterionKey);
}

Single c51Alternative::ExpectedRawSafetyScore(Long criterionKey)
{
    return EnsureOutcomeList().ExpectedRawSafetyScore(criterionKey);
}

Double c51Alternative::ExpectedProtection() { return RoundedAgain(EnsureOutcomeList().ExpectedProtection()); }

Single c51Alternative::ExpectedNVCLoss() { return RoundedAgain(EnsureOutcomeList().ExpectedNVCLoss()); }

Single c51Alternative::ExpectedLoss() { return RoundedAgain(EnsureOutcomeList().ExpectedLoss()); }

Single c51Alternative::ExpectedCost() { return RoundedAgain(EnsureOutcomeList().ExpectedCost()); }

Single c51Alternative::EstimatedCost() { return RoundedAgain(EnsureOutcomeList().EstimatedCost()); }

Long c51Alternative::EstimatedSize()
{
    return platform::ToLong(RoundedAgain(Double(EnsureOutcomeList().EstimatedSize())));
}

std::shared_ptr<c53Outcome> c51Alternative::Outcome(Long index) { return EnsureOutcomeList().Outcome(index); }

Long c51Alternative::OutcomePercent(Long index) { return EnsureOutcomeList().OutcomePercent(index); }

void c51Alternative::Initialize(Long key,
                                const std::string& itemName,
                                const std::string& heading,
                                const std::string& body)
{
    m_itemKey = key;
    m_itemName = itemName;
    m_heading = heading;
    m_body = body;
}

void c51Alternative::SaveChanges()
{
    if (!m_changed.IsSet()) {
        return;
    }
    platform::Recordset rows = OpenDatabase().OpenTable("Items");
    rows.Seek(m_itemKey);
    rows.Edit();
    rows.Set("ItemName", m_itemName);
    rows.Set("Heading", m_heading);
    rows.Set("Body", Body());
    rows.Update();
    m_changed.Clear();
}

void c51Alternative::Delete()
{
    g0Items::DeleteItem(m_itemKey);
    EnsureOutcomeList().Delete();
}

c52OutcomeList& c51Alternative::EnsureOutcomeList()
{
    if (m_outcomeList == nullptr) {
        auto made = std::make_unique<c52OutcomeList>();
        made->Initialize(m_itemKey);
        m_outcomeList = std::move(made);
    }
    return *m_outcomeList;
}
