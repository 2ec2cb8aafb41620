#include "platform/print/PagePainter.h"

#include "platform/print/Fonts.h"
#include "platform/print/Pictures.h"

#include <cmath>

namespace platform::print {

namespace {

constexpr Double twipsPerInch = 1440.0;

QColor ColorOf(std::uint32_t color) { return QColor::fromRgb(static_cast<QRgb>(color)); }

QRectF Rect(Double x, Double y, Double width, Double height) { return QRectF(x, y, width, height); }

QPen PenOf(std::uint32_t color, Double width)
{
    return QPen(ColorOf(color), width, Qt::SolidLine, Qt::FlatCap);
}

} // namespace

PagePainter::PagePainter(const Document& document) : m_document(document) {}

void PagePainter::DrawPage(QPainter& painter, const Page& page)
{
    painter.save();
    for (const PlacedFill& fill : page.ink.fills)
        painter.fillRect(Rect(fill.x, fill.y, fill.width, fill.height), ColorOf(fill.color));
    for (const PlacedPicture& picture : page.ink.pictures)
        DrawPicture(painter, picture);
    for (const PlacedLine& line : page.ink.lines) {
        painter.setPen(PenOf(line.color, line.width));
        painter.drawLine(QPointF(line.x1, line.y1), QPointF(line.x2, line.y2));
    }
    for (const PlacedText& text : page.ink.texts)
        DrawText(painter, text);
    painter.restore();
}

const QFont& PagePainter::FontOf(Long look)
{
    while (m_fonts.size() <= static_cast<std::size_t>(look))
        m_fonts.push_back(print::FontOf(m_document.looks[m_fonts.size()]));
    return m_fonts[static_cast<std::size_t>(look)];
}

QImage PagePainter::ImageOf(const richtext::Picture& picture)
{
    const auto found = m_images.constFind(&picture);
    if (found != m_images.constEnd()) return *found;
    return *m_images.insert(&picture, Decoded(picture));
}

void PagePainter::DrawPicture(QPainter& painter, const PlacedPicture& picture)
{
    const QRectF place = Rect(picture.x, picture.y, picture.width, picture.height);
    const QImage image = ImageOf(*picture.picture);
    if (!image.isNull()) return painter.drawImage(place, image);
    constexpr std::uint32_t grey = 0x808080;
    painter.setPen(PenOf(grey, 10.0));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(place);
}

void PagePainter::DrawText(QPainter& painter, const PlacedText& text)
{
    painter.setFont(FontOf(text.look));
    painter.setPen(ColorOf(m_document.looks[static_cast<std::size_t>(text.look)].color.value_or(0)));
    const QString words = FromUtf8(text.text);
    if (!text.upward) return painter.drawText(QPointF(text.x, text.y), words);
    painter.save();
    painter.translate(text.x, text.y);
    painter.rotate(-90.0);
    painter.drawText(QPointF(0.0, 0.0), words);
    painter.restore();
}

QImage PageImage(PagePainter& painter, const Page& page, Double dotsPerInch)
{
    const Double scale = dotsPerInch / twipsPerInch;
    const auto pixels = [scale](Double twips) {
        return std::max(1, static_cast<int>(std::lround(twips * scale)));
    };
    QImage image(pixels(page.width), pixels(page.height), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter canvas(&image);
    canvas.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                          QPainter::SmoothPixmapTransform);
    canvas.scale(scale, scale);
    painter.DrawPage(canvas, page);
    return image;
}

} // namespace platform::print
