#pragma once

#include "platform/base/ChangedFlag.h"
#include "platform/base/Numbers.h"
#include "platform/data/Recordset.h"
#include "values/Edition.h"

#include <string>

/// What one threatened item loses in one outcome: a row of ItemImpacts, where there is one. Small, since each
/// outcome holds one for each item. Owned by its c65ItemImpactList, or by the worksheet that edits it.
/// Reads of the file and saves throw DatabaseError; figures out of range Overflow.
class c66ItemImpact
{
public:
    explicit c66ItemImpact(Edition edition = kEdition) : m_edition(edition) {}

    /// Dollars lost.
    platform::Currency Amount() const;
    void SetAmount(platform::Currency dollars) { m_changed.Write(m_amount, dollars); }
    /// Whether the protection level is 100.
    bool bProtected() const { return m_protectionLevel == 100; }
    /// Sets a level of 100 or 0.
    void SetbProtected(bool isProtected) { m_changed.Write(m_protectionLevel, isProtected ? 100 : 0); }
    /// The level by name ("Partly (50%)") or as a number.
    std::string ProtectionLabel() const;
    /// A numeric text's value, a label's percent, else what the text begins with.
    void SetProtectionLabel(const std::string& text);
    /// Percent; 0 in this edition until written, and not stored.
    Long ProtectionLevel() const { return m_protectionLevel; }
    /// Dollars of the item's value at risk that the outcome saves, to three digits. Throws MissingMember when
    /// the item is gone.
    Double ProtectedValue() const;

    /// Loads the amount; a missing row reads as 0.
    void Initialize(Long outcomeKey, Long itemKey);
    /// The pair without a row.
    void InitializeEmpty(Long outcomeKey, Long itemKey);
    /// The loss from a row of ItemImpacts at hand.
    void ReadLoss(const platform::Recordset& itemImpacts);
    /// Only when changed; adds the row where it is missing.
    void SaveChanges();

private:
    platform::Currency ClampedAmount() const;
    Double ProtectedByLevel() const;
    Double ProtectedByAmount() const;
    void SaveLoss();
    void SetLevelFromAmount();
    void SaveProtection();

    Long m_outcomeKey = 0;
    Long m_itemKey = 0;
    platform::Currency m_amount;
    Long m_protectionLevel = 0;
    Edition m_edition;
    platform::ChangedFlag m_changed;
};
