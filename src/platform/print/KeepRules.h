#pragma once

#include "platform/print/FlowRecord.h"
#include "platform/print/TableLayout.h"
#include "platform/print/TextLayout.h"
#include "platform/richtext/RichDocument.h"

#include <vector>

namespace platform::print {

/// What a text tells to stay together and no page can hold is loosened for the export: a word processor would
/// move all of it to the next page and break it there. Lines and rows as low as a head stay with the next one
/// where a page holds both, and rows that are higher than a page may break.
///
/// `laid` is the text's layout, `tallest` the height of a page's text.
void Loosen(std::vector<richtext::Block>& blocks, const LaidText& laid, Double tallest);

/// The same of a table's rows: none of those that no page can hold together stays with the next one.
void Loosen(std::vector<RowRules>& rules, const std::vector<LaidRow>& rows, Double tallest);

} // namespace platform::print
