#pragma once

#include "platform/print/Document.h"

#include <functional>
#include <string>

namespace platform::print {

/// Called with the number of each page that is done, from 1; false cancels.
using PageProgress = std::function<bool(Long)>;

/// Writes the pages as PDF: fonts embedded, text searchable, the bookmarks as outline, the document's title,
/// no author. The file is written beside its place and takes its name when it is whole. Throws PrintError and
/// PrintCancelled.
void WritePdf(const Document& document, const std::string& path, const PageProgress& progress = {});

} // namespace platform::print
