#pragma once

#include "platform/base/Numbers.h"
#include "worksheets/ModalForm.h"

class CostFigures;
class c35AACTable;
namespace platform {
class Grid;
}

/// What suppression costs an acre by size class, edited in place; beside it what that makes for each outcome,
/// which follows every key. Nothing reaches the file before the dialog closes.
class frm561CostPerAcre : public ModalForm
{
    Q_OBJECT

public:
    explicit frm561CostPerAcre(QWidget* parent);

    /// Throws MissingMember in a file with land units: the table is the one of files without.
    void Setup() override;
    void SaveChanges() override;

protected:
    void BuildControls() override;
    std::string UnsavedText(const std::string& cause) const override;

private:
    QWidget* BuildOutcomes();
    QWidget* BuildCosts();
    void SetupGrids();
    void ConnectHandlers();
    void DisplayPerAcreData();
    /// The class of a row as it is stored.
    void ShowClass(Long row);
    /// Column 0 of a row, from the upper bound of the row before.
    void SetFromCell(Long row, Single top);
    void ShowOutcomeCosts();
    /// Puts a number into the table; one that makes a cost too large is told, and the former one stays.
    void Write(Long row, Long column, Single number);
    void Store(Long row, Long column, Single number);
    Single Stored(Long row, Long column) const;

    /// Starts editing the current cell where it is a size or a cost.
    void EditCell();

    void grdCosts_EnterCell();
    void grdCosts_BeforeEdit(Long column, bool& cancel);
    void grdCosts_ChangeEdit();
    void grdCosts_AfterEdit(Long row, Long column);

    platform::Grid* m_grdOutcomes = nullptr;
    platform::Grid* m_grdCosts = nullptr;
    CostFigures* m_figures = nullptr;
    c35AACTable* m_table = nullptr; // g33FMUs owns it
    bool m_costsCounted = false;    // every outcome's cost could be computed
};
