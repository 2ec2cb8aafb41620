#include "model/c51Alternative.h"
#include "model/g42SafetyIssues.h"
#include "model/g51Alternatives.h"
#include "platform/widgets/EntryBox.h"
#include "platform/widgets/Grid.h"
#include "platform/widgets/RichTextEdit.h"
#include "platform/widgets/Theme.h"
#include "session/SessionState.h"
#include "session/UIMode.h"
#include "session/c0Item.h"
#include "worksheets/GridHands.h"
#include "worksheets/WindowTest.h"
#include "worksheets/Worksheet.h"
#include "worksheets/frm32SafetyIssues.h"

#include <QPushButton>
#include <QScrollArea>

#include <gmock/gmock.h>

using platform::EntryBox;
using platform::Grid;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;

namespace {

constexpr const char* kIssuesInFile = "SELECT Key, Name FROM Objectives WHERE ParentKey = 2 ORDER BY Key";

class SafetyIssues : public WindowTest
{
protected:
    void ShowSample(const std::string& sql = {})
    {
        StartWithSample("smith-creek", sql);
        GoTo(3, 2);
        ASSERT_EQ(gCurrentTab, "tab32");
    }
    void ShowNewFile(const std::string& sql = {})
    {
        StartWithNewFile(sql);
        GoTo(3, 2);
    }
    Grid& Rows() { return *Find<Grid>("Grid1"); }
    void ClickRow(Long row) { GridHands(Rows()).Click(row, 0); }
    EntryBox& Name() { return *Find<EntryBox>("txtName"); }
    platform::RichTextEdit& Body() { return *Find<platform::RichTextEdit>("txtBody"); }
    QPushButton& Delete() { return *Find<QPushButton>("cmdDelete"); }
    std::string Cell(Long row) { return Rows().Text(row, 0); }
    std::shared_ptr<c41Objective> Object(Long row)
    {
        return Rows().RowObject<std::shared_ptr<c41Objective>>(row);
    }
    std::vector<std::string> Cells()
    {
        std::vector<std::string> cells;
        for (Long row = 0; row < Rows().Rows(); ++row)
            cells.push_back(Cell(row));
        return cells;
    }
    Long LastRow() { return Rows().Rows() - 1; }
    void Type(const char* text) { QTest::keyClicks(QApplication::focusWidget(), QString::fromUtf8(text)); }
    void Retype(const char* text)
    {
        Name().selectAll();
        QTest::keyClicks(&Name(), QString::fromUtf8(text));
    }
    std::string NameInFile(Long key)
    {
        return Query("SELECT Name FROM Objectives WHERE Key = " + std::to_string(key)).at(0).at(0);
    }
};

// ---- What is shown

TEST_F(SafetyIssues, Setup_TheCategoryAndItsIssuesInOrder)
{
    ShowSample();
    ASSERT_EQ(Rows().Rows(), 6);
    EXPECT_EQ(Cell(0), "Safety Issue");
    EXPECT_EQ(Cell(1), Object(1)->ItemName());
    EXPECT_TRUE(Object(1)->bSafetyRoot());
    Long row = 1;
    for (const auto& issue : g42SafetyIssues::SafetyIssueCollection()) {
        EXPECT_EQ(Object(row), issue);
        EXPECT_EQ(Cell(row), (row == 1 ? "" : "    ") + issue->ItemName());
        ++row;
    }
}

TEST_F(SafetyIssues, Setup_FixedTexts)
{
    ShowSample();
    EXPECT_EQ(Title(), "Safety Issues");
    EXPECT_EQ(LabelText("lblInstructions"),
              "List and describe specific Safety issues.\nTo add an issue click the Add Issue button below, "
              "then fill in the name and description.");
    EXPECT_EQ(LabelText("lblGuidelines"), "Guidelines for describing safety issues:");
    EXPECT_EQ(LabelText("FLabel1"),
              "Do not list issues that are present on every fire.  Emphasize the issues that are "
              "particularly relevant in this area, at this time, under current conditions.");
    EXPECT_EQ(Find<QPushButton>("cmdAdd")->text(), QStringLiteral("&Add Issue"));
    EXPECT_EQ(Delete().text(), QStringLiteral("&Delete Issue"));
    EXPECT_EQ(Find<QPushButton>("cmdSpellcheck")->text(), QStringLiteral("Spellcheck"));
}

TEST_F(SafetyIssues, Setup_TracesChecksItsEntryAndEnablesEdit)
{
    ShowSample();
    EXPECT_THAT(Lines(), Contains("   frm32SafetyIssues.Setup"));
    EXPECT_TRUE(Entry("mnuWorksheet", 2)->isChecked());
    EXPECT_TRUE(Menu("mnuEdit")->isEnabled());
    EXPECT_EQ(Shown().HelpContextID(), 4320);
    EXPECT_TRUE(UIMode::NotBusy());
}

TEST_F(SafetyIssues, Setup_ShowsTheCategoryWhichCannotBeDeleted)
{
    ShowSample();
    EXPECT_EQ(Rows().Row(), 1);
    EXPECT_EQ(LabelText("lblName"), "Category");
    EXPECT_EQ(Name().text().toStdString(), Cell(1));
    EXPECT_FALSE(Delete().isEnabled());
    EXPECT_FALSE(Delete().toolTip().isEmpty());
    EXPECT_TRUE(Name().hasFocus());
}

TEST_F(SafetyIssues, CategoryRow_IsTintedAndTheOthersAreNot)
{
    ShowSample();
    QCoreApplication::processEvents();
    const QImage shown = Rows().viewport()->grab().toImage();
    const auto colour = [&](Long row) {
        const QRect cell = Rows().visualRect(Rows().model()->index(row - 1, 0));
        return shown.pixelColor(cell.right() - 4, cell.center().y());
    };
    EXPECT_EQ(colour(1), QColor(192, 255, 192));
    for (Long row = 2; row < Rows().Rows(); ++row)
        EXPECT_EQ(colour(row), Rows().palette().color(QPalette::Base)) << row;
}

TEST_F(SafetyIssues, EnteringARow_ShowsItWithTheFocusInItsName)
{
    ShowSample();
    ClickRow(3);
    EXPECT_EQ(LabelText("lblName"), "Issue");
    EXPECT_EQ(Name().text().toStdString(), Object(3)->ItemName());
    EXPECT_FALSE(Body().IsEmpty());
    EXPECT_EQ(Body().SaveToMemory(), Object(3)->Description());
    EXPECT_TRUE(Delete().isEnabled());
    EXPECT_EQ(Delete().toolTip(), QString());
    EXPECT_TRUE(Name().hasFocus());
    ClickRow(1);
    EXPECT_EQ(LabelText("lblName"), "Category");
    EXPECT_FALSE(Delete().isEnabled());
    EXPECT_TRUE(Name().hasFocus());
}

TEST_F(SafetyIssues, NewFile_TheCategoryAlone)
{
    ShowNewFile();
    EXPECT_EQ(Rows().Rows(), 2);
    EXPECT_FALSE(Delete().isEnabled());
    EXPECT_TRUE(Name().isEnabled());
}

TEST_F(SafetyIssues, NameOfManyCharacters_ShowsItsBeginning)
{
    ShowSample("UPDATE Objectives SET Name = hex(zeroblob(150)) WHERE Key = 2");
    EXPECT_EQ(Name().text().size(), 300);
    EXPECT_EQ(Name().cursorPosition(), 0);
}

TEST_F(SafetyIssues, OnlyLookedAt_LeavesEveryRowAsItWas)
{
    const char* kRows = "SELECT * FROM Objectives ORDER BY Key";
    ShowSample();
    const auto before = support::QuerySql(support::BuiltFile("samples/smith-creek.qel"), kRows);
    for (Long row = 1; row <= LastRow(); ++row)
        ClickRow(row);
    ClickTab(Worksheets(), 1);
    EXPECT_EQ(Query(kRows), before);
}

// ---- Typing

TEST_F(SafetyIssues, Name_TheCellFollowsEachKey)
{
    ShowSample();
    ClickRow(2);
    Retype("A");
    EXPECT_EQ(Cell(2), "    A");
    Type("sh");
    EXPECT_EQ(Cell(2), "    Ash");
    QTest::keyClick(&Name(), Qt::Key_Backspace);
    EXPECT_EQ(Cell(2), "    As");
    EXPECT_EQ(Object(2)->ItemName(), "As");
}

TEST_F(SafetyIssues, NameOfTheCategory_StandsWithoutBlanks)
{
    ShowSample();
    Retype("Safety");
    EXPECT_EQ(Cell(1), "Safety");
}

TEST_F(SafetyIssues, LeavingTheRow_SavesNameAndDescription)
{
    ShowSample();
    ClickRow(2);
    const Long key = Object(2)->ItemKey();
    Retype("Snags");
    Body().setFocus();
    Type("Typed ");
    ClickRow(3);
    const support::Rows rows =
        Query("SELECT Name, Explanation FROM Objectives WHERE Key = " + std::to_string(key));
    EXPECT_EQ(rows.at(0).at(0), "Snags");
    EXPECT_THAT(rows.at(0).at(1), HasSubstr("Typed "));
    EXPECT_THAT(rows.at(0).at(1), EndsWith("\\par }"));
}

TEST_F(SafetyIssues, LeavingTheWorksheet_Saves)
{
    for (const bool byMenu : {false, true}) {
        if (!byMenu) ShowSample();
        ClickRow(2);
        const Long key = Object(2)->ItemKey();
        Retype(byMenu ? "By menu" : "By tab");
        if (byMenu) {
            Pick("mnuSection", 4);
            EXPECT_EQ(NameInFile(key), "By menu");
        } else {
            ClickTab(Worksheets(), 1);
            ClickTab(Worksheets(), 2);
            EXPECT_EQ(g42SafetyIssues::SafetyIssue(key)->ItemName(), "By tab");
        }
    }
}

TEST_F(SafetyIssues, ClosingTheWindow_Saves)
{
    ShowSample();
    ClickRow(2);
    const Long key = Object(2)->ItemKey();
    Retype("Typed last");
    EXPECT_TRUE(window->close());
    EXPECT_EQ(NameInFile(key), "Typed last");
}

TEST_F(SafetyIssues, SaveAs_TakesWhatWasTypedAlong)
{
    ShowSample();
    ClickRow(2);
    const Long key = Object(2)->ItemKey();
    Retype("Copied");
    const std::string copy = folder.File("Copy.qel");
    desktop.ExpectFile("Save As New VEXA Plus file", copy);
    Pick("mnuFile", 4);
    Close();
    const auto rows =
        support::QuerySql(copy, "SELECT Name FROM Objectives WHERE Key = " + std::to_string(key));
    EXPECT_EQ(rows.at(0).at(0), "Copied");
}

TEST_F(SafetyIssues, FillingWhileBusy_IsNoEdit)
{
    ShowSample();
    const std::string name = Object(1)->ItemName();
    {
        const UIMode::Busy busy;
        Name().setText(QStringLiteral("Filled"));
    }
    EXPECT_EQ(Object(1)->ItemName(), name);
    EXPECT_EQ(Cell(1), name);
}

// ---- Adding

TEST_F(SafetyIssues, Add_LastRowEmptyNameFocusInTheName)
{
    ShowSample();
    ClickRow(2);
    Mark();
    Press("cmdAdd");
    ASSERT_EQ(Rows().Rows(), 7);
    EXPECT_EQ(Rows().Row(), 6);
    EXPECT_EQ(Cell(6), "    ");
    EXPECT_EQ(Name().text(), QString());
    EXPECT_TRUE(Name().hasFocus());
    EXPECT_EQ(LabelText("lblName"), "Issue");
    EXPECT_TRUE(Body().IsEmpty());
    EXPECT_EQ(Object(6)->ParentKey(), 2);
    EXPECT_EQ(Object(6)->Priority(), 10);
    EXPECT_EQ(Object(6)->Description(), kDefaultBody);
    EXPECT_EQ(NewLines().at(0), "   cmdAdd_Click");
    EXPECT_TRUE(UIMode::NotBusy());
}

TEST_F(SafetyIssues, AddFromTheCategory_IsAnIssueToo)
{
    ShowNewFile();
    Press("cmdAdd");
    ASSERT_EQ(Rows().Rows(), 3);
    EXPECT_TRUE(Object(2)->bSafetyIssue());
    EXPECT_TRUE(Delete().isEnabled());
}

TEST_F(SafetyIssues, Add_SavesTheRowThatWasShown)
{
    ShowSample();
    ClickRow(2);
    const Long key = Object(2)->ItemKey();
    Retype("Before");
    Press("cmdAdd");
    Type("New one");
    EXPECT_EQ(Cell(6), "    New one");
    EXPECT_EQ(NameInFile(key), "Before");
}

TEST_F(SafetyIssues, AddedAndNamed_IsInTheFileOnLeaving)
{
    ShowSample();
    Press("cmdAdd");
    Type("Night travel");
    const Long key = Object(6)->ItemKey();
    ClickTab(Sections(), 2);
    EXPECT_EQ(NameInFile(key), "Night travel");
}

TEST_F(SafetyIssues, AddTwice_EachStandsBehindTheOther)
{
    ShowSample();
    Press("cmdAdd");
    Type("One");
    Press("cmdAdd");
    Type("Two");
    ASSERT_EQ(Rows().Rows(), 8);
    EXPECT_EQ(Cell(6), "    One");
    EXPECT_EQ(Cell(7), "    Two");
    EXPECT_NE(Object(6)->ItemKey(), Object(7)->ItemKey());
}

TEST_F(SafetyIssues, AddThatFails_LeavesTheRowsAndIsTold)
{
    ShowSample();
    ClickRow(3);
    const std::vector<std::string> before = Cells();
    ForbidWrites();
    ExpectReport();
    Press("cmdAdd");
    EXPECT_EQ(Cells(), before);
    EXPECT_EQ(Rows().Row(), 3);
    EXPECT_TRUE(UIMode::NotBusy());
    AllowWrites();
    Press("cmdAdd");
    EXPECT_EQ(Rows().Rows(), 7);
}

// ---- Deleting

TEST_F(SafetyIssues, Delete_AsksByTheNameAndNoKeepsTheIssue)
{
    ShowSample();
    ClickRow(2);
    const std::vector<std::string> before = Cells();
    Mark();
    ExpectDelete(Object(2)->ItemName() + "?", platform::Answer::No);
    Press("cmdDelete");
    EXPECT_EQ(Cells(), before);
    EXPECT_EQ(NewLines(), (std::vector<std::string>{"   cmdDelete_Click"}));
}

TEST_F(SafetyIssues, DeleteConfirmed_TheRowThatStandsThereNowIsShown)
{
    ShowSample();
    ClickRow(3);
    const std::string next = Object(4)->ItemName();
    const Long key = Object(3)->ItemKey();
    ExpectDelete(Object(3)->ItemName() + "?", platform::Answer::Yes);
    Press("cmdDelete");
    EXPECT_EQ(Rows().Rows(), 5);
    EXPECT_EQ(Rows().Row(), 3);
    EXPECT_EQ(Name().text().toStdString(), next);
    EXPECT_TRUE(Name().hasFocus());
    EXPECT_TRUE(UIMode::NotBusy());
    EXPECT_EQ(Query("SELECT * FROM Objectives WHERE Key = " + std::to_string(key)).size(), 0U);
}

TEST_F(SafetyIssues, DeleteTheLast_TheOneBeforeIsShown)
{
    ShowSample();
    ClickRow(5);
    ExpectDelete(Object(5)->ItemName() + "?", platform::Answer::Yes);
    Press("cmdDelete");
    EXPECT_EQ(Rows().Row(), 4);
    EXPECT_EQ(Name().text().toStdString(), Object(4)->ItemName());
}

TEST_F(SafetyIssues, DeleteTheOnlyIssue_TheCategoryIsShown)
{
    ShowNewFile();
    Press("cmdAdd");
    ExpectDelete("?", platform::Answer::Yes);
    Press("cmdDelete");
    EXPECT_EQ(Rows().Rows(), 2);
    EXPECT_EQ(LabelText("lblName"), "Category");
    EXPECT_FALSE(Delete().isEnabled());
    EXPECT_TRUE(Name().hasFocus());
}

TEST_F(SafetyIssues, AddedNamedAndDeletedAtOnce_LeavesNoTrace)
{
    ShowSample();
    const auto before = support::QuerySql(support::BuiltFile("samples/smith-creek.qel"), kIssuesInFile);
    Press("cmdAdd");
    Type("Mistake");
    Body().setFocus();
    Type("Typed and dropped");
    ExpectDelete("Mistake?", platform::Answer::Yes);
    Press("cmdDelete");
    EXPECT_EQ(Rows().Rows(), 6);
    ClickTab(Worksheets(), 1);
    EXPECT_EQ(Query(kIssuesInFile), before);
}

TEST_F(SafetyIssues, Deleted_ItsRatingsGoAndTheOthersWeighMore)
{
    ShowSample();
    ClickRow(2);
    const Long key = Object(2)->ItemKey();
    EXPECT_EQ(Object(3)->Weight(), 0.25F);
    ExpectDelete(Object(2)->ItemName() + "?", platform::Answer::Yes);
    Press("cmdDelete");
    EXPECT_EQ(Object(2)->Weight(), platform::ToSingle(1.0 / 3.0));
    EXPECT_EQ(Query("SELECT * FROM Scores WHERE CriterionKey = " + std::to_string(key)).size(), 0U);
}

TEST_F(SafetyIssues, TreeLookedAtBeforeAndAfterADelete_Works)
{
    ShowSample();
    GoTo(6, 2);
    const Single before = g51Alternatives::AlternativeCollection().At(1)->ExpectedSafetyScore();
    GoTo(3, 2);
    ClickRow(2);
    ExpectDelete(Object(2)->ItemName() + "?", platform::Answer::Yes);
    Press("cmdDelete");
    GoTo(6, 2);
    EXPECT_EQ(gCurrentTab, "tab63");
    EXPECT_NE(g51Alternatives::AlternativeCollection().At(1)->ExpectedSafetyScore(), before);
    EXPECT_EQ(ErrorLog(), "");
}

TEST_F(SafetyIssues, DeleteThatFails_TheIssueStaysAndIsTold)
{
    ShowSample();
    ClickRow(2);
    const std::vector<std::string> before = Cells();
    ForbidWrites();
    ExpectDelete(Object(2)->ItemName() + "?", platform::Answer::Yes);
    ExpectReport();
    Press("cmdDelete");
    EXPECT_EQ(Cells(), before);
    EXPECT_TRUE(UIMode::NotBusy());
    AllowWrites();
    Retype("Still there");
    const Long key = Object(2)->ItemKey();
    ClickTab(Worksheets(), 1);
    EXPECT_EQ(NameInFile(key), "Still there");
}

// ---- What cannot be saved

TEST_F(SafetyIssues, LeavingTheRowFails_TheRowAndItsTextStay)
{
    ShowSample();
    ClickRow(2);
    const Long key = Object(2)->ItemKey();
    Retype("Typed");
    ForbidWrites();
    ExpectReport();
    ClickRow(4);
    QCoreApplication::processEvents();
    EXPECT_EQ(Rows().Row(), 2);
    EXPECT_EQ(Name().text(), QStringLiteral("Typed"));
    EXPECT_EQ(Cell(2), "    Typed");
    AllowWrites();
    ClickRow(4);
    EXPECT_EQ(Rows().Row(), 4);
    EXPECT_EQ(NameInFile(key), "Typed");
}

TEST_F(SafetyIssues, LeavingTheWorksheetFails_TheTextStaysAndTheNextLeaveSaves)
{
    ShowSample();
    ClickRow(2);
    const Long key = Object(2)->ItemKey();
    Retype("Typed");
    ForbidWrites();
    ExpectNotLeft();
    ClickTab(Worksheets(), 1);
    EXPECT_EQ(gCurrentTab, "tab32");
    EXPECT_EQ(Name().text(), QStringLiteral("Typed"));
    AllowWrites();
    ClickTab(Worksheets(), 1);
    EXPECT_EQ(gCurrentTab, "tab11");
    EXPECT_EQ(NameInFile(key), "Typed");
}

// ---- By keyboard alone

TEST_F(SafetyIssues, Keyboard_ArrowsInTheNameLeadFromRowToRow)
{
    ShowSample();
    QTest::keyClick(&Name(), Qt::Key_Down);
    EXPECT_EQ(Rows().Row(), 2);
    EXPECT_TRUE(Name().hasFocus());
    QTest::keyClick(&Name(), Qt::Key_Down);
    EXPECT_EQ(Rows().Row(), 3);
    QTest::keyClick(&Name(), Qt::Key_Up);
    QTest::keyClick(&Name(), Qt::Key_Up);
    EXPECT_EQ(Rows().Row(), 1);
    QTest::keyClick(&Name(), Qt::Key_Up);
    EXPECT_EQ(Rows().Row(), 1);
    EXPECT_EQ(Name().text().toStdString(), Cell(1));
}

TEST_F(SafetyIssues, Keyboard_AddNameDescribeDelete)
{
    ShowSample();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_A, Qt::AltModifier);
    QTRY_COMPARE(Rows().Rows(), 7);
    Type("By keys");
    EXPECT_EQ(Cell(6), "    By keys");
    while (QApplication::focusWidget() != &Body())
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    Type("Described");
    EXPECT_THAT(Object(6)->Description(), HasSubstr("Described"));
    ExpectDelete("By keys?", platform::Answer::Yes);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_D, Qt::AltModifier);
    QTRY_COMPARE(Rows().Rows(), 6);
}

TEST_F(SafetyIssues, Keyboard_TabLeadsInTheOrderAsRead)
{
    ShowSample();
    ClickRow(2);
    Rows().setFocus();
    for (const char* expected : {"cmdAdd", "cmdDelete", "txtName"}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget()->objectName(), QString::fromUtf8(expected));
    }
}

// ---- Places

TEST_F(SafetyIssues, At800By600_NothingIsCut)
{
    ShowSample();
    window->resize(800, 600);
    QCoreApplication::processEvents();
    for (const char* name :
         {"Grid1", "cmdAdd", "cmdDelete", "pnlGuidelines", "txtName", "txtBody", "cmdSpellcheck"}) {
        const auto* control = Find<QWidget>(name);
        const QRect place(control->mapTo(&Shown(), QPoint()), control->size());
        EXPECT_TRUE(Shown().rect().contains(place)) << name;
        EXPECT_GE(control->height(), control->minimumSizeHint().height()) << name;
        EXPECT_GE(control->width(), control->minimumSizeHint().width()) << name;
    }
    EXPECT_GE(Body().height(), 120);
    EXPECT_GE(Rows().viewport()->height(), 5 * Rows().rowHeight(0));
}

TEST_F(SafetyIssues, At800By600_TheGuidelinesAreReadWhole)
{
    ShowSample();
    window->resize(800, 600);
    QCoreApplication::processEvents();
    const auto* scroll = Find<QScrollArea>("scrGuidelines");
    EXPECT_GE(scroll->viewport()->height(), scroll->widget()->heightForWidth(scroll->viewport()->width()));
}

} // namespace
