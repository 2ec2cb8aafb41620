#pragma once

#include "platform/richtext/RichDocument.h"

#include <functional>
#include <optional>
#include <string_view>
#include <vector>

// A document as one row of characters, as a text control counts it: each character of UTF-8 is one, so is a
// picture, and so is the end of each paragraph. A table is its cells, row by row; the end of the last
// paragraph of a cell is the end of the cell.

namespace platform::richtext {

Long LengthOf(const Paragraph& paragraph);
Long LengthOf(const Block& block);
Long LengthOf(const std::vector<Block>& blocks);

/// The characters of a paragraph from one place to another, its end not among them, in its looks.
Paragraph SliceOf(const Paragraph& paragraph, Long from, Long to);

/// The first place from `from` on where a text stands in a block, in whatever looks; nothing if there is
/// none. A text never runs on over the end of a paragraph.
std::optional<Long> FindIn(const Block& block, std::string_view text, Long from);

/// A range in the text that holds it: a document's or a cell's. Tables are in it as a whole; paragraphs from
/// `start` in the first block to `end` in the last. `Blocks` is that text, const or not.
template <class Blocks> struct TextRange
{
    Blocks* blocks = nullptr;
    std::size_t first = 0, last = 0;
    Long start = 0, end = 0;
};

/// The range from one place to another in the innermost text that holds both; a range that goes beyond one
/// cell takes the table as a whole. Places must not lie outside.
TextRange<std::vector<Block>> RangeIn(std::vector<Block>& blocks, Long from, Long to);
TextRange<const std::vector<Block>> RangeIn(const std::vector<Block>& blocks, Long from, Long to);
/// The same within a table; nothing when no cell holds both places.
std::optional<TextRange<std::vector<Block>>> RangeIn(Table& table, Long from, Long to);
std::optional<TextRange<const std::vector<Block>>> RangeIn(const Table& table, Long from, Long to);

/// A copy of what is in a range.
std::vector<Block> CopyOf(const TextRange<const std::vector<Block>>& range);

/// Puts blocks in the place of a range. What stands before it in its paragraph runs on into the first block,
/// and the last one into what stands behind, unless they are tables. Returns how many blocks now stand in
/// the place of the range's first to last.
std::size_t Replace(const TextRange<std::vector<Block>>& range, std::vector<Block> inserted);

/// Calls something for each paragraph of a range, with the places in it where the range begins and ends.
void ForEachIn(const TextRange<std::vector<Block>>& range,
               const std::function<void(Paragraph&, Long, Long)>& change);

/// Changes the looks of some characters of a paragraph; of all of an empty one that which it keeps.
void ChangeLooks(Paragraph& paragraph,
                 Long from,
                 Long to,
                 const std::function<void(CharacterFormat&)>& change);

} // namespace platform::richtext
