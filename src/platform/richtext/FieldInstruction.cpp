#include "platform/richtext/FieldInstruction.h"

#include <algorithm>
#include <charconv>

namespace platform::richtext::reader {

namespace {

char Lower(char sign) { return sign >= 'A' && sign <= 'Z' ? static_cast<char>(sign - 'A' + 'a') : sign; }

bool BeginsWith(std::string_view text, std::string_view lowerBeginning)
{
    return text.size() >= lowerBeginning.size() &&
           std::ranges::equal(text.substr(0, lowerBeginning.size()), lowerBeginning, {}, Lower);
}

/// Takes words and quoted texts off the front of an instruction.
class Words
{
public:
    explicit Words(std::string_view text) : m_text(text) {}

    bool Next(std::string& word)
    {
        m_text.remove_prefix(std::min(m_text.find_first_not_of(" \t\n"), m_text.size()));
        if (m_text.empty()) return false;
        word.clear();
        m_text.front() == '"' ? TakeQuoted(word) : TakeBare(word);
        return true;
    }

private:
    void TakeQuoted(std::string& word)
    {
        std::size_t at = 1;
        for (; at < m_text.size() && m_text[at] != '"'; ++at) {
            if (m_text[at] == '\\' && at + 1 < m_text.size()) ++at; // a doubled backslash, a quote
            word += m_text[at];
        }
        m_text.remove_prefix(std::min(at + 1, m_text.size()));
    }

    void TakeBare(std::string& word)
    {
        const std::size_t length = std::min(m_text.find_first_of(" \t\n\""), m_text.size());
        word = m_text.substr(0, length);
        m_text.remove_prefix(length);
    }

    std::string_view m_text;
};

void ReadLink(Words& words, FieldInstruction& instruction)
{
    std::string word;
    while (words.Next(word)) {
        if (word == "\\l" || word == "\\o" || word == "\\t") { // a switch with a text of its own
            if (!words.Next(word)) return;
        } else if (!word.starts_with('\\')) {
            if (IsHarmless(word)) instruction.href = word;
            return;
        }
    }
}

void ReadSymbol(Words& words, FieldInstruction& instruction)
{
    std::string word;
    if (!words.Next(word)) return;
    Long number = 0;
    std::from_chars(word.data(), word.data() + word.size(), number);
    if (number > 0 && number < 256) instruction.symbol = number;
    while (words.Next(word)) {
        if (word == "\\f" && words.Next(word)) instruction.symbolFont = word == "Symbol";
    }
}

} // namespace

bool IsHarmless(std::string_view address)
{
    constexpr std::size_t longest = 4096;
    const auto isControl = [](char sign) { return static_cast<unsigned char>(sign) < 0x20 || sign == 0x7F; };
    if (address.size() > longest || std::ranges::any_of(address, isControl)) return false;
    if (address.starts_with('#')) return true;
    return BeginsWith(address, "http://") || BeginsWith(address, "https://") ||
           BeginsWith(address, "mailto:");
}

FieldInstruction ReadInstruction(std::string_view text)
{
    FieldInstruction instruction;
    Words words(text);
    std::string name;
    if (!words.Next(name)) return instruction;
    if (BeginsWith(name, "hyperlink")) ReadLink(words, instruction);
    if (BeginsWith(name, "symbol")) ReadSymbol(words, instruction);
    return instruction;
}

} // namespace platform::richtext::reader
