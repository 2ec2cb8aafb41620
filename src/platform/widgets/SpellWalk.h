#pragma once

#include "platform/spelling/UserWords.h"

#include <QList>
#include <QString>

class QTextBlock;
class QTextCursor;
class QTextEdit;

namespace platform {

class Speller;

/// The way through a text from one wrong word to the next, from its start to its end, with what can be done
/// about each. Changes go through the editor's document: its change handler sees them and its Undo takes them
/// back. Editor and speller outlive it.
class SpellWalk
{
public:
    SpellWalk(QTextEdit& editor, Speller& speller);

    /// On to the next wrong word, which the editor then shows selected; false at the end of the text.
    bool Next();

    /// The wrong word, as it stands in the text.
    const QString& Word() const { return m_word; }
    /// The sentence around it, and its place in that.
    QString Sentence() const;
    int PlaceInSentence() const;
    QList<QString> Suggestions() const;

    /// Each deals with the word; Next goes on behind it.
    void Ignore();
    void IgnoreAll();
    void Change(const QString& text);
    /// Here and wherever the same word follows; one step to undo.
    void ChangeAll(const QString& text);
    AddResult Add();

    bool CanUndo() const { return !m_steps.isEmpty(); }
    /// Takes the last step back and returns to its word. What was added to the user dictionary stays there.
    void Undo();

private:
    enum class Kind { Ignore, IgnoreAll, Change };
    struct Step
    {
        Kind kind;
        int start; // of the word
        QString word;
    };

    void Select(int start, const QString& word);
    int EndOfWord() const { return m_start + static_cast<int>(m_word.size()); }
    QTextBlock Paragraph() const;
    void Replace(QTextCursor& edit, int start, const QString& text) const;
    /// Where the same word stands wrong, from here on.
    QList<int> PlacesOfWord() const;
    void Remember(Kind kind);

    QTextEdit& m_editor;
    Speller& m_speller;
    // Places, not cursors: they hold also where the editor comes to show the same text anew.
    QString m_word;
    int m_start = 0; // of the word
    int m_at = 0;    // where Next begins
    QList<Step> m_steps;
};

} // namespace platform
