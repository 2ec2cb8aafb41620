#pragma once

#include "platform/widgets/GridMerge.h"

#include <QHeaderView>

namespace platform {

/// The header rows of a grid: one or more, merged across and down, their heads broken between words and never
/// cut. A screen reader reads the heads above a column as one text.
class GridHeader : public QHeaderView
{
    Q_OBJECT

public:
    GridHeader(const GridModel& model, QWidget* parent);

    /// The least width at which no word of a column's heads is cut.
    int LeastWidth(Long column) const;
    /// After a change of the heads.
    void Merge();
    /// After a change of heads or widths: the heights anew. True: the header is higher or lower than before.
    bool Arrange();
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Long Rows() const;
    QRect RectOf(const GridBlock& block) const;
    void Draw(QPainter& painter, const GridBlock& block) const;
    int HeightFor(const GridBlock& block) const;
    int Height() const;

    const GridModel& m_model;
    std::vector<GridBlock> m_blocks; // those of one cell too
    std::vector<int> m_heights;
};

} // namespace platform
