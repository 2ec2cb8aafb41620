#include "ReportTest.h"
#include "model/FireSql.h"
#include "model/c41Objective.h"
#include "model/c51Alternative.h"
#include "model/c53Outcome.h"
#include "model/c62Rating.h"
#include "model/g42SafetyIssues.h"
#include "model/g51Alternatives.h"
#include "model/g53Outcomes.h"
#include "platform/base/Texts.h"

#include <algorithm>

namespace {

using firesql::Alternative;

class SafetyAssessment : public support::ReportTest
{
protected:
    static std::size_t RowCount()
    {
        for (const auto& item : Printer().Pages().flow) {
            const auto* table = std::get_if<platform::print::FlowTable>(&item.content);
            if (table != nullptr) return table->table.rows.size();
        }
        return 0;
    }
};

TEST_F(SafetyAssessment, RootAlone_TitleAndHeads)
{
    OpenNew(Alternative(1));
    Produce({9});
    EXPECT_EQ(RowCount(), 3u); // the title and two rows
    EXPECT_TRUE(HasLine("Alternative A. Name A"));
    EXPECT_TRUE(HasLine("Target Outcome Fallback Outcome Extreme Outcome"));
}

TEST_F(SafetyAssessment, TwoIssues_TakeEightRowsOfWhichTheLastStaysEmpty)
{
    OpenNew(Alternative(1) + firesql::Issues({10, 5}) + firesql::Score(firesql::TargetKey(1), 7, "7.5") +
            firesql::Score(firesql::kExtremeKey, 8, "3"));
    Produce({9});
    EXPECT_EQ(RowCount(), 9u);
    PlaceOf("Issue: Row 7");
    PlaceOf("Issue: Row 8");
    PlaceOf("Rating: 7.5 / 10");
    PlaceOf("Rating: 3 / 10");
    EXPECT_EQ(PlacesOf("Note").size(), 2u);
    EXPECT_EQ(PlacesOf("Rating: 0 / 10").size(), 2u);
}

TEST_F(SafetyAssessment, NoFallback_HeadStandsOverAnEmptyColumn)
{
    OpenNew(Alternative(1) + firesql::Issues({10}));
    Produce({9});
    EXPECT_EQ(PlacesOf("Fallback Outcome").size(), 1u);
    EXPECT_EQ(PlacesOf("Rating: 0 / 10").size(), 2u);
    OpenNew(Alternative(1, "", "Success = 40") + firesql::Issues({10}));
    Produce({9});
    EXPECT_EQ(PlacesOf("Rating: 0 / 10").size(), 3u);
}

TEST_F(SafetyAssessment, NoAlternatives_HeadingAlone)
{
    OpenNew(firesql::Issues({10}));
    Produce({9});
    EXPECT_EQ(LinesOfPage(1).back(), "Safety Assessment");
}

TEST_F(SafetyAssessment, DescriptionsOfRatings_AreRichOnlyWhereTheyBeginSo)
{
    OpenNew(Alternative(1) + firesql::Issues({10}) + firesql::Score(firesql::TargetKey(1), 7, "1") +
            firesql::Score(firesql::kExtremeKey, 7, "2") +
            "UPDATE Scores SET Description = '{\\b a|b;}' WHERE OutcomeKey = 1;"
            "UPDATE Scores SET Description = '{\\rtf1 rich\\par }' WHERE OutcomeKey <> 1;");
    Produce({9});
    PlaceOf("{\\b a|b;}");
    PlaceOf("rich");
}

TEST_F(SafetyAssessment, AllSamples_PrintTheModelsRatings)
{
    for (const char* name : {"smith-creek", "granite-fork-complex", "juniper-gap"}) {
        SCOPED_TRACE(name);
        OpenSample(name);
        Produce({9});
        std::vector<std::string> wanted;
        const auto& issues = g42SafetyIssues::SafetyIssueCollection();
        const auto add = [&](const c53Outcome& outcome, Long place) {
            c62Rating rating;
            rating.Initialize(outcome.ItemKey(), issues.At(place)->ItemKey(), true, false);
            wanted.push_back("Rating: " + platform::TextOf(rating.RawScore()) + " / 10");
        };
        for (const auto& alternative : g51Alternatives::AlternativeCollection()) {
            for (Long place = 2; place <= issues.Count(); ++place) {
                add(*alternative->Outcome(1), place);
                if (alternative->Outcome(2)->bShow()) add(*alternative->Outcome(2), place);
                add(*g53Outcomes::ExtremeOutcome(), place);
            }
        }
        std::vector<std::string> printed;
        for (const auto& page : Printer().Pages().pages) {
            for (const auto& text : page.ink.texts) {
                if (text.text.starts_with("Rating: ")) printed.push_back(text.text);
            }
        }
        EXPECT_EQ(printed, wanted);
    }
}

TEST_F(SafetyAssessment, Log_TellsTheSection)
{
    OpenNew();
    Produce({9});
    EXPECT_EQ(CountLog("PrintSafetyAssessment"), 1);
}

} // namespace
