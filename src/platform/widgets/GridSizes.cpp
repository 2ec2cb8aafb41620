// How wide and high a grid's cells are, and which of them stand as one.
#include "platform/base/Texts.h"
#include "platform/widgets/Grid.h"
#include "platform/widgets/GridDelegate.h"
#include "platform/widgets/GridEditor.h"
#include "platform/widgets/GridHeader.h"
#include "platform/widgets/GridMerge.h"
#include "platform/widgets/Theme.h"

#include <QEvent>
#include <QFocusEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace platform {

namespace {

constexpr int kLineOfText = 32;   // average characters, from which on a text may break into lines
constexpr int kSqueezedText = 14; // the same, where the view is narrow
constexpr int kLongFigure = 16;   // characters; a longer entry scrolls in its editor
constexpr int kRowsWanted = 8;
constexpr int kTurns = 3;

int WidthFor(const Grid& grid, const QString& text)
{
    return static_cast<GridDelegate*>(grid.itemDelegate())->WidthFor(text);
}

} // namespace

void Grid::Relayout()
{
    m_header->setVisible(FirstRow() > 0 && Rows() > 0);
    m_header->Merge();
    verticalHeader()->setDefaultSectionSize(GridDelegate::RowHeight(fontMetrics()));
    m_widths.resize(static_cast<std::size_t>(Cols()));
    m_longTexts.clear();
    m_spans.clear();
    clearSpans();
    MergeCells();
    for (Long column = 0; column < Cols(); ++column) {
        WidthAt(column) = EmptyWidth(column);
        for (Long row = FirstRow(); row < Rows(); ++row)
            Measure(row, column);
    }
    FitColumns();
}

void Grid::MergeCells()
{
    std::vector<GridBlock> spans = MergedBlocks(*m_model, std::min(FirstRow(), Rows()), Rows());
    if (spans == m_spans) return;
    clearSpans();
    m_spans = std::move(spans);
    for (const GridBlock& span : m_spans)
        setSpan(span.row - FirstRow(), span.column, span.rows, span.columns);
}

int Grid::WrapWidth(Long column) const
{
    return std::max(Theme::Pixels(Contents().ColWidth(column)),
                    kLineOfText * fontMetrics().averageCharWidth());
}

int Grid::WidthOfLongestEntry(int characters) const
{
    const int digits = std::min(characters, kLongFigure);
    return digits <= 0 ? 0 : WidthFor(*this, QString(digits, QLatin1Char('0'))) + Theme::Gap();
}

Grid::ColumnWidth Grid::EmptyWidth(Long column) const
{
    const GridModel::Column& told = m_model->ColumnAt(column);
    const int least = std::max(m_header->LeastWidth(column), WidthOfLongestEntry(told.longestEntry));
    return {std::max(Theme::Pixels(Contents().ColWidth(column)), least), least};
}

void Grid::Measure(Long row, Long column)
{
    m_model->CellAt(row, column).wraps = false;
    const QString& text = m_model->CellAt(row, column).shown;
    ColumnWidth& width = WidthAt(column);
    const int atMost = static_cast<int>(text.size() + 1) * fontMetrics().height(); // no character is wider
    if (atMost <= width.least || columnSpan(row - FirstRow(), column) > 1) return;
    const int needed = WidthFor(*this, text);
    if (needed <= width.least) return;
    const bool figure = IsNumeric(Text(row, column));
    const int squeezed = kSqueezedText * fontMetrics().averageCharWidth();
    width.least = std::max(width.least, figure ? needed : std::min(needed, squeezed));
    width.open = std::max({width.open, width.least, figure ? needed : std::min(needed, WrapWidth(column))});
    if (needed > width.least) m_longTexts.push_back({row, column, needed});
}

void Grid::Widen(Long row, Long column)
{
    const ColumnWidth before = WidthAt(column);
    const auto isCell = [&](const LongText& text) { return text.row == row && text.column == column; };
    const bool wasLong = std::erase_if(m_longTexts, isCell) > 0;
    Measure(row, column);
    const bool isLong = std::any_of(m_longTexts.begin(), m_longTexts.end(), isCell);
    if (WidthAt(column).open != before.open || WidthAt(column).least != before.least) {
        FitColumns();
    } else if (wasLong || isLong) {
        FitRows();
    }
}

void Grid::FitColumns()
{
    if (m_fitting || m_widths.size() != static_cast<std::size_t>(Cols())) return;
    const QScopedValueRollback<bool> fitting(m_fitting, true);
    int room = -1;
    // Higher rows may bring a scroll bar, which takes from the room.
    for (int turn = 0; turn < kTurns && room != viewport()->width(); ++turn) {
        room = viewport()->width();
        PutWidths(room);
        if (m_header->Arrange()) updateGeometries();
        FitRows();
        executeDelayedItemsLayout();
    }
    PlaceEditor();
}

void Grid::PutWidths(int room)
{
    for (Long column = 0; column < Cols(); ++column) {
        const int width = WidthIn(room, column);
        if (m_header->sectionSize(column) != width) m_header->resizeSection(column, width);
    }
}

/// One column takes what is left over; where there is too little, each gives of what it has to spare.
int Grid::WidthIn(int room, Long column) const
{
    const auto sum = [this](int ColumnWidth::*width) {
        return std::accumulate(m_widths.begin(),
                               m_widths.end(),
                               0,
                               [width](int total, const ColumnWidth& one) { return total + one.*width; });
    };
    const ColumnWidth& own = m_widths[static_cast<std::size_t>(column)];
    const int missing = sum(&ColumnWidth::open) - room;
    const int spare = sum(&ColumnWidth::open) - sum(&ColumnWidth::least);
    const Long stretch = m_stretchColumn < 0 && Cols() == 1 ? 0 : m_stretchColumn;
    if (missing <= 0) return column == stretch ? own.open - missing : own.open;
    if (missing >= spare) return own.least;
    const double share = double(missing) / spare;
    return own.open - static_cast<int>(std::ceil(share * (own.open - own.least)));
}

void Grid::FitRows()
{
    std::vector<int> heights(static_cast<std::size_t>(m_model->rowCount()),
                             verticalHeader()->defaultSectionSize());
    for (const LongText& text : m_longTexts) {
        GridModel::Cell& cell = m_model->CellAt(text.row, text.column);
        cell.wraps = text.width > columnWidth(text.column);
        int& height = heights[static_cast<std::size_t>(text.row - FirstRow())];
        if (cell.wraps)
            height = std::max(height, GridDelegate::HeightFor(font(), cell.shown, columnWidth(text.column)));
    }
    for (int row = 0; row < m_model->rowCount(); ++row) {
        if (rowHeight(row) != heights[static_cast<std::size_t>(row)])
            setRowHeight(row, heights[static_cast<std::size_t>(row)]);
    }
}

QSize Grid::sizeHint() const
{
    int columns = 0;
    for (const ColumnWidth& width : m_widths)
        columns += width.open;
    const int rows = std::clamp(m_model->rowCount(), 3, kRowsWanted);
    const int height = m_header->sizeHint().height() + rows * verticalHeader()->defaultSectionSize();
    const int frame = 2 * frameWidth();
    return {columns + frame + verticalScrollBar()->sizeHint().width(), height + frame};
}

void Grid::resizeEvent(QResizeEvent* event)
{
    QTableView::resizeEvent(event);
    FitColumns();
}

void Grid::updateGeometries()
{
    QTableView::updateGeometries();
    PlaceEditor();
}

void Grid::scrollContentsBy(int dx, int dy)
{
    QTableView::scrollContentsBy(dx, dy);
    PlaceEditor();
}

void Grid::paintEvent(QPaintEvent* event)
{
    QTableView::paintEvent(event);
    if (m_model->rowCount() == 0) PaintEmptyText();
    PaintCurrent();
}

/// The row's mark, and the frame of the focus: around the cell, or around all where there is no current one.
void Grid::PaintCurrent()
{
    QPainter painter(viewport());
    const QColor accent = Theme::Accent(palette());
    if (!IsCell(m_row, m_column)) {
        if (hasFocus()) Theme::PaintFocusFrame(painter, palette(), viewport()->rect());
        return;
    }
    const int top = rowViewportPosition(m_row - FirstRow());
    const int height = rowHeight(m_row - FirstRow()) - 1;
    painter.fillRect(QRect(0, top, 3, height), isEnabled() ? accent : Theme::Rule(palette()));
    if (!hasFocus() || m_editing) return;
    const int left = columnViewportPosition(m_column);
    Theme::PaintFocusFrame(painter, palette(), QRect(left, top, columnWidth(m_column) - 1, height));
}

void Grid::PaintEmptyText()
{
    QPainter painter(viewport());
    painter.setPen(Theme::QuietText(palette()));
    const int gap = Theme::Gap();
    painter.drawText(viewport()->rect().adjusted(gap, gap, -gap, -gap),
                     Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap,
                     m_emptyText);
}

void Grid::changeEvent(QEvent* event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::EnabledChange && !isEnabled()) FinishEdit();
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) Relayout();
}

void Grid::hideEvent(QHideEvent* event)
{
    FinishEdit();
    QTableView::hideEvent(event);
}

void Grid::focusInEvent(QFocusEvent* event)
{
    // Not the view's own, which would choose a current cell.
    QAbstractScrollArea::focusInEvent(event);
    viewport()->update();
    if (m_editing) m_editor->setFocus(event->reason());
}

void Grid::focusOutEvent(QFocusEvent* event)
{
    QAbstractScrollArea::focusOutEvent(event);
    viewport()->update();
    FocusGone(event->reason());
}

} // namespace platform
