#pragma once

#include "platform/base/ChangedFlag.h"
#include "platform/base/Numbers.h"
#include "platform/data/Recordset.h"
#include "values/Edition.h"

#include <string>

/// A single named thing that the fire threatens, with its potential loss: a row of Items under group 23 and,
/// once it was saved, one of ValuesAtRisk. Shared by g36ThreatenedItems. Reads of the file and saves throw
/// DatabaseError.
class c36ThreatenedItem
{
public:
    explicit c36ThreatenedItem(Edition edition = kEdition) : m_edition(edition) {}

    Long ItemKey() const { return m_itemKey; }
    const std::string& ItemName() const { return m_itemName; }
    void SetItemName(const std::string& name) { m_changed.Write(m_itemName, name); }
    /// Dollars. A value below 0 becomes 0 at its first read.
    Double PotentialLoss();
    void SetPotentialLoss(Double dollars) { m_changed.Write(m_potentialLoss, dollars); }
    /// The percent by name ("Medium (50%)") or as a number.
    std::string ProbabilityLabel() const;
    /// A numeric text's value, a label's percent, else what the text begins with. Throws Overflow.
    void SetProbabilityLabel(const std::string& text);
    /// Percent; 100 in this edition.
    Long Probability() const { return m_probability; }
    /// Dollars: the potential loss by its probability, to two digits. Throws Overflow.
    Double ValueAtRisk();
    const std::string& Notes() const { return m_notes; }
    void SetNotes(const std::string& text) { m_changed.Write(m_notes, text); }

    /// Loads notes and potential loss; a missing row reads as empty and 0. Throws Overflow.
    void Initialize(Long key, const std::string& name);
    /// The same with the notes at hand; seeks the key in ValuesAtRisk, an open table.
    void InitializeFrom(Long key,
                        const std::string& name,
                        const std::string& notes,
                        platform::Recordset& valuesAtRisk);
    /// Only when changed. Without a row in Items it fails at the edit; one of ValuesAtRisk is added where
    /// missing.
    void SaveChanges();

private:
    void ReadValueAtRisk(const platform::Recordset& valuesAtRisk);
    void SaveItem();
    void SaveValueAtRisk();

    Long m_itemKey = 0;
    std::string m_itemName;
    Double m_potentialLoss = 0;
    Long m_probability = 0;
    Edition m_edition;
    std::string m_notes;
    platform::ChangedFlag m_changed;
};
