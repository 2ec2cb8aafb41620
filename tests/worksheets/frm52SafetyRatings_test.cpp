#include "model/g42SafetyIssues.h"
#include "model/g51Alternatives.h"
#include "model/g53Outcomes.h"
#include "platform/base/Texts.h"
#include "platform/widgets/ListBox.h"
#include "session/SessionState.h"
#include "session/UIMode.h"
#include "worksheets/GridHands.h"
#include "worksheets/WindowTest.h"
#include "worksheets/frm52SafetyRatings.h"

#include <QLabel>
#include <QPlainTextEdit>

#include <gmock/gmock.h>

using platform::Grid;
using platform::ListBox;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

constexpr Long kScore = 3;
constexpr Long kBar = 4;
// The sample's rows: Target of A, Target and Fallback of B, Target of C, the Extreme outcome.
constexpr Long kRowA = 1;
constexpr Long kRowB = 2;
constexpr Long kRowFallback = 3;
constexpr Long kRowExtreme = 5;
constexpr const char* kNoIssues = "UPDATE Objectives SET ChildKey = 0 WHERE Key = 2";

class SafetyRatings : public WindowTest
{
protected:
    void ShowSample(const std::string& sql = {}, const std::string& name = "smith-creek")
    {
        StartWithSample(name, sql);
        GoTo(5, 2);
        ASSERT_EQ(gCurrentTab, "tab52");
    }
    Grid& TheGrid() { return *Find<Grid>("Grid1"); }
    GridHands Hands() { return GridHands(TheGrid()); }
    ListBox& List() { return *Find<ListBox>("lstObjectives"); }
    QPlainTextEdit& Reasons() { return *Find<QPlainTextEdit>("txtRating"); }
    std::string Score(Long row) { return Hands().Text(row, kScore); }
    void ClickIssue(int index)
    {
        QTest::mouseClick(
            List().viewport(), Qt::LeftButton, {}, List().visualItemRect(List().item(index)).center());
        QCoreApplication::processEvents();
    }
    void Write(const char* text)
    {
        Reasons().setFocus();
        Reasons().selectAll();
        QTest::keyClicks(&Reasons(), QString::fromUtf8(text));
    }
    void Leave() { ClickTab(Worksheets(), 1); }
    support::Rows InFile(Long outcome, Long criterion)
    {
        return Query("SELECT Value, Description FROM Scores WHERE OutcomeKey = " + std::to_string(outcome) +
                     " AND CriterionKey = " + std::to_string(criterion));
    }
};

// ---- Set-up

TEST_F(SafetyRatings, Setup_TracesKeyAndEntry)
{
    ShowSample();
    EXPECT_THAT(Lines(), Contains(HasSubstr("frm52SafetyRatings.Setup")));
    EXPECT_THAT(Lines(), Contains(HasSubstr("lstObjectives_Click 1")));
    EXPECT_TRUE(Entry("mnuWorksheet", 2)->isChecked());
    EXPECT_TRUE(Menu("mnuEdit")->isEnabled());
    EXPECT_TRUE(UIMode::NotBusy());
}

TEST_F(SafetyRatings, Setup_FixedTexts)
{
    ShowSample();
    const std::vector<std::string> texts = LabelTexts();
    for (const char* text :
         {"Safety Issues",
          "Select each issue in turn",
          "Rate how well each outcome addresses or mitigates the issue:",
          "Rating for issue:",
          "Alternative / Outcome:",
          "Use the box below to document the rating assigned to each outcome.  Describe specific safety "
          "concerns for each outcome.  Appropriate mitigation measures may also be noted.  Select each "
          "outcome by clicking on it in the list above."})
        EXPECT_THAT(texts, Contains(text));
}

TEST_F(SafetyRatings, Setup_ListsRootAndIssuesAndChoosesTheFirstIssue)
{
    ShowSample();
    ASSERT_EQ(List().ListCount(), 5);
    EXPECT_EQ(List().List(0), "Safety");
    EXPECT_EQ(List().List(1), "    Snags and down timber in the dead lodgepole");
    EXPECT_EQ(List().List(4), "    Aircraft in smoke and a narrow canyon");
    EXPECT_EQ(List().ItemData(1), 7);
    EXPECT_EQ(List().ListIndex(), 1);
    EXPECT_EQ(LabelText("lblCriterion"), "Snags and down timber in the dead lodgepole");
}

TEST_F(SafetyRatings, Setup_GridHeadsAndWidths)
{
    ShowSample();
    const platform::GridContents& grid = TheGrid().Contents();
    ASSERT_EQ(grid.Cols(), 5);
    EXPECT_EQ(grid.Text(0, 0), "Outcomes");
    EXPECT_EQ(grid.Text(0, 1), "Outcomes");
    EXPECT_EQ(grid.Text(0, 2), "Acres");
    EXPECT_EQ(grid.Text(0, 3), "Rating (0 worst, 10 best)\n        Bad                       Good");
    EXPECT_EQ(grid.Text(0, 4), grid.Text(0, 3));
    EXPECT_TRUE(grid.MergeRow(0));
    EXPECT_EQ(grid.ColWidth(0), 2700);
    EXPECT_EQ(grid.ColWidth(1), 675);
    EXPECT_EQ(grid.ColWidth(2), 900);
    EXPECT_EQ(grid.ColWidth(3), 360);
}

TEST_F(SafetyRatings, Setup_FirstRowIsCurrentWithItsReasons)
{
    ShowSample(
        "UPDATE Scores SET Description = 'Because of the snags.' WHERE OutcomeKey = 2 AND CriterionKey = 7");
    EXPECT_EQ(TheGrid().Row(), kRowA);
    EXPECT_EQ(LabelText("lblOutcome"), "A. Full perimeter control Target");
    EXPECT_EQ(Reasons().toPlainText().toStdString(), "Because of the snags.");
    EXPECT_TRUE(Reasons().isEnabled());
    EXPECT_FALSE(TheGrid().IsEditing());
}

TEST_F(SafetyRatings, Rows_ShowTheIssuesScores)
{
    ShowSample();
    for (Long row = 1; row <= kRowExtreme; ++row) {
        const auto outcome = TheGrid().RowObject<std::shared_ptr<c53Outcome>>(row);
        EXPECT_EQ(Score(row), platform::TextOf(outcome->RawSafetyScore(7))) << row;
    }
}

TEST_F(SafetyRatings, RootAlone_DisabledAndShowsNoRating)
{
    ShowSample(kNoIssues);
    EXPECT_EQ(List().ListCount(), 1);
    for (QWidget* control : {static_cast<QWidget*>(&List()),
                             static_cast<QWidget*>(&TheGrid()),
                             static_cast<QWidget*>(&Reasons())}) {
        EXPECT_FALSE(control->isEnabled());
        EXPECT_THAT(control->toolTip().toStdString(), HasSubstr("no safety issues to rate yet"));
    }
    EXPECT_THAT(LabelText("lblCriterion"), HasSubstr("no safety issues to rate yet"));
    EXPECT_EQ(Score(kRowA), "");
    EXPECT_EQ(Hands().BarSays(kRowA, kBar), "");
    EXPECT_EQ(Reasons().toPlainText(), QString());
    Leave();
    EXPECT_EQ(gCurrentTab, "tab11");
}

TEST_F(SafetyRatings, NewFile_OneRowForTheExtremeOutcome)
{
    StartWithNewFile();
    GoTo(5, 2);
    EXPECT_THAT(Hands().Column(0), ElementsAre("Extreme Outcome"));
}

TEST_F(SafetyRatings, OnlyLookedAt_LeavesTheFileAsItWas)
{
    const char* kRows = "SELECT * FROM Scores ORDER BY OutcomeKey, CriterionKey";
    ShowSample();
    const auto before = support::QuerySql(support::BuiltFile("samples/smith-creek.qel"), kRows);
    for (int index = 1; index < 5; ++index) {
        ClickIssue(index);
        for (Long row = 1; row <= kRowExtreme; ++row)
            Hands().Click(row, kScore);
    }
    Leave();
    EXPECT_EQ(Query(kRows), before);
}

TEST_F(SafetyRatings, TabKey_ListGridReasons)
{
    ShowSample();
    List().setFocus();
    GridHands::Key(Qt::Key_Tab);
    EXPECT_TRUE(TheGrid().hasFocus());
    TheGrid().Select(kRowExtreme, kBar);
    GridHands::Key(Qt::Key_Tab);
    EXPECT_TRUE(Reasons().hasFocus());
}

// ---- Choosing an issue

TEST_F(SafetyRatings, Root_LeadsOnToTheFirstIssue)
{
    ShowSample();
    ClickIssue(3);
    ClickIssue(0);
    EXPECT_EQ(List().ListIndex(), 1);
    EXPECT_TRUE(List().item(1)->isSelected());
    EXPECT_FALSE(List().item(0)->isSelected());
    EXPECT_EQ(LabelText("lblCriterion"), "Snags and down timber in the dead lodgepole");
    List().setFocus();
    GridHands::Key(Qt::Key_Up);
    EXPECT_EQ(List().ListIndex(), 1);
    GridHands::Key(Qt::Key_Home);
    EXPECT_EQ(List().ListIndex(), 1);
}

TEST_F(SafetyRatings, Issue_MakesTheFirstRowCurrent)
{
    ShowSample();
    Hands().Click(kRowFallback, 1);
    ClickIssue(2);
    EXPECT_EQ(TheGrid().Row(), kRowA);
    EXPECT_EQ(LabelText("lblOutcome"), "A. Full perimeter control Target");
    Write("For A.");
    Leave();
    EXPECT_EQ(InFile(2, 8).at(0).at(1), "For A.");
}

TEST_F(SafetyRatings, Issue_SavesWhatWasTyped)
{
    ShowSample();
    Hands().Type(kRowB, kScore, "2.5");
    ClickIssue(2);
    EXPECT_EQ(InFile(4, 7).at(0).at(0), "2.5");
}

TEST_F(SafetyRatings, Issue_UnsavedTypingStaysWithItsIssue)
{
    ShowSample();
    Write("Unsaved.");
    ForbidWrites();
    ExpectReport();
    ClickIssue(2);
    EXPECT_EQ(List().ListIndex(), 1);
    EXPECT_TRUE(List().item(1)->isSelected());
    EXPECT_EQ(LabelText("lblCriterion"), "Snags and down timber in the dead lodgepole");
    EXPECT_EQ(Reasons().toPlainText().toStdString(), "Unsaved.");
    AllowWrites();
    ClickIssue(2);
    EXPECT_EQ(LabelText("lblCriterion"), "One road out of Harlan Bench");
    EXPECT_EQ(InFile(2, 7).at(0).at(1), "Unsaved.");
}

// ---- Rows

TEST_F(SafetyRatings, EnteringARow_ShowsItsOutcomeAndReasons)
{
    ShowSample("UPDATE Scores SET Description = 'Of the fallback.' WHERE OutcomeKey = 5 AND CriterionKey = 7;"
               "UPDATE Scores SET Description = 'Of the extreme.' WHERE OutcomeKey = 1 AND CriterionKey = 7");
    Hands().Click(kRowFallback, 1);
    EXPECT_EQ(LabelText("lblOutcome"), "B. Confine on Wagon Road and Divide Ridge Fallback");
    EXPECT_EQ(Reasons().toPlainText().toStdString(), "Of the fallback.");
    Hands().Click(kRowExtreme, kScore);
    EXPECT_EQ(LabelText("lblOutcome"), "Extreme Outcome");
    EXPECT_EQ(Reasons().toPlainText().toStdString(), "Of the extreme.");
    EXPECT_TRUE(TheGrid().IsEditing());
}

TEST_F(SafetyRatings, Reasons_SavedWhenTheRowIsLeft)
{
    ShowSample();
    Hands().Click(kRowB, 1);
    Write("Walked twice.");
    Hands().Click(kRowA, 1);
    EXPECT_NE(Reasons().toPlainText().toStdString(), "Walked twice.");
    EXPECT_EQ(InFile(4, 7).at(0).at(1), "Walked twice.");
}

TEST_F(SafetyRatings, Reasons_SavedWithTheWindow)
{
    ShowSample("DELETE FROM Scores WHERE OutcomeKey = 2 AND CriterionKey = 7");
    Write("A rating without a row gets one.");
    EXPECT_TRUE(window->close());
    EXPECT_EQ(InFile(2, 7), (support::Rows{{"0.0", "A rating without a row gets one."}}));
}

TEST_F(SafetyRatings, ShowingReasons_IsNoEdit)
{
    ShowSample("UPDATE Scores SET Description = 'Old.' WHERE CriterionKey = 7");
    Hands().Click(kRowB, 1);
    Hands().Click(kRowA, 1);
    ForbidWrites(); // an attempt to write would be told
    Hands().Click(kRowB, 1);
    Leave();
    EXPECT_EQ(gCurrentTab, "tab11");
}

// ---- Scores

TEST_F(SafetyRatings, Typing_CellBarAndModel)
{
    ShowSample();
    Hands().Type(kRowA, kScore, "12");
    EXPECT_EQ(Hands().BarSays(kRowA, kBar), "100 %");
    GridHands::Key(Qt::Key_Return);
    EXPECT_EQ(Score(kRowA), "10");
    Leave();
    EXPECT_EQ(InFile(2, 7).at(0).at(0), "10.0");
}

// Kept: unlike the objectives' ratings, the end of an edit saves nothing; leaving the cell does.
TEST_F(SafetyRatings, EndOfEdit_SavesNothingUntilTheCellIsLeft)
{
    ShowSample();
    Hands().Type(kRowExtreme, kScore, "4.5"); // the last row: Enter leads nowhere
    ForbidWrites();                           // a save would be told
    GridHands::Key(Qt::Key_Return);
    EXPECT_FALSE(TheGrid().IsEditing());
    EXPECT_EQ(Score(kRowExtreme), "4.5");
    AllowWrites();
    Hands().Click(kRowA, 1);
    EXPECT_EQ(InFile(1, 7).at(0).at(0), "4.5");
}

TEST_F(SafetyRatings, Drag_AsOnTheOtherWorksheet)
{
    ShowSample();
    Hands().Drag(kRowFallback, kBar, 0.2, 0.83);
    EXPECT_EQ(Score(kRowFallback), "8");
    EXPECT_EQ(LabelText("lblOutcome"), "B. Confine on Wagon Road and Divide Ridge Fallback");
    Leave();
    EXPECT_EQ(InFile(5, 7).at(0).at(0), "8.0");
}

TEST_F(SafetyRatings, LeavingWithTheCellOpen_IsInTheFile)
{
    ShowSample();
    Hands().Type(kRowB, kScore, "3.25");
    ClickTab(Worksheets(), 3);
    EXPECT_EQ(gCurrentTab, "tab53");
    EXPECT_EQ(InFile(4, 7).at(0).at(0), "3.25");
}

TEST_F(SafetyRatings, Leaving_ModelShowsTheNewFigures)
{
    ShowSample();
    g51Alternatives::Alternative(297)->ExpectedSafetyScore(); // its ratings are loaded
    for (int index = 1; index < 5; ++index) {
        ClickIssue(index);
        Hands().Type(kRowA, kScore, "10");
    }
    Leave();
    EXPECT_EQ(g51Alternatives::Alternative(297)->Outcome(1)->SafetyScore(), 10.0F);
}

TEST_F(SafetyRatings, IssueAddedElsewhere_IsRatedOnTheNextVisit)
{
    ShowSample();
    Leave();
    const auto issue = g42SafetyIssues::NewSafetyIssue("Ash pits", 2);
    issue->SetItemName("Ash pits");
    issue->SaveChanges();
    const Long key = issue->ItemKey();
    g42SafetyIssues::ResetSafetyIssues();
    ClickTab(Worksheets(), 2);
    ASSERT_EQ(List().ListCount(), 6);
    EXPECT_EQ(List().List(5), "    Ash pits");
    ClickIssue(5);
    Hands().Type(kRowA, kScore, "6");
    Leave();
    EXPECT_EQ(InFile(2, key).at(0).at(0), "6.0");
}

TEST_F(SafetyRatings, WritesForbidden_ToldOnceAndSavedLater)
{
    ShowSample();
    Hands().Type(kRowA, kScore, "1.5");
    ForbidWrites();
    ExpectReport();
    Hands().Click(kRowB, 1);
    Hands().Click(kRowExtreme, 1);
    EXPECT_EQ(Score(kRowA), "1.5");
    AllowWrites();
    Leave();
    EXPECT_EQ(InFile(2, 7).at(0).at(0), "1.5");
}

} // namespace
