#include "values/c36ThreatenedItem.h"

#include "platform/data/Database.h"
#include "session/SessionState.h"
#include "session/u19RowData.h"
#include "session/u92Utilities.h"
#include "values/PercentLabels.h"

namespace {

constexpr PercentLabels::Label kProbabilities[] = {
    {0, ""},
    {5, "Very Low (5%)"},
    {25, "Low (25%)"},
    {50, "Medium (50%)"},
    {75, "High (75%)"},
    {95, "Very High (95%)"},
};

/// What the potential loss of an item without a row is taken to be likely, percent.
constexpr Long ProbabilityWithoutRow(Edition edition) { return edition == Edition::Advanced ? 50 : 100; }

/// The Basic and Standard editions know no probability but this.
Long ProbabilityOfRow(Edition edition, const platform::Recordset& row)
{
    return edition == Edition::Advanced ? u19RowData::ReadLong(row, "Probability") : 100;
}

} // namespace

Double c36ThreatenedItem::PotentialLoss()
{
    // Kept: the correction is no change, so that a look alone makes nothing to save.
    if (m_potentialLoss < 0) {
        m_potentialLoss = 0;
    }
    return m_potentialLoss;
}

std::string c36ThreatenedItem::ProbabilityLabel() const
{
    return PercentLabels::TextOf(kProbabilities, m_probability);
}

void c36ThreatenedItem::SetProbabilityLabel(const std::string& text)
{
    m_changed.Write(m_probability, PercentLabels::PercentOf(kProbabilities, text));
}

Double c36ThreatenedItem::ValueAtRisk()
{
    return u92Utilities::RoundSignificant(Double(m_probability) * PotentialLoss() / 100.0, 2);
}

void c36ThreatenedItem::Initialize(Long key, const std::string& name)
{
    platform::Recordset items = OpenDatabase().OpenTable("Items");
    items.Seek(key);
    platform::Recordset valuesAtRisk = OpenDatabase().OpenTable("ValuesAtRisk");
    InitializeFrom(key, name, u19RowData::ReadText(items, "ItemText"), valuesAtRisk);
}

void c36ThreatenedItem::InitializeFrom(Long key,
                                       const std::string& name,
                                       const std::string& notes,
                                       platform::Recordset& valuesAtRisk)
{
    m_itemKey = key;
    m_itemName = name;
    m_notes = notes;
    valuesAtRisk.Seek(key);
    ReadValueAtRisk(valuesAtRisk);
}

void c36ThreatenedItem::SaveChanges()
{
    if (!m_changed.IsSet()) {
        return;
    }
    SaveItem();
    SaveValueAtRisk();
    m_changed.Clear();
}

void c36ThreatenedItem::ReadValueAtRisk(const platform::Recordset& valuesAtRisk)
{
    if (valuesAtRisk.NoMatch()) {
        m_potentialLoss = 0;
        m_probability = ProbabilityWithoutRow(m_edition);
        return;
    }
    m_potentialLoss =
        u92Utilities::RoundSignificant(Double(u19RowData::ReadSingle(valuesAtRisk, "PotentialLoss")), 3);
    m_probability = ProbabilityOfRow(m_edition, valuesAtRisk);
}

void c36ThreatenedItem::SaveItem()
{
    platform::Recordset items = OpenDatabase().OpenTable("Items");
    items.Seek(m_itemKey);
    items.Edit();
    items.Set("ItemName", m_itemName);
    items.Set("ItemText", m_notes);
    items.Update();
}

void c36ThreatenedItem::SaveValueAtRisk()
{
    platform::Recordset valuesAtRisk = OpenDatabase().OpenTable("ValuesAtRisk");
    valuesAtRisk.Seek(m_itemKey);
    if (valuesAtRisk.NoMatch()) {
        valuesAtRisk.AddNew();
        valuesAtRisk.Set("ItemKey", m_itemKey);
    } else {
        valuesAtRisk.Edit();
    }
    valuesAtRisk.Set("PotentialLoss", platform::ToSingle(m_potentialLoss));
    valuesAtRisk.Set("Probability", Long(platform::ToInteger(m_probability)));
    valuesAtRisk.Update();
}
