#pragma once

#include "platform/base/Numbers.h"
#include "platform/richtext/RichList.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace platform::richtext::reader {

/// One \listlevel as it is read.
struct LevelEntry
{
    Long numberKind = 0; // \levelnfc: 23 bullet, 255 none, else a number
    Long start = 1;
    std::u32string text; // of \leveltext; bytes as byteMark plus the byte
    Long indentLeft = 0;
    Long indentFirst = 0;
    bool symbolFont = false; // its bytes are signs of a symbol font

    static constexpr char32_t byteMark = 0x110000;

    /// The level of this entry; `place` is its own number from 0, which the text's place holders name.
    ListLevel Level(Long place) const;
};

/// A \pn group: a list told at each of its paragraphs.
struct OldList
{
    ListLevel level;
    Long place = 0; // level from 0
};

/// The level that a marker's text stands for ("1.", "b)", a bullet).
ListLevel LevelOfMarker(std::string_view marker);

/// The style of \levelnfc and \pn numbers.
NumberStyle StyleOf(Long numberKind);

/// What a bullet is shown as: signs of fonts that are not at hand by ones that are.
std::string ShownBullet(char32_t sign, bool symbolFont);

/// The list table and override table of one document.
class ListTables
{
public:
    void BeginList();
    void SetListId(Long id);
    void AddLevel(const LevelEntry& entry);

    void BeginOverride();
    void SetOverriddenId(Long id);
    void SetOverrideNumber(Long number);
    /// Begins the next level of the override; what follows counts for it.
    void BeginOverrideLevel();
    void SetOverrideStart(Long start);
    void AddOverrideLevel(const LevelEntry& entry);

    /// The levels of the list that \ls names, and a number that equal lists share; nothing when there is
    /// none.
    std::optional<std::pair<RichList, Long>> Find(Long number) const;

private:
    struct List
    {
        Long id = 0;
        RichList content;
    };
    struct LevelChange
    {
        std::optional<Long> start;
        std::optional<ListLevel> level;
    };
    struct Override
    {
        Long id = 0;
        std::vector<LevelChange> levels;
    };

    const List* ListOf(const Override& entry, std::size_t place) const;
    static void Apply(const Override& entry, RichList& list);
    LevelChange* BegunLevel();

    std::vector<List> m_lists;
    std::vector<Override> m_overrides;
    std::unordered_map<Long, std::size_t> m_ids;     // place of each list
    std::unordered_map<Long, std::size_t> m_numbers; // place of each override
};

} // namespace platform::richtext::reader
