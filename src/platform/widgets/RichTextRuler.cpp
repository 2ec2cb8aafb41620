#include "platform/widgets/RichTextRuler.h"

#include "platform/widgets/AccessibleRoles.h"
#include "platform/widgets/RichTextEdit.h"
#include "platform/widgets/RichTextFormats.h"
#include "platform/widgets/Theme.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QScrollBar>
#include <QToolTip>

#include <algorithm>
#include <cmath>

namespace platform {

namespace {

using richtext::ParagraphFormat;
using richtext::TabKind;
using richtext::TabStop;

constexpr Long kStep = 90; // a sixteenth of an inch
constexpr Long kInch = 1440;
constexpr Long kLeast = 360; // the narrowest line that indents leave

Long OnStep(double twips) { return ToLong(twips / kStep) * kStep; }

/// From least to most; least where a narrow sheet leaves nothing between.
Long Within(Long value, Long least, Long most) { return std::clamp(value, least, std::max(least, most)); }

QString Inches(Long twips) { return QString::number(twips / double(kInch), 'g', 4) + QLatin1String(" in"); }

} // namespace

RichTextRuler::RichTextRuler(RichTextEdit& edit, QWidget* parent) : QWidget(parent), m_edit(edit)
{
    setObjectName(QStringLiteral("TXRuler1"));
    setAccessibleName(QStringLiteral("Ruler"));
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(&edit, &QTextEdit::cursorPositionChanged, this, &RichTextRuler::Follow);
    connect(&edit, &RichTextEdit::Changed, this, &RichTextRuler::Follow);
    edit.viewport()->installEventFilter(this);
    connect(edit.horizontalScrollBar(), &QScrollBar::valueChanged, this, [this] { update(); });
    Follow();
}

QSize RichTextRuler::sizeHint() const { return {Theme::Pixels(2880), Theme::Pixels(390)}; }

/// Costs the same wherever the cursor stands; draws only when the paragraph looks different.
void RichTextRuler::Follow()
{
    if (m_dragged) return;
    ParagraphFormat look = m_edit.ParagraphLook();
    if (look == m_look) return;
    m_look = std::move(look);
    Describe();
    update();
}

void RichTextRuler::Describe()
{
    QStringList lines;
    for (const Mark& mark : Marks())
        lines << TextOf(mark);
    SetAccessibleWords(*this, lines.join(QLatin1Char('\n')));
}

RichTextRuler::Mark RichTextRuler::Chosen() const
{
    const std::vector<Mark> marks = Marks();
    const bool stands = m_chosen && std::find(marks.begin(), marks.end(), *m_chosen) != marks.end();
    return stands ? *m_chosen : marks.front();
}

void RichTextRuler::Choose(const Mark& mark)
{
    m_chosen = mark;
    update();
    TellChosen();
}

/// Its name too: the mark that is moved is another one.
void RichTextRuler::TellChosen()
{
    setAccessibleName(hasFocus() ? QStringLiteral("Ruler, ") + ChosenText() : QStringLiteral("Ruler"));
    if (!QAccessible::isActive()) return;
    QAccessibleValueChangeEvent moved(this, ChosenText());
    QAccessible::updateAccessibility(&moved);
}

void RichTextRuler::MoveChosen(Long position)
{
    if (m_edit.isReadOnly()) return;
    m_chosen = Chosen();
    Move(*m_chosen, position);
    Commit();
    TellChosen();
}

int RichTextRuler::XOf(Long twips) const
{
    const int start = m_edit.viewport()->mapTo(m_edit.window(), QPoint()).x() - mapTo(window(), QPoint()).x();
    return start + RichTextEdit::SheetMargin() - m_edit.horizontalScrollBar()->value() +
           static_cast<int>(std::lround(RichTextFormats::Pixels(twips)));
}

Long RichTextRuler::TwipsAt(int x) const { return OnStep(RichTextFormats::Twips(x - XOf(0))); }

Long RichTextRuler::Width() const
{
    return RichTextFormats::Twips(m_edit.viewport()->width() - 2.0 * RichTextEdit::SheetMargin());
}

Long RichTextRuler::PositionOf(const Mark& mark) const
{
    switch (mark.kind) {
    case Kind::FirstLine: return m_look.indentLeft + m_look.indentFirst;
    case Kind::Left: return m_look.indentLeft;
    case Kind::Right: return Width() - m_look.indentRight;
    default: return mark.tab < m_look.tabs.size() ? m_look.tabs[mark.tab].position : 0;
    }
}

std::vector<RichTextRuler::Mark> RichTextRuler::Marks() const
{
    std::vector<Mark> marks = {{Kind::FirstLine, 0}, {Kind::Left, 0}};
    for (std::size_t tab = 0; tab < m_look.tabs.size(); ++tab)
        marks.push_back({Kind::Tab, tab});
    marks.push_back({Kind::Right, 0});
    return marks;
}

QString RichTextRuler::NameOf(const Mark& mark) const
{
    switch (mark.kind) {
    case Kind::FirstLine: return QStringLiteral("First line indent");
    case Kind::Left: return QStringLiteral("Left indent");
    case Kind::Right: return QStringLiteral("Right indent");
    default: break;
    }
    switch (m_look.tabs[mark.tab].kind) {
    case TabKind::Right: return QStringLiteral("Right tab");
    case TabKind::Center: return QStringLiteral("Center tab");
    case TabKind::Decimal: return QStringLiteral("Decimal tab");
    case TabKind::Bar: return QStringLiteral("Bar");
    default: return QStringLiteral("Left tab");
    }
}

QString RichTextRuler::TextOf(const Mark& mark) const
{
    const Long length = mark.kind == Kind::Right ? m_look.indentRight : PositionOf(mark);
    return NameOf(mark) + QLatin1Char(' ') + Inches(length);
}

QRect RichTextRuler::MarkRect(const Mark& mark) const
{
    const int half = Theme::Pixels(90);
    const int x = XOf(PositionOf(mark));
    const int middle = height() / 2;
    if (mark.kind == Kind::FirstLine) return {x - half, 0, 2 * half + 1, middle};
    return {x - half, middle, 2 * half + 1, height() - middle};
}

/// A tab lies over an indent at the same place, so that each can be had.
std::optional<RichTextRuler::Mark> RichTextRuler::MarkAt(const QPoint& point) const
{
    std::optional<Mark> found;
    for (const Mark& mark : Marks()) {
        if (MarkRect(mark).contains(point) && (!found || mark.kind == Kind::Tab)) found = mark;
    }
    return found;
}

/// Moves a mark within what makes sense: indents leave room for a line, no two tabs stand at one place.
void RichTextRuler::Move(Mark& mark, Long position)
{
    const Long last = Width() - m_look.indentRight - kLeast; // where a line may begin at the latest
    const Long first = m_look.indentLeft + m_look.indentFirst;
    const Long least = std::max(0, -m_look.indentFirst); // the first line goes along with the left indent
    const Long room = Width() - std::max(first, m_look.indentLeft) - kLeast;
    switch (mark.kind) {
    case Kind::FirstLine: m_look.indentFirst = Within(position, 0, last) - m_look.indentLeft; return;
    case Kind::Left: m_look.indentLeft = Within(position, least, last); return;
    case Kind::Right: m_look.indentRight = Within(Width() - position, 0, room); return;
    case Kind::Tab: break;
    }
    TabStop moved = m_look.tabs[mark.tab];
    moved.position = Within(position, kStep, Width());
    auto& tabs = m_look.tabs;
    tabs.erase(tabs.begin() + static_cast<std::ptrdiff_t>(mark.tab));
    std::erase_if(tabs, [&](const TabStop& tab) { return tab.position == moved.position; });
    const auto at = std::find_if(
        tabs.begin(), tabs.end(), [&](const TabStop& tab) { return tab.position > moved.position; });
    mark.tab = static_cast<std::size_t>(at - tabs.begin());
    tabs.insert(at, moved);
}

void RichTextRuler::SetTab(Long position)
{
    if (position <= 0 || position > Width()) return;
    Mark mark{Kind::Tab, m_look.tabs.size()};
    m_look.tabs.push_back({position, TabKind::Left, {}});
    Move(mark, position);
    m_chosen = mark;
}

void RichTextRuler::Turn(std::size_t tab)
{
    TabKind& kind = m_look.tabs[tab].kind;
    kind = kind == TabKind::Left ? TabKind::Center : kind == TabKind::Center ? TabKind::Right : TabKind::Left;
}

/// Gives the marks to the selected paragraphs: one step of undo.
void RichTextRuler::Commit()
{
    const ParagraphFormat wanted = m_look;
    m_edit.ChangeParagraphs([&wanted](QTextBlockFormat& format) {
        ParagraphFormat look = RichTextFormats::LookOf(format);
        look.indentLeft = wanted.indentLeft;
        look.indentFirst = wanted.indentFirst;
        look.indentRight = wanted.indentRight;
        look.tabs = wanted.tabs;
        look.list = format.objectIndex() == -1 ? 0 : 1; // an item's text starts at its left indent
        format.setRightMargin(RichTextFormats::Pixels(look.indentRight));
        RichTextFormats::SetIndents(format, look);
    });
    Describe();
    update();
}

void RichTextRuler::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || m_edit.isReadOnly()) return;
    const QPoint point = event->position().toPoint();
    m_dragged = MarkAt(point);
    m_off = false;
    m_moved = false;
    if (!m_dragged) {
        const std::size_t before = m_look.tabs.size();
        SetTab(TwipsAt(point.x()));
        if (m_look.tabs.size() == before) return;
        m_dragged = m_chosen;
        m_moved = true;
    }
    update();
}

void RichTextRuler::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_dragged) return;
    const QPoint point = event->position().toPoint();
    m_off = m_dragged->kind == Kind::Tab && (point.y() < -height() || point.y() > 2 * height());
    const Long position = TwipsAt(point.x());
    if (position != PositionOf(*m_dragged)) {
        Move(*m_dragged, position);
        m_moved = true;
        QToolTip::showText(event->globalPosition().toPoint(), TextOf(*m_dragged), this);
    }
    update();
}

void RichTextRuler::mouseReleaseEvent(QMouseEvent* event)
{
    if (!m_dragged || event->button() != Qt::LeftButton) return;
    if (m_off) m_look.tabs.erase(m_look.tabs.begin() + static_cast<std::ptrdiff_t>(m_dragged->tab));
    const bool changed = m_off || m_moved;
    m_dragged.reset();
    m_off = false;
    if (changed) Commit();
    m_edit.setFocus();
}

void RichTextRuler::mouseDoubleClickEvent(QMouseEvent* event)
{
    const auto mark = MarkAt(event->position().toPoint());
    if (!mark || mark->kind != Kind::Tab || m_edit.isReadOnly()) return;
    Turn(mark->tab);
    Commit();
}

void RichTextRuler::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape) {
        m_edit.setFocus();
    } else if (m_edit.isReadOnly() || !MarkKey(event->key())) {
        QWidget::keyPressEvent(event);
    }
}

void RichTextRuler::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    Choose(Chosen());
}

void RichTextRuler::focusOutEvent(QFocusEvent* event)
{
    QWidget::focusOutEvent(event);
    TellChosen();
}

bool RichTextRuler::ChooseByKey(int key)
{
    const std::vector<Mark> marks = Marks();
    const auto at = std::find(marks.begin(), marks.end(), Chosen());
    switch (key) {
    case Qt::Key_Down: Choose(at + 1 == marks.end() ? marks.front() : *(at + 1)); return true;
    case Qt::Key_Up: Choose(at == marks.begin() ? marks.back() : *(at - 1)); return true;
    default: return false;
    }
}

bool RichTextRuler::ChangeTabByKey(int key)
{
    const Mark mark = Chosen();
    if (mark.kind != Kind::Tab) return false;
    switch (key) {
    case Qt::Key_Delete:
        m_look.tabs.erase(m_look.tabs.begin() + static_cast<std::ptrdiff_t>(mark.tab));
        m_chosen.reset();
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter: Turn(mark.tab); break;
    default: return false;
    }
    Commit();
    Choose(Chosen());
    return true;
}

bool RichTextRuler::MarkKey(int key)
{
    switch (key) {
    case Qt::Key_Left: MoveChosen(ChosenPosition() - kStep); return true;
    case Qt::Key_Right: MoveChosen(ChosenPosition() + kStep); return true;
    case Qt::Key_Insert:
        SetTab((m_look.tabs.empty() ? m_look.indentLeft : m_look.tabs.back().position) + kInch / 2);
        Commit();
        TellChosen();
        return true;
    default: return ChooseByKey(key) || ChangeTabByKey(key);
    }
}

/// The sheet's width is the scale's.
bool RichTextRuler::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize || event->type() == QEvent::Move) update();
    return QWidget::eventFilter(watched, event);
}

bool RichTextRuler::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const auto mark = MarkAt(help->pos());
        QToolTip::showText(
            help->globalPos(), mark ? TextOf(*mark) : QStringLiteral("Click to set a tab"), this);
        return true;
    }
    return QWidget::event(event);
}

void RichTextRuler::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), Theme::StripGround(palette()));
    PaintScale(painter);
    for (const Mark& mark : Marks()) {
        if (!(m_off && m_dragged == mark)) PaintMark(painter, mark);
    }
    if (!hasFocus()) return;
    Theme::PaintFocusFrame(painter, palette(), rect());
}

void RichTextRuler::PaintScale(QPainter& painter) const
{
    const int band = height() / 5;
    const Long width = Width();
    painter.fillRect(QRect(QPoint(XOf(0), band), QPoint(XOf(width), height() - band - 1)),
                     palette().color(QPalette::Base));
    painter.setFont(Theme::Sized(font(), 0.8));
    const int middle = height() / 2;
    for (Long tick = kInch / 8; tick < width; tick += kInch / 8) {
        const int x = XOf(tick);
        painter.setPen(Theme::QuietText(palette()));
        if (tick % kInch == 0) {
            painter.drawText(QRect(x - 20, 0, 40, height()), Qt::AlignCenter, QString::number(tick / kInch));
        } else {
            const int half = tick % (kInch / 2) == 0 ? Theme::Pixels(60) : Theme::Pixels(20);
            painter.setPen(Theme::Rule(palette()));
            painter.drawLine(QPointF(x + 0.5, middle - half), QPointF(x + 0.5, middle + half));
        }
    }
}

/// Indents are arrows, tabs the corners that stand for their side.
void RichTextRuler::PaintMark(QPainter& painter, const Mark& mark) const
{
    const QRectF box = MarkRect(mark);
    const double x = XOf(PositionOf(mark)) + 0.5;
    const double half = box.width() / 2 - 0.5;
    const bool chosen = hasFocus() && m_chosen == mark;
    const QColor color =
        chosen || m_dragged == mark ? Theme::Accent(palette()) : palette().color(QPalette::WindowText);
    if (mark.kind == Kind::Tab) {
        const TabKind kind = m_look.tabs[mark.tab].kind;
        const double foot = box.bottom() - 2;
        painter.setPen(QPen(color, 1.8));
        painter.drawLine(QPointF(x, box.top() + 1), QPointF(x, foot));
        if (kind == TabKind::Bar) return;
        const double from = kind == TabKind::Left ? x : x - half;
        const double to = kind == TabKind::Right ? x : x + half;
        painter.drawLine(QPointF(from, foot), QPointF(to, foot));
        if (kind == TabKind::Decimal) painter.drawPoint(QPointF(x + half - 1, foot - 3));
        return;
    }
    const bool down = mark.kind == Kind::FirstLine;
    const double base = down ? box.top() + 0.5 : box.bottom() + 0.5;
    const double tip = down ? box.bottom() - 1 : box.top() + 2;
    QPainterPath path(QPointF(x - half, base));
    path.lineTo(x + half, base);
    path.lineTo(x, tip);
    path.closeSubpath();
    painter.setPen(Qt::NoPen);
    painter.fillPath(path, color);
}

} // namespace platform
