#pragma once

#include "platform/richtext/RichDocument.h"

#include <nlohmann/json.hpp>

#include <string>
#include <vector>

namespace rich {

/// The lines of a text as the corpus writes them down: blanks at the ends of lines and cells and empty lines
/// dropped, signs of symbol fonts and signs that do not show dropped, hard blanks and hyphens made plain.
std::vector<std::string> CorpusLines(const std::string& text);

/// Which of the facts about a file (NAME.json) do not hold for the document read from it; a line each.
std::vector<std::string> BrokenFacts(const nlohmann::json& file,
                                     const platform::richtext::RichDocument& document);

} // namespace rich
