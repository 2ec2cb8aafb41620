#pragma once

#include "platform/data/Recordset.h"

#include <string>

namespace platform {

// A cell in the width asked for: null is 0 or empty, a text in a number's place its Val. Each throws
// DatabaseError for a number beyond the width.

std::string ToTextCell(const FieldValue& cell);
Long ToLongCell(const FieldValue& cell);
Single ToSingleCell(const FieldValue& cell);
Currency ToCurrencyCell(const FieldValue& cell);

} // namespace platform
