#pragma once

#include "platform/print/FlowRecord.h"

#include <string>
#include <string_view>

namespace platform::print {

/// A line as a drawing that stands on the page, wherever its anchor is.
void AppendLineShape(std::string& rtf, const PlacedLine& line, Long order);

/// A text box as a drawing that stands on the page; its text is rich text that ends its last paragraph.
void AppendBoxShape(std::string& rtf, const FlowTextBox& box, std::string_view text, Long order);

} // namespace platform::print
