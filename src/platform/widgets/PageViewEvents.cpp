#include "platform/print/Document.h"
#include "platform/print/PagePainter.h"
#include "platform/widgets/PageView.h"
#include "platform/widgets/PageViewSearch.h"
#include "platform/widgets/Theme.h"

#include <QEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>

#include <cmath>

// Drawing, keys and wheel of the view of pages.

namespace platform {

namespace {

constexpr qint64 kLargestPicture = 6'000'000; // pixels; a larger page is drawn as far as it is in sight
constexpr double kZoomOfNotch = 1.2;
constexpr double kNotch = 120.0; // eighths of a degree
const QColor kMark(0xff, 0xe4, 0x70);
const QColor kShownMark(0xff, 0xa6, 0x4d);

void UseHints(QPainter& painter)
{
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                           QPainter::SmoothPixmapTransform);
}

} // namespace

// ---- Drawing

bool PageView::event(QEvent* event)
{
    if (event->type() != QEvent::Paint) return QAbstractScrollArea::event(event);
    PaintFrame();
    return true;
}

void PageView::PaintFrame()
{
    QPainter painter(this);
    const int width = hasFocus() ? lineWidth() : 1;
    painter.setPen(QPen(hasFocus() ? Theme::Accent(palette()) : Theme::Rule(palette()), width));
    const double inside = width / 2.0;
    painter.drawRect(QRectF(rect()).adjusted(inside, inside, -inside, -inside));
}

void PageView::paintEvent(QPaintEvent* event)
{
    QPainter painter(viewport());
    if (!m_frozen.isNull()) return painter.drawPixmap(0, 0, m_frozen);
    const QColor window = palette().color(QPalette::Window);
    painter.fillRect(event->rect(), Theme::Mixed(window, palette().color(QPalette::WindowText), 0.16));
    if (PageCount() == 0) return PaintSentence(painter);
    for (int page = 0; page < PageCount(); ++page) {
        const QRect place = InViewport(m_places[static_cast<std::size_t>(page)]);
        if (place.top() > event->rect().bottom()) break;
        if (place.adjusted(-1, -1, 1, 1).intersects(event->rect())) PaintPage(painter, page);
    }
}

void PageView::PaintSentence(QPainter& painter) const
{
    const int margin = fontMetrics().height();
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(viewport()->rect().adjusted(margin, margin, -margin, -margin),
                     Qt::AlignCenter | Qt::TextWordWrap,
                     m_sentence);
}

void PageView::PaintPage(QPainter& painter, int page)
{
    const QRect place = InViewport(m_places[static_cast<std::size_t>(page)]);
    painter.save();
    painter.setPen(Theme::Rule(palette()));
    painter.drawRect(place.adjusted(-1, -1, 0, 0));
    painter.setClipRect(place);
    const double ratio = devicePixelRatioF();
    const double pixels = place.width() * ratio * place.height() * ratio;
    if (pixels <= static_cast<double>(kLargestPicture)) {
        painter.drawPixmap(place.topLeft(), PictureOf(page));
    } else {
        painter.fillRect(place, Qt::white);
        UseHints(painter);
        painter.translate(place.topLeft());
        painter.scale(m_scale, m_scale);
        m_painter->DrawPage(painter, m_document->pages[static_cast<std::size_t>(page)]);
        painter.resetTransform();
    }
    PaintMarks(painter, page);
    painter.restore();
}

void PageView::PaintMarks(QPainter& painter, int page) const
{
    painter.setCompositionMode(QPainter::CompositionMode_Multiply); // the words stay as they are
    painter.translate(InViewport(m_places[static_cast<std::size_t>(page)]).topLeft());
    painter.scale(m_scale, m_scale);
    for (std::size_t hit = 0; hit < m_hits.size(); ++hit) {
        if (m_hits[hit].page != page) continue;
        const bool shown = static_cast<int>(hit) + 1 == m_hit;
        for (const QRectF& mark : m_hits[hit].marks)
            painter.fillRect(mark, shown ? kShownMark : kMark);
    }
}

QPixmap PageView::PictureOf(int page)
{
    if (const QPixmap* kept = m_pictures.object(page)) return *kept;
    const double ratio = devicePixelRatioF();
    QPixmap picture((QSizeF(m_places[static_cast<std::size_t>(page)].size()) * ratio).toSize());
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    UseHints(painter);
    painter.scale(m_scale, m_scale);
    m_painter->DrawPage(painter, m_document->pages[static_cast<std::size_t>(page)]);
    painter.end();
    m_pictures.insert(page, new QPixmap(picture), picture.width() * picture.height());
    return picture;
}

// ---- Changes

void PageView::changeEvent(QEvent* event)
{
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::FontChange) Rescale(AnchorAt({}));
}

void PageView::resizeEvent(QResizeEvent*)
{
    if (m_document != nullptr) Rescale(AnchorAt({}));
}

void PageView::scrollContentsBy(int dx, int dy)
{
    if (!m_frozen.isNull()) return;
    viewport()->scroll(dx, dy);
    if (m_goes || m_document == nullptr) return;
    const int page = PageInSight();
    if (page != m_current) SetCurrent(page);
}

// ---- Keys and wheel

void PageView::ScrollToEnd() { verticalScrollBar()->triggerAction(QAbstractSlider::SliderToMaximum); }

void PageView::keyPressEvent(QKeyEvent* event)
{
    const bool control = event->modifiers().testFlag(Qt::ControlModifier);
    const auto screen = event->modifiers().testFlag(Qt::ShiftModifier) ? QAbstractSlider::SliderPageStepSub
                                                                       : QAbstractSlider::SliderPageStepAdd;
    switch (event->key()) {
    case Qt::Key_PageDown: return m_current < PageCount() ? GoToPage(m_current + 1) : ScrollToEnd();
    case Qt::Key_PageUp: return GoToPage(m_current - 1);
    case Qt::Key_Home: return GoToPage(1);
    case Qt::Key_End: return GoToPage(PageCount());
    case Qt::Key_Space: return verticalScrollBar()->triggerAction(screen);
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        if (control) return ZoomIn();
        break;
    case Qt::Key_Minus:
        if (control) return ZoomOut();
        break;
    default: break;
    }
    QAbstractScrollArea::keyPressEvent(event);
}

void PageView::wheelEvent(QWheelEvent* event)
{
    if (!event->modifiers().testFlag(Qt::ControlModifier)) return QAbstractScrollArea::wheelEvent(event);
    SetZoomAt(Zoom() * std::pow(kZoomOfNotch, event->angleDelta().y() / kNotch), event->position());
    event->accept();
}

} // namespace platform
