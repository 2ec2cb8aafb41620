#include "FireSql.h"
#include "model/c52OutcomeList.h"
#include "model/g53Outcomes.h"
#include "platform/base/Errors.h"
#include "platform/data/DatabaseError.h"
#include "support/TestSession.h"

using namespace firesql;

namespace {

class c52OutcomeListTest : public support::TestSession
{
protected:
    /// The outcomes of alternative 1, whose rows and the Extreme one's have these columns.
    c52OutcomeList& List(const std::string& target,
                         const std::string& fallback = {},
                         const std::string& extreme = {},
                         const std::string& sql = {})
    {
        Close();
        OpenNew(Alternative(1, target, fallback) + SetOutcome(kExtremeKey, extreme) + sql);
        list = std::make_unique<c52OutcomeList>();
        list->Initialize(1);
        return *list;
    }
    std::unique_ptr<c52OutcomeList> list;
};

std::string Success(Long percent) { return "Success = " + std::to_string(percent); }

std::string Typed(const std::string& dollars) { return "CostSource = 8, AdjustedCost = " + dollars; }

} // namespace

TEST_F(c52OutcomeListTest, OutcomePercent_OfTargetAndFallback_SumToTheWhole)
{
    struct Case
    {
        Long target, fallback;
        Long percents[3];
    };
    const Case cases[] = {
        {33, 50, {33, 34, 33}},
        {70, -1, {70, 0, 30}},
        {100, -1, {100, 0, 0}},
        {0, 100, {0, 100, 0}},
        {99, 1, {99, 0, 1}},
        {99, 50, {99, 1, 0}},
        {99, 49, {99, 0, 1}},
        {60, 0, {60, 0, 40}},
        {0, 0, {0, 0, 100}},
        {75, 60, {75, 15, 10}},
        {100, 50, {100, 0, 0}},
        {120, 50, {120, -9, -11}},
        {-100, -1, {-100, 0, 200}},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(std::to_string(each.target) + ", " + std::to_string(each.fallback));
        const c52OutcomeList& outcomes = List(Success(each.target), Success(each.fallback));
        for (Long index = 1; index <= 3; ++index) {
            EXPECT_EQ(outcomes.OutcomePercent(index), each.percents[index - 1]);
        }
        EXPECT_EQ(outcomes.OutcomePercent(0), 0);
        EXPECT_EQ(outcomes.OutcomePercent(4), 0);
    }
}

TEST_F(c52OutcomeListTest, OutcomePercent_Beyond32Bits_Overflows)
{
    const c52OutcomeList& outcomes = List(Success(-100000), Success(100000));
    EXPECT_EQ(outcomes.OutcomePercent(1), -100000);
    EXPECT_THROW(outcomes.OutcomePercent(2), platform::Overflow);
    EXPECT_THROW(outcomes.OutcomePercent(3), platform::Overflow);
    EXPECT_THROW(List(Success(-2147483648), {}).OutcomePercent(3), platform::Overflow);
}

TEST_F(c52OutcomeListTest, Outcome_OtherIndexes_AreOutOfBounds)
{
    const c52OutcomeList& outcomes = List({});
    EXPECT_EQ(outcomes.Outcome(1)->ItemKey(), TargetKey(1));
    EXPECT_EQ(outcomes.Outcome(2)->ItemKey(), FallbackKey(1));
    for (const Long index : {-1, 0, 3}) {
        EXPECT_THROW(outcomes.Outcome(index), platform::OutOfBounds);
    }
}

TEST_F(c52OutcomeListTest, Initialize_OutcomeRowMissing_IsAnError)
{
    OpenNew(Alternative(1) + "DELETE FROM Outcomes WHERE ItemKey = " + std::to_string(FallbackKey(1)));
    c52OutcomeList outcomes;
    EXPECT_THROW(outcomes.Initialize(1), platform::DatabaseError);
}

TEST_F(c52OutcomeListTest, Expected_CertainTarget_IsItsValueWithTwoDigits)
{
    c52OutcomeList& outcomes = List("FireSize = 1000, " + Typed("123456"),
                                    {},
                                    "FireSize = 5e6, " + Typed("9e6"),
                                    NVCPerAcre("-1.234") + BurnsAtLevel4(TargetKey(1)) +
                                        BurnsAtLevel4(kExtremeKey) + ItemLoss(TargetKey(1), 9, "300000") +
                                        Score(TargetKey(1), 3, "7.26") + Score(kExtremeKey, 3, "1"));
    EXPECT_EQ(outcomes.ExpectedCost(), 120000.0F);
    EXPECT_EQ(outcomes.ExpectedNVCLoss(), 1200.0F);
    EXPECT_EQ(outcomes.ExpectedLoss(), 300000.0F);
    EXPECT_EQ(outcomes.ExpectedRawObjScore(3), 7.3F);
    EXPECT_EQ(outcomes.ExpectedCategoryScore(3), 7.3F);
    EXPECT_EQ(outcomes.ExpectedWgtObjScore(3), 1.8F);
    EXPECT_EQ(outcomes.ExpectedScore(), 1.8F);
    EXPECT_EQ(outcomes.ExpectedProtection(), 0.0);
}

TEST_F(c52OutcomeListTest, ExpectedCost_TwoDigitsCountedFromTheNextPowerOfTen)
{
    const std::pair<const char*, Single> cases[] = {{"123456", 120000.0F},
                                                    {"0", 0.0F},
                                                    {"950", 950.0F},
                                                    {"999.9", 1000.0F},
                                                    {"1000", 1000.0F},
                                                    {"1050", 1000.0F},
                                                    {"1150", 1200.0F},
                                                    {"100", 100.0F},
                                                    {"101", 100.0F},
                                                    {"1", 1.0F},
                                                    {"0.125", 0.12F},
                                                    {"-1150", -1200.0F},
                                                    {"9e14", 9e14F}};
    for (const auto& [dollars, expected] : cases) {
        EXPECT_EQ(List(Typed(dollars)).ExpectedCost(), expected) << dollars;
    }
}

TEST_F(c52OutcomeListTest, ExpectedScore_IsFormedFromTheRoundedScoresOfTheOutcomes)
{
    // 7.26 at 60 percent and 3.34 at 40: formed of 7.3 and 3.3.
    c52OutcomeList& outcomes =
        List(Success(60), {}, {}, Score(TargetKey(1), 3, "29.04") + Score(kExtremeKey, 3, "13.36"));
    EXPECT_EQ(outcomes.Outcome(1)->TotalScore(), 7.3F);
    EXPECT_EQ(g53Outcomes::ExtremeOutcome()->TotalScore(), 3.3F);
    EXPECT_EQ(outcomes.ExpectedScore(), 5.7F);
}

TEST_F(c52OutcomeListTest, ExpectedCost_IsRoundedAtEachLevel)
{
    // 1,349,600 acres at a dollar: three digits make 1,350,000 of it, two digits then 1,400,000.
    c52OutcomeList& outcomes = List("FireSize = 1349600", {}, {}, CostPerAcre("1"));
    EXPECT_EQ(outcomes.Outcome(1)->CostBySize(), 1350000.0F);
    EXPECT_EQ(outcomes.ExpectedCost(), 1400000.0F);
}

TEST_F(c52OutcomeListTest, Expected_FallbackNotShown_ContributesNothing)
{
    c52OutcomeList& outcomes = List(Success(70) + ", " + Typed("1000"),
                                    Typed("900000"),
                                    Typed("2000"),
                                    Score(FallbackKey(1), 3, "40") + Score(TargetKey(1), 3, "40"));
    EXPECT_EQ(outcomes.ExpectedCost(), 1300.0F);
    EXPECT_EQ(outcomes.ExpectedScore(), 7.0F);
}

TEST_F(c52OutcomeListTest, Expected_FallbackNotShown_IsComputedAllTheSame)
{
    c52OutcomeList& outcomes = List({}, "FireSize = 1e30", {}, CostPerAcre("1e30"));
    EXPECT_THROW(outcomes.ExpectedCost(), platform::Overflow);
}

TEST_F(c52OutcomeListTest, Expected_FallbackShown_WeighsAllThree)
{
    c52OutcomeList& outcomes =
        List(Success(33) + ", " + Typed("100000"),
             Success(50) + ", " + Typed("200000"),
             Typed("400000"),
             Issues({10, 30}) + Score(TargetKey(1), 7, "8") + Score(FallbackKey(1), 8, "4"));
    EXPECT_EQ(outcomes.ExpectedCost(), 230000.0F);   // 33,000 + 68,000 + 132,000
    EXPECT_EQ(outcomes.ExpectedSafetyScore(), 1.7F); // 0.66 + 1.02
    EXPECT_EQ(outcomes.ExpectedWgtSafetyScore(7), 0.66F);
    EXPECT_EQ(outcomes.ExpectedRawSafetyScore(8), 1.4F); // 1.36
    EXPECT_EQ(outcomes.ExpectedRawSafetyScore(7), 2.6F); // 2.64
}

TEST_F(c52OutcomeListTest, Expected_UnknownCriterion_IsMissing)
{
    c52OutcomeList& outcomes = List({}, {}, {}, Issues({10}));
    EXPECT_THROW(outcomes.ExpectedCategoryScore(7), platform::MissingMember);
    EXPECT_THROW(outcomes.ExpectedRawSafetyScore(3), platform::MissingMember);
}

TEST_F(c52OutcomeListTest, Expected_ExtremeIsShared_ItsEditChangesTheValueAtOnce)
{
    c52OutcomeList& outcomes = List(Success(50) + ", " + Typed("1000"), {}, Typed("3000"));
    EXPECT_EQ(outcomes.ExpectedCost(), 2000.0F);
    g53Outcomes::ExtremeOutcome()->SetAdjustedCost(5000.0F);
    EXPECT_EQ(outcomes.ExpectedCost(), 3000.0F);
    outcomes.Outcome(1)->SetSuccess(100);
    EXPECT_EQ(outcomes.ExpectedCost(), 1000.0F);
}

TEST_F(c52OutcomeListTest, Expected_GainsAndLosses_CancelToZero)
{
    c52OutcomeList& outcomes =
        List(Success(50) + ", FireSize = 1000",
             {},
             Typed("0"),
             NVCPerAcre("3") + BurnsAtLevel4(TargetKey(1)) + ItemLoss(kExtremeKey, 9, "3000") +
                 "INSERT INTO Properties VALUES ('UseNVCGains', 'Yes');");
    EXPECT_EQ(outcomes.ExpectedLoss(), 0.0F);
    EXPECT_EQ(outcomes.ExpectedNVCLoss(), -1500.0F);
}

TEST_F(c52OutcomeListTest, Expected_AccumulatorIsASingleAfterEachAddition)
{
    // 12,500,000.5 does not fit a single: without its half the tie goes to the even digit, down.
    c52OutcomeList& outcomes = List(Success(50) + ", " + Typed("25000000"), {}, Typed("1"));
    EXPECT_EQ(outcomes.ExpectedCost(), 12000000.0F);
    // 12,500,000.25 and 0.5: the quarter goes with the first addition already.
    EXPECT_EQ(List(Success(150) + ", " + Typed("8333333.5"), {}, Typed("-1")).ExpectedCost(), 12000000.0F);
}

TEST_F(c52OutcomeListTest, Expected_SumBeyondTheSingleRange_Overflows)
{
    c52OutcomeList& outcomes = List(Success(100), {}, {});
    outcomes.Outcome(1)->SetCostSource(8);
    outcomes.Outcome(1)->SetAdjustedCost(3.4e38F);
    EXPECT_EQ(outcomes.ExpectedCost(), 3.4e38F);
    outcomes.Outcome(1)->SetSuccess(101);
    EXPECT_THROW(outcomes.ExpectedCost(), platform::Overflow);
}

TEST_F(c52OutcomeListTest, EstimatedCostAndSize_AreTheTargetsAlone)
{
    c52OutcomeList& outcomes =
        List(Success(50) + ", FireSize = 1250.5, " + Typed("123456"), {}, "FireSize = 9999, " + Typed("9e9"));
    EXPECT_EQ(outcomes.EstimatedCost(), 123456.0F);
    EXPECT_EQ(outcomes.EstimatedSize(), 1250); // halves to even
}

TEST_F(c52OutcomeListTest, EstimatedSize_RoundsHalvesToEvenAndOverflowsBeyond32Bits)
{
    EXPECT_EQ(List("FireSize = 0.5").EstimatedSize(), 0);
    EXPECT_EQ(List("FireSize = 1.5").EstimatedSize(), 2);
    // The size goes by its text, which has no more digits than the single needs.
    EXPECT_EQ(List("FireSize = 2147483520").EstimatedSize(), 2147483500);
    EXPECT_EQ(List("FireSize = 2147483648").EstimatedSize(), 2147483600);
    EXPECT_THROW(List("FireSize = 2147483904").EstimatedSize(), platform::Overflow);
}

TEST_F(c52OutcomeListTest, Delete_TakesTargetAndFallbackButNotTheExtremeOutcome)
{
    List({}, {}, {}, BurnsAtLevel4(TargetKey(1)) + Score(FallbackKey(1), 3, "5") + Score(kExtremeKey, 3, "5"))
        .Delete();
    EXPECT_EQ(Query("SELECT ItemKey FROM Outcomes"), (support::Rows{{"1"}}));
    EXPECT_EQ(Query("SELECT OutcomeKey FROM OutcomeFMZs"), (support::Rows{{"1"}}));
    EXPECT_EQ(Query("SELECT OutcomeKey FROM Scores"), (support::Rows{{"1"}}));
}
