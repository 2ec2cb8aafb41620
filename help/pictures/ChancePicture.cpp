#include "pictures/ChancePicture.h"

#include "model/c51Alternative.h"
#include "model/c52OutcomeList.h"
#include "platform/widgets/Theme.h"

#include <QApplication>
#include <QPainter>

namespace Theme = platform::Theme;

namespace {

constexpr int kWidth = 680; // pixels, as all lengths here
constexpr int kHeight = 260;
constexpr int kSquare = 18;
constexpr int kStep = 21; // from one square to the next
constexpr int kSquaresLeft = 450;
constexpr int kSquaresTop = 14;
constexpr int kAcross = 10;

class Drawing
{
public:
    Drawing(QImage& image, const QPalette& palette) : m_palette(palette), m_painter(&image)
    {
        image.fill(palette.color(QPalette::Base));
        m_painter.setRenderHint(QPainter::Antialiasing);
        m_painter.setFont(QApplication::font());
    }

    void Fork(QPoint from, QPoint up, QPoint down)
    {
        m_painter.setPen(QPen(m_palette.color(QPalette::Text), 1.5));
        m_painter.drawLine(from, up);
        m_painter.drawLine(from, down);
    }
    void Text(QPoint at, const QString& text, bool bold = false)
    {
        QFont font = QApplication::font();
        font.setBold(bold);
        m_painter.setFont(font);
        m_painter.setPen(m_palette.color(QPalette::Text));
        m_painter.drawText(at, text);
    }
    /// An end of the fork: its square, its name and how many of the hundred it has.
    void End(QPoint at, const QString& name, int percent, int tone)
    {
        Square({at.x(), at.y() - kSquare / 2}, tone);
        Text({at.x() + kStep + 4, at.y() - 1}, name, true);
        Text({at.x() + kStep + 4, at.y() + 15}, QStringLiteral("%1 of 100 times").arg(percent));
    }
    void Square(QPoint corner, int tone)
    {
        m_painter.setPen(QPen(m_palette.color(QPalette::Text), 1));
        m_painter.setBrush(Tone(tone));
        m_painter.drawRect(QRectF(corner, QSizeF(kSquare, kSquare)));
        if (tone != kExtreme) return;
        // Told apart without colour too.
        m_painter.drawLine(corner, corner + QPoint(kSquare, kSquare));
    }
    static constexpr int kTarget = 0;
    static constexpr int kFallback = 1;
    static constexpr int kExtreme = 2;

private:
    QColor Tone(int tone) const
    {
        const QColor base = m_palette.color(QPalette::Base);
        const double shares[] = {0.85, 0.4, 0.0};
        return Theme::Mixed(base, Theme::Accent(m_palette), shares[tone]);
    }

    QPalette m_palette;
    QPainter m_painter;
};

QString Percent(int value) { return QStringLiteral("%1 %").arg(value); }

int ToneOf(int square, int target, int fallback)
{
    if (square < target) return Drawing::kTarget;
    return square < target + fallback ? Drawing::kFallback : Drawing::kExtreme;
}

} // namespace

QImage ChancePicture(c51Alternative& alternative, bool dark)
{
    const QPalette palette =
        Theme::WithAccent(dark ? Theme::DarkPalette() : QPalette(QColor(0xef, 0xef, 0xef)));
    QImage image(kWidth, kHeight, QImage::Format_RGB32);
    Drawing drawing(image, palette);
    const int success = alternative.Outcome(c52OutcomeList::Target)->Success();
    const int fallbackSuccess = alternative.Outcome(c52OutcomeList::Fallback)->Success();
    const int target = alternative.OutcomePercent(c52OutcomeList::Target);
    const int fallback = alternative.OutcomePercent(c52OutcomeList::Fallback);
    const int extreme = alternative.OutcomePercent(c52OutcomeList::Extreme);

    drawing.Text({10, 100},
                 QStringLiteral("Alternative %1").arg(QString::fromStdString(alternative.ItemName())));
    drawing.Fork({110, 96}, {180, 40}, {180, 150});
    drawing.Text({100, 62}, Percent(success));
    drawing.Text({100, 142}, Percent(100 - success));
    drawing.End({188, 40}, QStringLiteral("Target"), target, Drawing::kTarget);
    drawing.Fork({180, 150}, {270, 110}, {270, 200});
    drawing.Text({198, 122}, Percent(fallbackSuccess));
    drawing.Text({198, 192}, Percent(100 - fallbackSuccess));
    drawing.End({278, 110}, QStringLiteral("Fallback"), fallback, Drawing::kFallback);
    drawing.End({278, 200}, QStringLiteral("Extreme"), extreme, Drawing::kExtreme);
    for (int square = 0; square < kAcross * kAcross; ++square) {
        const QPoint corner(kSquaresLeft + square % kAcross * kStep, kSquaresTop + square / kAcross * kStep);
        drawing.Square(corner, ToneOf(square, target, fallback));
    }
    drawing.Text({kSquaresLeft, kHeight - 12},
                 QStringLiteral("%1 + %2 + %3 = 100").arg(target).arg(fallback).arg(extreme));
    return image;
}
