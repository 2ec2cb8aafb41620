#pragma once

#include "platform/richtext/RichDocument.h"

#include <vector>

// What the place on a page adds to a text on its way into the export.

namespace platform::print {

/// The nearest whole twip.
Long Twips(Double value);

/// The first paragraph of a text; nothing where it begins with a table.
richtext::Paragraph* FirstParagraph(std::vector<richtext::Block>& blocks);

void AddSpaceBefore(std::vector<richtext::Block>& blocks, Long space);
void AddSpaceAfter(std::vector<richtext::Block>& blocks, Long space);

/// Word processors add the font's own leading to a line, the pages have none: lines are told to stand nearer,
/// but for those of pictures, which would be cut.
void Tighten(std::vector<richtext::Block>& blocks);

/// Word processors make room for the rules of a row, the pages draw them into it: the space above the text
/// gives way, else the line does.
void MakeRoomForRules(richtext::TableCell& cell);

/// Leaves out pictures that are damaged: for one of them some word processors refuse the whole document.
void DropDamagedPictures(std::vector<richtext::Block>& blocks);

/// Makes pictures and tables small enough for the place that they stand in, as the pages do: word processors
/// squeeze a picture that is wider than its cell, and a table in it pushes the cell over the margin.
void FitIn(std::vector<richtext::Block>& blocks, Double width, Double height);

/// Moves a paragraph and its tab stops in from the left, and in from the right.
void Indent(richtext::Paragraph& paragraph, Long left, Long right);

} // namespace platform::print
