#include "model/c53Outcome.h"
#include "model/g51Alternatives.h"
#include "platform/widgets/EntryBox.h"
#include "platform/widgets/RichTextEdit.h"
#include "session/SessionState.h"
#include "session/UIMode.h"
#include "session/c0Item.h"
#include "worksheets/AlternativeList.h"
#include "worksheets/WindowTest.h"
#include "worksheets/Worksheet.h"

#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QTest>

#include <gmock/gmock.h>

using platform::EntryBox;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;

namespace {

constexpr const char* kAlternativesInFile =
    "SELECT ItemName FROM Items WHERE ParentKey = 26 ORDER BY ChildIndex, ItemKey";

class Strategies : public WindowTest
{
protected:
    void ShowSample(const std::string& sql = {})
    {
        StartWithSample("smith-creek", sql);
        GoTo(4, 2);
        ASSERT_EQ(gCurrentTab, "tab42");
    }
    void ShowNewFile()
    {
        StartWithNewFile();
        GoTo(4, 2);
    }
    AlternativeList& Alternatives() { return *Find<AlternativeList>("lstAlternatives"); }
    EntryBox& Label() { return *Find<EntryBox>("txtLabel"); }
    EntryBox& Name() { return *Find<EntryBox>("txtName"); }
    platform::RichTextEdit& Body() { return *Find<platform::RichTextEdit>("txtBody"); }
    QWidget& Details() { return *Find<QWidget>("pnlDetails"); }
    std::vector<std::string> Labels()
    {
        std::vector<std::string> labels;
        for (Long row = 0; row < Alternatives().ListCount(); ++row)
            labels.push_back(Alternatives().List(row));
        return labels;
    }
    std::string LastLabel() { return Labels().back(); }
    /// A click with the mouse on a row of the list.
    void ClickRow(Long row)
    {
        const QRect place = Alternatives().visualItemRect(Alternatives().item(row));
        QTest::mouseClick(Alternatives().viewport(), Qt::LeftButton, {}, place.center());
        QCoreApplication::processEvents();
    }
    void Retype(EntryBox& box, const char* text)
    {
        box.setFocus();
        box.selectAll();
        QTest::keyClicks(&box, QString::fromUtf8(text));
    }
    std::shared_ptr<c51Alternative> Alternative(Long row)
    {
        return g51Alternatives::Alternative(Alternatives().ItemData(row));
    }
    void Delete(Long row)
    {
        ClickRow(row);
        ExpectDelete(Alternatives().List(row) + "?", platform::Answer::Yes);
        Press("cmdDelete");
    }
    std::string InFile(const std::string& column, Long key)
    {
        return Query("SELECT " + column + " FROM Items WHERE ItemKey = " + std::to_string(key)).at(0).at(0);
    }
};

// ---- What is shown

TEST_F(Strategies, Setup_TheAlternativesAndTheFirstOne)
{
    ShowSample();
    EXPECT_EQ(Title(), "Strategies");
    ASSERT_EQ(Alternatives().ListCount(), 3);
    for (Long row = 0; row < 3; ++row)
        EXPECT_EQ(Labels().at(static_cast<std::size_t>(row)), Alternative(row)->Label());
    EXPECT_EQ(Alternatives().ListIndex(), 0);
    EXPECT_TRUE(Details().isEnabled());
    EXPECT_EQ(Label().text(), QStringLiteral("A"));
    EXPECT_EQ(Name().text().toStdString(), Alternative(0)->Heading());
    EXPECT_EQ(Body().SaveToMemory(), Alternative(0)->Body());
    EXPECT_TRUE(Name().hasFocus());
    EXPECT_TRUE(UIMode::NotBusy());
}

TEST_F(Strategies, Setup_FixedTexts)
{
    ShowSample();
    EXPECT_EQ(LabelText("lblGuidelines"), "Guidelines for developing alternatives:");
    EXPECT_EQ(
        LabelText("FLabel1"),
        "Consider the following when forming alternatives:\n"
        "- Frequently on large fires a combination of strategies is used on different portions of the "
        "perimeter.\n"
        "- Each Alternative must be safely implementable.\n"
        "- Alternatives should result in significantly different outcomes (size, cost, resource protection "
        "or damage, etc.) to best document trade-offs.\n"
        "- Alternatives that include fire suppression techniques that may be less desirable should be "
        "evaluated, particularly during periods of firefighter shortages.\n"
        "- Alternatives that result in minimal suppression costs must be evaluted, as well as the resultant "
        "resource damage and/or threat to property.\n"
        "- Some Alternatives may only allow for protection of high values at risk until the perimeter "
        "reaches fuel/topographic changes, with resultant large acres burned.\n"
        "- An Alternative may be structured that optimizes the use of natural or man-made barriers.\n"
        "- Some alternatives may aggressively utilize mechanical equipment to minimize fire size and "
        "firefighter exposure.");
    EXPECT_EQ(Find<QPushButton>("cmdAdd")->text(), QStringLiteral("&Add New Alternative"));
    EXPECT_EQ(Find<QPushButton>("cmdDelete")->text(), QStringLiteral("&Delete Alternative"));
    EXPECT_EQ(Find<QPushButton>("cmdSpellcheck")->text(), QStringLiteral("Spellcheck"));
    const std::vector<std::string> labels = LabelTexts();
    EXPECT_THAT(labels, Contains("Alternatives"));
    EXPECT_THAT(labels, Contains("Alternative Label and Name"));
    EXPECT_THAT(labels,
                Contains("Describe the general theme of the  Alternative and what strategies would be used "
                         "to implement it."));
}

TEST_F(Strategies, Setup_TracesChecksItsEntryAndEnablesEdit)
{
    ShowSample();
    EXPECT_THAT(Lines(), Contains("   frm42Alternatives.Setup"));
    EXPECT_THAT(Lines(), Contains("   lstAlternatives_Click " + Labels().at(0)));
    EXPECT_TRUE(Entry("mnuWorksheet", 2)->isChecked());
    EXPECT_TRUE(Menu("mnuEdit")->isEnabled());
    EXPECT_EQ(Shown().HelpContextID(), 4420);
}

TEST_F(Strategies, ClickOnARow_ShowsItWithTheFocusInItsName)
{
    ShowSample();
    Mark();
    ClickRow(1);
    EXPECT_EQ(Label().text(), QStringLiteral("B"));
    EXPECT_EQ(Name().text().toStdString(), Alternative(1)->Heading());
    EXPECT_TRUE(Name().hasFocus());
    EXPECT_EQ(Name().selectedText(), Name().text());
    // The name in this line lacks the number on purpose.
    EXPECT_THAT(NewLines(),
                ElementsAre("   lstAlternatives_Click " + Labels().at(1), "   frmAlternatives.SaveChanges"));
}

TEST_F(Strategies, NoAlternatives_DetailsAreDisabledAndASentenceSaysWhatToDo)
{
    ShowNewFile();
    EXPECT_EQ(Alternatives().ListCount(), 0);
    EXPECT_FALSE(Details().isEnabled());
    EXPECT_FALSE(Find<QPushButton>("cmdDelete")->isEnabled());
    EXPECT_FALSE(Find<QPushButton>("cmdDelete")->toolTip().isEmpty());
    EXPECT_TRUE(Find<QLabel>("lblNone")->isVisible());
    ClickTab(Worksheets(), 1);
    EXPECT_EQ(gCurrentTab, "tab11");
}

TEST_F(Strategies, EnteringTheBoxes_FirstCharacterAndWhole)
{
    ShowSample("UPDATE Items SET ItemName = 'ABC' WHERE ParentKey = 26 AND ChildIndex = 1");
    Label().setFocus();
    EXPECT_EQ(Label().selectedText(), QStringLiteral("A"));
    QTest::keyClick(&Label(), Qt::Key_Tab);
    EXPECT_TRUE(Name().hasFocus());
    EXPECT_EQ(Name().selectedText(), Name().text());
    QTest::keyClick(&Name(), Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_EQ(Label().selectedText(), QStringLiteral("A"));
    Body().setFocus();
    QTest::mouseClick(&Label(), Qt::LeftButton, {}, QPoint(6, Label().height() / 2));
    EXPECT_EQ(Label().selectedText(), QStringLiteral("A"));
}

TEST_F(Strategies, OnlyLookedAt_LeavesEveryRowAsItWas)
{
    const char* kRows = "SELECT * FROM Items ORDER BY ItemKey";
    ShowSample();
    const auto before = support::QuerySql(support::BuiltFile("samples/smith-creek.qel"), kRows);
    for (Long row = 0; row < 3; ++row)
        ClickRow(row);
    ClickTab(Worksheets(), 1);
    EXPECT_EQ(Query(kRows), before);
}

// ---- Typing

TEST_F(Strategies, LabelAndName_TheListFollowsEachKey)
{
    ShowSample();
    ClickRow(1);
    Retype(Name(), "C");
    EXPECT_EQ(Labels().at(1), "B. C");
    QTest::keyClicks(&Name(), QStringLiteral("onfine"));
    EXPECT_EQ(Labels().at(1), "B. Confine");
    Retype(Label(), "X");
    EXPECT_EQ(Labels().at(1), "X. Confine");
    EXPECT_EQ(Alternative(1)->ItemName(), "X");
    EXPECT_EQ(Alternative(1)->Heading(), "Confine");
    Name().clear();
    EXPECT_EQ(Labels().at(1), "X. ");
}

TEST_F(Strategies, AnotherRow_SavesTheOneThatWasShown)
{
    ShowSample();
    Retype(Name(), "Typed");
    Body().setFocus();
    QTest::keyClicks(&Body(), QStringLiteral("Described "));
    const Long key = Alternative(0)->ItemKey();
    ClickRow(2);
    EXPECT_EQ(InFile("Heading", key), "Typed");
    EXPECT_THAT(InFile("Body", key), HasSubstr("Described "));
    EXPECT_THAT(InFile("Body", key), EndsWith("\\par }"));
}

TEST_F(Strategies, Leaving_TheAlternativesAreSavedByTheirStore)
{
    ShowSample();
    Retype(Name(), "Typed");
    const Long key = Alternative(0)->ItemKey();
    Mark();
    ClickTab(Worksheets(), 3);
    EXPECT_THAT(NewLines(), Not(Contains("   frmAlternatives.SaveChanges")));
    EXPECT_EQ(InFile("Heading", key), "Typed");
}

TEST_F(Strategies, ClosingTheWindow_Saves)
{
    ShowSample();
    Retype(Label(), "Q");
    const Long key = Alternative(0)->ItemKey();
    EXPECT_TRUE(window->close());
    EXPECT_EQ(InFile("ItemName", key), "Q");
}

TEST_F(Strategies, SaveAs_TakesTheDescriptionAlong)
{
    ShowSample();
    const Long key = Alternative(0)->ItemKey();
    Body().setFocus();
    QTest::keyClicks(&Body(), QStringLiteral("Described "));
    const std::string copy = folder.File("Copy.qel");
    desktop.ExpectFile("Save As New VEXA Plus file", copy);
    Pick("mnuFile", 4);
    Close();
    EXPECT_THAT(
        support::QuerySql(copy, "SELECT Body FROM Items WHERE ItemKey = " + std::to_string(key)).at(0).at(0),
        HasSubstr("Described "));
}

TEST_F(Strategies, LabelOf300Characters_IsKeptWhole)
{
    ShowSample("UPDATE Items SET ItemName = hex(zeroblob(150)) WHERE ParentKey = 26 AND ChildIndex = 1");
    EXPECT_EQ(Label().text().size(), 300);
    QTest::keyClick(&Label(), Qt::Key_End);
    QTest::keyClicks(&Label(), QStringLiteral("x"));
    EXPECT_EQ(Alternative(0)->ItemName().size(), 301U);
    EXPECT_TRUE(Shown().rect().contains(Details().geometry()));
}

// ---- Adding

TEST_F(Strategies, FirstAlternative_IsA)
{
    ShowNewFile();
    Press("cmdAdd");
    EXPECT_THAT(Labels(), ElementsAre("A. "));
    EXPECT_EQ(Alternatives().ListIndex(), 0);
    EXPECT_TRUE(Details().isEnabled());
    EXPECT_FALSE(Find<QLabel>("lblNone")->isVisible());
    EXPECT_TRUE(Name().hasFocus());
    EXPECT_EQ(Name().text(), QString());
    EXPECT_TRUE(Body().IsEmpty());
    EXPECT_TRUE(UIMode::NotBusy());
    EXPECT_EQ(desktop.pointer, platform::Pointer::Default);
}

TEST_F(Strategies, Add_HasTargetAndNoFallback)
{
    ShowNewFile();
    Press("cmdAdd");
    EXPECT_EQ(Alternative(0)->Outcome(1)->Success(), 100);
    EXPECT_FALSE(Alternative(0)->Outcome(2)->bShow());
    EXPECT_EQ(Alternative(0)->Body(), kDefaultBody);
}

TEST_F(Strategies, Add_LettersInOrder)
{
    ShowNewFile();
    for (int i = 0; i < 4; ++i)
        Press("cmdAdd");
    EXPECT_THAT(Labels(), ElementsAre("A. ", "B. ", "C. ", "D. "));
    EXPECT_THAT(Lines(), Contains("   frm42Alternatives.cmdAdd_Click").Times(4));
}

TEST_F(Strategies, BDeletedFromABC_TheNextIsD)
{
    ShowNewFile();
    for (int i = 0; i < 3; ++i)
        Press("cmdAdd");
    Delete(1);
    EXPECT_THAT(Labels(), ElementsAre("A. ", "C. "));
    Press("cmdAdd");
    EXPECT_THAT(Labels(), ElementsAre("A. ", "C. ", "D. "));
}

struct LetterCase
{
    friend std::ostream& operator<<(std::ostream& out, const LetterCase& letters)
    {
        return out << letters.labels.back() << " -> " << letters.next;
    }

    std::vector<std::string> labels; // of the alternatives in the file
    std::string next;
};

class NextLetter : public Strategies, public ::testing::WithParamInterface<LetterCase>
{
protected:
    static std::string SqlOf(const std::vector<std::string>& labels)
    {
        std::string sql;
        int key = 9000;
        for (const std::string& label : labels) {
            const std::string number = std::to_string(++key);
            sql += "INSERT INTO Items (ItemKey, ItemName, ParentKey, ChildIndex) VALUES (" + number + ", '" +
                   label + "', 26, " + number + ");";
            for (const char* child : {"1", "2"})
                sql += "INSERT INTO Outcomes (ItemKey, ParentKey, ChildIndex) VALUES (" + number + child +
                       ", " + number + ", " + child + ");";
        }
        return sql;
    }
};

TEST_P(NextLetter, FollowsTheLastEntryOrTheCount)
{
    StartWithNewFile(SqlOf(GetParam().labels));
    GoTo(4, 2);
    Press("cmdAdd");
    EXPECT_EQ(Label().text().toStdString(), GetParam().next) << GetParam().labels.back();
}

INSTANTIATE_TEST_SUITE_P(Letters,
                         NextLetter,
                         ::testing::Values(LetterCase{{"Y"}, "Z"},
                                           LetterCase{{"Z"}, "B"},           // 65 + 1
                                           LetterCase{{"A", "B", "9"}, "D"}, // 65 + 3
                                           LetterCase{{"a"}, "b"},
                                           LetterCase{{"y"}, "z"},
                                           LetterCase{{"z"}, "B"},
                                           LetterCase{{"A", "Direct"}, "E"}, // by its first character
                                           LetterCase{{"A", ""}, "C"}, // the entry begins with the point
                                           LetterCase{{"\xC3\x89"}, "B"}));

TEST_F(Strategies, LabelTypedJustNow_DecidesTheNextLetter)
{
    ShowSample();
    ClickRow(2);
    Retype(Label(), "Z");
    Press("cmdAdd");
    EXPECT_EQ(LastLabel(), "D. ");
}

TEST_F(Strategies, Add_SavesTheOneThatWasShown)
{
    ShowSample();
    Retype(Name(), "Before");
    const Long key = Alternative(0)->ItemKey();
    Press("cmdAdd");
    QTest::keyClicks(&Name(), QStringLiteral("After"));
    EXPECT_EQ(LastLabel(), "D. After");
    EXPECT_EQ(InFile("Heading", key), "Before");
}

TEST_F(Strategies, AddThatFails_ListAndTextStayAndItIsTold)
{
    ShowSample();
    const auto before = Labels();
    ForbidWrites();
    ExpectReport();
    Press("cmdAdd");
    EXPECT_EQ(Labels(), before);
    EXPECT_EQ(Alternatives().ListIndex(), 0);
    EXPECT_EQ(Label().text(), QStringLiteral("A"));
    EXPECT_TRUE(UIMode::NotBusy());
    EXPECT_EQ(desktop.pointer, platform::Pointer::Default);
    AllowWrites();
    Press("cmdAdd");
    EXPECT_EQ(LastLabel(), "D. ");
}

TEST_F(Strategies, FortyAlternatives_AllAreReached)
{
    ShowNewFile();
    for (int i = 0; i < 40; ++i)
        Press("cmdAdd");
    ASSERT_EQ(Alternatives().ListCount(), 40);
    EXPECT_EQ(Labels().at(25), "Z. ");
    EXPECT_EQ(Labels().at(26), "[. "); // 65 + 26, as told
    ClickRow(0);
    EXPECT_EQ(Label().text(), QStringLiteral("A"));
    Alternatives().setFocus();
    QTest::keyClick(&Alternatives(), Qt::Key_End);
    EXPECT_EQ(Alternatives().ListIndex(), 39);
    EXPECT_EQ(Query(kAlternativesInFile).size(), 40U);
}

// ---- Deleting

TEST_F(Strategies, Delete_AsksByTheLabelAndNoKeepsIt)
{
    ShowSample();
    const auto before = Labels();
    ExpectDelete(before.at(0) + "?", platform::Answer::No);
    Mark();
    Press("cmdDelete");
    EXPECT_EQ(Labels(), before);
    EXPECT_EQ(NewLines().at(0), "   frm42Alternatives.cmdDelete_Click");
    EXPECT_TRUE(UIMode::NotBusy());
}

TEST_F(Strategies, DeleteTheSelectedAlternative_IsRefused)
{
    ShowSample();
    const auto before = Labels();
    const Long key = g51Alternatives::SelectedAlternativeKey();
    Long row = 0;
    while (Alternatives().ItemData(row) != key)
        ++row;
    ClickRow(row);
    desktop.ExpectText({"Cannot delete selected Alternative"});
    Press("cmdDelete");
    EXPECT_EQ(Labels(), before);
    EXPECT_TRUE(UIMode::NotBusy());
}

TEST_F(Strategies, DeleteOneInTheMiddle_TheOneThatTakesItsPlaceIsShown)
{
    ShowSample("DELETE FROM Properties WHERE Property = 'SelectedAlternativeKey'");
    const Long key = Alternatives().ItemData(1);
    Delete(1);
    EXPECT_EQ(Alternatives().ListCount(), 2);
    EXPECT_EQ(Alternatives().ListIndex(), 1);
    EXPECT_EQ(Label().text(), QStringLiteral("C"));
    EXPECT_TRUE(UIMode::NotBusy());
    const std::string number = std::to_string(key);
    EXPECT_EQ(Query("SELECT * FROM Items WHERE ItemKey = " + number).size(), 0U);
    EXPECT_EQ(Query("SELECT * FROM Outcomes WHERE ParentKey = " + number).size(), 0U);
}

TEST_F(Strategies, DeleteTheLast_TheOneBeforeIsShown)
{
    ShowSample("DELETE FROM Properties WHERE Property = 'SelectedAlternativeKey'");
    Delete(2);
    EXPECT_EQ(Alternatives().ListIndex(), 1);
    EXPECT_EQ(Label().text(), QStringLiteral("B"));
}

TEST_F(Strategies, DeleteTheOnlyOne_ANewOneIsThereAtOnce)
{
    ShowNewFile();
    Press("cmdAdd");
    QTest::keyClicks(&Name(), QStringLiteral("Only"));
    Delete(0);
    EXPECT_THAT(Labels(), ElementsAre("A. "));
    EXPECT_EQ(Name().text(), QString());
    EXPECT_TRUE(Details().isEnabled());
    EXPECT_TRUE(UIMode::NotBusy());
    EXPECT_EQ(desktop.pointer, platform::Pointer::Default);
    ClickTab(Worksheets(), 1);
    EXPECT_EQ(Query(kAlternativesInFile).size(), 1U);
}

TEST_F(Strategies, DescribedAndDeleted_DoesNotComeBack)
{
    ShowSample();
    Press("cmdAdd");
    Body().setFocus();
    QTest::keyClicks(&Body(), QStringLiteral("Dropped"));
    Delete(3);
    ClickTab(Worksheets(), 1);
    EXPECT_EQ(Query(kAlternativesInFile), (support::Rows{{"A"}, {"B"}, {"C"}}));
}

TEST_F(Strategies, DeleteThatFails_ItStaysAndIsTold)
{
    ShowSample("DELETE FROM Properties WHERE Property = 'SelectedAlternativeKey'");
    const auto before = Labels();
    ForbidWrites();
    ExpectDelete(before.at(0) + "?", platform::Answer::Yes);
    ExpectReport();
    Press("cmdDelete");
    EXPECT_EQ(Labels(), before);
    EXPECT_EQ(Alternatives().ListIndex(), 0);
    EXPECT_TRUE(UIMode::NotBusy());
}

// ---- What cannot be saved

TEST_F(Strategies, AnotherRowFails_RowAndTextStayAndTheNextLeaveSaves)
{
    ShowSample();
    Retype(Name(), "Typed");
    const Long key = Alternative(0)->ItemKey();
    ForbidWrites();
    ExpectReport();
    ClickRow(2);
    QCoreApplication::processEvents();
    EXPECT_EQ(Alternatives().ListIndex(), 0);
    EXPECT_EQ(Name().text(), QStringLiteral("Typed"));
    AllowWrites();
    ClickRow(2);
    EXPECT_EQ(Label().text(), QStringLiteral("C"));
    EXPECT_EQ(InFile("Heading", key), "Typed");
}

TEST_F(Strategies, LeavingTheWorksheetFails_TextStaysAndTheNextLeaveSaves)
{
    ShowSample();
    Retype(Name(), "Typed");
    const Long key = Alternative(0)->ItemKey();
    ForbidWrites();
    ExpectNotLeft();
    ClickTab(Sections(), 2);
    EXPECT_EQ(gCurrentTab, "tab42");
    EXPECT_EQ(Name().text(), QStringLiteral("Typed"));
    AllowWrites();
    ClickTab(Sections(), 2);
    EXPECT_EQ(InFile("Heading", key), "Typed");
}

// ---- By keyboard alone

TEST_F(Strategies, Keyboard_ArrowsInTheBoxesLeadFromRowToRow)
{
    ShowSample();
    QTest::keyClick(&Name(), Qt::Key_Down);
    EXPECT_EQ(Label().text(), QStringLiteral("B"));
    QTest::keyClick(&Name(), Qt::Key_Down);
    QTest::keyClick(&Name(), Qt::Key_Down);
    EXPECT_EQ(Label().text(), QStringLiteral("C"));
    Label().setFocus();
    QTest::keyClick(&Label(), Qt::Key_Up);
    EXPECT_EQ(Label().text(), QStringLiteral("B"));
}

TEST_F(Strategies, Keyboard_AddNameDelete)
{
    ShowNewFile();
    QTest::keyClick(window.get(), Qt::Key_A, Qt::AltModifier);
    QTRY_COMPARE(Alternatives().ListCount(), 1);
    EXPECT_TRUE(Name().hasFocus());
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("By keys"));
    ExpectDelete("A. By keys?", platform::Answer::No);
    Mark();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_D, Qt::AltModifier);
    QTRY_VERIFY(!NewLines().empty());
    EXPECT_THAT(Labels(), ElementsAre("A. By keys"));
}

// ---- Places

TEST_F(Strategies, At800By600_NothingIsCut)
{
    ShowSample();
    window->resize(800, 600);
    QCoreApplication::processEvents();
    for (const char* name : {"lstAlternatives",
                             "cmdAdd",
                             "cmdDelete",
                             "pnlGuidelines",
                             "txtLabel",
                             "txtName",
                             "txtBody",
                             "cmdSpellcheck"}) {
        const auto* control = Find<QWidget>(name);
        const QRect place(control->mapTo(&Shown(), QPoint()), control->size());
        EXPECT_TRUE(Shown().rect().contains(place)) << name;
        EXPECT_GE(control->height(), control->minimumSizeHint().height()) << name;
        EXPECT_GE(control->width(), control->minimumSizeHint().width()) << name;
    }
    EXPECT_GE(Alternatives().viewport()->height(),
              4 * Alternatives().visualItemRect(Alternatives().item(0)).height());
    EXPECT_GE(Body().height(), 120);
}

TEST_F(Strategies, Guidelines_ScrollByKeyboardToTheirEnd)
{
    ShowSample();
    window->resize(800, 600);
    QCoreApplication::processEvents();
    auto* scroll = Find<QScrollArea>("scrGuidelines");
    scroll->setFocus();
    for (int i = 0; i < 30; ++i)
        QTest::keyClick(scroll, Qt::Key_PageDown);
    const QWidget* text = scroll->widget();
    EXPECT_LE(text->y() + text->height(), scroll->viewport()->height());
    EXPECT_GE(text->height(), text->heightForWidth(text->width()));
}

} // namespace
