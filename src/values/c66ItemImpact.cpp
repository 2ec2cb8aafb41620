#include "values/c66ItemImpact.h"

#include "platform/data/Database.h"
#include "session/SessionState.h"
#include "session/u19RowData.h"
#include "session/u92Utilities.h"
#include "values/PercentLabels.h"
#include "values/g36ThreatenedItems.h"

#include <algorithm>
#include <memory>

namespace {

constexpr PercentLabels::Label kProtections[] = {
    {0, "No (0%)"},
    {25, "Slightly (25%)"},
    {50, "Partly (50%)"},
    {75, "Mostly (75%)"},
    {100, "Yes (100%)"},
};

constexpr bool StoresLoss(Edition edition) { return edition != Edition::Advanced; }

constexpr bool StoresProtection(Edition edition) { return edition != Edition::Basic; }

Double ValueAtRiskOf(Long itemKey) { return g36ThreatenedItems::GetThreatenedItem(itemKey)->ValueAtRisk(); }

/// The row of the pair, made where there is none, ready to be set.
void EditOrAdd(platform::Recordset& rows, Long outcomeKey, Long itemKey)
{
    rows.Seek(outcomeKey, itemKey);
    if (!rows.NoMatch()) {
        rows.Edit();
        return;
    }
    rows.AddNew();
    rows.Set("OutcomeKey", outcomeKey);
    rows.Set("ItemKey", itemKey);
}

} // namespace

platform::Currency c66ItemImpact::Amount() const
{
    return m_edition == Edition::Basic ? m_amount : ClampedAmount();
}

std::string c66ItemImpact::ProtectionLabel() const
{
    return PercentLabels::TextOf(kProtections, m_protectionLevel);
}

void c66ItemImpact::SetProtectionLabel(const std::string& text)
{
    m_changed.Write(m_protectionLevel, PercentLabels::PercentOf(kProtections, text));
}

Double c66ItemImpact::ProtectedValue() const
{
    return m_edition == Edition::Standard ? ProtectedByAmount() : ProtectedByLevel();
}

void c66ItemImpact::Initialize(Long outcomeKey, Long itemKey)
{
    InitializeEmpty(outcomeKey, itemKey);
    if (StoresLoss(m_edition)) {
        platform::Recordset losses = OpenDatabase().OpenTable("ItemImpacts");
        losses.Seek(outcomeKey, itemKey);
        ReadLoss(losses);
    }
    if (StoresProtection(m_edition)) {
        platform::Recordset protections = OpenDatabase().OpenTable("ValuesProtected");
        protections.Seek(outcomeKey, itemKey);
        m_protectionLevel = u19RowData::ReadLong(protections, "Protection");
    }
}

void c66ItemImpact::InitializeEmpty(Long outcomeKey, Long itemKey)
{
    m_outcomeKey = outcomeKey;
    m_itemKey = itemKey;
    m_amount = platform::Currency();
    m_protectionLevel = 0;
    m_changed.Clear();
}

void c66ItemImpact::ReadLoss(const platform::Recordset& itemImpacts)
{
    m_amount = platform::ToCurrency(Double(u19RowData::ReadSingle(itemImpacts, "ItemLoss")));
}

void c66ItemImpact::SaveChanges()
{
    if (!m_changed.IsSet()) {
        return;
    }
    if (StoresLoss(m_edition)) {
        SaveLoss();
    }
    if (m_edition == Edition::Standard) {
        SetLevelFromAmount();
    }
    if (StoresProtection(m_edition)) {
        SaveProtection();
    }
    m_changed.Clear();
}

/// The amount, at least 0 and at most the item's value at risk.
platform::Currency c66ItemImpact::ClampedAmount() const
{
    const Double highest = ValueAtRiskOf(m_itemKey);
    if (m_amount < platform::Currency()) {
        return platform::Currency();
    }
    return platform::ToDouble(m_amount) > highest ? platform::ToCurrency(highest) : m_amount;
}

Double c66ItemImpact::ProtectedByLevel() const
{
    return u92Utilities::RoundSignificant(ValueAtRiskOf(m_itemKey) * Double(m_protectionLevel) / 100.0, 3);
}

Double c66ItemImpact::ProtectedByAmount() const
{
    const Double saved = ValueAtRiskOf(m_itemKey) - platform::ToDouble(Amount());
    return std::max(0.0, u92Utilities::RoundSignificant(saved, 3));
}

void c66ItemImpact::SaveLoss()
{
    platform::Recordset rows = OpenDatabase().OpenTable("ItemImpacts");
    EditOrAdd(rows, m_outcomeKey, m_itemKey);
    rows.Set("ItemLoss", Amount());
    rows.Update();
}

void c66ItemImpact::SetLevelFromAmount()
{
    const Double valueAtRisk = ValueAtRiskOf(m_itemKey);
    if (valueAtRisk > 0) {
        const Double saved = valueAtRisk - platform::ToDouble(Amount());
        m_protectionLevel = platform::ToLong(saved * 100.0 / valueAtRisk);
    }
}

void c66ItemImpact::SaveProtection()
{
    platform::Recordset rows = OpenDatabase().OpenTable("ValuesProtected");
    EditOrAdd(rows, m_outcomeKey, m_itemKey);
    rows.Set("Protection", Long(platform::ToInteger(m_protectionLevel)));
    rows.Update();
}
