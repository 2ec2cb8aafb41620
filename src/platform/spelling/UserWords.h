#pragma once

#include <string>
#include <vector>

namespace platform {

/// What became of a word that the user added.
enum class AddResult {
    Kept,          // in the user dictionary
    KeptInNewFile, // there was none, so one was made
    NotWritten     // the file could not be written: the word counts until the program ends
};

/// The file of the user's own words: UTF-8, one word a line, CR LF or LF. Lines without a word are passed
/// over, blanks around words too.
class UserWords
{
public:
    explicit UserWords(std::string path) : m_path(std::move(path)) {}
    const std::string& Path() const { return m_path; }

    /// The words in their order; none where the file cannot be read.
    std::vector<std::string> Read() const;
    /// Puts a word at the end of the file as it now stands. The file is replaced as a whole, so a failure
    /// leaves it as it was; a file that is marked read-only stays so.
    AddResult Add(const std::string& word) const;

private:
    std::string m_path;
};

} // namespace platform
