#pragma once

#include "platform/base/Errors.h"
#include "platform/base/Numbers.h"

#include <algorithm>
#include <cstddef>
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
        const auto place = Place(key);
        if (place != m_index.end() && place->first == key) {
            throw DuplicateMember(m_name, key);
        }
        m_index.emplace(place, key, m_objects.size());
        return m_objects.emplace_back(std::move(object));
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
        const auto place = Place(key);
        return place != m_index.end() && place->first == key ? &m_objects[place->second] : nullptr;
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
        const auto place = Place(key);
        if (place == m_index.end() || place->first != key) {
            throw MissingMember(m_name, key);
        }
        const std::size_t position = place->second;
        m_index.erase(place);
        m_objects.erase(m_objects.begin() + static_cast<std::ptrdiff_t>(position));
        for (auto& entry : m_index) {
            entry.second -= entry.second > position ? 1 : 0;
        }
    }

    void Reserve(std::size_t count)
    {
        m_objects.reserve(count);
        m_index.reserve(count);
    }
    Long Count() const { return static_cast<Long>(m_objects.size()); }
    bool IsEmpty() const { return m_objects.empty(); }
    auto begin() { return m_objects.begin(); }
    auto end() { return m_objects.end(); }
    auto begin() const { return m_objects.begin(); }
    auto end() const { return m_objects.end(); }

private:
    using Entry = std::pair<Long, std::size_t>;

    auto Place(Long key)
    {
        // Keys mostly come in rising order, so the end is looked at first.
        if (m_index.empty() || m_index.back().first < key) {
            return m_index.end();
        }
        return std::lower_bound(
            m_index.begin(), m_index.end(), key, [](const Entry& entry, Long k) { return entry.first < k; });
    }

    const char* m_name;
    std::vector<Object> m_objects;
    std::vector<Entry> m_index; // rising keys, each with its place in m_objects
};

} // namespace platform
