#pragma once

#include "worksheets/RatingsWorksheet.h"

class QPlainTextEdit;

/// How well each outcome addresses or mitigates each safety issue, and why it was rated so.
class frm52SafetyRatings : public RatingsWorksheet
{
    Q_OBJECT

public:
    explicit frm52SafetyRatings(QWidget* parent);

    void Setup() override;

protected:
    void BuildBelowGrid(QVBoxLayout& column) override;
    void SetupOutcomeColumns(platform::GridContents& grid) override;
    std::shared_ptr<c41Objective> CriterionOf(Long key) override;
    /// The first row is the tree's root, under which the issues stand.
    Long FirstCriterion() const override { return 1; }
    void CriterionShown() override;
    void RatingShown() override;
    void DisableAll() override;

private:
    void LoadCriteria();
    void txtRating_Change();

    QLabel* m_lblOutcome = nullptr;
    QPlainTextEdit* m_txtRating = nullptr;
};
