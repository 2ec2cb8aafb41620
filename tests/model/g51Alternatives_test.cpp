#include "FireSql.h"
#include "model/c53Outcome.h"
#include "model/g51Alternatives.h"
#include "model/g53Outcomes.h"
#include "platform/base/Errors.h"
#include "session/c0Item.h"
#include "session/u14Properties.h"
#include "support/TestSession.h"

using namespace firesql;
using support::Rows;

namespace {

class g51AlternativesTest : public support::TestSession
{
protected:
    static std::vector<Long> Keys()
    {
        std::vector<Long> keys;
        for (const auto& alternative : g51Alternatives::AlternativeCollection()) {
            keys.push_back(alternative->ItemKey());
        }
        return keys;
    }
};

std::string Typed(const std::string& dollars) { return "CostSource = 8, AdjustedCost = " + dollars; }

} // namespace

TEST_F(g51AlternativesTest, NoAlternatives_NothingIsSelectedOrBest)
{
    OpenNew();
    EXPECT_TRUE(g51Alternatives::AlternativeCollection().IsEmpty());
    EXPECT_EQ(g51Alternatives::MostCostEffectiveAlternative(), nullptr);
    EXPECT_EQ(g51Alternatives::SelectedAlternative(), nullptr);
    EXPECT_EQ(g51Alternatives::SelectedAlternativeKey(), 0);
    platform::ListContents list;
    g51Alternatives::AddItem(list);
    EXPECT_EQ(list.ListCount(), 0);
}

TEST_F(g51AlternativesTest, AlternativeCollection_IsInListOrderTiesByKey)
{
    OpenNew(
        Alternative(1) + Alternative(2) + Alternative(3) + Alternative(4) +
        "UPDATE Items SET ChildIndex = 9 WHERE ItemKey = 1; UPDATE Items SET ChildIndex = 3 WHERE ItemKey = "
        "2; UPDATE Items SET ChildIndex = NULL WHERE ItemKey = 4;");
    EXPECT_EQ(Keys(), (std::vector<Long>{4, 2, 3, 1}));
}

TEST_F(g51AlternativesTest, Alternative_UnknownKey_IsMissing)
{
    OpenNew(Alternative(1));
    EXPECT_EQ(g51Alternatives::Alternative(1)->ItemName(), "A");
    EXPECT_THROW(g51Alternatives::Alternative(2), platform::MissingMember);
}

TEST_F(g51AlternativesTest, SelectedAlternative_ByTheTextOfTheProperty)
{
    const std::pair<std::string, Long> cases[] = {{"0", 0},
                                                  {"", 0},
                                                  {"none", 0},
                                                  {"-1", 0},
                                                  {"2", 2},
                                                  {" 2 ", 2},
                                                  {"1.6", 2},
                                                  {"2 or perhaps 1", 2},
                                                  {"0.5", 0},
                                                  {"1e0", 1}};
    OpenNew(Alternative(1) + Alternative(2));
    for (const auto& [value, key] : cases) {
        u14Properties::Property_Set("SelectedAlternativeKey", value);
        EXPECT_EQ(g51Alternatives::SelectedAlternativeKey(), key) << value;
        EXPECT_EQ(g51Alternatives::SelectedAlternative() == nullptr, key == 0) << value;
    }
}

TEST_F(g51AlternativesTest, SelectedAlternative_KeyOfNone_IsMissing)
{
    OpenNew(Alternative(1) + "INSERT INTO Properties VALUES ('SelectedAlternativeKey', '8');");
    EXPECT_THROW(g51Alternatives::SelectedAlternative(), platform::MissingMember);
    EXPECT_THROW(g51Alternatives::SelectedAlternativeKey(), platform::MissingMember);
}

TEST_F(g51AlternativesTest, SelectedAlternative_NumberBeyond32Bits_Overflows)
{
    OpenNew("INSERT INTO Properties VALUES ('SelectedAlternativeKey', '99999999999');");
    EXPECT_THROW(g51Alternatives::SelectedAlternative(), platform::Overflow);
}

TEST_F(g51AlternativesTest, SetSelectedAlternative_StoresTheDecimalKey)
{
    OpenNew(Alternative(1) + Alternative(2));
    g51Alternatives::SetSelectedAlternative(*g51Alternatives::Alternative(2));
    EXPECT_EQ(g51Alternatives::SelectedAlternative(), g51Alternatives::Alternative(2));
    EXPECT_EQ(Query("SELECT Value FROM Properties WHERE Property = 'SelectedAlternativeKey'"), (Rows{{"2"}}));
}

TEST_F(g51AlternativesTest, MostCostEffective_LowestExpectedCostWins)
{
    OpenNew(Alternative(1, Typed("3000")) + Alternative(2, Typed("1000")) + Alternative(3, Typed("2000")));
    EXPECT_EQ(g51Alternatives::MostCostEffectiveAlternative()->ItemKey(), 2);
}

TEST_F(g51AlternativesTest, MostCostEffective_EqualCosts_FirstInListOrderWins)
{
    OpenNew(Alternative(1, Typed("3000")) + Alternative(2, Typed("1000")) + Alternative(3, Typed("1000")) +
            "UPDATE Items SET ChildIndex = 1 WHERE ItemKey = 3; UPDATE Items SET ChildIndex = 3 WHERE "
            "ItemKey = 1;");
    EXPECT_EQ(g51Alternatives::MostCostEffectiveAlternative()->ItemKey(), 3);
}

TEST_F(g51AlternativesTest, MostCostEffective_CostsThatDifferBelowTwoDigits_Tie)
{
    OpenNew(Alternative(1, Typed("123456")) + Alternative(2, Typed("121000")));
    EXPECT_EQ(g51Alternatives::MostCostEffectiveAlternative()->ItemKey(), 1);
}

TEST_F(g51AlternativesTest, MostCostEffective_NoCostYet_CountsAsTheLowest)
{
    OpenNew(Alternative(1, Typed("1000")) + Alternative(2));
    EXPECT_EQ(g51Alternatives::MostCostEffectiveAlternative()->ItemKey(), 2);
}

TEST_F(g51AlternativesTest, MostCostEffective_CostThatFails_FailsOnlyWhereItIsCompared)
{
    OpenNew(Alternative(1) + "DELETE FROM Outcomes;");
    EXPECT_EQ(g51Alternatives::MostCostEffectiveAlternative()->ItemKey(), 1);
    Close();
    OpenNew(Alternative(1) + Alternative(2) + "DELETE FROM Outcomes;");
    EXPECT_THROW(g51Alternatives::MostCostEffectiveAlternative(), platform::Error);
}

TEST_F(g51AlternativesTest, AddItem_ClearsAndListsLabelsWithKeys)
{
    OpenNew(Alternative(1) + Alternative(2));
    platform::ListContents list;
    list.AddItem("old");
    g51Alternatives::AddItem(list);
    ASSERT_EQ(list.ListCount(), 2);
    EXPECT_EQ(list.Rows()[0].text, "A. Name A");
    EXPECT_EQ(list.Rows()[1].text, "B. Name B");
    EXPECT_EQ(list.ItemData(1), 2);
}

TEST_F(g51AlternativesTest, SaveAlternatives_SavesWhatIsLoaded)
{
    OpenNew(Alternative(1) + Alternative(2));
    g51Alternatives::SaveAlternatives(); // nothing loaded: nothing to save
    g51Alternatives::Alternative(1)->SetHeading("New name");
    g51Alternatives::SaveAlternatives();
    EXPECT_EQ(Query("SELECT Heading FROM Items WHERE ParentKey = 26"), (Rows{{"New name"}, {"Name B"}}));
}

TEST_F(g51AlternativesTest, ResetAlternatives_DropsOutcomesAndTheExtremeOne)
{
    OpenNew(Alternative(1));
    const auto alternative = g51Alternatives::Alternative(1);
    const auto target = alternative->Outcome(1);
    const auto extreme = g53Outcomes::ExtremeOutcome();
    g51Alternatives::ResetAlternatives();
    EXPECT_NE(g51Alternatives::Alternative(1), alternative);
    EXPECT_NE(g51Alternatives::Alternative(1)->Outcome(1), target);
    EXPECT_NE(g53Outcomes::ExtremeOutcome(), extreme);
    EXPECT_EQ(target->ItemKey(), TargetKey(1)); // whoever holds one keeps it
}

TEST_F(g51AlternativesTest, NewAlternative_FirstOne_HasItsRows)
{
    OpenNew();
    const auto alternative = g51Alternatives::NewAlternative("A");
    const std::string key = std::to_string(alternative->ItemKey());
    EXPECT_EQ(alternative->Label(), "A. ");
    EXPECT_EQ(alternative->Body(), kDefaultBody);
    EXPECT_EQ(g51Alternatives::Alternative(alternative->ItemKey()), alternative);
    EXPECT_EQ(alternative->OutcomePercent(1), 100);
    EXPECT_FALSE(alternative->Outcome(2)->bShow());
    EXPECT_EQ(
        Query("SELECT ItemName, Heading, Body, ParentKey, ChildIndex FROM Items WHERE ItemKey = " + key),
        (Rows{{"A", "NULL", kDefaultBody, "26", "1"}}));
    EXPECT_EQ(
        Query("SELECT ItemKey, ChildIndex, Description, Success, CostSource, FireSize FROM Outcomes WHERE "
              "ParentKey = " +
              key),
        (Rows{{"2", "1", kDefaultBody, "100.0", "1", "NULL"},
              {"3", "2", kDefaultBody, "-1.0", "1", "NULL"}}));
    EXPECT_EQ(Query("SELECT * FROM OutcomeFMZs WHERE OutcomeKey > 1"),
              (Rows{{"2", "0", "50", "0", "0", "0", "5", "0", "0"},
                    {"3", "0", "50", "0", "0", "0", "5", "0", "0"}}));
}

TEST_F(g51AlternativesTest, NewAlternative_NotLoadedYet_IsListedOnceBehindTheOthers)
{
    OpenNew(Alternative(1));
    const auto alternative = g51Alternatives::NewAlternative("B");
    EXPECT_EQ(Keys(), (std::vector<Long>{1, alternative->ItemKey()}));
    g51Alternatives::ResetAlternatives();
    EXPECT_EQ(Keys(), (std::vector<Long>{1, alternative->ItemKey()}));
}

TEST_F(g51AlternativesTest, NewAlternative_TakesTheIntensityLevelsOfTheFirst)
{
    OpenNew(Alternative(1) + "INSERT INTO OutcomeFMZs VALUES (" + std::to_string(TargetKey(1)) +
            ", 0, 20, 1, 2, 3, 4, 5, 6);");
    const std::string key = std::to_string(g51Alternatives::NewAlternative("B")->Outcome(2)->ItemKey());
    EXPECT_EQ(Query("SELECT * FROM OutcomeFMZs WHERE OutcomeKey = " + key),
              (Rows{{key, "0", "50", "1", "2", "3", "4", "5", "6"}}));
}

TEST_F(g51AlternativesTest, NewAlternative_ThatFailsHalfway_LeavesNothingOfIt)
{
    OpenNew("INSERT INTO Outcomes (ItemKey) VALUES (2147483647);"); // no key is left for its outcomes
    EXPECT_THROW(g51Alternatives::NewAlternative("A"), platform::Error);
    EXPECT_TRUE(Keys().empty());
    EXPECT_EQ(Query("SELECT ItemKey FROM Items WHERE ParentKey = 26"), Rows{});
}

TEST_F(g51AlternativesTest, DeleteAlternative_LeavesTheOthers)
{
    OpenNew(Alternative(1) + Alternative(2));
    g51Alternatives::DeleteAlternative(1);
    EXPECT_EQ(Keys(), (std::vector<Long>{2}));
    EXPECT_THROW(g51Alternatives::DeleteAlternative(1), platform::MissingMember);
    EXPECT_EQ(Query("SELECT ParentKey FROM Outcomes WHERE ParentKey > 0"), (Rows{{"2"}, {"2"}}));
}

TEST_F(g51AlternativesTest, AnotherFileOpened_ItsAlternativesAreRead)
{
    OpenNew(Alternative(1));
    EXPECT_EQ(Keys(), (std::vector<Long>{1}));
    const auto extreme = g53Outcomes::ExtremeOutcome();
    Open(MakeFile(Alternative(2), "Other.qel"));
    EXPECT_EQ(Keys(), (std::vector<Long>{2}));
    EXPECT_NE(g53Outcomes::ExtremeOutcome(), extreme);
}
