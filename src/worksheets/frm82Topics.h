#pragma once

#include "worksheets/TopicListForm.h"

/// Topics: the narrative topics of the decision summary.
class frm82Topics : public TopicListForm
{
    Q_OBJECT

public:
    explicit frm82Topics(QWidget* parent);

    void Setup() override;

protected:
    void BuildHead(QVBoxLayout& column) override;
    /// Without the form's name here.
    std::string ClickName() const override;
    QLabel* BuildAboveList(QVBoxLayout& left) override;
    void FillTopics() override;
    Long NewTopic() override;
    /// The description and the rationale of the decision cannot be deleted.
    void TopicShown() override;

private:
    void ShowAlternative();

    QLabel* m_lblAlternative = nullptr;
};
