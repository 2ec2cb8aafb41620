#pragma once

#include <string>
#include <string_view>

namespace datafile_builder {

/// The rich text of a body that nobody has written in yet: one empty paragraph in Arial 10 point.
std::string DefaultBody();

/// The rich text of a marked up text, in the form in which the program's own editor writes a body.
///
/// Each line is a paragraph, an empty line an empty one. A line that begins with "- " is a bullet; one that
/// begins with "1. ", "2. " and so on is a numbered item; lines of one kind that follow each other are one
/// list.
/// **Between two pairs of stars** stands bold text. There is nothing else. The empty text gives the default
/// body.
///
/// Throws BuildError for an unpaired "**", a list whose numbers do not count up from 1, a control character
/// other than line end and tab, and bytes that are no UTF-8.
std::string MarkupToRtf(std::string_view markup);

} // namespace datafile_builder
