#include "worksheets/DecisionTreePicture.h"

#include "platform/widgets/AccessibleRoles.h"
#include "platform/widgets/Theme.h"

#include <QEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>
#include <cmath>

namespace {

constexpr int kFrame = 2; // pixels, the focus ring's

int PixelsFor(double length) { return static_cast<int>(std::ceil(length)); }

void SetScrollBar(QScrollBar& bar, double whole, int page, int step)
{
    bar.setPageStep(page);
    bar.setSingleStep(step);
    bar.setRange(0, std::max(0, PixelsFor(whole) - page));
}

} // namespace

DecisionTreePicture::DecisionTreePicture(QWidget* parent) : QAbstractScrollArea(parent)
{
    platform::SetAccessibleRole(*this, QAccessible::Graphic);
    setFocusPolicy(Qt::StrongFocus);
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setLineWidth(kFrame);
    m_scale = ReadableScale({}, font());
}

void DecisionTreePicture::ShowTree(const DecisionTreeDrawing& tree)
{
    m_tree = tree;
    m_sentence.clear();
    platform::SetAccessibleWords(*this, QString::fromStdString(tree.Words()));
}

void DecisionTreePicture::ShowSentence(const QString& sentence)
{
    m_tree = {};
    m_sentence = sentence;
    platform::SetAccessibleWords(*this, sentence);
}

void DecisionTreePicture::Fit(const std::vector<DecisionTreeDrawing>& trees, const QSize& room)
{
    m_together = trees;
    m_room = room;
    m_scale = FittingScale(trees, font(), room);
    SetScrollBars();
    updateGeometry();
    viewport()->update();
}

int DecisionTreePicture::FullTreeWidth() const
{
    return PixelsFor(kFullTreeWidth * ReadableScale(m_together, font()).across) + 2 * frameWidth();
}

QSize DecisionTreePicture::sizeHint() const
{
    const QSizeF tree = SizeOf(m_together, ReadableScale(m_together, font()));
    const int frame = 2 * frameWidth();
    return QSize(PixelsFor(tree.width()) + frame, PixelsFor(tree.height()) + frame)
        .expandedTo(minimumSizeHint());
}

QSize DecisionTreePicture::minimumSizeHint() const
{
    const int row = fontMetrics().height();
    return {16 * row, 6 * row};
}

void DecisionTreePicture::changeEvent(QEvent* event)
{
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::FontChange) Q_EMIT FitNeeded();
}

bool DecisionTreePicture::event(QEvent* event)
{
    if (event->type() != QEvent::Paint) return QAbstractScrollArea::event(event);
    PaintFrame();
    return true;
}

void DecisionTreePicture::keyPressEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Home && event->key() != Qt::Key_End) {
        QAbstractScrollArea::keyPressEvent(event);
        return;
    }
    const auto action =
        event->key() == Qt::Key_Home ? QAbstractSlider::SliderToMinimum : QAbstractSlider::SliderToMaximum;
    horizontalScrollBar()->triggerAction(action);
    verticalScrollBar()->triggerAction(action);
}

void DecisionTreePicture::paintEvent(QPaintEvent*)
{
    QPainter painter(viewport());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(palette().color(QPalette::Text));
    if (m_tree.IsEmpty()) PaintSentence(painter);
    painter.translate(Origin());
    PaintLines(painter, m_tree, m_scale);
    PaintTexts(painter, m_tree, m_scale);
}

void DecisionTreePicture::resizeEvent(QResizeEvent*)
{
    SetScrollBars();
    Q_EMIT FitNeeded();
}

void DecisionTreePicture::SetScrollBars()
{
    const QSizeF tree = m_tree.IsEmpty() ? QSizeF(0, 0) : SizeOf(m_tree, m_scale);
    const int step = fontMetrics().height();
    SetScrollBar(*horizontalScrollBar(), tree.width(), viewport()->width(), step);
    SetScrollBar(*verticalScrollBar(), tree.height(), viewport()->height(), step);
}

QPointF DecisionTreePicture::Origin() const
{
    // What is left over is shared out by the common size, so that the columns of two trees stand in line.
    const QSizeF free = QSizeF(m_room) - SizeOf(m_together, m_scale);
    return {std::floor(std::max(0.0, free.width()) / 2) - horizontalScrollBar()->value(),
            std::floor(std::max(0.0, free.height()) / 2) - verticalScrollBar()->value()};
}

void DecisionTreePicture::PaintFrame()
{
    QPainter painter(this);
    const int width = hasFocus() ? kFrame : 1;
    painter.setPen(
        QPen(hasFocus() ? platform::Theme::Accent(palette()) : platform::Theme::Rule(palette()), width));
    const double inside = width / 2.0;
    painter.drawRect(QRectF(rect()).adjusted(inside, inside, -inside, -inside));
}

void DecisionTreePicture::PaintSentence(QPainter& painter) const
{
    const int margin = fontMetrics().height();
    const QRect room = viewport()->rect().adjusted(margin, margin, -margin, -margin);
    painter.drawText(room, Qt::AlignCenter | Qt::TextWordWrap, m_sentence);
}
