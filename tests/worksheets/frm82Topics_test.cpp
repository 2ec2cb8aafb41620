#include "session/SessionState.h"
#include "session/UIMode.h"
#include "session/g0Items.h"
#include "worksheets/TopicTest.h"
#include "worksheets/Worksheet.h"

#include <QAccessible>
#include <QLabel>

#include <gmock/gmock.h>

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::SizeIs;

namespace {

constexpr const char* kAllRows = "SELECT * FROM Items ORDER BY ItemKey";
constexpr Long kThresholds = 293; // the third topic

class SummaryTopics : public TopicTest
{
protected:
    void ShowSample(const std::string& sql = {})
    {
        StartWithSample("smith-creek", sql);
        GoTo(7, 2);
        ASSERT_EQ(gCurrentTab, "tab82");
    }
    void ComeBack() { GoTo(7, 2); }
    Long LastKey() { return Topics().ItemData(Topics().ListCount() - 1); }
};

TEST_F(SummaryTopics, Setup_HeadingsInTheirOrderTheFirstOneShown)
{
    ShowSample();
    EXPECT_THAT(Rows(),
                ElementsAre("Description of the selected alternative",
                            "Rationale for the selection",
                            "VEXA revision or amendment thresholds and protocol",
                            "Critical Fire Management resources (helicopters, crews, etc) estimated to "
                            "implement the selected alternative",
                            "Direction to the incident organization",
                            "Coordination with cooperators, landowners and the public"));
    EXPECT_EQ(Topics().ListIndex(), 0);
    EXPECT_EQ(HeadingText(), "Description of the selected alternative");
    EXPECT_THAT(Body().Text(), ::testing::StartsWith("This alternative includes a Fallback outcome."));
    EXPECT_THAT(LabelText("lblInstructions"), ::testing::StartsWith("Filled in when an alternative"));
}

TEST_F(SummaryTopics, Setup_TracesChecksItsEntryAndEnablesEdit)
{
    StartWithSample();
    ClickTab(Sections(), 7);
    Mark();
    ClickTab(Worksheets(), 2);
    EXPECT_THAT(NewLines(),
                ElementsAre(" Start switch to worksheet 2",
                            "   a3VEXAforms.UpdateCurrentWorksheet tab11",
                            "   a3VEXAforms.UnloadCurrentWorksheet, ID = tab11",
                            "   Unloaded frm11Intro",
                            "   a3VEXAforms.DisplayWorksheet 2",
                            "   frm82Topics.Setup",
                            "   Load frm82Topics",
                            "   lstTopics_Click Description of the selected alternative",
                            " Finished switching worksheets"));
    EXPECT_TRUE(Entry("mnuWorksheet", 2)->isChecked());
    EXPECT_TRUE(Menu("mnuEdit")->isEnabled());
    EXPECT_EQ(Shown().HelpContextID(), 4820);
    EXPECT_TRUE(UIMode::NotBusy());
}

TEST_F(SummaryTopics, Words_AreTheGivenOnes)
{
    ShowSample();
    const std::vector<std::string> words = LabelTexts();
    for (const char* word : {"Topics",
                             "Click on each topic name below and fill in a narrative on the right.  Add "
                             "additional topics as needed.",
                             "Decision Summary Topics",
                             "Selected Alternative",
                             "Heading",
                             "Special instructions for this topic:"})
        EXPECT_THAT(words, Contains(word));
}

TEST_F(SummaryTopics, SelectedAlternative_ItsLabel)
{
    ShowSample();
    EXPECT_EQ(LabelText("lblAlternative"), "B. Confine on Wagon Road and Divide Ridge");
    auto* label = QAccessible::queryAccessibleInterface(Find<QLabel>("lblAlternative"));
    EXPECT_EQ(label->text(QAccessible::Name).toStdString(), "B. Confine on Wagon Road and Divide Ridge");
}

TEST_F(SummaryTopics, NoneSelected_SaysWhereToSelectOne)
{
    ShowSample("UPDATE Properties SET Value = '0' WHERE Property = 'SelectedAlternativeKey'");
    EXPECT_EQ(LabelText("lblAlternative"),
              "None yet. Select one on the worksheet Decision of the section Comparison.");
}

TEST_F(SummaryTopics, OnlyLookedAt_LeavesEveryRowAsItWas)
{
    ShowSample();
    const auto before = InFile(kAllRows);
    for (Long row = 0; row < Topics().ListCount(); ++row)
        ClickRow(row);
    Leave();
    EXPECT_EQ(InFile(kAllRows), before);
}

TEST_F(SummaryTopics, DescriptionAndRationale_CannotBeDeleted)
{
    ShowSample();
    const bool deletable[] = {false, false, true, true, true, true};
    for (Long row = 0; row < Topics().ListCount(); ++row) {
        ClickRow(row);
        EXPECT_EQ(Button("cmdDelete").isEnabled(), deletable[row]) << row;
        EXPECT_EQ(Button("cmdDelete").toolTip().isEmpty(), deletable[row]) << row;
    }
    ClickRow(1);
    Press("cmdDelete");
    EXPECT_EQ(Topics().ListCount(), 6);
}

TEST_F(SummaryTopics, HeadingTyped_HeadingAndRowFollowTheNameStays)
{
    ShowSample();
    ClickRow(2);
    TypeHeading("Triggers");
    EXPECT_EQ(Rows().at(2), "Triggers");
    Leave();
    EXPECT_EQ(RowInFile(kThresholds), (support::Rows{{"VEXA revision thresholds", "Triggers", "28", "3"}}));
}

TEST_F(SummaryTopics, ClickOnARow_TracesAndSavesTheOneThatIsLeft)
{
    ShowSample();
    TypeBody(" Typed.");
    Mark();
    ClickRow(1);
    EXPECT_THAT(NewLines(), ElementsAre("   lstTopics_Click Rationale for the selection"));
    EXPECT_THAT(BodyInFile(291), HasSubstr(" Typed."));
}

TEST_F(SummaryTopics, AddTopic_WithDefaultBodyAndAnEmptyName)
{
    ShowSample();
    Mark();
    Press("cmdNewTopic");
    EXPECT_THAT(NewLines(), ElementsAre("   cmdNewTopic_Click", "   lstTopics_Click "));
    EXPECT_EQ(Focused(), "txtHeading");
    EXPECT_TRUE(Button("cmdDelete").isEnabled());
    EXPECT_EQ(RowInFile(LastKey()), (support::Rows{{"", "NULL", "28", "7"}}));
    Keys("Smoke");
    EXPECT_EQ(Rows().back(), "Smoke");
    TypeBody("Valley smoke.");
    const Long added = LastKey();
    Leave();
    EXPECT_EQ(RowInFile(added), (support::Rows{{"", "Smoke", "28", "7"}}));
    EXPECT_THAT(BodyInFile(added), HasSubstr("Valley smoke."));
    ComeBack();
    EXPECT_EQ(Rows().back(), "Smoke");
}

TEST_F(SummaryTopics, AddTopic_SavesTheEarlierOne)
{
    ShowSample();
    TypeBody(" Typed.");
    Press("cmdNewTopic");
    EXPECT_THAT(BodyInFile(291), HasSubstr(" Typed."));
}

TEST_F(SummaryTopics, TwoNewTopics_TheirOwnKeysAndTheFirstIsSaved)
{
    ShowSample();
    Press("cmdNewTopic");
    Keys("One");
    const Long first = LastKey();
    Press("cmdNewTopic");
    EXPECT_EQ(LastKey(), first + 1);
    EXPECT_EQ(RowInFile(first), (support::Rows{{"", "One", "28", "7"}}));
}

TEST_F(SummaryTopics, NewTopicDeletedAtOnce_IsUnchangedAndGone)
{
    ShowSample();
    Press("cmdNewTopic");
    const Long added = LastKey();
    Press("cmdDelete");
    Leave();
    EXPECT_THAT(RowInFile(added), SizeIs(0));
}

TEST_F(SummaryTopics, AddedTopic_CanBeDeleted)
{
    ShowSample();
    Press("cmdNewTopic");
    Keys("Smoke");
    const Long added = LastKey();
    Leave();
    ComeBack();
    ClickRow(6);
    Press("cmdDelete");
    EXPECT_EQ(Topics().ListCount(), 6);
    EXPECT_EQ(Topics().ListIndex(), 0);
    EXPECT_FALSE(Button("cmdDelete").isEnabled());
    EXPECT_THAT(RowInFile(added), SizeIs(0));
}

TEST_F(SummaryTopics, DeleteWhileChanged_ComesBackOutsideEveryList)
{
    ShowSample();
    ClickRow(2);
    TypeBody(" Typed just now.");
    Press("cmdDelete");
    EXPECT_EQ(RowInFile(kThresholds).at(0).at(2), "NULL");
    EXPECT_THAT(BodyInFile(kThresholds), HasSubstr(" Typed just now."));
    EXPECT_EQ(Topics().ListCount(), 5);
    Leave();
    ComeBack();
    EXPECT_EQ(Topics().ListCount(), 5);
}

TEST_F(SummaryTopics, AddFails_ToldNoRowIsLeftAndTheNextTryTakesTheNextKey)
{
    ShowSample();
    const Long last = g0Items::LastItemKey();
    TypeBody(" Typed.");
    ForbidWrites();
    ExpectReport();
    Press("cmdNewTopic");
    EXPECT_EQ(Topics().ListCount(), 6);
    EXPECT_EQ(Topics().ListIndex(), 0);
    EXPECT_THAT(Body().Text(), EndsWith(" Typed."));
    EXPECT_TRUE(UIMode::NotBusy());
    AllowWrites();
    Press("cmdNewTopic");
    EXPECT_EQ(LastKey(), last + 2);
    EXPECT_THAT(BodyInFile(291), HasSubstr(" Typed."));
}

TEST_F(SummaryTopics, SaveFailsOnLeaving_TheTextStaysAndTheNextLeaveSavesIt)
{
    ShowSample();
    TypeBody(" Typed.");
    ForbidWrites();
    ExpectNotLeft();
    ClickTab(Sections(), 2);
    EXPECT_EQ(gCurrentTab, "tab82");
    EXPECT_THAT(Body().Text(), EndsWith(" Typed."));
    AllowWrites();
    Leave();
    EXPECT_THAT(BodyInFile(291), HasSubstr(" Typed."));
}

TEST_F(SummaryTopics, NewFile_StandardTopicsReadyToWrite)
{
    StartWithNewFile();
    GoTo(7, 2);
    EXPECT_GE(Topics().ListCount(), 2);
    EXPECT_EQ(Topics().ItemData(0), 291);
    EXPECT_EQ(Topics().ItemData(1), 292);
    EXPECT_TRUE(Body().IsEmpty());
    EXPECT_TRUE(Body().isEnabled());
}

TEST_F(SummaryTopics, KeyboardAlone_WriteAddAndFindAgain)
{
    ShowSample();
    TabTo("lstTopics");
    Key(Qt::Key_Down);
    EXPECT_EQ(HeadingText(), "Rationale for the selection");
    TabTo("txtBody");
    Key(Qt::Key_End, Qt::ControlModifier);
    Keys(" Enough.");
    AddByLetter();
    EXPECT_EQ(Focused(), "txtHeading");
    Keys("Smoke");
    const Long added = LastKey();
    Key(Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(gCurrentTab, "tab11");
    EXPECT_THAT(BodyInFile(292), HasSubstr(" Enough."));
    EXPECT_EQ(RowInFile(added).at(0).at(1), "Smoke");
}

} // namespace
