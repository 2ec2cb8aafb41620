#pragma once

#include "platform/base/Numbers.h"

#include <string>

class QPrinter;
class QWidget;

namespace platform {

namespace print {
struct Document;
} // namespace print

/// The printer of the program, as it was set up last; at first the desktop's own. Where there is none, or
/// where printing to a file was set up, pages go to a PDF file whose name is asked for.
namespace Printing {

struct Paper
{
    Double width = 0.0, height = 0.0; // twips, as the paper is turned
};

/// The printer's paper, as it is turned; US Letter where there is no printer. Until a printer is set up this
/// is the desktop's own, looked for anew at each call.
Paper PaperInUse();
/// Forgets what was set up.
void UseDesktopsPrinter();
/// The dialog that chooses the printer and its paper. Cancelled, all stays as it was.
void SetUp(QWidget* parent);
/// Prints pages, first to last from 0. Nothing for pages that there are not, and when the user gives no file
/// name. The open data file is never replaced, whatever it is called. Throws PrintError.
void Print(const print::Document& document, Long first, Long last, const std::string& dataFile = {});

/// Draws pages, first to last from 0, on a printer, on the document's paper. Throws PrintError when the
/// printer or the print service refuses them.
void DrawOn(QPrinter& printer, const print::Document& document, Long first, Long last);
/// A document of these pages alone, with the bookmarks that lead to them.
print::Document PagesOf(const print::Document& document, Long first, Long last);

} // namespace Printing

} // namespace platform
