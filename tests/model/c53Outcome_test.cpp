#include "FireSql.h"
#include "model/c51Alternative.h"
#include "model/c53Outcome.h"
#include "model/g51Alternatives.h"
#include "model/g53Outcomes.h"
#include "platform/base/Errors.h"
#include "platform/data/DatabaseError.h"
#include "session/SessionState.h"
#include "support/TestSession.h"
#include "values/c67SRUseList.h"

#include <functional>

using namespace firesql;
using support::Rows;

namespace {

class c53OutcomeTest : public support::TestSession
{
protected:
    /// The Target of alternative 1, whose row has these columns.
    c53Outcome& Target(const std::string& columns = {}, const std::string& sql = {})
    {
        Close();
        OpenNew(Alternative(1, columns) + sql);
        outcome = std::make_unique<c53Outcome>();
        outcome->Initialize(1, 1);
        return *outcome;
    }
    Rows Saved(const std::string& columns)
    {
        return Query("SELECT " + columns + " FROM Outcomes WHERE ItemKey = " + std::to_string(TargetKey(1)));
    }
    /// Whether SaveChanges would write: it is let write a text over one put behind the object's back.
    bool IsChanged(c53Outcome& changed)
    {
        platform::Recordset rows = OpenDatabase().OpenTable("Outcomes");
        rows.Seek(changed.ItemKey());
        rows.Edit();
        rows.Set("CostRationale", std::string("put behind its back"));
        rows.Update();
        changed.SaveChanges();
        rows.Seek(changed.ItemKey());
        return rows.Text("CostRationale") != "put behind its back";
    }
    std::unique_ptr<c53Outcome> outcome;
};

} // namespace

TEST_F(c53OutcomeTest, Initialize_Row_ReadsEveryColumn)
{
    const c53Outcome& target =
        Target("Description = 'D', FireSize = 1250.5, ContainTime = 3, ControlTime = 10, Success = 60, "
               "SuccessRationale = 'S', DailyContainCost = 1000.25, DailyControlCost = 500, "
               "AdjustedCost = 1234567, CostSource = 4, CostRationale = 'C'");
    EXPECT_EQ(target.ItemKey(), TargetKey(1));
    EXPECT_EQ(target.OutcomeIndex(), 1);
    EXPECT_EQ(target.Description(), "D");
    EXPECT_EQ(target.FireSize(), "1250.5");
    EXPECT_EQ(target.ContainTime(), 3);
    EXPECT_EQ(target.ControlTime(), 10);
    EXPECT_EQ(target.Success(), 60);
    EXPECT_EQ(target.SuccessRationale(), "S");
    EXPECT_EQ(target.DailyContainCost(), 1000.25F);
    EXPECT_EQ(target.DailyControlCost(), 500.0F);
    EXPECT_EQ(target.AdjustedCost(), 1234567.0F);
    EXPECT_EQ(target.CostSource(), 4);
    EXPECT_EQ(target.CostRationale(), "C");
}

TEST_F(c53OutcomeTest, Initialize_NullColumns_ReadAsZeroAndEmpty)
{
    const c53Outcome& target = Target("Success = NULL, CostSource = NULL");
    EXPECT_EQ(target.Description(), "");
    EXPECT_EQ(target.FireSize(), "0");
    EXPECT_EQ(target.ContainTime(), 0);
    EXPECT_EQ(target.Success(), 0);
    EXPECT_EQ(target.DailyContainCost(), 0.0F);
    EXPECT_EQ(target.AdjustedCost(), 0.0F);
    EXPECT_EQ(target.CostSource(), 1);
}

TEST_F(c53OutcomeTest, Initialize_TextInNumberColumns_ReadsTheNumberItBeginsWith)
{
    const c53Outcome& target = Target(
        "FireSize = '12 acres', ContainTime = '3 days', Success = 'about 60', AdjustedCost = '7 or 8'");
    EXPECT_EQ(target.FireSize(), "12");
    EXPECT_EQ(target.ContainTime(), 3);
    EXPECT_EQ(target.Success(), 0);
    EXPECT_EQ(target.AdjustedCost(), 7.0F);
}

TEST_F(c53OutcomeTest, Initialize_SuccessWithAFraction_RoundsHalvesToEven)
{
    EXPECT_EQ(Target("Success = 62.5").Success(), 62);
    EXPECT_EQ(Target("Success = 63.5").Success(), 64);
    EXPECT_EQ(Target("Success = -1.4").Success(), -1);
}

TEST_F(c53OutcomeTest, Initialize_NumberBeyondItsWidth_IsAnError)
{
    EXPECT_THROW(Target("ContainTime = 3000000000"), platform::DatabaseError);
    EXPECT_THROW(Target("FireSize = 1e40"), platform::Error);
    EXPECT_THROW(Target("Success = 3e9"), platform::Error);
}

TEST_F(c53OutcomeTest, Initialize_AdjustedCost_IsRoundedToFourDecimalsOnTheWay)
{
    EXPECT_EQ(Target("AdjustedCost = 0.00004").AdjustedCost(), 0.0F);
    EXPECT_EQ(Target("AdjustedCost = 0.00006").AdjustedCost(), 0.0001F);
}

TEST_F(c53OutcomeTest, Initialize_NoRow_TellsWhichOutcomeIsMissing)
{
    OpenNew();
    c53Outcome missing;
    try {
        missing.Initialize(5, 2);
        FAIL();
    } catch (const platform::DatabaseError& error) {
        EXPECT_NE(std::string(error.what()).find("outcome 2 of alternative 5"), std::string::npos);
    }
}

TEST_F(c53OutcomeTest, CostSource_StoredZero_ReadsAsBySizeWithoutAChange)
{
    c53Outcome& target = Target("CostSource = 0");
    EXPECT_EQ(target.CostSource(), c53Outcome::costSize);
    EXPECT_FALSE(IsChanged(target));
    EXPECT_EQ(Saved("CostSource"), (Rows{{"0"}}));
}

TEST_F(c53OutcomeTest, Names_TargetAndFallback_BearTheLabelOfTheAlternative)
{
    OpenNew(Alternative(1));
    const auto alternative = g51Alternatives::Alternative(1);
    EXPECT_EQ(alternative->Outcome(1)->ShortName(), "Target");
    EXPECT_EQ(alternative->Outcome(2)->ShortName(), "Fallback");
    EXPECT_EQ(alternative->Outcome(1)->LongName(), "A. Name A - Target");
    EXPECT_EQ(alternative->Outcome(2)->FullName(), "A. Name A - Fallback");
    EXPECT_EQ(alternative->Outcome(1)->Alternative(), alternative);
}

TEST_F(c53OutcomeTest, Names_Extreme_AreItsOwnAlthoughItsIndexIsOne)
{
    OpenNew();
    const auto extreme = g53Outcomes::ExtremeOutcome();
    EXPECT_EQ(extreme->OutcomeIndex(), 1);
    EXPECT_EQ(extreme->ShortName(), "Extreme Outcome");
    EXPECT_EQ(extreme->LongName(), "Extreme Outcome");
    EXPECT_EQ(extreme->FullName(), "Extreme Outcome");
    EXPECT_EQ(extreme->Alternative(), nullptr);
}

TEST_F(c53OutcomeTest, FullName_LongLabel_IsCutAt32CharactersWhileLongNameIsNot)
{
    // 3 characters of "A. ", then 29 more, the last of them of two bytes.
    const std::string head = "1234567890123456789012345678\xC3\xA9";
    const c53Outcome& target = Target({}, "UPDATE Items SET Heading = '" + head + "tail' WHERE ItemKey = 1;");
    EXPECT_EQ(target.FullName(), "A. " + head + " - Target");
    EXPECT_EQ(target.LongName(), "A. " + head + "tail - Target");
}

TEST_F(c53OutcomeTest, ShortName_OtherIndexes_AreExtremeForZeroAndThree)
{
    OpenNew(Alternative(1) + "INSERT INTO Outcomes (ItemKey, ParentKey, ChildIndex) VALUES "
                             "(50, 1, 0), (53, 1, 3), (54, 1, 4);");
    const auto nameOf = [](Long index) {
        c53Outcome indexed;
        indexed.Initialize(1, index);
        return indexed.ShortName();
    };
    EXPECT_EQ(nameOf(0), "Extreme Outcome");
    EXPECT_EQ(nameOf(3), "Extreme Outcome");
    EXPECT_EQ(nameOf(4), "");
}

TEST_F(c53OutcomeTest, LongName_AlternativeGone_IsMissing)
{
    OpenNew(Alternative(1) +
            "DELETE FROM Items WHERE ItemKey = 1; UPDATE Outcomes SET ParentKey = -4 WHERE "
            "ItemKey = " +
            std::to_string(FallbackKey(1)));
    c53Outcome orphan;
    orphan.Initialize(1, 1);
    EXPECT_THROW(orphan.LongName(), platform::MissingMember);
    c53Outcome negative;
    negative.Initialize(-4, 2);
    EXPECT_EQ(negative.Alternative(), nullptr);
    EXPECT_THROW(negative.FullName(), platform::MissingMember);
}

TEST_F(c53OutcomeTest, bShow_Off_ForgetsTheSuccess)
{
    c53Outcome& target = Target("Success = 40");
    target.SetbShow(false);
    EXPECT_EQ(target.Success(), -1);
    EXPECT_FALSE(target.bShow());
    target.SetbShow(true);
    EXPECT_EQ(target.Success(), 0);
    EXPECT_TRUE(target.bShow());
}

TEST_F(c53OutcomeTest, bShow_OnWhereShown_KeepsTheSuccessAndSetsTheFlag)
{
    c53Outcome& target = Target("Success = 40");
    target.SetbShow(true);
    EXPECT_EQ(target.Success(), 40);
    EXPECT_TRUE(IsChanged(target));
}

TEST_F(c53OutcomeTest, FireSize_Texts_AreReadAndWrittenAsASingle)
{
    c53Outcome& target = Target();
    const std::pair<std::string, std::string> cases[] = {
        {"10,000", "10000"},
        {"123456.789", "123456.79"},
        {" 0.5 ", "0.5"},
        {"$1,250", "1250"},
        {"16777217", "16777216"},
        {"1e3", "1000"},
        {"-5", "-5"},
    };
    for (const auto& [text, size] : cases) {
        SCOPED_TRACE(text);
        target.SetFireSize(text);
        EXPECT_EQ(target.FireSize(), size);
    }
}

TEST_F(c53OutcomeTest, FireSize_NoNumber_IsATypeMismatchAndChangesNothing)
{
    c53Outcome& target = Target("FireSize = 5");
    for (const char* text : {"", "many", "1,,2", "12 acres"}) {
        EXPECT_THROW(target.SetFireSize(text), platform::TypeMismatch);
    }
    EXPECT_THROW(target.SetFireSize("1e39"), platform::Overflow);
    EXPECT_EQ(target.FireSize(), "5");
    EXPECT_FALSE(IsChanged(target));
}

TEST_F(c53OutcomeTest, Times_Zero_ShowAsEmptyTextAndEmptyTextStoresZero)
{
    c53Outcome& target = Target("ContainTime = 0, ControlTime = 10");
    EXPECT_EQ(target.ContainTimeString(), "");
    EXPECT_EQ(target.ControlTimeString(), "10");
    target.SetControlTimeString("");
    EXPECT_EQ(target.ControlTime(), 0);
    EXPECT_EQ(target.ControlTimeString(), "");
}

TEST_F(c53OutcomeTest, Times_Texts_TakeTheNumberAtTheStartHalvesToEven)
{
    c53Outcome& target = Target();
    const std::pair<std::string, Long> cases[] = {
        {"12.5", 12}, {"13.5", 14}, {"3 days", 3}, {"days", 0}, {"-2", -2}, {"1,000", 1}};
    for (const auto& [text, days] : cases) {
        SCOPED_TRACE(text);
        target.SetContainTimeString(text);
        target.SetControlTimeString(text);
        EXPECT_EQ(target.ContainTime(), days);
        EXPECT_EQ(target.ControlTime(), days);
    }
    EXPECT_THROW(target.SetContainTimeString("3000000000"), platform::Overflow);
}

TEST_F(c53OutcomeTest, SaveChanges_AllWritten_WritesTheColumnsAndNoKeys)
{
    c53Outcome& target = Target();
    target.SetDescription("D");
    target.SetFireSize("1250.5");
    target.SetContainTimeString("3");
    target.SetControlTimeString("10");
    target.SetSuccess(60);
    target.SetSuccessRationale("S");
    target.SetDailyContainCost(1000.25F);
    target.SetDailyControlCost(500.0F);
    target.SetAdjustedCost(1234567.0F);
    target.SetCostSource(8);
    target.SetCostRationale("C");
    target.SaveChanges();
    EXPECT_EQ(
        Saved("ItemKey, ParentKey, ChildIndex, ItemName, Description, FireSize, ContainTime, ControlTime, "
              "Success, SuccessRationale, DailyContainCost, DailyControlCost, AdjustedCost, CostSource, "
              "CostRationale"),
        (Rows{{std::to_string(TargetKey(1)),
               "1",
               "1",
               "NULL",
               "D",
               "1250.5",
               "3",
               "10",
               "60.0",
               "S",
               "1000.25",
               "500.0",
               "1234567",
               "8",
               "C"}}));
}

TEST_F(c53OutcomeTest, SaveChanges_OnlyWhenChanged_AndClearsTheFlag)
{
    c53Outcome& target = Target("CostRationale = 'C'");
    EXPECT_FALSE(IsChanged(target));
    target.SetCostRationale("C"); // an equal value counts
    EXPECT_TRUE(IsChanged(target));
    EXPECT_FALSE(IsChanged(target));
}

TEST_F(c53OutcomeTest, EveryWrite_SetsTheChangedFlag)
{
    c53Outcome& target = Target();
    const std::function<void()> writes[] = {
        [&] { target.SetbShow(false); },
        [&] { target.SetDescription(""); },
        [&] { target.SetFireSize("0"); },
        [&] { target.SetContainTimeString(""); },
        [&] { target.SetControlTimeString(""); },
        [&] { target.SetSuccess(100); },
        [&] { target.SetSuccessRationale(""); },
        [&] { target.SetDailyContainCost(0.0F); },
        [&] { target.SetDailyControlCost(0.0F); },
        [&] { target.SetAdjustedCost(0.0F); },
        [&] { target.SetCostSource(1); },
        [&] { target.SetCostRationale(""); },
    };
    for (const auto& write : writes) {
        write();
        EXPECT_TRUE(IsChanged(target));
    }
}

TEST_F(c53OutcomeTest, SaveChanges_AdjustedCostBeyondCurrency_OverflowsAndStaysChanged)
{
    c53Outcome& target = Target();
    target.SetAdjustedCost(1e15F);
    EXPECT_THROW(target.SaveChanges(), platform::Overflow);
    target.SetAdjustedCost(5.0F);
    target.SaveChanges();
    EXPECT_EQ(Saved("AdjustedCost"), (Rows{{"5"}}));
}

TEST_F(c53OutcomeTest, Delete_TakesRowBurnAreasImpactsUsesAndRatings)
{
    const std::string key = std::to_string(TargetKey(1));
    c53Outcome& target =
        Target({},
               Score(TargetKey(1), 3, "5") + Score(kExtremeKey, 3, "5") + BurnsAtLevel4(TargetKey(1)) +
                   BurnsAtLevel4(kExtremeKey) + ItemLoss(TargetKey(1), 9, "100") +
                   ItemLoss(kExtremeKey, 9, "100") + "INSERT INTO SRUses VALUES (1, " + key +
                   ", 1, 1, 1, 1), "
                   "(2, 1, 1, 1, 1, 1);");
    target.Delete();
    EXPECT_EQ(Query("SELECT ItemKey FROM Outcomes"), (Rows{{"1"}, {std::to_string(FallbackKey(1))}}));
    for (const char* table : {"OutcomeFMZs", "ItemImpacts", "SRUses", "Scores"}) {
        EXPECT_EQ(Query(std::string("SELECT OutcomeKey FROM ") + table), (Rows{{"1"}})) << table;
    }
}

TEST_F(c53OutcomeTest, Reset_DropsTheResourceListAlone)
{
    c53Outcome& target = Target();
    EXPECT_EQ(target.SRUseList().SRUseCount(), 0);
    const auto* areas = &target.BurnAreaList();
    c67SRUseList other;
    other.Initialize(target.ItemKey());
    other.NewSRUse(1);
    EXPECT_EQ(target.SRUseList().SRUseCount(), 0); // made before the line was
    target.Reset();
    EXPECT_EQ(target.SRUseList().SRUseCount(), 1);
    EXPECT_EQ(&target.BurnAreaList(), areas);
}

TEST_F(c53OutcomeTest, ListThatFailsToLoad_IsTriedAgain)
{
    c53Outcome& target =
        Target({}, "INSERT INTO SRUses VALUES (1, " + std::to_string(TargetKey(1)) + ", 1, 9999, 1, 1);");
    EXPECT_THROW(target.SRUseCost(), platform::MissingMember);
    EXPECT_THROW(target.SRUseCost(), platform::MissingMember);
}
