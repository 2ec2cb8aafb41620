#pragma once

#include <compare>
#include <cstdint>
#include <limits>

// The widths of the system's figures. Width and rounding are behaviour: a change of width is always written.
using Integer = std::int16_t;
using Long = std::int32_t;
using Single = float;
using Double = double;
/// The "higher precision" of the floating unit: a 64-bit mantissa.
using Extended = long double;

static_assert(sizeof(Single) == 4 && std::numeric_limits<Single>::is_iec559);
static_assert(sizeof(Double) == 8 && std::numeric_limits<Double>::is_iec559);
static_assert(std::numeric_limits<Extended>::digits == 64, "the figures are defined with a 64-bit mantissa");

namespace platform {

/// Dollars in whole ten-thousandths, 64 bits. Mixes with no other number unasked.
class Currency
{
public:
    constexpr Currency() = default;
    static constexpr Currency FromTenThousandths(std::int64_t value)
    {
        Currency result;
        result.m_value = value;
        return result;
    }
    constexpr std::int64_t TenThousandths() const { return m_value; }
    friend constexpr auto operator<=>(const Currency&, const Currency&) = default;

private:
    std::int64_t m_value = 0;
};

/// The nearest whole number, halves to even: the only road from a floating figure to a whole one.
/// Throws Overflow outside 32 bits and for what is no number.
Long ToLong(Double value);
/// The same to 16 bits.
Integer ToInteger(Double value);

/// The nearest single; throws Overflow when it leaves the single range or is no number.
Single ToSingle(Double value);
Single ToSingle(Extended value);
/// The nearest single to an amount of money.
Single ToSingle(Currency value);
/// The nearest double; throws Overflow when it leaves the range or is no number.
Double ToDouble(Extended value);
Double ToDouble(Currency value);
/// `value` itself; throws Overflow when it is infinite or no number.
Double Finite(Double value);

/// The exact value rounded to four decimals, halves to even. Throws Overflow.
Currency ToCurrency(Double value);
/// The sum; throws Overflow.
Currency Add(Currency a, Currency b);

/// 32-bit arithmetic; each throws Overflow when the result leaves 32 bits.
Long Add(Long a, Long b);
Long Subtract(Long a, Long b);
Long Multiply(Long a, Long b);

} // namespace platform
