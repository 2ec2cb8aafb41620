#pragma once

#include <QSyntaxHighlighter>
#include <QTextCursor>

class QTextEdit;

namespace platform {

class Speller;

/// Underlines wrong words while one types. The marks are no part of the document: it does not count as
/// changed, nothing of them can be undone or saved. A key costs the paragraph that it changes. The word that
/// is being typed is left alone until the caret leaves it. An editor that shows another document is followed.
class SpellHighlighter : public QSyntaxHighlighter
{
    Q_OBJECT

public:
    /// Belongs to the editor; the speller outlives it. Loads no dictionary before there is a word.
    SpellHighlighter(QTextEdit& editor, Speller& speller);

    /// Marks the whole text anew, after words were added or ignored. To be called in place of rehighlight,
    /// which would tell the editor's listeners of a change of text.
    void MarkAgain();

protected:
    void highlightBlock(const QString& text) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// Whether the caret stands in the word or at its end, as it does while it is typed.
    bool IsTyped(int start, int length) const;
    void CaretMoved();
    void FollowEditor();
    void MarkTypedWord();

    QTextEdit& m_editor;
    Speller& m_speller;
    QTextCursor m_typedWord; // wrong so far, not yet marked; without a selection: none
    bool m_marksAll = false; // the typed word too
};

} // namespace platform
