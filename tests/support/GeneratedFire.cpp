#include "support/GeneratedFire.h"

#include "support/TestSession.h"

namespace {

/// A table of the numbers from 1 to `count` for the statements below.
std::string Numbers(const std::string& name, int count)
{
    return "CREATE TEMP TABLE " + name +
           " AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " +
           std::to_string(count) + ") SELECT i FROM n;";
}

// Keys: alternatives from 1001, threatened items from 301, outcomes from 2 (1 is the Extreme one).
const char* const kRows = R"(
INSERT INTO Objectives(Key, Name, Explanation, ParentKey, ChildKey, SiblingKey, Priority)
    SELECT 6 + i, 'Category ' || i, 'text', 1, 0, CASE i WHEN 4 THEN 0 ELSE 7 + i END, 10 FROM numbers WHERE i <= 4;
UPDATE Objectives SET SiblingKey = 7 WHERE Key = 6;
INSERT INTO Objectives(Key, Name, Explanation, ParentKey, ChildKey, SiblingKey, Priority)
    SELECT 10 + i, 'Issue ' || i, 'text', 2, 0, CASE i WHEN 12 THEN 0 ELSE 11 + i END, 10 FROM numbers WHERE i <= 12;
UPDATE Objectives SET ChildKey = 11 WHERE Key = 2;
INSERT INTO Items(ItemKey, ItemName, ParentKey, ChildIndex)
    SELECT 300 + i, 'Threatened item ' || i, 23, i FROM numbers WHERE i <= 100;
INSERT INTO ValuesAtRisk SELECT 300 + i, i * 1000.0, 100 FROM numbers WHERE i <= 100;
INSERT INTO Items(ItemKey, ItemName, Heading, Body, ParentKey, ChildIndex)
    SELECT 1000 + i, 'A' || i, 'Alternative ' || i, 'A short account of the strategy.', 26, i FROM fires;
INSERT INTO Outcomes(ItemKey, ParentKey, ChildIndex, Description, FireSize, ContainTime, ControlTime, Success,
                     CostSource, AdjustedCost)
    SELECT 2 * i, 1000 + i, 1, 'What is left.', 100.0 * i, 3, 9, i % 101, 1 + i % 2, 1000.0 * i FROM fires
    UNION ALL
    SELECT 2 * i + 1, 1000 + i, 2, 'What is left.', 200.0 * i, 5, 12, i % 51, 1 + i % 2, 2000.0 * i FROM fires;
INSERT INTO OutcomeFMZs(OutcomeKey, FMZKey, Portion, FIL1Portion, FIL2Portion, FIL3Portion, FIL4Portion, FIL5Portion,
                        FIL6Portion) SELECT ItemKey, 0, 50, 0, 1, 2, 5, 0, 0 FROM Outcomes WHERE ItemKey > 1;
INSERT INTO Scores(OutcomeKey, CriterionKey, Value, Description)
    SELECT ItemKey, Key, (ItemKey + Key) % 21 / 2.0, 'why' FROM Outcomes, Objectives WHERE Key > 2;
INSERT INTO ItemImpacts SELECT Outcomes.ItemKey, 300 + i, (Outcomes.ItemKey * i) % 1000 FROM Outcomes, numbers
    WHERE i <= 100;
INSERT INTO SRUses SELECT NULL, Outcomes.ItemKey, i, i, i % 5 + 1, i % 7 + 1 FROM Outcomes, numbers WHERE i <= 6;
UPDATE SuppressionPerAcreCost SET TopSize = CASE SizeClass WHEN 9 THEN 0 ELSE SizeClass * 5000 END,
                                  Cost = 100 * SizeClass;
INSERT INTO Properties VALUES ('UseNVCGains', 'No');
UPDATE NVCPerAcre SET Fil4 = -10.5, Fil2 = 3.25;
)";

} // namespace

void GenerateFire(const std::string& path, int alternatives)
{
    constexpr int kMost = 100;
    support::ExecuteSql(
        path, "BEGIN;" + Numbers("numbers", kMost) + Numbers("fires", alternatives) + kRows + "COMMIT");
}
