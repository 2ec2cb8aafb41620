#include "ReportTest.h"
#include "model/FireSql.h"
#include "model/c51Alternative.h"
#include "model/g51Alternatives.h"
#include "platform/base/Formats.h"

#include <algorithm>
#include <cmath>
#include <set>

namespace {

class DailyReview : public support::ReportTest
{
protected:
    /// The places of the level rules below the running header.
    static std::vector<long> RuleHeights()
    {
        std::set<long> heights;
        for (const auto& line : Printer().Pages().pages.front().ink.lines) {
            if (line.y1 == line.y2 && line.y1 > 720.0) heights.insert(std::lround(line.y1));
        }
        return {heights.begin(), heights.end()};
    }
};

TEST_F(DailyReview, SelectedAlternative_TellsItsTargetsCostAndSize)
{
    OpenSample("smith-creek");
    Produce({3});
    c51Alternative& selected = *g51Alternatives::SelectedAlternative();
    const Place cost = PlaceOf(platform::Format(selected.EstimatedCost(), "$#,0"));
    const Place size = PlaceOf(platform::Format(selected.EstimatedSize(), "#,0"));
    const Place words = PlaceOf("Estimated target suppression cost and size");
    EXPECT_EQ(cost.y, words.y);
    EXPECT_EQ(size.y, words.y);
    EXPECT_EQ(size.x, 720.0 + 1860.0 + 60.0);
    EXPECT_EQ(words.x, 720.0 + 1860.0 + 1200.0 + 60.0);
}

TEST_F(DailyReview, NoneSelected_LineIsLeftOutAndTheRestGoesOn)
{
    OpenNew(firesql::Alternative(1));
    Produce({3});
    EXPECT_FALSE(HasLine("Estimated target suppression cost and size"));
    EXPECT_EQ(PlaceOf("Final Review").page, 1);
}

TEST_F(DailyReview, Table_HasAHeadOf3900AndTenRowsOf480)
{
    OpenNew();
    Produce({3});
    const std::vector<long> heights = RuleHeights();
    ASSERT_EQ(heights.size(), 12u);
    EXPECT_EQ(heights.at(1) - heights.at(0), 3900);
    for (std::size_t row = 2; row < heights.size(); ++row)
        EXPECT_EQ(heights.at(row) - heights.at(row - 1), 480) << row;
}

TEST_F(DailyReview, Heads_FiveReadUpwardAndThreeStandUpright)
{
    OpenNew();
    const auto& document = Produce({3});
    std::vector<std::string> upward;
    for (const auto& text : document.pages.front().ink.texts) {
        if (text.upward) upward.push_back(text.text);
    }
    EXPECT_EQ(upward,
              (std::vector<std::string>{" National Preparedness Level",
                                        " Regional Preparedness Level",
                                        " Suppression cost to date",
                                        " Size to date",
                                        "Selected alternative remains valid (Y or N)"}));
    for (const char* head : {"By", "Date", "Time"})
        PlaceOf(head);
}

TEST_F(DailyReview, FinalReview_HasItsLines)
{
    OpenNew();
    Produce({3});
    std::vector<std::string> lines = LinesOfPage(1);
    const auto found = std::find(lines.begin(), lines.end(), "Final Review");
    ASSERT_NE(found, lines.end());
    EXPECT_EQ(std::vector<std::string>(found + 1, lines.end()),
              (std::vector<std::string>{"The elements of the selected alternative were met on:",
                                        "Date:__________________________     Time:______________________",
                                        "By:__________________________________________________________",
                                        "Agency Administrator"}));
}

TEST_F(DailyReview, LetterAndA4_FitOnOnePage)
{
    OpenSample("granite-fork-complex");
    Produce({3});
    EXPECT_EQ(PageCount(), 1);
    UseA4();
    Produce({3});
    EXPECT_EQ(PageCount(), 1);
}

} // namespace
