#include "platform/widgets/RichTextEditor.h"

#include "platform/widgets/RichTextActions.h"
#include "platform/widgets/RichTextBar.h"
#include "platform/widgets/RichTextEdit.h"
#include "platform/widgets/RichTextFind.h"
#include "platform/widgets/RichTextRuler.h"
#include "platform/widgets/Theme.h"

#include <QPainter>
#include <QShortcut>
#include <QVBoxLayout>

namespace platform {

RichTextEditor::RichTextEditor(const QString& bodyName,
                               const QString& accessibleName,
                               Parts parts,
                               QWidget* parent)
    : QWidget(parent)
{
    m_body = new RichTextEdit(this);
    m_body->setObjectName(bodyName);
    m_body->setAccessibleName(accessibleName);
    Build(parts);
    AddShortcuts();
}

void RichTextEditor::Build(Parts parts)
{
    m_actions = new RichTextActions(*m_body);
    m_bar = new RichTextBar(*m_body, *m_actions, this);
    m_find = new RichTextFind(*m_body, this);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_bar);
    column->addSpacing(Theme::Gap() / 2);
    if (parts == Parts::BarAndRuler) {
        m_ruler = new RichTextRuler(*m_body, this);
        column->addWidget(m_ruler);
        m_bar->LeadTo(*m_ruler);
        setTabOrder(m_ruler, m_body);
    } else {
        m_bar->LeadTo(*m_body);
    }
    column->addWidget(m_body, 1);
    column->addWidget(m_find);
}

void RichTextEditor::AddShortcuts()
{
    connect(&m_actions->Of(RichTextActions::Find), &QAction::triggered, m_find, &RichTextFind::Open);
    const auto add = [this](const QKeySequence& keys, auto handler) {
        auto* shortcut = new QShortcut(keys, m_body);
        shortcut->setContext(Qt::WidgetShortcut);
        connect(shortcut, &QShortcut::activated, this, handler);
    };
    add(QKeySequence(Qt::ALT | Qt::Key_F10), [this] { m_bar->Enter(); });
    add(QKeySequence(Qt::Key_F3), [this] { m_find->FindNext(); });
    add(QKeySequence(Qt::SHIFT | Qt::Key_F3), [this] { m_find->FindPrevious(); });
}

/// The quiet ground with the sheet's edge upon it, in the accent while one writes.
void RichTextEditor::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(m_body->geometry(), Theme::StripGround(palette()));
    const QWidget* sheet = m_body->viewport();
    const QRect edge(sheet->mapTo(this, QPoint()), sheet->size());
    painter.setPen(m_body->hasFocus() ? Theme::Accent(palette()) : Theme::Rule(palette()));
    painter.drawRect(edge.adjusted(-1, -1, 0, 0));
}

} // namespace platform
