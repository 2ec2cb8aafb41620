#pragma once

#include "platform/base/Numbers.h"

#include <string>
#include <vector>

/// The rows of small fires, as SQL for a copy of the template. Figures are written as the texts of a file.
namespace firesql {

/// The Extreme outcome's key in the template, and the first key that a new row of Objectives gets.
inline constexpr Long kExtremeKey = 1;
inline constexpr Long kFirstNewObjective = 7;

/// The keys of an alternative's outcomes. Alternatives of the tests have keys 1 to 9, which no item bears.
constexpr Long TargetKey(Long alternative) { return 100 + 10 * alternative + 1; }
constexpr Long FallbackKey(Long alternative) { return 100 + 10 * alternative + 2; }

/// An alternative (name "A", heading "Name A" for key 1, and so on) at the place of its key, with a certain
/// Target and a Fallback not shown; the texts are what is set besides: "FireSize = 100, CostSource = 8".
std::string Alternative(Long key, const std::string& target = {}, const std::string& fallback = {});
/// Columns of an outcome's row.
std::string SetOutcome(Long outcomeKey, const std::string& columns);
std::string Score(Long outcomeKey, Long criterionKey, const std::string& value);
/// Objectives below a category (3 to 6 in the template), with these priorities, keys from 7 on.
std::string ObjectivesBelow(Long category, const std::vector<Long>& priorities);
/// Safety issues of these priorities, keys from 7 on, in chain order.
std::string Issues(const std::vector<Long>& priorities);
/// A loss of an item, whose row is added; item keys 1 to 9 are free where no alternative bears them.
std::string ItemLoss(Long outcomeKey, Long itemKey, const std::string& dollars);
/// Cost per acre for every size, and value change per acre of resource 1 at intensity level 4.
std::string CostPerAcre(const std::string& dollars);
std::string NVCPerAcre(const std::string& dollars);
/// An outcome that burns at intensity level 4 alone, as the template's Extreme one does.
std::string BurnsAtLevel4(Long outcomeKey);

} // namespace firesql
