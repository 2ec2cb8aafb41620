#include "session/SessionState.h"
#include "session/UIMode.h"
#include "session/c0Item.h"
#include "session/g0Items.h"
#include "worksheets/TopicTest.h"
#include "worksheets/Worksheet.h"

#include <QAccessible>
#include <QLabel>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextLayout>
#include <QTimer>

#include <gmock/gmock.h>

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::SizeIs;

namespace {

constexpr const char* kNoTopics = "DELETE FROM Items WHERE ParentKey = 22";
constexpr const char* kAllRows = "SELECT * FROM Items ORDER BY ItemKey";
constexpr Long kFirst = 81; // Fuel Conditions
constexpr Long kSecond = 232;

class Situation : public TopicTest
{
protected:
    void ShowSample(const std::string& sql = {})
    {
        StartWithSample("smith-creek", sql);
        GoTo(2, 3);
        ASSERT_EQ(gCurrentTab, "tab23");
    }
    void ComeBack() { GoTo(2, 3); }
    Long LastKey() { return Topics().ItemData(Topics().ListCount() - 1); }
};

// ---- What stands on the worksheet

TEST_F(Situation, Setup_TopicsInTheirOrderTheFirstOneShown)
{
    ShowSample();
    EXPECT_THAT(Rows(),
                ElementsAre("Fuel Conditions",
                            "Topography",
                            "Jurisdiction and Land Ownership in the Fire Area",
                            "Fire Behavior",
                            "Weather Conditions",
                            "Suppression Resource Availability",
                            "Values Nearby",
                            "Actions to Date"));
    EXPECT_EQ(Topics().ListIndex(), 0);
    EXPECT_EQ(HeadingText(), "Fuel Conditions");
    EXPECT_THAT(Body().Text(), ::testing::StartsWith("The fire started in lodgepole pine"));
    EXPECT_THAT(LabelText("lblInstructions"), ::testing::StartsWith("Name the fuel types that carry"));
    EXPECT_TRUE(Button("cmdDelete").isEnabled());
}

TEST_F(Situation, Setup_TracesChecksItsEntryAndEnablesEdit)
{
    StartWithSample();
    ClickTab(Sections(), 2);
    Mark();
    ClickTab(Worksheets(), 3);
    EXPECT_THAT(NewLines(),
                ElementsAre(" Start switch to worksheet 3",
                            "   a3VEXAforms.UpdateCurrentWorksheet tab11",
                            "   a3VEXAforms.UnloadCurrentWorksheet, ID = tab11",
                            "   Unloaded frm11Intro",
                            "   a3VEXAforms.DisplayWorksheet 3",
                            "   frm23Situation.Setup",
                            "   Load frm23Situation",
                            "   frm23Situation.lstTopics_Click Fuel Conditions",
                            " Finished switching worksheets"));
    EXPECT_TRUE(Entry("mnuWorksheet", 3)->isChecked());
    EXPECT_TRUE(Menu("mnuEdit")->isEnabled());
    EXPECT_EQ(Shown().HelpContextID(), 4230);
    EXPECT_TRUE(UIMode::NotBusy());
}

TEST_F(Situation, Words_AreTheGivenOnes)
{
    ShowSample();
    const std::vector<std::string> words = LabelTexts();
    for (const char* word : {"Conditions",
                             "Click on each topic below and fill in narrative on the right.",
                             "Topics",
                             "Heading",
                             "Special instructions for this topic:"})
        EXPECT_THAT(words, Contains(word));
    EXPECT_EQ(Button("cmdSpellcheck").text().toStdString(), "Spellcheck");
    EXPECT_EQ(Button("cmdNewTopic").text().toStdString(), "&Add Topic");
    EXPECT_EQ(Button("cmdDelete").text().toStdString(), "Delete Topic");
}

TEST_F(Situation, ScreenReader_NamesListBoxAndSheet)
{
    ShowSample();
    const auto name = [](QWidget& widget) {
        return QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Name).toStdString();
    };
    EXPECT_EQ(name(Topics()), "Topics");
    EXPECT_EQ(name(Heading()), "Heading");
    EXPECT_EQ(name(Body()), "Narrative");
}

TEST_F(Situation, OnlyLookedAt_LeavesEveryRowAsItWas)
{
    ShowSample();
    const auto before = InFile(kAllRows);
    for (Long row = 0; row < Topics().ListCount(); ++row)
        ClickRow(row);
    Leave();
    EXPECT_EQ(InFile(kAllRows), before);
}

// ---- Choosing a topic

TEST_F(Situation, ClickOnARow_TracesAndShowsThatTopic)
{
    ShowSample();
    Mark();
    ClickRow(3);
    EXPECT_THAT(NewLines(), ElementsAre("   frm23Situation.lstTopics_Click Fire Behavior"));
    EXPECT_EQ(HeadingText(), "Fire Behavior - Current and Forecast");
    EXPECT_THAT(LabelText("lblInstructions"), ::testing::StartsWith("Describe what the fire does now"));
}

TEST_F(Situation, AnotherTopic_SavesTheOneThatIsLeft)
{
    ShowSample();
    TypeBody(" And more.");
    EXPECT_THAT(BodyInFile(kFirst), Not(HasSubstr("And more.")));
    ClickRow(1);
    EXPECT_THAT(BodyInFile(kFirst), HasSubstr("And more."));
}

TEST_F(Situation, Undo_StopsAtTheTopicThatIsShown)
{
    ShowSample();
    const std::string first = Body().Text();
    TypeBody("x");
    ClickRow(1);
    const std::string second = Body().Text();
    Body().setFocus();
    for (int i = 0; i < 5; ++i)
        Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Body().Text(), second);
    ClickRow(0);
    Body().setFocus();
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Body().Text(), first + "x");
}

// ---- Writing

TEST_F(Situation, HeadingTyped_NameHeadingAndRowFollowEachKey)
{
    ShowSample();
    ClickRow(1);
    TypeHeading("La");
    EXPECT_EQ(Rows().at(1), "La");
    Keys("nd");
    EXPECT_EQ(Rows().at(1), "Land");
    EXPECT_EQ(g0Items::GetItem(kSecond)->ItemName(), "Land");
    EXPECT_EQ(g0Items::GetItem(kSecond)->Heading(), "Land");
    Leave();
    EXPECT_EQ(RowInFile(kSecond), (support::Rows{{"Land", "Land", "22", "2"}}));
}

TEST_F(Situation, FilledWhileBusy_IsNoEdit)
{
    ShowSample();
    {
        const UIMode::Busy busy;
        Heading().setText(QStringLiteral("Filled"));
        TypeBody("filled");
    }
    EXPECT_EQ(g0Items::GetItem(kFirst)->Heading(), "Fuel Conditions");
    EXPECT_THAT(g0Items::GetItem(kFirst)->Body(), Not(HasSubstr("filled")));
}

TEST_F(Situation, BodyTyped_StandsInTheItemAtOnceAndEndsInAParagraph)
{
    ShowSample("UPDATE Items SET Body = 'plain' WHERE ItemKey = 81");
    TypeBody(" and rich");
    EXPECT_THAT(g0Items::GetItem(kFirst)->Body(), EndsWith("plain and rich\\par }"));
    Keys("er");
    EXPECT_THAT(g0Items::GetItem(kFirst)->Body(), EndsWith("plain and richer\\par }"));
}

TEST_F(Situation, WorksheetLeftWhileTyping_NothingIsLost)
{
    ShowSample();
    TypeHeading("Fuels");
    TypeBody(" Typed last.");
    Leave();
    EXPECT_EQ(RowInFile(kFirst), (support::Rows{{"Fuels", "Fuels", "22", "1"}}));
    EXPECT_THAT(BodyInFile(kFirst), HasSubstr("Typed last."));
    ComeBack();
    EXPECT_EQ(Rows().at(0), "Fuels");
    EXPECT_THAT(Body().Text(), EndsWith("Typed last."));
}

TEST_F(Situation, BodyReadAfterTheFormHasGone_HoldsWhatWasTyped)
{
    ShowSample();
    TypeBody(" Typed last.");
    const auto topic = g0Items::GetItem(kFirst);
    window.reset();
    EXPECT_THAT(topic->Body(), HasSubstr("Typed last."));
}

TEST_F(Situation, SpellcheckChangesAWord_TheCorrectionIsSaved)
{
    ShowSample("UPDATE Items SET Body = 'The rigde burned.' WHERE ItemKey = 81");
    desktop.ExpectText({"The spelling check is complete."});
    QTimer::singleShot(0, window.get(), [] {
        QTest::mouseClick(
            QApplication::activeModalWidget()->findChild<QPushButton*>(QStringLiteral("cmdChange")),
            Qt::LeftButton);
    });
    Press("cmdSpellcheck");
    EXPECT_EQ(Body().Text(), "The ridge burned.");
    Leave();
    EXPECT_THAT(BodyInFile(kFirst), HasSubstr("The ridge burned."));
}

TEST_F(Situation, WordsMarkedAsWrong_AreNoChange)
{
    ShowSample("UPDATE Items SET Body = 'The rigde burned.' WHERE ItemKey = 81");
    const auto before = InFile(kAllRows);
    for (const Long row : {0, 1, 0}) {
        ClickRow(row);
        ClickInto(*Body().viewport());
        Body().viewport()->grab();
    }
    EXPECT_EQ(Body().document()->firstBlock().layout()->formats().size(), 1);
    Leave();
    EXPECT_EQ(InFile(kAllRows), before);
}

// ---- By keyboard alone, by mouse alone

TEST_F(Situation, KeyboardAlone_AddWriteCorrectDeleteAndFindAgain)
{
    ShowSample();
    TabTo("lstTopics");
    Key(Qt::Key_Down);
    EXPECT_EQ(HeadingText(), "Topography");
    TabTo("txtBody");
    Key(Qt::Key_End, Qt::ControlModifier);
    Keys(" Steep.");
    AddByLetter();
    EXPECT_EQ(Focused(), "txtHeading");
    Keys("Water");
    TabTo("txtBody");
    Keys("Two ponds.");
    const Long added = LastKey();
    TabTo("lstTopics", Qt::Key_Backtab);
    Key(Qt::Key_Home);
    EXPECT_EQ(HeadingText(), "Fuel Conditions");
    TabTo("cmdDelete");
    Key(Qt::Key_Space);
    EXPECT_EQ(Rows().at(0), "Topography");
    Key(Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(gCurrentTab, "tab22");
    EXPECT_THAT(BodyInFile(kSecond), HasSubstr(" Steep."));
    EXPECT_THAT(RowInFile(kFirst), SizeIs(0));
    EXPECT_EQ(RowInFile(added), (support::Rows{{"Water", "Water", "22", "9"}}));
    EXPECT_THAT(BodyInFile(added), HasSubstr("Two ponds."));
    Key(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(Rows().back(), "Water");
}

TEST_F(Situation, MouseAlone_EditDeleteAddAndFindAgain)
{
    ShowSample();
    ClickRow(1);
    ClickInto(*Body().viewport());
    Keys("Steep. ");
    Press("cmdNewTopic");
    ClickInto(Heading());
    Keys("Water");
    ClickInto(*Body().viewport());
    Keys("Two ponds.");
    const Long added = LastKey();
    ClickRow(0);
    Press("cmdDelete");
    Leave();
    EXPECT_THAT(RowInFile(kFirst), SizeIs(0));
    EXPECT_THAT(BodyInFile(kSecond), HasSubstr("Steep. "));
    EXPECT_THAT(BodyInFile(added), HasSubstr("Two ponds."));
    ComeBack();
    EXPECT_EQ(Rows().back(), "Water");
    ClickRow(Topics().ListCount() - 1);
    EXPECT_EQ(Body().Text(), "Two ponds.");
}

TEST_F(Situation, DeleteKeyOnTheList_DeletesNothing)
{
    ShowSample();
    TabTo("lstTopics");
    Key(Qt::Key_Delete);
    Key(Qt::Key_Backspace);
    EXPECT_EQ(Topics().ListCount(), 8);
    EXPECT_THAT(RowInFile(kFirst), SizeIs(1));
}

// ---- Add Topic

TEST_F(Situation, AddTopic_TracesShowsItEmptyAndWaitsForTheHeading)
{
    ShowSample();
    Mark();
    Press("cmdNewTopic");
    EXPECT_THAT(NewLines(), ElementsAre("   cmdNewTopic_Click", "   frm23Situation.lstTopics_Click "));
    EXPECT_EQ(Topics().ListIndex(), 8);
    EXPECT_EQ(HeadingText(), "");
    EXPECT_TRUE(Body().IsEmpty());
    EXPECT_EQ(Focused(), "txtHeading");
    Keys("Access");
    EXPECT_EQ(Rows().back(), "Access");
}

TEST_F(Situation, AddTopic_RowStandsAtOnceWithADefaultBody)
{
    ShowSample();
    Press("cmdNewTopic");
    EXPECT_EQ(RowInFile(LastKey()), (support::Rows{{"", "NULL", "22", "9"}}));
    EXPECT_EQ(BodyInFile(LastKey()), kDefaultBody);
}

TEST_F(Situation, TwoNewTopics_TheirOwnKeysAndTheFirstIsSaved)
{
    ShowSample();
    Press("cmdNewTopic");
    Keys("One");
    TypeBody("First body.");
    const Long first = LastKey();
    Press("cmdNewTopic");
    EXPECT_EQ(LastKey(), first + 1);
    EXPECT_EQ(RowInFile(first), (support::Rows{{"One", "One", "22", "9"}}));
    EXPECT_THAT(BodyInFile(first), HasSubstr("First body."));
    Keys("Two");
    Leave();
    EXPECT_EQ(RowInFile(first + 1), (support::Rows{{"Two", "Two", "22", "10"}}));
}

TEST_F(Situation, AddFails_ToldNoRowIsLeftAndTheNextTryTakesTheNextKey)
{
    ShowSample();
    const Long last = g0Items::LastItemKey();
    ForbidWrites();
    ExpectReport();
    Press("cmdNewTopic");
    EXPECT_EQ(Topics().ListCount(), 8);
    EXPECT_EQ(HeadingText(), "Fuel Conditions");
    EXPECT_TRUE(UIMode::NotBusy());
    AllowWrites();
    Press("cmdNewTopic");
    EXPECT_EQ(Topics().ListCount(), 9);
    EXPECT_EQ(LastKey(), last + 2);
    Keys("Later");
    Leave();
    EXPECT_EQ(RowInFile(last + 2), (support::Rows{{"Later", "Later", "22", "9"}}));
}

TEST_F(Situation, AddFailsOnUnsavedText_TheTextStaysAndTheNextLeaveSavesIt)
{
    ShowSample();
    TypeBody(" Typed.");
    ForbidWrites();
    ExpectReport();
    Press("cmdNewTopic");
    EXPECT_EQ(Topics().ListIndex(), 0);
    EXPECT_THAT(Body().Text(), EndsWith(" Typed."));
    AllowWrites();
    Leave();
    EXPECT_THAT(BodyInFile(kFirst), HasSubstr(" Typed."));
}

// ---- Delete Topic

TEST_F(Situation, DeleteUnchanged_TheRowIsGoneForGood)
{
    ShowSample();
    ClickRow(1);
    Mark();
    Press("cmdDelete");
    EXPECT_THAT(NewLines(), ElementsAre("   frm23Situation.lstTopics_Click Fuel Conditions"));
    EXPECT_EQ(Topics().ListCount(), 7);
    EXPECT_EQ(Topics().ListIndex(), 0);
    Leave();
    EXPECT_THAT(RowInFile(kSecond), SizeIs(0));
}

TEST_F(Situation, Delete_TheNextKeyDeletesNoOther)
{
    ShowSample();
    const Long before = Topics().ListCount();
    auto* button = Find<QPushButton>("cmdDelete");
    button->setFocus();
    QTest::keyClick(button, Qt::Key_Space);
    EXPECT_EQ(Topics().ListCount(), before - 1);
    EXPECT_EQ(Focused(), "lstTopics");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    EXPECT_EQ(Topics().ListCount(), before - 1);
}

TEST_F(Situation, DeleteWhileChanged_ComesBackOutsideEveryList)
{
    ShowSample();
    ClickRow(1);
    TypeHeading("Changed");
    TypeBody(" Typed just now.");
    Press("cmdDelete");
    EXPECT_THAT(Rows(), Not(Contains("Changed")));
    EXPECT_EQ(RowInFile(kSecond), (support::Rows{{"Changed", "Changed", "NULL", "NULL"}}));
    EXPECT_THAT(BodyInFile(kSecond), HasSubstr(" Typed just now."));
    Leave();
    ComeBack();
    EXPECT_THAT(Rows(), Not(Contains("Changed")));
}

TEST_F(Situation, NewTopicDeletedAtOnce_CountsAsChanged)
{
    ShowSample();
    Press("cmdNewTopic");
    const Long added = LastKey();
    Press("cmdDelete");
    EXPECT_EQ(RowInFile(added), (support::Rows{{"", "", "NULL", "NULL"}}));
}

TEST_F(Situation, DeleteFails_TheTopicStaysInTheList)
{
    ShowSample();
    ForbidWrites();
    Press("cmdDelete");
    EXPECT_EQ(Topics().ListCount(), 8);
    EXPECT_EQ(HeadingText(), "Fuel Conditions");
}

// ---- No topics

TEST_F(Situation, NoTopics_SentenceAndNothingToWriteIn)
{
    ShowSample(kNoTopics);
    EXPECT_EQ(Topics().ListCount(), 0);
    EXPECT_TRUE(Find<QLabel>("lblNoTopic")->isVisible());
    EXPECT_THAT(LabelText("lblNoTopic"), ::testing::StartsWith("There are no topics yet."));
    EXPECT_FALSE(Button("cmdDelete").isEnabled());
    EXPECT_FALSE(Button("cmdDelete").toolTip().isEmpty());
    EXPECT_FALSE(Heading().isEnabled());
    EXPECT_FALSE(Heading().toolTip().isEmpty());
    EXPECT_FALSE(Body().isEnabled());
    const auto before = InFile(kAllRows);
    Leave();
    EXPECT_EQ(InFile(kAllRows), before);
}

TEST_F(Situation, NoTopics_AddTopicStillWorks)
{
    ShowSample(kNoTopics);
    Press("cmdNewTopic");
    EXPECT_TRUE(Find<QLabel>("lblNoTopic")->isHidden());
    EXPECT_TRUE(Button("cmdDelete").isEnabled());
    EXPECT_EQ(Focused(), "txtHeading");
    Keys("Only");
    TypeBody("One line.");
    const Long added = LastKey();
    Leave();
    EXPECT_EQ(RowInFile(added), (support::Rows{{"Only", "Only", "22", "1"}}));
    EXPECT_THAT(BodyInFile(added), HasSubstr("One line."));
}

TEST_F(Situation, LastTopicDeletedWhileChanged_ComesBackWhenTheNextIsAdded)
{
    ShowSample("DELETE FROM Items WHERE ParentKey = 22 AND ItemKey <> 81");
    TypeBody(" Typed.");
    Press("cmdDelete");
    EXPECT_THAT(RowInFile(kFirst), SizeIs(0));
    EXPECT_TRUE(Body().IsEmpty());
    EXPECT_FALSE(Body().isEnabled());
    Press("cmdNewTopic");
    EXPECT_EQ(RowInFile(kFirst).at(0).at(2), "NULL");
    EXPECT_THAT(BodyInFile(kFirst), HasSubstr(" Typed."));
}

// ---- A drive that takes no writes

TEST_F(Situation, SaveFailsOnAnotherTopic_TheTextStaysAndTheNextLeaveSavesIt)
{
    ShowSample();
    TypeBody(" Typed.");
    ForbidWrites();
    ExpectReport();
    ClickRow(4);
    EXPECT_EQ(Topics().ListIndex(), 0);
    EXPECT_THAT(Topics().selectedItems(), ElementsAre(Topics().item(0)));
    EXPECT_EQ(HeadingText(), "Fuel Conditions");
    EXPECT_THAT(Body().Text(), EndsWith(" Typed."));
    ExpectNotLeft();
    ClickTab(Worksheets(), 1);
    EXPECT_EQ(gCurrentTab, "tab23");
    EXPECT_THAT(Body().Text(), EndsWith(" Typed."));
    TypeBody(" Still typing.");
    AllowWrites();
    Leave();
    EXPECT_THAT(BodyInFile(kFirst), HasSubstr(" Typed. Still typing."));
}

TEST_F(Situation, SaveFailsOnAnotherTopicByKey_TheListGoesBack)
{
    ShowSample();
    TypeBody(" Typed.");
    ForbidWrites();
    Topics().setFocus();
    ExpectReport();
    Key(Qt::Key_Down);
    EXPECT_EQ(Topics().ListIndex(), 0);
    AllowWrites();
    Key(Qt::Key_Down);
    EXPECT_EQ(HeadingText(), "Topography");
    EXPECT_THAT(BodyInFile(kFirst), HasSubstr(" Typed."));
}

// ---- The instructions

TEST_F(Situation, LongInstructions_ScrolledByKeysWithRoomForTheList)
{
    ShowSample("UPDATE Items SET ItemText = replace(hex(zeroblob(2000)), '00', 'word ') WHERE ItemKey = 81");
    window->resize(800, 600);
    QCoreApplication::processEvents();
    auto* panel = Find<QAbstractScrollArea>("pnlInstructions");
    EXPECT_GE(Topics().height(), 4 * Topics().fontMetrics().lineSpacing());
    EXPECT_LT(panel->height(), 300);
    TabTo("pnlInstructions");
    Key(Qt::Key_PageDown);
    EXPECT_GT(panel->verticalScrollBar()->value(), 0);
    ClickRow(1);
    EXPECT_EQ(panel->verticalScrollBar()->maximum(), 0);
    EXPECT_EQ(panel->focusPolicy(), Qt::NoFocus);
}

TEST_F(Situation, TopicWithoutInstructions_SaysSo)
{
    ShowSample();
    EXPECT_TRUE(Find<QLabel>("lblNoInstructions")->isHidden());
    Press("cmdNewTopic");
    EXPECT_EQ(LabelText("lblInstructions"), "");
    EXPECT_TRUE(Find<QLabel>("lblNoInstructions")->isVisible());
}

} // namespace
