#pragma once

#include "model/c41Objective.h"
#include "platform/base/Collection.h"
#include "worksheets/Worksheet.h"

#include <memory>

class QHBoxLayout;
class QLabel;
class QVBoxLayout;
class RichBody;
namespace platform {
class EntryBox;
class Grid;
} // namespace platform

/// A worksheet on rows of the objective tree or the safety tree: a grid of their names, and beside it the
/// name and the description of the current one. A row is saved when it is left. Its forms say which rows
/// these are and add what is theirs.
class ObjectiveWorksheet : public Worksheet
{
    Q_OBJECT

public:
    /// Saves the current row's object, if there is one.
    void SaveChanges() override;

protected:
    using Objective = std::shared_ptr<c41Objective>;
    using Objectives = platform::Collection<Objective>;

    /// The fixed texts of a form.
    struct Texts
    {
        const char* title;
        const char* instructions;
        const char* header; // of the grid
        const char* name;   // beside the name's box
        const char* noRows; // why nothing can be filled in where there are no rows
    };
    ObjectiveWorksheet(const QString& name, const Texts& texts, QWidget* parent);

    void BuildControls() override;
    /// Adds what stands below the grid.
    virtual void BuildBelowGrid(QVBoxLayout& /*column*/) {}
    /// A row was shown; still busy.
    virtual void RowShown() {}

    /// A row for each of these below the grid's header.
    void LoadRows(const Objectives& objectives);
    /// Makes a row the current one and shows it, saving nothing. With no such row the boxes are empty.
    void SelectRow(Long row);
    /// Shows the grid's current row; a row without an object changes nothing.
    void ShowRow();
    /// The row of an object; 0 where there is none.
    Long RowOf(const c41Objective& objective) const;
    /// Takes the current row out of the grid, whose object is gone, and shows the row that stands there then.
    void RemoveCurrentRow();

    platform::Grid& Grid1() const { return *m_grid1; }
    QLabel& lblName() const { return *m_lblName; }
    platform::EntryBox& txtName() const { return *m_txtName; }
    /// The current row's object, or nothing.
    const Objective& Current() const { return m_current; }

private:
    QWidget* BuildRows();
    QWidget* BuildDetails();
    QHBoxLayout* BuildName(QWidget* parent);
    void ConnectHandlers();
    void Grid1_EnterCell();
    void txtName_Change();
    void MoveRow(Long step);
    void ShowNothing();
    /// After a save that failed: what could not be saved stays on the screen. Once the event at hand is done.
    void ReturnToCurrentRow();

    Texts m_texts;
    platform::Grid* m_grid1 = nullptr;
    QLabel* m_lblName = nullptr;
    platform::EntryBox* m_txtName = nullptr;
    RichBody* m_body = nullptr;
    Objective m_current;
};
