#include "datafile_builder/NewRows.h"

#include "datafile_builder/Markup.h"

#include <algorithm>
#include <array>

namespace datafile_builder {

namespace {

constexpr std::size_t levels = 6;
using LevelMix = std::array<Long, levels>;

LevelMix MixOf(DatafileWriter& writer, Long outcome)
{
    const auto cells =
        writer.FirstRow("SELECT FIL1Portion, FIL2Portion, FIL3Portion, FIL4Portion, FIL5Portion, "
                        "FIL6Portion FROM OutcomeFMZs WHERE OutcomeKey = ? AND FMZKey = 0",
                        {std::int64_t{outcome}});
    LevelMix mix{};
    std::transform(cells.begin(), cells.end(), mix.begin(), WholeNumber);
    return mix;
}

/// Links a row behind the last child of a node.
void LinkObjective(DatafileWriter& writer, Long parent, Long key)
{
    const auto read = [&](const std::string& column, Long row) {
        const auto cells =
            writer.FirstRow("SELECT " + column + " FROM Objectives WHERE \"Key\" = ?", {std::int64_t{row}});
        return cells.empty() ? 0 : WholeNumber(cells.front());
    };
    Long last = read("ChildKey", parent);
    const bool onlyChild = last < 1;
    for (Long next = last; next > 0; next = read("SiblingKey", last))
        last = next;
    writer.Change("Objectives",
                  {{"Key", std::int64_t{onlyChild ? parent : last}}},
                  {{onlyChild ? "ChildKey" : "SiblingKey", std::int64_t{key}}});
}

} // namespace

Long AddItem(DatafileWriter& writer, const std::string& name, Long group)
{
    const Long key = writer.LastKey("Items", "ItemKey") + 1;
    const auto count =
        writer.FirstRow("SELECT COUNT(*) FROM Items WHERE ParentKey = ?", {std::int64_t{group}});
    writer.Add("Items",
               {{"ItemKey", std::int64_t{key}},
                {"ItemName", name},
                {"ParentKey", std::int64_t{group}},
                {"ChildIndex", std::int64_t{WholeNumber(count.at(0)) + 1}},
                {"Body", DefaultBody()}});
    return key;
}

Long AddOutcome(DatafileWriter& writer, Long alternative, Long index, std::optional<Long> fuelSource)
{
    constexpr Long target = 1;
    const Long key = writer.LastKey("Outcomes", "ItemKey") + 1;
    writer.Add("Outcomes",
               {{"ItemKey", std::int64_t{key}},
                {"ParentKey", std::int64_t{alternative}},
                {"ChildIndex", std::int64_t{index}},
                {"Description", DefaultBody()},
                {"Success", SingleCell(index == target ? 100.0 : -1.0)},
                {"CostSource", std::int64_t{1}}});
    AddBurnArea(writer, key, fuelSource);
    return key;
}

void AddBurnArea(DatafileWriter& writer, Long outcome, std::optional<Long> source)
{
    const LevelMix mix = source ? MixOf(writer, *source) : LevelMix{0, 0, 0, 5, 0, 0};
    Row row{
        {"OutcomeKey", std::int64_t{outcome}}, {"FMZKey", std::int64_t{0}}, {"Portion", std::int64_t{50}}};
    for (std::size_t level = 0; level < levels; ++level) {
        row.emplace_back("FIL" + std::to_string(level + 1) + "Portion", std::int64_t{mix[level]});
    }
    writer.Add("OutcomeFMZs", row);
}

Long AddSafetyIssue(DatafileWriter& writer,
                    const std::string& name,
                    const std::string& explanation,
                    Long priority)
{
    constexpr Long safetyRoot = 2;
    const Long key = writer.Add("Objectives",
                                {{"Name", name},
                                 {"Explanation", explanation},
                                 {"ParentKey", std::int64_t{safetyRoot}},
                                 {"SiblingKey", std::int64_t{0}},
                                 {"Priority", std::int64_t{priority}}});
    LinkObjective(writer, safetyRoot, key);
    return key;
}

void SetProperty(DatafileWriter& writer, const std::string& name, const std::string& value)
{
    if (writer.FirstRow("SELECT 1 FROM Properties WHERE Property = ?", {name}).empty()) {
        writer.Add("Properties", {{"Property", name}, {"Value", value}});
    } else {
        writer.Change("Properties", {{"Property", name}}, {{"Value", value}});
    }
}

} // namespace datafile_builder
