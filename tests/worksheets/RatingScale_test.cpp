#include "worksheets/RatingScale.h"

#include <gtest/gtest.h>

namespace {

TEST(RatingScale, ScoreOfAText_BeginsWithANumberFromZeroToTen)
{
    struct Case
    {
        const char* text;
        Single score;
    };
    const Case kCases[] = {
        {"7", 7.0F},
        {"5.5", 5.5F},
        {"12", 10.0F},
        {"10.1", 10.0F},
        {"10", 10.0F},
        {"0", 0.0F},
        {"", 0.0F},
        {".", 0.0F},
        {".5", 0.5F},
        {"9.75", 9.75F},
        {"1.2.", 1.2F},
        {"7,5", 7.0F},
        {"best", 0.0F},
        {" 3 ", 3.0F},
        {"-3", 0.0F},
        {"1e9", 10.0F},
        {"0.1", 0.1F},
    };
    for (const Case& item : kCases)
        EXPECT_EQ(RatingScale::ScoreOf(item.text), item.score) << item.text;
}

TEST(RatingScale, BarOfAStoredScore_TenPercentAPoint)
{
    EXPECT_EQ(RatingScale::PercentOf(5.5F), 55.0);
    EXPECT_EQ(RatingScale::PercentOf(0.25F), 2.5);
    EXPECT_EQ(RatingScale::PercentOf(12.0F), 100.0);
    EXPECT_EQ(RatingScale::PercentOf(-1.0F), 0.0);
}

TEST(RatingScale, BarWhileTyped_WholePercentHalvesUp)
{
    EXPECT_EQ(RatingScale::PercentWhileTyped(5.5F), 55.0);
    EXPECT_EQ(RatingScale::PercentWhileTyped(0.25F), 3.0);
    EXPECT_EQ(RatingScale::PercentWhileTyped(7.13F), 71.0);
    EXPECT_EQ(RatingScale::PercentWhileTyped(10.0F), 100.0);
}

TEST(RatingScale, Drag_LeadsToWholeScoresAlone)
{
    for (int thousandth = -500; thousandth <= 1500; ++thousandth) {
        const auto step = RatingScale::StepAt(static_cast<Single>(thousandth) / 1000.0F);
        const int score = static_cast<int>(step.score);
        EXPECT_EQ(step.score, static_cast<Single>(score)) << thousandth;
        EXPECT_EQ(step.percent, 10.0 * score) << thousandth;
    }
}

// Kept: the place is a single float and its tenths are rounded half up on its shortest decimal.
TEST(RatingScale, Drag_HalfAStepLeadsUp)
{
    EXPECT_EQ(RatingScale::StepAt(0.45F).score, 5.0F); // a little below 0.45 in binary
    EXPECT_EQ(RatingScale::StepAt(0.4499F).score, 4.0F);
    EXPECT_EQ(RatingScale::StepAt(0.05F).score, 1.0F);
    EXPECT_EQ(RatingScale::StepAt(0.95F).score, 10.0F);
    EXPECT_EQ(RatingScale::StepAt(0.7F).score, 7.0F);
    EXPECT_EQ(RatingScale::StepAt(0.74F).percent, 70.0);
}

TEST(RatingScale, Drag_PastEitherEndIsThatEnd)
{
    EXPECT_EQ(RatingScale::StepAt(-3.0F).score, 0.0F);
    EXPECT_EQ(RatingScale::StepAt(3.0F).score, 10.0F);
}

TEST(RatingScale, StepByKey_NextWholeScore)
{
    struct Case
    {
        Single from;
        int steps;
        Single to;
    };
    const Case kCases[] = {{5.0F, 1, 6.0F},
                           {5.0F, -1, 4.0F},
                           {5.5F, 1, 6.0F},
                           {5.5F, -1, 5.0F},
                           {10.0F, 1, 10.0F},
                           {0.0F, -1, 0.0F},
                           {0.0F, 10, 10.0F}};
    for (const Case& item : kCases) {
        const Single place = RatingScale::PlaceBeside(item.from, item.steps);
        EXPECT_EQ(RatingScale::StepAt(place).score, item.to) << item.from << ' ' << item.steps;
    }
    for (int score = 0; score < 10; ++score) {
        const Single place = RatingScale::PlaceBeside(static_cast<Single>(score), 1);
        EXPECT_EQ(RatingScale::StepAt(place).score, static_cast<Single>(score + 1));
    }
}

} // namespace
