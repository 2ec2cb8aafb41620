#include "platform/widgets/RichTextSelection.h"

#include <QTextDocument>

#include <algorithm>

namespace platform::RichTextSelection {

namespace {

struct Stretch
{
    int from = 0;
    int to = 0;
    QTextCharFormat format;
};

/// The stretches of one look in a selection.
std::vector<Stretch> Stretches(const QTextCursor& selection)
{
    const int start = selection.selectionStart();
    const int end = selection.selectionEnd();
    std::vector<Stretch> stretches;
    for (const QTextBlock& block : Paragraphs(selection)) {
        for (auto at = block.begin(); !at.atEnd(); ++at) {
            const QTextFragment fragment = at.fragment();
            const int from = std::max(start, fragment.position());
            const int to = std::min(end, fragment.position() + fragment.length());
            if (from < to) stretches.push_back({from, to, fragment.charFormat()});
        }
    }
    return stretches;
}

bool IsWhole(const QTextBlock& block, const QTextCursor& selection)
{
    return block.position() >= selection.selectionStart() &&
           block.position() + block.length() - 1 <= selection.selectionEnd();
}

} // namespace

std::vector<QTextBlock> Paragraphs(const QTextCursor& selection)
{
    const QTextDocument* document = selection.document();
    const QTextBlock last = document->findBlock(selection.selectionEnd());
    std::vector<QTextBlock> blocks;
    QTextBlock block = document->findBlock(selection.selectionStart());
    for (; block.isValid() && block.position() <= last.position(); block = block.next())
        blocks.push_back(block);
    return blocks;
}

void ChangeParagraphs(const QTextCursor& selection, const std::function<void(QTextBlockFormat&)>& change)
{
    QTextCursor step(selection);
    step.beginEditBlock();
    for (const QTextBlock& block : Paragraphs(selection)) {
        QTextBlockFormat format = block.blockFormat();
        change(format);
        if (format != block.blockFormat()) QTextCursor(block).setBlockFormat(format);
    }
    step.endEditBlock();
}

void ChangeCharacters(const QTextCursor& selection, const std::function<void(QTextCharFormat&)>& change)
{
    const std::vector<Stretch> stretches = Stretches(selection);
    QTextCursor step(selection.document());
    step.beginEditBlock();
    for (Stretch stretch : stretches) {
        change(stretch.format);
        step.setPosition(stretch.from);
        step.setPosition(stretch.to, QTextCursor::KeepAnchor);
        step.setCharFormat(stretch.format);
    }
    for (const QTextBlock& block : Paragraphs(selection)) {
        QTextCharFormat format = block.charFormat();
        const bool cell = format.objectIndex() != -1; // the format is the table cell's own
        if (cell || !IsWhole(block, selection)) continue;
        change(format);
        QTextCursor(block).setBlockCharFormat(format);
    }
    step.endEditBlock();
}

} // namespace platform::RichTextSelection
