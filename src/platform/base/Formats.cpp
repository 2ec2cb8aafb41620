#include "platform/base/Formats.h"

#include "platform/base/Texts.h"

#include <cstdlib>

namespace platform {

namespace {

/// What a format string asks for.
struct Shape
{
    bool dollar = false;
    bool thousands = false;
    bool keepsZero = false; // a whole part of zero is written "0"
    int decimals = 0;
};

Shape ShapeOf(std::string_view format)
{
    Shape shape;
    const std::size_t point = format.find('.');
    const std::string_view whole = format.substr(0, point);
    shape.dollar = whole.starts_with('$');
    shape.thousands = whole.find(',') != std::string_view::npos;
    shape.keepsZero = whole.ends_with('0');
    shape.decimals = point == std::string_view::npos ? 0 : static_cast<int>(format.size() - point - 1);
    return shape;
}

/// The digits of value times ten to the power of `decimals`, rounded half away from zero; "" for zero.
std::string ScaledDigits(const ShortestDecimal& decimal, int decimals)
{
    const int kept = decimal.point + decimals;
    if (kept < 0 || decimal.digits.empty()) {
        return {};
    }
    const auto count = static_cast<std::size_t>(kept);
    std::string digits = decimal.digits.substr(0, count);
    digits.append(count - digits.size(), '0');
    if (count < decimal.digits.size() && decimal.digits[count] >= '5') {
        std::size_t at = digits.size();
        while (at > 0 && digits[at - 1] == '9') {
            digits[--at] = '0';
        }
        if (at == 0) {
            digits.insert(digits.begin(), '1');
        } else {
            ++digits[at - 1];
        }
    }
    return digits.find_first_not_of('0') == std::string::npos ? std::string() : digits;
}

void InsertThousands(std::string& whole)
{
    constexpr std::size_t kGroup = 3;
    for (std::size_t at = whole.size(); at > kGroup; at -= kGroup) {
        whole.insert(at - kGroup, 1, ',');
    }
}

std::string FormatDecimal(const ShortestDecimal& decimal, std::string_view format)
{
    const Shape shape = ShapeOf(format);
    std::string digits = ScaledDigits(decimal, shape.decimals);
    const bool negative = decimal.negative && !digits.empty();
    const auto decimals = static_cast<std::size_t>(shape.decimals);
    if (digits.size() < decimals) {
        digits.insert(0, decimals - digits.size(), '0');
    }
    std::string whole = digits.substr(0, digits.size() - decimals);
    if (whole.empty() && shape.keepsZero) {
        whole = "0";
    }
    if (shape.thousands) {
        InsertThousands(whole);
    }
    const std::string fraction = decimals == 0 ? "" : "." + digits.substr(digits.size() - decimals);
    return (negative ? "-" : "") + std::string(shape.dollar ? "$" : "") + whole + fraction;
}

} // namespace

std::string Format(Single value, std::string_view format)
{
    return FormatDecimal(ShortestDecimalOf(value), format);
}

std::string Format(Double value, std::string_view format)
{
    return FormatDecimal(ShortestDecimalOf(value), format);
}

std::string Format(Long value, std::string_view format) { return Format(Double(value), format); }

std::string Format(Currency value, std::string_view format)
{
    constexpr int kDecimals = 4;
    const bool negative = value.TenThousandths() < 0;
    std::string digits = std::to_string(value.TenThousandths()).substr(negative ? 1 : 0);
    const int point = static_cast<int>(digits.size()) - kDecimals;
    digits = digits == "0" ? "" : digits;
    return FormatDecimal({negative, digits, digits.empty() ? 0 : point}, format);
}

} // namespace platform
