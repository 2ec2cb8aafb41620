#include "platform/spelling/Words.h"

#include "platform/base/Texts.h"

#include <algorithm>
#include <cstdint>

namespace platform {

namespace {

enum class Kind {
    Latin,   // a letter that words are made of
    Other,   // a digit, an underscore, a letter of another script: such a word is not checked
    Joiner,  // an apostrophe: part of a word between two letters
    Hyphen,  // parts a word that may also be one
    Point,   // part of a word between single letters, which is an abbreviation then
    Breaker, // all else
    Blank
};

struct Character
{
    Kind kind = Kind::Blank;
    std::size_t start = 0;
    std::size_t length = 0;
};

struct Stretch
{
    char32_t first;
    char32_t last;
    Kind kind;
};

// Above ASCII. The first that holds a character decides; what none holds is Other.
constexpr Stretch kStretches[] = {
    {0x80, 0x9F, Kind::Breaker},     {0xA0, 0xA0, Kind::Blank},       {0xA1, 0xA9, Kind::Breaker},
    {0xAA, 0xAA, Kind::Latin},       {0xAB, 0xB9, Kind::Breaker},     {0xBA, 0xBA, Kind::Latin},
    {0xBB, 0xBF, Kind::Breaker},     {0xC0, 0xD6, Kind::Latin},       {0xD7, 0xD7, Kind::Breaker},
    {0xD8, 0xF6, Kind::Latin},       {0xF7, 0xF7, Kind::Breaker},     {0xF8, 0x24F, Kind::Latin},
    {0x2BC, 0x2BC, Kind::Joiner},    {0x300, 0x36F, Kind::Latin},     {0x1E00, 0x1EFF, Kind::Latin},
    {0x2000, 0x200A, Kind::Blank},   {0x2010, 0x2011, Kind::Hyphen},  {0x2019, 0x2019, Kind::Joiner},
    {0x2028, 0x2029, Kind::Blank},   {0x202F, 0x202F, Kind::Blank},   {0x200B, 0x2BFF, Kind::Breaker},
    {0x3000, 0x3000, Kind::Blank},   {0x3001, 0x303F, Kind::Breaker}, {0xE000, 0xF8FF, Kind::Breaker},
    {0xFE00, 0xFE6F, Kind::Breaker}, {0xFFF0, 0xFFFF, Kind::Breaker}, {0x1F000, 0x1FAFF, Kind::Breaker},
};

Kind KindOfAscii(char32_t c)
{
    if ((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z')) return Kind::Latin;
    if ((c >= '0' && c <= '9') || c == '_') return Kind::Other;
    if (c == '\'') return Kind::Joiner;
    if (c == '-') return Kind::Hyphen;
    if (c == '.') return Kind::Point;
    return c <= ' ' ? Kind::Blank : Kind::Breaker;
}

Kind KindOf(char32_t c)
{
    if (c < 0x80) return KindOfAscii(c);
    const auto* found = std::find_if(std::begin(kStretches), std::end(kStretches), [c](const Stretch& s) {
        return s.first <= c && c <= s.last;
    });
    return found == std::end(kStretches) ? Kind::Other : found->kind;
}

char32_t CodeOf(std::string_view bytes)
{
    const auto byte = [&](std::size_t i) { return static_cast<std::uint8_t>(bytes[i]); };
    if (bytes.size() == 1) return byte(0);
    char32_t code = byte(0) & (0xFFU >> (bytes.size() + 1));
    for (std::size_t i = 1; i < bytes.size(); ++i)
        code = (code << 6U) | (byte(i) & 0x3FU);
    return code;
}

/// How many bytes the character at the front takes, by its lead; text is UTF-8 throughout.
std::size_t LengthAt(std::string_view text)
{
    const auto lead = static_cast<std::uint8_t>(text.front());
    return lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
}

/// The characters of a text that is UTF-8, with a blank behind the last one.
std::vector<Character> CharactersOf(std::string_view text)
{
    std::vector<Character> characters;
    characters.reserve(text.size() + 1);
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t length = LengthAt(text.substr(at));
        characters.push_back({KindOf(CodeOf(text.substr(at, length))), at, length});
        at += length;
    }
    characters.push_back({Kind::Blank, text.size(), 0});
    return characters;
}

bool IsAddress(std::string_view token)
{
    return token.find("://") != std::string_view::npos || token.find('@') != std::string_view::npos ||
           token.substr(0, 4) == "www." || token.substr(0, 4) == "WWW.";
}

/// Walks the characters of one text.
class WordFinder
{
public:
    explicit WordFinder(std::string_view text) : m_text(text), m_characters(CharactersOf(text)) {}

    std::vector<WordPlace> Find()
    {
        while (m_at < m_characters.size()) {
            if (BeginsToken() && IsAddress(Token())) {
                SkipToken();
            } else if (IsLetter(m_at)) {
                TakeWord();
            } else {
                ++m_at;
            }
        }
        return std::move(m_words);
    }

private:
    Kind KindAt(std::size_t i) const { return i < m_characters.size() ? m_characters[i].kind : Kind::Blank; }
    bool IsLetter(std::size_t i) const { return KindAt(i) == Kind::Latin || KindAt(i) == Kind::Other; }
    bool BeginsToken() const
    {
        return KindAt(m_at) != Kind::Blank && (m_at == 0 || KindAt(m_at - 1) == Kind::Blank);
    }
    std::size_t EndOfToken() const
    {
        std::size_t end = m_at;
        while (KindAt(end) != Kind::Blank)
            ++end;
        return end;
    }
    std::string_view Token() const
    {
        const std::size_t start = m_characters[m_at].start;
        return m_text.substr(start, m_characters[EndOfToken()].start - start);
    }
    void SkipToken() { m_at = EndOfToken(); }

    /// Whether the character belongs to the word that the letter before it is in.
    bool Continues(std::size_t i) const
    {
        if (IsLetter(i)) return true;
        if (!IsLetter(i - 1) || !IsLetter(i + 1)) return false;
        if (KindAt(i) == Kind::Point) return IsSingle(i - 1) && IsSingle(i + 1);
        return KindAt(i) == Kind::Joiner || KindAt(i) == Kind::Hyphen;
    }
    bool IsSingle(std::size_t i) const
    {
        const bool alone = i == 0 || !(IsLetter(i - 1) || KindAt(i - 1) == Kind::Joiner);
        return alone && !IsLetter(i + 1);
    }
    void TakeWord()
    {
        const std::size_t first = m_at;
        bool checked = true;
        while (m_at < m_characters.size() && (m_at == first || Continues(m_at))) {
            checked = checked && KindAt(m_at) != Kind::Other && KindAt(m_at) != Kind::Point;
            ++m_at;
        }
        const std::size_t start = m_characters[first].start;
        if (checked) m_words.push_back({start, m_characters[m_at].start - start});
    }

    std::string_view m_text;
    std::vector<Character> m_characters;
    std::size_t m_at = 0;
    std::vector<WordPlace> m_words;
};

/// A text of the same length in which every byte that is no UTF-8 is a blank.
std::string WithoutStrayBytes(std::string_view text)
{
    std::string clean;
    clean.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const std::string character = Left(text.substr(at), 1);
        const bool stray = character.size() == 1 && static_cast<std::uint8_t>(character.front()) >= 0x80;
        clean += stray ? " " : character;
        at += character.size();
    }
    return clean;
}

} // namespace

std::vector<WordPlace> WordsOf(std::string_view text) { return WordFinder(WithoutStrayBytes(text)).Find(); }

std::vector<WordPlace> PartsOf(std::string_view word)
{
    std::vector<WordPlace> parts;
    std::size_t start = 0;
    for (const Character& character : CharactersOf(word)) {
        const bool last = character.start == word.size();
        if (!last && character.kind != Kind::Hyphen) continue;
        parts.push_back({start, character.start - start});
        start = character.start + character.length;
    }
    return parts;
}

std::string PlainWord(std::string_view word)
{
    std::string plain;
    for (const Character& character : CharactersOf(word)) {
        if (character.kind == Kind::Joiner) {
            plain += '\'';
        } else if (character.kind == Kind::Hyphen) {
            plain += '-';
        } else {
            plain += word.substr(character.start, character.length);
        }
    }
    return plain;
}

} // namespace platform
