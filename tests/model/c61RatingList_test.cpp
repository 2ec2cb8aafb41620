#include "FireSql.h"
#include "model/c61RatingList.h"
#include "model/g62Ratings.h"
#include "platform/base/Errors.h"
#include "platform/data/DatabaseError.h"
#include "support/TestSession.h"

using namespace firesql;
using support::Rows;

namespace {

class c61RatingListTest : public support::TestSession
{
protected:
    /// The ratings of the Extreme outcome of a new file with this content.
    const c61RatingList& Ratings(const std::string& sql)
    {
        Close();
        OpenNew(sql);
        list = std::make_unique<c61RatingList>();
        list->Initialize(kExtremeKey);
        return *list;
    }
    std::unique_ptr<c61RatingList> list;
};

std::string Scores(const std::vector<std::pair<Long, std::string>>& scores)
{
    std::string sql;
    for (const auto& [criterion, value] : scores) {
        sql += Score(kExtremeKey, criterion, value);
    }
    return sql;
}

} // namespace

TEST_F(c61RatingListTest, NoRows_ScoresAreZero)
{
    const c61RatingList& ratings = Ratings(Issues({10, 10}));
    EXPECT_EQ(ratings.TotalScore(), 0.0F);
    EXPECT_EQ(ratings.SafetyScore(), 0.0F);
    EXPECT_EQ(ratings.RawObjScore(3), 0.0F);
    EXPECT_EQ(ratings.WeightedSafetyScore(7), 0.0F);
}

TEST_F(c61RatingListTest, TotalScore_FourCategories_AddsQuarters)
{
    EXPECT_EQ(Ratings(Scores({{3, "10"}, {4, "10"}, {5, "0"}, {6, "0"}})).TotalScore(), 5.0F);
}

TEST_F(c61RatingListTest, KeysHeldAsText_AreFoundAsASeekFindsThem)
{
    const c61RatingList& ratings = Ratings(
        Scores({{3, "8"}}) +
        "CREATE TABLE copy (OutcomeKey TEXT, CriterionKey TEXT, Value REAL, Description TEXT, "
        "PRIMARY KEY (OutcomeKey, CriterionKey)) WITHOUT ROWID; INSERT INTO copy SELECT * FROM Scores;"
        "DROP TABLE Scores; ALTER TABLE copy RENAME TO Scores;");
    c62Rating sought;
    sought.Initialize(kExtremeKey, 3, false, true);
    EXPECT_EQ(sought.RawScore(), 8.0F);
    EXPECT_EQ(ratings.RawObjScore(3), 8.0F);
}

TEST_F(c61RatingListTest, TotalScore_FiveCategories_KeepsTheQuarterForEach)
{
    const std::string fifth = "UPDATE Objectives SET SiblingKey = 7 WHERE \"Key\" = 6;"
                              "INSERT INTO Objectives VALUES (7, 'Fifth', '', 1, 0, 0, 10);";
    EXPECT_EQ(Ratings(fifth + Scores({{3, "10"}, {4, "10"}, {5, "10"}, {6, "10"}, {7, "10"}})).TotalScore(),
              12.5F);
}

TEST_F(c61RatingListTest, TotalScore_RowsOfRootAndObjectives_CountLikeCategories)
{
    const c61RatingList& ratings = Ratings(ObjectivesBelow(3, {10}) + Scores({{1, "4"}, {3, "8"}, {7, "2"}}));
    EXPECT_EQ(ratings.TotalScore(), 3.5F);
    EXPECT_EQ(ratings.WeightedObjScore(1), 1.0F);
    EXPECT_EQ(ratings.CategoryScore(3), 8.0F);
    EXPECT_EQ(ratings.RawObjScore(7), 2.0F);
}

TEST_F(c61RatingListTest, TotalScore_IsNotRoundedBeyondTheSingle)
{
    // 0.25 of each, added as singles from zero on: powers of two scale without an error.
    const Single sum = 0.3F + 0.7F;
    EXPECT_EQ(Ratings(Scores({{3, "1.2"}, {4, "2.8"}})).TotalScore(), sum);
    EXPECT_EQ(Ratings(Scores({{3, "7.777"}})).TotalScore(), 7.777F * 0.25F);
}

TEST_F(c61RatingListTest, SafetyScore_ThreeEqualIssues_IsTheirMeanAsSinglesAdd)
{
    const c61RatingList& ratings = Ratings(Issues({10, 10, 10}) + Scores({{7, "9"}, {8, "6"}, {9, "3"}}));
    const Single third = static_cast<Single>(1.0 / 3.0);
    const Single sum = (third * 9.0F + third * 6.0F) + third * 3.0F;
    EXPECT_EQ(ratings.SafetyScore(), sum);
    EXPECT_EQ(ratings.SafetyScore(), 6.0F);
}

TEST_F(c61RatingListTest, SafetyScore_RowOfTheRoot_CountsFully)
{
    EXPECT_EQ(Ratings(Issues({10}) + Scores({{2, "3"}, {7, "4"}})).SafetyScore(), 7.0F);
}

TEST_F(c61RatingListTest, SafetyScore_IssueOfPriorityZero_CountsNothing)
{
    EXPECT_EQ(Ratings(Issues({10, 0}) + Scores({{7, "4"}, {8, "9"}})).SafetyScore(), 4.0F);
}

TEST_F(c61RatingListTest, UnknownKey_IsMissingInEitherTree)
{
    const c61RatingList& ratings = Ratings(Issues({10}));
    EXPECT_THROW(ratings.CategoryScore(7), platform::MissingMember);
    EXPECT_THROW(ratings.WeightedObjScore(2), platform::MissingMember);
    EXPECT_THROW(ratings.RawObjScore(99), platform::MissingMember);
    EXPECT_THROW(ratings.WeightedSafetyScore(3), platform::MissingMember);
    EXPECT_THROW(ratings.RawSafetyScore(1), platform::MissingMember);
}

TEST_F(c61RatingListTest, ScoresOfOtherOutcomes_AreNotTaken)
{
    EXPECT_EQ(Ratings(Score(55, 3, "8") + Score(kExtremeKey, 4, "4")).TotalScore(), 1.0F);
}

TEST_F(c61RatingListTest, RowOfNoCriterion_IsNotLookedAt)
{
    const c61RatingList& ratings =
        Ratings(Scores({{3, "8"}, {99, "1e40"}}) +
                "INSERT INTO Scores VALUES (1, 3000000000, 1e40, NULL), (1, 'x', 1e40, NULL), "
                "(1, 4.5, 1e40, NULL);");
    EXPECT_EQ(ratings.TotalScore(), 2.0F);
}

TEST_F(c61RatingListTest, BadCellOfACriterion_IsAnError)
{
    EXPECT_THROW(Ratings(Scores({{3, "1e40"}})), platform::Error);
}

TEST_F(c61RatingListTest, TextCells_ReadAsTheirNumber)
{
    EXPECT_EQ(Ratings(Scores({{3, "'6 points'"}, {4, "'none'"}, {5, "NULL"}})).TotalScore(), 1.5F);
}

TEST_F(c61RatingListTest, ScoresBeyondTheSingleRange_Overflow)
{
    const c61RatingList& ratings = Ratings(Issues({-10, 11}) + Scores({{7, "3e38"}, {8, "3e38"}}));
    EXPECT_THROW(ratings.SafetyScore(), platform::Overflow);
    EXPECT_THROW(ratings.WeightedSafetyScore(7), platform::Overflow);
    EXPECT_EQ(ratings.RawSafetyScore(7), 3e38F);
}

TEST_F(c61RatingListTest, RatingSavedLater_IsNotSeenByAListThatStands)
{
    const c61RatingList& ratings = Ratings(Scores({{3, "8"}}));
    c62Rating rating;
    rating.Initialize(kExtremeKey, 4, false, false);
    rating.SetRawScore(8.0F);
    rating.SaveChanges();
    EXPECT_EQ(ratings.TotalScore(), 2.0F);
    c61RatingList fresh;
    fresh.Initialize(kExtremeKey);
    EXPECT_EQ(fresh.TotalScore(), 4.0F);
}

TEST_F(c61RatingListTest, DeleteCriterionRatings_TakesThemOfAllOutcomes)
{
    OpenNew(Score(1, 3, "8") + Score(5, 3, "8") + Score(5, 4, "8"));
    g62Ratings::DeleteCriterionRatings(3);
    EXPECT_EQ(Query("SELECT OutcomeKey, CriterionKey FROM Scores"), (Rows{{"5", "4"}}));
}

TEST_F(c61RatingListTest, DeleteOutcomeRatings_TakesAllOfTheOutcome)
{
    OpenNew(Score(1, 3, "8") + Score(5, 3, "8") + Score(5, 4, "8"));
    g62Ratings::DeleteOutcomeRatings(5);
    EXPECT_EQ(Query("SELECT OutcomeKey, CriterionKey FROM Scores"), (Rows{{"1", "3"}}));
}
