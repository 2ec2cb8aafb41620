#include "ReportTest.h"
#include "session/c0Item.h"
#include "session/g2Situation.h"

namespace {

class Situation : public support::ReportTest
{
protected:
    static void SetItem(Long key, const std::string& text) { g2Situation::GetItem(key)->SetBody(text); }
    static std::string Paragraphs(int count)
    {
        std::string text;
        for (int i = 0; i < count; ++i)
            text += "A paragraph of some length, so that it goes over more than one line of the column.\r\n";
        return text;
    }
    /// Leaves one topic.
    void OpenOneTopic() { OpenNew("DELETE FROM Items WHERE ParentKey = 22 AND ItemKey <> 81;"); }
    static const platform::print::PageHeader& HeaderOf(Long page)
    {
        return Printer().Pages().setups.at(static_cast<std::size_t>(page) - 1).header;
    }
    /// Where the columns begin on the first page.
    static Double ColumnTop()
    {
        for (const auto& item : Printer().Pages().flow) {
            if (std::holds_alternative<platform::print::FlowColumns>(item.content)) return item.top;
        }
        return 0.0;
    }
    /// The lowest rule of the table.
    static Double TableBottom()
    {
        Double bottom = 0.0;
        for (const auto& line : Printer().Pages().pages.front().ink.lines)
            bottom = std::max(bottom, line.y1);
        return bottom;
    }
};

TEST_F(Situation, TitleTable_HoldsCaptionsAndItems)
{
    OpenNew();
    SetItem(221, "LKF-7");
    SetItem(11, "Smith {Creek} \\b|;");
    SetItem(52, "I-9");
    SetItem(222, "08/09/2024");
    SetItem(223, "0930");
    SetItem(53, "State");
    SetItem(55, "Basin");
    SetItem(54, "Unit 4");
    SetItem(217, "P7");
    Produce({1});
    for (const char* text : {"Vexarium",
                             "VEXA Information",
                             "Fire Situation",
                             "  LKF-7",
                             "  Smith {Creek} \\b|;",
                             "  I-9",
                             "  08/09/2024 0930",
                             "  State",
                             "  Basin",
                             "  Unit 4",
                             "  P7"})
        EXPECT_EQ(PlacesOf(text).size(), 1u) << text;
    for (const char* caption : {"VEXA Number:", "Fire Name:", "Incident Number:", "Date/Time Prepared:"})
        EXPECT_EQ(PlaceOf(caption).x, 720.0 + 60.0) << caption;
    for (const char* caption :
         {"Jurisdiction(s):", "Geographic Area:", "Unit:", "Accounting or Management Code:"})
        EXPECT_EQ(PlaceOf(caption).x, 720.0 + 5400.0 + 60.0) << caption;
    EXPECT_EQ(PlaceOf("VEXA Number:").y, PlaceOf("Jurisdiction(s):").y);
}

TEST_F(Situation, EmptyItems_CaptionsStandAlone)
{
    OpenNew();
    Produce({1});
    EXPECT_TRUE(HasLine("VEXA Number: Jurisdiction(s):"));
    PlaceOf("Fire Name:");
}

TEST_F(Situation, StartAndSize_StandBehindTheirCaptions)
{
    OpenNew();
    SetItem(61, "08/06/2024");
    SetItem(62, "1540");
    SetItem(57, "1150");
    Produce({1});
    EXPECT_EQ(PlaceOf("08/06/2024 1540").y, PlaceOf("Start Date/Time:   ").y);
    EXPECT_EQ(PlaceOf("1150 acres").y, PlaceOf("Current Fire Size:   ").y);
    EXPECT_GT(PlaceOf("1150 acres").x, PlaceOf("Current Fire Size:   ").x);
}

TEST_F(Situation, FirstPage_HasNoHeaderAndTheNextHasBothHeaderAndRule)
{
    OpenOneTopic();
    SetItem(11, "Smith Creek");
    g2Situation::GetSituationTopics().at(0)->SetBody(Paragraphs(60));
    Produce({1});
    ASSERT_EQ(PageCount(), 2);
    EXPECT_TRUE(HeaderOf(1).IsEmpty());
    EXPECT_FALSE(HeaderOf(1).ruled);
    EXPECT_EQ(HeaderOf(2).fields.at(0).text, "Smith Creek");
    EXPECT_TRUE(HeaderOf(2).ruled);
}

TEST_F(Situation, NextPage_HasItsUsualTopMarginSinceTheTableLeftItBelow4300)
{
    OpenOneTopic();
    g2Situation::GetSituationTopics().at(0)->SetBody(Paragraphs(60));
    Produce({1});
    ASSERT_EQ(PageCount(), 2);
    EXPECT_GT(TableBottom(), 4300.0);
    EXPECT_EQ(Printer().Pages().setups.at(1).marginTop, 1440.0);
}

TEST_F(Situation, Columns_BothBeginBelowTheTable)
{
    OpenOneTopic();
    g2Situation::GetSituationTopics().at(0)->SetBody(Paragraphs(25));
    Produce({1});
    ASSERT_EQ(PageCount(), 1);
    Double top = 15840.0;
    for (const auto& text : Printer().Pages().pages.front().ink.texts) {
        if (text.x > 6120.0 && text.y > TableBottom()) top = std::min(top, text.y);
    }
    EXPECT_EQ(top, PlaceOf("Start Date/Time:   ").y);
}

TEST_F(Situation, TopicNearTheFoot_MovesToTheNextColumnBeforeItsHeading)
{
    OpenNew("DELETE FROM Items WHERE ParentKey = 22 AND ItemKey NOT IN (81, 232);");
    const auto topics = g2Situation::GetSituationTopics();
    Double lowest = 0.0; // baseline of the heading
    Long lines = 30;
    std::string body;
    for (Long i = 0; i < lines; ++i)
        body += "line\r\n";
    for (; lines < 60; ++lines, body += "line\r\n") {
        topics.at(0)->SetBody(body);
        topics.at(1)->SetBody("text");
        Produce({1});
        const Place heading = PlaceOf(topics.at(1)->Heading());
        if (heading.x > 6120.0) break;
        lowest = heading.y;
    }
    ASSERT_LT(lines, 60);
    const Double ascent = PlaceOf("Start Date/Time:   ").y - ColumnTop();
    EXPECT_EQ(PlaceOf(topics.at(1)->Heading()).y, ColumnTop() + ascent);
    EXPECT_EQ(PlaceOf("text").x, PlaceOf(topics.at(1)->Heading()).x);
    // The last heading that stayed began at 14760 or above; a line further down it would not have.
    const std::vector<Place> places = PlacesOf("line");
    const Double step = places.at(1).y - places.at(0).y;
    EXPECT_LE(lowest - ascent, 15840.0 - 1080.0);
    EXPECT_GT(lowest - ascent + step, 15840.0 - 1080.0);
}

TEST_F(Situation, SectionBehindIt_HasOneColumnAgain)
{
    OpenNew();
    Produce({1, 2});
    EXPECT_EQ(Printer().Columns(), 1);
    EXPECT_EQ(PlaceOf("Selected Alternative").page, 2);
    EXPECT_EQ(PlaceOf("Selected Alternative").x, 1080.0);
}

TEST_F(Situation, Log_TellsItsSteps)
{
    OpenNew();
    Produce({1});
    for (const char* step :
         {"r1Situation.PrintSituation", "r1Situation.ShowVEXAInformation", "r1Situation.ShowFireSituation"})
        EXPECT_EQ(CountLog(step), 1) << step;
}

} // namespace
