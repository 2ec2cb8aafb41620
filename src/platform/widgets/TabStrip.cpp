#include "platform/widgets/TabStrip.h"

#include "platform/widgets/Application.h"
#include "platform/widgets/Theme.h"

#include <QPainter>
#include <QWheelEvent>

#include <algorithm>

namespace platform {

namespace {

/// Sets a flag from constructor to destructor.
class Flagged
{
public:
    explicit Flagged(bool& flag) : m_flag(flag), m_before(flag) { m_flag = true; }
    Flagged(const Flagged&) = delete;
    Flagged& operator=(const Flagged&) = delete;
    ~Flagged() { m_flag = m_before; }

private:
    bool& m_flag;
    bool m_before;
};

constexpr double kRound = 4.0; // radius of a tab's lower corners
constexpr double kAccentHeight = 3.0;

} // namespace

TabStrip::TabStrip(const QString& name, Captions captions, QWidget* parent)
    : QTabBar(parent), m_weight(captions)
{
    setObjectName(name);
    setShape(QTabBar::RoundedSouth);
    setDrawBase(false);
    setExpanding(false);
    setElideMode(Qt::ElideNone);
    setUsesScrollButtons(true);
    connect(this, &QTabBar::currentChanged, this, [this](int index) { TabPicked(index); });
}

void TabStrip::SetCaptions(std::string_view captions)
{
    const QStringList parts =
        QString::fromUtf8(captions.data(), static_cast<qsizetype>(captions.size())).split(QLatin1Char('|'));
    m_captions.clear();
    for (qsizetype i = 0; i < parts.size(); ++i)
        m_captions[static_cast<int>(i)] = parts[i];
    Rebuild();
}

void TabStrip::SetTabHidden(int number)
{
    m_hidden.insert(number);
    Rebuild();
}

/// Hidden tabs are not in the strip at all, so that no key, wheel or screen reader finds them.
void TabStrip::Rebuild()
{
    const Flagged quiet(m_quiet);
    int index = 0;
    for (const auto& [number, caption] : m_captions) {
        if (m_hidden.contains(number)) continue;
        if (index == count()) addTab(caption);
        setTabText(index, caption);
        setTabData(index, number);
        ++index;
    }
    while (count() > index)
        removeTab(count() - 1);
    ShowCurrent();
}

int TabStrip::IndexOf(int number) const
{
    for (int index = 0; index < count(); ++index) {
        if (tabData(index).toInt() == number) return index;
    }
    return -1;
}

int TabStrip::Neighbour(int step) const
{
    if (count() == 0) return m_current;
    return tabData(std::clamp(IndexOf(m_current) + step, 0, count() - 1)).toInt();
}

void TabStrip::ShowCurrent()
{
    const Flagged quiet(m_quiet);
    const int index = IndexOf(m_current);
    if (index >= 0) setCurrentIndex(index);
    update();
}

void TabStrip::PutBack(int number)
{
    m_current = number;
    ShowCurrent();
}

bool TabStrip::SetCurrTab(int number)
{
    if (number == m_current || m_switching || !m_captions.contains(number)) return true;
    const Flagged switching(m_switching);
    if (Switch && !Switch(number)) return false;
    PutBack(number);
    if (Click) Click();
    return true;
}

void TabStrip::TabPicked(int index)
{
    if (m_quiet || index < 0) return;
    const int wanted = tabData(index).toInt();
    ShowCurrent(); // the strip changes only after Switch
    Guarded([this, wanted] { SetCurrTab(wanted); });
}

/// A wheel turned in passing changes nothing.
void TabStrip::wheelEvent(QWheelEvent* event) { event->ignore(); }

QFont TabStrip::FontOf(bool shown) const
{
    QFont result = font();
    result.setBold(shown || m_weight == Captions::Bold);
    return result;
}

/// As wide as its caption in bold, so that nothing moves when the tab shown changes.
QSize TabStrip::tabSizeHint(int index) const
{
    const QFontMetrics metrics(FontOf(true));
    return {metrics.horizontalAdvance(tabText(index)) + 3 * Theme::Gap(), metrics.height() + Theme::Gap()};
}

QSize TabStrip::minimumTabSizeHint(int index) const { return tabSizeHint(index); }

void TabStrip::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), Theme::StripGround(palette()));
    painter.setPen(Theme::Rule(palette()));
    painter.drawLine(0, 0, width(), 0); // the lower edge of the sheet
    const int shown = IndexOf(m_current);
    for (int index = 0; index < count(); ++index) {
        if (index != shown) PaintOther(painter, index);
    }
    if (shown >= 0) PaintShown(painter, shown);
}

void TabStrip::PaintOther(QPainter& painter, int index) const
{
    const QRect place = tabRect(index);
    painter.setPen(Theme::Mixed(Theme::StripGround(palette()), Theme::Rule(palette()), 0.7));
    painter.drawLine(place.right(), place.top() + 6, place.right(), place.bottom() - 6);
    painter.setPen(Theme::QuietText(palette()));
    painter.setFont(FontOf(false));
    painter.drawText(place, Qt::AlignCenter | Qt::TextSingleLine, tabText(index));
}

/// The tab shown is a piece of the sheet: its colour, no edge above, an outline around, the accent below.
void TabStrip::PaintShown(QPainter& painter, int index) const
{
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF place = QRectF(tabRect(index)).adjusted(0.5, -4.0, -0.5, -0.5);
    painter.setPen(QPen(Theme::Rule(palette()), 1.5));
    painter.setBrush(palette().color(QPalette::Window));
    painter.drawRoundedRect(place, kRound, kRound);
    const QRectF accent(place.left() + 4, place.bottom() - kAccentHeight, place.width() - 8, kAccentHeight);
    painter.fillRect(accent, Theme::Accent(palette()));
    if (hasFocus()) {
        painter.setPen(QPen(Theme::Accent(palette()), 1.5));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(tabRect(index)).adjusted(3.5, 2.5, -3.5, -5.5), 2, 2);
    }
    painter.setPen(palette().color(QPalette::Active, QPalette::WindowText));
    painter.setFont(FontOf(true));
    painter.drawText(tabRect(index), Qt::AlignCenter | Qt::TextSingleLine, tabText(index));
}

} // namespace platform
