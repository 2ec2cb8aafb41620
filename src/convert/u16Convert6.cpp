#include "convert/u16Convert6.h"

#include "convert/ConversionQuestion.h"
#include "convert/ConversionSteps.h"
#include "convert/Rows.h"
#include "platform/data/Schema.h"
#include "session/g0Items.h"
#include "session/u14Properties.h"

#include <set>

namespace u16Convert6 {

namespace {

using platform::ColumnType;
using platform::Recordset;

constexpr Long kNumber = 6;
constexpr Long kSafetyGroup = 25;
/// The worst case of the older formats.
constexpr Long kWorstOutcome = 1;
constexpr Long kProbability = 95;
constexpr Long kNotShown = -1;

enum CostSource : Long { ByResources = 2, Adjusted = 8 };

void EmptyBody(Recordset& items, Long key)
{
    items.Seek(key);
    if (!items.NoMatch()) {
        Rows::Write(items, "Body", "");
    }
}

void AddSafetyItem(Recordset& items, Long key, const char* name, Long childIndex)
{
    items.AddNew();
    items.Set("ItemKey", key);
    items.Set("ItemName", std::string(name));
    if (childIndex > 0) {
        items.Set("ParentKey", kSafetyGroup);
        items.Set("ChildIndex", childIndex);
    }
    items.Update();
}

void ClearOldTopics()
{
    Recordset items = OpenDatabase().OpenTable("Items");
    EmptyBody(items, 84);
    EmptyBody(items, 86);
    AddSafetyItem(items, kSafetyGroup, "Safety Issues", 0);
    AddSafetyItem(items, 37, "Firefighter Safety", 1);
    AddSafetyItem(items, 38, "Public Safety", 2);
    AddSafetyItem(items, 39, "Aviation Safety", 3);
}

std::set<Long> OutcomesWithResources()
{
    std::set<Long> outcomes;
    Rows::ForEach("SRUses", [&](const Recordset& use) {
        if (!use.IsNull("OutcomeKey")) {
            outcomes.insert(use.LongValue("OutcomeKey"));
        }
    });
    return outcomes;
}

void WriteLong(Recordset& row, const char* column, Long value)
{
    row.Edit();
    row.Set(column, value);
    row.Update();
}

void ConvertOutcomeCosts()
{
    const bool firstLevel = u14Properties::Property_Get("AnalysisLevel") == "1";
    const std::set<Long> withResources = OutcomesWithResources();
    Rows::ForEach("Outcomes", [&](Recordset& outcome) {
        if (firstLevel && outcome.LongValue("ChildIndex") == 2) {
            WriteLong(outcome, "Success", kNotShown);
        }
        if (outcome.CurrencyValue("AdjustedCost") > platform::Currency()) {
            WriteLong(outcome, "CostSource", Adjusted);
        } else if (withResources.count(outcome.LongValue("ItemKey")) > 0) {
            WriteLong(outcome, "CostSource", ByResources);
        }
    });
}

void CreateValuesAtRisk()
{
    platform::Schema(OpenDatabase())
        .CreateTable({"ValuesAtRisk",
                      {{"ItemKey", ColumnType::Long},
                       {"PotentialLoss", ColumnType::Single},
                       {"Probability", ColumnType::Integer}},
                      {"ItemKey"}});
}

void CreateValuesProtected()
{
    platform::Schema(OpenDatabase())
        .CreateTable({"ValuesProtected",
                      {{"OutcomeKey", ColumnType::Long},
                       {"ItemKey", ColumnType::Long},
                       {"Protection", ColumnType::Integer},
                       {"Description", ColumnType::Text}},
                      {"OutcomeKey", "ItemKey"}});
}

void AddValueAtRisk(Recordset& values, Long item, platform::Currency loss)
{
    values.AddNew();
    values.Set("ItemKey", item);
    if (loss > platform::Currency()) { // else the loss stays null, not 0
        values.Set("PotentialLoss", platform::ToSingle(loss));
    }
    values.Set("Probability", kProbability);
    values.Update();
}

void CopyValuesAtRisk()
{
    Recordset items =
        OpenDatabase().OpenQuery(platform::Query::ItemsOfParentByItemKey, g0Items::ThreatenedGroup);
    if (items.Eof()) {
        return;
    }
    Recordset impacts = OpenDatabase().OpenTable("ItemImpacts");
    Recordset values = OpenDatabase().OpenTable("ValuesAtRisk");
    for (; !items.Eof(); items.MoveNext()) {
        const Long item = items.LongValue("ItemKey");
        impacts.Seek(kWorstOutcome, item);
        if (!impacts.NoMatch()) {
            AddValueAtRisk(values, item, impacts.CurrencyValue("ItemLoss"));
        }
    }
}

void AddDailyCosts()
{
    platform::Schema schema(OpenDatabase());
    schema.AddColumn("Outcomes", {"DailyContainCost", ColumnType::Single});
    schema.AddColumn("Outcomes", {"DailyControlCost", ColumnType::Single});
}

} // namespace

bool QueryConvertTo6()
{
    return ConversionQuestion::Ask({"Some ORLN Size-up and Stage I data will be lost.",
                                    "All values for VEXA Threatened Items will be lost."},
                                   "All other data will be saved.");
}

void Convert5to6()
{
    ConversionSteps::Run("Convert5to6",
                         kNumber,
                         {ClearOldTopics,
                          ConvertOutcomeCosts,
                          CreateValuesAtRisk,
                          CreateValuesProtected,
                          CopyValuesAtRisk,
                          AddDailyCosts,
                          [] { Rows::WriteProperty("DataFormatID", kDataFormat); }});
}

} // namespace u16Convert6
