#pragma once

#include "platform/richtext/RichList.h"
#include "platform/widgets/RichTextDocument.h"

#include <QTextBlock>
#include <QTextList>

#include <array>
#include <map>

namespace platform {

/// The groups by which the toolkit counts list items. Items of a list go on counting through the text; those
/// of a level begin anew after an item of a level above theirs.
class RichTextListGroups
{
public:
    explicit RichTextListGroups(RichTextDocument& document) : m_document(document) {}

    /// Makes a block the next item of a list. Blocks come in the order of the text.
    void Put(QTextBlock block, Long list, Long level);
    /// Counts all items of the document again. A step of the edit block around it.
    static void CountAll(RichTextDocument& document);

private:
    using Levels = std::array<QTextList*, richtext::maxListLevels>;
    bool Begins(const QTextBlock& block, Long list, Long level) const;

    RichTextDocument& m_document;
    std::map<Long, Levels> m_groups;
};

} // namespace platform
