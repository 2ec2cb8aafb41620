#pragma once

#include "platform/base/ChangedFlag.h"
#include "platform/base/Numbers.h"
#include "platform/data/Recordset.h"

#include <string>
#include <vector>

/// How well one outcome satisfies one criterion, 0 (worst) to 10 (best): a row of Scores, which exists only
/// once it was saved. Reads and saves throw DatabaseError.
class c62Rating
{
public:
    /// Always false: a rating of a category counts like every other.
    bool bCategory() const { return false; }
    // The root flag is never set, so the safety root counts like an issue.
    bool bSafetyRoot() const { return m_safety && m_root; }
    bool bSafetyIssue() const { return m_safety && !m_root; }
    Single RawScore() const { return m_rawScore; }
    void SetRawScore(Single score) { m_changed.Write(m_rawScore, score); }
    const std::string& Description() const { return m_description; }
    void SetDescription(const std::string& text) { m_changed.Write(m_description, text); }
    /// The raw score times the issue's weight, or times 0.25 for a row of the objective tree. Throws
    /// MissingMember for a safety issue that is gone, and what its Weight throws.
    Single WeightedScore() const;
    Single CategoryScore() const { return m_rawScore; }

    /// Reads the row; without one the score is 0 and the description empty. The last argument changes
    /// nothing.
    void Initialize(Long outcomeKey, Long criterionKey, bool bSafety, bool bRootOrCategory);
    /// The same without a look at the file: a rating that has no row.
    void InitializeEmpty(Long outcomeKey, Long criterionKey, bool bSafety);
    /// Takes score and description from its row, on which the cursor stands.
    void ReadRow(const platform::Recordset& row);
    /// Only when changed: edits the row, or adds it.
    void SaveChanges();
    /// The child is not owned and has no influence on any score.
    void AddChild(const c62Rating& rating) { m_children.push_back(&rating); }

private:
    Single CalculateWeightedScore() const;
    Single SumChildrenScores() const;

    bool m_root = false; // no operation sets it
    bool m_safety = false;
    Long m_outcomeKey = 0;
    Long m_criterionKey = 0;
    Single m_rawScore = 0.0F;
    std::string m_description;
    platform::ChangedFlag m_changed;
    std::vector<const c62Rating*> m_children;
};
