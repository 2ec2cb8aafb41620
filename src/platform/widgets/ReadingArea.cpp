#include "platform/widgets/ReadingArea.h"

#include "platform/widgets/AccessibleRoles.h"
#include "platform/widgets/Theme.h"

#include <QEvent>
#include <QPainter>
#include <QScrollBar>

namespace platform {

namespace {

constexpr int kFrame = 2; // pixels, the focus ring's

} // namespace

ReadingArea::ReadingArea(const QString& name, const QString& accessibleName, QWidget* parent)
    : QScrollArea(parent)
{
    SetAccessibleRole(*this, QAccessible::Pane);
    setObjectName(name);
    setAccessibleName(accessibleName);
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setLineWidth(kFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    connect(verticalScrollBar(), &QScrollBar::rangeChanged, this, [this](int, int last) {
        setFocusPolicy(last > 0 ? Qt::StrongFocus : Qt::NoFocus);
    });
}

bool ReadingArea::event(QEvent* event)
{
    if (event->type() != QEvent::Paint) return QScrollArea::event(event);
    QPainter painter(this);
    painter.fillRect(rect(), Theme::StripGround(palette()));
    if (hasFocus()) Theme::PaintFocusFrame(painter, palette(), rect());
    return true;
}

bool ReadingArea::viewportEvent(QEvent* event)
{
    if (event->type() == QEvent::Paint) {
        QPainter painter(viewport());
        painter.fillRect(viewport()->rect(), Theme::StripGround(palette()));
    }
    return QScrollArea::viewportEvent(event);
}

} // namespace platform
