#pragma once

#include "platform/print/FlowRecord.h"
#include "platform/print/Fonts.h"

namespace platform::print {

/// Where the running header stands, twips: the same on every page, whatever the margins of the text.
constexpr Double headerEdge = 720.0; // from the sides of the paper
constexpr Double headerTop = 360.0;  // top of its last line; a long text grows upward
constexpr Double headerRuleGap = 40.0;

/// The text of a field on a page.
std::string FieldText(const HeaderField& field, Long pageNumber);

/// Draws the running header and its rule.
void DrawHeader(Ink& ink, const PageHeader& header, Long pageNumber, Double pageWidth, LookBook& looks);

} // namespace platform::print
