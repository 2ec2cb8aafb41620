#include "platform/widgets/ListBox.h"
#include "values/c67SRUseList.h"
#include "values/g38SRTypes.h"
#include "worksheets/CostTest.h"
#include "worksheets/EmptyNote.h"

#include <QAccessible>
#include <QLabel>
#include <QRadioButton>
#include <QTabBar>

#include <gmock/gmock.h>

using namespace value_rows;
using ::testing::Contains;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace {

/// Types 1 by time and 2 by item, at $100 and $10; three lines of A's Target (outcome 2), numbered 1 to 3.
const std::string kThreeLines = "DELETE FROM SRUses; DELETE FROM SRTypes;" + Type(1, 1, "time", "100") +
                                Type(2, 2, "item", "10") + Use(11, 2, 1, 1, 2, 3) + Use(12, 2, 2, 2, 5, 1) +
                                Use(13, 2, 3, 1, 1, 1);
const std::string kNoLines = "DELETE FROM SRUses;";

class ResourceList : public CostTest
{
protected:
    enum Column : Long { Position = 0, Qty = 1, Name = 2, Time = 3, Units = 4, Cost = 5 };

    platform::Grid& Lines() { return GridIn("grdSRList"); }
    GridHands Hands() { return GridHands(Lines()); }
    platform::Grid& Outcomes() { return GridIn("grdOutcomes"); }
    platform::Grid& Lists() { return GridIn("grdLists"); }
    platform::ListBox& Master() { return In<platform::ListBox>("lstSRMaster"); }
    QPushButton& Button(const char* name) { return In<QPushButton>(name); }
    std::string Total() { return In<QLabel>("pnlCost").text().toStdString(); }
    std::string OutcomeCost(Long row) { return Outcomes().Text(row, kCost); }
    void PickOutcome(Long row) { GridHands(Outcomes()).Click(row, 0); }
    void PickType(int row)
    {
        Master().scrollToItem(Master().item(row));
        QTest::mouseClick(
            Master().viewport(), Qt::LeftButton, {}, Master().visualItemRect(Master().item(row)).center());
        QCoreApplication::processEvents();
    }
    void ShowTab(int tab)
    {
        auto& strip = In<QTabBar>("TabStrip1");
        QTest::mouseClick(&strip, Qt::LeftButton, {}, strip.tabRect(tab).center());
    }
    /// The lines as shown: position, quantity, name, periods, cost.
    std::vector<std::string> Rows()
    {
        std::vector<std::string> rows;
        for (Long row = 1; row < Lines().Rows(); ++row) {
            rows.push_back(Lines().Text(row, Position) + " " + Lines().Text(row, Qty) + " " +
                           Lines().Text(row, Name) + " " + Lines().Text(row, Time) + " " +
                           Lines().Text(row, Cost));
        }
        return rows;
    }
    std::vector<std::string> Keys()
    {
        std::vector<std::string> keys;
        for (Long row = 1; row < Lines().Rows(); ++row)
            keys.push_back(std::to_string(Lines().RowObject<std::shared_ptr<c68SRUse>>(row)->ItemKey()));
        return keys;
    }
    /// The lines of an outcome in the file: key, number, quantity, periods.
    support::Rows InFile(Long outcome = 2)
    {
        return Query("SELECT ItemKey, ItemIndex, Quantity, Periods FROM SRUses WHERE OutcomeKey = " +
                     std::to_string(outcome) + " ORDER BY ItemIndex, ItemKey");
    }
    /// The same as one text for each line.
    std::vector<std::string> LinesInFile(Long outcome = 2)
    {
        std::vector<std::string> lines;
        for (const auto& row : InFile(outcome))
            lines.push_back(row.at(0) + ": " + row.at(1) + ", " + row.at(2) + " x " + row.at(3));
        return lines;
    }
    QColor BackOf(Long row, Long column)
    {
        Lines().scrollTo(Lines().model()->index(row - 1, column));
        QCoreApplication::processEvents();
        const QRect cell = Lines().visualRect(Lines().model()->index(row - 1, column));
        return Lines().viewport()->grab().toImage().pixelColor(cell.right() - 3, cell.top() + 2);
    }
};

// ---- What is shown

TEST_F(ResourceList, Setup_TheFirstOutcomeWithItsLines)
{
    ShowCosts(kThreeLines);
    InResources([this] {
        EXPECT_EQ(Outcomes().Row(), 1);
        EXPECT_THAT(Rows(), ElementsAre("1 2 Short 1 3 600", "2 5 Short 2  50", "3 1 Short 1 1 100"));
        EXPECT_EQ(Lines().Text(1, Units), "units");
        EXPECT_EQ(Total(), "$750");
        EXPECT_EQ(Lines().Row(), 0);
        EXPECT_FALSE(Button("cmdDelete").isEnabled());
        EXPECT_FALSE(Button("cmdDelete").toolTip().isEmpty());
    });
}

TEST_F(ResourceList, Setup_HeadsWidthsAndFormats)
{
    ShowCosts(kThreeLines);
    InResources([this] {
        EXPECT_EQ(Dialog().windowTitle(), QStringLiteral("Estimate  Cost based on Suppression Resources"));
        const std::vector<std::string> heads = {"#", "Qty", "Name", "Time", "Units", "Cost"};
        const std::vector<Long> widths = {300, 480, 1500, 480, 720, 1040};
        for (Long column = 0; column < 6; ++column) {
            EXPECT_EQ(Lines().Text(0, column), heads[static_cast<std::size_t>(column)]);
            EXPECT_EQ(Lines().Contents().ColWidth(column), widths[static_cast<std::size_t>(column)]);
        }
        EXPECT_EQ(Hands().Shown(1, Cost), "$600");
        EXPECT_EQ(Lists().Contents().ColWidth(0), 2700);
        EXPECT_EQ(Lists().Contents().ColWidth(1), 675);
        EXPECT_EQ(Lists().Text(0, 1), "Outcomes");
        EXPECT_EQ(
            In<QLabel>("lblInstructions").text().toStdString(),
            "Note: This worksheet is optional.  It can be used to get a general estimate of potential "
            "suppression costs.  A general estimate may be more useful than a precise estimate that takes a "
            "lot of analysis time.");
    });
}

TEST_F(ResourceList, Costs_WithoutSignWhenFilledAndWithItOnceShown)
{
    ShowCosts();
    InResources([this] {
        EXPECT_EQ(OutcomeCost(ATarget), "$6,780,700"); // the sum of the lines, not rounded
        EXPECT_EQ(OutcomeCost(BTarget), "7,690,000");
        EXPECT_EQ(OutcomeCost(CTarget), "0");
        PickOutcome(BTarget);
        EXPECT_EQ(OutcomeCost(BTarget).at(0), '$');
        EXPECT_EQ(OutcomeCost(ATarget), "$6,780,700");
    });
}

TEST_F(ResourceList, ItemOfSeveralPeriods_HidesThemAndCountsThem)
{
    ShowCosts(kThreeLines + "UPDATE SRUses SET Periods = 4 WHERE ItemKey = 12");
    InResources([this] { EXPECT_EQ(Rows().at(1), "2 5 Short 2  200"); });
    // The outcome itself does not count them.
    EXPECT_EQ(Find<QLabel>("lblSRUse")->text(), QStringLiteral("750"));
}

TEST_F(ResourceList, UnitTypeInOtherLetters_ShowsItsPeriods)
{
    ShowCosts(kThreeLines + "UPDATE SRTypes SET UnitType = 'Item' WHERE ItemKey = 2");
    InResources([this] { EXPECT_EQ(Lines().Text(2, Time), "1"); });
}

TEST_F(ResourceList, Colours_PaleNamesAndUnitsGreyPeriodsOfItems)
{
    ShowCosts(kThreeLines);
    InResources([this] {
        const QColor pale = BackOf(1, Name);
        EXPECT_EQ(BackOf(1, Units), pale);
        EXPECT_NE(BackOf(2, Time), BackOf(1, Time));
        Hands().Click(1, Name);
        EXPECT_NE(BackOf(1, Name), pale);
        EXPECT_EQ(BackOf(2, Name), pale);
        Hands().Click(2, Name);
        EXPECT_EQ(BackOf(1, Name), pale);
    });
}

TEST_F(ResourceList, NewFile_NoLinesAndNothingToCopy)
{
    ShowCostsOfNewFile();
    InResources([this] {
        EXPECT_EQ(Outcomes().Rows(), 2);
        EXPECT_EQ(Lines().Rows(), 1);
        EXPECT_EQ(Total(), "$0");
        EXPECT_GT(Master().ListCount(), 0);
        ShowTab(1);
        EXPECT_EQ(Lists().Rows(), 1);
        EXPECT_FALSE(Button("cmdCopy").isEnabled());
    });
}

TEST_F(ResourceList, Log_LoadsAndUnloads)
{
    ShowCosts(kThreeLines);
    Mark();
    InResources([] {});
    EXPECT_THAT(NewLines().front(), HasSubstr("frm562SRUseList.Setup"));
    EXPECT_THAT(NewLines(), Contains("   frm562SRUseList.ShowOutcome"));
    EXPECT_THAT(NewLines().back(), HasSubstr("frm562SRUseList"));
}

TEST_F(ResourceList, Setup_BeginsWithTheFirstOutcomeWhicheverWasPickedBefore)
{
    ShowCosts();
    GridHands(CostTest::Outcomes()).Click(CTarget, 0);
    InResources([this] { EXPECT_EQ(Outcomes().Row(), ATarget); });
}

TEST_F(ResourceList, NoTypes_TheMasterListSaysWhatGoesThere)
{
    ShowCostsOfNewFile("DELETE FROM SRTypes");
    InResources([this] {
        EXPECT_EQ(Master().ListCount(), 0);
        const auto* note = Master().findChild<EmptyNote*>();
        ASSERT_NE(note, nullptr);
        EXPECT_TRUE(note->isVisible());
        EXPECT_EQ(note->text(), QStringLiteral("This file has no resources yet. New Item adds one."));
        Click("cmdAddItem");
        for (const char* box : {"txtResourceName", "txtShortName", "txtUnits", "txtCost"})
            TypeInto(In<QWidget>(box), "1");
        Click("cmdOK");
        EXPECT_FALSE(note->isVisible());
    });
}

TEST_F(ResourceList, KeyboardAlone_AddsFillsMovesAndDeletesALine)
{
    ShowCosts(kThreeLines);
    InResources([this] {
        EXPECT_TRUE(Master().hasFocus());
        GridHands::Key(Qt::Key_Home);
        GridHands::Key(Qt::Key_Space);
        Type("6");
        GridHands::Key(Qt::Key_Tab);
        Type("2");
        GridHands::Key(Qt::Key_Backtab);
        GridHands::Key(Qt::Key_Backtab);
        EXPECT_EQ(Lines().Col(), Position);
        Type("1");
        GridHands::Key(Qt::Key_Return);
        EXPECT_EQ(Rows().at(0), "1 6 Short 1 2 1200");
        GridHands::Key(Qt::Key_Escape); // of the cell below, which is now edited
        GridHands::Key(Qt::Key_Right);
        GridHands::Key(Qt::Key_Escape);
        GridHands::Key(Qt::Key_Right);
        EXPECT_EQ(Lines().Col(), Name);
        GridHands::Key(Qt::Key_Delete);
        EXPECT_EQ(Lines().Rows(), 4);
    });
    EXPECT_THAT(LinesInFile(), ElementsAre("14: 1, 6 x 2", "12: 3, 5 x 1", "13: 4, 1 x 1"));
}

TEST_F(ResourceList, F1_OpensItsTopic)
{
    ShowCosts(kThreeLines);
    InResources([this] {
        GridHands::Key(Qt::Key_F1);
        EXPECT_THAT(desktop.calls.back(), HasSubstr("4552"));
    });
}

// ---- Adding lines

TEST_F(ResourceList, ClickInTheMasterList_AddsALineAtOnceAndEditsItsQuantity)
{
    ShowCosts(kThreeLines);
    InResources([this] {
        Mark();
        PickType(1);
        EXPECT_THAT(NewLines(), Contains("   lstSRMaster_Click Long 2"));
        EXPECT_EQ(Rows().back(), "4 1 Short 2  10");
        EXPECT_EQ(Total(), "$760");
        EXPECT_EQ(OutcomeCost(ATarget), "$760");
        EXPECT_EQ(Lines().Row(), 4);
        EXPECT_EQ(Lines().Col(), Qty);
        EXPECT_TRUE(Lines().IsEditing());
        EXPECT_TRUE(Button("cmdDelete").isEnabled());
        Type("7");
        EXPECT_EQ(Total(), "$820");
    });
    EXPECT_THAT(LinesInFile(), Contains("14: 4, 7 x 1"));
}

TEST_F(ResourceList, SecondClickOnTheSameEntry_AddsAnotherLine)
{
    ShowCosts(kThreeLines);
    InResources([this] {
        PickType(0);
        PickType(0);
        EXPECT_EQ(Lines().Rows(), 6);
    });
}

TEST_F(ResourceList, ArrowKeysInTheMasterList_AddNothingAndEnterAdds)
{
    ShowCosts(kThreeLines);
    InResources([this] {
        Master().setFocus();
        GridHands::Key(Qt::Key_Down);
        GridHands::Key(Qt::Key_Up);
        EXPECT_EQ(Lines().Rows(), 4);
        GridHands::Key(Qt::Key_Return);
        EXPECT_EQ(Rows().back(), "4 1 Short 1 1 100");
        EXPECT_TRUE(Lines().IsEditing());
    });
}

TEST_F(ResourceList, NewLineFails_ToldAndNoLineIsShown)
{
    ShowCosts(kThreeLines);
    InResources([this] {
        ForbidWrites();
        ExpectReport();
        PickType(0);
        EXPECT_EQ(Lines().Rows(), 4);
        AllowWrites();
        PickType(0);
        EXPECT_EQ(Lines().Rows(), 5);
    });
    EXPECT_EQ(InFile().size(), 4U);
}

// ---- Typing

TEST_F(ResourceList, Typing_RowAndTotalsFollowEveryKey)
{
    ShowCosts(kThreeLines);
    InResources([this] {
        Hands().Type(1, Qty, "4");
        EXPECT_EQ(Lines().Text(1, Cost), "1200");
        Type("0");
        EXPECT_EQ(Lines().Text(1, Cost), "12000");
        EXPECT_EQ(Total(), "$12,150");
        EXPECT_EQ(OutcomeCost(ATarget), "$12,150");
        GridHands::Key(Qt::Key_Tab);
        EXPECT_EQ(Lines().Col(), Time);
        Type("1");
        EXPECT_EQ(Total(), "$4,150");
    });
    EXPECT_THAT(LinesInFile(), ElementsAre("11: 1, 40 x 1", "12: 2, 5 x 1", "13: 3, 1 x 1"));
}

TEST_F(ResourceList, ItemLine_ItsPeriodsAreNotEdited)
{
    ShowCosts(kThreeLines);
    InResources([this] {
        Hands().Click(2, Time);
        EXPECT_FALSE(Lines().IsEditing());
        Hands().Click(1, Time);
        EXPECT_TRUE(Lines().IsEditing());
        for (const Long column : {Name, Units, Cost}) {
            Hands().Click(1, column);
            EXPECT_FALSE(Lines().IsEditing()) << column;
        }
    });
}

TEST_F(ResourceList, FourCharactersAtMost)
{
    ShowCosts(kThreeLines);
    InResources([this] {
        for (const Long column : {Position, Qty, Time}) {
            Hands().Type(1, column, "");
            Paste("123456");
            EXPECT_EQ(Lines().EditText(), "1234") << column;
            GridHands::Key(Qt::Key_Escape);
        }
    });
}

TEST_F(ResourceList, TypedText_ShownAsWhatItCountsFor)
{
    ShowCosts(kThreeLines);
    struct Case
    {
        const char* text;
        Long quantity;
    };
    InResources([this] {
        for (const Case& c : std::vector<Case>{
                 {"abc", 0}, {"12ab", 12}, {"2.5", 2}, {"3.5", 4}, {"", 0}, {"1e3", 1000}, {"-2", -2}}) {
            Hands().Type(1, Qty, "");
            Paste(c.text);
            Hands().Click(1, Name);
            EXPECT_EQ(Lines().Text(1, Qty), std::to_string(c.quantity)) << c.text;
            EXPECT_EQ(Lines().Text(1, Cost), std::to_string(300 * c.quantity)) << c.text;
        }
    });
}

TEST_F(ResourceList, Escape_GivesTheOldQuantityBackToLineTotalsAndFile)
{
    ShowCosts(kThreeLines);
    InResources([this] {
        Hands().Type(1, Qty, "99");
        GridHands::Key(Qt::Key_Escape);
        EXPECT_TRUE(Dialog().isVisible());
        EXPECT_EQ(Rows().at(0), "1 2 Short 1 3 600");
        EXPECT_EQ(Total(), "$750");
    });
    EXPECT_EQ(LinesInFile().at(0), "11: 1, 2 x 3");
}

constexpr const char* kTooLarge =
    "The cost of this line would be larger than the program can count, so the line keeps its former value.";

TEST_F(ResourceList, ProductBeyond32Bits_ToldAndTheFormerValueStays)
{
    ShowCosts(kThreeLines);
    InResources([this] {
        Hands().Type(1, Qty, "");
        desktop.ExpectText({kTooLarge, "Enter a smaller number."});
        Paste("9e8");
        EXPECT_EQ(Lines().EditText(), "0");
        EXPECT_EQ(Lines().Text(1, Cost), "0");
        GridHands::Key(Qt::Key_A, Qt::ControlModifier);
        Type("5");
        EXPECT_EQ(Total(), "$1,650");
    });
    EXPECT_EQ(LinesInFile().at(0), "11: 1, 5 x 3");
}

TEST_F(ResourceList, NumberBeyond32Bits_ToldAndTheFormerValueStays)
{
    ShowCosts(kThreeLines);
    InResources([this] {
        Hands().Click(1, Qty);
        desktop.ExpectText({kTooLarge, "Enter a smaller number."});
        Paste("9e99");
        EXPECT_EQ(Lines().EditText(), "2");
        Hands().Click(2, Name);
        EXPECT_EQ(Rows().at(0), "1 2 Short 1 3 600");
    });
    EXPECT_EQ(LinesInFile().at(0), "11: 1, 2 x 3");
}

TEST_F(ResourceList, StoredProductBeyond32Bits_ReadsTooLargeAndCanBeMended)
{
    ShowCosts(kThreeLines + "UPDATE SRUses SET Quantity = 2000000000, Periods = 20 WHERE ItemKey = 11");
    ExpectReport("Overflow: 32-bit product");
    QCoreApplication::processEvents();
    ExpectReport("Overflow: 32-bit product");
    InResources([this] {
        QCoreApplication::processEvents();
        EXPECT_EQ(Lines().Text(1, Cost), "too large");
        EXPECT_EQ(Total(), "too large");
        EXPECT_EQ(OutcomeCost(ATarget), "too large");
        Hands().Type(1, Time, "9");
        EXPECT_EQ(Total(), "too large");
        Hands().Type(1, Qty, "2");
        EXPECT_EQ(Lines().Text(1, Cost), "1800");
        EXPECT_EQ(Total(), "$1,950");
    });
    EXPECT_EQ(Find<QLabel>("lblSRUse")->text(), QStringLiteral("1,950"));
}

// ---- Moving

TEST_F(ResourceList, TypedPosition_MovesTheLineAndRenumbersThoseBetween)
{
    ShowCosts(kThreeLines);
    InResources([this] {
        Mark();
        Hands().Type(3, Position, "1");
        GridHands::Key(Qt::Key_Return);
        EXPECT_THAT(NewLines(), Contains("   MoveRow 3 to 1"));
        EXPECT_THAT(Keys(), ElementsAre("13", "11", "12"));
        EXPECT_THAT(Hands().Column(Position), ElementsAre("1", "2", "3"));
        Hands().Type(1, Position, "2");
        Hands().Click(3, Name);
        EXPECT_THAT(Keys(), ElementsAre("11", "13", "12"));
    });
    EXPECT_THAT(LinesInFile(), ElementsAre("11: 1, 2 x 3", "13: 2, 1 x 1", "12: 3, 5 x 1"));
}

TEST_F(ResourceList, PositionOutOfRange_IsBroughtToTheNearestRow)
{
    ShowCosts(kThreeLines);
    InResources([this] {
        Hands().Type(1, Position, "99");
        GridHands::Key(Qt::Key_Return);
        EXPECT_THAT(Keys(), ElementsAre("12", "13", "11"));
        Hands().Type(3, Position, "-4");
        GridHands::Key(Qt::Key_Return);
        EXPECT_THAT(Keys(), ElementsAre("11", "12", "13"));
        Hands().Type(1, Position, "9e99");
        GridHands::Key(Qt::Key_Return);
        EXPECT_THAT(Keys(), ElementsAre("12", "13", "11"));
        EXPECT_THAT(Hands().Column(Position), ElementsAre("1", "2", "3"));
    });
}

TEST_F(ResourceList, PassingThroughThePositions_MovesNothing)
{
    ShowCosts(kThreeLines + "DELETE FROM SRUses WHERE ItemKey = 11");
    InResources([this] {
        Mark();
        Hands().Click(1, Position);
        Hands().Click(2, Position);
        Hands().Click(1, Name);
        EXPECT_THAT(Hands().Column(Position), ElementsAre("1", "2"));
        EXPECT_THAT(NewLines(), Each(::testing::Not(HasSubstr("MoveRow"))));
    });
    EXPECT_THAT(LinesInFile(), ElementsAre("12: 2, 5 x 1", "13: 3, 1 x 1"));
}

TEST_F(ResourceList, MoveAfterADeletion_WorksOnRowsButStartsFromTheStoredNumber)
{
    // Rows 1, 2, 3 hold the numbers 2, 3, 4.
    ShowCosts(kThreeLines + Use(14, 2, 4, 2, 1, 1) + "DELETE FROM SRUses WHERE ItemKey = 11");
    InResources([this] {
        Hands().Type(2, Position, "1");
        GridHands::Key(Qt::Key_Return);
        // From 3 to 1: rows 1 and 2 make room, and row 2 is the one that was to move.
        EXPECT_THAT(Hands().Column(Position), ElementsAre("2", "3", "3"));
        EXPECT_THAT(Keys(), ElementsAre("12", "13", "14"));
    });
    EXPECT_THAT(LinesInFile(), ElementsAre("12: 2, 5 x 1", "13: 3, 1 x 1", "14: 4, 1 x 1"));
}

TEST_F(ResourceList, NumbersBeyondTheRows_MoveStaysWithinTheList)
{
    ShowCosts(kThreeLines + "UPDATE SRUses SET ItemIndex = ItemIndex + 50");
    InResources([this] {
        Hands().Type(3, Position, "1");
        GridHands::Key(Qt::Key_Return);
        EXPECT_EQ(Lines().Rows(), 4);
    });
    EXPECT_EQ(InFile().size(), 3U);
}

TEST_F(ResourceList, TiesInTheFile_StandByTheirKeysAndMove)
{
    ShowCosts(kThreeLines + "UPDATE SRUses SET ItemIndex = 1");
    InResources([this] {
        EXPECT_THAT(Keys(), ElementsAre("11", "12", "13"));
        Hands().Type(1, Position, "3");
        GridHands::Key(Qt::Key_Return);
        EXPECT_THAT(Keys(), ElementsAre("12", "13", "11"));
    });
    EXPECT_THAT(LinesInFile(), ElementsAre("12: 1, 5 x 1", "13: 2, 1 x 1", "11: 3, 2 x 3"));
}

TEST_F(ResourceList, MoveThatCannotBeSaved_ToldAndTheLinesStandAsTheyStood)
{
    ShowCosts(kThreeLines);
    InResources([this] {
        Hands().Type(3, Position, "1");
        ForbidWrites();
        ExpectReport();
        GridHands::Key(Qt::Key_Return);
        QCoreApplication::processEvents();
        EXPECT_THAT(Keys(), ElementsAre("11", "12", "13"));
        EXPECT_THAT(Hands().Column(Position), ElementsAre("1", "2", "3"));
        AllowWrites();
    });
    EXPECT_THAT(LinesInFile(), ElementsAre("11: 1, 2 x 3", "12: 2, 5 x 1", "13: 3, 1 x 1"));
}

// ---- Deleting

TEST_F(ResourceList, DeleteRow_ClosesUpTheNumbersOnTheScreenAndLeavesTheStoredOnes)
{
    ShowCosts(kThreeLines);
    InResources([this] {
        Hands().Click(1, Name);
        Mark();
        Click("cmdDelete");
        EXPECT_THAT(NewLines(), Contains("   cmdDelete_Click 1"));
        EXPECT_THAT(Rows(), ElementsAre("1 5 Short 2  50", "2 1 Short 1 1 100"));
        EXPECT_EQ(Total(), "$150");
        EXPECT_TRUE(Button("cmdDelete").isEnabled());
        Click("cmdDelete");
        EXPECT_THAT(Keys(), ElementsAre("13"));
    });
    EXPECT_THAT(LinesInFile(), ElementsAre("13: 3, 1 x 1"));
}

TEST_F(ResourceList, LineAddedAfterADeletion_SharesANumber)
{
    ShowCosts(kThreeLines);
    InResources([this] {
        Hands().Click(1, Name);
        Click("cmdDelete");
        PickType(0);
    });
    EXPECT_THAT(LinesInFile(), ElementsAre("12: 2, 5 x 1", "13: 3, 1 x 1", "14: 3, 1 x 1"));
}

TEST_F(ResourceList, OnlyLineDeleted_DisablesDeleteAndTheTotalIsZero)
{
    ShowCosts(kThreeLines + "DELETE FROM SRUses WHERE ItemKey > 11");
    InResources([this] {
        Hands().Click(1, Name);
        Click("cmdDelete");
        EXPECT_FALSE(Button("cmdDelete").isEnabled());
        EXPECT_EQ(Total(), "$0");
        EXPECT_EQ(OutcomeCost(ATarget), "$0");
        EXPECT_EQ(Lines().Rows(), 1);
        PickType(0);
        EXPECT_THAT(Rows(), ElementsAre("1 1 Short 1 1 100"));
    });
}

TEST_F(ResourceList, DeleteKey_InTheNameDeletesUnasked)
{
    ShowCosts(kThreeLines);
    InResources([this] {
        Hands().Click(2, Name);
        Mark();
        GridHands::Key(Qt::Key_Delete);
        EXPECT_THAT(NewLines(), Contains("   grdSRList KEY_DELETE 2"));
        EXPECT_THAT(Keys(), ElementsAre("11", "13"));
        GridHands::Key(Qt::Key_Delete);
        EXPECT_THAT(Keys(), ElementsAre("11"));
    });
}

TEST_F(ResourceList, DeleteKey_ElsewhereDeletesNoLine)
{
    ShowCosts(kThreeLines);
    InResources([this] {
        for (const Long column : {Units, Cost}) {
            Hands().Click(2, column);
            GridHands::Key(Qt::Key_Delete);
        }
        Hands().Click(2, Qty);
        GridHands::Key(Qt::Key_Delete);
        EXPECT_EQ(Lines().Rows(), 4);
    });
}

TEST_F(ResourceList, GridLeft_ItsColumnBecomesTheName)
{
    ShowCosts(kThreeLines);
    InResources([this] {
        Hands().Type(1, Qty, "9");
        Master().setFocus();
        EXPECT_EQ(Lines().Col(), Name);
        EXPECT_FALSE(Lines().IsEditing());
        EXPECT_EQ(Lines().Text(1, Qty), "9");
    });
}

TEST_F(ResourceList, DeleteFails_ToldAndTheLineStays)
{
    ShowCosts(kThreeLines);
    InResources([this] {
        Hands().Click(2, Name);
        ForbidWrites();
        ExpectReport();
        Click("cmdDelete");
        EXPECT_THAT(Keys(), ElementsAre("11", "12", "13"));
        AllowWrites();
        Click("cmdDelete");
        EXPECT_THAT(Keys(), ElementsAre("11", "13"));
    });
}

// ---- From outcome to outcome

TEST_F(ResourceList, AnotherOutcome_SavesAndShowsItsLines)
{
    ShowCosts(kThreeLines + Use(21, 4, 1, 2, 8, 1));
    InResources([this] {
        Hands().Type(1, Qty, "9");
        PickOutcome(BTarget);
        EXPECT_THAT(Keys(), ElementsAre("21"));
        EXPECT_EQ(Total(), "$80");
        EXPECT_EQ(OutcomeCost(BTarget), "$80");
        EXPECT_FALSE(Button("cmdDelete").isEnabled());
        PickOutcome(ATarget);
        EXPECT_EQ(Rows().at(0), "1 9 Short 1 3 2700");
    });
    EXPECT_EQ(LinesInFile().at(0), "11: 1, 9 x 3");
}

TEST_F(ResourceList, SaveFailsAtAnotherOutcome_ToldOnceAndTheOutcomeComesBackWithWhatWasTyped)
{
    ShowCosts(kThreeLines);
    InResources([this] {
        Hands().Type(1, Qty, "9");
        ForbidWrites();
        ExpectReport();
        PickOutcome(BTarget);
        QCoreApplication::processEvents();
        EXPECT_EQ(Outcomes().Row(), ATarget);
        EXPECT_EQ(Rows().at(0), "1 9 Short 1 3 2700");
        AllowWrites();
        PickOutcome(BTarget);
        EXPECT_EQ(Outcomes().Row(), BTarget);
    });
    EXPECT_EQ(LinesInFile().at(0), "11: 1, 9 x 3");
}

TEST_F(ResourceList, SaveFailsAtAnotherLine_ToldOnceAndTheLineComesBackWithWhatWasTyped)
{
    ShowCosts(kThreeLines);
    InResources([this] {
        Hands().Type(1, Qty, "9");
        ForbidWrites();
        ExpectReport();
        Hands().Click(3, Name);
        QCoreApplication::processEvents();
        EXPECT_EQ(Lines().Row(), 1);
        EXPECT_EQ(Lines().Text(1, Qty), "9");
        AllowWrites();
        Hands().Click(3, Name);
        EXPECT_EQ(Lines().Row(), 3);
    });
    EXPECT_EQ(LinesInFile().at(0), "11: 1, 9 x 3");
}

// ---- Copying

TEST_F(ResourceList, CopyLists_EveryShownOutcomeOfAnAlternativeThatHasLines)
{
    ShowCosts(kThreeLines + Use(21, 1, 1, 1, 1, 1) + Use(22, 5, 1, 1, 1, 1) + Use(23, 7, 1, 1, 1, 1));
    InResources([this] {
        ShowTab(1);
        // The Extreme outcome (1) lends nothing, nor does a Fallback that is not shown (7).
        ASSERT_EQ(Lists().Rows(), 3);
        EXPECT_EQ(Lists().Text(1, 0) + " " + Lists().Text(1, 1), "A Target");
        EXPECT_EQ(Lists().Text(2, 0) + " " + Lists().Text(2, 1), "B Fallback");
        EXPECT_EQ(Lists().Row(), 0);
        EXPECT_TRUE(Lists().isVisible());
        EXPECT_FALSE(Master().isVisible());
        ShowTab(0);
        EXPECT_TRUE(Master().isVisible());
    });
}

TEST_F(ResourceList, Copy_AppendsTheListBehindTheOwnLines)
{
    ShowCosts(kThreeLines + Use(21, 4, 1, 2, 8, 1));
    InResources([this] {
        PickOutcome(BTarget);
        ShowTab(1);
        EXPECT_FALSE(Button("cmdCopy").isEnabled());
        GridHands(Lists()).Click(1, 0);
        EXPECT_TRUE(Button("cmdCopy").isEnabled());
        Click("cmdCopy");
        EXPECT_THAT(
            Rows(),
            ElementsAre("1 8 Short 2  80", "2 2 Short 1 3 600", "3 5 Short 2  50", "4 1 Short 1 1 100"));
        EXPECT_EQ(Total(), "$830");
        EXPECT_EQ(Lists().Row(), 0);
        EXPECT_FALSE(Button("cmdCopy").isEnabled());
    });
    EXPECT_THAT(LinesInFile(4), ElementsAre("21: 1, 8 x 1", "22: 2, 2 x 3", "23: 3, 5 x 1", "24: 4, 1 x 1"));
}

TEST_F(ResourceList, Copy_OntoItself_DoublesTheList)
{
    ShowCosts(kThreeLines);
    InResources([this] {
        ShowTab(1);
        GridHands(Lists()).Click(1, 1);
        Click("cmdCopy");
        EXPECT_EQ(Lines().Rows(), 7);
        EXPECT_EQ(Total(), "$1,500");
    });
}

TEST_F(ResourceList, Copy_NoListsLeft_TheButtonStaysAsItWasAndCopiesNothing)
{
    ShowCosts(kThreeLines + "DELETE FROM SRUses WHERE ItemKey > 11");
    InResources([this] {
        ShowTab(1);
        Hands().Click(1, Name);
        GridHands(Lists()).Click(1, 0);
        Hands().Click(1, Name);
        Click("cmdDelete");
        PickOutcome(BTarget);
        EXPECT_EQ(Lists().Rows(), 1);
        EXPECT_TRUE(Button("cmdCopy").isEnabled());
        Click("cmdCopy");
        EXPECT_EQ(Lines().Rows(), 1);
        EXPECT_FALSE(Button("cmdCopy").isEnabled());
    });
}

TEST_F(ResourceList, CopyFails_ToldAndTheListIsAsInTheFile)
{
    ShowCosts(kThreeLines);
    InResources([this] {
        PickOutcome(BTarget);
        ShowTab(1);
        GridHands(Lists()).Click(1, 0);
        ForbidWrites();
        ExpectReport();
        Click("cmdCopy");
        EXPECT_EQ(Lines().Rows(), 1);
        AllowWrites();
    });
    EXPECT_THAT(LinesInFile(4), IsEmpty());
}

// ---- A type missing in the master list

TEST_F(ResourceList, MissingType_ToldOnceAndTheOtherOutcomesWork)
{
    ShowCosts(kThreeLines + Use(21, 4, 1, 77, 8, 1));
    ExpectReport("No member k77 in resource types");
    QCoreApplication::processEvents();
    ExpectReport("No member k77 in resource types");
    InResources([this] {
        QCoreApplication::processEvents();
        EXPECT_EQ(OutcomeCost(BTarget), "unknown");
        EXPECT_EQ(Rows().size(), 3U);
        PickOutcome(BTarget);
        EXPECT_EQ(Lines().Rows(), 1);
        PickOutcome(CTarget);
        PickType(0);
        EXPECT_EQ(Total(), "$100");
    });
    EXPECT_THAT(LinesInFile(4), ElementsAre("21: 1, 8 x 1"));
}

// ---- A new item

TEST_F(ResourceList, NewItem_IsAddedToFileAndListAndCanBePicked)
{
    ShowCosts(kThreeLines);
    InResources([this] {
        Click("cmdAddItem");
        EXPECT_FALSE(In<QWidget>("pnlSRUse").isEnabled());
        EXPECT_TRUE(In<QWidget>("pnlAdd").isVisible());
        EXPECT_TRUE(In<QWidget>("txtResourceName").hasFocus());
        Type("Long name");
        GridHands::Key(Qt::Key_Tab);
        Type("Brief");
        QTest::mouseClick(&In<QRadioButton>("optItem"), Qt::LeftButton, {}, QPoint(10, 8));
        TypeInto(In<QWidget>("txtUnits"), "loads");
        TypeInto(In<QWidget>("txtCost"), "1250");
        Mark();
        Click("cmdOK");
        EXPECT_THAT(NewLines(), Contains("   AddItem.cmdOK_Click"));
        EXPECT_TRUE(In<QWidget>("pnlSRUse").isEnabled());
        EXPECT_FALSE(In<QWidget>("pnlAdd").isVisible());
        ASSERT_EQ(Master().ListCount(), 3);
        EXPECT_EQ(Master().List(2), "Long name");
        PickType(2);
        EXPECT_EQ(Rows().back(), "4 1 Brief  1250");
        EXPECT_EQ(Lines().Text(4, Units), "loads");
    });
    EXPECT_EQ(Query("SELECT ChildIndex, LongName, ShortName, UnitType, UnitName, UnitCost FROM SRTypes "
                    "ORDER BY ItemKey DESC LIMIT 1"),
              (support::Rows{{"3", "Long name", "Brief", "item", "loads", "1250"}}));
}

TEST_F(ResourceList, NewItem_OKNeedsAllBoxesAndANumber)
{
    ShowCosts(kThreeLines);
    InResources([this] {
        Click("cmdAddItem");
        EXPECT_FALSE(Button("cmdOK").isEnabled());
        EXPECT_FALSE(Button("cmdOK").toolTip().isEmpty());
        TypeInto(In<QWidget>("txtResourceName"), "N");
        TypeInto(In<QWidget>("txtShortName"), "S");
        TypeInto(In<QWidget>("txtUnits"), "U");
        EXPECT_FALSE(Button("cmdOK").isEnabled());
        TypeInto(In<QWidget>("txtCost"), "5");
        EXPECT_TRUE(Button("cmdOK").isEnabled());
        TypeInto(In<QWidget>("txtCost"), "");
        Paste("five");
        EXPECT_FALSE(Button("cmdOK").isEnabled());
        TypeInto(In<QWidget>("txtCost"), "5");
        TypeInto(In<QWidget>("txtShortName"), "");
        EXPECT_FALSE(Button("cmdOK").isEnabled());
        Click("cmdCancel");
    });
}

TEST_F(ResourceList, NewItem_CostTakesDigitsByKeyAndCentsByPasting)
{
    ShowCosts(kThreeLines);
    InResources([this] {
        Click("cmdAddItem");
        auto& cost = In<platform::EntryBox>("txtCost");
        TypeInto(cost, "-1a2.5 ");
        EXPECT_EQ(cost.text(), QStringLiteral("125"));
        for (const char* box : {"txtResourceName", "txtShortName", "txtUnits"})
            TypeInto(In<QWidget>(box), "x");
        TypeInto(cost, "");
        Paste("12.5");
        Click("cmdOK");
    });
    EXPECT_EQ(Query("SELECT UnitCost, UnitType FROM SRTypes ORDER BY ItemKey DESC LIMIT 1"),
              (support::Rows{{"12.5", "time"}}));
}

TEST_F(ResourceList, NewItem_PastedThousandsAreReadUpToTheComma)
{
    ShowCosts(kThreeLines);
    InResources([this] {
        Click("cmdAddItem");
        for (const char* box : {"txtResourceName", "txtShortName", "txtUnits"})
            TypeInto(In<QWidget>(box), "x");
        TypeInto(In<QWidget>("txtCost"), "");
        Paste("1,200");
        Click("cmdOK");
    });
    EXPECT_EQ(Query("SELECT UnitCost FROM SRTypes ORDER BY ItemKey DESC LIMIT 1"), (support::Rows{{"1"}}));
}

TEST_F(ResourceList, NewItem_UnitsSelectAsManyCharactersAsTheCostHas)
{
    ShowCosts(kThreeLines);
    InResources([this] {
        Click("cmdAddItem");
        TypeInto(In<QWidget>("txtUnits"), "shifts");
        TypeInto(In<QWidget>("txtCost"), "12");
        In<QWidget>("txtResourceName").setFocus();
        In<QWidget>("txtUnits").setFocus(Qt::TabFocusReason);
        EXPECT_EQ(In<QLineEdit>("txtUnits").selectedText(), QStringLiteral("sh"));
        In<QWidget>("txtCost").setFocus(Qt::TabFocusReason);
        EXPECT_EQ(In<QLineEdit>("txtCost").selectedText(), QStringLiteral("12"));
        Click("cmdCancel");
    });
}

TEST_F(ResourceList, NewItem_CancelAndEscapeKeepTheTextsForTheNextTime)
{
    ShowCosts(kThreeLines);
    InResources([this] {
        Click("cmdAddItem");
        Type("Kept");
        Click("cmdCancel");
        EXPECT_TRUE(In<QWidget>("pnlSRUse").isEnabled());
        EXPECT_FALSE(In<QWidget>("pnlAdd").isVisible());
        Click("cmdAddItem");
        EXPECT_EQ(In<QLineEdit>("txtResourceName").text(), QStringLiteral("Kept"));
        GridHands::Key(Qt::Key_Escape);
        EXPECT_FALSE(In<QWidget>("pnlAdd").isVisible());
        EXPECT_TRUE(Dialog().isVisible());
        EXPECT_EQ(Master().ListCount(), 2);
    });
}

TEST_F(ResourceList, NewItem_EnterIsOK)
{
    ShowCosts(kThreeLines);
    InResources([this] {
        Click("cmdAddItem");
        for (const char* box : {"txtResourceName", "txtShortName", "txtUnits"})
            TypeInto(In<QWidget>(box), "x");
        GridHands::Key(Qt::Key_Return);
        EXPECT_TRUE(In<QWidget>("pnlAdd").isVisible());
        TypeInto(In<QWidget>("txtCost"), "5");
        GridHands::Key(Qt::Key_Return);
        EXPECT_FALSE(In<QWidget>("pnlAdd").isVisible());
        EXPECT_EQ(Master().ListCount(), 3);
    });
}

TEST_F(ResourceList, NewItem_StandsAtHalfItsOwnSize)
{
    ShowCosts(kThreeLines);
    InResources([this] {
        Click("cmdAddItem");
        const auto& panel = In<QWidget>("pnlAdd");
        EXPECT_EQ(panel.x(), panel.width() / 2);
        EXPECT_EQ(panel.y(), panel.height() / 2);
        EXPECT_TRUE(Dialog().rect().contains(panel.geometry()));
        Click("cmdCancel");
    });
}

TEST_F(ResourceList, NewItemFails_ToldAndThePanelKeepsItsTexts)
{
    ShowCosts(kThreeLines);
    InResources([this] {
        Click("cmdAddItem");
        for (const char* box : {"txtResourceName", "txtShortName", "txtUnits"})
            TypeInto(In<QWidget>(box), "x");
        TypeInto(In<QWidget>("txtCost"), "5");
        ForbidWrites();
        ExpectReport();
        Click("cmdOK");
        EXPECT_TRUE(In<QWidget>("pnlAdd").isVisible());
        EXPECT_EQ(Master().ListCount(), 2);
        AllowWrites();
        Click("cmdOK");
        EXPECT_EQ(Master().ListCount(), 3);
    });
}

TEST_F(ResourceList, NewItem_OldLinesGoOnWithTheirTypes)
{
    ShowCosts(kThreeLines);
    InResources([this] {
        Click("cmdAddItem");
        for (const char* box : {"txtResourceName", "txtShortName", "txtUnits"})
            TypeInto(In<QWidget>(box), "x");
        TypeInto(In<QWidget>("txtCost"), "5");
        Click("cmdOK");
        Hands().Type(1, Qty, "9");
        EXPECT_EQ(Lines().Text(1, Cost), "2700");
    });
}

// ---- Closing

TEST_F(ResourceList, ClosedWithAnOpenEditor_SavesWhatWasTyped)
{
    ShowCosts(kThreeLines);
    InResources([this] {
        Hands().Type(1, Qty, "8");
        Dialog().close();
        EXPECT_FALSE(Dialog().isVisible());
    });
    EXPECT_EQ(LinesInFile().at(0), "11: 1, 8 x 3");
}

TEST_F(ResourceList, SaveFailsAtTheClose_StayKeepsTheLine)
{
    ShowCosts(kThreeLines);
    InResources([this] {
        Hands().Type(1, Qty, "8");
        ForbidWrites();
        ExpectReport(); // as the edit ends
        ExpectStayOrLeave(
            "This line could not be saved (attempt to write a readonly database), so it stays on the "
            "screen until it can be.",
            platform::Answer::Stay);
        Close();
        EXPECT_TRUE(Dialog().isVisible());
        EXPECT_EQ(Lines().Text(1, Qty), "8");
        AllowWrites();
    });
    EXPECT_EQ(LinesInFile().at(0), "11: 1, 8 x 3");
}

TEST_F(ResourceList, SaveFailsAtTheClose_LeaveGivesTheLineUp)
{
    ShowCosts(kThreeLines);
    InResources([this] {
        Hands().Type(1, Qty, "8");
        ForbidWrites();
        ExpectReport();
        ExpectStayOrLeave(
            "This line could not be saved (attempt to write a readonly database), so it stays on the "
            "screen until it can be.",
            platform::Answer::Leave);
        Close();
        EXPECT_FALSE(Dialog().isVisible());
    });
    EXPECT_EQ(Find<QLabel>("lblSRUse")->text(), QStringLiteral("750"));
}

// ---- How it is laid out

TEST_F(ResourceList, EveryControlThatTakesTheFocusHasAName)
{
    ShowCosts();
    InResources([this] {
        ShowTab(1);
        Button("cmdAddItem").click();
        for (QWidget* widget : Dialog().findChildren<QWidget*>()) {
            if (widget->focusPolicy() == Qt::NoFocus) continue;
            if (widget->objectName().startsWith(QLatin1String("qt_")) || widget->objectName().isEmpty())
                continue;
            EXPECT_FALSE(QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name).isEmpty())
                << widget->objectName().toStdString();
        }
        Click("cmdCancel");
    });
}

TEST_F(ResourceList, SmallWindow_EverythingIsWithinTheDialog)
{
    ShowCosts("", "granite-fork-complex");
    window->resize(800, 600);
    InResources([this] {
        EXPECT_EQ(Dialog().height(), 507); // 7605 twips
        EXPECT_LE(Dialog().width(), 800);
        for (const char* name : {"lblInstructions",
                                 "grdOutcomes",
                                 "TabStrip1",
                                 "lstSRMaster",
                                 "cmdAddItem",
                                 "Panel3D8",
                                 "grdSRList",
                                 "cmdDelete",
                                 "Panel3D2",
                                 "pnlCost",
                                 "cmdClose"}) {
            const auto& control = In<QWidget>(name);
            EXPECT_TRUE(
                Dialog().rect().contains(QRect(control.mapTo(&Dialog(), QPoint(0, 0)), control.size())))
                << name;
        }
    });
}

} // namespace
