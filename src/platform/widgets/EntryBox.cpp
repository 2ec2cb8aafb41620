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
    for (const Qt::Key key : keys)
        m_successors.insert(key, successor);
}

QWidget* EntryBox::SuccessorAt(const QKeyEvent& event) const
{
    return IsAlone(event) ? m_successors.value(KeyOf(event)) : nullptr;
}

bool EntryBox::Drops(const QKeyEvent& event) const
{
    constexpr auto kCommand = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    const QString typed = event.text();
    if (m_taken.isEmpty() || typed.isEmpty() || (event.modifiers() & kCommand) != Qt::NoModifier)
        return false;
    return typed.front().isPrint() && !m_taken.contains(typed);
}

void EntryBox::keyPressEvent(QKeyEvent* event)
{
    QWidget* successor = SuccessorAt(*event);
    if (successor == nullptr && !Drops(*event)) {
        QLineEdit::keyPressEvent(event);
        return;
    }
    event->accept();
    // A reason by which the toolkit selects nothing of its own.
    if (successor != nullptr) successor->setFocus(Qt::OtherFocusReason);
}

void EntryBox::SelectOnEntry()
{
    if (m_selectedOnEntry != 0) setSelection(0, m_selectedOnEntry);
}

void EntryBox::focusInEvent(QFocusEvent* event)
{
    QLineEdit::focusInEvent(event);
    if (m_selectedOnEntry == 0 || ComesBack(event->reason())) return;
    m_enteredByMouse = event->reason() == Qt::MouseFocusReason;
    SelectOnEntry();
}

void EntryBox::mouseReleaseEvent(QMouseEvent* event)
{
    QLineEdit::mouseReleaseEvent(event);
    // The press behind the entering put the caret down; a drag that selected a part of the text stands.
    if (std::exchange(m_enteredByMouse, false) && !hasSelectedText()) SelectOnEntry();
}

} // namespace platform
