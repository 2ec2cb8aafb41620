#include "platform/widgets/EntryBox.h"

#include <QFocusEvent>
#include <QKeyEvent>

#include <limits>
#include <utility>

namespace platform {

namespace {

Qt::Key KeyOf(const QKeyEvent& event)
{
    return event.key() == Qt::Key_Enter ? Qt::Key_Return : static_cast<Qt::Key>(event.key());
}

bool IsAlone(const QKeyEvent& event) { return (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier; }

bool ComesBack(Qt::FocusReason reason)
{
    return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason ||
           reason == Qt::MenuBarFocusReason;
}

} // namespace

EntryBox::EntryBox(const QString& name, QWidget* parent) : QLineEdit(parent)
{
    setObjectName(name);
    setMaxLength(std::numeric_limits<int>::max()); // the toolkit's own limit would cut what a file holds
}

void EntryBox::LeadTo(QWidget* successor, const QList<Qt::Key>& keys)
{
    m_successor = successor;
    m_onward = keys;
}

void EntryBox::keyPressEvent(QKeyEvent* event)
{
    if (m_successor == nullptr || !IsAlone(*event) || !m_onward.contains(KeyOf(*event))) {
        QLineEdit::keyPressEvent(event);
        return;
    }
    event->accept();
    m_successor->setFocus(Qt::OtherFocusReason); // a reason by which the toolkit selects nothing of its own
}

void EntryBox::focusInEvent(QFocusEvent* event)
{
    QLineEdit::focusInEvent(event);
    if (!m_selectsWhole || ComesBack(event->reason())) return;
    m_enteredByMouse = event->reason() == Qt::MouseFocusReason;
    selectAll();
}

void EntryBox::mouseReleaseEvent(QMouseEvent* event)
{
    QLineEdit::mouseReleaseEvent(event);
    // The press behind the entering put the caret down; a drag that selected a part of the text stands.
    if (std::exchange(m_enteredByMouse, false) && !hasSelectedText()) selectAll();
}

} // namespace platform
