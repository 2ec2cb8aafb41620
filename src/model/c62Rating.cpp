#include "model/c62Rating.h"

#include "model/g42SafetyIssues.h"
#include "session/SessionState.h"
#include "session/u19RowData.h"

namespace {

// Fixed on purpose, whatever the number of categories is and whatever their priorities are: four rated
// categories give a total of 0 to 10.
constexpr Single kObjectiveWeight = 0.25F;

} // namespace

Single c62Rating::WeightedScore() const { return CalculateWeightedScore(); }

void c62Rating::Initialize(Long outcomeKey, Long criterionKey, bool bSafety, bool /*bRootOrCategory*/)
{
    InitializeEmpty(outcomeKey, criterionKey, bSafety);
    platform::Recordset rows = OpenDatabase().OpenTable("Scores");
    rows.Seek(m_outcomeKey, m_criterionKey);
    ReadRow(rows);
}

void c62Rating::InitializeEmpty(Long outcomeKey, Long criterionKey, bool bSafety)
{
    m_outcomeKey = outcomeKey;
    m_criterionKey = criterionKey;
    m_safety = bSafety;
    m_rawScore = 0.0F;
    m_description.clear();
}

void c62Rating::ReadRow(const platform::Recordset& row)
{
    m_rawScore = u19RowData::ReadSingle(row, "Value");
    m_description = u19RowData::ReadText(row, "Description");
}

void c62Rating::SaveChanges()
{
    if (!m_changed.IsSet()) {
        return;
    }
    platform::Recordset rows = OpenDatabase().OpenTable("Scores");
    rows.Seek(m_outcomeKey, m_criterionKey);
    if (rows.NoMatch()) {
        rows.AddNew();
        rows.Set("OutcomeKey", m_outcomeKey);
        rows.Set("CriterionKey", m_criterionKey);
    } else {
        rows.Edit();
    }
    rows.Set("Value", m_rawScore);
    rows.Set("Description", m_description);
    rows.Update();
    m_changed.Clear();
}

Single c62Rating::CalculateWeightedScore() const
{
    const Single factor =
        m_safety ? g42SafetyIssues::SafetyIssue(m_criterionKey)->Weight() : kObjectiveWeight;
    return platform::ToSingle(Double(factor) * Double(m_rawScore));
}

Single c62Rating::SumChildrenScores() const
{
    Single sum = 0.0F;
    for (const c62Rating* child : m_children) {
        sum = platform::ToSingle(Double(sum) + Double(child->WeightedScore()));
    }
    return sum;
}
