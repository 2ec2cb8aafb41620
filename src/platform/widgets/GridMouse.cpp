// What the mouse does on a grid.
#include "platform/widgets/Grid.h"
#include "platform/widgets/GridEditor.h"
#include "platform/widgets/GridModel.h"

#include <QMouseEvent>
#include <QPointer>

namespace platform {

Grid::Spot Grid::SpotAt(const QPoint& point) const
{
    Spot spot;
    const int row = rowAt(point.y());
    // A bar that is dragged stays the one asked, also where the pointer runs past its ends.
    const int column = m_pressedBar ? m_pressed.column : columnAt(point.x());
    if (row >= 0 && column >= 0) spot = {row + FirstRow(), column, 0.0F};
    if (column >= 0 && columnWidth(column) > 0) {
        spot.place = static_cast<float>(point.x() - columnViewportPosition(column)) /
                     static_cast<float>(columnWidth(column));
    }
    return spot;
}

void Grid::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) return event->ignore();
    const QPointer<Grid> here(this);
    m_pressedBar = false;
    const Spot spot = SpotAt(event->position().toPoint());
    if (spot.row < 0) {
        FinishEdit();
    } else if (m_editing && spot == Spot{m_row, m_column, 0.0F}) {
        m_editor->setFocus();
    } else {
        MoveTo(spot.row, spot.column);
    }
    if (here.isNull()) return;
    m_pressed = spot;
    m_pressedBar = HasBar(spot.row, spot.column);
    Raise([&] { Q_EMIT MouseDown(spot.row, spot.column, spot.place); });
}

void Grid::mouseDoubleClickEvent(QMouseEvent* event)
{
    const QPointer<Grid> here(this);
    mousePressEvent(event);
    if (!here.isNull() && m_pressed.row >= 0 && m_model->ColumnAt(m_pressed.column).editable) EditCell();
}

void Grid::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint point = event->position().toPoint();
    if (!event->buttons().testFlag(Qt::LeftButton)) return ShowPointer(point);
    const Spot spot = SpotAt(point);
    Raise([&] { Q_EMIT MouseMove(spot.row, spot.column, spot.place); });
}

void Grid::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) return event->ignore();
    const Spot spot = SpotAt(event->position().toPoint());
    const bool click = spot.row >= 0 && spot == m_pressed;
    m_pressed = {};
    m_pressedBar = false;
    const QPointer<Grid> here(this);
    Raise([&] { Q_EMIT MouseUp(spot.row, spot.column, spot.place); });
    if (click && !here.isNull()) Raise([this] { Q_EMIT Click(); });
}

void Grid::ShowPointer(const QPoint& point)
{
    const Spot spot = SpotAt(point);
    viewport()->setCursor(HasBar(spot.row, spot.column) ? Qt::SplitHCursor : Qt::ArrowCursor);
}

} // namespace platform
