#include "platform/widgets/GridDelegate.h"

#include "platform/widgets/Grid.h"
#include "platform/widgets/GridLooks.h"
#include "platform/widgets/Theme.h"

#include <QPainter>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace platform {

namespace {

constexpr int kMarks = 10; // steps of a bar

/// Beside a text; the mark of the current row stands in it.
int Padding() { return Theme::Gap() * 3 / 4; }
/// Above and below a bar.
int BarInset() { return Theme::Gap() / 2; }

QTextOption Lines(Qt::Alignment alignment)
{
    QTextOption option(alignment);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    return option;
}

QColor TextColor(const QStyleOptionViewItem& option, const QColor& ground)
{
    return GridLooks::TextOn(option.palette, ground, option.state.testFlag(QStyle::State_Enabled));
}

/// The marks of a bar, between its ends.
void PaintScale(QPainter& painter, const QRect& track, const QColor& ink)
{
    painter.setPen(ink);
    for (int mark = 1; mark < kMarks; ++mark) {
        const int x = track.left() + static_cast<int>(std::lround(track.width() * mark / double(kMarks)));
        painter.drawLine(x, track.bottom() - track.height() / 4, x, track.bottom());
    }
}

/// The track of a bar: as wide as its cell, one line high also where the row has more.
QRect TrackIn(const QRect& cell, const QFontMetrics& metrics)
{
    const int height = std::min(cell.height(), GridDelegate::RowHeight(metrics) - 1) - 2 * BarInset();
    return {cell.left(), cell.top() + (cell.height() - height) / 2, cell.width(), height};
}

} // namespace

GridDelegate::GridDelegate(const GridModel& model, Grid* grid)
    : QStyledItemDelegate(grid), m_model(model), m_grid(*grid)
{}

int GridDelegate::RowHeight(const QFontMetrics& metrics) { return metrics.height() + Theme::Gap() + 1; }

/// Measured once: a grid is laid out anew with each line that goes or moves.
int GridDelegate::WidthFor(const QString& text)
{
    constexpr qsizetype mostKept = 4096;
    if (m_measuredIn != m_grid.font() || m_advances.size() >= mostKept) m_advances.clear();
    m_measuredIn = m_grid.font();
    auto advance = m_advances.constFind(text);
    if (advance == m_advances.cend())
        advance = m_advances.insert(text, m_grid.fontMetrics().horizontalAdvance(text));
    return *advance + 2 * Padding() + 1;
}

int GridDelegate::HeightFor(const QFont& font, const QString& text, int columnWidth)
{
    QTextLayout layout(text, font);
    layout.setTextOption(Lines(Qt::AlignLeft));
    layout.beginLayout();
    double height = 0;
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(std::max(1, columnWidth - 2 * Padding() - 1));
        height += line.height();
    }
    layout.endLayout();
    return static_cast<int>(std::ceil(height)) + Theme::Gap() + 1;
}

void GridDelegate::paint(QPainter* painter,
                         const QStyleOptionViewItem& option,
                         const QModelIndex& index) const
{
    const GridModel::Cell& cell = m_model.CellAt(m_model.RowOf(index), index.column());
    const bool current =
        m_model.RowOf(index) == m_grid.Row() && m_grid.rowSpan(index.row(), index.column()) == 1;
    const QColor ground = GridLooks::Ground(option.palette, cell.back, current);
    painter->fillRect(option.rect, ground);
    if (cell.bar >= 0.0) PaintBar(*painter, option, index);
    if (!cell.shown.isEmpty()) PaintText(*painter, option, index, ground);
    painter->setPen(GridLooks::Line(option.palette));
    painter->drawLine(option.rect.topRight(), option.rect.bottomRight());
    painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
}

void GridDelegate::PaintText(QPainter& painter,
                             const QStyleOptionViewItem& option,
                             const QModelIndex& index,
                             const QColor& ground) const
{
    const GridModel::Cell& cell = m_model.CellAt(m_model.RowOf(index), index.column());
    const auto alignment = Qt::Alignment(index.data(Qt::TextAlignmentRole).toInt());
    const QRect inner = option.rect.adjusted(Padding(), 0, -Padding() - 1, -1);
    painter.setPen(TextColor(option, ground));
    painter.setFont(option.font);
    if (cell.wraps) {
        painter.drawText(QRectF(inner), cell.shown, Lines(alignment));
    } else {
        painter.drawText(inner, static_cast<int>(alignment) | Qt::TextSingleLine, cell.shown);
    }
}

void GridDelegate::PaintBar(QPainter& painter,
                            const QStyleOptionViewItem& option,
                            const QModelIndex& index) const
{
    const GridModel::Cell& cell = m_model.CellAt(m_model.RowOf(index), index.column());
    const bool enabled = option.state.testFlag(QStyle::State_Enabled);
    const QRect track = TrackIn(option.rect.adjusted(0, 0, -1, -1), option.fontMetrics);
    const QRect fill(track.topLeft(),
                     QSize(static_cast<int>(std::lround(track.width() * cell.bar / 100.0)), track.height()));
    const QColor ground = GridLooks::BarTrack(option.palette);
    const QColor filled = GridLooks::BarFill(option.palette, enabled);
    painter.save();
    painter.setFont(option.font);
    painter.fillRect(track, ground);
    PaintScale(painter, track, GridLooks::TextOn(option.palette, ground, enabled));
    painter.setClipRect(fill, Qt::IntersectClip);
    painter.fillRect(fill, filled);
    PaintScale(painter, track, GridLooks::TextOn(option.palette, filled, enabled));
    painter.restore();
}

} // namespace platform
