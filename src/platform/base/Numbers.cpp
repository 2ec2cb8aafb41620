#include "platform/base/Numbers.h"

#include "platform/base/Errors.h"

#include <cmath>

namespace platform {

namespace {

__extension__ using Wide = __int128;

constexpr int kMantissaBits = 53;
constexpr Wide kTenThousand = 10000;

template <class Whole> Whole ToWhole(Double value, const char* what)
{
    const Double rounded = std::nearbyint(value); // the default mode: halves to even
    if (!(rounded >= Double(std::numeric_limits<Whole>::min()) &&
          rounded <= Double(std::numeric_limits<Whole>::max()))) {
        throw Overflow(what);
    }
    return static_cast<Whole>(rounded);
}

template <class Narrow, class Wider> Narrow ToNarrower(Wider value, const char* what)
{
    // A NaN fails the comparison and is refused with the infinities.
    const auto result = static_cast<Narrow>(value);
    if (!(std::abs(result) <= std::numeric_limits<Narrow>::max())) {
        throw Overflow(what);
    }
    return result;
}

Wide ShiftRightHalfEven(Wide value, int bits)
{
    const Wide floor = value >> bits;
    const Wide rest = value - (floor << bits);
    const Wide half = Wide(1) << (bits - 1);
    const bool up = rest > half || (rest == half && (floor & 1) != 0);
    return up ? floor + 1 : floor;
}

/// mantissa times two to the power of exponent, to the nearest whole number.
Wide Scale(Wide mantissa, int exponent)
{
    constexpr int kAllGone = 100; // 53 bits times ten thousand fill fewer than 70
    if (exponent >= 0) {
        if (exponent > kMantissaBits) {
            throw Overflow("currency");
        }
        return mantissa << exponent;
    }
    return -exponent > kAllGone ? Wide(0) : ShiftRightHalfEven(mantissa, -exponent);
}

} // namespace

Long ToLong(Double value) { return ToWhole<Long>(value, "32-bit whole number"); }

Integer ToInteger(Double value) { return ToWhole<Integer>(value, "16-bit whole number"); }

Single ToSingle(Double value) { return ToNarrower<Single>(value, "single"); }

Single ToSingle(Extended value) { return ToNarrower<Single>(value, "single"); }

Single ToSingle(Currency value)
{
    // The quotient keeps 64 bits, enough that rounding it once more to single is still the nearest single.
    return static_cast<Single>(Extended(value.TenThousandths()) / Extended(10000));
}

Double ToDouble(Extended value) { return ToNarrower<Double>(value, "double"); }

Double ToDouble(Currency value) { return Double(value.TenThousandths()) / 10000.0; }

Double Finite(Double value) { return ToNarrower<Double>(value, "double"); }

Currency ToCurrency(Double value)
{
    int exponent = 0;
    const Double fraction = std::frexp(Finite(value), &exponent);
    const auto mantissa = static_cast<std::int64_t>(std::ldexp(fraction, kMantissaBits));
    const Wide scaled = Scale(Wide(mantissa) * kTenThousand, exponent - kMantissaBits);
    if (scaled < Wide(std::numeric_limits<std::int64_t>::min()) ||
        scaled > Wide(std::numeric_limits<std::int64_t>::max())) {
        throw Overflow("currency");
    }
    return Currency::FromTenThousandths(static_cast<std::int64_t>(scaled));
}

Currency Add(Currency a, Currency b)
{
    std::int64_t sum = 0;
    if (__builtin_add_overflow(a.TenThousandths(), b.TenThousandths(), &sum)) {
        throw Overflow("currency sum");
    }
    return Currency::FromTenThousandths(sum);
}

Long Add(Long a, Long b)
{
    Long result = 0;
    if (__builtin_add_overflow(a, b, &result)) {
        throw Overflow("32-bit sum");
    }
    return result;
}

Long Subtract(Long a, Long b)
{
    Long result = 0;
    if (__builtin_sub_overflow(a, b, &result)) {
        throw Overflow("32-bit difference");
    }
    return result;
}

Long Multiply(Long a, Long b)
{
    Long result = 0;
    if (__builtin_mul_overflow(a, b, &result)) {
        throw Overflow("32-bit product");
    }
    return result;
}

} // namespace platform
