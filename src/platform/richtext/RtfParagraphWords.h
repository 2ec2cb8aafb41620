#pragma once

#include "platform/richtext/ParagraphFormat.h"
#include "platform/richtext/RtfTables.h"

#include <string>

namespace platform::richtext {

/// Adds what differs from the default look of a paragraph, in one fixed order: alignment, indents, spaces,
/// line spacing, tab stops, then the rest.
void AppendParagraphWords(std::string& rtf, const ParagraphFormat& format, RtfTables& tables);

/// Adds the look of a list item. Its indents always stand, also those of 0, and a hanging first line gets the
/// tab stop that its marker ends at.
void AppendItemWords(std::string& rtf, const ParagraphFormat& format, RtfTables& tables);

} // namespace platform::richtext
