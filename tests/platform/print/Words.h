#pragma once

#include "support/TempFolder.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

// Rich texts to be printed, and whether their words all came.

namespace printed {

/// The rich texts of a folder, in the order of their names.
inline std::vector<std::string> RichTextsIn(const std::string& folder)
{
    std::vector<std::string> paths;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() == ".rtf") paths.push_back(entry.path().string());
    }
    std::sort(paths.begin(), paths.end());
    return paths;
}

/// The paths of the tests' own rich texts, and of those of other writers where VEXA_CORPUS names a folder.
inline std::vector<std::string> RichTexts()
{
    std::vector<std::string> paths = RichTextsIn(support::DataFile("rtf"));
    const char* folder = std::getenv("VEXA_CORPUS");
    if (folder == nullptr || *folder == '\0') return paths;
    for (const std::string& path : RichTextsIn(std::string(folder) + "/rtf"))
        paths.push_back(path);
    return paths;
}

/// A text without the signs that do not show.
inline std::string Shown(std::string text)
{
    for (const std::string_view hidden : {"\u00AD", "\u00A0", "\uFEFF"}) {
        for (std::size_t place = text.find(hidden); place != std::string::npos;
             place = text.find(hidden, place))
            text.replace(place, hidden.size(), hidden == "\u00A0" ? " " : "");
    }
    return text;
}

/// What shows of a text, without its blanks and line ends.
inline std::string LettersOf(const std::string& text)
{
    std::string letters = Shown(text);
    std::erase_if(letters, [](char sign) { return sign == ' ' || sign == '\n' || sign == '\t'; });
    return letters;
}

/// The first word of a text that does not come in its turn among letters; empty when all do.
inline std::string LostWord(const std::string& text, const std::string& letters)
{
    std::istringstream words(Shown(text));
    std::size_t place = 0;
    for (std::string word; words >> word;) {
        place = letters.find(word, place);
        if (place == std::string::npos) return word;
        place += word.size();
    }
    return "";
}

} // namespace printed
