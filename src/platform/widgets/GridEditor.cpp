#include "platform/widgets/GridEditor.h"

#include "platform/widgets/Theme.h"

#include <QKeyEvent>
#include <QPainter>
#include <QSignalBlocker>

#include <algorithm>
#include <optional>

namespace platform {

namespace {

constexpr int kNoLimit = 32767; // the toolkit's own
constexpr int kFrame = 2;       // pixels

std::optional<GridEditor::Way> WayOf(const QKeyEvent& event)
{
    const bool plain = (event.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier)) == Qt::NoModifier;
    if (!plain) return {};
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter: return GridEditor::Way::Down;
    case Qt::Key_Down: return GridEditor::Way::Down;
    case Qt::Key_Up: return GridEditor::Way::Up;
    case Qt::Key_Tab: return GridEditor::Way::Next;
    case Qt::Key_Backtab: return GridEditor::Way::Previous;
    case Qt::Key_Escape: return GridEditor::Way::Back;
    default: return {};
    }
}

} // namespace

bool TypesText(const QKeyEvent& event)
{
    const bool command =
        (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != Qt::NoModifier;
    return !command && !event.text().isEmpty() && event.text().at(0).isPrint();
}

GridEditor::GridEditor(QWidget* viewport) : QLineEdit(viewport)
{
    setFrame(false);
    setFocusPolicy(Qt::ClickFocus); // Tab is the grid's
    setObjectName(QStringLiteral("qt_grid_editor"));
    hide();
    connect(this, &QLineEdit::textChanged, this, [this] { ApplyLimit(); });
}

void GridEditor::Begin(const QString& text, int longest)
{
    const QSignalBlocker quiet(this);
    m_longest = longest;
    setMaxLength(kNoLimit);
    setText(text);
    ApplyLimit();
    selectAll();
}

void GridEditor::PutBack(const QString& text)
{
    const QSignalBlocker quiet(this);
    setMaxLength(kNoLimit);
    setText(text);
    ApplyLimit();
}

void GridEditor::SetLongest(int characters)
{
    m_longest = characters;
    ApplyLimit();
}

void GridEditor::ApplyLimit()
{
    const int length = static_cast<int>(text().size());
    setMaxLength(m_longest <= 0 ? kNoLimit : std::max(m_longest, length));
}

bool GridEditor::event(QEvent* event)
{
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride)
        return QLineEdit::event(event);
    auto* key = static_cast<QKeyEvent*>(event);
    const std::optional<Way> way = WayOf(*key);
    if (!way) return QLineEdit::event(event);
    key->accept(); // ahead of every shortcut, of a dialog's Escape and of its default button
    if (event->type() == QEvent::KeyPress) Q_EMIT Asked(*way);
    return true;
}

bool GridEditor::Dropped(const QString& character)
{
    bool drop = false;
    Q_EMIT Typed(character, drop);
    return drop;
}

void GridEditor::keyPressEvent(QKeyEvent* event)
{
    if (TypesText(*event) && Dropped(event->text())) return;
    QLineEdit::keyPressEvent(event);
}

void GridEditor::inputMethodEvent(QInputMethodEvent* event)
{
    QString kept;
    for (const QChar character : event->commitString()) {
        if (!Dropped(QString(character))) kept += character;
    }
    if (kept.size() == event->commitString().size()) return QLineEdit::inputMethodEvent(event);
    QInputMethodEvent filtered(event->preeditString(), event->attributes());
    filtered.setCommitString(kept, event->replacementStart(), event->replacementLength());
    QLineEdit::inputMethodEvent(&filtered);
}

void GridEditor::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    Q_EMIT Left(event->reason());
}

void GridEditor::paintEvent(QPaintEvent* event)
{
    QLineEdit::paintEvent(event);
    // Four bars: drawing a rectangle with so wide a pen costs as much as the text.
    QPainter painter(this);
    const QColor accent = Theme::Accent(palette());
    const QRect inner = rect().adjusted(kFrame, kFrame, -kFrame, -kFrame);
    painter.fillRect(QRect(0, 0, width(), kFrame), accent);
    painter.fillRect(QRect(0, inner.bottom() + 1, width(), kFrame), accent);
    painter.fillRect(QRect(0, 0, kFrame, height()), accent);
    painter.fillRect(QRect(inner.right() + 1, 0, kFrame, height()), accent);
}

} // namespace platform
