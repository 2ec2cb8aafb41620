#include "platform/widgets/RichTextIcons.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QPixmap>

#include <functional>
#include <map>

namespace platform::RichTextIcons {

namespace {

// All signs are drawn on a field of 16 by 16.

void Letter(QPainter& painter, const QString& letter, bool bold, bool italic, bool underline)
{
    QFont font(QStringLiteral("Arial"));
    font.setPixelSize(13);
    font.setWeight(bold ? QFont::Black : QFont::Medium);
    font.setItalic(italic);
    font.setUnderline(underline);
    painter.setFont(font);
    painter.drawText(QRectF(0, 0, 16, 16), Qt::AlignCenter, letter);
}

void Row(QPainter& painter, double y, double from, double to)
{
    painter.drawLine(QPointF(from, y), QPointF(to, y));
}

/// Five lines of text, the odd ones short and pushed to a side.
void Lines(QPainter& painter, double shortFrom, double shortTo)
{
    for (int line = 0; line < 5; ++line) {
        const bool isShort = line % 2 == 1;
        Row(painter, 2.5 + 2.75 * line, isShort ? shortFrom : 1.5, isShort ? shortTo : 14.5);
    }
}

void Bullets(QPainter& painter)
{
    for (const double y : {3.5, 8.0, 12.5}) {
        Row(painter, y, 6.5, 14.5);
        painter.setBrush(painter.pen().color());
        painter.drawEllipse(QPointF(2.5, y), 0.9, 0.9);
    }
}

void Numbers(QPainter& painter)
{
    QFont font(QStringLiteral("Arial"));
    font.setPixelSize(6);
    font.setBold(true);
    painter.setFont(font);
    int number = 1;
    for (const double y : {3.0, 8.0, 13.0}) {
        Row(painter, y, 6.5, 14.5);
        painter.drawText(QRectF(0, y - 4, 5, 8), Qt::AlignCenter, QString::number(number++));
    }
}

void Arrow(QPainter& painter, QPointF from, QPointF to, QPointF wing)
{
    painter.drawLine(from, to);
    painter.drawLine(to, to + wing);
    painter.drawLine(to, to + QPointF(wing.x(), -wing.y()));
}

void Indent(QPainter& painter, bool more)
{
    Row(painter, 2.5, 1.5, 14.5);
    Row(painter, 13.5, 1.5, 14.5);
    Row(painter, 6.2, 8.5, 14.5);
    Row(painter, 9.8, 8.5, 14.5);
    if (more) {
        Arrow(painter, {1.5, 8}, {6, 8}, {-2, -2});
    } else {
        Arrow(painter, {6, 8}, {1.5, 8}, {2, -2});
    }
}

void Turn(QPainter& painter, bool back)
{
    if (!back) {
        painter.translate(16, 0);
        painter.scale(-1, 1);
    }
    QPainterPath path(QPointF(3, 6.5));
    path.lineTo(10, 6.5);
    path.cubicTo(15, 6.5, 15, 13, 10, 13);
    path.lineTo(6, 13);
    painter.drawPath(path);
    painter.drawLine(QPointF(3, 6.5), QPointF(6, 3.5));
    painter.drawLine(QPointF(3, 6.5), QPointF(6, 9.5));
}

void Picture(QPainter& painter)
{
    painter.drawRect(QRectF(1.5, 2.5, 13, 11));
    painter.drawEllipse(QPointF(5, 6), 1.2, 1.2);
    painter.drawPolyline(QPolygonF({{2, 12.5}, {6, 8.5}, {8.5, 11}, {11, 7.5}, {14, 11.5}}));
}

void Clear(QPainter& painter)
{
    Letter(painter, QStringLiteral("A"), false, true, false);
    painter.drawLine(QPointF(2, 14), QPointF(14, 3));
}

void Find(QPainter& painter)
{
    painter.drawEllipse(QPointF(6.5, 6.5), 4.2, 4.2);
    painter.drawLine(QPointF(9.7, 9.7), QPointF(14, 14));
}

void Chevron(QPainter& painter, double tip, double ends)
{
    painter.drawPolyline(QPolygonF({{3.5, ends}, {8, tip}, {12.5, ends}}));
}

void Close(QPainter& painter)
{
    painter.drawLine(QPointF(4, 4), QPointF(12, 12));
    painter.drawLine(QPointF(12, 4), QPointF(4, 12));
}

void Color(QPainter& painter)
{
    painter.translate(0, -2);
    Letter(painter, QStringLiteral("A"), true, false, false);
}

using Drawing = std::function<void(QPainter&)>;

const std::map<QString, Drawing>& Drawings()
{
    const auto letter = [](const char* sign, bool bold, bool italic, bool underline) {
        return Drawing(
            [=](QPainter& painter) { Letter(painter, QString::fromLatin1(sign), bold, italic, underline); });
    };
    const auto lines = [](double from, double to) {
        return Drawing([=](QPainter& painter) { Lines(painter, from, to); });
    };
    const auto name = [](const char* text) { return QString::fromLatin1(text); };
    static const std::map<QString, Drawing> drawings = {
        {name("bold"), letter("B", true, false, false)},
        {name("italic"), letter("I", false, true, false)},
        {name("underline"), letter("U", false, false, true)},
        {name("left"), lines(1.5, 10)},
        {name("center"), lines(4, 12)},
        {name("right"), lines(6, 14.5)},
        {name("justify"), lines(1.5, 14.5)},
        {name("bullets"), Bullets},
        {name("numbers"), Numbers},
        {name("less"), [](QPainter& painter) { Indent(painter, false); }},
        {name("more"), [](QPainter& painter) { Indent(painter, true); }},
        {name("undo"), [](QPainter& painter) { Turn(painter, true); }},
        {name("redo"), [](QPainter& painter) { Turn(painter, false); }},
        {name("picture"), Picture},
        {name("clear"), Clear},
        {name("find"), Find},
        {name("color"), Color},
        {name("up"), [](QPainter& painter) { Chevron(painter, 6, 10.5); }},
        {name("down"), [](QPainter& painter) { Chevron(painter, 10.5, 6); }},
        {name("close"), Close},
    };
    return drawings;
}

class Engine : public QIconEngine
{
public:
    explicit Engine(const QString& name) : m_name(name) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        const auto drawing = Drawings().find(m_name);
        if (drawing == Drawings().end()) return;
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.topLeft());
        painter->scale(rect.width() / 16.0, rect.height() / 16.0);
        painter->setPen(QPen(QGuiApplication::palette().color(group, QPalette::ButtonText),
                             1.3,
                             Qt::SolidLine,
                             Qt::RoundCap,
                             Qt::RoundJoin));
        drawing->second(*painter);
        painter->restore();
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }
    QIconEngine* clone() const override { return new Engine(m_name); }

private:
    QString m_name;
};

} // namespace

QIcon Of(const QString& name) { return QIcon(new Engine(name)); }

QIcon Swatch(const QColor& color)
{
    QPixmap pixmap(16, 16);
    pixmap.fill(color);
    QPainter painter(&pixmap);
    painter.setPen(QColor(0x80, 0x80, 0x80));
    painter.drawRect(0, 0, 15, 15);
    return QIcon(pixmap);
}

} // namespace platform::RichTextIcons
