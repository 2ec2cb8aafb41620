#pragma once

#include "model/c51Alternative.h"
#include "platform/widgets/ListBox.h"

#include <memory>

class EmptyNote;

/// What a worksheet says that has nothing to show while there are no alternatives.
QString NoAlternativesYet();

/// `lstAlternatives`: the labels of the alternatives with their keys; while there are none a sentence stands
/// there.
class AlternativeList : public platform::ListBox
{
    Q_OBJECT

public:
    AlternativeList(const QString& sentence, QWidget* parent);

    /// Shows all alternatives afresh and selects none.
    void Fill();
    /// The alternative of the selected row; one must be selected.
    std::shared_ptr<c51Alternative> Chosen() const;
    /// The label of the selected row.
    std::string ChosenLabel() const { return List(ListIndex()); }
    /// Adds a row for it at the end; selects nothing.
    void Append(const c51Alternative& alternative);
    /// Writes its label into its row anew.
    void Rewrite(const c51Alternative& alternative);
    /// Selects its row again without a Click, once the event at hand is done: after a save that failed, what
    /// could not be saved stays on the screen.
    void ReturnTo(const std::shared_ptr<c51Alternative>& alternative);
    /// Selects the next row or the one before, if there is one.
    void MoveRow(Long step);

private:
    /// -1: it has none.
    Long RowOf(const c51Alternative& alternative) const;

    EmptyNote* m_note = nullptr;
};
