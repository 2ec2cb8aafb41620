#pragma once

#include "model/c53Outcome.h"
#include "worksheets/Worksheet.h"

#include <memory>
#include <string>

class QGridLayout;
class QLabel;
class QPushButton;
class RichBody;
namespace platform {
class EntryBox;
class Grid;
} // namespace platform

/// The outcomes of all alternatives and the shared Extreme one: their sizes, times and descriptions. An
/// outcome is saved when its row is left.
class frm43Outcomes : public Worksheet
{
    Q_OBJECT

public:
    explicit frm43Outcomes(QWidget* parent);

    void Setup() override;
    /// Saves the current outcome, if there is one.
    void SaveChanges() override;

protected:
    void BuildControls() override;

private:
    using Outcome = std::shared_ptr<c53Outcome>;

    QWidget* BuildGrid();
    QWidget* BuildSide();
    QWidget* BuildDetails(QWidget* parent);
    QWidget* BuildOutcome(QWidget* parent);
    platform::EntryBox* AddBox(QGridLayout& grid, const char* name, const char* label, const char* unit);
    void ConnectHandlers();
    void ConnectKeys();
    /// Makes the outcome of the grid's current row the current one and shows it; a row without one changes
    /// nothing.
    void ShowRow();
    void ShowOutcome();
    /// Into the current outcome's row.
    void ShowInGrid(Long column, const std::string& text);
    Long RowOf(const c53Outcome& outcome) const;
    /// After a save that failed: what could not be saved stays on the screen. Once the event at hand is done.
    void ReturnToCurrentRow();

    void grdOutcomes_EnterCell();
    void txtSize_Change();
    void txtContain_Change();
    void txtControl_Change();

    platform::Grid* m_grdOutcomes = nullptr;
    QLabel* m_lblNone = nullptr; // shown while there are no alternatives
    platform::EntryBox* m_txtSize = nullptr;
    platform::EntryBox* m_txtContain = nullptr;
    platform::EntryBox* m_txtControl = nullptr;
    QPushButton* m_cmdFallback = nullptr;
    RichBody* m_body = nullptr;
    Outcome m_current;
};
