#pragma once

#include "platform/richtext/RichDocument.h"

#include <string>
#include <vector>

namespace platform::richtext {

/// The number that RTF knows the list at a place in a body by, from 0: 1, then 901, 902 ... Each behind the
/// first begins with a 9, since the reports renumber list 1 by its text, and "listid1" is also the beginning
/// of "listid12".
Long RtfListNumber(std::size_t place);

/// The lists of a document being written, numbered as they are first used. Lists no paragraph is in are left
/// out.
class RtfLists
{
public:
    /// The document must outlive the object.
    explicit RtfLists(const RichDocument& document);

    /// Whether a paragraph stands in a list that is there.
    bool IsItem(const ParagraphFormat& format) const;
    /// The number in the RTF of an item's list.
    Long NumberOf(const ParagraphFormat& item);

    /// Adds the list table and the override table; nothing when no list was used.
    void AppendTo(std::string& rtf) const;

private:
    const RichDocument& m_document;
    std::vector<Long> m_numbers;     // of each list of the document; 0: not used yet
    std::vector<std::size_t> m_used; // places in the document's lists, by first use
};

} // namespace platform::richtext
