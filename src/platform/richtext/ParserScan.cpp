#include "platform/base/Texts.h"
#include "platform/richtext/Parser.h"

#include <algorithm>
#include <array>
#include <limits>

namespace platform::richtext::reader {

namespace {

enum Class : unsigned char {
    plain,
    high, // beyond ASCII
    lineEnd,
    nothing, // control characters
    backslash,
    opening,
    closing
};

constexpr std::array<Class, 256> MakeClasses()
{
    std::array<Class, 256> classes{};
    for (std::size_t byte = 0; byte < 0x20; ++byte)
        classes[byte] = nothing;
    for (std::size_t byte = 0x80; byte < 256; ++byte)
        classes[byte] = high;
    classes[0x7F] = nothing;
    classes['\t'] = plain;
    classes['\r'] = classes['\n'] = lineEnd;
    classes['\\'] = backslash;
    classes['{'] = opening;
    classes['}'] = closing;
    return classes;
}

constexpr std::array<Class, 256> classes = MakeClasses();

Class ClassOf(char sign) { return classes[static_cast<unsigned char>(sign)]; }

bool IsLetter(char sign) { return static_cast<unsigned char>((sign | 0x20) - 'a') < 26; }

bool IsDigit(char sign) { return static_cast<unsigned char>(sign - '0') < 10; }

int HexValue(char sign)
{
    if (IsDigit(sign)) return sign - '0';
    const char lower = static_cast<char>(sign | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

bool IsBlank(char sign)
{
    return sign == ' ' || sign == '\t' || sign == '\r' || sign == '\n' || sign == '\0';
}

/// How many bytes the first `count` characters of UTF-8 text are; `count` becomes those that are missing.
std::size_t BytesOfCharacters(std::string_view text, Long& count)
{
    std::size_t at = 0;
    for (; count > 0 && at < text.size(); --count) {
        ++at;
        while (at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80)
            ++at;
    }
    return at;
}

} // namespace

void Parser::Scan(std::string_view text)
{
    m_at = text.data();
    m_end = text.data() + text.size();
    const std::size_t last = text.find_last_of("{\\");
    m_lastSpecial = last == std::string_view::npos ? nullptr : m_at + last;
    while (m_at < m_end) {
        switch (ClassOf(*m_at)) {
        case plain:
        case high: ScanText(); break;
        case lineEnd: ScanLineEnd(); break;
        case nothing: ++m_at; break;
        case backslash: ScanBackslash(); break;
        case opening: OpenGroup(); break;
        case closing: CloseGroup(); break;
        }
    }
    CloseAllGroups();
}

void Parser::ScanText()
{
    const char* begin = m_at;
    unsigned seen = plain;
    while (m_at < m_end && ClassOf(*m_at) <= high)
        seen |= ClassOf(*m_at++);
    std::string_view text(begin, static_cast<std::size_t>(m_at - begin));
    if (m_skip > 0) PassOver(text);
    if (text.empty()) return;
    m_groupBegins = m_starred = false;
    if (m_behindDocument && IsOutside()) {
        if (std::ranges::all_of(text, IsBlank)) return;
        m_behindDocument = false;
    }
    if ((seen & high) == 0) return DeliverPlain(text);
    m_source == Source::Body ? DeliverPlain(ValidUtf8(text)) : DeliverBytes(text);
}

/// Takes from the front of a text what stands for a \u character.
void Parser::PassOver(std::string_view& text)
{
    if (m_source == Source::Body) return text.remove_prefix(BytesOfCharacters(text, m_skip));
    const std::size_t bytes = std::min(text.size(), static_cast<std::size_t>(m_skip));
    m_skip -= static_cast<Long>(bytes);
    text.remove_prefix(bytes);
}

void Parser::DeliverBytes(std::string_view text)
{
    while (!text.empty()) {
        const auto ascii = static_cast<std::size_t>(
            std::ranges::find_if(text, [](char sign) { return ClassOf(sign) == high; }) - text.begin());
        if (ascii > 0) DeliverPlain(text.substr(0, ascii));
        text.remove_prefix(ascii);
        if (text.empty()) return;
        DeliverByte(static_cast<unsigned char>(text.front()));
        text.remove_prefix(1);
    }
}

// A line end is nothing in a group; outside it ends a line of the print control's text.
void Parser::ScanLineEnd()
{
    const bool isPair = *m_at == '\r' && m_at + 1 < m_end && m_at[1] == '\n';
    m_at += isPair ? 2 : 1;
    if (m_inPart && IsOutside() && !m_behindDocument) EndParagraph();
}

void Parser::ScanBackslash()
{
    ++m_at;
    if (m_at == m_end) return;
    m_behindDocument = false;
    if (IsLetter(*m_at)) return ScanWord();
    if (ClassOf(*m_at) == high) return; // the backslash alone means nothing
    const char sign = *m_at++;
    if (sign == '\'') return ScanHex();
    if (m_skip > 0) {
        --m_skip;
        return;
    }
    ScanSymbol(sign);
}

std::string_view Parser::TakeLetters()
{
    constexpr std::ptrdiff_t longest = 32;
    const char* begin = m_at;
    const char* limit = m_end - m_at > longest ? m_at + longest : m_end;
    while (m_at < limit && IsLetter(*m_at))
        ++m_at;
    return {begin, static_cast<std::size_t>(m_at - begin)};
}

Parameter Parser::TakeParameter()
{
    constexpr std::int64_t largest = std::numeric_limits<Long>::max();
    const bool negative = m_at + 1 < m_end && *m_at == '-' && IsDigit(m_at[1]);
    if (negative) ++m_at;
    Parameter parameter;
    std::int64_t value = 0;
    for (; m_at < m_end && IsDigit(*m_at); ++m_at) {
        value = std::min(largest, value * 10 + (*m_at - '0'));
        parameter.given = true;
    }
    parameter.value = static_cast<Long>(negative ? -value : value);
    return parameter;
}

void Parser::ScanWord()
{
    const std::string_view name = TakeLetters();
    const Parameter parameter = TakeParameter();
    if (m_at < m_end && *m_at == ' ') ++m_at;
    if (m_skip == 0) return ApplyWord(name, parameter);
    --m_skip;
    if (name == "bin") TakeBytes(parameter.value);
}

// Words that send a group's text elsewhere count only ahead of its text: a file's name that was never escaped
// may look like one.
void Parser::ApplyWord(std::string_view name, Parameter parameter)
{
    const ControlWord* word = FindWord(name);
    const bool starred = std::exchange(m_starred, false);
    if (word == nullptr) {
        if (starred) SkipGroup();
        return;
    }
    const bool mayRedirect = m_groupBegins && !Group().isDocument && !IsOutside();
    switch (word->kind) {
    case WordKind::Text: m_groupBegins = false; return word->apply(*this, parameter);
    case WordKind::Property: return m_tooDeep == 0 ? word->apply(*this, parameter) : void();
    case WordKind::Shared:
        if (m_tooDeep == 0 && Group().destination == Destination::Text) word->apply(*this, parameter);
        return;
    case WordKind::Skipped: return mayRedirect ? SkipGroup() : void();
    case WordKind::Destination:
        if (mayRedirect) m_tooDeep == 0 ? word->apply(*this, parameter) : SkipGroup();
        return;
    }
}

void Parser::ScanSymbol(char sign)
{
    switch (sign) {
    case '*': m_starred = m_groupBegins; return;
    case '\r':
        if (m_at < m_end && *m_at == '\n') ++m_at;
        [[fallthrough]];
    case '\n': return EndParagraph();
    case '~': return Deliver("\u00A0");
    case '-': return Deliver("\u00AD");
    case '_': return Deliver("\u2011");
    case '|':
    case ':': return;
    default:
        if (ClassOf(sign) != nothing)
            Deliver(std::string_view(&sign, 1)); // the sign was escaped, or means itself
    }
}

void Parser::ScanHex()
{
    const int first = m_at < m_end ? HexValue(*m_at) : -1;
    const int second = first >= 0 && m_at + 1 < m_end ? HexValue(m_at[1]) : -1;
    m_at += second >= 0 ? 2 : first >= 0 ? 1 : 0;
    if (m_skip > 0) {
        --m_skip;
        return;
    }
    m_groupBegins = m_starred = false;
    if (second >= 0) DeliverByte(static_cast<unsigned char>(first << 4 | second));
}

std::string_view Parser::TakeBytes(Long count)
{
    const auto left = static_cast<std::size_t>(m_end - m_at);
    const std::size_t taken = std::min(left, static_cast<std::size_t>(std::max<Long>(0, count)));
    const std::string_view bytes(m_at, taken);
    m_at += taken;
    return bytes;
}

// Braces are counted, not stacked, so no depth is too deep.
void Parser::SkipGroup()
{
    if (IsOutside()) return;
    std::size_t depth = 0;
    while (m_at < m_end) {
        const Class found = ClassOf(*m_at);
        if (found == closing && depth == 0) return;
        ++m_at;
        if (found == opening) ++depth;
        if (found == closing) --depth;
        if (found == backslash) SkipEscaped();
    }
}

/// Passes over what a backslash escapes: a brace, or bytes that may look like braces.
void Parser::SkipEscaped()
{
    const std::string_view name = TakeLetters();
    if (name.empty()) {
        if (m_at < m_end) ++m_at;
        return;
    }
    if (name != "bin") return;
    const Parameter parameter = TakeParameter();
    if (m_at < m_end && *m_at == ' ') ++m_at;
    TakeBytes(parameter.value);
}

/// Whether the brace just passed, which closes a whole document, is one too many: more rich text follows that
/// is no document of its own.
bool Parser::IsStrayBrace() const
{
    const char* next = std::find_if_not(m_at, m_end, IsBlank);
    if (IsRtf(std::string_view(next, static_cast<std::size_t>(m_end - next)))) return false;
    return m_lastSpecial != nullptr && m_lastSpecial >= next;
}

} // namespace platform::richtext::reader
