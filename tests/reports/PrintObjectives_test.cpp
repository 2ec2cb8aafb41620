#include "ReportTest.h"
#include "model/FireSql.h"
#include "model/c41Objective.h"
#include "model/g41Objectives.h"
#include "model/g42SafetyIssues.h"
#include "platform/base/Formats.h"
#include "platform/base/Texts.h"

namespace {

class Objectives : public support::ReportTest
{
protected:
    static std::string BodyOf(const std::string& text, Long spaceBefore)
    {
        return "{\\rtf1\\deff0{\\fonttbl{\\f0 Arial;}}\\pard\\f0\\fs20\\sb" + std::to_string(spaceBefore) +
               " " + text + "\\par }";
    }
    using Rows = platform::Collection<std::shared_ptr<c41Objective>>;

    /// The page of the third row of a section, when it would begin at `top` and the measure of its
    /// description, with the space above the row before still in force, comes down to `end`.
    static Long PageOfThird(Integer section, const Rows& rows, Double space, Double top, Double end)
    {
        rows.At(1)->SetDescription(BodyOf("a", 0));
        rows.At(2)->SetDescription(BodyOf("b", 0));
        rows.At(3)->SetDescription(BodyOf("c", 0));
        const std::string& name = rows.At(3)->ItemName();
        const Double now = TopOf(section, name);
        rows.At(2)->SetDescription(BodyOf("b", platform::ToLong(top - now)));
        EXPECT_EQ(TopOf(section, name), top);
        rows.At(3)->SetDescription(BodyOf("c", platform::ToLong(end - top - space - OneLine())));
        Produce({section});
        const std::vector<Place> places = PlacesOf(name);
        return places.empty() ? PlaceOf("   " + name).page : places.front().page;
    }
    /// Of the second category.
    static Long PageOfCategory(Double top, Double end)
    {
        return PageOfThird(4, g41Objectives::ObjectiveCollection(), 120.0, top, end);
    }
    static Double OneLine()
    {
        Printer().StartDoc();
        Printer().CalcParagraph("x");
        return Printer().TextHei();
    }
    /// Where a row begins, above its space.
    static Double TopOf(Integer section, const std::string& name)
    {
        Produce({section});
        Double top = 0.0;
        for (const auto& item : Printer().Pages().flow) {
            const auto* table = std::get_if<platform::print::FlowTable>(&item.content);
            if (table == nullptr) continue;
            const auto& runs = table->table.rows.front().cells.front().blocks.front().AsParagraph()->runs;
            if (!runs.empty() && runs.front().text.ends_with(name)) top = item.top;
        }
        return top;
    }
};

TEST_F(Objectives, Rows_PrintEveryNamePriorityAndWeight)
{
    OpenNew(firesql::ObjectivesBelow(3, {10, 5}) + "UPDATE Objectives SET Priority = 7 WHERE \"Key\" = 3;");
    Produce({4});
    for (const auto& objective : g41Objectives::ObjectiveCollection()) {
        const std::string indent = objective->bCategory() ? "" : "   ";
        const Place name = PlaceOf(indent + objective->ItemName());
        EXPECT_EQ(name.x, 720.0 + 60.0);
        if (objective->bCategory()) continue;
        bool hasPriority = false, hasWeight = false;
        for (const Place& place : PlacesOf(platform::TextOf(objective->Priority())))
            hasPriority = hasPriority || place.y == name.y;
        for (const Place& place : PlacesOf(platform::Format(objective->Weight(), "0.00")))
            hasWeight = hasWeight || place.y == name.y;
        EXPECT_TRUE(hasPriority && hasWeight) << objective->ItemName();
    }
    EXPECT_TRUE(PlacesOf("7").empty()); // a category has no figures
}

TEST_F(Objectives, Heads_OfThisEditionStandAloneAboveTheirFigures)
{
    OpenNew();
    Produce({4});
    EXPECT_TRUE(HasLine("Objective"));
    EXPECT_FALSE(HasLine("Objective Priority (high=10) Weight"));
    EXPECT_TRUE(HasLine("   Objectives 10 1.00"));
}

TEST_F(Objectives, Descriptions_StandIndentedByAnInch)
{
    OpenNew("UPDATE Objectives SET Explanation = 'why' WHERE \"Key\" = 3;");
    Produce({4});
    EXPECT_EQ(PlaceOf("why").x, 720.0 + 1440.0);
}

TEST_F(Objectives, MarksInAName_AreCharacters)
{
    OpenNew("UPDATE Objectives SET Name = 'a|b;{\\b c}' WHERE \"Key\" = 3;");
    Produce({4, 5});
    PlaceOf("a|b;{\\b c}");
}

TEST_F(Objectives, CategoryNeedsAThousandAtTheFoot)
{
    OpenNew("UPDATE Objectives SET SiblingKey = 0 WHERE \"Key\" = 4;");
    EXPECT_EQ(PageOfCategory(13000.0, 14840.0), 1);
    EXPECT_EQ(PageOfCategory(13000.0, 14841.0), 2);
}

TEST_F(Objectives, ItemNeeds720AtTheFoot)
{
    OpenNew(firesql::ObjectivesBelow(3, {10}));
    const auto& objectives = g41Objectives::ObjectiveCollection();
    ASSERT_FALSE(objectives.At(3)->bCategory());
    EXPECT_EQ(PageOfThird(4, objectives, 120.0, 13000.0, 15120.0), 1);
    EXPECT_EQ(PageOfThird(4, objectives, 120.0, 13000.0, 15121.0), 2);
}

TEST_F(Objectives, CategoryOnTheNextPage_StandsBelowTheColumnHead)
{
    OpenNew("UPDATE Objectives SET SiblingKey = 0 WHERE \"Key\" = 4;");
    EXPECT_EQ(PageOfCategory(13000.0, 15000.0), 2);
    const std::vector<Place> heads = PlacesOf("Objective");
    ASSERT_EQ(heads.size(), 2u);
    // The space above the row before is still in force.
    EXPECT_EQ(heads.at(1).y - heads.at(0).y, 120.0);
}

TEST_F(Objectives, UpperPartOfThePage_IsNotTested)
{
    OpenNew("UPDATE Objectives SET SiblingKey = 0 WHERE \"Key\" = 4;");
    EXPECT_EQ(PageOfCategory(12000.0, 15500.0), 1);
    EXPECT_EQ(PageOfCategory(12001.0, 15500.0), 2);
    std::string words;
    for (int i = 0; i < 2000; ++i)
        words += "word ";
    EXPECT_EQ(PageOfCategory(11900.0, 12200.0), 1);
    g41Objectives::ObjectiveCollection().At(3)->SetDescription(BodyOf(words, 0));
    Produce({4});
    EXPECT_EQ(PlaceOf(g41Objectives::ObjectiveCollection().At(3)->ItemName()).page, 1);
    EXPECT_GT(PageCount(), 1); // the text is broken where the page ends
}

// Safety issues

TEST_F(Objectives, SafetyIssues_HaveNoColumnHeadAndNoFigures)
{
    OpenNew(firesql::Issues({10, 5}));
    Produce({5});
    EXPECT_TRUE(PlacesOf("Objective").empty());
    PlaceOf("Safety");
    PlaceOf("Row 7");
    PlaceOf("About 7");
    EXPECT_FALSE(HasLine("Safety 10 1.00") || HasLine("   Safety 10 1.00"));
}

TEST_F(Objectives, IssueNeeds720AtTheFootAlthoughItLooksLikeACategory)
{
    OpenNew(firesql::Issues({10, 5}));
    const auto& issues = g42SafetyIssues::SafetyIssueCollection();
    EXPECT_EQ(PageOfThird(5, issues, 120.0, 13000.0, 15120.0), 1);
    EXPECT_EQ(PageOfThird(5, issues, 120.0, 13000.0, 15121.0), 2);
    EXPECT_EQ(PageOfThird(5, issues, 120.0, 12000.0, 15500.0), 1);
    EXPECT_EQ(PageOfThird(5, issues, 120.0, 12001.0, 15500.0), 2);
}

TEST_F(Objectives, EmptyDescriptions_LeaveALineInTheReportOfObjectivesAndNoneInThatOfIssues)
{
    OpenNew(firesql::Issues({10, 5}) + "UPDATE Objectives SET Explanation = 'x' WHERE \"Key\" IN (4, 7);");
    Produce({4});
    const Double objectives = PlaceOf("Communities and Culture").y - PlaceOf("Natural Resources").y;
    Produce({5});
    const Double issues = PlaceOf("Row 8").y - PlaceOf("Row 7").y;
    EXPECT_EQ(issues, objectives);
    Close();
    support::ExecuteSql(path, "UPDATE Objectives SET Explanation = '' WHERE \"Key\" IN (4, 7);");
    Open(path);
    Produce({4});
    EXPECT_EQ(PlaceOf("Communities and Culture").y - PlaceOf("Natural Resources").y, objectives);
    Produce({5});
    EXPECT_LT(PlaceOf("Row 8").y - PlaceOf("Row 7").y, issues);
}

TEST_F(Objectives, ListsOfIssues_KeepTheirNumbers)
{
    const std::string list = "{\\rtf1{\\*\\listtable{\\list\\listtemplateid1\\listid1}}\\pard a\\par }";
    OpenNew(firesql::Issues({10}) + "UPDATE Objectives SET Explanation = '" + list + "' WHERE \"Key\" = 7;");
    Produce({5});
    EXPECT_EQ(ReportUtilities::nRtfLists(), 0);
    Produce({4});
    EXPECT_EQ(ReportUtilities::nRtfLists(), 0);
}

} // namespace
