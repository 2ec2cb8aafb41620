#include "platform/widgets/RichTextFind.h"

#include "platform/widgets/RichTextEdit.h"
#include "platform/widgets/RichTextIcons.h"
#include "platform/widgets/Theme.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

namespace platform {

namespace {

QToolButton* IconButton(QWidget* parent, const char* name, const char* icon, const QString& caption)
{
    auto* button = new QToolButton(parent);
    button->setObjectName(QString::fromLatin1(name));
    button->setIcon(RichTextIcons::Of(QString::fromLatin1(icon)));
    button->setAccessibleName(caption);
    button->setToolTip(caption);
    button->setAutoRaise(true);
    return button;
}

} // namespace

RichTextFind::RichTextFind(RichTextEdit& edit, QWidget* parent) : QWidget(parent), m_edit(edit)
{
    setObjectName(QStringLiteral("pnlFind"));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(Theme::Gap(), Theme::Gap() / 2, Theme::Gap(), Theme::Gap() / 2);
    auto* label = new QLabel(QStringLiteral("Find:"), this);
    m_text = new QLineEdit(this);
    m_text->setObjectName(QStringLiteral("txtFind"));
    m_text->installEventFilter(this);
    label->setBuddy(m_text);
    auto* previous = IconButton(this, "cmdFindPrevious", "up", QStringLiteral("Find previous"));
    auto* next = IconButton(this, "cmdFindNext", "down", QStringLiteral("Find next"));
    auto* close = IconButton(this, "cmdFindClose", "close", QStringLiteral("Close the find bar"));
    m_result = new QLabel(this);
    m_result->setObjectName(QStringLiteral("lblFind"));
    row->addWidget(label);
    row->addWidget(m_text);
    row->addWidget(previous);
    row->addWidget(next);
    row->addWidget(m_result, 1);
    row->addWidget(close);
    connect(
        m_text, &QLineEdit::textEdited, this, [this] { Find(m_edit.textCursor().selectionStart(), false); });
    connect(next, &QToolButton::clicked, this, &RichTextFind::FindNext);
    connect(previous, &QToolButton::clicked, this, &RichTextFind::FindPrevious);
    connect(close, &QToolButton::clicked, this, &RichTextFind::Close);
    hide();
}

void RichTextFind::Open()
{
    const QString selected = m_edit.textCursor().selectedText();
    if (!selected.isEmpty() && !selected.contains(QChar::ParagraphSeparator)) m_text->setText(selected);
    m_result->clear();
    show();
    m_text->setFocus();
    m_text->selectAll();
}

void RichTextFind::Close()
{
    hide();
    m_edit.setFocus();
}

void RichTextFind::FindNext() { Find(m_edit.textCursor().selectionEnd(), false); }

void RichTextFind::FindPrevious() { Find(m_edit.textCursor().selectionStart(), true); }

/// Goes on at the other end of the text when nothing is left on this side.
void RichTextFind::Find(int from, bool backward)
{
    m_result->clear();
    if (m_text->text().isEmpty()) return;
    const auto flags = backward ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    const RichTextDocument& document = m_edit.Document();
    QTextCursor found = document.find(m_text->text(), from, flags);
    if (found.isNull()) {
        const int end = document.characterCount() - 1;
        found = document.find(m_text->text(), backward ? end : 0, flags);
        m_result->setText(found.isNull() ? QStringLiteral("Not found")
                          : backward     ? QStringLiteral("Went on from the end")
                                         : QStringLiteral("Went on from the start"));
    }
    if (!found.isNull()) m_edit.setTextCursor(found);
}

bool RichTextFind::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    switch (key->key()) {
    case Qt::Key_Escape: Close(); return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_F3: key->modifiers() & Qt::ShiftModifier ? FindPrevious() : FindNext(); return true;
    default: return false;
    }
}

} // namespace platform
