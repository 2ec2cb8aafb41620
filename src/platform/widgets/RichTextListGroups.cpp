#include "platform/widgets/RichTextListGroups.h"

#include <QTextCursor>

#include <algorithm>

namespace platform {

bool RichTextListGroups::Begins(const QTextBlock& block, Long list, Long level) const
{
    return RichTextDocument::ListOf(block) == list && RichTextDocument::LevelOf(block) == level &&
           block.textList()->itemNumber(block) == 0;
}

void RichTextListGroups::Put(QTextBlock block, Long list, Long level)
{
    level = std::clamp(level, 0, richtext::maxListLevels - 1);
    Levels& levels = m_groups.try_emplace(list, Levels{}).first->second;
    const auto at = static_cast<std::size_t>(level);
    std::fill(levels.begin() + level + 1, levels.end(), nullptr);
    if (levels[at] == nullptr) {
        levels[at] = Begins(block, list, level)
                         ? block.textList()
                         : QTextCursor(block).createList(m_document.ListFormat(list, level));
    } else if (levels[at] != block.textList()) {
        levels[at]->add(block);
    }
}

void RichTextListGroups::CountAll(RichTextDocument& document)
{
    RichTextListGroups groups(document);
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        const Long list = RichTextDocument::ListOf(block);
        if (list != 0) groups.Put(block, list, RichTextDocument::LevelOf(block));
    }
}

} // namespace platform
