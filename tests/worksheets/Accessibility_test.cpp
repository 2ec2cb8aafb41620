#include "session/SessionState.h"
#include "worksheets/AccessTree.h"
#include "worksheets/EveryPlace.h"
#include "worksheets/TopicTest.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QMenuBar>

#include <gmock/gmock.h>

namespace {

class Accessibility : public EveryPlace
{
protected:
    static void Check(QWidget& shown, const std::string& place)
    {
        EXPECT_THAT(AccessTree::Complaints(shown), ::testing::IsEmpty()) << place;
    }
};

TEST_F(Accessibility, EveryPlaceOfASample_NoControlWithoutNameAndRole) { VisitAll(Check); }

TEST_F(Accessibility, EveryPlaceOfAnEmptyFile_NoControlWithoutNameAndRole) { VisitEmptyFile(Check); }

// ---- What a screen reader does on the user's word

class Actions : public TopicTest
{
protected:
    QAccessibleInterface& Access(const char* name) { return AccessTree::Of(*Find<QWidget>(name)); }
    static QAccessibleInterface& Cell(QAccessibleInterface& table, int row, int column)
    {
        return *table.tableInterface()->cellAt(row, column);
    }
    static QString Toggle() { return QAccessibleActionInterface::toggleAction(); }
    static QString Press() { return QAccessibleActionInterface::pressAction(); }
};

TEST_F(Actions, Button_DoesItsCommand)
{
    StartWithSample();
    GoTo(2, 3);
    const Long topics = Topics().ListCount();
    EXPECT_TRUE(AccessTree::Do(Access("cmdNewTopic"), Press()));
    EXPECT_TRUE(QTest::qWaitFor([&] { return Topics().ListCount() == topics + 1; })); // the press shows first
}

TEST_F(Actions, CheckBox_Turns)
{
    StartWithSample();
    GoTo(7, 3);
    const auto* box = Find<QCheckBox>("chkSection_3");
    const bool before = box->isChecked();
    EXPECT_TRUE(AccessTree::Do(Access("chkSection_3"), Toggle()));
    EXPECT_NE(box->isChecked(), before);
    EXPECT_EQ(Access("chkSection_3").state().checked, box->isChecked());
}

TEST_F(Actions, Option_IsWrittenToTheFile)
{
    StartWithSample("smith-creek", "UPDATE Outcomes SET CostSource = 1");
    GoTo(5, 5);
    EXPECT_TRUE(AccessTree::Do(Access("optSRUse"), Toggle()));
    EXPECT_TRUE(Access("optSRUse").state().checked);
    GoTo(5, 1);
    EXPECT_EQ(Query("SELECT count(*) FROM Outcomes WHERE CostSource = 2"), (support::Rows{{"1"}}));
}

TEST_F(Actions, TextBox_IsWrittenToTheFile)
{
    StartWithSample();
    GoTo(2, 2);
    EXPECT_TRUE(AccessTree::Enter(Access("txtName"), QStringLiteral("Elk Ridge")));
    EXPECT_EQ(Caption(), "VEXA Basic:  [smith-creek.qel]  Elk Ridge");
    GoTo(2, 1);
    EXPECT_EQ(Query("SELECT Body FROM Items WHERE ItemKey = 11"), (support::Rows{{"Elk Ridge"}}));
}

TEST_F(Actions, Narrative_IsWrittenToTheFile)
{
    StartWithSample();
    GoTo(2, 3);
    EXPECT_TRUE(AccessTree::Enter(Access("txtBody"), QStringLiteral("Steep slopes.")));
    EXPECT_EQ(Access("txtBody").textInterface()->text(0, 13), QStringLiteral("Steep slopes."));
    Leave();
    GoTo(2, 3);
    EXPECT_EQ(Body().Text(), "Steep slopes.");
}

TEST_F(Actions, RowOfAList_IsShown)
{
    StartWithSample();
    GoTo(2, 3);
    const std::string before = HeadingText();
    QAccessibleInterface& row = *Access("lstTopics").child(1);
    EXPECT_EQ(row.text(QAccessible::Name).toStdString(), Topics().List(1));
    EXPECT_EQ(row.role(), QAccessible::ListItem);
    EXPECT_TRUE(AccessTree::Do(row, Toggle())); // it selects
    QCoreApplication::processEvents();
    EXPECT_EQ(Topics().ListIndex(), 1);
    EXPECT_NE(HeadingText(), before);
}

TEST_F(Actions, CellOfARating_IsWrittenAndItsBarSaysSo)
{
    StartWithSample();
    GoTo(5, 3);
    QAccessibleInterface& table = Access("Grid1");
    EXPECT_EQ(table.tableInterface()->columnDescription(0), QStringLiteral("Alternative"));
    Cell(table, 0, 3).setText(QAccessible::Value, QStringLiteral("7.5"));
    EXPECT_EQ(Cell(table, 0, 3).text(QAccessible::Name), QStringLiteral("7.5"));
    EXPECT_EQ(Cell(table, 0, 4).text(QAccessible::Name), QStringLiteral("75 %"));
    GoTo(5, 1);
    EXPECT_EQ(Query("SELECT count(*) FROM Scores WHERE Value = 7.5"), (support::Rows{{"1"}}));
}

TEST_F(Actions, RowOfAGrid_IsShown)
{
    StartWithSample();
    GoTo(3, 3);
    auto* name = Find<QLineEdit>("txtName");
    const QString before = name->text();
    QAccessibleInterface& cell = Cell(Access("Grid1"), 1, 0);
    EXPECT_TRUE(AccessTree::Do(cell, Toggle())); // it selects
    QCoreApplication::processEvents();
    EXPECT_NE(name->text(), before);
    EXPECT_EQ(name->text(), cell.text(QAccessible::Name));
}

TEST_F(Actions, CellThatIsNotEdited_StaysAsItIs)
{
    StartWithSample();
    GoTo(5, 3);
    QAccessibleInterface& table = Access("Grid1");
    const QString before = Cell(table, 0, 0).text(QAccessible::Name);
    Cell(table, 0, 0).setText(QAccessible::Value, QStringLiteral("Other"));
    EXPECT_EQ(Cell(table, 0, 0).text(QAccessible::Name), before);
}

TEST_F(Actions, EntryOfAMenu_GoesToItsWorksheet)
{
    StartWithSample();
    QAccessibleInterface& bar = AccessTree::Of(*window->menuBar());
    QAccessibleInterface& worksheets = *bar.child(2);
    EXPECT_EQ(worksheets.text(QAccessible::Name), QStringLiteral("Worksheet"));
    QAccessibleInterface& entries = AccessTree::Of(*Menu("mnuWorksheet"));
    EXPECT_EQ(entries.child(1)->text(QAccessible::Name), QStringLiteral("2 General Information"));
    EXPECT_EQ(entries.child(1)->role(), QAccessible::MenuItem);
    EXPECT_TRUE(AccessTree::Do(*entries.child(1), Press()));
    EXPECT_EQ(gCurrentTab, "tab22");
}

TEST_F(Actions, ChoiceOfAnAlternative_OpensAndSaysWhatIsChosen)
{
    StartWithSample();
    GoTo(6, 3);
    auto* combo = Find<QComboBox>("cboAlternatives");
    EXPECT_EQ(AccessTree::NameOf(Access("cboAlternatives")), QStringLiteral("1. Select an Alternative"));
    EXPECT_EQ(Access("cboAlternatives").text(QAccessible::Value), combo->currentText());
    EXPECT_TRUE(AccessTree::Do(Access("cboAlternatives"), QAccessibleActionInterface::showMenuAction()));
    EXPECT_TRUE(combo->view()->isVisible());
    combo->hidePopup();
}

TEST_F(Actions, Ruler_IsASliderThatMovesItsMark)
{
    StartWithSample();
    GoTo(2, 3);
    Body().LoadFromMemory({});
    QAccessibleInterface& ruler = Access("TXRuler1");
    EXPECT_EQ(ruler.role(), QAccessible::Slider);
    ASSERT_NE(ruler.valueInterface(), nullptr);
    EXPECT_EQ(ruler.text(QAccessible::Value), QStringLiteral("First line indent 0 in"));
    ruler.valueInterface()->setCurrentValue(0.5);
    EXPECT_EQ(ruler.valueInterface()->currentValue().toDouble(), 0.5);
    EXPECT_EQ(Body().ParagraphLook().indentFirst, 720);
    EXPECT_EQ(ruler.text(QAccessible::Value), QStringLiteral("First line indent 0.5 in"));
}

TEST_F(Actions, DecisionTree_SaysItsFigures)
{
    StartWithSample();
    GoTo(6, 2);
    QAccessibleInterface& picture = Access("picDecisionTree_1");
    EXPECT_EQ(picture.role(), QAccessible::Graphic);
    EXPECT_EQ(picture.text(QAccessible::Name), QStringLiteral("Decision tree 1"));
    const std::string words = picture.text(QAccessible::Description).toStdString();
    for (const char* part :
         {"Expected Objectives Score:", "Expected Cost:  $", "Target Outcome", "Extreme Outcome"})
        EXPECT_THAT(words, ::testing::HasSubstr(part));
}

TEST_F(Actions, MarksOfTestsFromOutside_StayBehindWhatIsSaid)
{
    StartWithSample();
    GoTo(2, 3);
    auto* ruler = Find<QWidget>("TXRuler1");
    ruler->setAccessibleDescription(ruler->accessibleDescription() + QStringLiteral(" #TXRuler1"));
    Access("TXRuler1").valueInterface()->setCurrentValue(1.0);
    EXPECT_TRUE(ruler->accessibleDescription().startsWith(QStringLiteral("First line indent 1 in")));
    EXPECT_TRUE(ruler->accessibleDescription().endsWith(QStringLiteral(" #TXRuler1")));
}

} // namespace
