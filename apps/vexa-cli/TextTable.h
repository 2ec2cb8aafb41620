#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace vexa_cli {

/// A table for a terminal: the first column is text and gives way so that a line keeps within the width; the
/// others are figures, set to the right and never cut.
class TextTable
{
public:
    explicit TextTable(std::vector<std::string> head) { m_rows.push_back(std::move(head)); }

    /// As many cells as the head has.
    void Add(std::vector<std::string> cells) { m_rows.push_back(std::move(cells)); }
    /// A line of one text above the rows that follow, as wide as the table may be.
    void AddHeading(std::string text) { m_rows.push_back({std::move(text)}); }
    /// The lines, each with its line end; no line is longer than `width` unless the figures alone are.
    std::string Text(std::size_t width) const;

private:
    std::vector<std::size_t> Widths(std::size_t width) const;

    std::vector<std::vector<std::string>> m_rows; // the head first
};

/// A text of the file as one line that does nothing to a terminal: valid UTF-8, control characters made
/// blanks.
std::string OneLine(const std::string& text);

} // namespace vexa_cli
