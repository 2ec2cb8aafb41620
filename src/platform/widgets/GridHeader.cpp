#include "platform/widgets/GridHeader.h"

#include "platform/widgets/GridLooks.h"
#include "platform/widgets/Theme.h"

#include <QPaintEvent>
#include <QPainter>
#include <QRegularExpression>

#include <algorithm>
#include <numeric>

namespace platform {

namespace {

constexpr int kFlags = Qt::AlignHCenter | Qt::AlignVCenter | Qt::TextWordWrap;

int Padding() { return Theme::Gap() / 2; }

int LongestWord(const QFontMetrics& metrics, const QString& head)
{
    static const QRegularExpression blanks(QStringLiteral("\\s+"));
    int width = 0;
    for (const QString& word : head.split(blanks, Qt::SkipEmptyParts))
        width = std::max(width, metrics.horizontalAdvance(word));
    return width;
}

/// The two words of a line that stand far apart: they mark the two ends of what is below them.
QStringList FarApart(const QString& line)
{
    static const QRegularExpression gap(QStringLiteral("\\s{4,}"));
    const QStringList parts = line.trimmed().split(gap);
    return parts.size() == 2 ? parts : QStringList();
}

} // namespace

GridHeader::GridHeader(const GridModel& model, QWidget* parent)
    : QHeaderView(Qt::Horizontal, parent), m_model(model)
{
    setSectionResizeMode(QHeaderView::Fixed);
    setSectionsClickable(false);
    setHighlightSections(false);
    setFocusPolicy(Qt::NoFocus);
    setMinimumSectionSize(1);
}

Long GridHeader::Rows() const { return std::min(m_model.Contents().FixedRows(), m_model.Contents().Rows()); }

void GridHeader::Merge()
{
    m_blocks = MergedBlocks(m_model, 0, Rows());
    const std::vector<GridBlock> merged = m_blocks;
    for (Long row = 0; row < Rows(); ++row) {
        for (Long column = 0; column < m_model.Contents().Cols(); ++column) {
            const bool taken = std::any_of(merged.begin(), merged.end(), [&](const GridBlock& block) {
                return row >= block.row && row < block.row + block.rows && column >= block.column &&
                       column < block.column + block.columns;
            });
            if (!taken) m_blocks.push_back({row, column, 1, 1});
        }
    }
}

int GridHeader::LeastWidth(Long column) const
{
    int width = 0;
    for (const GridBlock& block : m_blocks) {
        if (column < block.column || column >= block.column + block.columns) continue;
        const int word = LongestWord(fontMetrics(), m_model.CellAt(block.row, block.column).shown);
        width = std::max(width, (word + 2 * Padding() + block.columns) / block.columns);
    }
    return width;
}

int GridHeader::HeightFor(const GridBlock& block) const
{
    int width = -2 * Padding();
    for (Long column = block.column; column < block.column + block.columns; ++column)
        width += sectionSize(column);
    const QString& head = m_model.CellAt(block.row, block.column).shown;
    return fontMetrics().boundingRect(QRect(0, 0, std::max(width, 1), 10000), kFlags, head).height() +
           2 * Padding();
}

bool GridHeader::Arrange()
{
    const int before = Height();
    m_heights.assign(static_cast<std::size_t>(Rows()), fontMetrics().height() + 2 * Padding());
    for (const GridBlock& block : m_blocks) {
        const auto first = m_heights.begin() + block.row;
        const auto last = first + block.rows - 1;
        const int above = std::accumulate(first, last, 0);
        *last = std::max(*last, HeightFor(block) - above);
    }
    viewport()->update();
    return Height() != before;
}

int GridHeader::Height() const { return std::accumulate(m_heights.begin(), m_heights.end(), 0); }

QSize GridHeader::sizeHint() const { return {QHeaderView::sizeHint().width(), Height()}; }

QRect GridHeader::RectOf(const GridBlock& block) const
{
    const auto heights = m_heights.begin();
    const int top = std::accumulate(heights, heights + block.row, 0);
    const int height = std::accumulate(heights + block.row, heights + block.row + block.rows, 0);
    const Long last = block.column + block.columns - 1;
    const int left = sectionViewportPosition(block.column);
    return {left, top, sectionViewportPosition(last) + sectionSize(last) - left, height};
}

void GridHeader::Draw(QPainter& painter, const GridBlock& block) const
{
    const QRect rect = RectOf(block);
    const QString& head = m_model.CellAt(block.row, block.column).shown;
    painter.setPen(Theme::Rule(palette()));
    painter.drawLine(rect.topRight(), rect.bottomRight());
    painter.drawLine(rect.bottomLeft(), rect.bottomRight());
    painter.setPen(GridLooks::TextOn(palette(), Theme::StripGround(palette()), isEnabled()));
    QRect inner = rect.adjusted(Padding(), Padding(), -Padding(), -Padding());
    const QStringList ends = FarApart(head.section(QLatin1Char('\n'), -1));
    if (ends.isEmpty()) {
        painter.drawText(inner, kFlags, head);
        return;
    }
    const int line = fontMetrics().lineSpacing();
    painter.drawText(inner.adjusted(0, 0, 0, -line), kFlags, head.section(QLatin1Char('\n'), 0, -2));
    const Long last = block.column + block.columns - 1;
    inner.setLeft(sectionViewportPosition(last) + Padding());
    inner.adjust(Padding() / 2, 0, -Padding() / 2, 0);
    inner.setTop(inner.bottom() - line);
    painter.drawText(inner, Qt::AlignLeft | Qt::AlignBottom, ends.first());
    painter.drawText(inner, Qt::AlignRight | Qt::AlignBottom, ends.last());
}

void GridHeader::paintEvent(QPaintEvent* event)
{
    QPainter painter(viewport());
    painter.fillRect(event->rect(), Theme::StripGround(palette()));
    painter.setPen(Theme::Rule(palette()));
    painter.drawLine(
        event->rect().left(), viewport()->height() - 1, event->rect().right(), viewport()->height() - 1);
    for (const GridBlock& block : m_blocks) {
        if (RectOf(block).intersects(event->rect())) Draw(painter, block);
    }
}

} // namespace platform
