#include "worksheets/DecisionTreeLayout.h"

#include <QFontMetricsF>
#include <QLineF>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr double kRowPitch = 180;    // twips between the rows of an outcome, the tightest of the tree
constexpr double kTitleHeight = 200; // twips from a title to the line below it
constexpr double kMarginX = 60;      // twips right of the tree, as its lines keep on the left
constexpr double kMarginY = 6;       // twips below it
constexpr double kLeastAir = 0.035;  // of the font's height: what a row is higher than its letters
constexpr double kMostAir = 0.3;     // where there is room
constexpr double kAirStep = 1.005;   // one step back from it
constexpr double kGrowth = 1.02;     // one step towards a scale at which nothing touches
constexpr double kLargest = 8;       // times the scale of the rows: no text is waited for beyond that
constexpr double kBetween = 0.2;     // of the font's height: the least gap beside a text
constexpr double kAbove = 0.04;      // of the font's height: the least gap above and below it
constexpr double kLargestFont = 2;   // times the window's font

/// Heights stand on whole pixels, so that all lines look alike and letters keep their distance from them.
QPointF PlaceOf(Long x, Long y, const DecisionTreeScale& scale)
{
    return {static_cast<double>(x) * scale.across, std::floor(static_cast<double>(y) * scale.down)};
}

QLineF PlaceOf(const DecisionTreeDrawing::Line& line, const DecisionTreeScale& scale)
{
    constexpr QPointF kMiddleOfPixel(0, 0.5);
    return {PlaceOf(line.x1, line.y1, scale) + kMiddleOfPixel,
            PlaceOf(line.x2, line.y2, scale) + kMiddleOfPixel};
}

/// What a text covers, seen from the start of its baseline.
QRectF MeasureInk(const QString& text, const QFontMetricsF& metrics)
{
    return metrics.tightBoundingRect(text);
}

/// From the top of a text's row, which the drawing tells, to its baseline. A title ends above its line as far
/// as the row below begins under it.
double BaselineInRow(double down, const QFontMetricsF& metrics)
{
    const QRectF letters = MeasureInk(QStringLiteral("bdfhl$jgpqy,"), metrics);
    return std::round((std::floor(kTitleHeight * down) - letters.top() - letters.bottom() + 1) / 2);
}

QPointF BaselineOf(const DecisionTreeDrawing::Text& text, const DecisionTreeScale& scale, double inRow)
{
    return PlaceOf(text.x, text.y, scale) + QPointF(0, inRow);
}

/// Whether the line and the rectangle meet: the line is cut at each side of the rectangle in turn.
bool Meet(const QLineF& line, const QRectF& area)
{
    double from = 0;
    double to = 1;
    const auto cut = [&](double start, double step, double low, double high) {
        if (step == 0) return start >= low && start <= high;
        const double a = (low - start) / step;
        const double b = (high - start) / step;
        from = std::max(from, std::min(a, b));
        to = std::min(to, std::max(a, b));
        return from <= to;
    };
    return cut(line.x1(), line.dx(), area.left(), area.right()) &&
           cut(line.y1(), line.dy(), area.top(), area.bottom());
}

/// A tree whose texts have been measured in one font.
class MeasuredTree
{
public:
    MeasuredTree(const DecisionTreeDrawing& tree, const QFont& font)
        : m_tree(tree), m_metrics(font), m_between(m_metrics.height() * kBetween),
          m_above(m_metrics.height() * kAbove + LineWidthOf(font) / 2)
    {
        for (const auto& text : tree.texts) {
            m_inks.push_back(MeasureInk(QString::fromStdString(text.text), m_metrics));
        }
    }

    int CountTouches(const DecisionTreeScale& scale) const
    {
        const std::vector<QRectF> areas = Areas(scale);
        int touches = 0;
        for (auto area = areas.begin(); area != areas.end(); ++area) {
            if (area->isEmpty()) continue;
            touches += static_cast<int>(std::count_if(
                areas.begin(), area, [&](const QRectF& other) { return area->intersects(Widened(other)); }));
            touches += CountLines(*area, scale);
        }
        return touches;
    }

private:
    std::vector<QRectF> Areas(const DecisionTreeScale& scale) const
    {
        std::vector<QRectF> areas;
        const double inRow = BaselineInRow(scale.down, m_metrics);
        for (std::size_t i = 0; i < m_inks.size(); ++i) {
            areas.push_back(m_inks[i].translated(BaselineOf(m_tree.texts[i], scale, inRow)));
        }
        return areas;
    }

    QRectF Widened(const QRectF& area) const { return area.adjusted(-m_between, 0, m_between, 0); }

    int CountLines(const QRectF& area, const DecisionTreeScale& scale) const
    {
        const QRectF around = Widened(area).adjusted(0, -m_above, 0, m_above);
        return static_cast<int>(
            std::count_if(m_tree.lines.begin(), m_tree.lines.end(), [&](const auto& line) {
                return Meet(PlaceOf(line, scale), around);
            }));
    }

    const DecisionTreeDrawing& m_tree;
    QFontMetricsF m_metrics;
    double m_between; // pixels that a text keeps from what stands beside it
    double m_above;   // and from the middle of a line above or below it
    std::vector<QRectF> m_inks;
};

int CountTouches(const std::vector<MeasuredTree>& trees, const DecisionTreeScale& scale)
{
    int touches = 0;
    for (const MeasuredTree& tree : trees) {
        touches += tree.CountTouches(scale);
    }
    return touches;
}

/// Lets one measure of the scale grow until no more texts touch than at the largest.
void Grow(double DecisionTreeScale::*measure,
          double largest,
          DecisionTreeScale& scale,
          const std::vector<MeasuredTree>& trees)
{
    DecisionTreeScale widest = scale;
    widest.*measure = largest;
    const int unavoidable = CountTouches(trees, widest);
    while (scale.*measure < largest && CountTouches(trees, scale) > unavoidable) {
        scale.*measure *= kGrowth;
    }
}

/// The window's font, so many times as large.
QFont Enlarged(const QFont& font, double times)
{
    QFont result = font;
    if (font.pointSizeF() > 0) {
        result.setPointSizeF(std::floor(font.pointSizeF() * times * 4) / 4);
    } else {
        result.setPixelSize(static_cast<int>(std::floor(font.pixelSize() * times)));
    }
    return result;
}

double TimesThatFit(const QSizeF& needed, const QSizeF& room)
{
    return std::min(room.width() / needed.width(), room.height() / needed.height());
}

bool Fits(const QSizeF& needed, const QSizeF& room) { return TimesThatFit(needed, room) >= 1; }

/// Rows set apart with what the room has left over, since letters close below a line are hard to read.
DecisionTreeScale
WithAir(const DecisionTreeScale& least, const std::vector<DecisionTreeDrawing>& trees, double height)
{
    DecisionTreeScale scale = least;
    const double times = height / SizeOf(trees, least).height();
    scale.down *= std::clamp(times, 1.0, (1 + kMostAir) / (1 + kLeastAir));
    // Whole pixels may have added up to more than there is.
    while (scale.down > least.down && SizeOf(trees, scale).height() > height) {
        scale.down = std::max(least.down, scale.down / kAirStep);
    }
    return scale;
}

} // namespace

double LineWidthOf(const QFont& font) { return std::max(1.25, QFontMetricsF(font).height() / 12); }

QRectF InkOf(const DecisionTreeDrawing::Text& text, const DecisionTreeScale& scale)
{
    const QFontMetricsF metrics(scale.font);
    const QPointF baseline = BaselineOf(text, scale, BaselineInRow(scale.down, metrics));
    return MeasureInk(QString::fromStdString(text.text), metrics).translated(baseline);
}

int CountTouches(const DecisionTreeDrawing& tree, const DecisionTreeScale& scale)
{
    return MeasuredTree(tree, scale.font).CountTouches(scale);
}

QSizeF SizeOf(const DecisionTreeDrawing& tree, const DecisionTreeScale& scale)
{
    QSizeF size(0, 0);
    for (const auto& line : tree.lines) {
        const QLineF place = PlaceOf(line, scale);
        size = size.expandedTo({std::max(place.x1(), place.x2()), std::max(place.y1(), place.y2())});
    }
    for (const auto& text : tree.texts) {
        const QRectF ink = InkOf(text, scale);
        size = size.expandedTo({ink.right(), ink.bottom()});
    }
    return size + QSizeF(kMarginX * scale.across, kMarginY * scale.down);
}

QSizeF SizeOf(const std::vector<DecisionTreeDrawing>& trees, const DecisionTreeScale& scale)
{
    QSizeF size(0, 0);
    for (const DecisionTreeDrawing& tree : trees) {
        size = size.expandedTo(SizeOf(tree, scale));
    }
    return size;
}

DecisionTreeScale ReadableScale(const std::vector<DecisionTreeDrawing>& trees, const QFont& font)
{
    std::vector<MeasuredTree> measured;
    for (const DecisionTreeDrawing& tree : trees) {
        measured.emplace_back(tree, font);
    }
    const double rows = QFontMetricsF(font).height() * (1 + kLeastAir) / kRowPitch;
    // First what stands above one another, which no width helps, then the width.
    DecisionTreeScale scale = {font, kLargest * rows, rows};
    Grow(&DecisionTreeScale::down, kLargest * rows, scale, measured);
    scale.across = scale.down;
    Grow(&DecisionTreeScale::across, kLargest * rows, scale, measured);
    return scale;
}

DecisionTreeScale
FittingScale(const std::vector<DecisionTreeDrawing>& trees, const QFont& windowFont, const QSizeF& room)
{
    const DecisionTreeScale least = ReadableScale(trees, windowFont);
    const QSizeF needed = SizeOf(trees, least);
    if (needed.isEmpty()) return least;
    // Fonts do not grow quite evenly, so a size that should fit is tried and, if need be, taken back a
    // little.
    for (double times = std::min(kLargestFont, TimesThatFit(needed, room)); times > 1; times -= 0.05) {
        const DecisionTreeScale larger = ReadableScale(trees, Enlarged(windowFont, times));
        if (Fits(SizeOf(trees, larger), room)) return WithAir(larger, trees, room.height());
    }
    return WithAir(least, trees, room.height());
}

void PaintLines(QPainter& painter, const DecisionTreeDrawing& tree, const DecisionTreeScale& scale)
{
    painter.save();
    QPen pen = painter.pen();
    pen.setWidthF(LineWidthOf(scale.font));
    pen.setCapStyle(Qt::RoundCap);
    painter.setPen(pen);
    for (const auto& line : tree.lines) {
        painter.drawLine(PlaceOf(line, scale));
    }
    painter.restore();
}

void PaintTexts(QPainter& painter, const DecisionTreeDrawing& tree, const DecisionTreeScale& scale)
{
    painter.save();
    painter.setFont(scale.font);
    const double inRow = BaselineInRow(scale.down, QFontMetricsF(scale.font));
    for (const auto& text : tree.texts) {
        painter.drawText(BaselineOf(text, scale, inRow), QString::fromStdString(text.text));
    }
    painter.restore();
}
