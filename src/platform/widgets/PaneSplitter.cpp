#include "platform/widgets/PaneSplitter.h"

#include "platform/widgets/AccessibleRoles.h"
#include "platform/widgets/Theme.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QPointer>

namespace platform {

namespace {

class PaneHandle : public QSplitterHandle
{
public:
    PaneHandle(Qt::Orientation orientation, QSplitter* parent) : QSplitterHandle(orientation, parent)
    {
        SetAccessibleRole(*this, QAccessible::Splitter);
        setAccessibleName(QStringLiteral("Divider"));
        setAccessibleDescription(QStringLiteral("The arrow keys move it."));
        setToolTip(QStringLiteral("Drag it, or press F6 and then the arrow keys."));
    }
    /// The focus to it, and back to that control later: from the box of a cell to its grid.
    void Enter(QWidget* from)
    {
        while (from != nullptr && (from->focusPolicy() & Qt::TabFocus) == 0)
            from = from->parentWidget();
        m_from = from;
        setFocus(Qt::ShortcutFocusReason);
    }
    QWidget* From() const { return m_from; }

protected:
    bool focusNextPrevChild(bool) override
    {
        if (m_from != nullptr) m_from->setFocus(Qt::OtherFocusReason);
        return m_from != nullptr;
    }
    void keyPressEvent(QKeyEvent* event) override
    {
        if (!MoveByKey(event->key()) && !LeaveByKey(event->key())) QSplitterHandle::keyPressEvent(event);
    }
    void paintEvent(QPaintEvent* event) override
    {
        QSplitterHandle::paintEvent(event);
        QPainter painter(this);
        if (hasFocus()) Theme::PaintFocusFrame(painter, palette(), rect());
    }
    void focusInEvent(QFocusEvent* event) override
    {
        QSplitterHandle::focusInEvent(event);
        update(); // the toolkit does so only for stops of the Tab key
    }
    void focusOutEvent(QFocusEvent* event) override
    {
        QSplitterHandle::focusOutEvent(event);
        update();
    }

private:
    bool LeaveByKey(int key)
    {
        const bool leaves = key == Qt::Key_Escape || key == Qt::Key_Return || key == Qt::Key_Enter;
        return leaves && focusNextPrevChild(true);
    }
    bool MoveByKey(int key)
    {
        const bool across = orientation() == Qt::Horizontal;
        const int at = across ? x() : y();
        if (key == (across ? Qt::Key_Left : Qt::Key_Up)) {
            moveSplitter(at - Theme::GroupGap());
        } else if (key == (across ? Qt::Key_Right : Qt::Key_Down)) {
            moveSplitter(at + Theme::GroupGap());
        } else if (key == Qt::Key_Home) {
            moveSplitter(0);
        } else if (key == Qt::Key_End) {
            moveSplitter(across ? splitter()->width() : splitter()->height());
        } else {
            return false;
        }
        return true;
    }

    QPointer<QWidget> m_from;
};

} // namespace

PaneSplitter::PaneSplitter(Qt::Orientation orientation, QWidget* parent) : QSplitter(orientation, parent)
{
    setChildrenCollapsible(false);
}

QSplitterHandle* PaneSplitter::createHandle() { return new PaneHandle(orientation(), this); }

/// What the control in a pane has left: from the divider of a splitter within, on to this one's.
void PaneSplitter::keyPressEvent(QKeyEvent* event)
{
    auto* divider = count() < 2 ? nullptr : static_cast<PaneHandle*>(handle(1));
    QWidget* focused = QApplication::focusWidget();
    if (event->key() != Qt::Key_F6 || divider == nullptr || divider == focused)
        return QSplitter::keyPressEvent(event);
    const auto* inner = qobject_cast<QSplitterHandle*>(focused);
    divider->Enter(inner == nullptr ? focused : static_cast<const PaneHandle*>(inner)->From());
}

} // namespace platform
