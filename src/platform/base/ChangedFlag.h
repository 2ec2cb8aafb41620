#pragma once

#include <utility>

namespace platform {

/// Whether an object holds what its row does not. Every write sets it, also of an equal value.
class ChangedFlag
{
public:
    /// Puts the value into the field and sets the flag.
    template <class Field, class Value> void Write(Field& field, Value&& value)
    {
        field = std::forward<Value>(value);
        m_set = true;
    }
    void Set() { m_set = true; }
    void Clear() { m_set = false; }
    bool IsSet() const { return m_set; }

private:
    bool m_set = false;
};

} // namespace platform
