#include "platform/richtext/Parser.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace platform::richtext::reader {

namespace {

LineSpacing LineSpacingOf(const ParagraphState& state)
{
    const Long value = std::abs(state.lineSpacing);
    if (value == 0) return {};
    if (state.multiple) return {LineSpacingRule::Multiple, value};
    return {state.lineSpacing > 0 ? LineSpacingRule::AtLeast : LineSpacingRule::Exactly, value};
}

Long IndentOf(Long logical, Long physical)
{
    return logical != ParagraphState::noIndent ? logical : physical;
}

/// Whether two levels are marked alike, whatever their indents and first numbers.
bool LooksAlike(const ListLevel& a, const ListLevel& b)
{
    return a.kind == b.kind && a.style == b.style && a.bullet == b.bullet && a.textBefore == b.textBefore &&
           a.textAfter == b.textAfter;
}

/// The marker of a list item ends at its left indent: a plain stop there tells nothing more.
void DropMarkerStop(ParagraphFormat& format)
{
    const bool hangs = format.indentFirst < 0 && format.indentLeft > 0;
    if (format.list != 0 && hangs) std::erase(format.tabs, TabStop{format.indentLeft});
}

/// The level of a \pn group as a list has it.
ListLevel SettledLevel(ListLevel level, const ParagraphFormat& format)
{
    level.indentLeft = format.indentLeft;
    level.indentFirst = format.indentFirst;
    const std::string before = std::exchange(level.textBefore, {});
    const std::string after = std::exchange(level.textAfter, {});
    level.bullet.clear();
    if (level.kind != ListKind::Number) {
        level.style = NumberStyle::Arabic;
        level.start = 1;
    }
    std::string_view sign = before;
    if (level.kind == ListKind::Bullet)
        level.bullet = ShownBullet(sign.empty() ? U' ' : TakeCharacter(sign), false);
    if (level.kind != ListKind::Number) return level;
    level.textBefore = before;
    level.textAfter = after;
    return level;
}

/// Makes sure that a list has a level; those missing look like the one above or, at first, like `first`.
void EnsureLevel(RichList& list, Long place, const ListLevel& first)
{
    while (static_cast<Long>(list.levels.size()) <= place) {
        list.levels.push_back(list.levels.empty() ? first : list.levels.back());
    }
}

} // namespace

void Parser::ResetCharacters()
{
    CharacterState plain;
    plain.href = Character().href;
    plain.deleted = Character().deleted;
    if (m_tables.size() == 1) plain.halfPoints = m_groups.front().character.halfPoints;
    Character() = plain;
}

const CharacterFormat& Parser::FormatInForce()
{
    static const CharacterFormat usual;
    if (!WantsLooks()) return usual;
    if (m_formatSerial != Tables().serial || m_formatState != Character()) {
        m_formatSerial = Tables().serial;
        m_formatState = Character();
        m_format = MakeCharacterFormat();
    }
    return m_format;
}

CharacterFormat Parser::MakeCharacterFormat()
{
    const CharacterState& state = Character();
    CharacterFormat format;
    if (!FontName().empty()) format.font = FontName();
    format.halfPoints = state.halfPoints;
    format.bold = state.bold;
    format.italic = state.italic;
    format.strike = state.strike;
    format.underline = state.underline;
    format.capitals = state.capitals;
    format.position = state.position;
    format.color = ColorOf(state.color);
    format.background = ColorOf(state.background);
    if (state.href > 0) format.href = m_links[static_cast<std::size_t>(state.href) - 1];
    return format;
}

/// Gives the paragraph that ends the properties in force.
void Parser::FormatParagraph()
{
    if (WantsLooks()) {
        Paragraph& paragraph = m_builder.Current();
        paragraph.format = MakeParagraphFormat();
        if (paragraph.runs.empty()) {
            paragraph.emptyFormat = FormatInForce();
            paragraph.emptyFormat.href.clear();
        }
    }
    m_marker.clear();
}

ParagraphFormat Parser::MakeParagraphFormat()
{
    const ParagraphState& state = Properties();
    ParagraphFormat format;
    format.alignment = state.alignment;
    format.indentLeft = IndentOf(state.logicalLeft, state.left);
    format.indentRight = IndentOf(state.logicalRight, state.right);
    format.indentFirst = state.first;
    format.spaceBefore = state.before;
    format.spaceAfter = state.after;
    format.lineSpacing = LineSpacingOf(state);
    if (state.tabs != nullptr) format.tabs = *state.tabs;
    format.background = ColorOf(state.background);
    format.keepTogether = state.keepTogether;
    format.keepWithNext = state.keepWithNext;
    format.pageBreakBefore = state.pageBreakBefore;
    SetList(format);
    DropMarkerStop(format);
    return format;
}

void Parser::SetList(ParagraphFormat& format)
{
    const ParagraphState& state = Properties();
    const bool isOld = state.list <= 0 && state.oldList != noNumber;
    if (!isOld) m_oldList = 0;
    if (state.list > 0) {
        format.level = std::clamp<Long>(state.level, 0, maxListLevels - 1);
        format.list = TableList(state.list, format);
    } else if (isOld) {
        const OldList& list = m_oldLists[static_cast<std::size_t>(state.oldList)];
        format.level = list.place;
        format.list = OldListNumber(list, format);
    }
    if (format.list == 0) format.level = 0;
}

/// The number in the document of the list that \ls names.
Long Parser::TableList(Long number, const ParagraphFormat& format)
{
    const auto [entry, isNew] = m_lists.try_emplace({Tables().serial, number}, 0);
    if (isNew) entry->second = FindList(number);
    if (entry->second == 0) return 0;
    RichList& list = m_builder.Document().lists[static_cast<std::size_t>(entry->second) - 1];
    if (static_cast<Long>(list.levels.size()) <= format.level)
        EnsureLevel(list, format.level, UntoldLevel(format));
    return entry->second;
}

/// The list of the tables that \ls names, or an empty one.
Long Parser::FindList(Long number)
{
    auto found = Tables().lists.Find(number);
    if (!found) return NewList(RichList());
    const auto [shared, isNew] = m_lists.try_emplace({Tables().serial, found->second}, 0);
    if (shared->second == 0) shared->second = NewList(std::move(found->first));
    return shared->second;
}

/// How a list that no table tells of is marked: as the \pn group or the text of the marker says.
ListLevel Parser::UntoldLevel(const ParagraphFormat& format)
{
    const Long old = Properties().oldList;
    const ListLevel level =
        old != noNumber ? m_oldLists[static_cast<std::size_t>(old)].level : LevelOfMarker(m_marker);
    return old != noNumber ? SettledLevel(level, format) : level;
}

/// The number in the document of the list that an old paragraph is in: the one before it, as long as they
/// agree.
Long Parser::OldListNumber(const OldList& list, const ParagraphFormat& format)
{
    const ListLevel level = SettledLevel(list.level, format);
    const unsigned bit = 1u << list.place;
    const auto place = static_cast<std::size_t>(list.place);
    std::vector<RichList>& lists = m_builder.Document().lists;
    if (m_oldList != 0) {
        const RichList& before = lists[static_cast<std::size_t>(m_oldList) - 1];
        if ((m_oldListLevels & bit) != 0 && !LooksAlike(before.levels[place], level)) m_oldList = 0;
    }
    if (m_oldList == 0) {
        m_oldList = NewList(RichList());
        m_oldListLevels = 0;
        if (m_oldList == 0) return 0;
    }
    RichList& own = lists[static_cast<std::size_t>(m_oldList) - 1];
    EnsureLevel(own, list.place, level);
    if ((m_oldListLevels & bit) == 0) own.levels[place] = level;
    m_oldListLevels |= bit;
    return m_oldList;
}

/// The number of one more list of the document; 0 when it has too many.
Long Parser::NewList(RichList list)
{
    constexpr std::size_t maxLists = 4096;
    if (m_builder.Document().lists.size() >= maxLists) return 0;
    m_builder.Document().lists.push_back(std::move(list));
    return static_cast<Long>(m_builder.Document().lists.size());
}

} // namespace platform::richtext::reader
