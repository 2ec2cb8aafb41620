#pragma once

#include "platform/base/Errors.h"
#include "platform/base/Numbers.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace platform {

/// Objects in the order they were added, each under the letter k and its key ("k7").
/// Positions count from 1. A failure names the collection and the key.
template <class Object> class Collection
{
public:
    /// `name` says in error texts what this is a collection of; it must outlive the collection.
    explicit Collection(const char* name) : m_name(name) {}

    /// Appends; throws DuplicateMember when the key is taken. References to members end here.
    Object& Add(Long key, Object object)
    {
        if (Find(key) != nullptr) {
            throw DuplicateMember(m_name, key);
        }
        m_keys.push_back(key);
        m_objects.push_back(std::move(object));
        if (m_slots.size() < 2 * m_keys.size()) {
            Reindex();
        } else {
            m_slots[SlotOf(key)] = static_cast<std::uint32_t>(m_keys.size());
        }
        return m_objects.back();
    }

    /// The member under the key; throws MissingMember.
    Object& Member(Long key)
    {
        Object* found = Find(key);
        if (found == nullptr) {
            throw MissingMember(m_name, key);
        }
        return *found;
    }
    const Object& Member(Long key) const { return const_cast<Collection*>(this)->Member(key); }

    /// The member under the key, or nothing.
    Object* Find(Long key)
    {
        const std::uint32_t place = m_slots.empty() ? 0 : m_slots[SlotOf(key)];
        return place == 0 ? nullptr : &m_objects[place - 1];
    }
    const Object* Find(Long key) const { return const_cast<Collection*>(this)->Find(key); }

    /// The member at a position from 1; throws OutOfBounds.
    Object& At(Long position)
    {
        if (position < 1 || position > Count()) {
            throw OutOfBounds(m_name, position);
        }
        return m_objects[static_cast<std::size_t>(position) - 1];
    }
    const Object& At(Long position) const { return const_cast<Collection*>(this)->At(position); }

    /// Takes the member away; throws MissingMember.
    void Remove(Long key)
    {
        const auto place = &Member(key) - m_objects.data();
        m_objects.erase(m_objects.begin() + place);
        m_keys.erase(m_keys.begin() + place);
        Reindex();
    }

    void Reserve(std::size_t count)
    {
        m_objects.reserve(count);
        m_keys.reserve(count);
    }
    Long Count() const { return static_cast<Long>(m_objects.size()); }
    bool IsEmpty() const { return m_objects.empty(); }
    auto begin() { return m_objects.begin(); }
    auto end() { return m_objects.end(); }
    auto begin() const { return m_objects.begin(); }
    auto end() const { return m_objects.end(); }

private:
    /// Where the key stands in the index, or would stand. The index is never full.
    std::size_t SlotOf(Long key) const
    {
        constexpr std::uint64_t kSpread = 0x9E3779B97F4A7C15; // two to the power of 64 by the golden ratio
        const std::size_t mask = m_slots.size() - 1;
        std::size_t slot = (static_cast<std::uint64_t>(key) * kSpread >> 32) & mask;
        while (m_slots[slot] != 0 && m_keys[m_slots[slot] - 1] != key) {
            slot = (slot + 1) & mask;
        }
        return slot;
    }

    /// Makes the index anew, a quarter to half full.
    void Reindex()
    {
        m_slots.assign(std::bit_ceil(4 * m_keys.size()), 0);
        for (std::size_t place = 0; place < m_keys.size(); ++place) {
            m_slots[SlotOf(m_keys[place])] = static_cast<std::uint32_t>(place + 1);
        }
    }

    const char* m_name;
    std::vector<Object> m_objects;
    std::vector<Long> m_keys;           // of the objects, place by place
    std::vector<std::uint32_t> m_slots; // each the place from 1 of a key, 0 where it is free
};

} // namespace platform
