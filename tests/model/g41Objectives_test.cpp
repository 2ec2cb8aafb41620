#include "FireSql.h"
#include "model/g41Objectives.h"
#include "platform/base/Errors.h"
#include "platform/data/DatabaseError.h"
#include "session/c0Item.h"
#include "support/TestSession.h"

#include <algorithm>

using namespace firesql;
using support::Rows;

namespace {

using Keys = std::vector<Long>;

Keys KeysOf(const g41Objectives::Objectives& objectives)
{
    Keys keys;
    for (const auto& objective : objectives) {
        keys.push_back(objective->ItemKey());
    }
    return keys;
}

class g41ObjectivesTest : public support::TestSession
{
protected:
    long TimesLogged(const std::string& line) const
    {
        const auto lines = LogLines();
        return std::count(lines.begin(), lines.end(), "   " + line);
    }
};

/// The rows of one chain, from `first` on: each the `link` (ChildKey, SiblingKey) of the one before.
std::string LongChain(Long first, Long count, bool downwards)
{
    const std::string next = "CASE WHEN k < " + std::to_string(first + count - 1) + " THEN k + 1 ELSE 0 END";
    const std::string links = downwards ? next + ", 0" : "0, " + next;
    return "UPDATE Objectives SET ChildKey = " + std::to_string(first) +
           " WHERE \"Key\" = 6; WITH RECURSIVE c(k) AS (SELECT " + std::to_string(first) +
           " UNION ALL SELECT k + 1 FROM c WHERE k < " + std::to_string(first + count - 1) +
           ") INSERT INTO Objectives SELECT k, 'x', '', 6, " + links + ", 1 FROM c;";
}

} // namespace

TEST_F(g41ObjectivesTest, ObjectiveCollection_Template_HoldsRootAndCategories)
{
    OpenNew();
    EXPECT_EQ(KeysOf(g41Objectives::ObjectiveCollection()), (Keys{1, 3, 4, 5, 6}));
    const auto category = g41Objectives::Objective(3);
    EXPECT_EQ(category->ItemName(), "Property and Economy");
    EXPECT_EQ(category->ParentKey(), 1);
    EXPECT_EQ(category->Priority(), 10);
    EXPECT_EQ(category->Description().substr(0, 5), "{\\rtf");
}

TEST_F(g41ObjectivesTest, ObjectiveCollection_WithObjectives_IsDepthFirst)
{
    OpenNew(ObjectivesBelow(4, {10, 20}) + "UPDATE Objectives SET ChildKey = 12 WHERE \"Key\" = 7;"
                                           "INSERT INTO Objectives VALUES (12, 'Deep', '', 7, 0, 0, 5);");
    EXPECT_EQ(KeysOf(g41Objectives::ObjectiveCollection()), (Keys{1, 3, 4, 7, 12, 8, 5, 6}));
    EXPECT_EQ(g41Objectives::ObjectiveCount(), 3);
    EXPECT_EQ(g41Objectives::TotalObjectivePriority(), 35);
}

TEST_F(g41ObjectivesTest, ObjectiveCollection_UsedTwice_LoadsOnceUntilReset)
{
    OpenNew();
    g41Objectives::ObjectiveCollection();
    g41Objectives::ObjectiveCollection();
    EXPECT_EQ(TimesLogged("Objectives.GetObjectives"), 1);
    g41Objectives::ResetObjectives();
    g41Objectives::ObjectiveCollection();
    EXPECT_EQ(TimesLogged("Objectives.GetObjectives"), 2);
}

TEST_F(g41ObjectivesTest, GetCategoryCollection_FollowsTheChainNotTheKeys)
{
    OpenNew("UPDATE Objectives SET ChildKey = 6 WHERE \"Key\" = 1;"
            "UPDATE Objectives SET SiblingKey = \"Key\" - 1 WHERE \"Key\" IN (4, 5, 6);"
            "UPDATE Objectives SET SiblingKey = 0 WHERE \"Key\" = 3;");
    EXPECT_EQ(KeysOf(g41Objectives::GetCategoryCollection()), (Keys{6, 5, 4, 3}));
}

TEST_F(g41ObjectivesTest, GetCategoryCollection_EachCall_IsTracedAndNewWithTheSharedObjects)
{
    OpenNew(ObjectivesBelow(4, {10}));
    const auto first = g41Objectives::GetCategoryCollection();
    const auto second = g41Objectives::GetCategoryCollection();
    EXPECT_EQ(KeysOf(first), (Keys{3, 4, 5, 6}));
    EXPECT_EQ(first.Member(4), second.Member(4));
    EXPECT_EQ(first.Member(4), g41Objectives::Objective(4));
    EXPECT_EQ(TimesLogged("Objectives.GetCategoryCollection"), 2);
}

TEST_F(g41ObjectivesTest, Objective_UnknownKey_IsMissingByName)
{
    OpenNew();
    try {
        g41Objectives::Objective(99);
        FAIL();
    } catch (const platform::MissingMember& missing) {
        EXPECT_EQ(missing.Key(), 99);
    }
}

TEST_F(g41ObjectivesTest, Load_LinkToNoRow_GivesAnEmptyObjectAndGoesOn)
{
    OpenNew("UPDATE Objectives SET ChildKey = 77 WHERE \"Key\" = 4;");
    EXPECT_EQ(KeysOf(g41Objectives::ObjectiveCollection()), (Keys{1, 3, 4, 77, 5, 6}));
    const auto missing = g41Objectives::Objective(77);
    EXPECT_EQ(missing->ItemName(), "");
    EXPECT_EQ(missing->ParentKey(), 0);
    EXPECT_EQ(missing->Priority(), 0);
}

TEST_F(g41ObjectivesTest, Load_RootMissing_GivesAnEmptyRoot)
{
    OpenNew("DELETE FROM Objectives WHERE \"Key\" = 1;");
    EXPECT_EQ(KeysOf(g41Objectives::ObjectiveCollection()), (Keys{1}));
}

TEST_F(g41ObjectivesTest, Load_NullColumns_ReadAsEmptyAndZero)
{
    OpenNew("UPDATE Objectives SET Name = NULL, Explanation = NULL, ChildKey = NULL, Priority = NULL "
            "WHERE \"Key\" = 4;");
    const auto category = g41Objectives::Objective(4);
    EXPECT_EQ(category->ItemName(), "");
    EXPECT_EQ(category->Description(), "");
    EXPECT_EQ(category->Priority(), 0);
}

TEST_F(g41ObjectivesTest, Load_TextInNumberColumns_ReadsTheNumberItBeginsWith)
{
    OpenNew("UPDATE Objectives SET Priority = '12 points', ChildKey = 'none' WHERE \"Key\" = 4;");
    EXPECT_EQ(g41Objectives::Objective(4)->Priority(), 12);
    EXPECT_EQ(g41Objectives::ObjectiveCollection().Count(), 5);
}

TEST_F(g41ObjectivesTest, Load_NumberBeyond32Bits_IsAnErrorAndLeavesNothingLoaded)
{
    OpenNew("UPDATE Objectives SET Priority = 3000000000 WHERE \"Key\" = 6;");
    EXPECT_THROW(g41Objectives::ObjectiveCollection(), platform::DatabaseError);
    EXPECT_THROW(g41Objectives::Objective(1), platform::DatabaseError);
}

TEST_F(g41ObjectivesTest, Load_LinksInACircle_EndsAsAnErrorEachTime)
{
    const char* const circles[] = {
        "UPDATE Objectives SET ChildKey = 1 WHERE \"Key\" = 6;",
        "UPDATE Objectives SET ChildKey = 6 WHERE \"Key\" = 6;",
        "UPDATE Objectives SET SiblingKey = 3 WHERE \"Key\" = 6;",
        "UPDATE Objectives SET SiblingKey = 4 WHERE \"Key\" = 4;",
    };
    for (const char* circle : circles) {
        SCOPED_TRACE(circle);
        Close();
        OpenNew(circle);
        EXPECT_THROW(g41Objectives::ObjectiveCollection(), platform::DuplicateMember);
        EXPECT_THROW(g41Objectives::ObjectiveCollection(), platform::DuplicateMember);
    }
}

TEST_F(g41ObjectivesTest, Load_VeryLongChains_NeedNoStack)
{
    constexpr Long kCount = 200000;
    for (const bool downwards : {false, true}) {
        Close();
        OpenNew(LongChain(1000, kCount, downwards));
        EXPECT_EQ(g41Objectives::ObjectiveCollection().Count(), kCount + 5);
        EXPECT_EQ(g41Objectives::TotalObjectivePriority(), kCount);
    }
}

TEST_F(g41ObjectivesTest, NewObjectiveKey_ParentWithoutChildren_BecomesItsChild)
{
    OpenNew();
    const Long key = g41Objectives::NewObjectiveKey(2);
    EXPECT_EQ(key, kFirstNewObjective);
    EXPECT_EQ(TimesLogged("NewObjectiveKey"), 1);
    EXPECT_EQ(Query("SELECT ChildKey FROM Objectives WHERE \"Key\" = 2"), (Rows{{"7"}}));
    EXPECT_EQ(Query("SELECT Name, Explanation, ParentKey, ChildKey, SiblingKey, Priority FROM Objectives "
                    "WHERE \"Key\" = 7"),
              (Rows{{"NULL", kDefaultBody, "2", "NULL", "0", "10"}}));
}

TEST_F(g41ObjectivesTest, NewObjectiveKey_ParentWithChildren_IsLinkedBehindTheLast)
{
    OpenNew();
    EXPECT_EQ(g41Objectives::NewObjectiveKey(1), 7);
    EXPECT_EQ(Query("SELECT \"Key\", ChildKey, SiblingKey FROM Objectives WHERE \"Key\" IN (1, 5, 6)"),
              (Rows{{"1", "3", "0"}, {"5", "0", "6"}, {"6", "0", "7"}}));
    // Any other parent leaves the priority at what the table gives.
    EXPECT_EQ(Query("SELECT SiblingKey, Priority FROM Objectives WHERE \"Key\" = 7"), (Rows{{"0", "NULL"}}));
}

TEST_F(g41ObjectivesTest, NewObjectiveKey_SiblingsInACircle_EndsAsAnError)
{
    OpenNew(Issues({10, 10}) + "UPDATE Objectives SET SiblingKey = 7 WHERE \"Key\" = 8;");
    EXPECT_THROW(g41Objectives::NewObjectiveKey(2), platform::DuplicateMember);
    EXPECT_EQ(Query("SELECT max(\"Key\") FROM Objectives"), (Rows{{"8"}})) << "a row that hangs nowhere";
}

TEST_F(g41ObjectivesTest, NewObjectiveKey_NoSuchParent_IsAnError)
{
    OpenNew();
    EXPECT_THROW(g41Objectives::NewObjectiveKey(77), platform::DatabaseError);
    EXPECT_EQ(Query("SELECT max(\"Key\") FROM Objectives"), (Rows{{"6"}})) << "a row that hangs nowhere";
}

TEST_F(g41ObjectivesTest, AnotherFileOpened_TheTreeIsReadAgain)
{
    OpenNew(ObjectivesBelow(3, {10}));
    EXPECT_EQ(g41Objectives::ObjectiveCount(), 1);
    Open(MakeFile({}, "Other.qel"));
    EXPECT_EQ(g41Objectives::ObjectiveCount(), 0);
}
