#pragma once

#include "platform/controls/ListContents.h"
#include "worksheets/TopicForm.h"

class QComboBox;

/// Decision: which alternative is selected, its description, which is composed when it is selected, and the
/// rationale.
class frm65Decision : public TopicForm
{
    Q_OBJECT

public:
    explicit frm65Decision(QWidget* parent);

    void Setup() override;

protected:
    QLabel* BuildAboveList(QVBoxLayout& left) override;
    /// The list is as high as its two topics.
    void BuildBelowList(QVBoxLayout& left) override;
    void ConnectHandlers() override;
    /// The caret goes into the narrative.
    void TopicShown() override;
    /// The wheel over the combo box chooses nothing: a narrative would be replaced unasked.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void BuildChoice(QVBoxLayout& left);
    void FillAlternatives();
    void ShowLeastCost();
    /// Selects the selected alternative in the combo box, which raises its click.
    void ShowDecision();
    void Select(Long key);
    /// As a tool tip, since a long one is cut in a narrow box.
    void ShowWholeLabel();
    void FillTopics();

    void cboAlternatives_Click();
    /// By the user: another alternative than before replaces the description.
    void ChooseAlternative();
    /// While the form is set up: a description kept in plain text, as older files have it, is composed anew.
    void ComposePlainDescription();
    void SetDescription(const std::string& body);
    /// After a click that failed: the combo box goes back to the alternative that is selected.
    void ReturnToSelected();
    Long ChosenKey() const;

    QComboBox* m_cboAlternatives = nullptr;
    QLabel* m_lblLeastCost = nullptr;
    QLabel* m_lblNoAlternatives = nullptr;
    platform::ListContents m_alternatives; // what the combo box shows
};
