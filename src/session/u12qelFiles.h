#pragma once

#include <string>

/// The file dialogs. Each gives the full path, or the empty text for none.
namespace u12qelFiles {

std::string ChooseFileToOpen();
/// Asks before it gives the path of a file that exists.
std::string ChooseNewFile();
/// Gives nothing, without a word, for the open file's own path; asks before any other file that exists.
std::string ChooseSaveAsFile();
/// The question before a file is overwritten; No is the default. True on Yes.
bool ConfirmReplace(const char* title);
inline constexpr const char* kReplaceTitle = "Replace file?";

} // namespace u12qelFiles
