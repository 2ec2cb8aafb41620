#include "FireSql.h"
#include "model/c51Alternative.h"
#include "model/c53Outcome.h"
#include "model/g51Alternatives.h"
#include "platform/base/Errors.h"
#include "platform/data/DatabaseError.h"
#include "session/SessionState.h"
#include "session/g0Items.h"
#include "support/TestSession.h"

using namespace firesql;
using support::Rows;

namespace {

class c51AlternativeTest : public support::TestSession
{
protected:
    std::shared_ptr<c51Alternative> First(const std::string& target = {}, const std::string& sql = {})
    {
        Close();
        OpenNew(Alternative(1, target) + sql);
        return g51Alternatives::Alternative(1);
    }
};

} // namespace

TEST_F(c51AlternativeTest, Label_IsLetterPointBlankName)
{
    c51Alternative alternative;
    alternative.Initialize(1, "B", "Confine", "");
    EXPECT_EQ(alternative.Label(), "B. Confine");
    alternative.SetHeading("");
    EXPECT_EQ(alternative.Label(), "B. ");
}

TEST_F(c51AlternativeTest, Listing_ReadsNoOutcomes)
{
    const auto alternative = First({}, "DELETE FROM Outcomes;");
    EXPECT_EQ(alternative->Label(), "A. Name A");
    EXPECT_EQ(alternative->Body(), "Body A");
    EXPECT_THROW(alternative->EstimatedCost(), platform::DatabaseError);
    EXPECT_THROW(alternative->OutcomePercent(1), platform::DatabaseError);
}

TEST_F(c51AlternativeTest, Outcome_TargetAndFallbackAlone)
{
    const auto alternative = First("Success = 70");
    EXPECT_EQ(alternative->Outcome(1)->ItemKey(), TargetKey(1));
    EXPECT_EQ(alternative->Outcome(2)->ItemKey(), FallbackKey(1));
    EXPECT_THROW(alternative->Outcome(3), platform::OutOfBounds);
    EXPECT_EQ(alternative->OutcomePercent(3), 30);
    EXPECT_EQ(alternative->Outcome(1), alternative->Outcome(1));
}

TEST_F(c51AlternativeTest, Scores_AreThoseOfTheOutcomeList)
{
    const auto alternative =
        First({}, Issues({10, 30}) + Score(TargetKey(1), 3, "7.26") + Score(TargetKey(1), 7, "8"));
    EXPECT_EQ(alternative->ExpectedScore(), 1.8F);
    EXPECT_EQ(alternative->ExpectedCategoryScore(3), 7.3F);
    EXPECT_EQ(alternative->ExpectedWgtObjScore(3), 1.8F);
    EXPECT_EQ(alternative->ExpectedRawObjScore(3), 7.3F);
    EXPECT_EQ(alternative->ExpectedSafetyScore(), 2.0F);
    EXPECT_EQ(alternative->ExpectedWgtSafetyScore(7), 2.0F);
    EXPECT_EQ(alternative->ExpectedRawSafetyScore(7), 8.0F);
    EXPECT_EQ(alternative->ExpectedProtection(), 0.0);
}

TEST_F(c51AlternativeTest, EstimatedCostAndSize_HaveTwoDigits)
{
    const auto alternative = First("FireSize = 12345.6, CostSource = 8, AdjustedCost = 1234567");
    EXPECT_EQ(alternative->EstimatedCost(), 1200000.0F);
    EXPECT_EQ(alternative->EstimatedSize(), 12000);
}

TEST_F(c51AlternativeTest, EstimatedSize_TiesGoToTheEvenDigit)
{
    const std::pair<const char*, Long> cases[] = {{"0", 0},
                                                  {"0.5", 0},
                                                  {"1.5", 2},
                                                  {"99.5", 100},
                                                  {"1000", 1000},
                                                  {"12500", 12000},
                                                  {"13500", 14000},
                                                  {"9950", 10000},
                                                  {"10050", 10000},
                                                  {"2100000000", 2100000000}};
    for (const auto& [acres, size] : cases) {
        EXPECT_EQ(First(std::string("FireSize = ") + acres)->EstimatedSize(), size) << acres;
    }
}

TEST_F(c51AlternativeTest, EstimatedSize_RoundedBeyond32Bits_Overflows)
{
    EXPECT_EQ(First("FireSize = 2147483520")->EstimatedSize(), 2100000000);
    EXPECT_THROW(First("FireSize = 3e9")->EstimatedSize(), platform::Overflow);
}

TEST_F(c51AlternativeTest, Money_IsRoundedToTwoDigits)
{
    const auto alternative =
        First("FireSize = 1000, CostSource = 8, AdjustedCost = 123456",
              NVCPerAcre("-1.234") + BurnsAtLevel4(TargetKey(1)) + ItemLoss(TargetKey(1), 9, "123456"));
    EXPECT_EQ(alternative->ExpectedCost(), 120000.0F);
    EXPECT_EQ(alternative->ExpectedNVCLoss(), 1200.0F);
    EXPECT_EQ(alternative->ExpectedLoss(), 120000.0F);
}

TEST_F(c51AlternativeTest, SaveChanges_OnlyWhenChanged)
{
    const auto alternative = First();
    const auto put = [](const std::string& text) {
        platform::Recordset rows = OpenDatabase().OpenTable("Items");
        rows.Seek(1);
        rows.Edit();
        rows.Set("Body", text);
        rows.Update();
    };
    put("put behind its back");
    alternative->SaveChanges();
    EXPECT_EQ(Query("SELECT Body FROM Items WHERE ItemKey = 1"), (Rows{{"put behind its back"}}));
}

TEST_F(c51AlternativeTest, SaveChanges_Changed_WritesThreeTextsAndNoPlace)
{
    const auto alternative = First();
    alternative->SetItemName("Z");
    alternative->SetHeading("Other");
    alternative->SetBody("Else");
    alternative->SaveChanges();
    EXPECT_EQ(Query("SELECT ItemName, Heading, Body, ItemText, ParentKey, ChildIndex FROM Items "
                    "WHERE ItemKey = 1"),
              (Rows{{"Z", "Other", "Else", "NULL", "26", "1"}}));
}

TEST_F(c51AlternativeTest, SaveChanges_EqualValueWritten_WritesIt)
{
    const auto alternative = First();
    alternative->SetBody("Body A");
    platform::Recordset rows = OpenDatabase().OpenTable("Items");
    rows.Seek(1);
    rows.Edit();
    rows.Set("Body", std::string("put behind its back"));
    rows.Update();
    alternative->SaveChanges();
    EXPECT_EQ(Query("SELECT Body FROM Items WHERE ItemKey = 1"), (Rows{{"Body A"}}));
}

TEST_F(c51AlternativeTest, Delete_TakesItemAndOutcomesWithAllBelow)
{
    const auto alternative = First({},
                                   Alternative(2) + BurnsAtLevel4(TargetKey(1)) +
                                       BurnsAtLevel4(TargetKey(2)) + Score(FallbackKey(1), 3, "5"));
    g0Items::GetItem(1);
    alternative->Delete();
    EXPECT_EQ(g0Items::GetItem(1)->ItemName(), ""); // not the object of before
    EXPECT_EQ(Query("SELECT ItemKey FROM Items WHERE ParentKey = 26"), (Rows{{"2"}}));
    EXPECT_EQ(Query("SELECT ItemKey FROM Outcomes"),
              (Rows{{"1"}, {std::to_string(TargetKey(2))}, {std::to_string(FallbackKey(2))}}));
    EXPECT_EQ(Query("SELECT OutcomeKey FROM OutcomeFMZs"), (Rows{{"1"}, {std::to_string(TargetKey(2))}}));
    EXPECT_EQ(Query("SELECT OutcomeKey FROM Scores"), Rows());
}
