#pragma once

#include "worksheets/Worksheet.h"

#include <array>
#include <exception>

class DecisionTreePicture;
class QComboBox;
class QSplitter;

namespace platform {
class ListContents;
}

/// The decision trees of one alternative, or of two for comparison. Its figures are the model's at each
/// choice; nothing is written.
class frm63DecisionTree : public Worksheet
{
    Q_OBJECT

public:
    explicit frm63DecisionTree(QWidget* parent);

    /// Opens on the first alternative and, where there are two, on the second beside it.
    void Setup() override;

protected:
    void BuildControls() override;
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Panel
    {
        QWidget* frame = nullptr;
        QComboBox* cboAlternative = nullptr;
        DecisionTreePicture* picDecisionTree = nullptr;
    };

    void BuildPanel(Panel& panel, int index);
    void ConnectHandlers();
    /// Fills a combo box and chooses a row of it, which draws its panel.
    void OpenPanel(int index, const platform::ListContents& alternatives, int row);
    /// Disabled; its tool tip says why.
    void EmptyCombo(Panel& panel, const QString& reason);
    void HideSecondPicture(const QString& reason);
    void ShowNoAlternatives();
    /// Draws the chosen alternative. A figure that fails leaves a sentence on the panel, and its error goes
    /// to the event loop's guard once the handler is done, so that the combo box is whole when it is told.
    void cboAlternative_Click(int index);
    void RaiseLater(std::exception_ptr failure);
    void Raise();
    /// Both trees in one size, as far as their panels are of one size.
    void FitTrees();
    QSize RoomOf(const Panel& panel) const;
    /// Side by side where two whole trees can be read so, else one above the other.
    void ArrangePanels();
    Panel& At(int index) { return m_panels.at(static_cast<std::size_t>(index) - 1); }

    std::array<Panel, 2> m_panels; // 1 and 2
    QSplitter* m_splitter = nullptr;
    std::exception_ptr m_failure; // not yet raised
};
