#include "platform/widgets/PageView.h"

#include "platform/print/Document.h"
#include "platform/print/Fonts.h"
#include "platform/print/PagePainter.h"
#include "platform/widgets/PageViewSearch.h"
#include "platform/widgets/Theme.h"

#include <QScrollBar>

#include <algorithm>
#include <array>
#include <cmath>

namespace platform {

namespace {

constexpr int kFrame = 2; // pixels, the focus ring's
constexpr double kTwipsPerInch = 1440.0;
constexpr double kLeastZoom = 0.1, kGreatestZoom = 8.0;
constexpr int kPicturesKept = 24'000'000; // pixels of pages out of sight
constexpr double kLookAhead = 0.3;        // of what is in sight: the page there is the current one

/// The steps of zooming in and out.
constexpr std::array kSteps{0.1, 0.25, 0.5, 0.75, 1.0, 1.25, 1.5, 2.0, 3.0, 4.0, 6.0, 8.0};

QSize SizeOf(const print::Page& page, double scale)
{
    return {std::max(1, static_cast<int>(std::lround(page.width * scale))),
            std::max(1, static_cast<int>(std::lround(page.height * scale)))};
}

QSizeF LargestPage(const print::Document* document)
{
    QSizeF largest(0.0, 0.0);
    if (document == nullptr) return largest;
    for (const print::Page& page : document->pages)
        largest = largest.expandedTo(QSizeF(page.width, page.height));
    return largest;
}

} // namespace

PageView::PageView(QWidget* parent) : QAbstractScrollArea(parent), m_pictures(kPicturesKept)
{
    setFocusPolicy(Qt::StrongFocus);
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setLineWidth(kFrame);
    // A bar that comes and goes would change the page width, which would make it come and go.
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
}

PageView::~PageView() = default;

// ---- The document

void PageView::ShowDocument(const print::Document* document)
{
    m_document = document;
    m_painter = document == nullptr ? nullptr : std::make_unique<print::PagePainter>(*document);
    m_frozen = QPixmap();
    m_pictures.clear();
    m_words.clear();
    m_hits.clear();
    m_hit = 0;
    m_current = 0;
    m_places.clear();
    Rescale({});
    SetCurrent(PageCount() > 0 ? 1 : 0);
    Q_EMIT HitsChanged();
}

void PageView::PagesAdded()
{
    if (m_document == nullptr || !m_frozen.isNull()) return;
    LayOut();
    viewport()->update();
    m_current == 0 ? SetCurrent(1) : Q_EMIT PageChanged();
}

void PageView::Freeze()
{
    m_frozenAt = AnchorAt({});
    m_frozenPage = m_current;
    m_frozen = viewport()->grab();
    m_document = nullptr;
    m_painter.reset();
}

void PageView::ShowAgain(const print::Document* document)
{
    const QString words = m_words;
    const int hit = m_hit;
    ShowDocument(document);
    if (PageCount() == 0) return;
    GoToPage(m_frozenPage);
    if (m_frozenAt.page < PageCount()) Restore(m_frozenAt);
    m_words = words;
    m_hits = FindInPages(*m_document, m_words);
    m_hit = std::min(hit, HitCount());
    Q_EMIT HitsChanged();
}

void PageView::SetSentence(const QString& sentence)
{
    m_sentence = sentence;
    Describe();
    viewport()->update();
}

// ---- Where the pages stand

PageView::Anchor PageView::AnchorAt(const QPointF& inViewport) const
{
    const QPointF place = inViewport + QPointF(horizontalScrollBar()->value(), verticalScrollBar()->value());
    for (int page = 0; page < PageCount(); ++page) {
        const QRectF where = m_places[static_cast<std::size_t>(page)];
        if (place.y() > where.bottom() && page + 1 < PageCount()) continue;
        const QPointF inPage = place - where.topLeft();
        return {page, {inPage.x() / where.width(), inPage.y() / where.height()}, inViewport, true};
    }
    return {};
}

void PageView::Restore(const Anchor& anchor)
{
    m_goes = true; // the page that was current stays so
    if (!anchor.isValid || anchor.page >= PageCount()) {
        horizontalScrollBar()->setValue(0);
        verticalScrollBar()->setValue(0);
    } else {
        const QRectF where = m_places[static_cast<std::size_t>(anchor.page)];
        const QPointF place =
            where.topLeft() + QPointF(anchor.part.x() * where.width(), anchor.part.y() * where.height());
        horizontalScrollBar()->setValue(static_cast<int>(std::lround(place.x() - anchor.inViewport.x())));
        verticalScrollBar()->setValue(static_cast<int>(std::lround(place.y() - anchor.inViewport.y())));
    }
    m_goes = false;
}

void PageView::LayOut()
{
    m_places.clear();
    const int gap = Theme::Margin();
    QSize whole(0, gap);
    if (m_document != nullptr) {
        for (const print::Page& page : m_document->pages) {
            const QSize size = SizeOf(page, m_scale);
            m_places.emplace_back(QPoint(0, whole.height()), size);
            whole = QSize(std::max(whole.width(), size.width()), whole.height() + size.height() + gap);
        }
    }
    whole.rwidth() += 2 * gap;
    const int room = std::max(whole.width(), viewport()->width());
    for (QRect& place : m_places)
        place.moveLeft((room - place.width()) / 2);
    SetScrollBars(PageCount() > 0 ? whole : QSize());
}

void PageView::SetScrollBars(const QSize& whole)
{
    const int step = 3 * fontMetrics().height();
    const auto set = [step](QScrollBar& bar, int length, int page) {
        bar.setPageStep(page);
        bar.setSingleStep(step);
        bar.setRange(0, std::max(0, length - page));
    };
    m_goes = true;
    set(*horizontalScrollBar(), whole.width(), viewport()->width());
    set(*verticalScrollBar(), whole.height(), viewport()->height());
    m_goes = false;
}

QRect PageView::InViewport(const QRect& place) const
{
    return place.translated(-horizontalScrollBar()->value(), -verticalScrollBar()->value());
}

// ---- Zoom

double PageView::Zoom() const { return m_scale * kTwipsPerInch / logicalDpiX(); }

double PageView::ScaleOfFit() const
{
    const QSizeF page = LargestPage(m_document);
    if (m_fit == Fit::None || page.isEmpty()) return m_scale;
    const QSize room = maximumViewportSize() - QSize(2 * Theme::Margin(), 2 * Theme::Margin());
    const double across = room.width() / page.width();
    const double least = kLeastZoom * logicalDpiX() / kTwipsPerInch;
    return std::max(least, m_fit == Fit::Width ? across : std::min(across, room.height() / page.height()));
}

void PageView::Rescale(const Anchor& anchor) { SetScale(ScaleOfFit(), anchor); }

void PageView::SetScale(double pixelsPerTwip, const Anchor& anchor)
{
    const bool changes = pixelsPerTwip != m_scale;
    m_scale = pixelsPerTwip;
    if (changes) m_pictures.clear();
    LayOut();
    Restore(anchor);
    viewport()->update();
    if (changes) Q_EMIT ZoomChanged();
}

void PageView::SetFit(Fit fit)
{
    const Anchor anchor = AnchorAt({});
    m_fit = fit;
    Rescale(anchor);
    if (fit == Fit::Page) GoToPage(m_current); // whole
    Q_EMIT ZoomChanged();
}

void PageView::SetZoom(double zoom)
{
    SetZoomAt(zoom, QPointF(viewport()->width() / 2.0, viewport()->height() / 2.0));
}

void PageView::SetZoomAt(double zoom, const QPointF& inViewport)
{
    const Anchor anchor = AnchorAt(inViewport);
    m_fit = Fit::None;
    SetScale(std::clamp(zoom, kLeastZoom, kGreatestZoom) * logicalDpiX() / kTwipsPerInch, anchor);
    Q_EMIT ZoomChanged();
}

void PageView::ZoomIn()
{
    const auto step = std::upper_bound(kSteps.begin(), kSteps.end(), Zoom() + 0.005);
    SetZoom(step == kSteps.end() ? kGreatestZoom : *step);
}

void PageView::ZoomOut()
{
    const auto step = std::lower_bound(kSteps.begin(), kSteps.end(), Zoom() - 0.005);
    SetZoom(step == kSteps.begin() ? kLeastZoom : *(step - 1));
}

// ---- Pages

void PageView::GoToPage(int page)
{
    if (PageCount() == 0) return;
    page = std::clamp(page, 1, PageCount());
    m_goes = true;
    verticalScrollBar()->setValue(m_places[static_cast<std::size_t>(page) - 1].top() - Theme::Margin());
    m_goes = false;
    SetCurrent(page);
}

void PageView::SetCurrent(int page)
{
    m_current = page;
    Describe();
    Q_EMIT PageChanged();
}

int PageView::PageInSight() const
{
    const QScrollBar& bar = *verticalScrollBar();
    if (PageCount() == 0) return 0;
    if (bar.value() == bar.maximum() && bar.maximum() > 0) return PageCount();
    const int line = bar.value() + static_cast<int>(viewport()->height() * kLookAhead);
    const auto ends = [](const QRect& place, int y) { return place.bottom() < y; };
    const auto found = std::lower_bound(m_places.begin(), m_places.end(), line, ends);
    return std::min(PageCount(), static_cast<int>(found - m_places.begin()) + 1);
}

void PageView::Describe()
{
    QString words = m_sentence;
    if (m_document != nullptr && m_current > 0) {
        QStringList lines;
        for (const std::string& line :
             print::LinesOf(m_document->pages[static_cast<std::size_t>(m_current) - 1]))
            lines.append(print::FromUtf8(line));
        words = lines.join(QLatin1Char('\n'));
    }
    // The mark by which tests from outside know a control stays at the end.
    const QString mark = QStringLiteral(" #") + objectName();
    setAccessibleDescription(accessibleDescription().endsWith(mark) ? words + mark : words);
}

// ---- Find

void PageView::Find(const QString& words)
{
    m_words = words;
    m_hits = m_document == nullptr ? std::vector<PageHit>() : FindInPages(*m_document, words);
    m_hit = 0;
    const auto here = std::find_if(
        m_hits.begin(), m_hits.end(), [this](const PageHit& hit) { return hit.page + 1 >= m_current; });
    if (!m_hits.empty()) ShowHit(here == m_hits.end() ? 1 : static_cast<int>(here - m_hits.begin()) + 1);
    viewport()->update();
    Q_EMIT HitsChanged();
}

void PageView::FindNext()
{
    if (m_hits.empty()) return;
    ShowHit(m_hit % HitCount() + 1);
    Q_EMIT HitsChanged();
}

void PageView::FindPrevious()
{
    if (m_hits.empty()) return;
    ShowHit((m_hit + HitCount() - 2) % HitCount() + 1);
    Q_EMIT HitsChanged();
}

int PageView::HitCount() const { return static_cast<int>(m_hits.size()); }

void PageView::ShowHit(int hit)
{
    m_hit = hit;
    const PageHit& shown = m_hits[static_cast<std::size_t>(hit) - 1];
    const QRect page = m_places[static_cast<std::size_t>(shown.page)];
    const QRectF mark = shown.marks.front();
    const QRect place(page.topLeft() + (mark.topLeft() * m_scale).toPoint(),
                      (mark.size() * m_scale).toSize());
    const auto bring = [](QScrollBar& bar, int begin, int end) {
        const int air = bar.pageStep() / 4;
        if (begin < bar.value() || end > bar.value() + bar.pageStep()) bar.setValue(begin - air);
    };
    m_goes = true;
    bring(*horizontalScrollBar(), place.left(), place.right());
    bring(*verticalScrollBar(), place.top(), place.bottom());
    m_goes = false;
    if (shown.page + 1 != m_current) SetCurrent(shown.page + 1);
    viewport()->update();
}

} // namespace platform
