#pragma once

#include "platform/print/PdfFile.h"

#include <string>
#include <vector>

namespace platform::print {

/// Writes each page as a picture, "page-1.png" or, of more than nine pages, "page-01.png" and so on, into a
/// folder that must exist. Returns the paths. Throws PrintError, and PrintCancelled after taking back what it
/// wrote.
std::vector<std::string> WritePng(const Document& document,
                                  const std::string& folder,
                                  Double dotsPerInch = 96.0,
                                  const PageProgress& progress = {});

} // namespace platform::print
