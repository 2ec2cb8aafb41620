#pragma once

#include "worksheets/TopicForm.h"

class QPushButton;

/// A worksheet of topics to which the user adds others, and from which they may be deleted.
class TopicListForm : public TopicForm
{
    Q_OBJECT

protected:
    using TopicForm::TopicForm;

    void BuildBelowList(QVBoxLayout& left) override;
    void ConnectHandlers() override;
    /// The heading stands in the list, too.
    void WriteHeading(c0Item& topic, const std::string& heading) override;

    /// Lists the topics in their order, selects none.
    virtual void FillTopics() = 0;
    /// Adds a topic with an empty name to the file; its key.
    virtual Long NewTopic() = 0;
    /// The new topic is the current one; the focus has not moved yet.
    virtual void TopicAdded(c0Item&) {}

    /// Selects the first topic, which shows it; without topics there is nothing to write in or to delete.
    void SelectFirstTopic();
    void EnableDelete();
    /// The reason is its tool tip.
    void DisableDelete(const QString& reason);

    virtual void cmdNewTopic_Click();
    /// Asks no question.
    void cmdDelete_Click();

private:
    QPushButton* m_cmdNewTopic = nullptr;
    QPushButton* m_cmdDelete = nullptr;
};
