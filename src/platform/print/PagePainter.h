#pragma once

#include "platform/print/Document.h"

#include <QFont>
#include <QHash>
#include <QImage>
#include <QPainter>

namespace platform::print {

/// Draws pages of one document. Keeps its fonts and decoded pictures, so one painter for all pages is quick.
class PagePainter
{
public:
    /// The document must outlive the painter; pages may be added to it meanwhile.
    explicit PagePainter(const Document& document);

    /// Draws a page so that one twip is one unit of the painter's coordinates: the caller scales, and fills
    /// the paper if it wants one.
    void DrawPage(QPainter& painter, const Page& page);

private:
    const QFont& FontOf(Long look);
    QImage ImageOf(const richtext::Picture& picture);
    void DrawText(QPainter& painter, const PlacedText& text);
    void DrawPicture(QPainter& painter, const PlacedPicture& picture);

    const Document& m_document;
    std::vector<QFont> m_fonts; // of the looks
    QHash<const richtext::Picture*, QImage> m_images;
};

/// The page as a picture on white paper.
QImage PageImage(PagePainter& painter, const Page& page, Double dotsPerInch);

} // namespace platform::print
