#pragma once

#include "platform/widgets/GridModel.h"

#include <QFont>
#include <QHash>
#include <QStyledItemDelegate>

namespace platform {

class Grid;

/// Paints the cells of a grid, the bars among them. Only fetches what the model holds.
class GridDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    GridDelegate(const GridModel& model, Grid* grid);

    void
    paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    /// The height of a row of one line.
    static int RowHeight(const QFontMetrics& metrics);
    /// The width that a text of one line takes in the grid's font.
    int WidthFor(const QString& text);
    /// The height that a text broken into lines takes in a column.
    static int HeightFor(const QFont& font, const QString& text, int columnWidth);

private:
    void PaintText(QPainter& painter,
                   const QStyleOptionViewItem& option,
                   const QModelIndex& index,
                   const QColor& ground) const;
    void PaintBar(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index) const;

    const GridModel& m_model;
    Grid& m_grid;
    QFont m_measuredIn;
    QHash<QString, int> m_advances; // of the texts measured in that font
};

} // namespace platform
