#pragma once

#include "worksheets/ObjectiveWorksheet.h"

class QPushButton;

/// The safety issues of the fire below their category: added, named, described, deleted.
class frm32SafetyIssues : public ObjectiveWorksheet
{
    Q_OBJECT

public:
    explicit frm32SafetyIssues(QWidget* parent);

    void Setup() override;

protected:
    void BuildBelowGrid(QVBoxLayout& column) override;
    void RowShown() override;

private:
    void cmdAdd_Click();
    void cmdDelete_Click();

    QPushButton* m_cmdAdd = nullptr;
    QPushButton* m_cmdDelete = nullptr;
};
