#pragma once

#include "platform/base/Numbers.h"
#include "platform/controls/ListContents.h"

#include <string>

namespace u92Utilities {

/// Rounds to about `digits` digits, counted from the next power of ten at or above the value, ties to even,
/// in double throughout. Values below 1 keep `digits` decimals; an exact power of ten keeps one digit more
/// than its neighbours. Throws Overflow when the quotient leaves 32 bits or the value is not finite.
Double RoundSignificant(Double value, Long digits);
/// "Do you really want to delete " and `what`, which brings its question mark. True on Yes; No is the
/// default.
bool ConfirmDelete(const std::string& what);
/// ItemData of the selected row; the caller knows that one is selected (throws OutOfBounds otherwise).
Long ListBoxKey(const platform::ListContents& list);
/// ItemData of the selected row, 0 if none is.
Long ComboBoxKey(const platform::ListContents& combo);
/// Selects the first row of that ItemData, or none.
void SelectComboKey(platform::ListContents& combo, Long key);

} // namespace u92Utilities
