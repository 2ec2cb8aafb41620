#pragma once

#include "platform/base/Numbers.h"
#include "platform/richtext/CharacterFormat.h"

#include <cstdint>
#include <vector>

namespace platform::richtext {

enum class Alignment : std::uint8_t { Left, Center, Right, Justify };

enum class TabKind : std::uint8_t {
    Left,
    Right,
    Center,
    Decimal,
    Bar // a vertical rule at the position; no stop
};

enum class TabLeader : std::uint8_t { None, Dots, MiddleDots, Hyphens, Underline, Thick, Equals };

struct TabStop
{
    Long position = 0; // twips from the left margin
    TabKind kind = TabKind::Left;
    TabLeader leader = TabLeader::None;

    friend bool operator==(const TabStop&, const TabStop&) = default;
};

enum class LineSpacingRule : std::uint8_t {
    Multiple, // value in 240ths of a line: 240 single, 360 one and a half
    AtLeast,  // value in twips
    Exactly   // value in twips
};

struct LineSpacing
{
    LineSpacingRule rule = LineSpacingRule::Multiple;
    Long value = 240; // above 0

    friend bool operator==(const LineSpacing&, const LineSpacing&) = default;
};

/// The look of a paragraph. Indents, spaces and positions are in twips.
struct ParagraphFormat
{
    Alignment alignment = Alignment::Left;
    Long indentLeft = 0;  // of all lines
    Long indentFirst = 0; // of the first line, on top of indentLeft; negative: hanging
    Long indentRight = 0;
    Long spaceBefore = 0;
    Long spaceAfter = 0;
    LineSpacing lineSpacing;
    /// By rising position, no two at one. The stop that a list item's marker ends at, indentLeft, is not
    /// told.
    std::vector<TabStop> tabs;
    Long list = 0;             // number of the list (RichDocument::lists), 0: no list item
    Long level = 0;            // 0 to 8; 0 where list is 0
    Color background;          // behind the whole paragraph
    bool keepTogether = false; // all lines on one page
    bool keepWithNext = false; // on the page of the next paragraph
    bool pageBreakBefore = false;

    friend bool operator==(const ParagraphFormat&, const ParagraphFormat&) = default;
};

} // namespace platform::richtext
