#include "model/g51Alternatives.h"
#include "model/g53Outcomes.h"
#include "platform/base/Errors.h"
#include "platform/base/Formats.h"
#include "session/SessionState.h"
#include "session/UIMode.h"
#include "session/g0Items.h"
#include "values/g36ThreatenedItems.h"
#include "worksheets/DecisionTreePicture.h"
#include "worksheets/GridHands.h"
#include "worksheets/WindowTest.h"
#include "worksheets/frm54ItemImpacts.h"

#include <QClipboard>
#include <QLabel>
#include <QPushButton>

#include <gmock/gmock.h>
#include <map>

using platform::Grid;
using ::testing::Contains;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

constexpr Long kLoss = 3;
constexpr const char* kNoItems =
    "DELETE FROM Items WHERE ParentKey = 23; DELETE FROM ItemImpacts; DELETE FROM ValuesAtRisk";
constexpr const char* kOnlyHomes = "DELETE FROM Items WHERE ParentKey = 23 AND ItemKey <> 300";
// The sample's rows: Target of A, Target and Fallback of B, Target of C, the Extreme outcome.
constexpr Long kRowA = 1;
constexpr Long kRowB = 2;
constexpr Long kRowFallback = 3;
constexpr Long kRowC = 4;
constexpr Long kRowExtreme = 5;

class ItemImpacts : public WindowTest
{
protected:
    void ShowSample(const std::string& sql = {}, const std::string& name = "smith-creek")
    {
        StartWithSample(name, sql);
        GoTo(5, 4);
        ASSERT_EQ(gCurrentTab, "tab54");
        PassUsedKeys();
    }
    Grid& Items() { return *Find<Grid>("grdItems"); }
    Grid& Impacts() { return *Find<Grid>("grdImpacts"); }
    GridHands OnItems() { return GridHands(Items()); }
    GridHands OnImpacts() { return GridHands(Impacts()); }
    std::string Loss(Long row) { return OnImpacts().Shown(row, kLoss); }
    c36ThreatenedItem& Item(Long key) { return *g36ThreatenedItems::GetThreatenedItem(key); }
    bool IsEnabled(const char* button) { return Find<QPushButton>(button)->isEnabled(); }
    void Leave() { ClickTab(Worksheets(), 1); }
    /// The last key handed out stays as it is from file to file, and so from test to test.
    static void PassUsedKeys()
    {
        for (int tries = 0; tries < 400; ++tries) {
            try {
                g0Items::DeleteItem(g0Items::NewItem("", 0));
                return;
            } catch (const platform::Error&) {
                continue;
            }
        }
    }
    support::Rows LossInFile(Long outcome, Long item)
    {
        return Query("SELECT ItemLoss FROM ItemImpacts WHERE OutcomeKey = " + std::to_string(outcome) +
                     " AND ItemKey = " + std::to_string(item));
    }
};

// ---- Set-up

TEST_F(ItemImpacts, Setup_TracesKeyAndEntry)
{
    ShowSample();
    EXPECT_THAT(Lines(), Contains(HasSubstr("frm54ItemImpacts.Setup")));
    EXPECT_TRUE(Entry("mnuWorksheet", 4)->isChecked());
    EXPECT_TRUE(Menu("mnuEdit")->isEnabled());
    EXPECT_TRUE(UIMode::NotBusy());
}

TEST_F(ItemImpacts, Setup_FixedTexts)
{
    ShowSample();
    EXPECT_EQ(LabelText("Panel3D5"), " Values Threatened");
    EXPECT_EQ(LabelText("pnlHeader"), "Individual item loss or damage");
    EXPECT_EQ(LabelText("Label1"),
              "Input any values that are threatened by the fire, but only the potential total loss.  "
              "Include both Federal (for example, $15,000 timber value lost after salvage) or non-Federal "
              "(for example, fences around private lands destroyed).");
    EXPECT_EQ(Find<QPushButton>("cmdAddItem")->text(), QStringLiteral("&Add Item"));
    EXPECT_EQ(Find<QPushButton>("cmdDeleteItem")->text(), QStringLiteral("&Delete Item"));
}

TEST_F(ItemImpacts, Setup_GridHeadsAndWidths)
{
    ShowSample();
    EXPECT_EQ(Items().Cols(), 1);
    EXPECT_EQ(Items().Text(0, 0), "Item name");
    EXPECT_EQ(Items().columnWidth(0), Items().viewport()->width());
    const platform::GridContents& grid = Impacts().Contents();
    const char* const kHeads[] = {"Alternative", "Outcome", "Size", "Estimated loss"};
    const Long kWidths[] = {1860, 1200, 780, 1200};
    const platform::Alignment kAlignments[] = {platform::Alignment::Left,
                                               platform::Alignment::Left,
                                               platform::Alignment::Center,
                                               platform::Alignment::Right};
    ASSERT_EQ(grid.Cols(), 4);
    for (Long column = 0; column < 4; ++column) {
        EXPECT_EQ(grid.Text(0, column), kHeads[column]);
        EXPECT_EQ(grid.ColWidth(column), kWidths[column]) << column;
        EXPECT_EQ(grid.ColAlignment(column), kAlignments[column]) << column;
        EXPECT_EQ(grid.CellAlignment(0, column), platform::Alignment::Center) << column;
    }
    EXPECT_EQ(Impacts().rowSpan(kRowB - 1, 0), 2);
}

TEST_F(ItemImpacts, Setup_ItemsAndTheFirstOnesLosses)
{
    ShowSample();
    EXPECT_EQ(Items().Rows(), 1 + 7);
    EXPECT_EQ(OnItems().Text(7, 0), "Old Bell Guard Station");
    EXPECT_EQ(LabelText("lblCriterion"), "Harlan Bench homes and outbuildings");
    EXPECT_THAT(OnImpacts().Column(1),
                ElementsAre("Target", "Target", "Fallback", "Target", "Extreme Outcome"));
    EXPECT_THAT(OnImpacts().Column(2), ElementsAre(" 2400 ", " 6200 ", " 9800 ", " 11,500 ", " 24,000 "));
    EXPECT_THAT(OnImpacts().Column(kLoss), ElementsAre("0", "0", "1400000", "2600000", "14500000"));
    EXPECT_EQ(Loss(kRowExtreme), "$14,500,000");
    EXPECT_EQ(Loss(kRowA), "$0");
    EXPECT_TRUE(IsEnabled("cmdDeleteItem"));
    EXPECT_TRUE(Impacts().isEnabled());
    EXPECT_FALSE(Items().IsEditing());
}

TEST_F(ItemImpacts, NoItems_OutcomesWithEmptyLossesAndDisabled)
{
    ShowSample(kNoItems);
    EXPECT_THAT(OnImpacts().Column(1),
                ElementsAre("Target", "Target", "Fallback", "Target", "Extreme Outcome"));
    EXPECT_THAT(OnImpacts().Column(kLoss), Each(""));
    EXPECT_FALSE(Impacts().isEnabled());
    EXPECT_FALSE(Impacts().toolTip().isEmpty());
    EXPECT_FALSE(IsEnabled("cmdDeleteItem"));
    EXPECT_FALSE(Find<QPushButton>("cmdDeleteItem")->toolTip().isEmpty());
    EXPECT_EQ(LabelText("lblCriterion"), "");
    Leave();
    EXPECT_EQ(gCurrentTab, "tab11");
}

TEST_F(ItemImpacts, NewFile_ExtremeRowAlone)
{
    StartWithNewFile();
    GoTo(5, 4);
    EXPECT_THAT(OnImpacts().Column(0), ElementsAre("Extreme Outcome"));
    EXPECT_EQ(Items().Rows(), 1);
}

TEST_F(ItemImpacts, OnlyLookedAt_LeavesTheFileAsItWas)
{
    const char* kRows = "SELECT * FROM ItemImpacts ORDER BY OutcomeKey, ItemKey";
    const char* kValues = "SELECT * FROM ValuesAtRisk ORDER BY ItemKey";
    ShowSample();
    const std::string built = support::BuiltFile("samples/smith-creek.qel");
    for (Long item = 1; item <= 7; ++item) {
        OnItems().Click(item, 0);
        for (Long row = 1; row <= kRowExtreme; ++row)
            OnImpacts().Click(row, kLoss);
    }
    Leave();
    EXPECT_EQ(Query(kRows), support::QuerySql(built, kRows));
    EXPECT_EQ(Query(kValues), support::QuerySql(built, kValues));
}

TEST_F(ItemImpacts, TabKey_ItemsButtonsLosses)
{
    ShowSample();
    Find<QPushButton>("cmdAddItem")->setFocus();
    GridHands::Key(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(Items().hasFocus() || Items().IsEditing());
    Find<QPushButton>("cmdAddItem")->setFocus();
    GridHands::Key(Qt::Key_Tab);
    EXPECT_TRUE(Find<QPushButton>("cmdDeleteItem")->hasFocus());
    GridHands::Key(Qt::Key_Tab);
    EXPECT_TRUE(Impacts().hasFocus() || Impacts().IsEditing());
}

// ---- Items

TEST_F(ItemImpacts, EnteringAnItem_ShowsItsLossesAndEditsItsName)
{
    ShowSample();
    OnItems().Click(4, 0);
    EXPECT_EQ(LabelText("lblCriterion"), "Sold timber, Bell Mountain units");
    EXPECT_EQ(Loss(kRowB), "$520,000");
    EXPECT_TRUE(Items().IsEditing());
}

TEST_F(ItemImpacts, ItemShownAlready_IsEditedAtAClickToo)
{
    ShowSample();
    OnItems().Click(1, 0);
    EXPECT_TRUE(Items().IsEditing());
    OnImpacts().Type(kRowExtreme, kLoss, "1");
    GridHands::Key(Qt::Key_Return);
    ASSERT_FALSE(Impacts().IsEditing());
    OnImpacts().Click(kRowExtreme, kLoss);
    EXPECT_TRUE(Impacts().IsEditing());
}

TEST_F(ItemImpacts, Name_FollowsEachKey)
{
    ShowSample();
    OnItems().Type(2, 0, "We");
    EXPECT_EQ(LabelText("lblCriterion"), "We");
    EXPECT_EQ(Item(301).ItemName(), "We");
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("ir"));
    EXPECT_EQ(LabelText("lblCriterion"), "Weir");
    EXPECT_EQ(Item(301).ItemName(), "Weir");
    GridHands::Key(Qt::Key_Return);
    EXPECT_EQ(Query("SELECT ItemName FROM Items WHERE ItemKey = 301"), (support::Rows{{"Weir"}}));
}

TEST_F(ItemImpacts, Name_EscapeGivesTheOldOneBack)
{
    ShowSample();
    OnItems().Type(2, 0, "Weir");
    GridHands::Key(Qt::Key_Escape);
    EXPECT_EQ(LabelText("lblCriterion"), "Tallow Falls municipal watershed");
    EXPECT_EQ(Item(301).ItemName(), "Tallow Falls municipal watershed");
}

TEST_F(ItemImpacts, AddItem_NameIsTypedAtOnceAndLossesFollow)
{
    ShowSample(kNoItems);
    Press("cmdAddItem");
    ASSERT_TRUE(Items().IsEditing());
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("Footbridge"));
    EXPECT_EQ(LabelText("lblCriterion"), "Footbridge");
    EXPECT_TRUE(IsEnabled("cmdDeleteItem"));
    EXPECT_TRUE(Impacts().isEnabled());
    EXPECT_TRUE(Impacts().toolTip().isEmpty());
    EXPECT_EQ(Loss(kRowA), "$0");
    OnImpacts().Type(kRowA, kLoss, "5000");
    OnImpacts().Type(kRowC, kLoss, "7000");
    const auto item = g36ThreatenedItems::ThreatenedItemCollection().At(1);
    EXPECT_EQ(item->PotentialLoss(), 7000.0);
    EXPECT_EQ(item->ValueAtRisk(), 7000.0);
    const Long key = item->ItemKey();
    Leave();
    EXPECT_EQ(g51Alternatives::Alternative(297)->Outcome(1)->ItemImpact(), 5000.0F);
    EXPECT_EQ(g51Alternatives::Alternative(299)->Outcome(1)->ItemImpact(), 7000.0F);
    EXPECT_EQ(g51Alternatives::Alternative(298)->Outcome(1)->ItemImpact(), 0.0F);
    EXPECT_EQ(Query("SELECT ItemName, ParentKey FROM Items WHERE ItemKey = " + std::to_string(key)),
              (support::Rows{{"Footbridge", "23"}}));
    EXPECT_EQ(
        Query("SELECT PotentialLoss, Probability FROM ValuesAtRisk WHERE ItemKey = " + std::to_string(key)),
        (support::Rows{{"7000.0", "100"}}));
}

TEST_F(ItemImpacts, AddItem_GoesBelowTheOthersAndSavesWhatWasTyped)
{
    ShowSample();
    OnImpacts().Type(kRowA, kLoss, "123");
    Press("cmdAddItem");
    EXPECT_EQ(Items().Rows(), 1 + 8);
    EXPECT_EQ(Items().Row(), 8);
    Leave();
    EXPECT_EQ(LossInFile(2, 300), (support::Rows{{"123"}}));
}

TEST_F(ItemImpacts, AddItem_TwiceWithoutAName)
{
    ShowSample(kNoItems);
    Press("cmdAddItem");
    Press("cmdAddItem");
    EXPECT_EQ(Items().Rows(), 1 + 2);
    Leave();
    EXPECT_EQ(Query("SELECT ItemName FROM Items WHERE ParentKey = 23"), (support::Rows{{""}, {""}}));
}

TEST_F(ItemImpacts, AddItem_ThatFailsIsToldAndLeavesNoRow)
{
    ShowSample();
    ForbidWrites();
    ExpectReport();
    Press("cmdAddItem");
    EXPECT_EQ(Items().Rows(), 1 + 7);
    EXPECT_TRUE(UIMode::NotBusy());
    AllowWrites();
    Press("cmdAddItem");
    EXPECT_EQ(Items().Rows(), 1 + 8);
}

TEST_F(ItemImpacts, DeleteItem_NextOneIsShownAndItsRowsGo)
{
    ShowSample();
    OnItems().Click(2, 0);
    Press("cmdDeleteItem");
    EXPECT_EQ(Items().Rows(), 1 + 6);
    EXPECT_EQ(LabelText("lblCriterion"), "230 kV transmission line, 4.2 miles");
    EXPECT_EQ(Loss(kRowB), "$150,000");
    Leave();
    EXPECT_EQ(Query("SELECT count(*) FROM ItemImpacts WHERE ItemKey = 301"), (support::Rows{{"0"}}));
    EXPECT_EQ(Query("SELECT count(*) FROM Items WHERE ItemKey = 301"), (support::Rows{{"0"}}));
}

TEST_F(ItemImpacts, DeleteItem_LastRowLeavesTheOneAbove)
{
    ShowSample();
    OnItems().Click(7, 0);
    Press("cmdDeleteItem");
    EXPECT_EQ(LabelText("lblCriterion"), "Smith Creek Campground and trail bridges");
    OnImpacts().Type(kRowA, kLoss, "77");
    Leave();
    EXPECT_EQ(LossInFile(2, 305), (support::Rows{{"77"}}));
}

TEST_F(ItemImpacts, DeleteItem_TheOnlyOneEmptiesTheScreen)
{
    ShowSample(kOnlyHomes);
    Press("cmdDeleteItem");
    EXPECT_EQ(Items().Rows(), 1);
    EXPECT_EQ(LabelText("lblCriterion"), "");
    EXPECT_THAT(OnImpacts().Column(kLoss), Each(""));
    EXPECT_FALSE(Impacts().isEnabled());
    EXPECT_FALSE(IsEnabled("cmdDeleteItem"));
    EXPECT_TRUE(Find<QPushButton>("cmdAddItem")->hasFocus());
    Leave();
    EXPECT_EQ(gCurrentTab, "tab11");
}

TEST_F(ItemImpacts, DeleteItem_WithItsNameStillOpen)
{
    ShowSample(kNoItems);
    Press("cmdAddItem");
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("Mist"));
    Press("cmdDeleteItem");
    EXPECT_EQ(Items().Rows(), 1);
    Press("cmdAddItem");
    EXPECT_TRUE(Items().IsEditing());
    Leave();
    EXPECT_EQ(Query("SELECT ItemName FROM Items WHERE ParentKey = 23"), (support::Rows{{""}}));
}

TEST_F(ItemImpacts, LongName_StaysWhole)
{
    ShowSample("UPDATE Items SET ItemName = hex(zeroblob(150)) WHERE ItemKey = 300");
    window->resize(800, 600);
    QCoreApplication::processEvents();
    EXPECT_EQ(window->size(), QSize(800, 600));
    EXPECT_EQ(LabelText("lblCriterion").size(), 300U);
    OnItems().Click(2, 0);
    OnItems().Click(1, 0);
    GridHands::Key(Qt::Key_End);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("x"));
    EXPECT_EQ(Item(300).ItemName().size(), 301U);
}

// ---- Losses

TEST_F(ItemImpacts, PotentialLoss_FollowsEachKey)
{
    ShowSample();
    OnItems().Click(7, 0); // 75,000 under C, 250,000 under the Extreme outcome
    ASSERT_EQ(Item(306).PotentialLoss(), 250000.0);
    OnImpacts().Type(kRowExtreme, kLoss, "9");
    EXPECT_EQ(Item(306).PotentialLoss(), 75000.0);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("00000"));
    EXPECT_EQ(Item(306).PotentialLoss(), 900000.0);
    GridHands::Key(Qt::Key_Backspace);
    EXPECT_EQ(Item(306).PotentialLoss(), 90000.0);
    EXPECT_EQ(Item(305).PotentialLoss(), 160000.0); // the others keep theirs
    Leave();
    EXPECT_EQ(Query("SELECT PotentialLoss FROM ValuesAtRisk WHERE ItemKey = 306"),
              (support::Rows{{"90000.0"}}));
}

TEST_F(ItemImpacts, LossCleared_IsZeroAndTheRemainingHighestCounts)
{
    ShowSample();
    OnImpacts().Type(kRowExtreme, kLoss, "");
    EXPECT_EQ(Item(300).PotentialLoss(), 2600000.0);
    GridHands::Key(Qt::Key_Return);
    EXPECT_EQ(Loss(kRowExtreme), "$0");
    Leave();
    EXPECT_EQ(LossInFile(1, 300), (support::Rows{{"0"}}));
}

// Kept: the number ends at the comma.
TEST_F(ItemImpacts, LossWithAComma_CountsWhatStandsBeforeIt)
{
    ShowSample();
    OnImpacts().Type(kRowA, kLoss, "1,500");
    EXPECT_EQ(Impacts().EditText(), "1,500");
    GridHands::Key(Qt::Key_Return);
    EXPECT_EQ(Loss(kRowA), "$1"); // the screen says what counts
    Leave();
    EXPECT_EQ(LossInFile(2, 300), (support::Rows{{"1"}}));
}

TEST_F(ItemImpacts, NegativeLoss_StaysAndNeverRaisesThePotentialLoss)
{
    ShowSample(kOnlyHomes);
    for (Long row = 1; row <= kRowExtreme; ++row)
        OnImpacts().Type(row, kLoss, "-250");
    EXPECT_EQ(Item(300).PotentialLoss(), 0.0);
    EXPECT_EQ(Loss(kRowA), "-$250");
    Leave();
    EXPECT_EQ(g51Alternatives::Alternative(297)->Outcome(1)->ItemImpact(), -250.0F);
    EXPECT_EQ(LossInFile(2, 300), (support::Rows{{"-250"}}));
}

TEST_F(ItemImpacts, Loss_IsCurrency)
{
    ShowSample();
    OnImpacts().Type(kRowA, kLoss, "12.34567");
    GridHands::Key(Qt::Key_Return);
    EXPECT_EQ(OnImpacts().Text(kRowA, kLoss), "12.3457");
    EXPECT_EQ(Loss(kRowA), "$12");
}

TEST_F(ItemImpacts, Loss_TwelveCharactersAtMost)
{
    ShowSample();
    OnImpacts().Type(kRowA, kLoss, "1234567890123");
    EXPECT_EQ(Impacts().EditText(), "123456789012");
    GridHands::Key(Qt::Key_Return);
    EXPECT_EQ(Loss(kRowA), "$123,456,789,012");
    Leave();
    ClickTab(Worksheets(), 4);
    EXPECT_EQ(Loss(kRowA), "$123,456,790,528"); // kept: it is read as a single
}

TEST_F(ItemImpacts, LossBeyondCurrency_ToldAndTheLastOneThatFitsStays)
{
    ShowSample();
    OnImpacts().Type(kRowA, kLoss, "1e1");
    ExpectReport("Overflow: currency");
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("5"));
    GridHands::Key(Qt::Key_Return);
    EXPECT_EQ(Loss(kRowA), "$10");
}

TEST_F(ItemImpacts, Escape_OldLossInCellModelAndFile)
{
    ShowSample();
    OnImpacts().Type(kRowExtreme, kLoss, "5");
    GridHands::Key(Qt::Key_Escape);
    EXPECT_EQ(Loss(kRowExtreme), "$14,500,000");
    EXPECT_EQ(Item(300).PotentialLoss(), 14500000.0);
    Leave();
    EXPECT_EQ(LossInFile(1, 300), (support::Rows{{"14500000"}}));
}

TEST_F(ItemImpacts, OtherColumns_AreNeverEdited)
{
    ShowSample();
    for (const Long column : {0, 1, 2}) {
        OnImpacts().Click(kRowA, column);
        GridHands::Key(Qt::Key_F2);
        EXPECT_FALSE(Impacts().IsEditing()) << column;
    }
}

TEST_F(ItemImpacts, EndOfEdit_SavesTheLossAtOnce)
{
    ShowSample();
    OnImpacts().Type(kRowExtreme, kLoss, "44");
    GridHands::Key(Qt::Key_Return);
    EXPECT_EQ(LossInFile(1, 300), (support::Rows{{"44"}}));
}

TEST_F(ItemImpacts, FillingWhileBusy_IsNoEdit)
{
    ShowSample();
    OnImpacts().Click(kRowExtreme, kLoss);
    {
        const UIMode::Busy busy;
        Impacts().SetEditText("1");
    }
    EXPECT_EQ(Item(300).PotentialLoss(), 14500000.0);
}

// ---- Leaving

TEST_F(ItemImpacts, LeavingWithTheCellOpen_ByTabMenuAndWindow)
{
    ShowSample();
    OnImpacts().Type(kRowA, kLoss, "111");
    ClickTab(Worksheets(), 1);
    ClickTab(Worksheets(), 4);
    EXPECT_EQ(Loss(kRowA), "$111");
    OnImpacts().Type(kRowB, kLoss, "222");
    Pick("mnuSection", 2);
    GoTo(5, 4);
    EXPECT_EQ(Loss(kRowB), "$222");
    OnItems().Type(1, 0, "Homes");
    EXPECT_TRUE(window->close());
    EXPECT_EQ(LossInFile(2, 300), (support::Rows{{"111"}}));
    EXPECT_EQ(LossInFile(4, 300), (support::Rows{{"222"}}));
    EXPECT_EQ(Query("SELECT ItemName FROM Items WHERE ItemKey = 300"), (support::Rows{{"Homes"}}));
}

TEST_F(ItemImpacts, LeavingWithTheCellOpen_BySaveAs)
{
    ShowSample();
    OnImpacts().Type(kRowA, kLoss, "111");
    const std::string copy = folder.File("Copy.qel");
    desktop.ExpectFile("Save As New VEXA Plus file", copy);
    Pick("mnuFile", 4);
    Close();
    EXPECT_EQ(
        support::QuerySql(copy, "SELECT ItemLoss FROM ItemImpacts WHERE OutcomeKey = 2 AND ItemKey = 300"),
        (support::Rows{{"111"}}));
}

TEST_F(ItemImpacts, Leaving_TheTreeShowsTheNewFiguresAtOnce)
{
    StartWithSample();
    GoTo(6, 2);
    auto tree = [this] {
        return Find<DecisionTreePicture>("picDecisionTree_1")->accessibleDescription().toStdString();
    };
    const std::string before = tree();
    const std::string lossBefore =
        platform::Format(g51Alternatives::Alternative(297)->ExpectedLoss(), "$#,0");
    ASSERT_THAT(before, HasSubstr(lossBefore));
    GoTo(5, 4);
    OnImpacts().Type(kRowA, kLoss, "90000000");
    GoTo(6, 2);
    const std::string loss = platform::Format(g51Alternatives::Alternative(297)->ExpectedLoss(), "$#,0");
    EXPECT_NE(loss, lossBefore);
    EXPECT_THAT(tree(), HasSubstr(loss));
}

TEST_F(ItemImpacts, EnteredThroughTheScreen_ModelAndFileSayWhatWasShown)
{
    ShowSample();
    std::map<std::pair<Long, Long>, std::string> shown; // outcome, item
    for (Long item = 1; item < Items().Rows(); ++item) {
        OnItems().Click(item, 0);
        for (Long row = 1; row < Impacts().Rows(); ++row)
            OnImpacts().Type(row, kLoss, std::to_string(1000 * item + row).c_str());
        Impacts().FinishEdit();
        const auto key = Items().RowObject<std::shared_ptr<c36ThreatenedItem>>(item)->ItemKey();
        for (Long row = 1; row < Impacts().Rows(); ++row)
            shown[{Impacts().RowObject<std::shared_ptr<c53Outcome>>(row)->ItemKey(), key}] = Loss(row);
        EXPECT_EQ(Item(key).PotentialLoss(), 1000.0 * item + kRowExtreme);
    }
    Leave();
    Close();
    Open(path);
    std::size_t compared = 0;
    const auto compare = [&](c53Outcome& outcome) {
        for (const auto& item : g36ThreatenedItems::ThreatenedItemCollection()) {
            const auto found = shown.find({outcome.ItemKey(), item->ItemKey()});
            if (found == shown.end()) continue;
            EXPECT_EQ(platform::Format(outcome.SingleItemImpact(item->ItemKey()), "$#,0"), found->second);
            ++compared;
        }
    };
    for (const auto& alternative : g51Alternatives::AlternativeCollection()) {
        compare(*alternative->Outcome(1));
        compare(*alternative->Outcome(2));
    }
    compare(*g53Outcomes::ExtremeOutcome());
    EXPECT_EQ(compared, 7U * 5U);
    EXPECT_EQ(compared, shown.size());
}

// ---- When the drive takes no more

TEST_F(ItemImpacts, WritesForbidden_ToldOnceAndSavedLater)
{
    ShowSample();
    OnImpacts().Type(kRowA, kLoss, "111");
    ForbidWrites();
    ExpectReport();
    GridHands::Key(Qt::Key_Return);
    OnImpacts().Click(kRowFallback, 1);
    EXPECT_EQ(Loss(kRowA), "$111");
    ExpectNotLeft();
    Leave();
    EXPECT_EQ(gCurrentTab, "tab54");
    EXPECT_EQ(Loss(kRowA), "$111");
    AllowWrites();
    Leave();
    EXPECT_EQ(gCurrentTab, "tab11");
    EXPECT_EQ(LossInFile(2, 300), (support::Rows{{"111"}}));
}

TEST_F(ItemImpacts, WritesForbidden_AnotherItemIsNotShownOverUnsavedLosses)
{
    ShowSample();
    OnImpacts().Type(kRowA, kLoss, "111");
    ForbidWrites();
    ExpectReport();
    OnItems().Click(3, 0);
    EXPECT_EQ(Items().Row(), 1);
    EXPECT_EQ(LabelText("lblCriterion"), "Harlan Bench homes and outbuildings");
    EXPECT_EQ(Loss(kRowA), "$111");
    ExpectReport();
    OnItems().Click(3, 0);
    EXPECT_EQ(Items().Row(), 1);
    AllowWrites();
    OnItems().Click(3, 0);
    EXPECT_EQ(LabelText("lblCriterion"), "230 kV transmission line, 4.2 miles");
    EXPECT_EQ(LossInFile(2, 300), (support::Rows{{"111"}}));
}

TEST_F(ItemImpacts, WritesForbidden_NameStaysAndIsSavedLater)
{
    ShowSample();
    OnItems().Type(7, 0, "Station");
    ForbidWrites();
    ExpectReport();
    GridHands::Key(Qt::Key_Return);
    EXPECT_EQ(OnItems().Text(7, 0), "Station");
    EXPECT_EQ(LabelText("lblCriterion"), "Station");
    AllowWrites();
    Leave();
    EXPECT_EQ(Query("SELECT ItemName FROM Items WHERE ItemKey = 306"), (support::Rows{{"Station"}}));
}

TEST_F(ItemImpacts, WritesForbidden_DeleteIsToldAndTheItemStays)
{
    ShowSample();
    ForbidWrites();
    ExpectReport();
    Press("cmdDeleteItem");
    EXPECT_EQ(Items().Rows(), 1 + 7);
    EXPECT_EQ(LabelText("lblCriterion"), "Harlan Bench homes and outbuildings");
    AllowWrites();
    Press("cmdDeleteItem");
    EXPECT_EQ(Items().Rows(), 1 + 6);
}

} // namespace
