#pragma once

#include "model/c41Objective.h"
#include "model/c62Rating.h"
#include "platform/controls/GridContents.h"
#include "worksheets/SavesBetweenCells.h"
#include "worksheets/Worksheet.h"

#include <memory>
#include <vector>

class QLabel;
class QVBoxLayout;
namespace platform {
class Grid;
class ListBox;
} // namespace platform

/// A worksheet that scores every outcome against one criterion at a time: the criteria in a list, and a grid
/// of the outcomes, each with a number to type and a bar to drag. The ratings are the form's own, one a row,
/// and go straight to the file; those of the loaded alternatives are dropped when the worksheet is left.
class RatingsWorksheet : public Worksheet
{
    Q_OBJECT

public:
    /// Saves every rating that is changed: the current one, and any that could not be saved before.
    void SaveChanges() override;

protected:
    /// The fixed texts of a form.
    struct Texts
    {
        const char* caption;
        const char* title;
        const char* listTitle;
        const char* listHint;
        const char* criterion;  // ahead of the criterion's name
        const char* gridHint;   // what to do in the grid
        const char* noCriteria; // why nothing can be rated where there is none
    };
    enum Column : Long { Name = 0, Kind = 1, Size = 2, Score = 3, Bar = 4 };

    RatingsWorksheet(const QString& name, const Texts& texts, QWidget* parent);
    ~RatingsWorksheet() override;

    void BuildControls() override;
    /// Adds what stands above the grid and below it, on the right.
    virtual void BuildAboveGrid(QVBoxLayout& /*column*/) {}
    virtual void BuildBelowGrid(QVBoxLayout& /*column*/) {}
    /// Sets up the columns of the outcomes, the first three; the grid has all five already.
    virtual void SetupOutcomeColumns(platform::GridContents& grid) = 0;
    virtual std::shared_ptr<c41Objective> CriterionOf(Long key) = 0;
    /// The list's first row that can be rated; those above it cannot be chosen.
    virtual Long FirstCriterion() const { return 0; }
    /// The criterion and its ratings were shown; still busy.
    virtual void CriterionShown() {}
    /// The current row's rating is to be shown beside the grid.
    virtual void RatingShown() {}
    virtual void Grid1_AfterEdit(Long row, Long column);

    /// The grid's columns and rows, a new rating a row; after it nothing is current.
    void LoadGrid();
    /// Chooses the first criterion; where there is none all is disabled and says why.
    void ShowFirstCriterion();
    virtual void DisableAll();
    /// Makes a row the current one and shows its rating, saving and editing nothing.
    void SelectRow(Long row);
    /// What is saved between two cells; tells a failure once.
    void SaveTyped();
    void RatingTyped() { m_saves.TellAgain(); }

    platform::ListBox& lstObjectives() const { return *m_lstObjectives; }
    platform::Grid& Grid1() const { return *m_grid1; }
    /// Nothing before one is chosen.
    const std::shared_ptr<c41Objective>& Criterion() const { return m_criterion; }
    /// 0: no row is current.
    Long CurrentRow() const { return m_row; }
    c62Rating& RatingOf(Long row) { return m_ratings.at(static_cast<std::size_t>(row) - 1); }

private:
    static constexpr int kLongestScore = 4; // characters

    // RatingsWorksheetLayout.cpp
    QWidget* BuildList();
    QWidget* BuildRatings();
    void ConnectHandlers();
    void ConnectGrid();

    // RatingsWorksheet.cpp
    bool CanRate(Long row) const;
    void SaveRatings();
    /// The list shows the criterion whose ratings stand in the grid, once the event at hand is done.
    void ReturnToCriterion();
    void ShowCriterion(Long index);
    void GetRatingsForCriterion(Long key);
    void ShowScore(Long row);
    void lstObjectives_Click();

    // RatingsWorksheetGrid.cpp
    void SetScore(Long row, Single score);
    void DragStep(Long row, Single place);
    /// Applies a drag while the pointer is on its row, beyond the bar's ends too.
    bool DragTo(Long row, Long column, Single place);
    void Grid1_EnterCell();
    void Grid1_Click();
    void Grid1_BeforeEdit(Long row, Long column, bool& cancel);
    void Grid1_KeyPressEdit(const QString& key, bool& drop);
    void Grid1_ChangeEdit();
    void Grid1_MouseDown(Long row, Long column, Single place);
    void Grid1_MouseMove(Long row, Long column, Single place);
    void Grid1_MouseUp(Long row, Long column, Single place);
    void Grid1_BarStep(int steps);

    Texts m_texts;
    platform::ListBox* m_lstObjectives = nullptr;
    QLabel* m_lblCriterion = nullptr;
    platform::Grid* m_grid1 = nullptr;
    QLabel* m_lblNoAlternatives = nullptr;
    std::vector<c62Rating> m_ratings; // the first is row 1's
    std::shared_ptr<c41Objective> m_criterion;
    Long m_index = -1; // of the criterion in the list
    Long m_row = 0;
    Long m_dragRow = 0; // where a drag of the bar began; 0: there is none
    SavesBetweenCells m_saves;
    bool m_leaving = false; // SaveChanges ends the edit and saves itself
};
