#include "platform/base/Texts.h"

#include "platform/base/Errors.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>

namespace platform {

namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// Walks a text and gathers what belongs to a number; "+" signs are left out for std::from_chars.
class NumberScanner
{
public:
    explicit NumberScanner(std::string_view text) : m_text(text) {}

    char Peek() const { return m_at < m_text.size() ? m_text[m_at] : '\0'; }
    bool AtEnd() const { return m_at == m_text.size(); }
    void SkipBlanks()
    {
        while (!AtEnd() && IsBlank(Peek())) {
            ++m_at;
        }
    }
    bool Take(char c)
    {
        if (AtEnd() || Peek() != c) {
            return false;
        }
        ++m_at;
        return true;
    }
    void Sign()
    {
        if (Take('-')) {
            m_number += '-';
        } else {
            Take('+');
        }
    }
    /// Digits, and commas between digits where `commas` says so; how many digits there were.
    int Digits(bool commas = false)
    {
        int count = 0;
        while (IsDigit(Peek()) || (commas && count > 0 && CommaBetweenDigits())) {
            if (IsDigit(Peek())) {
                m_number += Peek();
                ++count;
            }
            ++m_at;
        }
        return count;
    }
    bool Point()
    {
        const bool taken = Take('.');
        m_number += taken ? "." : "";
        return taken;
    }
    /// An exponent with at least one digit, or nothing.
    void Exponent()
    {
        std::size_t at = m_at;
        if (at >= m_text.size() || (m_text[at] != 'e' && m_text[at] != 'E')) {
            return;
        }
        ++at;
        const bool negative = at < m_text.size() && m_text[at] == '-';
        at += at < m_text.size() && (m_text[at] == '-' || m_text[at] == '+') ? 1 : 0;
        if (at >= m_text.size() || !IsDigit(m_text[at])) {
            return;
        }
        m_at = at;
        m_number += negative ? "e-" : "e";
        Digits();
    }
    const std::string& Number() const { return m_number; }

private:
    bool CommaBetweenDigits() const
    {
        return Peek() == ',' && IsDigit(m_text[m_at - 1]) && m_at + 1 < m_text.size() &&
               IsDigit(m_text[m_at + 1]);
    }

    std::string_view m_text;
    std::size_t m_at = 0;
    std::string m_number;
};

/// The exponent a scanned number was written with, 0 for none; an absurd one is only cut to a size that adds.
long long WrittenExponent(std::string_view number)
{
    const std::size_t e = number.find('e');
    if (e == std::string_view::npos) {
        return 0;
    }
    constexpr long long kAbsurd = 1LL << 60;
    long long exponent = 0;
    const auto result = std::from_chars(number.data() + e + 1, number.data() + number.size(), exponent);
    return result.ec == std::errc() ? exponent : number[e + 1] == '-' ? -kAbsurd : kAbsurd;
}

/// Whether a scanned number lies between -1 and 1, by the place of its first digit that counts.
bool IsBelowOne(std::string_view number)
{
    const std::string_view mantissa = number.substr(0, number.find('e'));
    const std::size_t first = mantissa.find_first_of("123456789");
    if (first == std::string_view::npos) {
        return true;
    }
    const auto place = static_cast<long long>(first);
    const auto point = static_cast<long long>(std::min(mantissa.find('.'), mantissa.size()));
    const long long power = place < point ? point - place - 1 : point - place;
    return power + WrittenExponent(number) < 0;
}

/// A number too small for a double is zero; one too large throws.
Double OutOfRange(const std::string& number)
{
    if (!IsBelowOne(number)) {
        throw Overflow("number \"" + number.substr(0, 40) + "\"");
    }
    return 0.0;
}

Double Parse(const std::string& number)
{
    Double value = 0.0;
    const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        return OutOfRange(number);
    }
    return result.ec == std::errc() ? value : 0.0;
}

template <class Float> ShortestDecimal ShortestOf(Float value)
{
    std::array<char, 64> buffer{};
    const auto end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::scientific).ptr;
    const std::string_view text(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
    const std::size_t e = text.find('e');
    if (e == std::string_view::npos) {
        throw Overflow("text of a figure");
    }
    ShortestDecimal decimal;
    decimal.negative = text.front() == '-';
    std::copy_if(text.begin(),
                 text.begin() + static_cast<std::ptrdiff_t>(e),
                 std::back_inserter(decimal.digits),
                 IsDigit);
    decimal.digits.erase(decimal.digits.find_last_not_of('0') + 1);
    const std::size_t power = text[e + 1] == '+' ? e + 2 : e + 1;
    std::from_chars(text.data() + power, end, decimal.point);
    decimal.point = decimal.digits.empty() ? 0 : decimal.point + 1;
    return decimal;
}

/// How many bytes the character at the front takes; 0 when it is no UTF-8.
std::size_t CharacterLength(std::string_view text)
{
    const auto byte = [&](std::size_t i) { return static_cast<std::uint8_t>(text[i]); };
    const std::uint8_t lead = byte(0);
    const std::size_t length = lead < 0x80   ? 1
                               : lead < 0xC2 ? 0
                               : lead < 0xE0 ? 2
                               : lead < 0xF0 ? 3
                               : lead < 0xF5 ? 4
                                             : 0;
    if (length > text.size()) {
        return 0;
    }
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0U) != 0x80U) {
            return 0;
        }
    }
    const bool overlong = (lead == 0xE0 && byte(1) < 0xA0) || (lead == 0xF0 && byte(1) < 0x90);
    const bool surrogate = lead == 0xED && byte(1) > 0x9F;
    const bool beyond = lead == 0xF4 && byte(1) > 0x8F;
    return overlong || surrogate || beyond ? 0 : length;
}

} // namespace

Double Val(std::string_view text)
{
    std::string solid;
    std::copy_if(text.begin(), text.end(), std::back_inserter(solid), [](char c) { return !IsBlank(c); });
    NumberScanner scanner(solid);
    scanner.Sign();
    int digits = scanner.Digits();
    if (scanner.Point()) {
        digits += scanner.Digits();
    }
    if (digits == 0) {
        return 0.0;
    }
    scanner.Exponent();
    return Parse(scanner.Number());
}

namespace {

/// Scans a whole numeric text; true when nothing else stands in it.
bool ScanNumeric(NumberScanner& scanner)
{
    scanner.SkipBlanks();
    scanner.Sign();
    scanner.Take('$');
    int digits = scanner.Digits(true);
    if (scanner.Point()) {
        digits += scanner.Digits();
    }
    if (digits == 0) {
        return false;
    }
    scanner.Exponent();
    scanner.SkipBlanks();
    return scanner.AtEnd();
}

} // namespace

bool IsNumeric(std::string_view text)
{
    NumberScanner scanner(text);
    return ScanNumeric(scanner);
}

Double NumberOf(std::string_view text)
{
    NumberScanner scanner(text);
    if (!ScanNumeric(scanner)) {
        throw TypeMismatch(text);
    }
    return Parse(scanner.Number());
}

ShortestDecimal ShortestDecimalOf(Single value) { return ShortestOf(value); }

ShortestDecimal ShortestDecimalOf(Double value) { return ShortestOf(value); }

std::string PlainText(const ShortestDecimal& decimal)
{
    if (decimal.digits.empty()) {
        return "0";
    }
    const auto count = static_cast<int>(decimal.digits.size());
    std::string text = decimal.negative ? "-" : "";
    if (decimal.point <= 0) {
        return text + "0." + std::string(static_cast<std::size_t>(-decimal.point), '0') + decimal.digits;
    }
    if (decimal.point >= count) {
        return text + decimal.digits + std::string(static_cast<std::size_t>(decimal.point - count), '0');
    }
    const auto point = static_cast<std::size_t>(decimal.point);
    return text + decimal.digits.substr(0, point) + "." + decimal.digits.substr(point);
}

std::string TextOf(Single value) { return PlainText(ShortestDecimalOf(value)); }

std::string TextOf(Double value) { return PlainText(ShortestDecimalOf(value)); }

std::string TextOf(Long value) { return std::to_string(value); }

std::string JoinLines(const std::vector<std::string>& lines)
{
    std::string joined;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        joined.append(i == 0 ? "" : "\n").append(lines[i]);
    }
    return joined;
}

std::string Left(std::string_view text, std::size_t count)
{
    std::size_t at = 0;
    for (std::size_t taken = 0; taken < count && at < text.size(); ++taken) {
        at += std::max<std::size_t>(1, CharacterLength(text.substr(at)));
    }
    return std::string(text.substr(0, at));
}

std::string ValidUtf8(std::string_view text)
{
    std::string valid;
    valid.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t length = CharacterLength(text.substr(at));
        valid.append(length == 0 ? std::string_view("\xEF\xBF\xBD") : text.substr(at, length));
        at += std::max<std::size_t>(1, length);
    }
    return valid;
}

} // namespace platform
