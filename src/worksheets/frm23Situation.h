#pragma once

#include "worksheets/TopicListForm.h"

/// Conditions: the narrative topics of the Situation section.
class frm23Situation : public TopicListForm
{
    Q_OBJECT

public:
    explicit frm23Situation(QWidget* parent);

    void Setup() override;

protected:
    void BuildHead(QVBoxLayout& column) override;
    QLabel* BuildAboveList(QVBoxLayout& left) override;
    /// A topic's name and heading are one here.
    void WriteHeading(c0Item& topic, const std::string& heading) override;
    void FillTopics() override;
    Long NewTopic() override;
    void TopicAdded(c0Item& topic) override;
};
