#pragma once

#include "platform/print/Document.h"
#include "platform/print/PdfFile.h"

#include <optional>
#include <string>

namespace vexa_cli {

enum class ReportKind { Pdf, Rtf, Pictures };

/// What a report's target is: by its extension, of either case, a PDF or an RTF file; else a folder, one that
/// stands or, where the name has no extension, one to be made. Nothing for any other extension.
std::optional<ReportKind> ReportKindOf(const std::string& target);

/// Writes the pages into a folder, "page-1.png" and so on. They are made beside it and moved when all of them
/// are whole; pages of an earlier report go then. Throws PrintError.
void WritePictures(const platform::print::Document& document,
                   const std::string& folder,
                   const platform::print::PageProgress& progress);

} // namespace vexa_cli
