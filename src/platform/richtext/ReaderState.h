#pragma once

#include "platform/base/Numbers.h"
#include "platform/richtext/CharacterFormat.h"
#include "platform/richtext/ParagraphFormat.h"

#include <cstdint>
#include <limits>
#include <memory>
#include <vector>

namespace platform::richtext::reader {

/// Where the text of a group goes.
enum class Destination : std::uint8_t {
    Text,
    Nowhere, // control words count, text does not
    Fonts,
    Colors,
    Lists,
    ListLevel,
    ListLevelText,
    Overrides,
    Instruction, // what a field is to do
    Picture,
    OldList,
    OldListBefore,
    OldListAfter,
    Marker // of a list item, as its writer saw it
};

/// Which of its fonts the text that follows is in.
enum class FontClass : std::uint8_t { Unsaid, Western, FarEast };

constexpr Long defaultFont = std::numeric_limits<Long>::min(); // the one that \deff names
constexpr Long noNumber = -1;

/// The character properties in force, as numbers of the document's tables.
struct CharacterState
{
    Long font = defaultFont;
    Long farEastFont = defaultFont; // counts after \dbch
    Long halfPoints = 24;
    Long color = noNumber;
    Long background = noNumber;
    Long href = 0; // number of the link; 0: none
    FontClass fontClass = FontClass::Unsaid;
    Underline underline = Underline::None;
    Capitals capitals = Capitals::AsTyped;
    VerticalPosition position = VerticalPosition::Normal;
    bool bold = false;
    bool italic = false;
    bool strike = false;
    bool hidden = false;
    bool deleted = false; // by a recorded change

    friend bool operator==(const CharacterState&, const CharacterState&) = default;
};

/// The paragraph properties in force.
struct ParagraphState
{
    Alignment alignment = Alignment::Left;
    bool inTable = false;
    bool keepTogether = false;
    bool keepWithNext = false;
    bool pageBreakBefore = false;
    bool multiple = false; // \slmult
    Long left = 0;         // twips, as all lengths here
    Long right = 0;
    Long logicalLeft = noIndent; // overrules left
    Long logicalRight = noIndent;
    Long first = 0;
    Long before = 0;
    Long after = 0;
    Long lineSpacing = 0; // \sl
    Long list = 0;        // \ls
    Long level = 0;
    Long oldList = noNumber; // number of the \pn group
    Long background = noNumber;
    Long depth = noNumber; // \itap
    TabKind nextTabKind = TabKind::Left;
    TabLeader nextTabLeader = TabLeader::None;
    std::shared_ptr<std::vector<TabStop>> tabs; // nothing: none; shared with the states it was copied to

    static constexpr Long noIndent = std::numeric_limits<Long>::min();
};

/// What an opening brace saves and its closing brace brings back.
struct GroupState
{
    CharacterState character;
    ParagraphState paragraph;
    Long unicodeSkip = 1;
    Destination destination = Destination::Text;
    Destination outer = Destination::Text; // where the Unicode half of an \upr goes
    bool isDocument = false;               // the group began with \rtf
    bool isField = false;
    bool isNestedRow = false; // row properties are those of a nested table
    bool isShapePicture = false;
};

} // namespace platform::richtext::reader
