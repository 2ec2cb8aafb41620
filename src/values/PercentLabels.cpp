#include "values/PercentLabels.h"

#include "platform/base/Texts.h"

#include <algorithm>

std::string PercentLabels::TextOf(std::span<const Label> labels, Long percent)
{
    const auto label = std::find_if(
        labels.begin(), labels.end(), [percent](const Label& each) { return each.percent == percent; });
    return label != labels.end() ? label->text : platform::TextOf(percent);
}

Long PercentLabels::PercentOf(std::span<const Label> labels, std::string_view text)
{
    if (platform::IsNumeric(text)) {
        return platform::ToLong(platform::NumberOf(text));
    }
    const auto label =
        std::find_if(labels.begin(), labels.end(), [text](const Label& each) { return each.text == text; });
    return label != labels.end() ? label->percent : platform::ToLong(platform::Val(text));
}
