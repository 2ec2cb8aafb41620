#include "vexa-cli/FileShape.h"

namespace vexa_cli {

namespace {

std::vector<ColumnShape> Columns(CellKind kind, std::initializer_list<const char*> names)
{
    std::vector<ColumnShape> columns;
    for (const char* name : names) {
        columns.push_back({name, kind});
    }
    return columns;
}

std::vector<ColumnShape> operator+(std::vector<ColumnShape> a, const std::vector<ColumnShape>& b)
{
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

std::vector<ColumnShape> Longs(std::initializer_list<const char*> names)
{
    return Columns(CellKind::Long, names);
}
std::vector<ColumnShape> Integers(std::initializer_list<const char*> names)
{
    return Columns(CellKind::Integer, names);
}
std::vector<ColumnShape> Singles(std::initializer_list<const char*> names)
{
    return Columns(CellKind::Single, names);
}
std::vector<ColumnShape> Money(std::initializer_list<const char*> names)
{
    return Columns(CellKind::Currency, names);
}
std::vector<ColumnShape> Texts(std::initializer_list<const char*> names)
{
    return Columns(CellKind::Text, names);
}

std::vector<TableShape> Shape()
{
    return {
        {"Properties", {"Property"}, Texts({"Property", "Value"})},
        TableShape{"Items",
                   {"ItemKey"},
                   Longs({"ItemKey"}) + Texts({"ItemName", "Heading", "Body", "ItemText"}) +
                       Longs({"ParentKey", "ChildIndex"})},
        TableShape{"Objectives",
                   {"Key"},
                   Longs({"Key"}) + Texts({"Name", "Explanation"}) +
                       Longs({"ParentKey", "ChildKey", "SiblingKey", "Priority"})},
        TableShape{"Outcomes",
                   {"ItemKey"},
                   Longs({"ItemKey", "ParentKey", "ChildIndex", "ContainTime", "ControlTime", "CostSource"}) +
                       Texts({"ItemName", "Description", "SuccessRationale", "CostRationale"}) +
                       Singles({"FireSize", "Success", "DailyContainCost", "DailyControlCost"}) +
                       Money({"AdjustedCost"})},
        TableShape{"Scores",
                   {"OutcomeKey", "CriterionKey"},
                   Longs({"OutcomeKey", "CriterionKey"}) + Singles({"Value"}) + Texts({"Description"})},
        TableShape{"OutcomeFMZs",
                   {"OutcomeKey", "FMZKey"},
                   Longs({"OutcomeKey",
                          "FMZKey",
                          "Portion",
                          "FIL1Portion",
                          "FIL2Portion",
                          "FIL3Portion",
                          "FIL4Portion",
                          "FIL5Portion",
                          "FIL6Portion"})},
        TableShape{
            "ItemImpacts", {"OutcomeKey", "ItemKey"}, Longs({"OutcomeKey", "ItemKey"}) + Money({"ItemLoss"})},
        TableShape{"ValuesAtRisk",
                   {"ItemKey"},
                   Longs({"ItemKey"}) + Singles({"PotentialLoss"}) + Integers({"Probability"})},
        TableShape{"ValuesProtected",
                   {"OutcomeKey", "ItemKey"},
                   Longs({"OutcomeKey", "ItemKey"}) + Integers({"Protection"}) + Texts({"Description"})},
        TableShape{"SRTypes",
                   {"ItemKey"},
                   Longs({"ItemKey", "ChildIndex"}) +
                       Texts({"LongName", "ShortName", "UnitType", "UnitName"}) + Money({"UnitCost"})},
        TableShape{"SRUses",
                   {"ItemKey"},
                   Longs({"ItemKey", "OutcomeKey", "ItemIndex", "SRTypeKey", "Quantity", "Periods"})},
        TableShape{"FMZList", {"Key"}, Longs({"Key"}) + Texts({"FMZCode", "Name"})},
        TableShape{"NVCResources", {""}, Texts({"ResourceName"})},
        TableShape{"NVCPerAcre",
                   {"FMZKey", ""},
                   Longs({"FMZKey"}) + Singles({"Fil1", "Fil2", "Fil3", "Fil4", "Fil5", "Fil6"})},
        TableShape{
            "SuppressionPerAcreCost", {"FMZKey", ""}, Longs({"FMZKey"}) + Singles({"TopSize", "Cost"})},
    };
}

} // namespace

const std::vector<TableShape>& DatafileShape()
{
    static const std::vector<TableShape> shape = Shape();
    return shape;
}

} // namespace vexa_cli
