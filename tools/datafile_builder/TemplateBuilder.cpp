#include "datafile_builder/TemplateBuilder.h"

#include "datafile_builder/Markup.h"
#include "datafile_builder/NewRows.h"
#include "datafile_builder/ResourceTypes.h"

#include <array>

namespace datafile_builder {

namespace {

void WriteProperties(DatafileWriter& writer, const SourceObject& properties)
{
    for (const std::string& name : properties.Names())
        SetProperty(writer, name, properties.Text(name));
}

void WriteGroups(DatafileWriter& writer, const std::vector<SourceObject>& groups)
{
    static constexpr std::array columns{Column{"ItemKey", ColumnKind::whole},
                                        Column{"ItemName", ColumnKind::plainText},
                                        Column{"ParentKey", ColumnKind::whole},
                                        Column{"ChildIndex", ColumnKind::whole}};
    for (const SourceObject& group : groups) {
        group.AllowOnly({"ItemKey", "ItemName", "ParentKey", "ChildIndex"});
        writer.Add("Items", group.Cells(columns));
    }
}

void WriteTopics(DatafileWriter& writer, const std::vector<SourceObject>& topics, Long group)
{
    Long index = 0;
    for (const SourceObject& topic : topics) {
        topic.AllowOnly({"ItemKey", "ItemName", "Heading", "ItemText"});
        const std::string name = topic.Text("ItemName");
        writer.Add("Items",
                   {{"ItemKey", std::int64_t{topic.Whole("ItemKey")}},
                    {"ItemName", name},
                    {"Heading", topic.TextOr("Heading", name)},
                    {"Body", DefaultBody()},
                    {"ItemText", topic.Text("ItemText")},
                    {"ParentKey", std::int64_t{group}},
                    {"ChildIndex", std::int64_t{++index}}});
    }
}

void WriteObjectives(DatafileWriter& writer, const std::vector<SourceObject>& objectives)
{
    for (const SourceObject& objective : objectives) {
        objective.AllowOnly(
            {"Key", "Name", "ParentKey", "ChildKey", "SiblingKey", "Priority", "Explanation"});
        Row row{{"Key", std::int64_t{objective.Whole("Key")}},
                {"Name", objective.Text("Name")},
                {"Explanation",
                 objective.Has("Explanation") ? objective.RichText("Explanation") : DefaultBody()}};
        for (const char* column : {"ParentKey", "ChildKey", "SiblingKey", "Priority"}) {
            row.emplace_back(column, std::int64_t{objective.Whole(column)});
        }
        writer.Add("Objectives", row);
    }
}

void WriteExtremeOutcome(DatafileWriter& writer, const SourceObject& outcome)
{
    outcome.AllowOnly({"ItemKey", "Success", "CostSource"});
    const Long key = outcome.Whole("ItemKey");
    writer.Add("Outcomes",
               {{"ItemKey", std::int64_t{key}},
                {"ParentKey", std::int64_t{0}},
                {"ChildIndex", std::int64_t{1}},
                {"Description", DefaultBody()},
                {"Success", SingleCell(outcome.Number("Success"))},
                {"CostSource", std::int64_t{outcome.Whole("CostSource")}}});
    AddBurnArea(writer, key, std::nullopt);
}

/// The resources, and for each of them a row of zeros in land unit 0: values per acre differ too much from
/// place to place for any other figure to be right everywhere.
void WriteValueTable(DatafileWriter& writer, const std::vector<std::string>& resources)
{
    std::int64_t index = 0;
    for (const std::string& resource : resources) {
        ++index;
        writer.Add("NVCResources", {{"ResourceIndex", index}, {"ResourceName", resource}});
        Row values{{"FMZKey", std::int64_t{0}}, {"ResourceIndex", index}};
        for (int level = 1; level <= 6; ++level)
            values.emplace_back("Fil" + std::to_string(level), 0.0);
        writer.Add("NVCPerAcre", values);
    }
}

/// Blank size classes: with blank bounds a single cost in the first row applies to every size.
void WriteCostTable(DatafileWriter& writer)
{
    constexpr std::int64_t sizeClasses = 9;
    for (std::int64_t sizeClass = 1; sizeClass <= sizeClasses; ++sizeClass) {
        writer.Add("SuppressionPerAcreCost",
                   {{"FMZKey", std::int64_t{0}}, {"SizeClass", sizeClass}, {"TopSize", 0.0}, {"Cost", 0.0}});
    }
}

void WriteResourceTypes(DatafileWriter& writer, const std::vector<SourceObject>& types)
{
    Long index = 0;
    for (const SourceObject& type : types) {
        // "Basis" is for people: what the cost rests on.
        type.AllowOnly({"LongName", "ShortName", "UnitType", "UnitName", "UnitCost", "Basis"});
        AddResourceType(writer, type, ++index);
    }
}

} // namespace

void WriteTemplate(DatafileWriter& writer, const SourceObject& content)
{
    constexpr Long situationItems = 22;
    constexpr Long summaryItems = 28;
    const std::vector<std::string_view> members{"Properties",
                                                "Groups",
                                                "SituationItems",
                                                "SummaryItems",
                                                "Objectives",
                                                "ExtremeOutcome",
                                                "NVCResources",
                                                "SRTypes"};
    content.Require(members);
    content.AllowOnly(members);
    WriteProperties(writer, content.Object("Properties"));
    WriteGroups(writer, content.Objects("Groups"));
    WriteTopics(writer, content.Objects("SituationItems"), situationItems);
    WriteTopics(writer, content.Objects("SummaryItems"), summaryItems);
    WriteObjectives(writer, content.Objects("Objectives"));
    WriteExtremeOutcome(writer, content.Object("ExtremeOutcome"));
    WriteValueTable(writer, content.Texts("NVCResources"));
    WriteCostTable(writer);
    WriteResourceTypes(writer, content.Objects("SRTypes"));
}

} // namespace datafile_builder
