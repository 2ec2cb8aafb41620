#include "convert/Convert4Items.h"
#include "convert/ItemRows.h"
#include "convert/Rows.h"
#include "convert/u16Convert5.h"
#include "platform/data/Schema.h"
#include "session/g0Items.h"
#include "session/u14Properties.h"

#include <utility>

namespace u16Convert4 {

namespace {

using platform::ColumnType;
using platform::Recordset;
using u16Convert5::PlainToRichText;

constexpr const char* kRichMark = "{\\rtf";

struct Fact
{
    const char* property;
    Long key;
    const char* name;
};

constexpr Fact kFacts[] = {{"FireName", 11, "Fire Name"},
                           {"IncidentNumber", 211, "Incident Number"},
                           {"StartDate", 212, "Start Date"},
                           {"StartTime", 213, "Start Time"},
                           {"Jurisdiction", 214, "Jurisdiction"},
                           {"Area", 215, "Geographic Area"},
                           {"Unit", 216, "Administrative Unit"},
                           {"FiscalCode", 217, "Accounting or Management Code"},
                           {"VEXANumber", 221, "VEXA Number"},
                           {"VEXADate", 222, "VEXA Date"},
                           {"VEXATime", 223, "VEXA Time"},
                           {"CurrentFireSize", 224, "Current Fire Size"}};

struct Topic
{
    const char* property;
    Long key;
    const char* name;
    const char* heading; // null: none
};

/// In the order of the situation group.
constexpr Topic kSituationTopics[] = {
    {"FuelConditions", 81, "Fuel Conditions", nullptr},
    {"Topography", 232, "Topography", "Topography"},
    {"Land Ownership in the Fire Area",
     233,
     "Jurisdiction and Land Ownership in the Fire Area",
     "Jurisdiction and Land Ownership in the Fire Area"},
    {"FireBehavior", 234, "Fire Behavior", "Fire Behavior - Current and Forecast"},
    {"WeatherConditions",
     235,
     "Weather Conditions",
     "Forecast Weather (3 and 10 day) and Current Seasonal Conditions"},
    {"Resources",
     88,
     "Suppression Resource Availability",
     "National and Regional Fire Preparedness, and Suppression Resource Availability"}};

struct ReportTopic
{
    Long row; // of the old table
    Long key;
    Long childIndex;
};

constexpr ReportTopic kReportTopics[] = {{1, 291, 1}, {2, 292, 2}, {3, 295, 5}, {4, 296, 6}};

void AddFreshTopic(Recordset& items, Long key, const char* name, const char* heading, Long childIndex)
{
    ItemRows::Begin(items, key, name);
    items.Set("Heading", std::string(heading));
    items.Set("Body", PlainToRichText(""));
    ItemRows::Place(items, g0Items::SummaryGroup, childIndex);
    items.Update();
}

/// Some files hold rich texts here already.
std::string RichBody(const std::string& body)
{
    return body.rfind(kRichMark, 0) == 0 ? body : PlainToRichText(body);
}

void CopyReportTopic(const Recordset& old, const ReportTopic& topic, Recordset& items)
{
    items.AddNew();
    items.Set("ItemKey", topic.key);
    Rows::CopyText(old, "Name", items, "ItemName");
    Rows::CopyText(old, "Heading", items, "Heading");
    items.Set("Body", RichBody(old.Text("Body")));
    Rows::CopyText(old, "ItemText", items, "ItemText");
    ItemRows::Place(items, g0Items::SummaryGroup, topic.childIndex);
    items.Update();
}

} // namespace

void CreateItemsTable()
{
    platform::Schema(OpenDatabase())
        .CreateTable({"Items",
                      {{"ItemKey", ColumnType::Long},
                       {"ItemName", ColumnType::Text},
                       {"Heading", ColumnType::Text},
                       {"Body", ColumnType::Text},
                       {"ItemText", ColumnType::Text},
                       {"ParentKey", ColumnType::Long},
                       {"ChildIndex", ColumnType::Long}},
                      {"ItemKey"}});
}

void AddGroups()
{
    Recordset items = ItemRows::Items();
    for (const auto& [key, name] : {std::pair<Long, const char*>{Long{GoalGroup}, "RMAs"},
                                    {g0Items::SituationGroup, "Situation Items"},
                                    {g0Items::AlternativeGroup, "Alternatives"},
                                    {g0Items::SummaryGroup, "Summary Items"}}) {
        ItemRows::Begin(items, key, name);
        items.Update();
    }
}

void CopyPropertiesToItemsTable()
{
    Recordset items = ItemRows::Items();
    for (const Fact& fact : kFacts) {
        ItemRows::Begin(items, fact.key, fact.name);
        items.Set("Body", u14Properties::Property_Get(fact.property));
        items.Update();
    }
    Long childIndex = 0;
    for (const Topic& topic : kSituationTopics) {
        ItemRows::Begin(items, topic.key, topic.name);
        if (topic.heading != nullptr) {
            items.Set("Heading", std::string(topic.heading));
        }
        items.Set("Body", PlainToRichText(u14Properties::Property_Get(topic.property)));
        ItemRows::Place(items, g0Items::SituationGroup, ++childIndex);
        items.Update();
    }
}

void CopyVEXATopicsToItemsTable()
{
    Recordset items = ItemRows::Items();
    Recordset topics = OpenDatabase().OpenTable("VEXATopics");
    for (const ReportTopic& topic : kReportTopics) {
        topics.Seek(topic.row);
        if (!topics.NoMatch()) {
            CopyReportTopic(topics, topic, items);
        }
    }
    AddFreshTopic(
        items, 293, "VEXA revision thresholds", "VEXA revision or amendment thresholds and protocol", 3);
    AddFreshTopic(items,
                  294,
                  "Critical Fire Management resources",
                  "Critical Fire Management resources (helicopters, crews, etc) estimated to implement the "
                  "selected alternative",
                  4);
}

} // namespace u16Convert4
