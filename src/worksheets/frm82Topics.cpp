#include "worksheets/frm82Topics.h"

#include "model/g51Alternatives.h"
#include "platform/controls/ListContents.h"
#include "platform/widgets/Application.h"
#include "platform/widgets/ListBox.h"
#include "platform/widgets/Theme.h"
#include "session/UIMode.h"
#include "session/g0Items.h"
#include "values/g8Summary.h"
#include "worksheets/DecisionTopics.h"
#include "worksheets/WorksheetParts.h"

namespace Theme = platform::Theme;

frm82Topics::frm82Topics(QWidget* parent)
    : TopicListForm(QStringLiteral("frm82Topics"), QStringLiteral("Topics"), parent)
{}

void frm82Topics::Setup()
{
    BeginSetup(2, "tab82");
    const UIMode::Busy busy;
    platform::Guarded([this] { ShowAlternative(); });
    FillTopics();
    SelectFirstTopic();
}

void frm82Topics::BuildHead(QVBoxLayout& column)
{
    column.addWidget(WorksheetParts::Instruction(
        QStringLiteral("Click on each topic name below and fill in a narrative on the right.  "
                       "Add additional topics as needed."),
        this));
}

QLabel* frm82Topics::BuildAboveList(QVBoxLayout& left)
{
    m_lblAlternative = AddValue(left, "Selected Alternative", "lblAlternative");
    m_lblAlternative->setText(
        QStringLiteral("None yet. Select one on the worksheet Decision of the section Comparison."));
    left.addSpacing(Theme::GroupGap() - Theme::Gap());
    auto* caption = new QLabel(QStringLiteral("Decision Summary Topics"), left.parentWidget());
    left.addWidget(caption);
    return caption;
}

std::string frm82Topics::ClickName() const { return "lstTopics_Click "; }

void frm82Topics::ShowAlternative()
{
    const auto selected = g51Alternatives::SelectedAlternative();
    if (selected == nullptr) return;
    m_lblAlternative->setText(QString::fromStdString(selected->Label()));
}

void frm82Topics::FillTopics()
{
    platform::ListContents topics;
    g8Summary::AddItem(topics);
    List().Show(topics);
}

Long frm82Topics::NewTopic() { return g0Items::NewItem({}, g0Items::SummaryGroup); }

void frm82Topics::TopicShown()
{
    const Long key = CurrentTopic()->ItemKey();
    if (key == DecisionTopic::SelectedDescription || key == DecisionTopic::SelectionRationale) {
        DisableDelete(QStringLiteral("This topic belongs to every decision, so it cannot be deleted."));
    } else {
        EnableDelete();
    }
}
