#include "model/g51Alternatives.h"
#include "platform/richtext/RtfReader.h"
#include "session/SessionState.h"
#include "session/UIMode.h"
#include "session/g0Items.h"
#include "worksheets/TopicTest.h"
#include "worksheets/Worksheet.h"

#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <QWheelEvent>

#include <gmock/gmock.h>

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

namespace {

constexpr const char* kA = "A. Full perimeter control";
constexpr const char* kB = "B. Confine on Wagon Road and Divide Ridge"; // selected; has a Fallback
constexpr const char* kAllRows = "SELECT * FROM Items ORDER BY ItemKey";
constexpr const char* kNone =
    "There are no alternatives yet. Add one on the worksheet Identify Alternatives of "
    "the section Alternatives.";
/// Short texts in all three places of A and B.
constexpr const char* kShortTexts =
    "UPDATE Items SET Body = 'Strategy ' || ItemName WHERE ParentKey = 26;"
    "UPDATE Outcomes SET Description = 'Target ' || ParentKey WHERE ChildIndex = 1;"
    "UPDATE Outcomes SET Description = 'Fallback ' || ParentKey WHERE ChildIndex = 2;";
constexpr const char* kSelectA =
    "UPDATE Properties SET Value = '297' WHERE Property = 'SelectedAlternativeKey';";
constexpr const char* kSelectNone = "DELETE FROM Properties WHERE Property = 'SelectedAlternativeKey';";
constexpr const char* kDescriptionOfA = "Strategy A\n\nTarget 297";
constexpr const char* kDescriptionOfB =
    "This alternative includes a Fallback outcome.\n\nStrategy B\n\nTarget:\n\nTarget 298\nFallback:\n\n"
    "Fallback 298";

class Decision : public TopicTest
{
protected:
    void ShowSample(const std::string& sql = {})
    {
        StartWithSample("smith-creek", sql);
        GoTo(6, 3);
        ASSERT_EQ(gCurrentTab, "tab65");
    }
    void ComeBack() { GoTo(6, 3); }
    QComboBox& Combo() { return *Find<QComboBox>("cboAlternatives"); }
    std::string Chosen() { return Combo().currentText().toStdString(); }
    /// With the keys of a closed combo box.
    void Choose(Qt::Key key)
    {
        Combo().setFocus();
        Key(key);
    }
    std::string Plain(Long item)
    {
        return platform::richtext::RtfToPlainText(g0Items::GetItem(item)->Body());
    }
    std::string PlainInFile(Long item) { return platform::richtext::RtfToPlainText(BodyInFile(item)); }
    std::string SelectedInFile()
    {
        const auto rows = InFile("SELECT Value FROM Properties WHERE Property = 'SelectedAlternativeKey'");
        return rows.empty() ? "no row" : rows.at(0).at(0);
    }
};

// ---- What stands on the worksheet

TEST_F(Decision, Setup_TracesInOrder)
{
    StartWithSample();
    ClickTab(Sections(), 6);
    Mark();
    ClickTab(Worksheets(), 3);
    EXPECT_THAT(NewLines(),
                ElementsAre(" Start switch to worksheet 3",
                            "   a3VEXAforms.UpdateCurrentWorksheet tab11",
                            "   a3VEXAforms.UnloadCurrentWorksheet, ID = tab11",
                            "   Unloaded frm11Intro",
                            "   a3VEXAforms.DisplayWorksheet 3",
                            "   frm65Decision.Setup",
                            "   Load frm65Decision",
                            "   c35AACTable.Initialize 0", // for the least cost
                            "   frm65Decision.ShowDecision",
                            "   frm65Decision.cboAlternatives_Click " + std::string(kB),
                            "   frm65Decision.lstTopics_Click Selected Alternative Description",
                            " Finished switching worksheets"));
    EXPECT_TRUE(Entry("mnuWorksheet", 3)->isChecked());
    EXPECT_TRUE(Menu("mnuEdit")->isEnabled());
    EXPECT_EQ(Shown().HelpContextID(), 4630);
    EXPECT_TRUE(UIMode::NotBusy());
}

TEST_F(Decision, Setup_SelectedAlternativeAndTheFirstTopic)
{
    ShowSample();
    EXPECT_EQ(Chosen(), kB);
    EXPECT_EQ(Combo().count(), 3);
    EXPECT_THAT(Rows(),
                ElementsAre("Selected Alternative Description", "Rationale for selecting this Alternative"));
    EXPECT_EQ(Topics().ItemData(0), 291);
    EXPECT_EQ(Topics().ItemData(1), 292);
    EXPECT_EQ(Topics().ListIndex(), 0);
    EXPECT_EQ(HeadingText(), "Description of the selected alternative");
    EXPECT_THAT(Body().Text(), StartsWith("This alternative includes a Fallback outcome."));
    EXPECT_THAT(LabelText("lblInstructions"), StartsWith("Filled in when an alternative"));
}

TEST_F(Decision, Words_AreTheGivenOnes)
{
    ShowSample();
    const std::vector<std::string> words = LabelTexts();
    // "inlude" stands as it is.
    for (const char* word :
         {"1. Select an Alternative",
          "Most Cost Effective Alternative",
          "If this Alternative is not selected, be sure to inlude an explanation in the rationale.",
          "2. Description and Rationale",
          "Click on each topic below and fill in narrative on the right.",
          "Special instructions for this topic:",
          "Heading"})
        EXPECT_THAT(words, Contains(word));
    EXPECT_EQ(Button("cmdSpellcheck").text().toStdString(), "Spellcheck");
}

TEST_F(Decision, ScreenReader_ComboListAndBox)
{
    ShowSample();
    const auto labels = QAccessible::queryAccessibleInterface(&Combo())->relations(QAccessible::Label);
    ASSERT_EQ(labels.size(), 1);
    EXPECT_EQ(labels.first().first->text(QAccessible::Name).toStdString(), "1. Select an Alternative");
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&Topics())->text(QAccessible::Name).toStdString(),
              "2. Description and Rationale");
}

TEST_F(Decision, MostCostEffective_ItsLabel)
{
    ShowSample();
    EXPECT_EQ(LabelText("lblLeastCost"), g51Alternatives::MostCostEffectiveAlternative()->Label());
    EXPECT_FALSE(LabelText("lblLeastCost").empty());
}

TEST_F(Decision, OnlyLookedAt_LeavesEveryRowAsItWas)
{
    ShowSample();
    const auto before = InFile(kAllRows);
    ClickRow(1);
    ClickRow(0);
    Leave();
    EXPECT_EQ(InFile(kAllRows), before);
    EXPECT_EQ(SelectedInFile(), "298");
}

// ---- Topics

TEST_F(Decision, TopicShown_CaretStandsInItsNarrative)
{
    ShowSample();
    EXPECT_EQ(Focused(), "txtBody");
    ClickRow(1);
    EXPECT_EQ(Focused(), "txtBody");
    Keys("First of all. ");
    EXPECT_THAT(Plain(292), StartsWith("First of all. "));
}

TEST_F(Decision, AnotherTopic_TracesAndSavesTheOneThatIsLeft)
{
    ShowSample();
    TypeBody(" Typed.");
    Mark();
    ClickRow(1);
    EXPECT_THAT(NewLines(),
                ElementsAre("   frm65Decision.lstTopics_Click Rationale for selecting this Alternative"));
    EXPECT_THAT(PlainInFile(291), EndsWith(" Typed."));
    EXPECT_EQ(HeadingText(), "Rationale for the selection");
    EXPECT_THAT(LabelText("lblInstructions"), StartsWith("Say why this alternative was chosen"));
}

TEST_F(Decision, HeadingTyped_HeadingOnlyTheListStays)
{
    ShowSample();
    TypeHeading("What we do");
    EXPECT_EQ(Rows().at(0), "Selected Alternative Description");
    Leave();
    EXPECT_EQ(RowInFile(291), (support::Rows{{"Selected Alternative Description", "What we do", "28", "1"}}));
}

TEST_F(Decision, WorksheetLeftWhileTyping_NothingIsLost)
{
    ShowSample();
    ClickRow(1);
    TypeBody(" Typed last.");
    Leave();
    EXPECT_THAT(PlainInFile(292), EndsWith(" Typed last."));
    ComeBack();
    ClickRow(1);
    EXPECT_THAT(Body().Text(), EndsWith(" Typed last."));
}

// ---- Choosing an alternative

TEST_F(Decision, ChosenWithoutFallback_SelectedDescribedAndSavedAtOnce)
{
    ShowSample(kShortTexts);
    Mark();
    Choose(Qt::Key_Up);
    EXPECT_THAT(NewLines(), ElementsAre("   frm65Decision.cboAlternatives_Click " + std::string(kA)));
    EXPECT_EQ(Body().Text(), kDescriptionOfA);
    EXPECT_EQ(SelectedInFile(), "297");
    EXPECT_EQ(PlainInFile(291), kDescriptionOfA);
}

TEST_F(Decision, ChosenWithFallback_ThreeTextsInOrder)
{
    ShowSample(std::string(kShortTexts) + kSelectA);
    EXPECT_EQ(Chosen(), kA);
    Choose(Qt::Key_Down);
    EXPECT_EQ(Chosen(), kB);
    EXPECT_EQ(Body().Text(), kDescriptionOfB);
    EXPECT_EQ(PlainInFile(291), kDescriptionOfB);
    EXPECT_EQ(SelectedInFile(), "298");
}

TEST_F(Decision, FallbackOfZeroPercent_ComposedWithout)
{
    ShowSample(std::string(kShortTexts) + kSelectA +
               "UPDATE Outcomes SET Success = 0 WHERE ParentKey = 298 AND ChildIndex = 2");
    Choose(Qt::Key_Down);
    EXPECT_EQ(Body().Text(), "Strategy B\n\nTarget 298");
}

TEST_F(Decision, FallbackOfOnePercent_ComposedWithIt)
{
    ShowSample(std::string(kShortTexts) + kSelectA +
               "UPDATE Outcomes SET Success = 1 WHERE ParentKey = 298 AND ChildIndex = 2");
    Choose(Qt::Key_Down);
    EXPECT_EQ(Body().Text(), kDescriptionOfB);
}

TEST_F(Decision, FirstChoice_WhereNoneWasSelected)
{
    ShowSample(std::string(kShortTexts) + kSelectNone);
    EXPECT_EQ(Combo().currentIndex(), -1);
    Choose(Qt::Key_Down);
    EXPECT_EQ(Chosen(), kA);
    EXPECT_EQ(SelectedInFile(), "297");
    EXPECT_EQ(PlainInFile(291), kDescriptionOfA);
}

TEST_F(Decision, ByMouse_ChosenFromTheOpenedList)
{
    ShowSample(kShortTexts);
    QTest::mouseClick(&Combo(), Qt::LeftButton);
    QTest::qWait(1);
    QAbstractItemView* view = Combo().view();
    ASSERT_TRUE(QTest::qWaitFor([view] { return view->isVisible(); }));
    QTest::qWait(QApplication::doubleClickInterval() + 50); // or the release counts as that of the opening
    const QModelIndex first = view->model()->index(0, 0);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, view->visualRect(first).center());
    QCoreApplication::processEvents();
    EXPECT_EQ(Chosen(), kA);
    EXPECT_EQ(Body().Text(), kDescriptionOfA);
    EXPECT_EQ(SelectedInFile(), "297");
    EXPECT_EQ(Focused(), "txtBody");
    EXPECT_EQ(Combo().toolTip().toStdString(), kA);
}

TEST_F(Decision, SameAlternativeAgain_TheNarrativeStays)
{
    ShowSample(kShortTexts);
    TypeBody(" My own words.");
    Combo().setFocus();
    Key(Qt::Key_F4);
    Key(Qt::Key_Return);
    {
        // As where a toolkit raises the click of the row that is chosen already.
        const QSignalBlocker quiet(&Combo());
        Combo().setCurrentIndex(-1);
    }
    Combo().setCurrentIndex(1);
    EXPECT_EQ(Chosen(), kB);
    EXPECT_THAT(Body().Text(), EndsWith(" My own words."));
    EXPECT_THAT(PlainInFile(291), EndsWith(" My own words."));
}

TEST_F(Decision, AnotherAlternative_ReplacesWhateverStoodThere)
{
    ShowSample(kShortTexts);
    TypeBody(" My own words.");
    Choose(Qt::Key_Up);
    EXPECT_EQ(Body().Text(), kDescriptionOfA);
    Leave();
    EXPECT_EQ(PlainInFile(291), kDescriptionOfA);
}

TEST_F(Decision, ChosenFromTheRationale_SavesItAndShowsTheDescription)
{
    ShowSample(kShortTexts);
    ClickRow(1);
    TypeBody(" Because.");
    Mark();
    Choose(Qt::Key_Up);
    EXPECT_THAT(NewLines(),
                ElementsAre("   frm65Decision.cboAlternatives_Click " + std::string(kA),
                            "   frm65Decision.lstTopics_Click Selected Alternative Description"));
    EXPECT_EQ(Topics().ListIndex(), 0);
    EXPECT_EQ(Body().Text(), kDescriptionOfA);
    EXPECT_THAT(PlainInFile(292), EndsWith(" Because."));
}

TEST_F(Decision, Choice_IsNoStepOfUndo)
{
    ShowSample(kShortTexts);
    Choose(Qt::Key_Up);
    Body().setFocus();
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Body().Text(), kDescriptionOfA);
}

TEST_F(Decision, WrittenOnAfterAChoice_IsKept)
{
    ShowSample(kShortTexts);
    Choose(Qt::Key_Up);
    EXPECT_EQ(Focused(), "txtBody");
    TypeBody(" And on.");
    Leave();
    EXPECT_EQ(PlainInFile(291), std::string(kDescriptionOfA) + " And on.");
    ComeBack();
    EXPECT_EQ(Chosen(), kA);
    EXPECT_EQ(Body().Text(), std::string(kDescriptionOfA) + " And on.");
}

TEST_F(Decision, WheelOverTheCombo_ChoosesNothing)
{
    ShowSample(kShortTexts);
    Combo().setFocus();
    const QPointF at = Combo().rect().center();
    QWheelEvent down(at, Combo().mapToGlobal(at), {}, {0, -120}, {}, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&Combo(), &down);
    EXPECT_EQ(Chosen(), kB);
    EXPECT_EQ(SelectedInFile(), "298");
}

// ---- A description in plain text

TEST_F(Decision, PlainDescriptionBeginningThis_ComposedAnewWithTheFallback)
{
    ShowSample(std::string(kShortTexts) +
               "UPDATE Items SET Body = 'This alternative was chosen.' WHERE ItemKey = 291");
    EXPECT_EQ(Body().Text(), kDescriptionOfB);
    EXPECT_EQ(PlainInFile(291), kDescriptionOfB);
}

TEST_F(Decision, PlainDescriptionBeginningThis_WithTheFallbackThoughThereIsNone)
{
    ShowSample(std::string(kShortTexts) + kSelectA + "UPDATE Items SET Body = 'This' WHERE ItemKey = 291");
    EXPECT_EQ(Body().Text(),
              "This alternative includes a Fallback outcome.\n\nStrategy A\n\nTarget:\n\nTarget 297\n"
              "Fallback:\n\nFallback 297");
}

TEST_F(Decision, PlainDescriptionBeginningOtherwise_Stays)
{
    for (const char* text : {"this one", "The one", "Thi", ""}) {
        ShowSample(std::string(kShortTexts) + "UPDATE Items SET Body = '" + text + "' WHERE ItemKey = 291");
        EXPECT_EQ(Body().Text(), text);
        EXPECT_EQ(BodyInFile(291), text);
        Leave();
        Close();
    }
}

TEST_F(Decision, PlainDescriptionAndNoneSelected_Stays)
{
    ShowSample(std::string(kSelectNone) + "UPDATE Items SET Body = 'This one' WHERE ItemKey = 291");
    EXPECT_EQ(Body().Text(), "This one");
}

// ---- No alternatives

TEST_F(Decision, NoAlternatives_SentenceAndNoError)
{
    StartWithNewFile();
    GoTo(6, 3);
    EXPECT_EQ(gCurrentTab, "tab65");
    EXPECT_EQ(Combo().count(), 0);
    EXPECT_FALSE(Combo().isEnabled());
    EXPECT_EQ(Combo().toolTip().toStdString(), kNone);
    EXPECT_TRUE(Find<QLabel>("lblNoAlternatives")->isVisible());
    EXPECT_EQ(LabelText("lblNoAlternatives"), kNone);
    EXPECT_EQ(LabelText("lblLeastCost"), "");
    EXPECT_EQ(Topics().ListCount(), 2);
    TypeBody("Still writable.");
    Leave();
    EXPECT_EQ(PlainInFile(291), "Still writable.");
}

TEST_F(Decision, SomeAlternatives_NoSentence)
{
    ShowSample();
    EXPECT_TRUE(Find<QLabel>("lblNoAlternatives")->isHidden());
    EXPECT_TRUE(Combo().isEnabled());
}

// ---- Failures

TEST_F(Decision, ChoiceCannotBeSaved_TheComboGoesBackAndTheTextStays)
{
    ShowSample(kShortTexts);
    TypeBody(" Typed.");
    ForbidWrites();
    ExpectReport();
    Choose(Qt::Key_Up);
    EXPECT_EQ(Chosen(), kB);
    EXPECT_EQ(Combo().toolTip().toStdString(), kB);
    EXPECT_THAT(Body().Text(), EndsWith(" Typed."));
    EXPECT_TRUE(UIMode::NotBusy());
    AllowWrites();
    Leave();
    EXPECT_THAT(PlainInFile(291), EndsWith(" Typed."));
    EXPECT_EQ(SelectedInFile(), "298");
}

TEST_F(Decision, ChoiceOnAReadOnlyDrive_TheComboGoesBack)
{
    ShowSample(kShortTexts);
    const std::string before = Body().Text();
    ForbidWrites();
    ExpectReport();
    Choose(Qt::Key_Up);
    EXPECT_EQ(Chosen(), kB);
    EXPECT_EQ(Body().Text(), before);
    AllowWrites();
    Choose(Qt::Key_Up);
    EXPECT_EQ(PlainInFile(291), kDescriptionOfA);
}

TEST_F(Decision, OutcomeRowMissing_ToldAndTheNarrativeStays)
{
    ExpectReport("No outcome 2 of alternative 297: There is no row to move to");
    ShowSample(std::string(kShortTexts) + "DELETE FROM Outcomes WHERE ParentKey = 297 AND ChildIndex = 2");
    const std::string before = Body().Text();
    ExpectReport("No outcome 2 of alternative 297: There is no row to move to");
    Choose(Qt::Key_Up);
    EXPECT_EQ(Body().Text(), before);
    EXPECT_EQ(Chosen(), "A. Full perimeter control"); // it is the selected one by now
    EXPECT_EQ(SelectedInFile(), "297");
}

TEST_F(Decision, CostCannotBeComputed_ToldAndTheRestWorks)
{
    ExpectReport("No outcome 1 of alternative 0: There is no row to move to");
    ShowSample("DELETE FROM Outcomes WHERE ParentKey = 0");
    EXPECT_EQ(LabelText("lblLeastCost"), "");
    EXPECT_EQ(Chosen(), kB);
    EXPECT_EQ(Topics().ListIndex(), 0);
    EXPECT_TRUE(UIMode::NotBusy());
}

TEST_F(Decision, SaveFailsOnLeaving_TheTextStaysAndTheNextLeaveSavesIt)
{
    ShowSample();
    ClickRow(1);
    TypeBody(" Typed.");
    ForbidWrites();
    ExpectNotLeft();
    ClickTab(Worksheets(), 1);
    EXPECT_EQ(gCurrentTab, "tab65");
    EXPECT_THAT(Body().Text(), EndsWith(" Typed."));
    AllowWrites();
    Leave();
    EXPECT_THAT(PlainInFile(292), EndsWith(" Typed."));
}

} // namespace
