#pragma once

#include "platform/spelling/UserWords.h"
#include "platform/spelling/Words.h"

#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// Tells right words from wrong ones by the installed English dictionary, the user's own dictionary and what
/// the user said in this session. Nothing is loaded before the first word is asked for. Texts and words are
/// UTF-8. Without a dictionary every word is right.
class Speller
{
public:
    /// The folders in which the dictionary is looked for, first come first taken.
    explicit Speller(std::vector<std::string> folders = SystemFolders());
    Speller(const Speller&) = delete;
    Speller& operator=(const Speller&) = delete;
    ~Speller();

    static std::vector<std::string> SystemFolders();

    /// The file of the user's own words; it need not exist. The session's words stay.
    void SetUserDictionary(const std::string& path);

    /// Whether a dictionary was found; loads it.
    bool IsReady();
    /// What to say where none was found: one sentence on what is missing and one on what to do.
    static std::vector<std::string> MissingDictionary();

    bool IsRight(std::string_view word);
    /// The words of a text that are not right, in order. Of a word with hyphens the parts that are not.
    std::vector<WordPlace> WrongWords(std::string_view text);
    /// What the word may have been meant to be, the likeliest first. Takes some milliseconds.
    std::vector<std::string> Suggestions(std::string_view word);

    /// From now on the word is right, and in later sessions too where the file could be written.
    AddResult Add(std::string_view word);
    /// Until the program ends the word is right, in just these letters.
    void IgnoreAll(std::string_view word);
    /// Takes back IgnoreAll.
    void HeedAgain(std::string_view word);

private:
    class Dictionary;

    /// Loaded on first need; null where there is none.
    Dictionary* EnsureDictionary();

    std::vector<std::string> m_folders;
    UserWords m_userWords;
    std::unique_ptr<Dictionary> m_dictionary;
    bool m_sought = false;
    std::set<std::string> m_added;   // in this session
    std::set<std::string> m_ignored; // in this session
};

/// The program's one speller, with the user dictionary that was set last.
Speller& TheSpeller();

} // namespace platform
