#pragma once

#include "platform/richtext/RichDocument.h"

#include <array>
#include <string>
#include <vector>

namespace platform::richtext {

/// A number as a list shows it: "4", "iv", "D". Roman numbers go to 3999 and letters go on as aa, bb; what
/// neither can show (0 among them) stands in digits.
std::string NumberText(Long number, NumberStyle style);

/// Counts the items of a document's lists in the order of its text.
class ListCounter
{
public:
    /// The document must outlive the counter.
    explicit ListCounter(const RichDocument& document);

    /// The marker of the next paragraph, UTF-8: "•", "3.", "(a)". Empty for a paragraph of no list and for an
    /// item without a marker. An item starts the levels below it anew.
    std::string NextMarker(const ParagraphFormat& format);

private:
    using Numbers = std::array<Long, maxListLevels>; // the last number of each level; -1: none yet

    Long NextNumber(Long list, Long level, Long start);

    const RichDocument& m_document;
    std::vector<Numbers> m_numbers; // of each list
};

} // namespace platform::richtext
