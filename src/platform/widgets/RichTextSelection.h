#pragma once

#include <QTextBlock>
#include <QTextBlockFormat>
#include <QTextCharFormat>
#include <QTextCursor>

#include <functional>
#include <vector>

/// What a command does to a selection.
namespace platform::RichTextSelection {

/// The paragraphs that a selection touches; without one, the paragraph of the cursor.
std::vector<QTextBlock> Paragraphs(const QTextCursor& selection);

/// Changes the format of each paragraph. One step of undo.
void ChangeParagraphs(const QTextCursor& selection, const std::function<void(QTextBlockFormat&)>& change);
/// Changes the format of all selected characters, of the markers of whole paragraphs too. One step of undo.
void ChangeCharacters(const QTextCursor& selection, const std::function<void(QTextCharFormat&)>& change);

} // namespace platform::RichTextSelection
