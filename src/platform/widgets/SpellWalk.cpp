#include "platform/widgets/SpellWalk.h"

#include "platform/spelling/Speller.h"
#include "platform/widgets/SpellMarks.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextEdit>

#include <algorithm>

namespace platform {

namespace {

constexpr int kLongestContext = 200; // characters on either side of the word

bool EndsSentence(const QString& text, int at)
{
    if (text[at] == QChar::LineSeparator) return true;
    const bool mark =
        text[at] == QLatin1Char('.') || text[at] == QLatin1Char('!') || text[at] == QLatin1Char('?');
    return mark && at + 1 < text.size() && text[at + 1].isSpace();
}

/// Where the sentence begins that holds this place of a paragraph.
int StartOfSentence(const QString& text, int at)
{
    int start = at;
    while (start > 0 && at - start < kLongestContext && !EndsSentence(text, start - 1))
        --start;
    while (start < at && text[start].isSpace())
        ++start;
    return start;
}

int EndOfSentence(const QString& text, int at)
{
    int end = at;
    while (end < text.size() && end - at < kLongestContext && !EndsSentence(text, end))
        ++end;
    const bool mark = end < text.size() && text[end] != QChar::LineSeparator && EndsSentence(text, end);
    return mark ? end + 1 : end;
}

std::string Utf8(const QString& text) { return text.toStdString(); }

} // namespace

SpellWalk::SpellWalk(QTextEdit& editor, Speller& speller) : m_editor(editor), m_speller(speller) {}

bool SpellWalk::Next()
{
    for (QTextBlock block = m_editor.document()->findBlock(m_at); block.isValid(); block = block.next()) {
        const QString text = block.text();
        for (const TextPlace& word : WrongWordsIn(m_speller, text)) {
            if (block.position() + word.start < m_at) continue;
            Select(block.position() + word.start, text.mid(word.start, word.length));
            return true;
        }
    }
    return false;
}

void SpellWalk::Select(int start, const QString& word)
{
    m_word = word;
    m_start = start;
    m_at = start;
    QTextCursor selected(m_editor.document());
    selected.setPosition(m_start);
    selected.setPosition(EndOfWord(), QTextCursor::KeepAnchor);
    m_editor.setTextCursor(selected);
    m_editor.ensureCursorVisible();
}

QTextBlock SpellWalk::Paragraph() const { return m_editor.document()->findBlock(m_start); }

QString SpellWalk::Sentence() const
{
    const QString text = Paragraph().text();
    const int place = m_start - Paragraph().position();
    const int start = StartOfSentence(text, place);
    const int end = EndOfSentence(text, place + static_cast<int>(m_word.size()));
    // A picture stands in the text as one character; so does a blank.
    return text.mid(start, end - start).replace(QChar::ObjectReplacementCharacter, QLatin1Char(' '));
}

int SpellWalk::PlaceInSentence() const
{
    const int place = m_start - Paragraph().position();
    return place - StartOfSentence(Paragraph().text(), place);
}

QList<QString> SpellWalk::Suggestions() const
{
    QList<QString> suggestions;
    for (const std::string& suggestion : m_speller.Suggestions(Utf8(m_word)))
        suggestions.push_back(QString::fromStdString(suggestion));
    return suggestions;
}

void SpellWalk::Remember(Kind kind) { m_steps.push_back({kind, m_start, m_word}); }

void SpellWalk::Ignore()
{
    Remember(Kind::Ignore);
    m_at = EndOfWord();
}

void SpellWalk::IgnoreAll()
{
    Remember(Kind::IgnoreAll);
    m_speller.IgnoreAll(Utf8(m_word));
    m_at = EndOfWord();
}

AddResult SpellWalk::Add()
{
    m_at = EndOfWord();
    return m_speller.Add(Utf8(m_word));
}

void SpellWalk::Replace(QTextCursor& edit, int start, const QString& text) const
{
    edit.setPosition(start + 1);
    const QTextCharFormat format = edit.charFormat(); // of the word's first character
    edit.setPosition(start);
    edit.setPosition(start + static_cast<int>(m_word.size()), QTextCursor::KeepAnchor);
    edit.insertText(text, format);
}

void SpellWalk::Change(const QString& text)
{
    Remember(Kind::Change);
    QTextCursor edit(m_editor.document());
    edit.beginEditBlock();
    Replace(edit, m_start, text);
    edit.endEditBlock();
    m_at = m_start + static_cast<int>(text.size());
}

void SpellWalk::ChangeAll(const QString& text)
{
    Remember(Kind::Change);
    QList<int> places = PlacesOfWord();
    std::reverse(places.begin(), places.end()); // from behind, so that those ahead keep their places
    QTextCursor edit(m_editor.document());
    edit.beginEditBlock();
    for (const int place : places)
        Replace(edit, place, text);
    edit.endEditBlock();
    m_at = m_start + static_cast<int>(text.size());
}

QList<int> SpellWalk::PlacesOfWord() const
{
    QList<int> places;
    for (QTextBlock block = Paragraph(); block.isValid(); block = block.next()) {
        const QString text = block.text();
        for (const TextPlace& wrong : WrongWordsIn(m_speller, text)) {
            const int start = block.position() + wrong.start;
            if (start >= m_at && text.mid(wrong.start, wrong.length) == m_word) places.push_back(start);
        }
    }
    return places;
}

void SpellWalk::Undo()
{
    if (m_steps.isEmpty()) return;
    const Step step = m_steps.takeLast();
    if (step.kind == Kind::Change) m_editor.document()->undo();
    if (step.kind == Kind::IgnoreAll) m_speller.HeedAgain(Utf8(step.word));
    m_at = step.start;
}

} // namespace platform
