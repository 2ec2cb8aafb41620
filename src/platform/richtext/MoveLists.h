#pragma once

#include "platform/richtext/RichDocument.h"

#include <vector>

namespace platform::richtext {

/// Calls something for each paragraph, also of cells.
template <class Change> void ForEachParagraph(std::vector<Block>& blocks, const Change& change)
{
    for (Block& block : blocks) {
        if (Paragraph* paragraph = block.AsParagraph()) {
            change(*paragraph);
            continue;
        }
        for (TableRow& row : block.AsTable()->rows) {
            for (TableCell& cell : row.cells)
                ForEachParagraph(cell.blocks, change);
        }
    }
}

/// Moves the lists of a text behind others, so that none are joined, and renumbers its paragraphs.
void MoveLists(RichDocument& from, std::vector<RichList>& to);

} // namespace platform::richtext
