#pragma once

#include "model/c53Outcome.h"
#include "values/c68SRUse.h"
#include "worksheets/ModalForm.h"

#include <memory>

class CostFigures;
class EmptyNote;
class QLabel;
class QPushButton;
class QStackedWidget;
class QTabBar;
class ResourceTypePanel;
namespace platform {
class Grid;
class GridContents;
class ListBox;
} // namespace platform

/// The suppression resources of every outcome: lines picked from the file's master list, or copied from
/// another outcome, with quantity, periods and place edited in the grid. A line is saved when it is left.
class frm562SRUseList : public ModalForm
{
    Q_OBJECT

public:
    explicit frm562SRUseList(QWidget* parent);

    void Setup() override;
    /// Saves the current line.
    void SaveChanges() override;

protected:
    void BuildControls() override;
    void Form_Unload() override;
    std::string UnsavedText(const std::string& cause) const override;

private:
    using Outcome = std::shared_ptr<c53Outcome>;
    using Use = std::shared_ptr<c68SRUse>;

    void BuildUseList();
    QWidget* BuildTabs();
    QWidget* BuildMasterTab();
    QWidget* BuildCopyTab();
    QWidget* BuildLines();
    QLayout* BuildTotal(QWidget* pane);
    void SetTabOrders();
    void ConnectHandlers();
    void ConnectLines();
    void ConnectPanel();

    void SetupOutcomeGrids();
    void SetupSRGrid();
    void FillMasterList();
    void ShowSRCostColumn();
    void ShowOutcome();
    void FillLines();
    void ShowUseRow(const Use& use, Long row);
    void ShowRowColors(Long row);
    void ShowRowCost(const c68SRUse& use, Long row);
    void ShowTotalCost();
    void ShowCopyLists();
    /// The lines in the grid.
    Long Lines() const;
    void ClearRowColors();

    /// False when the current line could not be saved. That is told once, and the line becomes the current
    /// one again, with what was typed, when the event at hand is done.
    bool LineSaved();
    void ReturnToLine();
    void ReturnToOutcome();
    /// Starts editing the current cell where it is a number of the line.
    void EditCell();
    void DeleteCurrentRow();
    void EnableDelete(bool enable);
    /// Brings the current line to the place typed into its number; a failure leaves all as it was.
    void MoveLine(Long row);
    /// Renumbers the rows that make room.
    void MoveRow(Long from, Long to);
    Long Number(Long column) const;
    void SetNumber(Long column, Long number);
    void ShowAddPanel(bool show);

    void grdOutcomes_EnterCell();
    void TabStrip1_Click(int tab);
    void lstSRMaster_Click();
    void grdLists_EnterCell();
    void cmdCopy_Click();
    void grdSRList_EnterCell();
    void grdSRList_LeaveCell(Long row, Long column);
    void grdSRList_BeforeEdit(Long row, Long column, bool& cancel);
    void grdSRList_ChangeEdit();
    void grdSRList_AfterEdit(Long row, Long column);
    void grdSRList_LostFocus();
    void grdSRList_KeyDown(int key, bool& swallow);
    void cmdDelete_Click();
    void cmdAddItem_Click();
    void cmdOK_Click();
    void cmdCancel_Click();

    QWidget* m_pnlSRUse = nullptr;
    platform::Grid* m_grdOutcomes = nullptr;
    QTabBar* m_tabStrip1 = nullptr;
    QStackedWidget* m_tabs = nullptr;
    platform::ListBox* m_lstSRMaster = nullptr;
    QPushButton* m_cmdAddItem = nullptr;
    platform::Grid* m_grdLists = nullptr;
    QPushButton* m_cmdCopy = nullptr;
    platform::Grid* m_grdSRList = nullptr;
    QPushButton* m_cmdDelete = nullptr;
    QLabel* m_pnlCost = nullptr;
    QPushButton* m_cmdClose = nullptr;
    ResourceTypePanel* m_pnlAdd = nullptr;
    EmptyNote* m_noTypes = nullptr;
    CostFigures* m_figures = nullptr;

    Outcome m_outcome;            // the current one
    Use m_use;                    // the current line, or nothing
    std::string m_positionBefore; // what the number of a line read when its edit began
    bool m_returnsToLine = false; // it could not be saved, which was told
};
