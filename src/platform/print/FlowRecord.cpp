#include "platform/print/FlowRecord.h"

#include <algorithm>

namespace platform::print {

bool PageHeader::IsEmpty() const
{
    return std::all_of(
        fields.begin(), fields.end(), [](const HeaderField& field) { return field.text.empty(); });
}

} // namespace platform::print
