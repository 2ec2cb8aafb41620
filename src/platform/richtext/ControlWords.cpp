#include "platform/richtext/ControlWords.h"

#include <array>
#include <cassert>

namespace platform::richtext::reader {

namespace {

/// A hash table of fixed size, never more than a quarter full, made once.
class WordTable
{
public:
    WordTable()
    {
        for (const auto words : {CharacterWords(),
                                 ParagraphWords(),
                                 TableWords(),
                                 ListWords(),
                                 PictureWords(),
                                 TextWords(),
                                 DocumentWords()}) {
            for (const ControlWord& word : words)
                Add(word);
        }
    }

    const ControlWord* Find(std::string_view name) const
    {
        for (std::size_t slot = SlotOf(name); m_slots[slot] != nullptr; slot = (slot + 1) % slots) {
            if (m_slots[slot]->name == name) return m_slots[slot];
        }
        return nullptr;
    }

private:
    static constexpr std::size_t slots = 2048;

    static std::size_t SlotOf(std::string_view name)
    {
        std::size_t hash = name.size();
        for (const char letter : name)
            hash = hash * 31 + static_cast<unsigned char>(letter);
        return (hash ^ hash >> 11) % slots;
    }

    void Add(const ControlWord& word)
    {
        std::size_t slot = SlotOf(word.name);
        for (; m_slots[slot] != nullptr; slot = (slot + 1) % slots)
            assert(m_slots[slot]->name != word.name);
        m_slots[slot] = &word;
        assert(++m_count <= slots / 4);
    }

    std::array<const ControlWord*, slots> m_slots{};
    [[maybe_unused]] std::size_t m_count = 0;
};

} // namespace

const ControlWord* FindWord(std::string_view name)
{
    static const WordTable table;
    return table.Find(name);
}

} // namespace platform::richtext::reader
