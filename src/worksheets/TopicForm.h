#pragma once

#include "session/c0Item.h"
#include "worksheets/Worksheet.h"

#include <memory>
#include <string>

class QLabel;
class QVBoxLayout;
class RichBody;
class TopicInstructions;
namespace platform {
class EntryBox;
class ListBox;
} // namespace platform

/// A worksheet of narrative topics: one picks a topic in `lstTopics` and fills in its heading and its
/// narrative. What the user changes goes to the topic's item at once; the items are saved when another topic
/// is picked and when the worksheet is left.
class TopicForm : public Worksheet
{
    Q_OBJECT

public:
    /// The topic's on the screen, if there is one.
    void SaveChanges() override;

protected:
    TopicForm(const QString& name, const QString& title, QWidget* parent);

    void BuildControls() override;
    /// What stands across the whole form below its title.
    virtual void BuildHead(QVBoxLayout&) {}
    /// What stands above the list; the last of it, which is returned, is or holds the list's caption.
    virtual QLabel* BuildAboveList(QVBoxLayout& left) = 0;
    virtual void BuildBelowList(QVBoxLayout&) {}
    virtual void ConnectHandlers();

    /// A value that is only shown, close below its caption; its label, yet empty.
    static QLabel* AddValue(QVBoxLayout& column, const char* caption, const char* name);

    /// What the trace of a click begins with.
    virtual std::string ClickName() const;
    /// A topic's heading was changed by the user.
    virtual void WriteHeading(c0Item& topic, const std::string& heading);
    /// The current topic has just been shown.
    virtual void TopicShown() {}

    /// Puts the current topic's heading and narrative on the screen.
    void ShowTopic();
    /// Empty and disabled, for a list without topics. The sentence stands above, the reason is a tool tip.
    void ShowNoTopic();

    void lstTopics_Click();
    void txtHeading_Change();

    platform::ListBox& List() const { return *m_lstTopics; }
    platform::EntryBox& Heading() const { return *m_txtHeading; }
    RichBody& Body() const { return *m_body; }
    const std::shared_ptr<c0Item>& CurrentTopic() const { return m_currentTopic; }

private:
    QWidget* BuildLeft();
    QWidget* BuildRight();
    /// After a click that failed: the list goes back to the topic on the screen.
    void SelectCurrentTopicLater();
    void SelectCurrentTopic();

    platform::ListBox* m_lstTopics = nullptr;
    platform::EntryBox* m_txtHeading = nullptr;
    RichBody* m_body = nullptr;
    TopicInstructions* m_instructions = nullptr;
    QLabel* m_lblNoTopic = nullptr;
    std::shared_ptr<c0Item> m_currentTopic;
};
