#include "FireSql.h"
#include "model/g41Objectives.h"
#include "model/g42SafetyIssues.h"
#include "model/g51Alternatives.h"
#include "platform/base/Errors.h"
#include "session/c0Item.h"
#include "support/TestSession.h"

#include <algorithm>

using namespace firesql;
using support::Rows;

namespace {

std::vector<Long> IssueKeys()
{
    std::vector<Long> keys;
    for (const auto& issue : g42SafetyIssues::SafetyIssueCollection()) {
        keys.push_back(issue->ItemKey());
    }
    return keys;
}

std::vector<Single> Weights()
{
    std::vector<Single> weights;
    for (const auto& issue : g42SafetyIssues::SafetyIssueCollection()) {
        if (issue->bSafetyIssue()) {
            weights.push_back(issue->Weight());
        }
    }
    return weights;
}

class g42SafetyIssuesTest : public support::TestSession
{};

} // namespace

TEST_F(g42SafetyIssuesTest, NoIssues_HoldsTheRootAlone)
{
    OpenNew();
    EXPECT_EQ(IssueKeys(), (std::vector<Long>{2}));
    EXPECT_EQ(g42SafetyIssues::SafetyIssueCount(), 0);
    EXPECT_EQ(g42SafetyIssues::TotalSafetyPriority(), 0);
    const auto lines = LogLines();
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "   SafetyIssues.GetSafetyIssues"), 1);
}

TEST_F(g42SafetyIssuesTest, Weight_ByPriorities_IsTheShareAmongTheIssues)
{
    struct Case
    {
        std::vector<Long> priorities;
        std::vector<Single> weights;
    };
    const Single third = static_cast<Single>(1.0 / 3.0);
    const Case cases[] = {
        {{10}, {1.0F}},
        {{10, 10, 10, 10}, {0.25F, 0.25F, 0.25F, 0.25F}},
        {{10, 30}, {0.25F, 0.75F}},
        {{10, 0, 10}, {0.5F, 0.0F, 0.5F}},
        {{0, 0, 0}, {third, third, third}},
        {{0}, {1.0F}},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(each.priorities.size());
        Close();
        OpenNew(Issues(each.priorities));
        EXPECT_EQ(Weights(), each.weights);
    }
}

TEST_F(g42SafetyIssuesTest, SafetyIssue_UnknownKeyOrObjective_IsMissing)
{
    OpenNew(Issues({10}));
    EXPECT_EQ(g42SafetyIssues::SafetyIssue(7)->ItemName(), "Row 7");
    EXPECT_THROW(g42SafetyIssues::SafetyIssue(3), platform::MissingMember);
}

TEST_F(g42SafetyIssuesTest, Load_LinksInACircle_EndsAsAnError)
{
    OpenNew(Issues({10, 10}) + "UPDATE Objectives SET SiblingKey = 7 WHERE \"Key\" = 8;");
    EXPECT_THROW(g42SafetyIssues::SafetyIssueCollection(), platform::DuplicateMember);
    EXPECT_THROW(g42SafetyIssues::SafetyIssueCount(), platform::DuplicateMember);
}

TEST_F(g42SafetyIssuesTest, Load_ParentColumnNotTheRoot_IsNoIssue)
{
    OpenNew(Issues({10, 10}) + "UPDATE Objectives SET ParentKey = NULL WHERE \"Key\" = 8;");
    EXPECT_EQ(IssueKeys(), (std::vector<Long>{2, 7, 8}));
    EXPECT_EQ(g42SafetyIssues::SafetyIssueCount(), 1);
    EXPECT_EQ(g42SafetyIssues::TotalSafetyPriority(), 10);
}

TEST_F(g42SafetyIssuesTest, NewSafetyIssue_BehindOthers_GoesToTheEndOfTheChain)
{
    OpenNew(Issues({10, 10}));
    const auto issue = g42SafetyIssues::NewSafetyIssue("Snags", 2);
    EXPECT_EQ(issue->ItemKey(), 9);
    EXPECT_EQ(issue->Description(), kDefaultBody);
    EXPECT_EQ(issue->Priority(), 10);
    EXPECT_TRUE(issue->bSafetyIssue());
    EXPECT_EQ(IssueKeys(), (std::vector<Long>{2, 7, 8, 9}));
    g42SafetyIssues::ResetSafetyIssues();
    EXPECT_EQ(IssueKeys(), (std::vector<Long>{2, 7, 8, 9}));
}

TEST_F(g42SafetyIssuesTest, NewSafetyIssue_NameReachesTheRowWithSaveChanges)
{
    OpenNew();
    g42SafetyIssues::NewSafetyIssue("Snags", 2);
    EXPECT_EQ(Query("SELECT Name, Priority FROM Objectives WHERE \"Key\" = 7"), (Rows{{"NULL", "10"}}));
    Open(path);
    const auto issue = g42SafetyIssues::NewSafetyIssue("Rolling rocks", 2);
    EXPECT_EQ(issue->ItemName(), "Rolling rocks");
    issue->SaveChanges();
    EXPECT_EQ(Query("SELECT Name, Priority FROM Objectives WHERE \"Key\" = 8"),
              (Rows{{"Rolling rocks", "10"}}));
}

TEST_F(g42SafetyIssuesTest, NewSafetyIssue_WeightsOfAllChangeAtOnce)
{
    OpenNew(Issues({10}));
    EXPECT_EQ(Weights(), (std::vector<Single>{1.0F}));
    g42SafetyIssues::NewSafetyIssue("", 2);
    EXPECT_EQ(Weights(), (std::vector<Single>{0.5F, 0.5F}));
}

TEST_F(g42SafetyIssuesTest, DeleteSafetyIssue_TakesItsRatingsForAllOutcomesAndRaisesTheOthers)
{
    OpenNew(Issues({10, 10}) + Alternative(1) + Score(TargetKey(1), 7, "4") + Score(kExtremeKey, 7, "2") +
            Score(TargetKey(1), 8, "6"));
    EXPECT_EQ(Weights(), (std::vector<Single>{0.5F, 0.5F}));
    g42SafetyIssues::DeleteSafetyIssue(7);
    EXPECT_EQ(IssueKeys(), (std::vector<Long>{2, 8}));
    EXPECT_EQ(Weights(), (std::vector<Single>{1.0F}));
    EXPECT_EQ(Query("SELECT OutcomeKey, CriterionKey FROM Scores"),
              (Rows{{std::to_string(TargetKey(1)), "8"}}));
    EXPECT_EQ(Query("SELECT ChildKey FROM Objectives WHERE \"Key\" = 2"), (Rows{{"8"}}));
}

TEST_F(g42SafetyIssuesTest, DeleteSafetyIssue_BetweenTwoLooksAtTheScores_NothingAsksForTheIssueThatIsGone)
{
    OpenNew(Issues({10, 10}) + Alternative(1) + Score(TargetKey(1), 7, "4") + Score(TargetKey(1), 8, "6"));
    EXPECT_EQ(g51Alternatives::Alternative(1)->ExpectedSafetyScore(), 5.0F);
    g42SafetyIssues::DeleteSafetyIssue(7);
    EXPECT_EQ(g51Alternatives::Alternative(1)->ExpectedSafetyScore(), 6.0F);
}

TEST_F(g42SafetyIssuesTest, DeleteSafetyIssue_UnknownKey_IsMissing)
{
    OpenNew();
    EXPECT_THROW(g42SafetyIssues::DeleteSafetyIssue(9), platform::MissingMember);
}
