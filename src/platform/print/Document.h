#pragma once

#include "platform/print/FlowRecord.h"
#include "platform/print/PageRecord.h"

#include <string>
#include <vector>

namespace platform::print {

/// A report: its pages and what was written on them. A value; the drawing and exporting of it change nothing.
struct Document
{
    std::string title;                            // of the PDF and the RTF
    std::vector<Page> pages;                      // that have ended
    std::vector<richtext::CharacterFormat> looks; // of the pages' texts; the family is the one asked for
    std::vector<Bookmark> bookmarks;

    std::vector<FlowItem> flow;
    std::vector<PageSetup> setups;         // one a page
    std::vector<richtext::RichList> lists; // of all rich texts in the flow, none of them joined
    Double pageWidth = 0.0, pageHeight = 0.0;
};

/// The pages as text with positions, a line a thing, in whole twips: for approved files. A page begins with
/// `page 1 12240 x 15840`; then `fill`, `picture`, `line` and `text` by their layers.
std::string DumpPages(const Document& document);

} // namespace platform::print
