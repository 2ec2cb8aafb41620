#include "platform/widgets/RichTextLists.h"

#include "platform/widgets/RichTextListGroups.h"
#include "platform/widgets/RichTextSelection.h"

#include <QTextBlock>

#include <algorithm>

namespace platform::RichTextLists {

namespace {

using richtext::ListKind;

/// One step of undo, with the items counted again at its end.
class Step
{
public:
    explicit Step(RichTextDocument& document) : m_document(document), m_cursor(&document)
    {
        m_cursor.beginEditBlock();
    }
    ~Step()
    {
        RichTextListGroups::CountAll(m_document);
        m_cursor.endEditBlock();
    }
    Step(const Step&) = delete;
    Step& operator=(const Step&) = delete;

private:
    RichTextDocument& m_document;
    QTextCursor m_cursor;
};

bool IsItem(const QTextBlock& block) { return RichTextDocument::ListOf(block) != 0; }

ListKind KindOf(const RichTextDocument& document, const QTextBlock& block)
{
    return document.Pool().Level(RichTextDocument::ListOf(block), RichTextDocument::LevelOf(block)).kind;
}

bool Is(const RichTextDocument& document, const QTextBlock& block, ListKind kind)
{
    return IsItem(block) && KindOf(document, block) == kind;
}

/// Makes a paragraph an item, with the indents of its level.
void MakeItem(RichTextDocument& document, QTextBlock block, Long list, Long level)
{
    const richtext::ListLevel& look = document.Pool().Level(list, level);
    richtext::ParagraphFormat indents = RichTextFormats::LookOf(block.blockFormat());
    indents.list = list;
    indents.indentLeft = look.indentLeft;
    indents.indentFirst = look.indentFirst;
    QTextCursor cursor(block);
    cursor.createList(document.ListFormat(list, level));
    QTextBlockFormat format = block.blockFormat();
    RichTextFormats::SetIndents(format, indents);
    cursor.setBlockFormat(format);
}

void MakePlain(QTextBlock block)
{
    QTextBlockFormat format = block.blockFormat();
    format.setObjectIndex(-1);
    richtext::ParagraphFormat indents = RichTextFormats::LookOf(format);
    indents.indentLeft = 0;
    indents.indentFirst = 0;
    RichTextFormats::SetIndents(format, indents);
    QTextCursor(block).setBlockFormat(format);
}

/// The list that new items go on with.
Long ListFor(RichTextDocument& document, const std::vector<QTextBlock>& blocks, ListKind kind)
{
    for (const QTextBlock& beside : {blocks.front().previous(), blocks.back().next()}) {
        if (beside.isValid() && Is(document, beside, kind)) return RichTextDocument::ListOf(beside);
    }
    return document.Pool().AddList(kind == ListKind::Number ? richtext::NumberList()
                                                            : richtext::BulletList());
}

} // namespace

void Toggle(RichTextDocument& document, const QTextCursor& selection, ListKind kind)
{
    if (AllAre(document, selection, kind)) {
        Remove(document, selection);
        return;
    }
    const Step step(document);
    const std::vector<QTextBlock> blocks = RichTextSelection::Paragraphs(selection);
    const Long list = ListFor(document, blocks, kind);
    for (const QTextBlock& block : blocks)
        MakeItem(document, block, list, RichTextDocument::LevelOf(block));
}

bool AllAre(const RichTextDocument& document, const QTextCursor& selection, ListKind kind)
{
    const std::vector<QTextBlock> blocks = RichTextSelection::Paragraphs(selection);
    return std::all_of(
        blocks.begin(), blocks.end(), [&](const QTextBlock& block) { return Is(document, block, kind); });
}

bool AllAreItems(const QTextCursor& selection)
{
    const std::vector<QTextBlock> blocks = RichTextSelection::Paragraphs(selection);
    return std::all_of(blocks.begin(), blocks.end(), IsItem);
}

void MoveLevel(RichTextDocument& document, const QTextCursor& selection, Long step)
{
    const Step undo(document);
    for (const QTextBlock& block : RichTextSelection::Paragraphs(selection)) {
        if (!IsItem(block)) continue;
        const Long list = RichTextDocument::ListOf(block);
        const Long last = static_cast<Long>(document.Pool().List(list)->levels.size()) - 1;
        const Long level = std::clamp(RichTextDocument::LevelOf(block) + step, 0, last);
        if (level != RichTextDocument::LevelOf(block)) MakeItem(document, block, list, level);
    }
}

void EndAt(RichTextDocument& document, const QTextCursor& item)
{
    if (RichTextDocument::LevelOf(item.block()) > 0) {
        MoveLevel(document, item, -1);
    } else {
        Remove(document, item);
    }
}

void Remove(RichTextDocument& document, const QTextCursor& selection)
{
    const Step step(document);
    for (const QTextBlock& block : RichTextSelection::Paragraphs(selection)) {
        if (IsItem(block)) MakePlain(block);
    }
}

} // namespace platform::RichTextLists
