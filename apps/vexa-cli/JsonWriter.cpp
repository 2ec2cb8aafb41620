#include "vexa-cli/JsonWriter.h"

#include "platform/base/Texts.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <utility>

namespace vexa_cli {

namespace {

/// Beyond these places of the decimal point a figure reads better with an exponent.
constexpr int kLeastPoint = -5;
constexpr int kLargestPoint = 21;

std::string ExponentText(const platform::ShortestDecimal& decimal)
{
    std::string text = decimal.negative ? "-" : "";
    text += decimal.digits.front();
    if (decimal.digits.size() > 1) {
        text += "." + decimal.digits.substr(1);
    }
    return text + "e" + std::to_string(decimal.point - 1);
}

template <class Float> std::string FigureText(Float value)
{
    if (!std::isfinite(value)) {
        return "null"; // JSON has no word for it
    }
    const platform::ShortestDecimal decimal = platform::ShortestDecimalOf(value);
    if (decimal.digits.empty()) {
        return "0"; // minus zero too
    }
    const bool plain = decimal.point >= kLeastPoint && decimal.point <= kLargestPoint;
    return plain ? platform::PlainText(decimal) : ExponentText(decimal);
}

/// Whether a text needs neither escapes nor a look at its bytes, as almost all do.
bool IsPlain(std::string_view text)
{
    return std::all_of(
        text.begin(), text.end(), [](char c) { return c >= ' ' && c < '\x7F' && c != '"' && c != '\\'; });
}

void AppendEscaped(std::string& text, char c)
{
    constexpr std::string_view kNamed = "\"\\\b\f\n\r\t";
    constexpr std::string_view kLetters = "\"\\bfnrt";
    constexpr std::string_view kHex = "0123456789abcdef";
    const auto code = static_cast<unsigned char>(c);
    if (const std::size_t place = kNamed.find(c); place != std::string_view::npos) {
        text += '\\';
        text += kLetters[place];
    } else if (code < 0x20 || code == 0x7F) {
        text += "\\u00";
        text += kHex[code >> 4U];
        text += kHex[code & 0xFU];
    } else {
        text += c;
    }
}

} // namespace

void JsonWriter::Key(std::string_view name)
{
    assert(!m_hasMembers.empty() && !m_afterKey);
    NextPlace();
    Text(name);
    m_text += m_layout == Layout::Pretty ? ": " : ":";
    m_afterKey = true;
}

void JsonWriter::Value(std::int64_t value) { Raw(std::to_string(value)); }

void JsonWriter::Value(Single value) { Raw(FigureText(value)); }

void JsonWriter::Value(Double value) { Raw(FigureText(value)); }

void JsonWriter::Value(std::string_view text)
{
    NextPlace();
    Text(text);
}

std::string JsonWriter::Take()
{
    assert(m_hasMembers.empty());
    m_text += '\n';
    return std::exchange(m_text, std::string());
}

void JsonWriter::Begin(char bracket)
{
    Raw(std::string_view(&bracket, 1));
    m_hasMembers.push_back(false);
}

void JsonWriter::End(char bracket)
{
    assert(!m_hasMembers.empty() && !m_afterKey);
    const bool hadMembers = m_hasMembers.back();
    m_hasMembers.pop_back();
    if (hadMembers) {
        NewLine();
    }
    m_text += bracket;
}

void JsonWriter::Raw(std::string_view text)
{
    NextPlace();
    m_text += text;
}

void JsonWriter::Text(std::string_view text)
{
    m_text += '"';
    if (IsPlain(text)) {
        m_text += text;
    } else {
        for (const char c : platform::ValidUtf8(text)) {
            AppendEscaped(m_text, c);
        }
    }
    m_text += '"';
}

/// What goes between the text so far and the next key or value.
void JsonWriter::NextPlace()
{
    if (std::exchange(m_afterKey, false) || m_hasMembers.empty()) {
        return;
    }
    if (m_hasMembers.back()) {
        m_text += ',';
    }
    m_hasMembers.back() = true;
    NewLine();
}

void JsonWriter::NewLine()
{
    if (m_layout == Layout::Pretty) {
        m_text += '\n';
        m_text.append(m_hasMembers.size() * 2, ' ');
    }
}

} // namespace vexa_cli
