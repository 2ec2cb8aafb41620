#include "worksheets/ResourceLines.h"

#include <algorithm>

namespace ResourceLines {

Double RowCost(const c68SRUse& use)
{
    // Kept: by the periods for types by item too, whose lines have one; UseCost leaves the periods out.
    const Long units = platform::Multiply(use.Quantity(), use.TimePeriods());
    return platform::Finite(Double(use.SRType()->UnitCost()) * Double(units));
}

Long RowTyped(Double number, Long lines)
{
    return std::max<Long>(1, platform::ToLong(std::clamp(number, 0.0, Double(lines))));
}

Renumbering MakeRoom(Long from, Long to, Long lines)
{
    if (from >= to) return {to, std::min(platform::Subtract(from, 1), lines), 1};
    return {std::max<Long>(platform::Add(from, 1), 1), to, -1};
}

} // namespace ResourceLines
