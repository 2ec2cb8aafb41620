#include "worksheets/FromBound.h"

#include "platform/base/Formats.h"
#include "platform/base/Texts.h"

#include <cmath>

namespace {

constexpr Single kNoneBehind = 9999999.0F; // acres; an upper bound from here on is the end of the table
constexpr Double kNineTenths = 0.9;
constexpr Double kHundredth = 0.01;
constexpr Double kTenth = 0.1;

/// A class of tenths ends at 0.9: the next one begins at a whole acre.
bool IsNineTenths(Single top) { return platform::NumberOf(platform::Format(top, "#.0")) == kNineTenths; }

/// By decimals, as it is read: 9.1 leads on to 9.2.
std::string Stepped(Single top, Double step)
{
    return platform::TextOf(platform::ToSingle(platform::NumberOf(platform::TextOf(top)) + step));
}

} // namespace

std::string FromBound(Single top)
{
    if (top <= 0.0F || top >= kNoneBehind) return {};
    if (IsNineTenths(top)) return "1";
    if (top < 1.0F) return Stepped(top, kHundredth);
    if (top == 9.0F) return "10"; // kept: 8 leads on to 8.1, 9.5 to 9.6
    if (top < 10.0F) return Stepped(top, kTenth);
    return platform::TextOf(std::floor(Double(top)) + 1.0);
}
