#pragma once

#include "model/c53Outcome.h"
#include "worksheets/Worksheet.h"

#include <memory>
#include <string>

class CostFigures;
class ModalForm;
class QLabel;
class QPlainTextEdit;
class QRadioButton;
class QPushButton;
namespace platform {
class EntryBox;
class Grid;
} // namespace platform

/// The suppression cost of every outcome, and for the current one where it comes from: its size, its
/// resources, or a number typed in. An outcome is saved when it is left.
class frm56_CostSummary : public Worksheet
{
    Q_OBJECT

public:
    explicit frm56_CostSummary(QWidget* parent);

    void Setup() override;
    /// Saves the current outcome.
    void SaveChanges() override;

protected:
    void BuildControls() override;

private:
    QWidget* BuildWork();
    QWidget* BuildOutcome();
    QWidget* BuildGuidelines();
    QLayout* BuildSources(QWidget* pane);
    void ConnectHandlers();

    /// The estimated cost of a row's outcome.
    std::string CostText(Long row);
    void ShowCostColumn();
    void ShowOutcomeCost();
    void SetSourceOption();
    void ShowSizeCost();
    void ShowSRUseCost();
    /// Fills a dialog, shows it until it is closed, and shows what it changed.
    void RunDialog(ModalForm& dialog);
    /// After a save that failed, once the event at hand is done: what could not be saved stays on the screen.
    void ReturnToCurrentRow();

    void grdOutcomes_EnterCell();
    void optSource_Click(c53Outcome::Cost source);
    void cmdSize_Click();
    void cmdSRUse_Click();
    void txtAdjustedCost_Change();
    void txtCostRationale_Change();

    platform::Grid* m_grdOutcomes = nullptr;
    QRadioButton* m_optSize = nullptr;
    QRadioButton* m_optSRUse = nullptr;
    QRadioButton* m_optAdjust = nullptr;
    QLabel* m_lblSize = nullptr;
    QLabel* m_lblSRUse = nullptr;
    QPushButton* m_cmdSize = nullptr;
    QPushButton* m_cmdSRUse = nullptr;
    platform::EntryBox* m_txtAdjustedCost = nullptr;
    QPlainTextEdit* m_txtCostRationale = nullptr;
    CostFigures* m_figures = nullptr;
    std::shared_ptr<c53Outcome> m_outcome; // the current one; nothing if the outcomes could not be read
};
