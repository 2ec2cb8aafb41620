#pragma once

#include <functional>
#include <string>

namespace platform {

/// A text that may be made only when somebody reads it. Where it costs much to make, a change hands over its
/// maker, and many changes cost no more than one.
class LateText
{
public:
    using Maker = std::function<std::string()>;

    LateText& operator=(const std::string& text)
    {
        m_maker = nullptr;
        m_text = text;
        return *this;
    }
    /// Called at most once, at the first read. What it needs must live until then.
    LateText& operator=(Maker maker)
    {
        m_maker = std::move(maker);
        return *this;
    }
    /// Throws what the maker throws; the next read then asks it again.
    const std::string& Read() const
    {
        if (m_maker) {
            m_text = m_maker();
            m_maker = nullptr;
        }
        return m_text;
    }

private:
    mutable std::string m_text;
    mutable Maker m_maker; // nothing: the text stands
};

} // namespace platform
