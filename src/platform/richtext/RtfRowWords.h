#pragma once

#include "platform/richtext/RichTable.h"
#include "platform/richtext/RtfTables.h"

#include <string>

namespace platform::richtext {

/// Adds \trowd and what a row is: gap, left edge, then height, alignment, heading and unbroken where they
/// differ from the default, then each cell's joins, alignment, borders and background with its right edge.
void AppendRowWords(std::string& rtf, const TableRow& row, RtfTables& tables);

} // namespace platform::richtext
