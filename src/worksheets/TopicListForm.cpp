#include "worksheets/TopicListForm.h"

#include "platform/widgets/Application.h"
#include "platform/widgets/EntryBox.h"
#include "platform/widgets/ListBox.h"
#include "session/g0Items.h"
#include "session/u91Trace.h"
#include "worksheets/WorksheetPanes.h"

using platform::Guarded;

void TopicListForm::BuildBelowList(QVBoxLayout& left)
{
    m_cmdNewTopic = WorksheetPanes::Button("cmdNewTopic", "&Add Topic", left.parentWidget());
    m_cmdDelete = WorksheetPanes::Button("cmdDelete", "Delete Topic", left.parentWidget());
    left.addLayout(WorksheetPanes::ButtonRow({m_cmdNewTopic, m_cmdDelete}));
}

void TopicListForm::ConnectHandlers()
{
    TopicForm::ConnectHandlers();
    connect(m_cmdNewTopic, &QPushButton::clicked, this, [this] { Guarded([this] { cmdNewTopic_Click(); }); });
    connect(m_cmdDelete, &QPushButton::clicked, this, [this] { Guarded([this] { cmdDelete_Click(); }); });
}

void TopicListForm::WriteHeading(c0Item& topic, const std::string& heading)
{
    TopicForm::WriteHeading(topic, heading);
    if (List().ListIndex() >= 0) List().SetList(List().ListIndex(), heading);
}

void TopicListForm::SelectFirstTopic()
{
    if (List().ListCount() == 0) {
        DisableDelete(QStringLiteral("There is no topic to delete."));
        ShowNoTopic();
        return;
    }
    EnableDelete();
    List().SetListIndex(0);
}

void TopicListForm::EnableDelete()
{
    m_cmdDelete->setEnabled(true);
    m_cmdDelete->setToolTip({});
}

void TopicListForm::DisableDelete(const QString& reason)
{
    m_cmdDelete->setEnabled(false);
    m_cmdDelete->setToolTip(reason);
}

void TopicListForm::cmdNewTopic_Click()
{
    u91Trace::Trace("cmdNewTopic_Click");
    // The item comes first, so that one that cannot be added leaves no row.
    const Long key = NewTopic();
    List().AddItem({}, key);
    List().SetListIndex(List().ListCount() - 1);
    TopicAdded(*g0Items::GetItem(key));
    Heading().setFocus();
}

void TopicListForm::cmdDelete_Click()
{
    if (CurrentTopic() == nullptr) return;
    g0Items::DeleteItem(CurrentTopic()->ItemKey());
    // Kept so: the current topic is still the deleted one when the next is shown, which saves it. A topic
    // that was changed comes back as a row without a parent.
    FillTopics();
    SelectFirstTopic();
    // Nothing is asked, so a key pressed once too often must not delete the next one.
    if (List().ListCount() > 0) List().setFocus();
}
