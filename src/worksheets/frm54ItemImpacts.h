#pragma once

#include "platform/base/Numbers.h"
#include "values/c66ItemImpact.h"
#include "worksheets/SavesBetweenCells.h"
#include "worksheets/Worksheet.h"

#include <memory>
#include <string>
#include <vector>

class QLabel;
class QPushButton;
class c36ThreatenedItem;
namespace platform {
class Grid;
}

/// The things that the fire threatens, and what each of them would lose in every outcome. The impacts are the
/// form's own, one an outcome, and go straight to the file; those of the loaded alternatives are dropped when
/// the worksheet is left.
class frm54ItemImpacts : public Worksheet
{
    Q_OBJECT

public:
    explicit frm54ItemImpacts(QWidget* parent);
    ~frm54ItemImpacts() override;

    void Setup() override;
    /// Saves the current item, and every impact that is changed: the current one, and any that could not be
    /// saved before.
    void SaveChanges() override;

protected:
    void BuildControls() override;

private:
    using Item = std::shared_ptr<c36ThreatenedItem>;
    enum Column : Long { Name = 0, Kind = 1, Size = 2, Loss = 3 };
    static constexpr Long kFirstRow = 1;
    static constexpr int kLongestLoss = 12; // characters

    // frm54ItemImpactsLayout.cpp
    QWidget* BuildItems();
    QWidget* BuildImpacts();
    void ConnectHandlers();
    void ConnectImpacts();

    // frm54ItemImpacts.cpp
    void SetupItemGrid();
    void SetupImpactGrid();
    void CreateImpactObjects();
    void ShowFirstItem();
    void ShowItem();
    void ShowItemImpacts(Long itemKey);
    void ClearItem();
    void DisableImpacts();
    void EnableDelete(bool enabled);
    /// Makes a row of the items the current one and shows it, saving and editing nothing.
    void SelectItem(Long row);
    void SaveAll();
    c66ItemImpact& ImpactOf(Long row) { return m_impacts.at(static_cast<std::size_t>(row) - 1); }
    bool HasImpact(Long row) const;
    std::string AmountText(Long row);

    // frm54ItemImpactsGrids.cpp
    /// After a save that failed: what could not be saved stays on the screen. Once the event at hand is done.
    void ReturnToItem();
    void grdItems_EnterCell();
    void grdItems_ChangeEdit();
    void grdItems_AfterEdit();
    void grdImpacts_EnterCell();
    void grdImpacts_Click();
    void grdImpacts_BeforeEdit(Long row, Long column, bool& cancel);
    void grdImpacts_ChangeEdit();
    void grdImpacts_AfterEdit(Long row, Long column);
    void cmdAddItem_Click();
    void cmdDeleteItem_Click();

    platform::Grid* m_grdItems = nullptr;
    QLabel* m_lblNoItems = nullptr;
    QPushButton* m_cmdAddItem = nullptr;
    QPushButton* m_cmdDeleteItem = nullptr;
    QLabel* m_lblCriterion = nullptr;
    platform::Grid* m_grdImpacts = nullptr;
    Item m_item;
    std::vector<c66ItemImpact> m_impacts; // the first is row 1's
    Long m_impactRow = 0;                 // of the current impact; 0: none is
    SavesBetweenCells m_saves;
    bool m_leaving = false; // SaveChanges ends the edits and saves itself
};
