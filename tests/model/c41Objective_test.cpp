#include "FireSql.h"
#include "model/c41Objective.h"
#include "model/g41Objectives.h"
#include "model/g42SafetyIssues.h"
#include "platform/base/Errors.h"
#include "platform/data/DatabaseError.h"
#include "session/SessionState.h"
#include "support/TestSession.h"

using namespace firesql;
using support::Rows;

namespace {

class c41ObjectiveTest : public support::TestSession
{
protected:
    static c41Objective Made(Long key, Long parentKey, Long priority = 10)
    {
        c41Objective objective;
        objective.Initialize(key, "Name", "Text", priority, parentKey);
        return objective;
    }
    Rows LinksOf(Long key)
    {
        return Query("SELECT ChildKey, SiblingKey FROM Objectives WHERE \"Key\" = " + std::to_string(key));
    }
    /// Writes a name into the row behind the object's back.
    static void PutName(Long key, const std::string& name)
    {
        platform::Recordset rows = OpenDatabase().OpenTable("Objectives");
        rows.Seek(key);
        rows.Edit();
        rows.Set("Name", name);
        rows.Update();
    }
};

struct Position
{
    Long key;
    Long parent;
    bool root, category, objective, safetyRoot, safetyIssue;
};

} // namespace

TEST_F(c41ObjectiveTest, Position_ByOwnAndParentKey_IsAPlainComparison)
{
    const Position cases[] = {
        {1, 0, true, false, false, false, false},
        {2, 0, false, false, false, true, false},
        {3, 1, false, true, false, false, false},
        {9, 3, false, false, true, false, false},
        {9, 2, false, false, false, false, true},
        {9, 0, false, false, true, false, false},
        {2, 1, false, true, false, true, false},
    };
    for (const Position& each : cases) {
        SCOPED_TRACE(std::to_string(each.key) + " below " + std::to_string(each.parent));
        const c41Objective objective = Made(each.key, each.parent);
        EXPECT_EQ(objective.bRoot(), each.root);
        EXPECT_EQ(objective.bCategory(), each.category);
        EXPECT_EQ(objective.bObjective(), each.objective);
        EXPECT_EQ(objective.bSafetyRoot(), each.safetyRoot);
        EXPECT_EQ(objective.bSafetyIssue(), each.safetyIssue);
    }
}

TEST_F(c41ObjectiveTest, SafetyIssue_IsAlsoASafetyCategory)
{
    EXPECT_TRUE(Made(9, 2).bSafetyCategory());
    EXPECT_TRUE(Made(9, 2).bSafetyIssue());
    EXPECT_FALSE(Made(2, 0).bSafetyCategory());
}

TEST_F(c41ObjectiveTest, SaveChanges_NothingWritten_LeavesTheRow)
{
    OpenNew();
    const auto category = g41Objectives::Objective(4);
    PutName(4, "Put behind its back");
    category->SaveChanges();
    EXPECT_EQ(Query("SELECT Name FROM Objectives WHERE \"Key\" = 4"), (Rows{{"Put behind its back"}}));
}

TEST_F(c41ObjectiveTest, SaveChanges_EqualValueWritten_WritesTheRowOnce)
{
    OpenNew();
    const auto category = g41Objectives::Objective(4);
    category->SetItemName(category->ItemName());
    PutName(4, "First");
    category->SaveChanges();
    PutName(5, "Second");
    platform::Recordset rows = OpenDatabase().OpenTable("Objectives");
    rows.Seek(4);
    EXPECT_EQ(rows.Text("Name"), "Natural Resources");
    PutName(4, "Third");
    category->SaveChanges(); // the flag was cleared
    rows.Seek(4);
    EXPECT_EQ(rows.Text("Name"), "Third");
}

TEST_F(c41ObjectiveTest, SaveChanges_AllWritten_WritesTextsAndPriorityButNoLinks)
{
    OpenNew();
    const auto category = g41Objectives::Objective(4);
    category->SetItemName("Wildlife");
    category->SetDescription("{\\rtf1 x}");
    category->SetPriority(25);
    category->SaveChanges();
    EXPECT_EQ(Query("SELECT Name, Explanation, ParentKey, ChildKey, SiblingKey, Priority FROM Objectives "
                    "WHERE \"Key\" = 4"),
              (Rows{{"Wildlife", "{\\rtf1 x}", "1", "0", "5", "25"}}));
}

TEST_F(c41ObjectiveTest, SaveChanges_RowGone_IsAnError)
{
    OpenNew();
    c41Objective objective = Made(77, 1);
    objective.SetItemName("Nobody");
    EXPECT_THROW(objective.SaveChanges(), platform::DatabaseError);
}

TEST_F(c41ObjectiveTest, Weight_TwoObjectives_SharesByPriority)
{
    OpenNew(ObjectivesBelow(3, {10, 30}));
    EXPECT_EQ(g41Objectives::Objective(7)->Weight(), 0.25F);
    EXPECT_EQ(g41Objectives::Objective(8)->Weight(), 0.75F);
}

TEST_F(c41ObjectiveTest, Weight_AllPrioritiesZero_SharesEqually)
{
    OpenNew(ObjectivesBelow(3, {0, 0}));
    EXPECT_EQ(g41Objectives::Objective(7)->Weight(), 0.5F);
    EXPECT_EQ(g41Objectives::Objective(8)->Weight(), 0.5F);
    EXPECT_EQ(g41Objectives::Objective(3)->Weight(), 0.5F);
}

TEST_F(c41ObjectiveTest, Weight_Category_DividesByTheRowsBelowTheCategoriesAlone)
{
    OpenNew(ObjectivesBelow(3, {10, 30}));
    EXPECT_EQ(g41Objectives::Objective(4)->Weight(), 0.25F);
}

TEST_F(c41ObjectiveTest, Weight_IsGlobalInItsTree_NotWithinAParent)
{
    OpenNew(ObjectivesBelow(3, {10, 30}) + "UPDATE Objectives SET ChildKey = 9 WHERE \"Key\" = 4;"
                                           "INSERT INTO Objectives VALUES (9, 'Other', '', 4, 0, 0, 40);");
    EXPECT_EQ(g41Objectives::Objective(9)->Weight(), 0.5F);
    EXPECT_EQ(g41Objectives::Objective(7)->Weight(), 0.125F);
}

TEST_F(c41ObjectiveTest, Weight_Third_IsTheDoubleQuotientAsASingle)
{
    OpenNew(ObjectivesBelow(3, {1, 2}));
    EXPECT_EQ(g41Objectives::Objective(7)->Weight(), static_cast<Single>(1.0 / 3.0));
}

TEST_F(c41ObjectiveTest, Weight_Roots_IsOne)
{
    OpenNew();
    EXPECT_EQ(g41Objectives::Objective(1)->Weight(), 1.0F);
    EXPECT_EQ(g42SafetyIssues::SafetyIssue(2)->Weight(), 1.0F);
}

TEST_F(c41ObjectiveTest, Weight_NothingBelowTheCategories_IsADivisionByZero)
{
    OpenNew();
    EXPECT_THROW(g41Objectives::Objective(3)->Weight(), platform::DivisionByZero);
    EXPECT_THROW(Made(9, 2).Weight(), platform::DivisionByZero); // an issue that is in no tree
}

TEST_F(c41ObjectiveTest, Weight_SumOfPrioritiesBeyond32Bits_Overflows)
{
    OpenNew(ObjectivesBelow(3, {2147483647, 1}));
    EXPECT_THROW(g41Objectives::Objective(7)->Weight(), platform::Overflow);
    EXPECT_THROW(g41Objectives::Objective(3)->ChildrenPriorities(), platform::Overflow);
}

TEST_F(c41ObjectiveTest, Weight_NegativePriorities_CancelToTheEqualShare)
{
    OpenNew(ObjectivesBelow(3, {-10, 10}));
    EXPECT_EQ(g41Objectives::Objective(7)->Weight(), 0.5F);
}

TEST_F(c41ObjectiveTest, ChildrenPriorities_Category_SumsItsDirectChildrenAlone)
{
    OpenNew(ObjectivesBelow(3, {10, 30}) + "UPDATE Objectives SET ChildKey = 9 WHERE \"Key\" = 8;"
                                           "INSERT INTO Objectives VALUES (9, 'Below', '', 8, 0, 0, 500);");
    EXPECT_EQ(g41Objectives::Objective(3)->ChildrenPriorities(), 40);
    EXPECT_EQ(g41Objectives::Objective(8)->ChildrenPriorities(), 500);
    EXPECT_EQ(g41Objectives::Objective(4)->ChildrenPriorities(), 0);
}

TEST_F(c41ObjectiveTest, ChildrenPriorities_SafetyRoot_IsZeroSinceTheObjectiveTreeAloneIsLookedAt)
{
    OpenNew(Issues({10, 10}));
    EXPECT_EQ(g42SafetyIssues::SafetyIssue(2)->ChildrenPriorities(), 0);
}

TEST_F(c41ObjectiveTest, Delete_FirstChild_MovesTheParentsLinkToTheFollower)
{
    OpenNew(Issues({10, 10, 10}));
    g42SafetyIssues::SafetyIssue(7)->Delete();
    EXPECT_EQ(LinksOf(2), (Rows{{"8", "0"}}));
    EXPECT_EQ(LinksOf(7), Rows());
}

TEST_F(c41ObjectiveTest, Delete_OnlyChild_LeavesZeroAtTheParent)
{
    OpenNew(Issues({10}));
    g42SafetyIssues::SafetyIssue(7)->Delete();
    EXPECT_EQ(LinksOf(2), (Rows{{"0", "0"}}));
}

TEST_F(c41ObjectiveTest, Delete_MiddleChild_LinksItsNeighbours)
{
    OpenNew(Issues({10, 10, 10}));
    g42SafetyIssues::SafetyIssue(8)->Delete();
    EXPECT_EQ(LinksOf(2), (Rows{{"7", "0"}}));
    EXPECT_EQ(LinksOf(7), (Rows{{"0", "9"}}));
}

TEST_F(c41ObjectiveTest, Delete_LastChild_EndsTheChainBeforeIt)
{
    OpenNew(Issues({10, 10, 10}));
    g42SafetyIssues::SafetyIssue(9)->Delete();
    EXPECT_EQ(LinksOf(8), (Rows{{"0", "0"}}));
}

TEST_F(c41ObjectiveTest, Delete_RowOutsideItsParentsChain_IsLoggedAndStillGoesWithItsScores)
{
    OpenNew(Issues({10, 10}) + "INSERT INTO Objectives VALUES (20, 'Lost', '', 2, 0, 0, 10);" +
            Score(1, 20, "5") + Score(1, 7, "6"));
    Made(20, 2).Delete();
    EXPECT_NE(ErrorLog().find("ChildLink between 2 and 20 not found"), std::string::npos);
    EXPECT_EQ(LinksOf(2), (Rows{{"7", "0"}}));
    EXPECT_EQ(LinksOf(8), (Rows{{"0", "0"}}));
    EXPECT_EQ(LinksOf(20), Rows());
    EXPECT_EQ(Query("SELECT CriterionKey FROM Scores"), (Rows{{"7"}}));
}

TEST_F(c41ObjectiveTest, Delete_ChainInACircleWithoutTheRow_EndsAndIsLogged)
{
    OpenNew(Issues({10, 10}) + "UPDATE Objectives SET SiblingKey = 7 WHERE \"Key\" = 8;"
                               "INSERT INTO Objectives VALUES (20, 'Lost', '', 2, 0, 0, 10);");
    Made(20, 2).Delete();
    EXPECT_NE(ErrorLog().find("ChildLink between 2 and 20 not found"), std::string::npos);
    EXPECT_EQ(LinksOf(20), Rows());
}

TEST_F(c41ObjectiveTest, Delete_RowWithChildren_LeavesThem)
{
    OpenNew(ObjectivesBelow(3, {10}));
    g41Objectives::Objective(3)->Delete();
    EXPECT_EQ(Query("SELECT ParentKey FROM Objectives WHERE \"Key\" = 7"), (Rows{{"3"}}));
}

TEST_F(c41ObjectiveTest, Delete_RowGone_IsAnErrorBehindTheLog)
{
    OpenNew();
    EXPECT_THROW(Made(77, 2).Delete(), platform::DatabaseError);
}
