#pragma once

#include "platform/print/Fonts.h"
#include "platform/print/PageRecord.h"
#include "platform/richtext/ListCounter.h"
#include "platform/richtext/RichDocument.h"

#include <optional>
#include <span>
#include <vector>

namespace platform::print {

/// One line of text, or a row of a table in a text: what a page can be broken between. Its ink begins at the
/// text's left edge and at the top of the line.
struct LaidLine
{
    Double before = 0.0; // space above, left out at the top of a page
    Double height = 0.0;
    Double after = 0.0; // space below
    Double end = 0.0;   // where its text ends, blanks included
    Ink ink;
    std::size_t block = 0; // the top block that it belongs to
    std::size_t start = 0; // where the line begins in it: units of 16 bits in a paragraph, the row in a table

    bool IsBlank() const;
};

/// A text that is laid out, from top to bottom.
struct LaidText
{
    std::vector<LaidLine> lines;

    Double Height() const;
    /// Where its longest line ends.
    Double Width() const;
};

/// Where a text is laid out.
struct TextFrame
{
    Double width = 0.0;
    Double firstX = 0.0;      // where the very first line begins, from the left edge; may lie left of it
    Double tallest = 12000.0; // no picture and no row of a table becomes higher
    bool wrap = true;         // else only line ends end lines
};

class TableLayout;

/// Lays out rich texts in twips, apart from any device.
class TextLayout
{
public:
    explicit TextLayout(LookBook& looks) : m_looks(looks) {}

    LaidText LayOut(const richtext::RichDocument& document, const TextFrame& frame);
    /// The blocks of a cell, whose lists go on counting.
    LaidText LayOut(std::span<const richtext::Block> blocks,
                    richtext::ListCounter& counter,
                    const TextFrame& frame,
                    Long defaultTab);

private:
    LookBook& m_looks;
};

} // namespace platform::print
