#pragma once

#include "worksheets/RatingsWorksheet.h"

namespace platform {
class RichTextEdit;
}

/// How well each outcome satisfies each objective category.
class frm53Ratings : public RatingsWorksheet
{
    Q_OBJECT

public:
    explicit frm53Ratings(QWidget* parent);

    void Setup() override;

protected:
    void BuildAboveGrid(QVBoxLayout& column) override;
    void SetupOutcomeColumns(platform::GridContents& grid) override;
    std::shared_ptr<c41Objective> CriterionOf(Long key) override;
    void CriterionShown() override;
    void Grid1_AfterEdit(Long row, Long column) override;

private:
    void LoadCriteria();

    platform::RichTextEdit* m_txtDescription = nullptr;
};
