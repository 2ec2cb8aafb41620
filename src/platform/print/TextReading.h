#pragma once

#include "platform/print/PrintSettings.h"
#include "platform/print/PrintText.h"
#include "platform/richtext/MoveLists.h"
#include "platform/richtext/RichDocument.h"

#include <vector>

namespace platform::print {

/// Reads a text handed to the control: typed pieces and fragments are in the control's font, whole rich texts
/// in their own. At least one paragraph.
richtext::RichDocument ReadText(const PrintText& text, const PrintFont& font);

/// Gives paragraphs without an alignment of their own that of an alignment code.
void Align(std::vector<richtext::Block>& blocks, Integer code);

/// The part of an alignment code that is across: left, centre, right; and down.
richtext::Alignment AcrossOf(Integer code);
richtext::CellAlignment DownOf(Integer code);

} // namespace platform::print
