#include "platform/widgets/RichTextEdit.h"
#include "platform/widgets/RichTextLists.h"
#include "platform/widgets/Theme.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QTextBlock>
#include <QTextTable>
#include <QUrl>

#include <algorithm>

namespace platform {

namespace {

constexpr int kSheetWidth = 11520; // twips: a page's width of text and the margins beside it

bool NoModifiers(const QKeyEvent& event)
{
    return (event.modifiers() & ~(Qt::KeypadModifier | Qt::GroupSwitchModifier)) == Qt::NoModifier;
}

} // namespace

void RichTextEdit::keyPressEvent(QKeyEvent* event)
{
    if (LeavesText(*event) || (!isReadOnly() && ListKey(*event))) {
        event->accept();
        return;
    }
    QTextEdit::keyPressEvent(event);
}

/// Tab is a character here; with Ctrl it leads on to the next control.
bool RichTextEdit::LeavesText(const QKeyEvent& event)
{
    if (!(event.modifiers() & Qt::ControlModifier)) return false;
    if (event.key() == Qt::Key_Tab) return QWidget::focusNextPrevChild(true);
    if (event.key() == Qt::Key_Backtab) return QWidget::focusNextPrevChild(false);
    return false;
}

bool RichTextEdit::ListKey(const QKeyEvent& event)
{
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter: return NoModifiers(event) && EnterKey();
    case Qt::Key_Backspace: return NoModifiers(event) && BackspaceKey();
    case Qt::Key_Tab: return NoModifiers(event) && TabKey(1);
    case Qt::Key_Backtab: return TabKey(-1);
    default: return false;
    }
}

/// A new paragraph like this one; after an empty item the list ends.
bool RichTextEdit::EnterKey()
{
    QTextCursor cursor = textCursor();
    const bool emptyItem = RichTextDocument::ListOf(cursor.block()) != 0 && cursor.block().length() == 1;
    if (emptyItem && !cursor.hasSelection()) {
        RichTextLists::EndAt(*m_document, cursor);
        Q_EMIT cursorPositionChanged();
        return true;
    }
    const QTextCharFormat typed = currentCharFormat();
    cursor.beginEditBlock();
    cursor.insertBlock();
    QTextBlockFormat format = cursor.blockFormat();
    format.clearProperty(RichTextFormats::Filler);
    format.clearProperty(QTextFormat::PageBreakPolicy); // the page broke before the first of the two
    if (format != cursor.blockFormat()) cursor.setBlockFormat(format);
    cursor.endEditBlock();
    setTextCursor(cursor);
    if (!typed.isImageFormat()) setCurrentCharFormat(typed);
    ensureCursorVisible();
    return true;
}

/// At the start of an item the first press takes the marker away, the next one joins the paragraphs.
bool RichTextEdit::BackspaceKey()
{
    const QTextCursor cursor = textCursor();
    if (cursor.hasSelection() || !cursor.atBlockStart()) return false;
    if (RichTextDocument::ListOf(cursor.block()) == 0) return false;
    RichTextLists::Remove(*m_document, cursor);
    Q_EMIT cursorPositionChanged();
    return true;
}

/// At the start of an item, or with whole items selected, the level changes; in a table Tab leads to the next
/// cell; elsewhere it is a character.
bool RichTextEdit::TabKey(Long step)
{
    QTextCursor cursor = textCursor();
    const bool several = cursor.hasSelection() && m_document->findBlock(cursor.selectionStart()) !=
                                                      m_document->findBlock(cursor.selectionEnd());
    const bool atStart = !cursor.hasSelection() && cursor.atBlockStart();
    if ((several || atStart) && RichTextLists::AllAreItems(cursor)) {
        RichTextLists::MoveLevel(*m_document, cursor, step);
        Q_EMIT cursorPositionChanged();
        return true;
    }
    if (cursor.currentTable() == nullptr) return false;
    if (!cursor.movePosition(step > 0 ? QTextCursor::NextCell : QTextCursor::PreviousCell)) return true;
    setTextCursor(cursor);
    return true;
}

void RichTextEdit::changeEvent(QEvent* event)
{
    const QFont font = m_document == nullptr ? QFont() : m_document->defaultFont();
    QTextEdit::changeEvent(event);
    if (m_document == nullptr) return;
    if (event->type() == QEvent::PaletteChange) ShowAgain();
    // The text's font is the body's, not the window's.
    if (m_document->defaultFont() != font) m_document->setDefaultFont(font);
}

/// A text that is only read has no cursor to show where keys go.
void RichTextEdit::paintEvent(QPaintEvent* event)
{
    QTextEdit::paintEvent(event);
    if (!isReadOnly() || !hasFocus()) return;
    QPainter painter(viewport());
    Theme::PaintFocusFrame(painter, palette(), viewport()->rect());
}

void RichTextEdit::resizeEvent(QResizeEvent* event)
{
    PlaceSheet();
    QTextEdit::resizeEvent(event);
}

/// The sheet stands in the middle of a wide window and fills a narrow one. A text for reading is no sheet.
void RichTextEdit::PlaceSheet()
{
    if (isReadOnly()) return setViewportMargins({});
    const int gap = Theme::Gap();
    const int room = width() - 2 * gap;
    const int side = gap + std::max(0, (room - Theme::Pixels(kSheetWidth)) / 2);
    const QMargins margins(side, gap, side, gap);
    if (viewportMargins() != margins) setViewportMargins(margins);
}

void RichTextEdit::focusInEvent(QFocusEvent* event)
{
    QTextEdit::focusInEvent(event);
    viewport()->update();
    if (parentWidget() != nullptr) parentWidget()->update();
}

void RichTextEdit::focusOutEvent(QFocusEvent* event)
{
    QTextEdit::focusOutEvent(event);
    viewport()->update();
    if (parentWidget() != nullptr) parentWidget()->update();
}

void RichTextEdit::contextMenuEvent(QContextMenuEvent* event)
{
    QMenu* menu = createStandardContextMenu(event->pos());
    menu->setAttribute(Qt::WA_DeleteOnClose);
    QAction* plain = new QAction(QStringLiteral("Paste as Plain Te&xt"), menu);
    plain->setEnabled(!isReadOnly() && QGuiApplication::clipboard()->mimeData()->hasText());
    connect(plain, &QAction::triggered, this, &RichTextEdit::PastePlain);
    const QList<QAction*> entries = menu->actions();
    const auto paste = std::find_if(entries.begin(), entries.end(), [](const QAction* entry) {
        return entry->objectName() == QLatin1String("edit-paste");
    });
    menu->insertAction(paste == entries.end() || paste + 1 == entries.end() ? nullptr : *(paste + 1), plain);
    menu->popup(event->globalPos());
}

/// A link is followed with Ctrl, since a click alone sets the cursor.
void RichTextEdit::mouseReleaseEvent(QMouseEvent* event)
{
    const QString link = anchorAt(event->position().toPoint());
    if (event->button() == Qt::LeftButton && event->modifiers() == Qt::ControlModifier && !link.isEmpty()) {
        QDesktopServices::openUrl(QUrl(link));
        event->accept();
        return;
    }
    QTextEdit::mouseReleaseEvent(event);
}

} // namespace platform
