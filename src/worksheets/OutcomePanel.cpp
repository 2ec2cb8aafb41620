#include "worksheets/OutcomePanel.h"

#include "model/c53Outcome.h"
#include "platform/widgets/Theme.h"
#include "worksheets/WorksheetPanes.h"

#include <QGridLayout>
#include <QLabel>

namespace {

QString Numbered(const char* name, Long index)
{
    return QStringLiteral("%1_%2").arg(QString::fromUtf8(name)).arg(index);
}

} // namespace

OutcomePanel::OutcomePanel(const QString& title, Long index, QWidget* parent) : QFrame(parent)
{
    setFrameShape(QFrame::StyledPanel);
    setObjectName(Numbered("pnlOutcome", index));
    setAccessibleName(title);
    auto* grid = new QGridLayout(this);
    const int gap = platform::Theme::Gap();
    grid->setContentsMargins(gap, gap / 2, gap, gap / 2);
    grid->setVerticalSpacing(gap / 4);
    grid->addWidget(WorksheetPanes::Heading(title, this), 0, 0, 1, 3);
    m_lblSize = AddValue(*grid, "lblSize", index, " Final fire size", " acres");
    m_lblContain = AddValue(*grid, "lblContain", index, " Time to contain", " days");
    m_lblControl = AddValue(*grid, "lblControl", index, " Time to control", " days");
}

QLabel*
OutcomePanel::AddValue(QGridLayout& grid, const char* name, Long index, const char* caption, const char* unit)
{
    QLabel* value = WorksheetPanes::PlainLabel({}, this);
    value->setObjectName(Numbered(name, index));
    value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    QLabel* label = WorksheetPanes::PlainLabel(QString::fromUtf8(caption), this);
    label->setBuddy(value);
    const int row = grid.rowCount();
    grid.addWidget(label, row, 0);
    grid.addWidget(value, row, 1);
    grid.addWidget(WorksheetPanes::PlainLabel(QString::fromUtf8(unit), this), row, 2);
    return value;
}

void OutcomePanel::ShowOutcome(const c53Outcome& outcome)
{
    m_lblSize->setText(QString::fromStdString(outcome.FireSize()));
    m_lblContain->setText(QString::fromStdString(outcome.ContainTimeString()));
    m_lblControl->setText(QString::fromStdString(outcome.ControlTimeString()));
}

void OutcomePanel::Clear()
{
    for (QLabel* label : {m_lblSize, m_lblContain, m_lblControl})
        label->clear();
}
