#pragma once

#include "model/c51Alternative.h"
#include "worksheets/Worksheet.h"

#include <array>
#include <memory>

class AlternativeList;
class OutcomeChances;
class OutcomeFork;
class OutcomePanel;
class QGridLayout;
class QLabel;

/// How likely the Target of each alternative is, and the Fallback of those that have one, with the reasons.
class frm44Probabilities : public Worksheet
{
    Q_OBJECT

public:
    explicit frm44Probabilities(QWidget* parent);

    void Setup() override;
    /// Saves both outcomes of the current alternative, if there is one.
    void SaveChanges() override;

protected:
    void BuildControls() override;

private:
    QWidget* BuildList();
    QWidget* BuildTree();
    QWidget* BuildName(QWidget* parent);
    QWidget* BuildChances(QWidget* parent);
    QWidget* BuildPanels(QWidget* parent);
    void ConnectHandlers();
    void EnableFields(bool enable);
    void ShowAlternative();
    /// Shows or hides what belongs to a Fallback, and moves the Extreme outcome to its place.
    void Position(bool fallback);
    void ShowPanels();
    void ShowChances(Long index);
    /// Stores a chance, in percent, within 0 and 100; the box and the chance of failure follow.
    void SetSuccess(Long index, Double percent);

    void lstAlternatives_Click();
    void txtSuccess_Change(Long index);
    void txtRationale_Change(Long index);

    /// 1 Target, 2 Fallback, 3 Extreme.
    OutcomePanel& PanelOf(Long index) { return *m_panels.at(static_cast<std::size_t>(index) - 1); }
    /// 1 Target, 2 Fallback.
    OutcomeChances& ChancesOf(Long index) { return *m_chances.at(static_cast<std::size_t>(index) - 1); }

    AlternativeList* m_lstAlternatives = nullptr;
    QWidget* m_tree = nullptr;
    QLabel* m_lblAlternative = nullptr;
    QLabel* m_lblInstructions = nullptr;
    QGridLayout* m_places = nullptr; // of the panels
    OutcomeFork* m_fork = nullptr;
    std::array<OutcomePanel*, 3> m_panels{};
    std::array<OutcomeChances*, 2> m_chances{};
    std::shared_ptr<c51Alternative> m_current;
};
