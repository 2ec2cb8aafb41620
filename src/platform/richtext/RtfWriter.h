#pragma once

#include "platform/richtext/RichDocument.h"

#include <string>

namespace platform::richtext {

/// A document as the rich text that is stored, put on the clipboard or exported: ASCII, in one fixed form. It
/// begins with the prologue of an empty body and ends in "\par }"; a document that ends in a table gets an
/// empty paragraph behind it, a document without blocks is an empty body. Reading the text and writing it
/// again gives the same text.
///
/// Fonts, colours and lists are numbered as they are first used; what no paragraph uses is left out.
std::string WriteRtf(const RichDocument& document);

} // namespace platform::richtext
