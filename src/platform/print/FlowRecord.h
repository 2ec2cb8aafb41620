#pragma once

#include "platform/print/PageRecord.h"
#include "platform/richtext/RichDocument.h"

#include <array>
#include <optional>
#include <string>
#include <variant>
#include <vector>

// The flow record: what was written, in its order, as a document that a person can go on editing. The RTF
// export is written from it (RtfExport.h). It is kept beside the page record and shares its measures.

namespace platform::print {

/// One field of the running header.
struct HeaderField
{
    std::string text;
    bool numbered = false; // "%d" in it is the page number; else it is two characters
};

/// The running header as it stood when a page ended.
struct PageHeader
{
    std::array<HeaderField, 3> fields; // left, centre, right
    std::string font = "Arial";
    Double size = 10.0; // points
    bool bold = false;
    bool ruled = false; // a thin rule under it

    bool IsEmpty() const;
};

/// Of one page: the margins when it began, in twips, and its header.
struct PageSetup
{
    Double marginLeft = 0.0, marginTop = 0.0, marginRight = 0.0, marginBottom = 0.0;
    PageHeader header;
};

/// Paragraphs and tables of rich texts between the edges of a column.
struct FlowText
{
    std::vector<richtext::Block> blocks; // list numbers are those of Document::lists
    Double left = 0.0;                   // from the page's (or column's) left margin to the text's left edge
    Double right = 0.0;                  // likewise at the right
    std::optional<Double> firstX;        // where the first line begins, from the left margin, if told
    Double spaceBefore = 0.0, spaceAfter = 0.0; // of each paragraph written
    bool isHeading = false;                     // stands in the outline
};

/// What is told of a row beside its cells.
struct RowRules
{
    bool header = false; // repeated; of rows not at the top too
    bool keepWithNext = false;
    Double spaceBefore = 0.0; // above the row and its rule
    Double spaceAfter = 0.0;
    Double spacing = 0.0; // above the row's text
};

struct FlowTable
{
    richtext::Table table;       // widths as told
    std::vector<RowRules> rules; // one a row
    Double left = 0.0;           // from the left margin
};

struct FlowTextBox
{
    std::vector<richtext::Block> blocks;
    Double left = 0.0, top = 0.0, width = 0.0, height = 0.0; // on the paper
};

struct FlowLine
{
    PlacedLine line;
};

/// Text that goes into the export as it is.
struct FlowRaw
{
    std::string text;
};

struct FlowPageBreak
{};

struct FlowColumnBreak
{};

/// From here the page has this many columns.
struct FlowColumns
{
    Long count = 1;
    Double gap = 0.0;
    Double marginLeft = 0.0, marginRight = 0.0;
};

struct FlowItem
{
    std::variant<FlowText,
                 FlowTable,
                 FlowTextBox,
                 FlowLine,
                 FlowRaw,
                 FlowPageBreak,
                 FlowColumnBreak,
                 FlowColumns>
        content;
    Long page = 0;       // where it begins, from 0
    Double top = 0.0;    // the writing position before it
    Double bottom = 0.0; // and behind it, maybe pages later
    Long endPage = 0;
    Double marginLeft = 0.0, marginRight = 0.0; // of the page, when it was written
};

} // namespace platform::print
