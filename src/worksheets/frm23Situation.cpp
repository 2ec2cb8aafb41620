#include "worksheets/frm23Situation.h"

#include "platform/widgets/ListBox.h"
#include "session/UIMode.h"
#include "session/g2Situation.h"
#include "worksheets/WorksheetParts.h"

frm23Situation::frm23Situation(QWidget* parent)
    : TopicListForm(QStringLiteral("frm23Situation"), QStringLiteral("Conditions"), parent)
{}

void frm23Situation::Setup()
{
    BeginSetup(3, "tab23");
    const UIMode::Busy busy;
    FillTopics();
    SelectFirstTopic();
}

void frm23Situation::BuildHead(QVBoxLayout& column)
{
    column.addWidget(WorksheetParts::Instruction(
        QStringLiteral("Click on each topic below and fill in narrative on the right."), this));
}

QLabel* frm23Situation::BuildAboveList(QVBoxLayout& left)
{
    auto* caption = new QLabel(QStringLiteral("Topics"), left.parentWidget());
    left.addWidget(caption);
    return caption;
}

void frm23Situation::FillTopics()
{
    List().Clear();
    for (const auto& topic : g2Situation::GetSituationTopics())
        List().AddItem(topic->ItemName(), topic->ItemKey());
}

void frm23Situation::WriteHeading(c0Item& topic, const std::string& heading)
{
    topic.SetItemName(heading);
    TopicListForm::WriteHeading(topic, heading);
}

Long frm23Situation::NewTopic()
{
    SaveChanges();
    return g2Situation::NewSituationTopic({});
}

void frm23Situation::TopicAdded(c0Item& topic)
{
    topic.SetHeading({}); // counts as a change: deleted at once, the topic comes back as a changed one does
    EnableDelete();
}
