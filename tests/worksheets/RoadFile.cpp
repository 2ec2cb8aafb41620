#include "worksheets/RoadFile.h"

#include "platform/richtext/RtfReader.h"

#include <gmock/gmock.h>

using platform::richtext::RichDocument;
using support::Rows;
using ::testing::IsEmpty;

namespace {

using Texts = std::vector<std::string>;

constexpr std::size_t kBody = 3; // the column of Items

std::string WithTemplate(const std::string& query)
{
    return "ATTACH '" + support::BuiltFile("QEL.new") + "' AS template;" + query;
}

Rows Readable(Rows rows)
{
    for (Texts& row : rows) {
        for (std::string& text : row) {
            if (platform::richtext::IsRtf(text)) text = platform::richtext::RtfToPlainText(text);
        }
    }
    return rows;
}

/// The template's item of that key, with another body.
Texts Filled(const std::string& key, const std::string& body)
{
    const Rows rows = Readable(
        support::QuerySql(support::BuiltFile("QEL.new"), "SELECT * FROM Items WHERE ItemKey = " + key));
    Texts row = rows.at(0);
    row.at(kBody) = body;
    return row;
}

/// An item of the general information: a body alone, in no group.
std::vector<std::string> Typed(const char* key, const char* body)
{
    return {key, "", "", body, "", "NULL", "NULL"};
}

/// What it is, what it predicts, what it costs.
Texts With(Texts row, const Texts& prediction, const Texts& costs)
{
    row.insert(row.end(), prediction.begin(), prediction.end());
    row.insert(row.end(), costs.begin(), costs.end());
    return row;
}

Texts NotShown(const char* key, const std::string& alternative)
{
    return With({key, "NULL", alternative, "2", ""},
                {"NULL", "NULL", "NULL", "-1.0", "NULL"},
                {"NULL", "NULL", "NULL", "1", "NULL"});
}

} // namespace

Rows RoadFile::Ask(const std::string& query) const { return support::QuerySql(m_path, query); }

Rows RoadFile::Written(const std::string& table) const
{
    return Readable(Ask(WithTemplate("SELECT * FROM main." + table + " EXCEPT SELECT * FROM template." +
                                     table + " ORDER BY 1, 2")));
}

Long RoadFile::More(const std::string& table) const
{
    const std::string count = "(SELECT count(*) FROM ";
    const Rows rows =
        Ask(WithTemplate("SELECT " + count + "main." + table + ") - " + count + "template." + table + ")"));
    return std::stoi(rows.at(0).at(0));
}

void RoadFile::CheckItems() const
{
    EXPECT_EQ(Written("Items"),
              (Rows{Typed("11", "Elk Ridge"),
                    Typed("52", "MT-BRF-0412"),
                    Typed("53", "Bitter Root County"),
                    Typed("54", "West Fork"),
                    Typed("55", "Northern Rockies"),
                    Typed("57", "340"),
                    Typed("61", "08/19/2006"),
                    Typed("62", "1530"),
                    Filled("81", "Lodgepole with much dead timber:\nslash\ndry grass"),
                    Typed("217", "P1-C7Q2"),
                    Typed("221", "VX-06-117"),
                    Typed("222", "08/21/2006"),
                    Typed("223", "0742"),
                    Filled("291", "Burn out from the roads.\n\nHeld at the ridge road. As agreed."),
                    Filled("292", "Safer, though it costs more."),
                    {Added(1), "Access", "Access", "One bridge, eight tons.", "", "22", "9"},
                    {Added(2), "A", "Direct line", "Crews on all flanks.", "NULL", "26", "1"},
                    {Added(3), "B", "Confine to the ridge", "Burn out from the roads.", "NULL", "26", "2"},
                    {Added(4), "Ridge lodge", "NULL", "", "", "23", "1"},
                    {Added(5), "Fences", "NULL", "", "", "23", "2"},
                    {Added(6), "", "Smoke", "Call the health office.", "", "28", "7"}}));
    EXPECT_EQ(More("Items"), 18);
}

void RoadFile::CheckLooksOfConditions() const
{
    const std::string body = Ask("SELECT Body FROM Items WHERE ItemKey = 81").at(0).at(0);
    const RichDocument document = platform::richtext::ReadRtf(body);
    ASSERT_EQ(document.blocks.size(), 3U);
    const auto& runs = document.blocks[0].AsParagraph()->runs;
    ASSERT_EQ(runs.size(), 3U);
    EXPECT_EQ(runs[1].text, "much dead");
    EXPECT_TRUE(runs[1].format.bold);
    EXPECT_FALSE(runs[0].format.bold || runs[2].format.bold);
    EXPECT_EQ(LevelOf(document, document.blocks[0].AsParagraph()->format), nullptr);
    for (const std::size_t item : {1U, 2U}) {
        const auto* level = LevelOf(document, document.blocks[item].AsParagraph()->format);
        ASSERT_NE(level, nullptr) << item;
        EXPECT_EQ(level->kind, platform::richtext::ListKind::Bullet);
    }
}

void RoadFile::CheckObjectives() const
{
    EXPECT_EQ(Written("Objectives"),
              (Rows{{"2", "Safety", "", "0", "7", "0", "10"}, // the first issue hangs on it
                    {"3", "Property and Economy", "Nine homes.", "1", "0", "4", "10"},
                    {"6", "Feasibility", "Crews by Friday.", "1", "0", "0", "10"},
                    {"7", "Snags", "Burned roots.", "2", "NULL", "8", "10"},
                    {"8", "Steep ground", "Rolling rocks.", "2", "NULL", "0", "10"}}));
    EXPECT_EQ(More("Objectives"), 2);
}

/// Of the Extreme outcome (1) and the two Targets (2 and 4); 3 and 5 are the Fallbacks, which are not
/// shown.
void RoadFile::CheckScores() const
{
    EXPECT_EQ(Written("Scores"),
              (Rows{{"1", "3", "2.0", ""},
                    {"1", "4", "3.0", ""},
                    {"1", "5", "1.0", ""},
                    {"1", "6", "4.0", ""},
                    {"1", "7", "3.0", ""},
                    {"1", "8", "2.0", ""},
                    {"2", "3", "8.0", ""},
                    {"2", "4", "7.0", ""},
                    {"2", "5", "6.0", ""},
                    {"2", "6", "5.5", ""},
                    {"2", "7", "8.0", ""},
                    {"2", "8", "7.0", ""},
                    {"4", "3", "6.0", ""},
                    {"4", "4", "8.0", ""},
                    {"4", "5", "7.0", ""},
                    {"4", "6", "9.0", ""},
                    {"4", "7", "6.0", "Fallers ahead of crews."},
                    {"4", "8", "7.0", ""}}));
    EXPECT_EQ(More("Scores"), 18);
}

void RoadFile::CheckOutcomes() const
{
    EXPECT_EQ(Written("Outcomes"),
              (Rows{With({"1", "NULL", "0", "1", "Runs to the valley."},
                         {"12000.0", "30", "45", "0.0", ""},
                         {"0.0", "0.0", "4200000", "8", "As the fire of 2000."}),
                    With({"2", "NULL", Added(2), "1", "Held at the creek."},
                         {"900.0", "6", "10", "80.0", "Light winds."},
                         {"0.0", "0.0", "0", "1", ""}),
                    NotShown("3", Added(2)),
                    With({"4", "NULL", Added(3), "1", "Held at the ridge road."},
                         {"2500.0", "12", "20", "60.0", "Roads are wide."},
                         {"0.0", "0.0", "0", "2", "By the order list."}),
                    NotShown("5", Added(3))}));
    EXPECT_EQ(More("Outcomes"), 4);
    EXPECT_EQ(Written("OutcomeFMZs"),
              (Rows{{"2", "0", "50", "0", "0", "0", "5", "0", "0"},
                    {"3", "0", "50", "0", "0", "0", "5", "0", "0"},
                    {"4", "0", "50", "0", "0", "0", "5", "0", "0"},
                    {"5", "0", "50", "0", "0", "0", "5", "0", "0"}}));
}

void RoadFile::CheckLosses() const
{
    EXPECT_EQ(Written("ItemImpacts"),
              (Rows{{"1", Added(5), "40000"},
                    {"2", Added(4), "5000"},
                    {"4", Added(4), "7000"},
                    {"4", Added(5), "1"}}));
    EXPECT_EQ(Written("ValuesAtRisk"), (Rows{{Added(4), "7000.0", "100"}, {Added(5), "40000.0", "100"}}));
}

void RoadFile::CheckCosts() const
{
    EXPECT_EQ(Written("SuppressionPerAcreCost"),
              (Rows{{"0", "1", "1000.0", "200.0"}, {"0", "2", "0.0", "90.0"}}));
    EXPECT_EQ(More("SuppressionPerAcreCost"), 0);
    EXPECT_EQ(Written("SRTypes"),
              (Rows{{"36", "NULL", "36", "Mule string with packer", "Mules", "time", "days", "900"}}));
    EXPECT_EQ(More("SRTypes"), 1);
    // Kept: the deleted fourth line leaves a gap in B's numbers. The copy for A has none.
    EXPECT_EQ(Ask("SELECT OutcomeKey, ItemIndex, SRTypeKey, Quantity, Periods FROM SRUses ORDER BY 1, 2"),
              (Rows{{"2", "1", "25", "3", "1"},
                    {"2", "2", "1", "2", "6"},
                    {"2", "3", "5", "5", "12"},
                    {"2", "4", "36", "4", "8"},
                    {"4", "1", "25", "3", "1"},
                    {"4", "2", "1", "2", "10"},
                    {"4", "3", "5", "5", "12"},
                    {"4", "5", "36", "4", "8"}}));
}

void RoadFile::CheckTheRest() const
{
    EXPECT_EQ(Written("Properties"),
              (Rows{{"FullFileName", m_path}, {"SelectedAlternativeKey", Added(3)}, {"UseNVCGains", "No"}}));
    for (const char* table : {"ValuesProtected", "FMZList", "NVCResources", "NVCPerAcre"}) {
        EXPECT_THAT(Written(table), IsEmpty()) << table;
        EXPECT_EQ(More(table), 0) << table;
    }
}
