#include "platform/widgets/SpellHighlighter.h"

#include "platform/widgets/SpellMarks.h"

#include <QEvent>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QTextEdit>

namespace platform {

SpellHighlighter::SpellHighlighter(QTextEdit& editor, Speller& speller)
    : QSyntaxHighlighter(&editor), m_editor(editor), m_speller(speller)
{
    connect(&editor, &QTextEdit::cursorPositionChanged, this, &SpellHighlighter::CaretMoved);
    editor.installEventFilter(this);
    editor.viewport()->installEventFilter(this);
    MarkAgain();
}

void SpellHighlighter::MarkAgain()
{
    const QSignalBlocker noChange(document());
    rehighlight();
}

void SpellHighlighter::highlightBlock(const QString& text)
{
    const QTextCharFormat mark = WrongWordFormat(m_editor.palette());
    for (const TextPlace& word : WrongWordsIn(m_speller, text)) {
        const int start = currentBlock().position() + word.start;
        if (!m_marksAll && IsTyped(start, word.length)) {
            m_typedWord = QTextCursor(currentBlock());
            m_typedWord.setPosition(start);
            m_typedWord.setPosition(start + word.length, QTextCursor::KeepAnchor);
        } else {
            setFormat(word.start, word.length, mark);
        }
    }
}

bool SpellHighlighter::IsTyped(int start, int length) const
{
    const int caret = m_editor.textCursor().position();
    return m_editor.hasFocus() && start < caret && caret <= start + length;
}

void SpellHighlighter::CaretMoved()
{
    if (!m_typedWord.hasSelection()) return;
    const int start = m_typedWord.selectionStart();
    if (!IsTyped(start, m_typedWord.selectionEnd() - start)) MarkTypedWord();
}

void SpellHighlighter::MarkTypedWord()
{
    if (!m_typedWord.hasSelection()) return;
    const QTextBlock block = m_typedWord.block();
    m_typedWord = {};
    // Another wrong word that the caret has come to keeps its mark.
    const QScopedValueRollback<bool> all(m_marksAll, true);
    const QSignalBlocker noChange(document());
    rehighlightBlock(block);
}

void SpellHighlighter::FollowEditor()
{
    if (document() == m_editor.document()) return;
    m_typedWord = {};
    setDocument(m_editor.document());
    MarkAgain();
}

bool SpellHighlighter::eventFilter(QObject* watched, QEvent* event)
{
    // An editor that is being destroyed loses the focus when it is an editor no more.
    if (event->type() == QEvent::FocusOut && qobject_cast<QTextEdit*>(watched) != nullptr) MarkTypedWord();
    // No signal tells of another document, but it has to be painted, on the editor's viewport.
    if (event->type() == QEvent::Paint && watched != &m_editor) FollowEditor();
    return QSyntaxHighlighter::eventFilter(watched, event);
}

} // namespace platform
