#pragma once

#include "platform/base/Numbers.h"

#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// The number a text begins with: blanks skipped, an optional sign, digits, one ".", an optional exponent.
/// Stops at the first character that fits no more (a comma too); nothing read gives 0. Throws Overflow.
Double Val(std::string_view text);

/// Whether a text as a whole is a number: blanks around it, an optional sign, an optional "$", digits with
/// at most one ".", commas in the whole part with a digit on either side, an optional exponent.
bool IsNumeric(std::string_view text);

/// The value of a numeric text; throws TypeMismatch when it is not numeric, Overflow when it is too large.
Double NumberOf(std::string_view text);

/// A single's text: the fewest digits that give the same float back, plain decimal notation, no separators.
std::string TextOf(Single value);
/// A double's text, likewise.
std::string TextOf(Double value);
std::string TextOf(Long value);

/// The first `count` characters (not bytes) of a UTF-8 text; a stray byte counts as one character.
std::string Left(std::string_view text, std::size_t count);

/// The text with every byte that is no UTF-8 replaced by U+FFFD.
std::string ValidUtf8(std::string_view text);

/// Lines joined by line breaks.
std::string JoinLines(const std::vector<std::string>& lines);

/// The shortest decimal that gives a figure back: value = 0.d1d2d3... times ten to the power of `point`.
struct ShortestDecimal
{
    bool negative = false;
    std::string digits; // no leading and no trailing zeros; empty for zero
    int point = 0;      // how many of the digits stand before the decimal point (may be negative or beyond)
};
/// Throws Overflow for what is no finite number.
ShortestDecimal ShortestDecimalOf(Single value);
ShortestDecimal ShortestDecimalOf(Double value);
/// The decimal in plain notation.
std::string PlainText(const ShortestDecimal& decimal);

} // namespace platform
