"""The arithmetic of the decision model, written out bit by bit.

A Python float is an IEEE double, so double arithmetic is the language's own. Narrowing to single goes through
struct, which rounds halves to even. Only the 64-bit mantissa of the extended format needs whole numbers.
Whatever leaves its range raises Failure: there is no infinity, no NaN and no wrapped number here.
"""

import math
import re
import struct
from fractions import Fraction

LONG_MIN, LONG_MAX = -(2**31), 2**31 - 1
CURRENCY_MIN, CURRENCY_MAX = -(2**63), 2**63 - 1
CURRENCY_UNIT = 10000

_SINGLE = struct.Struct("<f")
_VAL = re.compile(r"[+-]?(?:[0-9]+\.?[0-9]*|\.[0-9]+)(?:[eE][+-]?[0-9]+)?")


class Failure(Exception):
    """A figure that cannot be computed: out of range, divided by zero, a missing member, an engine error."""


def single(value):
    """The double narrowed to 32 bits, halves to even; still held in a double."""
    if not math.isfinite(value):
        raise Failure("not finite")
    try:
        return _SINGLE.unpack(_SINGLE.pack(value))[0]
    except OverflowError as error:
        raise Failure("beyond single") from error


def in_long(whole):
    """A whole number that must fit in 32 bits."""
    if not LONG_MIN <= whole <= LONG_MAX:
        raise Failure("beyond 32 bits")
    return whole


def to_long(value):
    """A double turned into a 32-bit whole number, halves to even."""
    if not math.isfinite(value):
        raise Failure("not finite")
    return in_long(round(value))


def in_currency(units):
    """Ten-thousandths that must fit in 64 bits."""
    if not CURRENCY_MIN <= units <= CURRENCY_MAX:
        raise Failure("beyond currency")
    return units


def to_currency(value):
    """The exact value (whole number or double) in ten-thousandths, halves to even."""
    if isinstance(value, int):
        return in_currency(value * CURRENCY_UNIT)
    if not math.isfinite(value):
        raise Failure("not finite")
    return in_currency(round(Fraction(value) * CURRENCY_UNIT))


def currency_to_single(units):
    """Ten-thousandths as a single, by way of the nearest double."""
    return single(units / CURRENCY_UNIT)


def truncated_quotient(dividend, divisor):
    """Whole division that cuts towards zero, as 32-bit division does."""
    if divisor == 0:
        raise Failure("division by zero")
    quotient = abs(dividend) // abs(divisor)
    return in_long(quotient if (dividend < 0) == (divisor < 0) else -quotient)


def round_significant(value, digits):
    """The rounding of the model: a step of the next power of ten over 10**digits, halves to even; a double."""
    if not math.isfinite(value):
        raise Failure("not finite")
    negative = value < 0.0
    if negative:
        value = 0.0 - value
    power = 1.0
    while power < value:
        power *= 10.0
    step = power / float(10**digits)
    result = float(to_long(value / step)) * step
    return -result if negative else result


# --- extended precision -------------------------------------------------------------------------------------


def _parts(value):
    """A double as (mantissa, exponent) with a whole mantissa."""
    fraction, exponent = math.frexp(value)
    return int(fraction * 9007199254740992.0), exponent - 53


def _shift_right(mantissa, places):
    """mantissa / 2**places to the nearest whole number, halves to even."""
    magnitude = abs(mantissa)
    quotient = magnitude >> places
    rest = magnitude & ((1 << places) - 1)
    half = 1 << (places - 1)
    if rest > half or (rest == half and quotient & 1):
        quotient += 1
    return -quotient if mantissa < 0 else quotient


def _round_bits(mantissa, exponent, bits):
    """The value cut to so many mantissa bits, halves to even."""
    surplus = abs(mantissa).bit_length() - bits
    if surplus <= 0:
        return mantissa, exponent
    return _shift_right(mantissa, surplus), exponent + surplus


def _parts_to_single(mantissa, exponent):
    """(mantissa, exponent) narrowed to a single, subnormals included."""
    if mantissa == 0:
        return 0.0
    lowest = max(exponent + abs(mantissa).bit_length() - 24, -149)
    if lowest > exponent:
        mantissa, exponent = _shift_right(mantissa, lowest - exponent), lowest
    if abs(mantissa).bit_length() + exponent > 128:
        raise Failure("beyond single")
    return math.ldexp(float(mantissa), exponent)


def _extended_slow(factors, addend):
    mantissa, exponent = _parts(factors[0])
    for factor in factors[1:]:
        m, e = _parts(factor)
        mantissa, exponent = _round_bits(mantissa * m, exponent + e, 64)
    m, e = _parts(addend)
    low = min(exponent, e)
    total = (mantissa << (exponent - low)) + (m << (e - low))
    total, low = _round_bits(total, low, 64)
    return _parts_to_single(total, low)


def extended_multiply_add(factors, addend):
    """factors[0] * factors[1] * ... + addend, each step rounded to 64 mantissa bits, the end to single.

    Two singles make an exact double; where their sum with the addend is exact too, the detour over whole
    numbers changes nothing and is left out. The other factor may be a whole number of up to 33 bits.
    """
    if 0.0 in factors:
        return single(addend)
    if len(factors) == 2 and factors[1] == single(factors[1]):
        product = factors[0] * factors[1]
        if _sum_is_exact(product, addend):
            return single(product + addend)
    return _extended_slow(factors, addend)


def _sum_is_exact(a, b):
    """Whether a + b loses nothing in double; the lost part is computed without error."""
    total = a + b
    back = total - a
    return (a - (total - back)) + (b - back) == 0.0


# --- texts --------------------------------------------------------------------------------------------------


def val(text):
    """The number at the start of a text: blanks skipped, no comma, nothing read gives 0."""
    found = _VAL.match(text.replace(" ", ""))
    if not found:
        return 0.0
    value = float(found.group())
    if math.isinf(value):
        raise Failure("beyond double")
    return value


def _gives_back(digits, exponent, target):
    try:
        return single(float("%de%d" % (digits, exponent))) == target
    except Failure:
        return False


def shortest_single(value):
    """(digits, exponent) of a single above 0: the fewest digits that give the same single back."""
    for count in range(1, 10):
        mantissa, _, power = ("%.*e" % (count - 1, value)).partition("e")
        digits, exponent = int(mantissa.replace(".", "")), int(power) - (count - 1)
        near = [d for d in (digits, digits + 1, digits - 1) if d > 0 and _gives_back(d, exponent, value)]
        if near:
            exact = Fraction(value)
            best = min(near, key=lambda d: abs(Fraction(d) * Fraction(10) ** exponent - exact))
            return _no_trailing_zeros(best, exponent)
    raise AssertionError("nine digits always suffice")


def shortest_double(value):
    """The same for a double above 0; repr has the fewest digits."""
    mantissa, _, power = repr(value).partition("e")
    whole, _, decimals = mantissa.partition(".")
    return _no_trailing_zeros(int(whole + decimals), int(power or 0) - len(decimals))


def _no_trailing_zeros(digits, exponent):
    while digits % 10 == 0:
        digits, exponent = digits // 10, exponent + 1
    return digits, exponent


def plain(digits, exponent):
    """Digits and a power of ten in plain notation: no exponent, no trailing zeros."""
    text = str(digits)
    if exponent >= 0:
        return text + "0" * exponent
    if len(text) <= -exponent:
        return "0." + "0" * (-exponent - len(text)) + text
    return text[:exponent] + "." + text[exponent:]


def single_text(value):
    """The text of a single: fewest digits that give it back, plain notation, minus zero as 0."""
    if value == 0.0:
        return "0"
    return ("-" if value < 0 else "") + plain(*shortest_single(abs(value)))
