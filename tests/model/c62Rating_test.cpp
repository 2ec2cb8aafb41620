#include "FireSql.h"
#include "model/c62Rating.h"
#include "platform/base/Errors.h"
#include "platform/data/DatabaseError.h"
#include "support/TestSession.h"

using namespace firesql;
using support::Rows;

namespace {

class c62RatingTest : public support::TestSession
{
protected:
    static c62Rating Read(Long outcomeKey, Long criterionKey, bool safety, bool rootOrCategory = false)
    {
        c62Rating rating;
        rating.Initialize(outcomeKey, criterionKey, safety, rootOrCategory);
        return rating;
    }
    Rows Scores() { return Query("SELECT OutcomeKey, CriterionKey, Value, Description FROM Scores"); }
};

} // namespace

TEST_F(c62RatingTest, Initialize_NoRow_IsZeroAndEmpty)
{
    OpenNew();
    const c62Rating rating = Read(1, 3, false);
    EXPECT_EQ(rating.RawScore(), 0.0F);
    EXPECT_EQ(rating.Description(), "");
}

TEST_F(c62RatingTest, Initialize_Row_ReadsScoreAndDescription)
{
    OpenNew(Score(1, 3, "7.3"));
    const c62Rating rating = Read(1, 3, false);
    EXPECT_EQ(rating.RawScore(), 7.3F);
    EXPECT_EQ(rating.CategoryScore(), 7.3F);
    EXPECT_EQ(rating.Description(), "Note");
}

TEST_F(c62RatingTest, Initialize_OddCells_ReadNullSafe)
{
    OpenNew("INSERT INTO Scores VALUES (1, 3, NULL, NULL), (1, 4, '8 of 10', NULL), (1, 5, 'none', 5), "
            "(1, 6, 1e40, NULL);");
    EXPECT_EQ(Read(1, 3, false).RawScore(), 0.0F);
    EXPECT_EQ(Read(1, 4, false).RawScore(), 8.0F);
    EXPECT_EQ(Read(1, 5, false).RawScore(), 0.0F);
    EXPECT_EQ(Read(1, 5, false).Description(), "5");
    EXPECT_THROW(Read(1, 6, false), platform::Error); // beyond a single
}

TEST_F(c62RatingTest, Flags_RootFlagIsNeverSet)
{
    OpenNew();
    for (const bool rootOrCategory : {false, true}) {
        EXPECT_FALSE(Read(1, 3, false, rootOrCategory).bCategory());
        EXPECT_FALSE(Read(1, 2, true, rootOrCategory).bCategory());
        EXPECT_FALSE(Read(1, 2, true, rootOrCategory).bSafetyRoot());
        EXPECT_TRUE(Read(1, 2, true, rootOrCategory).bSafetyIssue());
        EXPECT_FALSE(Read(1, 3, false, rootOrCategory).bSafetyIssue());
    }
}

TEST_F(c62RatingTest, WeightedScore_Objective_IsAQuarterWhateverThePriorities)
{
    OpenNew(ObjectivesBelow(3, {90}) + Score(1, 3, "8") + Score(1, 7, "6") +
            "UPDATE Objectives SET Priority = 50 WHERE \"Key\" = 3;");
    EXPECT_EQ(Read(1, 3, false).WeightedScore(), 2.0F);
    EXPECT_EQ(Read(1, 7, false).WeightedScore(), 1.5F);
}

TEST_F(c62RatingTest, WeightedScore_SafetyIssue_UsesItsWeight)
{
    OpenNew(Issues({10, 30}) + Score(1, 7, "8") + Score(1, 8, "8"));
    EXPECT_EQ(Read(1, 7, true).WeightedScore(), 2.0F);
    EXPECT_EQ(Read(1, 8, true).WeightedScore(), 6.0F);
}

TEST_F(c62RatingTest, WeightedScore_SafetyIssueThatIsGone_IsMissing)
{
    OpenNew(Score(1, 7, "8"));
    EXPECT_THROW(Read(1, 7, true).WeightedScore(), platform::MissingMember);
}

TEST_F(c62RatingTest, WeightedScore_IsRoundedToASingle)
{
    OpenNew(Issues({1, 2}) + Score(1, 7, "0.1"));
    const Double weight = Double(static_cast<Single>(1.0 / 3.0));
    EXPECT_EQ(Read(1, 7, true).WeightedScore(), static_cast<Single>(weight * Double(0.1F)));
}

TEST_F(c62RatingTest, AddChild_HasNoInfluenceOnAnyScore)
{
    OpenNew(Score(1, 3, "8") + Score(1, 4, "10"));
    c62Rating parent = Read(1, 3, false);
    const c62Rating child = Read(1, 4, false);
    parent.AddChild(child);
    EXPECT_EQ(parent.RawScore(), 8.0F);
    EXPECT_EQ(parent.WeightedScore(), 2.0F);
    EXPECT_EQ(parent.CategoryScore(), 8.0F);
}

TEST_F(c62RatingTest, SaveChanges_ReadAndNotChanged_AddsNoRow)
{
    OpenNew();
    c62Rating rating = Read(1, 3, false);
    rating.SaveChanges();
    EXPECT_EQ(Scores(), Rows());
}

TEST_F(c62RatingTest, SaveChanges_NoRowThenAgain_AddsOneRowAndEditsIt)
{
    OpenNew();
    c62Rating rating = Read(1, 3, false);
    rating.SetRawScore(4.5F);
    rating.SaveChanges();
    rating.SetRawScore(5.0F);
    rating.SetDescription("Better");
    rating.SaveChanges();
    EXPECT_EQ(Scores(), (Rows{{"1", "3", "5.0", "Better"}}));
}

TEST_F(c62RatingTest, SaveChanges_EqualValueWritten_AddsTheRow)
{
    OpenNew();
    c62Rating rating = Read(1, 3, false);
    rating.SetRawScore(0.0F);
    rating.SaveChanges();
    EXPECT_EQ(Scores(), (Rows{{"1", "3", "0.0", ""}}));
}
