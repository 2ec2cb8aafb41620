#include "session/u92Utilities.h"

#include "platform/base/Desktop.h"
#include "platform/base/Errors.h"

namespace u92Utilities {

namespace {

constexpr Double kTen = 10.0;

/// The smallest power of ten that is at least the value, and never below one.
Double PowerAbove(Double value)
{
    Double power = 1.0;
    while (power < value) {
        power *= kTen;
    }
    return platform::Finite(power);
}

Double PowerOfTen(Long exponent)
{
    Double power = 1.0;
    for (Long i = 0; i < exponent; ++i) {
        power *= kTen;
    }
    return power;
}

} // namespace

Double RoundSignificant(Double value, Long digits)
{
    const bool negative = value < 0.0;
    const Double size = platform::Finite(negative ? 0.0 - value : value);
    const Double step = PowerAbove(size) / PowerOfTen(digits);
    const Double rounded = Double(platform::ToLong(size / step)) * step;
    return platform::Finite(negative ? -rounded : rounded);
}

bool ConfirmDelete(const std::string& what)
{
    platform::Message message;
    message.title = "Delete";
    message.lines = {"Do you really want to delete " + what};
    message.buttons = platform::Buttons::YesNo;
    message.preset = platform::Answer::No;
    message.icon = platform::Icon::Stop;
    return platform::TheDesktop().Show(message) == platform::Answer::Yes;
}

Long ListBoxKey(const platform::ListContents& list) { return list.ItemData(list.ListIndex()); }

Long ComboBoxKey(const platform::ListContents& combo)
{
    return combo.ListIndex() < 0 ? 0 : combo.ItemData(combo.ListIndex());
}

void SelectComboKey(platform::ListContents& combo, Long key)
{
    Long index = 0;
    while (index < combo.ListCount() && combo.ItemData(index) != key) {
        ++index;
    }
    combo.SetListIndex(index < combo.ListCount() ? index : -1);
}

} // namespace u92Utilities
