#include "platform/richtext/ReaderLists.h"

#include "platform/richtext/CodePages.h"

#include <algorithm>
#include <charconv>

namespace platform::richtext::reader {

namespace {

constexpr std::size_t maxLists = 4096;
constexpr Long bulletKind = 23;
constexpr Long noMarkerKind = 255;
constexpr Long largestStart = 32767;

bool IsDigit(char sign) { return sign >= '0' && sign <= '9'; }

bool IsLetter(char sign) { return (sign >= 'a' && sign <= 'z') || (sign >= 'A' && sign <= 'Z'); }

char32_t CharacterOf(char32_t entry)
{
    if (entry < LevelEntry::byteMark) return entry;
    return WesternCharacter(static_cast<unsigned char>(entry - LevelEntry::byteMark));
}

/// The place holder of a level's number: a byte 0 to 8, however it was written.
bool IsPlaceHolder(char32_t entry) { return CharacterOf(entry) < static_cast<char32_t>(maxListLevels); }

std::string TextOf(std::u32string_view entries)
{
    std::string text;
    for (const char32_t entry : entries) {
        if (!IsPlaceHolder(entry) && CharacterOf(entry) >= 0x20) AppendUtf8(text, CharacterOf(entry));
    }
    return text;
}

/// The text without the length in front of it and the ';' behind it.
std::u32string_view Content(const std::u32string& text)
{
    std::u32string_view content = text;
    if (content.ends_with(U';')) content.remove_suffix(1);
    if (!content.empty()) content.remove_prefix(1);
    return content;
}

void SetNumberTexts(ListLevel& level, std::u32string_view content, Long place)
{
    const auto isOwn = [&](char32_t entry) { return CharacterOf(entry) == static_cast<char32_t>(place); };
    const auto found = std::ranges::find_if(content, isOwn);
    if (found == content.end()) { // a text without its number tells nothing of how numbers look
        level.textAfter = ".";
        return;
    }
    const auto at = static_cast<std::size_t>(found - content.begin());
    std::size_t from = at; // what stands before the numbers of higher levels is dropped with them
    while (from > 0 && !IsPlaceHolder(content[from - 1]))
        --from;
    level.textBefore = TextOf(content.substr(from, at - from));
    if (from > 0) level.textBefore.clear();
    level.textAfter = TextOf(content.substr(at + 1));
}

bool IsRoman(std::string_view letters) { return letters.size() > 1 || letters == "i" || letters == "I"; }

NumberStyle StyleOfLetters(std::string_view letters)
{
    const bool upper = letters.front() <= 'Z';
    if (IsRoman(letters)) return upper ? NumberStyle::UpperRoman : NumberStyle::LowerRoman;
    return upper ? NumberStyle::UpperLetter : NumberStyle::LowerLetter;
}

void MakeNumber(ListLevel& level, std::string_view before, std::string_view number, std::string_view after)
{
    level.kind = ListKind::Number;
    level.bullet.clear();
    level.textBefore = before;
    level.textAfter = after;
    if (IsLetter(number.front())) {
        level.style = StyleOfLetters(number);
    } else {
        std::from_chars(number.data(), number.data() + number.size(), level.start);
        level.start = std::clamp<Long>(level.start, 0, largestStart);
    }
}

std::string_view Trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(" \t\n");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t\n") - first + 1);
}

std::string BulletOf(char32_t entry, bool symbolFont)
{
    const bool isSign = symbolFont && entry >= LevelEntry::byteMark;
    return isSign ? ShownBullet(entry - LevelEntry::byteMark, true) : ShownBullet(CharacterOf(entry), false);
}

} // namespace

NumberStyle StyleOf(Long numberKind)
{
    switch (numberKind) {
    case 1: return NumberStyle::UpperRoman;
    case 2: return NumberStyle::LowerRoman;
    case 3: return NumberStyle::UpperLetter;
    case 4: return NumberStyle::LowerLetter;
    default: return NumberStyle::Arabic;
    }
}

std::string ShownBullet(char32_t sign, bool symbolFont)
{
    if (sign >= 0xF000 && sign < 0xF100) {
        symbolFont = true;
        sign -= 0xF000;
    }
    constexpr std::pair<char32_t, char32_t> signs[] = {{0xA7, 0x25AA},
                                                       {0x6E, 0x25A0},
                                                       {0xA8, 0x25FB},
                                                       {0xD8, 0x27A2},
                                                       {0xFC, 0x2713},
                                                       {0x76, 0x2756},
                                                       {0x2D, 0x2013}};
    constexpr char32_t plainBullet = 0x2022;
    const auto* found = std::ranges::find(signs, sign, &std::pair<char32_t, char32_t>::first);
    if (symbolFont) sign = found == std::end(signs) ? plainBullet : found->second;
    if (sign <= 0x20 || sign == 0xB7) sign = plainBullet; // a middle dot is the bullet of the font "Symbol"
    std::string text;
    AppendUtf8(text, sign);
    return text;
}

ListLevel LevelEntry::Level(Long place) const
{
    ListLevel level;
    level.indentLeft = indentLeft;
    level.indentFirst = indentFirst;
    const std::u32string_view content = Content(text);
    if (numberKind == bulletKind) {
        level.bullet = content.empty() ? ShownBullet(U' ', false) : BulletOf(content.front(), symbolFont);
        return level;
    }
    level.bullet.clear();
    const bool isBlank = !text.empty() && content.empty();
    level.kind = numberKind == noMarkerKind || isBlank ? ListKind::None : ListKind::Number;
    if (level.kind == ListKind::None) return level;
    level.style = StyleOf(numberKind);
    level.start = std::clamp<Long>(start, 0, largestStart);
    SetNumberTexts(level, content, place);
    return level;
}

ListLevel LevelOfMarker(std::string_view marker)
{
    marker = Trimmed(marker);
    ListLevel level;
    const std::size_t begin = marker.starts_with('(') ? 1 : 0;
    std::size_t end = begin;
    if (end < marker.size() && IsDigit(marker[end])) {
        while (end < marker.size() && IsDigit(marker[end]))
            ++end;
    } else {
        while (end < marker.size() && IsLetter(marker[end]))
            ++end;
    }
    const std::string_view rest = marker.substr(end);
    const std::string_view after = rest.substr(0, rest.find_first_of(" \t\n"));
    const bool closes = after.starts_with('.') || after.starts_with(')');
    const bool isNumber = end > begin && (closes || IsDigit(marker[begin]));
    if (!isNumber && !marker.empty()) level.bullet = ShownBullet(TakeCharacter(marker), false);
    if (isNumber) MakeNumber(level, marker.substr(0, begin), marker.substr(begin, end - begin), after);
    return level;
}

void ListTables::BeginList()
{
    if (m_lists.size() < maxLists) m_lists.emplace_back();
}

void ListTables::SetListId(Long id)
{
    if (m_lists.empty()) return;
    m_lists.back().id = id;
    m_ids.try_emplace(id, m_lists.size() - 1);
}

void ListTables::AddLevel(const LevelEntry& entry)
{
    if (m_lists.empty()) return;
    std::vector<ListLevel>& levels = m_lists.back().content.levels;
    if (levels.size() < static_cast<std::size_t>(maxListLevels)) {
        levels.push_back(entry.Level(static_cast<Long>(levels.size())));
    }
}

void ListTables::BeginOverride()
{
    if (m_overrides.size() < maxLists) m_overrides.emplace_back();
}

void ListTables::SetOverriddenId(Long id)
{
    if (!m_overrides.empty()) m_overrides.back().id = id;
}

void ListTables::SetOverrideNumber(Long number)
{
    if (!m_overrides.empty()) m_numbers.try_emplace(number, m_overrides.size() - 1);
}

void ListTables::BeginOverrideLevel()
{
    if (m_overrides.empty()) return;
    std::vector<LevelChange>& levels = m_overrides.back().levels;
    if (levels.size() < static_cast<std::size_t>(maxListLevels)) levels.emplace_back();
}

ListTables::LevelChange* ListTables::BegunLevel()
{
    const bool isThere = !m_overrides.empty() && !m_overrides.back().levels.empty();
    return isThere ? &m_overrides.back().levels.back() : nullptr;
}

void ListTables::SetOverrideStart(Long start)
{
    if (LevelChange* change = BegunLevel()) change->start = std::clamp<Long>(start, 0, largestStart);
}

void ListTables::AddOverrideLevel(const LevelEntry& entry)
{
    LevelChange* change = BegunLevel();
    if (change == nullptr) return;
    change->level = entry.Level(static_cast<Long>(m_overrides.back().levels.size()) - 1);
}

const ListTables::List* ListTables::ListOf(const Override& entry, std::size_t place) const
{
    const auto found = m_ids.find(entry.id);
    if (found != m_ids.end()) return &m_lists[found->second];
    return place < m_lists.size() ? &m_lists[place] : nullptr; // a missing list: the one at the same place
}

void ListTables::Apply(const Override& entry, RichList& list)
{
    const std::size_t count = std::min(entry.levels.size(), list.levels.size());
    for (std::size_t place = 0; place < count; ++place) {
        const LevelChange& change = entry.levels[place];
        ListLevel& level = list.levels[place];
        if (change.level) level = *change.level;
        if (change.start && level.kind == ListKind::Number) level.start = *change.start;
    }
}

std::optional<std::pair<RichList, Long>> ListTables::Find(Long number) const
{
    const auto found = m_numbers.find(number);
    if (found == m_numbers.end()) return std::nullopt;
    const Override& entry = m_overrides[found->second];
    const List* list = ListOf(entry, found->second);
    if (list == nullptr || list->content.levels.empty()) return std::nullopt;
    RichList content = list->content;
    Apply(entry, content);
    // Overrides without changes count on in one list; one with changes is a list of its own.
    const Long shared = -1 - static_cast<Long>(list - m_lists.data());
    return std::pair(std::move(content), entry.levels.empty() ? shared : number);
}

} // namespace platform::richtext::reader
