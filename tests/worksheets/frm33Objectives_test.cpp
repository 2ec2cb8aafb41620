#include "model/g41Objectives.h"
#include "platform/widgets/EntryBox.h"
#include "platform/widgets/Grid.h"
#include "platform/widgets/RichTextEdit.h"
#include "session/SessionState.h"
#include "session/UIMode.h"
#include "worksheets/GridHands.h"
#include "worksheets/WindowTest.h"
#include "worksheets/Worksheet.h"

#include <QPushButton>

#include <gmock/gmock.h>

using platform::EntryBox;
using platform::Grid;
using ::testing::Contains;
using ::testing::HasSubstr;

namespace {

class ObjectivesWorksheet : public WindowTest
{
protected:
    void ShowSample(const std::string& sql = {})
    {
        StartWithSample("smith-creek", sql);
        GoTo(3, 3);
        ASSERT_EQ(gCurrentTab, "tab33");
    }
    Grid& Rows() { return *Find<Grid>("Grid1"); }
    void ClickRow(Long row) { GridHands(Rows()).Click(row, 0); }
    EntryBox& Name() { return *Find<EntryBox>("txtName"); }
    platform::RichTextEdit& Body() { return *Find<platform::RichTextEdit>("txtBody"); }
    std::shared_ptr<c41Objective> Object(Long row)
    {
        return Rows().RowObject<std::shared_ptr<c41Objective>>(row);
    }
};

TEST_F(ObjectivesWorksheet, Setup_ACategoryARowInOrder)
{
    ShowSample();
    const auto categories = g41Objectives::GetCategoryCollection();
    ASSERT_EQ(Rows().Rows(), categories.Count() + 1);
    EXPECT_EQ(Rows().Text(0, 0), "Objective");
    Long row = 1;
    for (const auto& category : categories) {
        EXPECT_EQ(Object(row), category);
        EXPECT_EQ(Rows().Text(row, 0), category->ItemName());
        ++row;
    }
    EXPECT_EQ(Rows().Row(), 1);
    EXPECT_EQ(Name().text().toStdString(), Object(1)->ItemName());
    EXPECT_EQ(Body().SaveToMemory(), Object(1)->Description());
}

TEST_F(ObjectivesWorksheet, Setup_FixedTexts)
{
    ShowSample();
    EXPECT_EQ(Title(), "Fire Management Objectives");
    EXPECT_EQ(LabelText("lblInstructions"), "You may fill in a narrative for each objective listed below.");
    EXPECT_EQ(LabelText("lblName"), "Objective Name");
    EXPECT_EQ(Find<QPushButton>("cmdSpellcheck")->text(), QStringLiteral("Spellcheck"));
}

TEST_F(ObjectivesWorksheet, Setup_TracesChecksItsEntryAndEnablesEdit)
{
    ShowSample();
    EXPECT_THAT(Lines(), Contains("   frm33Objectives.Setup"));
    EXPECT_TRUE(Entry("mnuWorksheet", 3)->isChecked());
    EXPECT_TRUE(Menu("mnuEdit")->isEnabled());
    EXPECT_EQ(Shown().HelpContextID(), 4330);
    EXPECT_TRUE(UIMode::NotBusy());
}

TEST_F(ObjectivesWorksheet, NoAddAndNoDelete)
{
    ShowSample();
    EXPECT_EQ(Shown().findChild<QPushButton*>(QStringLiteral("cmdAdd")), nullptr);
    EXPECT_EQ(Shown().findChild<QPushButton*>(QStringLiteral("cmdDelete")), nullptr);
}

TEST_F(ObjectivesWorksheet, Rows_AreNotTinted)
{
    ShowSample();
    QCoreApplication::processEvents();
    const QImage shown = Rows().viewport()->grab().toImage();
    for (Long row = 1; row < Rows().Rows(); ++row) {
        const QRect cell = Rows().visualRect(Rows().model()->index(row - 1, 0));
        EXPECT_NE(shown.pixelColor(cell.right() - 4, cell.center().y()), QColor(192, 255, 192)) << row;
    }
}

TEST_F(ObjectivesWorksheet, Name_TheCellFollowsEachKeyAndTheRowIsSavedWhenLeft)
{
    ShowSample();
    ClickRow(2);
    const std::string key = std::to_string(Object(2)->ItemKey());
    Name().selectAll();
    QTest::keyClicks(&Name(), QStringLiteral("P"));
    EXPECT_EQ(Rows().Text(2, 0), "P");
    QTest::keyClicks(&Name(), QStringLiteral("eople"));
    EXPECT_EQ(Rows().Text(2, 0), "People");
    ClickRow(1);
    EXPECT_EQ(Query("SELECT Name FROM Objectives WHERE Key = " + key).at(0).at(0), "People");
}

TEST_F(ObjectivesWorksheet, Description_IsInTheFileOnLeaving)
{
    ShowSample();
    const std::string key = std::to_string(Object(1)->ItemKey());
    Body().setFocus();
    QTest::keyClicks(&Body(), QStringLiteral("Typed "));
    ClickTab(Sections(), 2);
    EXPECT_THAT(Query("SELECT Explanation FROM Objectives WHERE Key = " + key).at(0).at(0),
                HasSubstr("Typed "));
}

TEST_F(ObjectivesWorksheet, OnlyLookedAt_LeavesEveryRowAsItWas)
{
    const char* kRows = "SELECT * FROM Objectives ORDER BY Key";
    ShowSample();
    const auto before = support::QuerySql(support::BuiltFile("samples/smith-creek.qel"), kRows);
    for (Long row = 1; row < Rows().Rows(); ++row)
        ClickRow(row);
    ClickTab(Worksheets(), 1);
    EXPECT_EQ(Query(kRows), before);
}

TEST_F(ObjectivesWorksheet, FileWithoutCategories_EmptyAndDisabledWithItsReason)
{
    ShowSample("UPDATE Objectives SET ChildKey = 0 WHERE Key = 1");
    EXPECT_EQ(Rows().Rows(), 1);
    EXPECT_FALSE(Name().isEnabled());
    EXPECT_FALSE(Body().isEnabled());
    EXPECT_FALSE(Name().toolTip().isEmpty());
    ClickTab(Worksheets(), 1);
    EXPECT_EQ(gCurrentTab, "tab11");
    EXPECT_EQ(ErrorLog(), "");
}

TEST_F(ObjectivesWorksheet, LeavingTheWorksheetFails_TheTextStaysAndTheNextLeaveSaves)
{
    ShowSample();
    const std::string key = std::to_string(Object(1)->ItemKey());
    Name().selectAll();
    QTest::keyClicks(&Name(), QStringLiteral("Typed"));
    ForbidWrites();
    ExpectNotLeft();
    ClickTab(Worksheets(), 1);
    EXPECT_EQ(gCurrentTab, "tab33");
    EXPECT_EQ(Name().text(), QStringLiteral("Typed"));
    AllowWrites();
    ClickTab(Worksheets(), 1);
    EXPECT_EQ(Query("SELECT Name FROM Objectives WHERE Key = " + key).at(0).at(0), "Typed");
}

TEST_F(ObjectivesWorksheet, Keyboard_ArrowsInGridAndNameLeadFromRowToRow)
{
    ShowSample();
    Rows().setFocus();
    QTest::keyClick(&Rows(), Qt::Key_Down);
    EXPECT_EQ(Rows().Row(), 2);
    EXPECT_TRUE(Rows().hasFocus());
    Name().setFocus();
    QTest::keyClick(&Name(), Qt::Key_Down);
    EXPECT_EQ(Rows().Row(), 3);
    EXPECT_EQ(Name().text().toStdString(), Object(3)->ItemName());
}

} // namespace
