#include "worksheets/OutcomeFork.h"

#include "platform/widgets/Theme.h"

#include <QEvent>
#include <QPainter>

#include <algorithm>

namespace Theme = platform::Theme;

namespace {

constexpr int kWidth = 360;    // twips, as all lengths here
constexpr int kThickness = 30; // a little heavier than hair

class Line : public QWidget
{
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), Theme::Rule(palette()));
    }
};

QWidget* MakeLine(const QString& name, int number, QWidget* parent)
{
    auto* line = new Line(parent);
    line->setObjectName(QStringLiteral("%1_%2").arg(name).arg(number));
    return line;
}

void PlaceBetween(QWidget& line, QPoint first, QPoint last)
{
    const int thickness = Theme::Pixels(kThickness);
    const QPoint from(std::min(first.x(), last.x()), std::min(first.y(), last.y()));
    const QPoint to(std::max(first.x(), last.x()), std::max(first.y(), last.y()));
    line.setGeometry(from.x(), from.y(), to.x() - from.x() + thickness, to.y() - from.y() + thickness);
}

} // namespace

OutcomeFork::OutcomeFork(QWidget& target, QWidget& fallback, QWidget& extreme, QWidget* parent)
    : QWidget(parent), m_target(target), m_fallback(fallback), m_extreme(extreme)
{
    setFixedWidth(Theme::Pixels(kWidth));
    for (std::size_t i = 0; i < m_lines.size(); ++i) {
        m_lines.at(i) = MakeLine(QStringLiteral("linOutcome"), static_cast<int>(i) + 1, this);
        m_fallbackLines.at(i) = MakeLine(QStringLiteral("linFallback"), static_cast<int>(i) + 1, this);
    }
    for (QWidget* panel : {&target, &fallback, &extreme})
        panel->installEventFilter(this);
}

void OutcomeFork::ShowFallback(bool show)
{
    m_hasFallback = show;
    for (QWidget* line : m_fallbackLines)
        line->setVisible(show);
    PlaceLines();
}

bool OutcomeFork::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Move || event->type() == QEvent::Resize) PlaceLines();
    return QWidget::eventFilter(watched, event);
}

void OutcomeFork::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    PlaceLines();
}

int OutcomeFork::Middle(const QWidget& panel) const
{
    return mapFromGlobal(panel.mapToGlobal(panel.rect().center())).y();
}

void OutcomeFork::PlaceLines()
{
    const int target = Middle(m_target);
    const int extreme = Middle(m_extreme);
    const int fallback = Middle(m_fallback);
    const int failure = m_hasFallback ? (fallback + extreme) / 2 : extreme;
    const int root = (target + failure) / 2;
    const int first = width() / 3;
    const int second = 2 * width() / 3;
    const int end = width() - Theme::Pixels(kThickness);
    PlaceBetween(*m_lines[0], {0, root}, {first, root});
    PlaceBetween(*m_lines[1], {first, target}, {first, failure});
    PlaceBetween(*m_lines[2], {first, target}, {end, target});
    PlaceBetween(*m_lines[3], {m_hasFallback ? second : first, extreme}, {end, extreme});
    if (m_hasFallback) PlaceFallbackLines(fallback, extreme);
}

void OutcomeFork::PlaceFallbackLines(int fallback, int extreme)
{
    const int failure = (fallback + extreme) / 2;
    const int first = width() / 3;
    const int second = 2 * width() / 3;
    PlaceBetween(*m_fallbackLines[0], {first, failure}, {second, failure});
    PlaceBetween(*m_fallbackLines[1], {second, fallback}, {second, failure});
    PlaceBetween(*m_fallbackLines[2], {second, failure}, {second, extreme});
    PlaceBetween(*m_fallbackLines[3], {second, fallback}, {width() - Theme::Pixels(kThickness), fallback});
}
