#pragma once

#include "platform/print/Document.h"

#include <string>

namespace platform::print {

/// A PDF with an outline made of a document's bookmarks, and without a word of who made it.
std::string WithOutline(const std::string& pdf, const Document& document);

} // namespace platform::print
