#pragma once

#include "platform/base/Numbers.h"

#include <string>
#include <string_view>
#include <vector>

namespace platform::print {

struct TableColumn
{
    Integer align = 0;  // alignment code
    Long width = 0;     // twips
    bool ruled = false; // a rule at its right edge

    friend bool operator==(const TableColumn&, const TableColumn&) = default;
};

struct TableFormat
{
    std::vector<TableColumn> columns;
    std::string_view data; // what stands behind the ";"
};

/// Reads "7800|>2100|^800;" and finds the data behind it. The text must outlive the result.
TableFormat ReadFormat(std::string_view text);

/// Rows ended by ";" of cells parted by "|". Within braces both are text: a font table is full of them; a
/// brace that is never closed is a character.
std::vector<std::vector<std::string>> SplitRows(std::string_view data);

} // namespace platform::print
