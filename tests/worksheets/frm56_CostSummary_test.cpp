#include "model/g51Alternatives.h"
#include "model/g53Outcomes.h"
#include "session/UIMode.h"
#include "worksheets/CostTest.h"
#include "worksheets/Worksheet.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QRadioButton>

#include <gmock/gmock.h>

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

class CostSummary : public CostTest
{
protected:
    GridHands Hands() { return GridHands(Outcomes()); }
    /// To a row of the outcomes, with the mouse.
    void Pick(Long row) { Hands().Click(row, 0); }
    QRadioButton& Option(const char* name) { return *Find<QRadioButton>(name); }
    void Choose(const char* option)
    {
        QTest::mouseClick(&Option(option), Qt::LeftButton, {}, QPoint(10, Option(option).height() / 2));
    }
    /// The option that is marked.
    std::string Marked()
    {
        for (const char* name : {"optSize", "optSRUse", "optAdjust"}) {
            if (Option(name).isChecked()) return name;
        }
        return "none";
    }
    std::string Label(const char* name) { return Find<QLabel>(name)->text().toStdString(); }
    platform::EntryBox& Adjusted() { return *Find<platform::EntryBox>("txtAdjustedCost"); }
    QPlainTextEdit& Rationale() { return *Find<QPlainTextEdit>("txtCostRationale"); }
    std::shared_ptr<c53Outcome> Object(Long row)
    {
        return Outcomes().RowObject<std::shared_ptr<c53Outcome>>(row);
    }
    std::string InFile(const char* column, Long outcomeKey)
    {
        return Query(std::string("SELECT ") + column +
                     " FROM Outcomes WHERE ItemKey = " + std::to_string(outcomeKey))
            .at(0)
            .at(0);
    }
};

// ---- What is shown

TEST_F(CostSummary, Setup_EveryOutcomeWithItsFigures)
{
    ShowCosts();
    EXPECT_EQ(Title(), "Cost Analysis");
    EXPECT_EQ(Shown().windowTitle(), QStringLiteral("Describe Outcome"));
    EXPECT_EQ(Outcomes().Cols(), 6);
    ASSERT_EQ(Outcomes().Rows(), 6);
    const std::vector<std::string> heads = {"Outcomes", "Outcomes", "Acres", "Contain", "Control", "Cost"};
    const std::vector<Long> widths = {2700, 675, 900, 720, 720, 1200};
    for (Long column = 0; column < 6; ++column) {
        EXPECT_EQ(Outcomes().Text(0, column), heads[static_cast<std::size_t>(column)]);
        EXPECT_EQ(Outcomes().Contents().ColWidth(column), widths[static_cast<std::size_t>(column)]);
    }
    EXPECT_EQ(Outcomes().Contents().ColAlignment(kCost), platform::Alignment::Right);
    EXPECT_EQ(Outcomes().Text(ATarget, 2), " 2400 ");
    EXPECT_EQ(Outcomes().Text(CTarget, 2), " 11,500 ");
    EXPECT_EQ(Outcomes().Text(ATarget, 4), " 21 ");
    EXPECT_THAT(Hands().Column(kCost),
                ElementsAre("6,780,000", "7,690,000", "12,200,000", "6,210,000", "31,000,000"));
}

TEST_F(CostSummary, Setup_TheFirstOutcomeIsShown)
{
    ShowCosts();
    EXPECT_EQ(Outcomes().Row(), 1);
    EXPECT_EQ(Marked(), "optSRUse");
    EXPECT_EQ(Label("lblSize"), "5,520,000");
    EXPECT_EQ(Label("lblSRUse"), "6,780,000");
    EXPECT_EQ(Adjusted().text(), QString());
    EXPECT_EQ(Rationale().toPlainText().toStdString(), Object(ATarget)->CostRationale());
}

TEST_F(CostSummary, Setup_TracesDisablesEditAndChecksItsEntry)
{
    ShowCosts();
    EXPECT_THAT(Lines(), Contains(HasSubstr("frm56_CostSummary.Setup")));
    EXPECT_FALSE(Menu("mnuEdit")->isEnabled());
    EXPECT_TRUE(Entry("mnuWorksheet", 5)->isChecked());
    EXPECT_EQ(Shown().HelpContextID(), 4550);
    EXPECT_TRUE(UIMode::NotBusy());
}

TEST_F(CostSummary, Setup_FixedTexts)
{
    ShowCosts();
    std::string texts;
    for (const QLabel* label : Shown().findChildren<QLabel*>())
        texts += label->text().toStdString() + "\n";
    for (const char* text :
         {"For each Outcome, select one of the following methods for estimating suppression cost:",
          "Describe the basis or rationale for the cost estimate",
          "Guidelines for estimating suppression cost:",
          "If historical costs are available, they should be used as an initial starting point.  "
          "Revise costs as necessary to reflect the current incident.\nDescribe the basis",
          "- Distance to non-Federal lands\n- Access\n- Terrain\n- Land management direction\n"
          "- Fuel types\n- Duration\n- Values at risk\n- Other factors that might influence "
          "overall cost"})
        EXPECT_THAT(texts, HasSubstr(text));
    EXPECT_EQ(Option("optSize").text(), QStringLiteral("Estimated cost based on fire size"));
    EXPECT_EQ(Option("optSRUse").text(), QStringLiteral("Estimated cost of suppression resources"));
    EXPECT_EQ(Option("optAdjust").text(), QStringLiteral("Type in estimate and provide explanation below"));
    EXPECT_EQ(Find<QPushButton>("cmdSize")->text(), QStringLiteral("Review Estimate"));
    EXPECT_EQ(Find<QPushButton>("cmdSRUse")->text(), QStringLiteral("Get/Edit Estimate"));
}

TEST_F(CostSummary, NewFile_TheExtremeOutcomeAlone)
{
    ShowCostsOfNewFile();
    ASSERT_EQ(Outcomes().Rows(), 2);
    EXPECT_EQ(Outcomes().Text(1, 0), "Extreme Outcome");
    EXPECT_EQ(CostOf(1), "0");
    EXPECT_EQ(Marked(), "optSize");
    EXPECT_EQ(Label("lblSize"), "0");
}

TEST_F(CostSummary, NoLines_ResourceCostIsEmptyWhereTheSizesIsZero)
{
    ShowCostsOfNewFile();
    EXPECT_EQ(Label("lblSize"), "0");
    EXPECT_EQ(Label("lblSRUse"), "");
    EXPECT_EQ(Adjusted().text(), QString());
}

TEST_F(CostSummary, OnlyLookedAt_LeavesEveryRowAsItWas)
{
    const char* kRows = "SELECT * FROM Outcomes ORDER BY ItemKey";
    ShowCosts();
    const auto before = support::QuerySql(support::BuiltFile("samples/smith-creek.qel"), kRows);
    for (Long row = 1; row <= 5; ++row)
        Pick(row);
    Leave();
    EXPECT_EQ(Query(kRows), before);
}

// ---- From outcome to outcome

TEST_F(CostSummary, AnotherRow_SavesAndShowsItsOutcome)
{
    ShowCosts();
    Rationale().setFocus();
    QTest::keyClicks(&Rationale(), QStringLiteral("Typed "));
    Mark();
    Pick(CTarget);
    EXPECT_THAT(NewLines(), ElementsAre("   frm56_CostSummary.SaveChanges"));
    EXPECT_EQ(Marked(), "optSize");
    EXPECT_EQ(Label("lblSize"), "6,210,000");
    EXPECT_EQ(Label("lblSRUse"), "");
    EXPECT_THAT(InFile("CostRationale", 2), HasSubstr("Typed "));
}

TEST_F(CostSummary, ArrowKeys_GoFromOutcomeToOutcome)
{
    ShowCosts();
    Outcomes().setFocus();
    GridHands::Key(Qt::Key_Down);
    GridHands::Key(Qt::Key_Down);
    EXPECT_EQ(Outcomes().Row(), 3);
    EXPECT_EQ(Rationale().toPlainText().toStdString(), Object(BFallback)->CostRationale());
}

TEST_F(CostSummary, ZeroAdjustedCost_ReadsEmptyAndAnotherInThousands)
{
    ShowCosts();
    Pick(Extreme);
    EXPECT_EQ(Adjusted().text(), QStringLiteral("31,000,000"));
    EXPECT_EQ(Marked(), "optAdjust");
    Pick(ATarget);
    EXPECT_EQ(Adjusted().text(), QString());
}

// ---- The source of the cost

TEST_F(CostSummary, Options_SetTheSourceAndTheColumn)
{
    ShowCosts();
    Choose("optSize");
    EXPECT_EQ(Object(ATarget)->CostSource(), 1);
    EXPECT_EQ(CostOf(ATarget), "5,520,000");
    Choose("optAdjust");
    EXPECT_EQ(Object(ATarget)->CostSource(), 8);
    EXPECT_EQ(CostOf(ATarget), "0");
    Choose("optSRUse");
    EXPECT_EQ(Object(ATarget)->CostSource(), 2);
    EXPECT_EQ(CostOf(ATarget), "6,780,000");
}

TEST_F(CostSummary, Options_BySpaceAndArrowKeys)
{
    ShowCosts();
    Option("optSRUse").setFocus();
    GridHands::Key(Qt::Key_Up);
    EXPECT_EQ(Object(ATarget)->CostSource(), 1);
    EXPECT_EQ(CostOf(ATarget), "5,520,000");
}

TEST_F(CostSummary, Source_ReachesTheFileWhenTheWorksheetIsLeft)
{
    ShowCosts();
    Choose("optAdjust");
    Leave();
    EXPECT_EQ(InFile("CostSource", 2), "8");
}

TEST_F(CostSummary, SourceByDay_TheMarkStaysWhereItWas)
{
    ShowCosts();
    Pick(CTarget);
    ASSERT_EQ(Marked(), "optSize");
    Pick(BFallback);
    EXPECT_EQ(Object(BFallback)->CostSource(), 4);
    EXPECT_EQ(Marked(), "optSize");
    Pick(ATarget);
    Pick(BFallback);
    EXPECT_EQ(Marked(), "optSRUse");
}

TEST_F(CostSummary, SourceByDayFirst_NoOptionIsMarked)
{
    ShowCosts("UPDATE Outcomes SET CostSource = 4 WHERE ItemKey = 2");
    EXPECT_EQ(Marked(), "none");
}

TEST_F(CostSummary, SourceByDay_ClickOnTheMarkThatStayedChoosesIt)
{
    ShowCosts();
    Pick(CTarget);
    Pick(BFallback);
    Choose("optSize");
    EXPECT_EQ(Object(BFallback)->CostSource(), 1);
}

TEST_F(CostSummary, SourceZero_IsTheSize)
{
    ShowCosts("UPDATE Outcomes SET CostSource = 0 WHERE ItemKey = 2");
    EXPECT_EQ(Marked(), "optSize");
    EXPECT_EQ(CostOf(ATarget), "5,520,000");
}

TEST_F(CostSummary, UnknownSource_CostsNothingAndMarksNothing)
{
    ShowCosts("UPDATE Outcomes SET CostSource = 3 WHERE ItemKey = 2");
    EXPECT_EQ(CostOf(ATarget), "0");
    EXPECT_EQ(Marked(), "none");
    Leave();
    EXPECT_EQ(InFile("CostSource", 2), "3");
}

// ---- The cost typed in

TEST_F(CostSummary, Adjusted_ADigitChoosesTheOption)
{
    ShowCosts();
    TypeInto(Adjusted(), "5");
    EXPECT_EQ(Marked(), "optAdjust");
    EXPECT_EQ(Object(ATarget)->CostSource(), 8);
    EXPECT_EQ(CostOf(ATarget), "5");
    Type("00");
    EXPECT_EQ(CostOf(ATarget), "500");
    Leave();
    EXPECT_EQ(InFile("AdjustedCost", 2), "500");
}

TEST_F(CostSummary, Adjusted_LettersCountAsNothingAndLeaveTheSource)
{
    ShowCosts("UPDATE Outcomes SET AdjustedCost = 77 WHERE ItemKey = 2");
    TypeInto(Adjusted(), "abc");
    EXPECT_EQ(Object(ATarget)->AdjustedCost(), 0.0F);
    EXPECT_EQ(Object(ATarget)->CostSource(), 2);
    EXPECT_EQ(Marked(), "optSRUse");
    EXPECT_EQ(CostOf(ATarget), "6,780,000");
}

TEST_F(CostSummary, Adjusted_LettersBehindAChosenNumber_ShowZero)
{
    ShowCosts();
    TypeInto(Adjusted(), "12x");
    EXPECT_EQ(Object(ATarget)->AdjustedCost(), 0.0F);
    EXPECT_EQ(Object(ATarget)->CostSource(), 8);
    EXPECT_EQ(CostOf(ATarget), "0");
}

TEST_F(CostSummary, Adjusted_MarkThatStayed_ADigitStillMakesItTheSource)
{
    ShowCosts();
    Pick(Extreme);
    ASSERT_EQ(Marked(), "optAdjust");
    Pick(BFallback);
    ASSERT_EQ(Marked(), "optAdjust");
    TypeInto(Adjusted(), "9");
    EXPECT_EQ(Object(BFallback)->CostSource(), 8);
    EXPECT_EQ(CostOf(BFallback), "9");
}

TEST_F(CostSummary, Adjusted_PastedAmounts)
{
    ShowCosts();
    struct Case
    {
        const char* text;
        Single dollars;
    };
    for (const Case& c : std::vector<Case>{{"$1,234,567", 1234567.0F},
                                           {" 12.5 ", 12.5F},
                                           {"-3", -3.0F},
                                           {"1e3", 1000.0F},
                                           {"1,,2", 0.0F}}) {
        TypeInto(Adjusted(), "");
        Paste(c.text);
        EXPECT_EQ(Object(ATarget)->AdjustedCost(), c.dollars) << c.text;
    }
}

TEST_F(CostSummary, Adjusted_BeyondEverySingle_CountsAsNothing)
{
    ShowCosts();
    TypeInto(Adjusted(), "");
    Paste("1e39");
    EXPECT_EQ(Object(ATarget)->AdjustedCost(), 0.0F);
    EXPECT_EQ(Object(ATarget)->CostSource(), 2);
}

TEST_F(CostSummary, Adjusted_EnteringSelectsTheWhole)
{
    ShowCosts();
    Pick(Extreme);
    Adjusted().setFocus();
    EXPECT_EQ(Adjusted().selectedText(), QStringLiteral("31,000,000"));
}

TEST_F(CostSummary, Adjusted_ShownInThousandsIsNoEdit)
{
    ShowCosts("UPDATE Outcomes SET AdjustedCost = 1234.56 WHERE ItemKey = 2");
    EXPECT_EQ(Adjusted().text(), QStringLiteral("1,235"));
    EXPECT_EQ(Object(ATarget)->AdjustedCost(), 1234.56F);
    EXPECT_EQ(Object(ATarget)->CostSource(), 2);
}

// ---- The rationale

TEST_F(CostSummary, Rationale_EveryKeyReachesTheOutcome)
{
    ShowCosts();
    TypeInto(Rationale(), "By hand");
    EXPECT_EQ(Object(ATarget)->CostRationale(), "By hand");
    Leave();
    EXPECT_EQ(InFile("CostRationale", 2), "By hand");
}

TEST_F(CostSummary, Rationale_BracesAndLinesAreKeptAsTyped)
{
    ShowCosts();
    TypeInto(Rationale(), "");
    Paste("{\\rtf1 no}\nsecond | line\t\xC3\xA9");
    EXPECT_EQ(Object(ATarget)->CostRationale(), "{\\rtf1 no}\nsecond | line\t\xC3\xA9");
}

TEST_F(CostSummary, Rationale_CopyAndPasteWorkThoughTheEditMenuIsDisabled)
{
    ShowCosts();
    TypeInto(Rationale(), "Again ");
    QTest::keyClick(&Rationale(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&Rationale(), Qt::Key_C, Qt::ControlModifier);
    QTest::keyClick(&Rationale(), Qt::Key_End, Qt::ControlModifier);
    QTest::keyClick(&Rationale(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Object(ATarget)->CostRationale(), "Again Again ");
}

TEST_F(CostSummary, FillingWhileBusy_IsNoEdit)
{
    ShowCosts();
    const UIMode::Busy busy;
    Adjusted().setText(QStringLiteral("5"));
    Rationale().setPlainText(QStringLiteral("Filled"));
    EXPECT_EQ(Object(ATarget)->AdjustedCost(), 0.0F);
    EXPECT_EQ(Object(ATarget)->CostSource(), 2);
    EXPECT_NE(Object(ATarget)->CostRationale(), "Filled");
}

// ---- The dialogs

TEST_F(CostSummary, CostPerAcreChanged_LabelAndColumnFollow)
{
    ShowCosts();
    Pick(CTarget);
    InCostPerAcre([this] { GridHands(GridIn("grdCosts")).Type(6, 2, "1000"); });
    EXPECT_EQ(Label("lblSize"), "11,500,000");
    EXPECT_EQ(CostOf(CTarget), "11,500,000");
    EXPECT_EQ(CostOf(ATarget), "6,780,000");
}

TEST_F(CostSummary, ResourcesChanged_LabelAndColumnFollow)
{
    ShowCosts();
    InResources([this] { GridHands(GridIn("grdSRList")).Type(1, 1, "7"); });
    EXPECT_EQ(Label("lblSRUse"), "6,900,000");
    EXPECT_EQ(CostOf(ATarget), "6,900,000");
}

TEST_F(CostSummary, Dialogs_StandCentredOnTheMainWindow)
{
    ShowCosts();
    for (const char* button : {"cmdSize", "cmdSRUse"}) {
        InDialog(button, [this, button] {
            const QPoint off = Dialog().geometry().center() - window->geometry().center();
            EXPECT_LE(std::abs(off.x()), 1) << button;
            EXPECT_LE(std::abs(off.y()), 1) << button;
            EXPECT_TRUE(Dialog().isModal()) << button;
        });
    }
}

// ---- Bad files and drives

TEST_F(CostSummary, MissingResourceType_ToldOnceAndTheOtherOutcomesAreShown)
{
    ShowCosts("DELETE FROM SRTypes WHERE ItemKey = 30"); // both lists have it
    ExpectReport("No member k30 in resource types");
    QCoreApplication::processEvents();
    EXPECT_THAT(Hands().Column(kCost),
                ElementsAre("unknown", "unknown", "12,200,000", "6,210,000", "31,000,000"));
    EXPECT_EQ(Label("lblSRUse"), "unknown");
    Choose("optSize");
    EXPECT_EQ(CostOf(ATarget), "5,520,000");
    Pick(BTarget);
    Leave();
    EXPECT_EQ(InFile("CostSource", 2), "1");
}

TEST_F(CostSummary, StoredProductBeyond32Bits_ToldOnceAndReadsTooLarge)
{
    ShowCosts("UPDATE SRUses SET Quantity = 2000000000, Periods = 2 WHERE ItemKey = 1");
    ExpectReport("Overflow: 32-bit product");
    QCoreApplication::processEvents();
    EXPECT_EQ(CostOf(ATarget), "too large");
    EXPECT_EQ(Label("lblSRUse"), "too large");
    EXPECT_EQ(CostOf(BTarget), "7,690,000");
}

TEST_F(CostSummary, OutcomesThatCannotBeRead_ToldAndNothingIsThereToEdit)
{
    StartWithSample("smith-creek", "DROP TABLE Outcomes");
    ClickTab(Sections(), 5);
    ExpectReport("There is no table Outcomes");
    ClickTab(Worksheets(), 5);
    QCoreApplication::processEvents();
    EXPECT_EQ(gCurrentTab, "tab56");
    EXPECT_EQ(Outcomes().Rows(), 1);
    Choose("optSize");
    TypeInto(Adjusted(), "5");
    TypeInto(Rationale(), "Typed");
    Leave();
    EXPECT_EQ(gCurrentTab, "tab11");
}

TEST_F(CostSummary, SaveFailsAtAnotherRow_ToldAndTheRowComesBackWithItsText)
{
    ShowCosts();
    TypeInto(Rationale(), "Typed");
    ForbidWrites();
    ExpectReport();
    Pick(CTarget);
    QCoreApplication::processEvents();
    EXPECT_EQ(Outcomes().Row(), ATarget);
    EXPECT_EQ(Rationale().toPlainText(), QStringLiteral("Typed"));
    EXPECT_EQ(Marked(), "optSRUse");
    AllowWrites();
    Pick(CTarget);
    EXPECT_EQ(Marked(), "optSize");
    EXPECT_EQ(InFile("CostRationale", 2), "Typed");
}

TEST_F(CostSummary, SaveFailsOnLeaving_ToldAndTheWorksheetStays)
{
    ShowCosts();
    TypeInto(Adjusted(), "123");
    ForbidWrites();
    ExpectNotLeft();
    Leave();
    EXPECT_EQ(gCurrentTab, "tab56");
    EXPECT_EQ(Adjusted().text(), QStringLiteral("123"));
    AllowWrites();
    Leave();
    EXPECT_EQ(gCurrentTab, "tab11");
    EXPECT_EQ(InFile("AdjustedCost", 2), "123");
}

// ---- How it is laid out

TEST_F(CostSummary, SmallWindow_EverythingIsWithinTheForm)
{
    ShowCosts("", "granite-fork-complex");
    window->resize(800, 600);
    QCoreApplication::processEvents();
    for (const char* name : {"grdOutcomes",
                             "optSize",
                             "lblSize",
                             "cmdSize",
                             "optSRUse",
                             "lblSRUse",
                             "cmdSRUse",
                             "optAdjust",
                             "txtAdjustedCost",
                             "txtCostRationale",
                             "pnlGuidelines"}) {
        const auto* control = Find<QWidget>(name);
        const QRect place(control->mapTo(&Shown(), QPoint(0, 0)), control->size());
        EXPECT_TRUE(Shown().rect().contains(place)) << name;
        EXPECT_GE(control->width(), control->minimumSizeHint().width()) << name;
    }
}

TEST_F(CostSummary, Tab_LeadsThroughTheControlsAsTheyRead)
{
    ShowCosts();
    Outcomes().setFocus();
    std::vector<std::string> order;
    for (int i = 0; i < 5; ++i) {
        GridHands::Key(Qt::Key_Tab);
        order.push_back(QApplication::focusWidget()->objectName().toStdString());
    }
    EXPECT_THAT(order, ElementsAre("optSize", "cmdSize", "cmdSRUse", "txtAdjustedCost", "txtCostRationale"));
}

} // namespace
