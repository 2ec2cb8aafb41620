#include "convert/Convert4Tables.h"

#include "convert/Rows.h"
#include "convert/u16Convert5.h"
#include "platform/base/Errors.h"
#include "platform/data/Schema.h"

#include <limits>

namespace u16Convert4 {

namespace {

using platform::ColumnType;
using platform::Recordset;
using u16Convert5::PlainToRichText;

platform::Currency Negative(platform::Currency value)
{
    if (value.TenThousandths() == std::numeric_limits<std::int64_t>::min()) {
        throw platform::Overflow("currency");
    }
    return platform::Currency::FromTenThousandths(-value.TenThousandths());
}

void WriteRoots(Recordset& objectives)
{
    objectives.Seek(Long{1});
    objectives.Edit();
    objectives.Set("Name", std::string("Objectives"));
    objectives.Set("ChildKey", Long{3});
    objectives.Update();
    objectives.Seek(Long{2});
    objectives.Edit();
    objectives.Set("ParentKey", Long{0});
    objectives.Set("SiblingKey", Long{0});
    objectives.Update();
}

} // namespace

void ConvertSRTypesTable()
{
    platform::Schema schema(OpenDatabase());
    schema.CreateTable({"SRTypes",
                        {{"ItemKey", ColumnType::Automatic},
                         {"ParentKey", ColumnType::Long},
                         {"ChildIndex", ColumnType::Long},
                         {"LongName", ColumnType::Text},
                         {"ShortName", ColumnType::Text},
                         {"UnitType", ColumnType::Text},
                         {"UnitName", ColumnType::Text},
                         {"UnitCost", ColumnType::Currency}},
                        {"ItemKey"}});
    {
        Recordset types = OpenDatabase().OpenTable("SRTypes");
        Rows::ForEach("SRMasterList", [&](const Recordset& old) {
            types.AddNew();
            Rows::CopyLong(old, "Key", types, "ItemKey");
            Rows::CopyLong(old, "Sequence", types, "ChildIndex");
            Rows::CopyText(old, "LongName", types, "LongName");
            Rows::CopyText(old, "ShortName", types, "ShortName");
            Rows::CopyText(old, "UnitType", types, "UnitType");
            Rows::CopyText(old, "Units", types, "UnitName");
            Rows::CopyMoney(old, "Cost", types, "UnitCost");
            types.Update();
        });
    }
    schema.DropTable("SRMasterList");
}

void ConvertSRUsesTable()
{
    platform::Schema schema(OpenDatabase());
    schema.CreateTable({"SRUses",
                        {{"ItemKey", ColumnType::Long},
                         {"OutcomeKey", ColumnType::Long},
                         {"ItemIndex", ColumnType::Long},
                         {"SRTypeKey", ColumnType::Long},
                         {"Quantity", ColumnType::Long},
                         {"Periods", ColumnType::Long}},
                        {"ItemKey"}});
    {
        Recordset uses = OpenDatabase().OpenTable("SRUses");
        Long key = 0;
        Rows::ForEach("SuppressionResources", [&](const Recordset& old) {
            uses.AddNew();
            uses.Set("ItemKey", ++key);
            Rows::CopyLong(old, "OutcomeKey", uses, "OutcomeKey");
            Rows::CopyLong(old, "SequenceNumber", uses, "ItemIndex");
            Rows::CopyLong(old, "ResourceKey", uses, "SRTypeKey");
            Rows::CopyLong(old, "Quantity", uses, "Quantity");
            Rows::CopyLong(old, "Periods", uses, "Periods");
            uses.Update();
        });
    }
    schema.DropTable("SuppressionResources");
}

void ConvertItemImpactsTable()
{
    platform::Schema schema(OpenDatabase());
    schema.CreateTable({"ItemImpacts",
                        {{"OutcomeKey", ColumnType::Long},
                         {"ItemKey", ColumnType::Long},
                         {"ItemLoss", ColumnType::Currency}},
                        {"OutcomeKey", "ItemKey"}});
    {
        Recordset impacts = OpenDatabase().OpenTable("ItemImpacts");
        Rows::ForEach("ListedItemImpacts", [&](const Recordset& old) {
            impacts.AddNew();
            Rows::CopyLong(old, "OutcomeKey", impacts, "OutcomeKey");
            Rows::CopyLong(old, "ItemKey", impacts, "ItemKey");
            if (old.SingleValue("GainLoss") != 0.0F) {
                impacts.Set("ItemLoss", Negative(old.CurrencyValue("GainLoss")));
            }
            impacts.Update();
        });
    }
    schema.DropTable("ListedItemImpacts");
}

void ConvertObjectivesTable()
{
    Rows::ForEach("Objectives", [](Recordset& objective) {
        Rows::Write(objective, "Explanation", PlainToRichText(objective.Text("Explanation")));
    });
    Recordset objectives = OpenDatabase().OpenTable("Objectives");
    WriteRoots(objectives);
}

void ConvertRatingsTable()
{
    platform::Schema(OpenDatabase()).AddColumn("Scores", {"Description", ColumnType::Text});
}

} // namespace u16Convert4
