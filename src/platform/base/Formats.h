#pragma once

#include "platform/base/Numbers.h"

#include <string>
#include <string_view>

namespace platform {

/// A figure in one of the house's formats: "#,0" (thousands, at least one digit), "#,#" (a zero is empty),
/// "0" and "#" (no thousands), each with decimals behind a point ("0.0", "#,#.00") and a "$" ahead ("$#,0",
/// "-" ahead of "$"). Rounds half away from zero on the shortest decimal that gives the value back; never
/// "-0".
/// "." and "," in every locale. Throws Overflow for what is no finite number.
std::string Format(Single value, std::string_view format);
std::string Format(Double value, std::string_view format);
std::string Format(Long value, std::string_view format);
std::string Format(Currency value, std::string_view format);

} // namespace platform
