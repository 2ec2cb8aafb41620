#include "model/g41Objectives.h"
#include "model/g51Alternatives.h"
#include "model/g53Outcomes.h"
#include "platform/base/Formats.h"
#include "platform/base/Texts.h"
#include "platform/widgets/ListBox.h"
#include "platform/widgets/RichTextEdit.h"
#include "session/SessionState.h"
#include "session/UIMode.h"
#include "worksheets/DecisionTreePicture.h"
#include "worksheets/GridHands.h"
#include "worksheets/WindowTest.h"
#include "worksheets/frm53Ratings.h"

#include <QAccessible>
#include <QClipboard>
#include <QLabel>

#include <gmock/gmock.h>
#include <map>

using platform::Grid;
using platform::ListBox;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

namespace {

constexpr Long kScore = 3;
constexpr Long kBar = 4;
// The sample's rows: Target of A, Target and Fallback of B, Target of C, the Extreme outcome.
constexpr Long kRowA = 1;
constexpr Long kRowB = 2;
constexpr Long kRowFallback = 3;
constexpr Long kRowExtreme = 5;
constexpr const char* kManyAlternatives =
    "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 37)"
    "INSERT INTO Items(ItemKey, ItemName, Heading, ParentKey, ChildIndex)"
    " SELECT 5000 + i, 'N' || i, 'More', 26, 10 + i FROM n;"
    "INSERT INTO Outcomes(ItemKey, ParentKey, ChildIndex, FireSize, Success)"
    " SELECT 10000 + ItemKey, ItemKey, 1, 10, 50 FROM Items WHERE ItemKey > 5000;"
    "INSERT INTO Outcomes(ItemKey, ParentKey, ChildIndex, FireSize, Success)"
    " SELECT 20000 + ItemKey, ItemKey, 2, 10, -1 FROM Items WHERE ItemKey > 5000";

class Ratings : public WindowTest
{
protected:
    void ShowSample(const std::string& sql = {}, const std::string& name = "smith-creek")
    {
        StartWithSample(name, sql);
        GoTo(5, 3);
        ASSERT_EQ(gCurrentTab, "tab53");
    }
    Grid& TheGrid() { return *Find<Grid>("Grid1"); }
    GridHands Hands() { return GridHands(TheGrid()); }
    ListBox& List() { return *Find<ListBox>("lstObjectives"); }
    std::string Score(Long row) { return Hands().Text(row, kScore); }
    std::string Bar(Long row) { return Hands().BarSays(row, kBar); }
    void Leave() { ClickTab(Worksheets(), 1); }
    /// What the file has for an outcome and a criterion.
    support::Rows InFile(Long outcome, Long criterion)
    {
        return Query("SELECT Value FROM Scores WHERE OutcomeKey = " + std::to_string(outcome) +
                     " AND CriterionKey = " + std::to_string(criterion));
    }
    std::string Tree(int index)
    {
        return Find<DecisionTreePicture>(index == 1 ? "picDecisionTree_1" : "picDecisionTree_2")
            ->accessibleDescription()
            .toStdString();
    }
};

// ---- Set-up

TEST_F(Ratings, Setup_TracesKeyAndEntry)
{
    ShowSample();
    EXPECT_THAT(Lines(), Contains(HasSubstr("frmRatings.Setup")));
    EXPECT_THAT(Lines(), Contains(HasSubstr("LoadCriteria")));
    EXPECT_THAT(Lines(), Contains(HasSubstr("Objectives.GetCategoryCollection")));
    EXPECT_THAT(Lines(), Contains(HasSubstr("lstObjectives_Click 0")));
    EXPECT_TRUE(Entry("mnuWorksheet", 3)->isChecked());
    EXPECT_EQ(Shown().windowTitle(), QStringLiteral("Evaluate"));
    EXPECT_TRUE(UIMode::NotBusy());
}

// Kept: alone among the worksheets that one fills in.
TEST_F(Ratings, Setup_EditMenuIsDisabled)
{
    ShowSample();
    EXPECT_FALSE(Menu("mnuEdit")->isEnabled());
    ClickTab(Worksheets(), 2);
    EXPECT_TRUE(Menu("mnuEdit")->isEnabled());
}

TEST_F(Ratings, Setup_FixedTexts)
{
    ShowSample();
    const std::vector<std::string> texts = LabelTexts();
    for (const char* text : {" Objectives",
                             "Select each objective in turn",
                             "Rate how well each outcome satisfies the objective",
                             "Rating for objective:"})
        EXPECT_THAT(texts, Contains(text));
}

TEST_F(Ratings, Setup_ListsTheCategoriesAndChoosesTheFirst)
{
    ShowSample();
    ASSERT_EQ(List().ListCount(), 4);
    EXPECT_EQ(List().List(0), "Property and Economy");
    EXPECT_EQ(List().List(3), "Feasibility");
    EXPECT_EQ(List().ItemData(3), 6);
    EXPECT_EQ(List().ListIndex(), 0);
    EXPECT_EQ(LabelText("lblCriterion"), "Property and Economy");
}

TEST_F(Ratings, Setup_GridHeadsAndWidths)
{
    ShowSample();
    const platform::GridContents& grid = TheGrid().Contents();
    ASSERT_EQ(grid.Cols(), 5);
    EXPECT_EQ(grid.FixedRows(), 1);
    EXPECT_EQ(grid.Text(0, 0), "Alternative");
    EXPECT_EQ(grid.Text(0, 1), "Outcome");
    EXPECT_EQ(grid.Text(0, 2), "Acres");
    EXPECT_EQ(grid.Text(0, 3), "Rating (0 worst, 10 best)\n        Bad                       Good");
    EXPECT_EQ(grid.Text(0, 4), grid.Text(0, 3));
    EXPECT_TRUE(grid.MergeRow(0));
    EXPECT_EQ(grid.ColWidth(0), 2100);
    EXPECT_EQ(grid.ColWidth(1), 1200);
    EXPECT_EQ(grid.ColWidth(2), 720);
    EXPECT_EQ(grid.ColWidth(3), 360);
    EXPECT_EQ(grid.ColAlignment(0), platform::Alignment::Left);
    EXPECT_EQ(grid.ColAlignment(1), platform::Alignment::Left);
    EXPECT_EQ(grid.ColAlignment(2), platform::Alignment::Right);
    EXPECT_EQ(grid.ColAlignment(3), platform::Alignment::Right);
}

TEST_F(Ratings, Setup_BarTakesTheWidthLeftOver)
{
    ShowSample();
    window->resize(1600, 1000);
    QCoreApplication::processEvents();
    const int before = TheGrid().columnWidth(kBar);
    window->resize(1500, 1000);
    QCoreApplication::processEvents();
    EXPECT_LT(TheGrid().columnWidth(kBar), before);
}

TEST_F(Ratings, Rows_TargetsShownFallbacksAndExtremeLast)
{
    ShowSample();
    EXPECT_THAT(Hands().Column(0),
                ElementsAre("A. Full perimeter control",
                            "B. Confine on Wagon Road and Divide Ridge",
                            "B. Confine on Wagon Road and Divide Ridge",
                            "C. Monitor with point protection",
                            "Extreme Outcome"));
    EXPECT_THAT(Hands().Column(1), ElementsAre("Target", "Target", "Fallback", "Target", "Extreme Outcome"));
    EXPECT_THAT(Hands().Column(2), ElementsAre(" 2400 ", " 6200 ", " 9800 ", " 11,500 ", " 24,000 "));
}

TEST_F(Ratings, Rows_EqualNeighboursStandAsOne)
{
    ShowSample();
    EXPECT_EQ(TheGrid().rowSpan(kRowB - 1, 0), 2);
    EXPECT_EQ(TheGrid().rowSpan(kRowA - 1, 0), 1);
    EXPECT_EQ(TheGrid().columnSpan(kRowExtreme - 1, 0), 2);
}

TEST_F(Ratings, Rows_ScoresAndBarsOfTheCriterion)
{
    ShowSample("UPDATE Scores SET Value = 7.25 WHERE OutcomeKey = 2 AND CriterionKey = 3;"
               "DELETE FROM Scores WHERE OutcomeKey = 4 AND CriterionKey = 3");
    EXPECT_EQ(Score(kRowA), "7.25");
    EXPECT_EQ(Bar(kRowA), "72.5 %");
    EXPECT_EQ(Score(kRowB), "0");
    EXPECT_EQ(Bar(kRowB), "0 %");
}

TEST_F(Ratings, Description_ShownForReading)
{
    ShowSample();
    auto* description = Find<platform::RichTextEdit>("txtDescription");
    EXPECT_TRUE(description->isReadOnly());
    platform::RichTextEdit stored;
    stored.LoadFromMemory(g41Objectives::Objective(3)->Description());
    EXPECT_EQ(description->Text(), stored.Text());
    EXPECT_FALSE(description->IsEmpty());
    description->setFocus();
    QTest::keyClicks(description, QStringLiteral("x"));
    EXPECT_EQ(description->Text(), stored.Text());
}

TEST_F(Ratings, OnlyLookedAt_LeavesTheFileAsItWas)
{
    const char* kRows = "SELECT * FROM Scores ORDER BY OutcomeKey, CriterionKey";
    ShowSample();
    const auto before = support::QuerySql(support::BuiltFile("samples/smith-creek.qel"), kRows);
    for (Long index = 0; index < 4; ++index) {
        List().SetListIndex(index);
        for (Long row = 1; row <= kRowExtreme; ++row)
            Hands().Click(row, kScore);
    }
    Leave();
    EXPECT_EQ(Query(kRows), before);
}

TEST_F(Ratings, NewFile_ExtremeRowAloneAndASentence)
{
    StartWithNewFile();
    GoTo(5, 3);
    EXPECT_THAT(Hands().Column(0), ElementsAre("Extreme Outcome"));
    const auto labels = Shown().findChildren<QLabel*>();
    const auto sentence = std::find_if(labels.begin(), labels.end(), [](const QLabel* label) {
        return label->text().startsWith(QStringLiteral("There are no alternatives yet."));
    });
    ASSERT_NE(sentence, labels.end());
    EXPECT_TRUE((*sentence)->isVisible());
}

TEST_F(Ratings, NoCategories_DisabledAndSaysWhy)
{
    ShowSample("UPDATE Objectives SET ChildKey = 0 WHERE Key = 1");
    EXPECT_EQ(List().ListCount(), 0);
    EXPECT_FALSE(List().isEnabled());
    EXPECT_FALSE(TheGrid().isEnabled());
    EXPECT_FALSE(TheGrid().toolTip().isEmpty());
    EXPECT_EQ(Score(kRowA), "");
    Leave();
    EXPECT_EQ(gCurrentTab, "tab11");
}

TEST_F(Ratings, ManyAlternatives_ARowForEach)
{
    ShowSample(kManyAlternatives);
    EXPECT_EQ(TheGrid().Rows(), 1 + 40 + 1 + 1);
    Hands().Type(42, kScore, "8");
    Leave();
    EXPECT_EQ(InFile(10000 + 5037, 3), (support::Rows{})); // row 42 is the Extreme one
    EXPECT_EQ(InFile(1, 3), (support::Rows{{"8.0"}}));
}

TEST_F(Ratings, LongNames_WindowKeepsItsSize)
{
    ShowSample("UPDATE Items SET Heading = hex(zeroblob(150)) WHERE ItemKey = 297;"
               "UPDATE Objectives SET Name = hex(zeroblob(150)) WHERE Key = 3");
    window->resize(800, 600);
    QCoreApplication::processEvents();
    EXPECT_EQ(window->size(), QSize(800, 600));
    EXPECT_EQ(LabelText("lblCriterion").size(), 300U);
    Hands().Type(kRowA, kScore, "3");
    Leave();
    EXPECT_EQ(InFile(2, 3), (support::Rows{{"3.0"}}));
}

TEST_F(Ratings, TabKey_ListDescriptionGrid)
{
    ShowSample();
    List().setFocus();
    GridHands::Key(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), QStringLiteral("txtDescription"));
    GridHands::Key(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), QStringLiteral("Grid1"));
}

// ---- Choosing a criterion

TEST_F(Ratings, ChoosingACriterion_ShowsItsScores)
{
    ShowSample();
    List().SetListIndex(2);
    EXPECT_EQ(LabelText("lblCriterion"), "Communities and Culture");
    for (Long row = 1; row <= kRowExtreme; ++row) {
        const auto outcome = TheGrid().RowObject<std::shared_ptr<c53Outcome>>(row);
        EXPECT_EQ(Score(row), platform::TextOf(outcome->RawObjScore(5))) << row;
    }
}

TEST_F(Ratings, ChoosingACriterion_SavesWhatWasTyped)
{
    ShowSample();
    Hands().Type(kRowB, kScore, "2");
    QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, List().visualItemRect(List().item(1)).center());
    EXPECT_EQ(LabelText("lblCriterion"), "Natural Resources");
    EXPECT_EQ(InFile(4, 3), (support::Rows{{"2.0"}}));
}

TEST_F(Ratings, ChoosingACriterion_TheSameRowIsRatedForIt)
{
    ShowSample();
    Hands().Click(kRowB, kScore);
    List().SetListIndex(3);
    Hands().Type(kRowB, kScore, "9");
    Leave();
    EXPECT_EQ(InFile(4, 6), (support::Rows{{"9.0"}}));
}

TEST_F(Ratings, ChoosingACriterion_UnsavedTypingStaysWithItsCriterion)
{
    ShowSample();
    Hands().Type(kRowB, kScore, "2");
    ForbidWrites();
    ExpectReport(); // leaving the cell
    ExpectReport(); // choosing another criterion
    QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, List().visualItemRect(List().item(1)).center());
    QCoreApplication::processEvents();
    EXPECT_EQ(List().ListIndex(), 0);
    EXPECT_TRUE(List().item(0)->isSelected());
    EXPECT_EQ(LabelText("lblCriterion"), "Property and Economy");
    EXPECT_EQ(Score(kRowB), "2");
    AllowWrites();
    List().SetListIndex(1);
    EXPECT_EQ(LabelText("lblCriterion"), "Natural Resources");
    EXPECT_EQ(InFile(4, 3), (support::Rows{{"2.0"}}));
}

// ---- Typing a score

TEST_F(Ratings, Typing_ScoreAndBarFollowEachKey)
{
    ShowSample();
    Hands().Type(kRowA, kScore, "5");
    EXPECT_EQ(Bar(kRowA), "50 %");
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral(".5"));
    EXPECT_EQ(Bar(kRowA), "55 %");
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("6"));
    EXPECT_EQ(Bar(kRowA), "56 %"); // in whole percent while it is typed
    GridHands::Key(Qt::Key_Backspace);
    EXPECT_EQ(Bar(kRowA), "55 %");
    GridHands::Key(Qt::Key_Return);
    EXPECT_EQ(Score(kRowA), "5.5");
    Leave();
    EXPECT_EQ(InFile(2, 3), (support::Rows{{"5.5"}}));
}

TEST_F(Ratings, TypingTwelve_BarIsFullAndTheCellHoldsTenAfterwards)
{
    ShowSample();
    Hands().Type(kRowA, kScore, "12");
    EXPECT_EQ(Bar(kRowA), "100 %");
    EXPECT_EQ(TheGrid().EditText(), "12");
    GridHands::Key(Qt::Key_Return);
    EXPECT_EQ(Score(kRowA), "10");
    Leave();
    EXPECT_EQ(InFile(2, 3), (support::Rows{{"10.0"}}));
}

TEST_F(Ratings, Typing_DigitsAndPointAlone)
{
    ShowSample();
    Hands().Type(kRowA, kScore, "-x,3a.e1");
    EXPECT_EQ(TheGrid().EditText(), "3.1");
    GridHands::Key(Qt::Key_Return);
    EXPECT_EQ(Score(kRowA), "3.1");
}

TEST_F(Ratings, Typing_FourCharactersAtMost)
{
    ShowSample();
    Hands().Type(kRowA, kScore, "1.2345");
    EXPECT_EQ(TheGrid().EditText(), "1.23");
}

TEST_F(Ratings, TypingNothing_IsZero)
{
    ShowSample();
    Hands().Type(kRowA, kScore, "");
    EXPECT_EQ(Bar(kRowA), "0 %");
    GridHands::Key(Qt::Key_Return);
    EXPECT_EQ(Score(kRowA), "0");
    Leave();
    EXPECT_EQ(InFile(2, 3), (support::Rows{{"0.0"}}));
}

TEST_F(Ratings, Pasting_StaysOnTheScale)
{
    ShowSample();
    QGuiApplication::clipboard()->setText(QStringLiteral("-4"));
    Hands().Type(kRowA, kScore, "");
    GridHands::Key(Qt::Key_V, Qt::ControlModifier);
    GridHands::Key(Qt::Key_Return);
    EXPECT_EQ(Score(kRowA), "0");
    EXPECT_EQ(Bar(kRowA), "0 %");
}

TEST_F(Ratings, Escape_OldScoreInCellBarAndFile)
{
    ShowSample("UPDATE Scores SET Value = 7.25 WHERE OutcomeKey = 2 AND CriterionKey = 3");
    Hands().Type(kRowA, kScore, "3");
    EXPECT_EQ(Bar(kRowA), "30 %");
    GridHands::Key(Qt::Key_Escape);
    EXPECT_EQ(Score(kRowA), "7.25");
    EXPECT_EQ(Bar(kRowA), "73 %"); // in whole percent, as after any typing
    Leave();
    EXPECT_EQ(InFile(2, 3), (support::Rows{{"7.25"}}));
}

TEST_F(Ratings, EndOfEdit_SavesAtOnce)
{
    ShowSample();
    Hands().Type(kRowExtreme, kScore, "4"); // the last row: Enter leads nowhere
    GridHands::Key(Qt::Key_Return);
    EXPECT_EQ(InFile(1, 3), (support::Rows{{"4.0"}}));
}

TEST_F(Ratings, OtherColumns_AreNeverEdited)
{
    ShowSample();
    for (const Long column : {0, 1, 2}) {
        Hands().Click(kRowA, column);
        EXPECT_FALSE(TheGrid().IsEditing()) << column;
        GridHands::Key(Qt::Key_F2);
        EXPECT_FALSE(TheGrid().IsEditing()) << column;
    }
}

TEST_F(Ratings, FirstRow_RatedRightAwayByKeyboard)
{
    ShowSample();
    TheGrid().setFocus();
    QTest::keyClicks(&TheGrid(), QStringLiteral("6"));
    GridHands::Key(Qt::Key_Return);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("3"));
    Leave();
    EXPECT_EQ(InFile(2, 3), (support::Rows{{"6.0"}}));
    EXPECT_EQ(InFile(4, 3), (support::Rows{{"3.0"}}));
}

TEST_F(Ratings, ScoreOffTheScaleInTheFile_IsPutOnItWhenEdited)
{
    ShowSample("UPDATE Scores SET Value = 14 WHERE OutcomeKey = 2 AND CriterionKey = 3");
    EXPECT_EQ(Score(kRowA), "14");
    EXPECT_EQ(Bar(kRowA), "100 %");
    Hands().Click(kRowA, kScore);
    Hands().Click(kRowB, kScore);
    EXPECT_EQ(Score(kRowA), "10");
    Leave();
    EXPECT_EQ(InFile(2, 3), (support::Rows{{"10.0"}}));
}

TEST_F(Ratings, FillingWhileBusy_IsNoEdit)
{
    ShowSample();
    Hands().Click(kRowA, kScore);
    {
        const UIMode::Busy busy;
        TheGrid().SetEditText("1");
    }
    EXPECT_NE(Bar(kRowA), "10 %");
}

// ---- Dragging the bar

TEST_F(Ratings, Drag_WholeScoresOnly)
{
    ShowSample();
    Hands().Type(kRowA, kScore, "5.5");
    Hands().Drag(kRowA, kBar, 0.30, 0.62);
    EXPECT_EQ(Score(kRowA), "6");
    EXPECT_EQ(Bar(kRowA), "60 %");
    Hands().Drag(kRowA, kBar, 0.62, 0.88);
    EXPECT_EQ(Score(kRowA), "9");
    Leave();
    EXPECT_EQ(InFile(2, 3), (support::Rows{{"9.0"}}));
}

TEST_F(Ratings, Press_SetsTheScoreUnderThePointer)
{
    ShowSample();
    QTest::mousePress(TheGrid().viewport(), Qt::LeftButton, {}, Hands().At(kRowB, kBar, 0.41));
    EXPECT_EQ(Score(kRowB), "4");
    QTest::mouseRelease(TheGrid().viewport(), Qt::LeftButton, {}, Hands().At(kRowB, kBar, 0.41));
    EXPECT_EQ(Score(kRowB), "4");
}

TEST_F(Ratings, Drag_PastEitherEndIsWorstOrBest)
{
    ShowSample();
    QPoint past = Hands().At(kRowA, kBar, 1.0);
    past.rx() += 300;
    Hands().Drag(Hands().At(kRowA, kBar, 0.4), past);
    EXPECT_EQ(Score(kRowA), "10");
    EXPECT_EQ(Bar(kRowA), "100 %");
    Hands().Drag(Hands().At(kRowA, kBar, 0.4), Hands().At(kRowA, 0));
    EXPECT_EQ(Score(kRowA), "0");
    EXPECT_EQ(Bar(kRowA), "0 %");
}

TEST_F(Ratings, Drag_EndingInAnotherRowIsNotAppliedThere)
{
    ShowSample();
    const std::string other = Score(kRowFallback);
    Hands().Drag(Hands().At(kRowB, kBar, 0.2), Hands().At(kRowFallback, kBar, 0.9));
    EXPECT_EQ(Score(kRowB), "2");
    EXPECT_EQ(Score(kRowFallback), other);
    // And it is over: a move without the button does nothing.
    QTest::mouseMove(TheGrid().viewport(), Hands().At(kRowB, kBar, 0.9));
    EXPECT_EQ(Score(kRowB), "2");
}

TEST_F(Ratings, Drag_FromAnotherColumnMovesNoBar)
{
    ShowSample();
    const std::string before = Score(kRowB);
    Hands().Drag(Hands().At(kRowB, 1), Hands().At(kRowB, kBar, 0.1));
    EXPECT_EQ(Score(kRowB), before);
}

TEST_F(Ratings, Drag_SavesOnceTheCellIsLeft)
{
    ShowSample("UPDATE Scores SET Value = 7.25 WHERE OutcomeKey = 2 AND CriterionKey = 3");
    Hands().Drag(kRowA, kBar, 0.3, 0.1);
    const std::string file = path;
    ASSERT_EQ(Score(kRowA), "1");
    ForbidWrites(); // a save would be told
    AllowWrites();
    Hands().Click(kRowB, 1);
    EXPECT_EQ(InFile(2, 3), (support::Rows{{"1.0"}}));
}

TEST_F(Ratings, ArrowsOnTheBar_OneScoreAStep)
{
    ShowSample();
    Hands().Type(kRowA, kScore, "5.5");
    Hands().Drag(kRowB, kBar, 0.5, 0.5);
    GridHands::Key(Qt::Key_Right);
    EXPECT_EQ(Score(kRowB), "6");
    EXPECT_EQ(Bar(kRowB), "60 %");
    GridHands::Key(Qt::Key_Left);
    GridHands::Key(Qt::Key_Left);
    EXPECT_EQ(Score(kRowB), "4");
    GridHands::Key(Qt::Key_End);
    EXPECT_EQ(Score(kRowB), "10");
    GridHands::Key(Qt::Key_Right);
    EXPECT_EQ(Score(kRowB), "10");
    GridHands::Key(Qt::Key_Up);
    GridHands::Key(Qt::Key_Right);
    EXPECT_EQ(Score(kRowA), "6");
    Leave();
    EXPECT_EQ(InFile(4, 3), (support::Rows{{"10.0"}}));
    EXPECT_EQ(InFile(2, 3), (support::Rows{{"6.0"}}));
}

TEST_F(Ratings, BarSays_ItsValueToAScreenReader)
{
    ShowSample();
    Hands().Drag(kRowA, kBar, 0.7, 0.7);
    QAccessibleInterface* grid = QAccessible::queryAccessibleInterface(&TheGrid());
    QAccessibleTableInterface* table = grid->tableInterface();
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->cellAt(kRowA - 1, kBar)->text(QAccessible::Name), QStringLiteral("70 %"));
    EXPECT_EQ(table->cellAt(kRowA - 1, kScore)->text(QAccessible::Name), QStringLiteral("7"));
}

// ---- Leaving

TEST_F(Ratings, LeavingWithTheCellOpen_ByTab)
{
    ShowSample();
    Hands().Type(kRowA, kScore, "8.5");
    ClickTab(Worksheets(), 2);
    EXPECT_EQ(gCurrentTab, "tab52");
    EXPECT_EQ(InFile(2, 3), (support::Rows{{"8.5"}}));
}

TEST_F(Ratings, LeavingWithTheCellOpen_ByMenu)
{
    ShowSample();
    Hands().Type(kRowA, kScore, "8.5");
    Pick("mnuSection", 6);
    EXPECT_EQ(InFile(2, 3), (support::Rows{{"8.5"}}));
}

TEST_F(Ratings, LeavingWithTheCellOpen_BySaveAs)
{
    ShowSample();
    Hands().Type(kRowA, kScore, "8.5");
    const std::string copy = folder.File("Copy.qel");
    desktop.ExpectFile("Save As New VEXA Plus file", copy);
    Pick("mnuFile", 4);
    Close();
    EXPECT_EQ(support::QuerySql(copy, "SELECT Value FROM Scores WHERE OutcomeKey = 2 AND CriterionKey = 3"),
              (support::Rows{{"8.5"}}));
}

TEST_F(Ratings, LeavingWithTheCellOpen_ByClosingTheWindow)
{
    ShowSample();
    Hands().Type(kRowA, kScore, "12");
    EXPECT_TRUE(window->close());
    EXPECT_EQ(InFile(2, 3), (support::Rows{{"10.0"}}));
}

TEST_F(Ratings, Leaving_TheTreeShowsTheNewFiguresAtOnce)
{
    StartWithSample();
    GoTo(6, 2);
    const std::string before = Tree(1);
    ASSERT_THAT(before, HasSubstr("Expected Objectives Score:  4.8\n"));
    GoTo(5, 3);
    for (Long index = 0; index < 4; ++index) {
        List().SetListIndex(index);
        Hands().Type(kRowA, kScore, "10");
    }
    GoTo(6, 2);
    // 10 at 55 percent and the Extreme outcome at 45, each rounded on the way.
    const Single expected = g51Alternatives::Alternative(297)->ExpectedScore();
    EXPECT_GT(expected, 4.8F);
    EXPECT_EQ(g51Alternatives::Alternative(297)->Outcome(1)->TotalScore(), 10.0F);
    EXPECT_THAT(Tree(1),
                HasSubstr("Expected Objectives Score:  " + platform::Format(expected, "0.0") + "\n"));
    EXPECT_NE(Tree(1), before);
}

TEST_F(Ratings, ExtremeOutcome_ServesAllAlternatives)
{
    ShowSample();
    const Single before = g51Alternatives::Alternative(299)->ExpectedScore();
    Hands().Type(kRowExtreme, kScore, "10");
    Leave();
    for (const Long key : {297, 298, 299})
        EXPECT_EQ(g53Outcomes::ExtremeOutcome()->RawObjScore(3), 10.0F) << key;
    EXPECT_GT(g51Alternatives::Alternative(299)->ExpectedScore(), before);
}

TEST_F(Ratings, RatedThroughTheScreen_ModelAndFileSayWhatWasShown)
{
    ShowSample({}, "granite-fork-complex");
    std::map<std::pair<Long, Long>, std::string> shown;
    for (Long index = 0; index < List().ListCount(); ++index) {
        List().SetListIndex(index);
        for (Long row = 1; row < TheGrid().Rows(); ++row) {
            const std::string score =
                platform::TextOf(static_cast<Single>((7 * row + 3 * index) % 21) / 2.0F);
            Hands().Type(row, kScore, score.c_str());
        }
        TheGrid().FinishEdit();
        for (Long row = 1; row < TheGrid().Rows(); ++row) {
            const auto outcome = TheGrid().RowObject<std::shared_ptr<c53Outcome>>(row);
            shown[{outcome->ItemKey(), List().ItemData(index)}] = Score(row);
        }
    }
    Leave();
    Close();
    Open(path);
    std::size_t compared = 0;
    const auto compare = [&](c53Outcome& outcome) {
        for (const auto& category : g41Objectives::GetCategoryCollection()) {
            const auto found = shown.find({outcome.ItemKey(), category->ItemKey()});
            if (found == shown.end()) continue;
            EXPECT_EQ(platform::TextOf(outcome.RawObjScore(category->ItemKey())), found->second);
            ++compared;
        }
    };
    for (const auto& alternative : g51Alternatives::AlternativeCollection()) {
        compare(*alternative->Outcome(1));
        compare(*alternative->Outcome(2));
    }
    compare(*g53Outcomes::ExtremeOutcome());
    EXPECT_EQ(compared, shown.size());
    EXPECT_EQ(compared, 4U * 9U);
}

// ---- When the drive takes no more

TEST_F(Ratings, WritesForbidden_ToldOnceTypedTextStaysAndIsSavedLater)
{
    ShowSample();
    Hands().Type(kRowA, kScore, "8.5");
    ForbidWrites();
    ExpectReport();
    GridHands::Key(Qt::Key_Return); // ends the edit and leads to the next row
    EXPECT_EQ(Score(kRowA), "8.5");
    Hands().Click(kRowFallback, 1);
    Hands().Click(kRowExtreme, 1);
    ExpectNotLeft();
    Leave();
    EXPECT_EQ(gCurrentTab, "tab53");
    EXPECT_EQ(Score(kRowA), "8.5");
    AllowWrites();
    Leave();
    EXPECT_EQ(gCurrentTab, "tab11");
    EXPECT_EQ(InFile(2, 3), (support::Rows{{"8.5"}}));
}

TEST_F(Ratings, WritesForbidden_WhatIsTypedInTheNextRowStaysThere)
{
    ShowSample();
    Hands().Type(kRowA, kScore, "8.5");
    ForbidWrites();
    ExpectReport();
    Hands().Click(kRowB, kScore);
    Hands().TypeOver("1");
    AllowWrites();
    Leave();
    EXPECT_EQ(InFile(2, 3), (support::Rows{{"8.5"}}));
    EXPECT_EQ(InFile(4, 3), (support::Rows{{"1.0"}}));
}

TEST_F(Ratings, WritesForbidden_LeavingWithTheCellOpenTellsOnce)
{
    ShowSample();
    Hands().Type(kRowA, kScore, "8.5");
    ForbidWrites();
    ExpectNotLeft();
    Pick("mnuWorksheet", 1);
    EXPECT_EQ(gCurrentTab, "tab53");
    AllowWrites();
    Pick("mnuWorksheet", 1);
    EXPECT_EQ(InFile(2, 3), (support::Rows{{"8.5"}}));
}

} // namespace
