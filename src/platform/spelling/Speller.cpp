#include "platform/spelling/Speller.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <hunspell.hxx>
#include <sstream>
#include <system_error>
#include <utility>

namespace platform {

namespace fs = std::filesystem;

namespace {

constexpr const char* kLanguage = "en_US";
constexpr std::size_t kLongestWord = 100; // bytes; what is longer is no word of a dictionary

bool HoldsSomething(const std::string& path)
{
    std::error_code error;
    return fs::is_regular_file(path, error) && fs::file_size(path, error) > 0 && !error;
}

/// The dictionary's two files in one folder.
struct DictionaryFiles
{
    explicit DictionaryFiles(const std::string& folder)
        : affixes(folder + "/" + kLanguage + ".aff"), words(folder + "/" + kLanguage + ".dic")
    {}
    bool Stand() const { return HoldsSomething(affixes) && HoldsSomething(words); }
    std::string affixes;
    std::string words;
};

} // namespace

/// The loaded dictionary with the user's words in it.
class Speller::Dictionary
{
public:
    explicit Dictionary(const DictionaryFiles& files) : m_engine(files.affixes.c_str(), files.words.c_str())
    {}
    bool Knows(const std::string& word) { return m_engine.spell(word); }
    std::vector<std::string> Suggest(const std::string& word) { return m_engine.suggest(word); }
    void Add(const std::string& word)
    {
        if (word.size() <= kLongestWord) m_engine.add(word);
    }

private:
    Hunspell m_engine;
};

Speller::Speller(std::vector<std::string> folders) : m_folders(std::move(folders)), m_userWords({}) {}

Speller::~Speller() = default;

std::vector<std::string> Speller::SystemFolders()
{
    std::vector<std::string> folders;
    const char* told = std::getenv("DICPATH"); // where other programs look for dictionaries, too
    std::istringstream list(told == nullptr ? "" : told);
    for (std::string folder; std::getline(list, folder, ':');)
        folders.push_back(folder);
    folders.emplace_back("/usr/share/hunspell");
    folders.emplace_back("/usr/share/myspell/dicts");
    return folders;
}

void Speller::SetUserDictionary(const std::string& path)
{
    if (path == m_userWords.Path()) return;
    m_userWords = UserWords(path);
    m_dictionary.reset(); // the words of the earlier file are in it
    m_sought = false;
}

bool Speller::IsReady() { return EnsureDictionary() != nullptr; }

std::vector<std::string> Speller::MissingDictionary()
{
    return {"The English dictionary is not installed, so the spelling cannot be checked.",
            "Install the package hunspell-en-us and start the program again."};
}

Speller::Dictionary* Speller::EnsureDictionary()
{
    if (std::exchange(m_sought, true)) return m_dictionary.get();
    const auto found = std::find_if(m_folders.begin(), m_folders.end(), [](const std::string& folder) {
        return DictionaryFiles(folder).Stand();
    });
    if (found == m_folders.end()) return nullptr;
    m_dictionary = std::make_unique<Dictionary>(DictionaryFiles(*found));
    for (const std::string& word : m_userWords.Read())
        m_dictionary->Add(PlainWord(word));
    for (const std::string& word : m_added)
        m_dictionary->Add(word);
    return m_dictionary.get();
}

bool Speller::IsRight(std::string_view word)
{
    if (!IsReady()) return true;
    const std::string plain = PlainWord(word);
    if (m_ignored.contains(plain)) return true;
    return plain.size() <= kLongestWord && EnsureDictionary()->Knows(plain);
}

std::vector<WordPlace> Speller::WrongWords(std::string_view text)
{
    std::vector<WordPlace> wrong;
    for (const WordPlace& place : WordsOf(text)) {
        const std::string_view word = text.substr(place.start, place.length);
        if (IsRight(word)) continue;
        for (const WordPlace& part : PartsOf(word)) {
            if (!IsRight(word.substr(part.start, part.length)))
                wrong.push_back({place.start + part.start, part.length});
        }
    }
    return wrong;
}

std::vector<std::string> Speller::Suggestions(std::string_view word)
{
    if (!IsReady() || word.size() > kLongestWord) return {};
    return EnsureDictionary()->Suggest(PlainWord(word));
}

AddResult Speller::Add(std::string_view word)
{
    const std::string plain = PlainWord(word);
    m_added.insert(plain);
    if (IsReady()) EnsureDictionary()->Add(plain);
    return m_userWords.Add(plain);
}

void Speller::IgnoreAll(std::string_view word) { m_ignored.insert(PlainWord(word)); }

void Speller::HeedAgain(std::string_view word) { m_ignored.erase(PlainWord(word)); }

Speller& TheSpeller()
{
    static Speller speller;
    return speller;
}

} // namespace platform
