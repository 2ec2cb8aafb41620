#pragma once

#include <string>

/// The alternatives of the rich text export: the same content as the table of the preview, built in a text
/// control. It is not derived from that table.
namespace ReportSections {

/// All alternatives in collection order as one rich text. Throws DatabaseError and what the figures throw.
std::string RtfAlternatives();

/// A stored body as the rich text that can be put into a selection.
std::string PlainRtf(const std::string& text);

} // namespace ReportSections
