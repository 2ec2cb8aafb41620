#pragma once

#include "platform/base/Numbers.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vexa_cli {

/// Writes one JSON document into a text. Our own, since a 32-bit float must come out with the fewest digits
/// that give the same 32-bit float back, and JSON libraries widen it to a double first. Keys and values must
/// come in an order that makes sense; it asserts that they do.
class JsonWriter
{
public:
    enum class Layout {
        Pretty,  // a member or element a line
        Compact, // all in one line
    };
    explicit JsonWriter(Layout layout) : m_layout(layout) {}

    void BeginObject() { Begin('{'); }
    void EndObject() { End('}'); }
    void BeginArray() { Begin('['); }
    void EndArray() { End(']'); }
    /// The name of the next value, in an object.
    void Key(std::string_view name);

    void Null() { Raw("null"); }
    void Value(bool value) { Raw(value ? "true" : "false"); }
    void Value(Long value) { Value(std::int64_t{value}); }
    void Value(std::int64_t value);
    /// The fewest digits that give the same float back; what is no finite number becomes null, minus zero 0.
    void Value(Single value);
    void Value(Double value);
    /// Bytes that are no UTF-8 become U+FFFD.
    void Value(std::string_view text);
    void Value(const std::string& text) { Value(std::string_view(text)); }
    void Value(const char* text) { Value(std::string_view(text)); }

    /// The finished document, with a line end. The writer is empty afterwards.
    std::string Take();

private:
    void Begin(char bracket);
    void End(char bracket);
    void Raw(std::string_view text);
    void Text(std::string_view text);
    void NextPlace();
    void NewLine();

    Layout m_layout;
    std::string m_text;
    std::vector<bool> m_hasMembers; // for each object or array that is open
    bool m_afterKey = false;
};

} // namespace vexa_cli
