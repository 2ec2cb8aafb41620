#pragma once

#include "platform/richtext/RichList.h"
#include "platform/widgets/RichTextDocument.h"

#include <QTextCursor>

/// What one does with the items of lists. Each is one step of undo.
namespace platform::RichTextLists {

/// Makes the paragraphs of a selection items of a list of this kind, or plain paragraphs when all are such
/// items already. They go on with the list of that kind that they touch.
void Toggle(RichTextDocument& document, const QTextCursor& selection, richtext::ListKind kind);
/// Whether all paragraphs of a selection are items of this kind.
bool AllAre(const RichTextDocument& document, const QTextCursor& selection, richtext::ListKind kind);
/// Whether all paragraphs of a selection are items of lists.
bool AllAreItems(const QTextCursor& selection);
/// Moves the items of a selection one level further in or out; an outermost item stays.
void MoveLevel(RichTextDocument& document, const QTextCursor& selection, Long step);
/// Ends a list at an empty item: one of an inner level moves out, an outermost one becomes a paragraph.
void EndAt(RichTextDocument& document, const QTextCursor& item);
/// Makes the items of a selection plain paragraphs without indents.
void Remove(RichTextDocument& document, const QTextCursor& selection);

} // namespace platform::RichTextLists
