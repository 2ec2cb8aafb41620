#pragma once

#include "platform/print/Document.h"

#include <string>

namespace platform::print {

/// The document as rich text that a person goes on editing: ASCII. Paragraphs, tables with their rules and
/// repeated heads, the running header with its page field, columns and page breaks are real ones; text boxes
/// and lines are drawings where the pages have them.
std::string RtfOf(const Document& document);

/// Writes it beside its place and renames, so that a failure leaves the old file whole. Throws PrintError.
void WriteRtfFile(const Document& document, const std::string& path);

} // namespace platform::print
