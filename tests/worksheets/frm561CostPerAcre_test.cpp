#include "platform/data/Database.h"
#include "platform/data/Recordset.h"
#include "values/g33FMUs.h"
#include "worksheets/CostTest.h"

#include <QAccessible>
#include <QLabel>

#include <gmock/gmock.h>

using namespace value_rows;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

/// The first two classes, nothing behind.
const std::string kTwoClasses = "UPDATE SuppressionPerAcreCost SET TopSize = 0, Cost = 0;" +
                                SizeClass(0, 1, "1000, 10") + SizeClass(0, 2, "0, 20");

class CostPerAcre : public CostTest
{
protected:
    enum Column : Long { From = 0, To = 1, PerAcre = 2 };

    platform::Grid& Costs() { return GridIn("grdCosts"); }
    GridHands Hands() { return GridHands(Costs()); }
    platform::Grid& Outcomes() { return GridIn("grdOutcomes"); }
    static c35AACTable& Table() { return g33FMUs::GetAACTable(0); }
    std::vector<std::string> Line(Long row)
    {
        return {Costs().Text(row, 0), Costs().Text(row, 1), Costs().Text(row, 2)};
    }
    std::vector<std::string> Shown(Long row)
    {
        return {Hands().Shown(row, 0), Hands().Shown(row, 1), Hands().Shown(row, 2)};
    }
    /// Of the second class, as the open file has it.
    static Single CostInFile()
    {
        platform::Recordset rows = OpenDatabase().OpenTable("SuppressionPerAcreCost");
        rows.Seek(0, 2);
        return rows.SingleValue("Cost");
    }
    support::Rows InFile()
    {
        return Query(
            "SELECT TopSize, Cost FROM SuppressionPerAcreCost WHERE FMZKey = 0 ORDER BY SizeClass LIMIT 2");
    }
};

// ---- What is shown

TEST_F(CostPerAcre, Setup_TheTableOfTheFile)
{
    ShowCosts();
    InCostPerAcre([this] {
        ASSERT_EQ(Costs().Rows(), 11);
        EXPECT_EQ(Costs().Cols(), 3);
        EXPECT_EQ(Costs().Contents().FixedRows(), 2);
        EXPECT_EQ(Line(2), (std::vector<std::string>{"0", "300", "3800"}));
        EXPECT_EQ(Line(3), (std::vector<std::string>{"301", "1000", "3100"}));
        EXPECT_EQ(Line(6), (std::vector<std::string>{"10001", "", "540"}));
        EXPECT_EQ(Line(7), (std::vector<std::string>{"", "", "0"}));
        EXPECT_EQ(Line(10), (std::vector<std::string>{"", "", "0"}));
        EXPECT_EQ(Shown(3), (std::vector<std::string>{"301.00", "1,000.00", "$3,100"}));
        EXPECT_EQ(Shown(2).at(0), ".00");
    });
}

TEST_F(CostPerAcre, Setup_HeadsAndWidths)
{
    ShowCosts();
    InCostPerAcre([this] {
        EXPECT_EQ(Dialog().windowTitle(), QStringLiteral("Suppression cost based on fire size"));
        EXPECT_EQ(Line(0),
                  (std::vector<std::string>{
                      "Fire size, in acres", "Fire size, in acres", "Suppression cost\nper acre"}));
        EXPECT_EQ(Line(1), (std::vector<std::string>{"From", "To", "Suppression cost\nper acre"}));
        const std::vector<Long> widths = {1400, 1400, 1440};
        for (Long column = 0; column < 3; ++column) {
            EXPECT_EQ(Costs().Contents().ColWidth(column), widths[static_cast<std::size_t>(column)]);
            EXPECT_EQ(Costs().Contents().CellAlignment(1, column), platform::Alignment::Center);
            EXPECT_EQ(Costs().Contents().CellAlignment(2, column), platform::Alignment::Right);
        }
        const std::vector<std::string> heads = {"Outcomes", "Outcomes", "Acres", "$/acre", "Estimated cost"};
        const std::vector<Long> outcomeWidths = {2700, 675, 900, 900, 1200};
        for (Long column = 0; column < 5; ++column) {
            EXPECT_EQ(Outcomes().Text(0, column), heads[static_cast<std::size_t>(column)]);
            EXPECT_EQ(Outcomes().Contents().ColWidth(column),
                      outcomeWidths[static_cast<std::size_t>(column)]);
        }
        EXPECT_EQ(Outcomes().Contents().ColAlignment(4), platform::Alignment::Right);
        EXPECT_EQ(Outcomes().Row(), 0);
    });
}

TEST_F(CostPerAcre, Setup_InstructionWithItsMisspellings)
{
    ShowCosts();
    InCostPerAcre([this] {
        EXPECT_EQ(
            In<QLabel>("Label1_1").text().toStdString(),
            "To have the program compute an estimated cost based on fire size, enter a cost per acre value "
            "below.  You may enter a single valuee or different values for different fire sizes.  \n\nTo "
            "enter values for different fire sizes,enter the upper bound in the 'To' column.  For eaxample, "
            "if fires below 1000 acres have a different average cost per acre than fires above 1000 acres, "
            "enter 1000 in the 'To' column.");
    });
}

TEST_F(CostPerAcre, Setup_OutcomesWithRateAndCost)
{
    ShowCosts();
    InCostPerAcre([this] {
        EXPECT_THAT(GridHands(Outcomes()).Column(3), ElementsAre("2,300", "1,050", "1,050", "540", "540"));
        EXPECT_THAT(GridHands(Outcomes()).Column(4),
                    ElementsAre("5,520,000", "6,510,000", "10,300,000", "6,210,000", "13,000,000"));
    });
}

TEST_F(CostPerAcre, NoFireSize_CostsNothingAtTheRateOfTheLowestClass)
{
    ShowCostsOfNewFile(kTwoClasses);
    InCostPerAcre([this] {
        ASSERT_EQ(Outcomes().Rows(), 2);
        EXPECT_EQ(Outcomes().Text(1, 2), " 0 ");
        EXPECT_EQ(Outcomes().Text(1, 3), "10");
        EXPECT_EQ(Outcomes().Text(1, 4), "0");
    });
}

TEST_F(CostPerAcre, EqualCostsOfTwoClasses_StandInTwoCells)
{
    ShowCosts(kTwoClasses + SizeClass(0, 2, "2000, 10"));
    InCostPerAcre([this] {
        EXPECT_EQ(Costs().rowSpan(0, PerAcre), 1);
        EXPECT_EQ(Hands().Shown(3, PerAcre), "$10");
    });
}

TEST_F(CostPerAcre, Log_LoadsSavesAndUnloads)
{
    ShowCosts();
    Mark();
    InCostPerAcre([] {});
    const std::vector<std::string> lines = NewLines();
    EXPECT_THAT(lines, Contains("   frm561CostPerAcre.Setup"));
    EXPECT_THAT(lines, Contains(HasSubstr("c35AACTable.SaveChanges")));
    EXPECT_THAT(lines.front(), HasSubstr("frm561CostPerAcre.Setup"));
    EXPECT_THAT(lines.back(), HasSubstr("frm561CostPerAcre"));
}

// ---- Editing

TEST_F(CostPerAcre, EnterCell_OpensTheEditorInToAndCostAndNotInFrom)
{
    ShowCosts();
    InCostPerAcre([this] {
        Mark();
        Hands().Click(3, From);
        EXPECT_FALSE(Costs().IsEditing());
        Hands().Click(3, To);
        EXPECT_TRUE(Costs().IsEditing());
        Hands().Click(4, PerAcre);
        EXPECT_TRUE(Costs().IsEditing());
        EXPECT_THAT(NewLines(),
                    ElementsAre("   grdCosts_EnterCell",
                                "   grdCosts_EnterCell",
                                "   grdCosts_AfterEdit 3 1",
                                "   grdCosts_EnterCell"));
    });
}

TEST_F(CostPerAcre, Limits_NineCharactersForSizesSevenForCosts)
{
    ShowCosts(kTwoClasses);
    InCostPerAcre([this] {
        Hands().Type(2, To, "12345678901");
        EXPECT_EQ(Costs().EditText(), "123456789");
        Hands().Type(2, PerAcre, "12345678901");
        EXPECT_EQ(Costs().EditText(), "1234567");
    });
}

TEST_F(CostPerAcre, Typing_TheOutcomesFollowEveryKeyAndNothingIsSaved)
{
    ShowCosts(kTwoClasses);
    InCostPerAcre([this] {
        EXPECT_EQ(Outcomes().Text(ATarget, 3), "20");
        Hands().Type(3, PerAcre, "3");
        EXPECT_EQ(Outcomes().Text(ATarget, 3), "3");
        EXPECT_EQ(Outcomes().Text(ATarget, 4), "7,200");
        Type("0");
        EXPECT_EQ(Outcomes().Text(ATarget, 4), "72,000");
        EXPECT_EQ(Table().Cost(2), 30.0F);
        EXPECT_EQ(CostInFile(), 20.0F);
    });
    EXPECT_EQ(InFile(), (support::Rows{{"1000.0", "10.0"}, {"0.0", "30.0"}}));
}

TEST_F(CostPerAcre, TypedBound_TheNextFromFollowsBehindTheEdit)
{
    ShowCosts(kTwoClasses);
    InCostPerAcre([this] {
        EXPECT_EQ(Costs().Text(3, From), "1001");
        Hands().Type(2, To, "2500.5");
        EXPECT_EQ(Costs().Text(3, From), "1001");
        GridHands::Key(Qt::Key_Return);
        EXPECT_EQ(Costs().Text(3, From), "2501");
        EXPECT_EQ(Table().TopSize(1), 2500.5F);
    });
}

TEST_F(CostPerAcre, BoundOfTheLastClass_SetsNoFrom)
{
    ShowCosts();
    InCostPerAcre([this] {
        Hands().Type(10, To, "77");
        GridHands::Key(Qt::Key_Return);
        EXPECT_EQ(Table().TopSize(9), 77.0F);
        EXPECT_EQ(Costs().Rows(), 11);
    });
}

TEST_F(CostPerAcre, Escape_GivesTheOldNumberBackToTheTableAndTheOutcomes)
{
    ShowCosts(kTwoClasses);
    InCostPerAcre([this] {
        Hands().Type(3, PerAcre, "99");
        GridHands::Key(Qt::Key_Escape);
        EXPECT_TRUE(Dialog().isVisible());
        EXPECT_EQ(Table().Cost(2), 20.0F);
        EXPECT_EQ(Costs().Text(3, PerAcre), "20");
        EXPECT_EQ(Outcomes().Text(ATarget, 3), "20");
    });
}

TEST_F(CostPerAcre, TextThatIsNoNumber_CountsAsZeroAndIsShownSo)
{
    ShowCosts(kTwoClasses);
    InCostPerAcre([this] {
        Hands().Type(2, To, "");
        Paste("12abc");
        EXPECT_EQ(Table().TopSize(1), 0.0F);
        GridHands::Key(Qt::Key_Return);
        EXPECT_EQ(Costs().Text(2, To), "");
        EXPECT_EQ(Costs().Text(3, From), "");
        Hands().Type(2, PerAcre, "");
        Paste("lots");
        GridHands::Key(Qt::Key_Return);
        EXPECT_EQ(Table().Cost(1), 0.0F);
        EXPECT_EQ(Costs().Text(2, PerAcre), "0");
    });
}

TEST_F(CostPerAcre, PastedAmount_CountsWithItsSignsAndCommas)
{
    ShowCosts(kTwoClasses);
    InCostPerAcre([this] {
        Hands().Type(2, To, "");
        Paste("1,500.5");
        EXPECT_EQ(Table().TopSize(1), 1500.5F);
        Hands().Type(2, PerAcre, "");
        Paste("$1,250");
        EXPECT_EQ(Table().Cost(1), 1250.0F);
        GridHands::Key(Qt::Key_Return);
        EXPECT_EQ(Hands().Shown(2, PerAcre), "$1,250");
        EXPECT_EQ(Hands().Shown(2, To), "1,500.50");
    });
}

TEST_F(CostPerAcre, NegativeOrEndlessSize_CountsAsNone)
{
    ShowCosts(kTwoClasses);
    InCostPerAcre([this] {
        for (const char* text : {"-5", "1e39"}) {
            Hands().Type(2, To, "");
            Paste(text);
            EXPECT_EQ(Table().TopSize(1), 0.0F) << text;
            GridHands::Key(Qt::Key_Return);
        }
    });
}

TEST_F(CostPerAcre, CostThatMakesAnOutcomeTooLarge_ToldAndTheFormerOneStays)
{
    ShowCosts(kTwoClasses);
    InCostPerAcre([this] {
        Hands().Type(3, PerAcre, "");
        desktop.ExpectText(
            {"With this number the cost of an outcome would be larger than the program can count, so "
             "the former one stays.",
             "Enter a smaller number."});
        Paste("1e38");
        EXPECT_EQ(Table().Cost(2), 0.0F);
        EXPECT_EQ(Costs().EditText(), "0");
        GridHands::Key(Qt::Key_A, Qt::ControlModifier);
        Type("40");
        EXPECT_EQ(Outcomes().Text(ATarget, 3), "40");
    });
    EXPECT_EQ(InFile().at(1).at(1), "40.0");
}

TEST_F(CostPerAcre, StoredCostTooLarge_ToldAndCanBeMended)
{
    ShowCosts(kTwoClasses + SizeClass(0, 2, "0, 9e37"));
    ExpectReport("Overflow: single");
    QCoreApplication::processEvents();
    ExpectReport("Overflow: single");
    InCostPerAcre([this] {
        QCoreApplication::processEvents();
        EXPECT_EQ(Outcomes().Text(ATarget, 4), "");
        Hands().Type(3, PerAcre, "20");
        EXPECT_EQ(Outcomes().Text(ATarget, 4), "48,000");
    });
    EXPECT_EQ(CostOf(ATarget), "6,780,000");
}

// ---- Keyboard

TEST_F(CostPerAcre, KeyboardAlone_TypesATableAndCloses)
{
    ShowCosts(kTwoClasses);
    InCostPerAcre([this] {
        EXPECT_TRUE(Costs().hasFocus());
        Type("500");
        GridHands::Key(Qt::Key_Tab);
        Type("12");
        GridHands::Key(Qt::Key_Tab);
        Type("800");
        GridHands::Key(Qt::Key_Return);
        EXPECT_EQ(Line(2), (std::vector<std::string>{"0", "500", "12"}));
        EXPECT_EQ(Line(3), (std::vector<std::string>{"501", "800", "20"}));
        GridHands::Key(Qt::Key_Escape);
        GridHands::Key(Qt::Key_Escape);
        EXPECT_FALSE(Dialog().isVisible());
    });
    EXPECT_EQ(InFile(), (support::Rows{{"500.0", "12.0"}, {"800.0", "20.0"}}));
}

TEST_F(CostPerAcre, F1_OpensItsTopic)
{
    ShowCosts();
    InCostPerAcre([this] {
        GridHands::Key(Qt::Key_F1);
        EXPECT_THAT(desktop.calls.back(), HasSubstr("4551"));
    });
}

TEST_F(CostPerAcre, EveryControlThatTakesTheFocusHasAName)
{
    ShowCosts();
    InCostPerAcre([this] {
        for (QWidget* widget : Dialog().findChildren<QWidget*>()) {
            if (!widget->isVisible() || widget->focusPolicy() == Qt::NoFocus) continue;
            if (widget->objectName().startsWith(QLatin1String("qt_"))) continue;
            EXPECT_FALSE(QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name).isEmpty())
                << widget->objectName().toStdString() << ' ' << widget->metaObject()->className();
        }
    });
}

// ---- Closing

TEST_F(CostPerAcre, ClosedByItsFrame_Saves)
{
    ShowCosts(kTwoClasses);
    InCostPerAcre([this] {
        Hands().Type(2, PerAcre, "77");
        Dialog().close();
        EXPECT_FALSE(Dialog().isVisible());
    });
    EXPECT_EQ(InFile().at(0).at(1), "77.0");
}

TEST_F(CostPerAcre, NothingTyped_WritesNothing)
{
    ShowCosts("UPDATE SuppressionPerAcreCost SET TopSize = NULL WHERE SizeClass = 2");
    InCostPerAcre([] {});
    EXPECT_EQ(InFile().at(1).at(0), "NULL");
}

constexpr const char* kUnsaved =
    "The costs per acre could not be saved (attempt to write a readonly database). If you "
    "leave, they count until this file is closed, but they are not in it.";

TEST_F(CostPerAcre, SaveFailsAtTheClose_StayKeepsTheDialogAndItsText)
{
    ShowCosts(kTwoClasses);
    InCostPerAcre([this] {
        Hands().Type(2, PerAcre, "55");
        ForbidWrites();
        ExpectStayOrLeave(kUnsaved, platform::Answer::Stay);
        Close();
        EXPECT_TRUE(Dialog().isVisible());
        EXPECT_EQ(Costs().Text(2, PerAcre), "55");
        EXPECT_THAT(ErrorLog(), HasSubstr("attempt to write a readonly database"));
        AllowWrites();
    });
    EXPECT_EQ(InFile().at(0).at(1), "55.0");
}

TEST_F(CostPerAcre, SaveFailsAtTheClose_LeaveKeepsTheNumbersForTheNextTime)
{
    ShowCosts(kTwoClasses);
    InCostPerAcre([this] {
        Hands().Type(2, PerAcre, "55");
        ForbidWrites();
        ExpectStayOrLeave(kUnsaved, platform::Answer::Leave);
        Close();
        EXPECT_FALSE(Dialog().isVisible());
    });
    AllowWrites();
    InCostPerAcre([this] { EXPECT_EQ(Costs().Text(2, PerAcre), "55"); });
    EXPECT_EQ(InFile().at(0).at(1), "55.0");
}

TEST_F(CostPerAcre, RowsOfTheTableAreMissing_ToldAndTheProgramGoesOn)
{
    ShowCosts("DELETE FROM SuppressionPerAcreCost");
    InCostPerAcre([this] {
        EXPECT_EQ(Line(2), (std::vector<std::string>{"0", "", "0"}));
        Hands().Type(2, PerAcre, "55");
        ExpectStayOrLeave(
            "The costs per acre could not be saved (There is no current row in "
            "SuppressionPerAcreCost). If you leave, they count until this file is closed, but they "
            "are not in it.",
            platform::Answer::Leave);
        Close();
    });
    EXPECT_EQ(Find<QLabel>("lblSize")->text(), QStringLiteral("132,000"));
    Leave();
    EXPECT_EQ(gCurrentTab, "tab11");
}

TEST_F(CostPerAcre, FileWithLandUnits_ToldAndTheDialogDoesNotCome)
{
    ShowCosts(LandUnit(5));
    ExpectReport("No member k0 in land units");
    Find<QPushButton>("cmdSize")->click();
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    Leave();
    EXPECT_EQ(gCurrentTab, "tab11");
}

TEST_F(CostPerAcre, SmallWindow_EverythingIsWithinTheDialog)
{
    ShowCosts("", "granite-fork-complex");
    window->resize(800, 600);
    InCostPerAcre([this] {
        EXPECT_LE(Dialog().width(), 800);
        EXPECT_LE(Dialog().height(), 600);
        for (const char* name : {"Label1_1", "grdOutcomes", "grdCosts", "cmdClose"}) {
            const auto& control = In<QWidget>(name);
            EXPECT_TRUE(
                Dialog().rect().contains(QRect(control.mapTo(&Dialog(), QPoint(0, 0)), control.size())))
                << name;
        }
    });
}

} // namespace
