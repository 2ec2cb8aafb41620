#pragma once

#include "platform/print/TextLayout.h"

#include <vector>

namespace platform::print {

/// Cuts a text where one of its lines begins; the text keeps what is before, the rest is returned.
std::vector<richtext::Block> SplitBlocks(std::vector<richtext::Block>& blocks, const LaidLine& line);

/// Makes the lines behind a cut tell their places in the rest.
void Renumber(LaidText& rest);

} // namespace platform::print
