#include "convert/Convert4Tables.h"
#include "convert/Rows.h"
#include "convert/u16Convert5.h"
#include "platform/data/Schema.h"

#include <algorithm>
#include <initializer_list>
#include <strings.h>

namespace u16Convert4 {

namespace {

using platform::ColumnType;
using platform::Recordset;
using platform::TableDefinition;

constexpr Long kOutcomesPerAlternative = 10;
constexpr const char* kNewOutcomes = "Outcomes.new";

enum CostSource : Long { BySize = 1, ByResources = 2, Adjusted = 8 };

constexpr std::initializer_list<const char*> kDroppedColumns = {"AlternativeKey",
                                                                "OutcomeNumber",
                                                                "Name",
                                                                "Explanation",
                                                                "CostBySize",
                                                                "ResourceCount",
                                                                "AdjustPercent",
                                                                "AdjustAmount",
                                                                "ResourceCosts",
                                                                "SuppressionCosts",
                                                                "ListedItemCount",
                                                                "ListedItemNVC",
                                                                "TotalScore",
                                                                "Percent"};

bool IsDropped(const platform::ColumnDefinition& column)
{
    return std::any_of(kDroppedColumns.begin(), kDroppedColumns.end(), [&](const char* dropped) {
        return strcasecmp(column.name.c_str(), dropped) == 0;
    });
}

/// The columns that stay, in their order, then the new ones.
TableDefinition NewOutcomesFrom(const TableDefinition& old, std::vector<std::string>& kept)
{
    TableDefinition table{kNewOutcomes, {}, {"ItemKey"}};
    for (const platform::ColumnDefinition& column : old.columns) {
        if (!IsDropped(column)) {
            table.columns.push_back(column);
            kept.push_back(column.name);
        }
    }
    const std::initializer_list<platform::ColumnDefinition> added = {{"ItemKey", ColumnType::Long},
                                                                     {"ItemName", ColumnType::Text},
                                                                     {"ParentKey", ColumnType::Long},
                                                                     {"ChildIndex", ColumnType::Long},
                                                                     {"Description", ColumnType::Text},
                                                                     {"AdjustedCost", ColumnType::Currency},
                                                                     {"CostRationale", ColumnType::Text}};
    table.columns.insert(table.columns.end(), added);
    return table;
}

/// A cost that is not there differs from nothing.
bool Differs(const Recordset& old, const char* estimate)
{
    return !old.IsNull("SuppressionCosts") && !old.IsNull(estimate) &&
           old.CurrencyValue("SuppressionCosts") != old.CurrencyValue(estimate);
}

/// Whether the final cost is neither the estimate by size nor the one by resources that the row names.
bool HasCostOfItsOwn(const Recordset& old)
{
    switch (old.LongValue("CostSource")) {
    case BySize: return Differs(old, "CostBySize");
    case ByResources: return Differs(old, "ResourceCosts");
    default: return true;
    }
}

void ConvertOutcome(const Recordset& old, const std::vector<std::string>& kept, Recordset& outcomes)
{
    const Long alternative = old.LongValue("AlternativeKey");
    const Long number = old.LongValue("OutcomeNumber");
    outcomes.AddNew();
    for (const std::string& column : kept) {
        outcomes.SetValue(column, old.Value(column));
    }
    outcomes.Set("ItemKey", platform::Add(platform::Multiply(alternative, kOutcomesPerAlternative), number));
    Rows::CopyText(old, "Name", outcomes, "ItemName");
    outcomes.Set("ParentKey", alternative);
    outcomes.Set("ChildIndex", number);
    outcomes.Set("Description", u16Convert5::PlainToRichText(old.Text("Explanation")));
    if (HasCostOfItsOwn(old)) {
        outcomes.Set("CostSource", Long{Adjusted});
        Rows::CopyMoney(old, "SuppressionCosts", outcomes, "AdjustedCost");
    }
    outcomes.Update();
}

} // namespace

void ConvertOutcomesTable()
{
    platform::Schema schema(OpenDatabase());
    std::vector<std::string> kept;
    schema.CreateTable(NewOutcomesFrom(schema.Definition("Outcomes"), kept));
    {
        Recordset outcomes = OpenDatabase().OpenTable(kNewOutcomes);
        Rows::ForEach("Outcomes", [&](const Recordset& old) { ConvertOutcome(old, kept, outcomes); });
    }
    schema.DropTable("Outcomes");
    schema.RenameTable(kNewOutcomes, "Outcomes");
}

} // namespace u16Convert4
