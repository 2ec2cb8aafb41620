#include "vexa-cli/CheckFixedRows.h"

#include "platform/data/DatabaseError.h"
#include "platform/data/Recordset.h"
#include "session/g0Items.h"
#include "vexa-cli/LongRows.h"

#include <algorithm>

namespace vexa_cli {

namespace {

constexpr Long kResources = 14;
constexpr Long kSizeClasses = 9;

/// How many rows hold this number in a column.
long Count(const LongRows& table, std::size_t column, Long number)
{
    return std::count_if(table.Rows().begin(), table.Rows().end(), [&](const std::vector<LongCell>& row) {
        return row[column] == number;
    });
}

void CheckEdition(platform::Database& database, Findings& findings)
{
    platform::Recordset properties = database.OpenTable("Properties");
    properties.Seek("ProgramID");
    const std::string edition = properties.NoMatch() ? std::string() : properties.Text("Value");
    if (edition != "Basic" && edition != "Standard" && edition != "Advanced") {
        findings.Add("Properties", "ProgramID is \"" + edition + "\", which is no edition");
    }
}

void CheckRoots(platform::Database& database, Findings& findings)
{
    const LongRows objectives(database, "Objectives", {"Key", "ParentKey"});
    if (!objectives.IsWhole()) {
        return;
    }
    if (Count(objectives, 0, 1) == 0) {
        findings.Add("Objectives", "there is no row 1, the root of the objectives");
    }
    if (Count(objectives, 0, 2) == 0) {
        findings.Add("Objectives", "there is no row 2, the root of the safety issues");
    }
    if (Count(objectives, 1, 1) == 0) {
        findings.Add("Objectives", "there is no category below row 1");
    }
}

void CheckTopics(platform::Database& database, Findings& findings)
{
    const LongRows items(database, "Items", {"ParentKey"});
    for (const Long group : {Long{g0Items::SituationGroup}, Long{g0Items::SummaryGroup}}) {
        if (items.IsWhole() && Count(items, 0, group) == 0) {
            findings.Add("Items", "there are no topics in group " + std::to_string(group));
        }
    }
}

void CheckExtremeOutcome(platform::Database& database, Findings& findings)
{
    const LongRows outcomes(database, "Outcomes", {"ParentKey", "ChildIndex"});
    const auto count =
        std::count(outcomes.Rows().begin(), outcomes.Rows().end(), std::vector<LongCell>{0, 1});
    if (outcomes.IsWhole() && count != 1) {
        findings.Add("Outcomes",
                     count == 0 ? "there is no Extreme outcome (ParentKey 0, ChildIndex 1)"
                                : "there is more than one Extreme outcome (ParentKey 0, ChildIndex 1)");
    }
}

/// The rows 1 to `last` of a land unit in a value table.
void CheckUnitRows(platform::Database& database, const char* table, Long unit, Long last, Findings& findings)
{
    platform::Recordset rows = database.OpenTable(table);
    for (Long row = 1; row <= last; ++row) {
        rows.Seek(unit, row);
        if (rows.NoMatch()) {
            findings.Add(table, "land unit " + std::to_string(unit) + " has no row " + std::to_string(row));
        }
    }
}

void CheckResources(platform::Database& database, Findings& findings)
{
    platform::Recordset rows = database.OpenTable("NVCResources");
    for (Long resource = 1; resource <= kResources; ++resource) {
        rows.Seek(resource);
        if (rows.NoMatch()) {
            findings.Add("NVCResources", "there is no row " + std::to_string(resource));
        }
    }
}

/// A table that cannot be read or sought in was told by CheckTables.
template <class Step> void Try(Step step)
{
    try {
        step();
    } catch (const platform::DatabaseError&) {
        return;
    }
}

void CheckValueTables(platform::Database& database, Findings& findings)
{
    std::set<Long> units = LongRows(database, "FMZList", {"Key"}).Numbers(0);
    if (units.empty()) {
        units.insert(0); // the default land unit
    }
    for (const Long unit : units) {
        Try([&] { CheckUnitRows(database, "NVCPerAcre", unit, kResources, findings); });
        Try([&] { CheckUnitRows(database, "SuppressionPerAcreCost", unit, kSizeClasses, findings); });
    }
    Try([&] { CheckResources(database, findings); });
}

} // namespace

void CheckFixedRows(platform::Database& database, Findings& findings)
{
    Try([&] { CheckEdition(database, findings); });
    CheckRoots(database, findings);
    CheckTopics(database, findings);
    CheckExtremeOutcome(database, findings);
    CheckValueTables(database, findings);
}

} // namespace vexa_cli
