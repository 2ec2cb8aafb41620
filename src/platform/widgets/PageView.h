#pragma once

#include <QAbstractScrollArea>
#include <QCache>
#include <QPixmap>

#include <memory>
#include <vector>

namespace platform {

namespace print {
struct Document;
class PagePainter;
} // namespace print
struct PageHit;

/// Shows the pages of a document below each other on the ground of a desk, drawn from their record. It opens
/// on page 1 at page width. Only the pages in sight are drawn, and what was drawn is kept for scrolling.
/// Screen readers get the texts of the current page as its description, one a line.
///
/// Page Up and Page Down turn the pages, Home and End go to the first and the last, the arrows and the wheel
/// scroll, Space scrolls by what is in sight; Ctrl with plus, minus and wheel zooms.
class PageView : public QAbstractScrollArea
{
    Q_OBJECT

public:
    enum class Fit { Width, Page, None };

    explicit PageView(QWidget* parent = nullptr);
    ~PageView() override;

    /// Shows a document from its first page; it must outlive the view or the next call. Null: no pages.
    void ShowDocument(const print::Document* document);
    /// The document has more pages than before.
    void PagesAdded();
    /// While the document is made anew, the view keeps its picture; the next ShowDocument or ShowAgain ends
    /// that.
    void Freeze();
    /// Shows the document made anew in the place that was frozen, with the same words marked; where its page
    /// is gone, the nearest one.
    void ShowAgain(const print::Document* document);
    /// What stands where there are no pages.
    void SetSentence(const QString& sentence);

    int PageCount() const { return static_cast<int>(m_places.size()); }
    /// From 1; 0 while there are no pages.
    int CurrentPage() const { return m_current; }
    /// Brings the top of a page into sight, the nearest page for a number that there is not.
    void GoToPage(int page);

    Fit FitsTo() const { return m_fit; }
    void SetFit(Fit fit);
    /// 1: as large as on paper.
    double Zoom() const;
    /// Kept between the least and the greatest.
    void SetZoom(double zoom);
    void ZoomIn();
    void ZoomOut();

    /// Marks every place of these words, whatever their case and line breaks, and shows the first from the
    /// current page on. An empty text takes the marks away.
    void Find(const QString& words);
    /// Shows the next place or the one before, going around at the ends.
    void FindNext();
    void FindPrevious();
    int HitCount() const;
    /// From 1; 0: none is shown.
    int CurrentHit() const { return m_hit; }

Q_SIGNALS:
    /// Another page is current, or there are more or other pages.
    void PageChanged();
    void ZoomChanged();
    /// Other marks, or another place is shown.
    void HitsChanged();

protected:
    void changeEvent(QEvent* event) override;
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    /// A place that zooming and resizing leave where it is.
    struct Anchor
    {
        int page = 0;         // from 0
        QPointF part;         // of the page, 0 to 1
        QPointF inViewport;   // pixels
        bool isValid = false; // false: the top of the first page
    };

    Anchor AnchorAt(const QPointF& inViewport) const;
    void Restore(const Anchor& anchor);
    /// Places the pages in the scale that the fit asks for.
    void LayOut();
    void Rescale(const Anchor& anchor);
    double ScaleOfFit() const;
    void SetScale(double pixelsPerTwip, const Anchor& anchor);
    void SetZoomAt(double zoom, const QPointF& inViewport);
    void SetScrollBars(const QSize& whole);
    QRect InViewport(const QRect& place) const;

    void SetCurrent(int page);
    int PageInSight() const;
    void ScrollToEnd();
    void Describe();
    void ShowHit(int hit);

    void PaintFrame();
    void PaintSentence(QPainter& painter) const;
    void PaintPage(QPainter& painter, int page);
    void PaintMarks(QPainter& painter, int page) const;
    QPixmap PictureOf(int page);

    const print::Document* m_document = nullptr;
    std::unique_ptr<print::PagePainter> m_painter; // of the document
    std::vector<QRect> m_places;                   // of the pages, from the top of all
    QCache<int, QPixmap> m_pictures;               // of pages in this scale; cost: pixels
    QString m_sentence;
    QPixmap m_frozen;
    Anchor m_frozenAt;
    int m_frozenPage = 0; // that was current
    Fit m_fit = Fit::Width;
    double m_scale = 1.0 / 15.0; // pixels to the twip
    int m_current = 0;
    bool m_goes = false; // the scroll bars are moved to a page that was asked for

    QString m_words; // that are marked
    std::vector<PageHit> m_hits;
    int m_hit = 0;
};

} // namespace platform
