#include "FireSql.h"

namespace firesql {

namespace {

std::string Text(Long value) { return std::to_string(value); }

std::string OutcomeRow(Long key, Long alternative, Long index, const std::string& success)
{
    return "INSERT INTO Outcomes (ItemKey, ParentKey, ChildIndex, Success, CostSource) VALUES (" + Text(key) +
           ", " + Text(alternative) + ", " + Text(index) + ", " + success + ", 1);";
}

/// A chain of rows below a parent.
std::string Chain(Long parent, const std::vector<Long>& priorities)
{
    std::string sql = "UPDATE Objectives SET ChildKey = " + Text(kFirstNewObjective) +
                      " WHERE \"Key\" = " + Text(parent) + ";";
    for (std::size_t i = 0; i < priorities.size(); ++i) {
        const Long key = kFirstNewObjective + static_cast<Long>(i);
        const Long sibling = i + 1 < priorities.size() ? key + 1 : 0;
        sql += "INSERT INTO Objectives VALUES (" + Text(key) + ", 'Row " + Text(key) + "', 'About " +
               Text(key) + "', " + Text(parent) + ", 0, " + Text(sibling) + ", " + Text(priorities[i]) + ");";
    }
    return sql;
}

} // namespace

std::string Alternative(Long key, const std::string& target, const std::string& fallback)
{
    const std::string letter(1, static_cast<char>('A' + key - 1));
    std::string sql = "INSERT INTO Items VALUES (" + Text(key) + ", '" + letter + "', 'Name " + letter +
                      "', 'Body " + letter + "', NULL, 26, " + Text(key) + ");";
    sql += OutcomeRow(TargetKey(key), key, 1, "100") + OutcomeRow(FallbackKey(key), key, 2, "-1");
    return sql + SetOutcome(TargetKey(key), target) + SetOutcome(FallbackKey(key), fallback);
}

std::string SetOutcome(Long outcomeKey, const std::string& columns)
{
    return columns.empty() ? std::string()
                           : "UPDATE Outcomes SET " + columns + " WHERE ItemKey = " + Text(outcomeKey) + ";";
}

std::string Score(Long outcomeKey, Long criterionKey, const std::string& value)
{
    return "INSERT INTO Scores VALUES (" + Text(outcomeKey) + ", " + Text(criterionKey) + ", " + value +
           ", 'Note');";
}

std::string ObjectivesBelow(Long category, const std::vector<Long>& priorities)
{
    return Chain(category, priorities);
}

std::string Issues(const std::vector<Long>& priorities) { return Chain(2, priorities); }

std::string ItemLoss(Long outcomeKey, Long itemKey, const std::string& dollars)
{
    return "INSERT OR IGNORE INTO Items (ItemKey, ItemName, ParentKey, ChildIndex) VALUES (" + Text(itemKey) +
           ", 'Bridge', 23, 1); INSERT INTO ItemImpacts VALUES (" + Text(outcomeKey) + ", " + Text(itemKey) +
           ", " + dollars + ");";
}

std::string CostPerAcre(const std::string& dollars)
{
    return "UPDATE SuppressionPerAcreCost SET Cost = " + dollars + " WHERE FMZKey = 0 AND SizeClass = 1;";
}

std::string NVCPerAcre(const std::string& dollars)
{
    return "UPDATE NVCPerAcre SET Fil4 = " + dollars + " WHERE FMZKey = 0 AND ResourceIndex = 1;";
}

std::string BurnsAtLevel4(Long outcomeKey)
{
    return "INSERT OR REPLACE INTO OutcomeFMZs VALUES (" + Text(outcomeKey) + ", 0, 50, 0, 0, 0, 5, 0, 0);";
}

} // namespace firesql
