#include "platform/base/Clock.h"
#include "platform/widgets/EntryBox.h"
#include "session/SessionState.h"
#include "session/UIMode.h"
#include "session/g2Situation.h"
#include "worksheets/WindowTest.h"
#include "worksheets/Worksheet.h"

#include <QAccessible>
#include <QLabel>
#include <QTest>

#include <gmock/gmock.h>

using platform::EntryBox;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace {

struct Expected
{
    const char* control;
    const char* name; // as a screen reader says it
    Long item;
    const char* successor;
    Qt::Key also; // leads on as Enter does
    bool selectsWhole;
};

const std::vector<Expected> kBoxes = {
    {"txtVEXA", "VEXA #", 221, "txtName", Qt::Key_Down, true},
    {"txtName", "Fire Name", 11, "txtIncident", Qt::Key_Down, false},
    {"txtIncident", "Incident Number", 52, "txtStartDate", Qt::Key_Down, false},
    {"txtStartDate", "Start Date", 61, "txtStartTime", Qt::Key_Right, false},
    {"txtStartTime", "Start Time", 62, "txtCurrentDate", Qt::Key_Down, true},
    {"txtCurrentDate", "Current Date", 222, "txtCurrentTime", Qt::Key_Right, false},
    {"txtCurrentTime", "Current Time", 223, "txtJurisdiction", Qt::Key_Down, true},
    {"txtJurisdiction", "Jurisdiction(s)", 53, "txtArea", Qt::Key_Down, false},
    {"txtArea", "Geographic Area", 55, "txtUnit", Qt::Key_Down, false},
    {"txtUnit", "Administrative Unit", 54, "txtCode", Qt::Key_Down, false},
    {"txtCode", "Accounting or Management Code", 217, "txtFireSize", Qt::Key_Down, false},
    {"txtFireSize", "Current Size", 57, nullptr, Qt::Key_unknown, false},
};

constexpr const char* kNoDates = "UPDATE Items SET Body = NULL WHERE ItemKey IN (222, 223)";

class General : public WindowTest
{
protected:
    General() { At(7, 42); }
    ~General() override { platform::SetClock({}); }

    /// The clock, on 21 August 2006.
    static void At(int hour, int minute)
    {
        platform::SetClock([=] { return platform::LocalTime{2006, 8, 21, hour, minute, 9}; });
    }
    void ShowSample(const std::string& sql = {})
    {
        StartWithSample("smith-creek", sql);
        GoTo(2, 2);
        ASSERT_EQ(gCurrentTab, "tab22");
    }
    void ShowNewFile()
    {
        StartWithNewFile();
        GoTo(2, 2);
    }
    void Leave() { ClickTab(Worksheets(), 1); }
    void ComeBack() { ClickTab(Worksheets(), 2); }

    EntryBox& Box(const char* name) { return *Find<EntryBox>(name); }
    std::string Text(const char* name) { return Box(name).text().toStdString(); }
    void Type(const char* name, const char* text)
    {
        Enter(name);
        QTest::keyClick(&Box(name), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(&Box(name), QString::fromUtf8(text));
    }
    void Enter(const char* name)
    {
        Box(name).setFocus();
        ASSERT_TRUE(Box(name).hasFocus()) << name;
    }
    /// The box that has the focus after that key in this one.
    std::string Focused(const char* name, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        Enter(name);
        QTest::keyClick(&Box(name), key, modifiers);
        const QWidget* focused = QApplication::focusWidget();
        return focused == nullptr ? "nothing" : focused->objectName().toStdString();
    }
    std::string Body(Long item) { return g2Situation::GetItem(item)->Body(); }
    std::string BodyInFile(Long item)
    {
        return Query("SELECT Body FROM Items WHERE ItemKey = " + std::to_string(item)).at(0).at(0);
    }
};

// ---- What stands in the boxes

TEST_F(General, Setup_EveryBoxHoldsTheBodyOfItsItem)
{
    ShowSample();
    for (const Expected& box : kBoxes) {
        EXPECT_EQ(Text(box.control), Body(box.item)) << box.control;
        EXPECT_FALSE(Text(box.control).empty()) << box.control;
    }
}

TEST_F(General, Setup_TracesChecksItsEntryAndEnablesEdit)
{
    ShowSample();
    EXPECT_EQ(Title(), "General Information");
    EXPECT_THAT(Lines(), Contains(HasSubstr("frm22General.Setup")));
    EXPECT_TRUE(Entry("mnuWorksheet", 2)->isChecked());
    EXPECT_TRUE(Menu("mnuEdit")->isEnabled());
    EXPECT_EQ(Shown().HelpContextID(), 4220);
    EXPECT_TRUE(UIMode::NotBusy());
}

TEST_F(General, OnlyLookedAt_LeavesEveryRowAsItWas)
{
    const char* kRows = "SELECT ItemKey, ItemName, Heading, Body, ItemText FROM Items ORDER BY ItemKey";
    ShowSample();
    const auto before = support::QuerySql(support::BuiltFile("samples/smith-creek.qel"), kRows);
    Leave();
    EXPECT_EQ(Query(kRows), before);
}

TEST_F(General, LongBody_IsKeptWholeWhenOneCharacterIsTyped)
{
    ShowSample("UPDATE Items SET Body = hex(zeroblob(20000)) WHERE ItemKey = 53");
    EXPECT_EQ(Text("txtJurisdiction").size(), 40000U);
    Enter("txtJurisdiction");
    QTest::keyClicks(&Box("txtJurisdiction"), QStringLiteral("x"));
    EXPECT_EQ(Body(53).size(), 40001U);
}

TEST_F(General, LongBody_ShowsItsBeginning)
{
    ShowSample("UPDATE Items SET Body = hex(zeroblob(200)) WHERE ItemKey = 53");
    EXPECT_EQ(Box("txtJurisdiction").cursorPosition(), 0);
}

// ---- Current date and time

TEST_F(General, NewFile_CurrentDateAndTimeAreNow)
{
    ShowNewFile();
    EXPECT_EQ(Text("txtCurrentDate"), "08/21/2006");
    EXPECT_EQ(Text("txtCurrentTime"), "0742");
}

TEST_F(General, NewFile_TheyStayOnLaterVisits)
{
    ShowNewFile();
    Leave();
    At(15, 5);
    ComeBack();
    EXPECT_EQ(Text("txtCurrentTime"), "0742");
    EXPECT_EQ(BodyInFile(222), "08/21/2006");
    EXPECT_EQ(BodyInFile(223), "0742");
}

TEST_F(General, NewFile_OtherBoxesStayEmpty)
{
    ShowNewFile();
    for (const char* name : {"txtVEXA", "txtIncident", "txtStartDate", "txtStartTime", "txtFireSize"})
        EXPECT_EQ(Text(name), "") << name;
}

TEST_F(General, CurrentTimeOfTheFile_IsNotTouched)
{
    ShowSample("UPDATE Items SET Body = '7:15 am' WHERE ItemKey = 223;"
               "UPDATE Items SET Body = '' WHERE ItemKey = 222");
    EXPECT_EQ(Text("txtCurrentDate"), "08/21/2006");
    EXPECT_EQ(Text("txtCurrentTime"), "7:15 am");
}

TEST_F(General, CurrentDateCleared_FreshOneOnTheNextVisit)
{
    ShowSample("UPDATE Items SET Body = '01/02/2003' WHERE ItemKey = 222");
    Enter("txtCurrentDate");
    QTest::keyClick(&Box("txtCurrentDate"), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&Box("txtCurrentDate"), Qt::Key_Delete);
    EXPECT_EQ(Text("txtCurrentDate"), "");
    EXPECT_EQ(Body(222), "");
    Leave();
    ComeBack();
    EXPECT_EQ(Text("txtCurrentDate"), "08/21/2006");
}

TEST_F(General, Midnight_IsFourDigits)
{
    At(0, 3);
    ShowSample(kNoDates);
    EXPECT_EQ(Text("txtCurrentTime"), "0003");
}

// ---- Typing

TEST_F(General, Typing_ReachesEveryItemAtOnceAndTheFileOnLeaving)
{
    ShowSample();
    for (const Expected& box : kBoxes) {
        Type(box.control, box.control);
        EXPECT_EQ(Body(box.item), box.control);
    }
    Leave();
    for (const Expected& box : kBoxes)
        EXPECT_EQ(BodyInFile(box.item), box.control);
}

TEST_F(General, Typing_IsNotInTheFileBeforeTheWorksheetIsLeft)
{
    ShowSample();
    const std::string before = Body(53);
    Type("txtJurisdiction", "Typed");
    EXPECT_EQ(BodyInFile(53), before);
}

TEST_F(General, NothingIsValidated_KeptAsTyped)
{
    ShowSample();
    Type("txtStartDate", "about noon, 13/45/06");
    Type("txtStartTime", "25:99");
    Type("txtCurrentTime", "late");
    Type("txtFireSize", "1,2,3 or so");
    Leave();
    ComeBack();
    EXPECT_EQ(Text("txtStartDate"), "about noon, 13/45/06");
    EXPECT_EQ(Text("txtStartTime"), "25:99");
    EXPECT_EQ(Text("txtCurrentTime"), "late");
    EXPECT_EQ(Text("txtFireSize"), "1,2,3 or so");
}

TEST_F(General, FillingWhileBusy_IsNoEdit)
{
    ShowSample();
    const std::string name = Body(11);
    const std::string caption = Caption();
    {
        const UIMode::Busy busy;
        Box("txtName").setText(QStringLiteral("Filled"));
    }
    EXPECT_EQ(Body(11), name);
    EXPECT_EQ(Caption(), caption);
}

TEST_F(General, Paste_ReachesTheItem)
{
    ShowSample();
    Type("txtUnit", "North Zone");
    QTest::keyClick(&Box("txtUnit"), Qt::Key_A, Qt::ControlModifier);
    Pick("mnuEdit", 3);
    Enter("txtArea");
    QTest::keyClick(&Box("txtArea"), Qt::Key_A, Qt::ControlModifier);
    Pick("mnuEdit", 4);
    EXPECT_EQ(Body(55), "North Zone");
}

// ---- The title bar

TEST_F(General, FireName_TitleFollowsEachKey)
{
    ShowSample();
    Type("txtName", "A");
    EXPECT_EQ(Caption(), "VEXA Basic:  [smith-creek.qel]  A");
    QTest::keyClicks(&Box("txtName"), QStringLiteral("sh"));
    EXPECT_EQ(Caption(), "VEXA Basic:  [smith-creek.qel]  Ash");
    QTest::keyClick(&Box("txtName"), Qt::Key_Backspace);
    EXPECT_EQ(Caption(), "VEXA Basic:  [smith-creek.qel]  As");
}

TEST_F(General, NewFile_TitleChangesFromNewAtTheFirstKey)
{
    Start();
    const std::string made = folder.File("Made.qel");
    desktop.ExpectFile("Create new VEXA Plus file", made);
    Press("cmdNew");
    EXPECT_THAT(Caption(), ::testing::EndsWith("]  New"));
    GoTo(2, 2);
    EXPECT_THAT(Caption(), ::testing::EndsWith("]  New"));
    Enter("txtName");
    QTest::keyClicks(&Box("txtName"), QStringLiteral("B"));
    EXPECT_THAT(Caption(), ::testing::EndsWith("]  B"));
}

TEST_F(General, OtherBoxes_LeaveTheTitle)
{
    ShowSample();
    const std::string caption = Caption();
    for (const Expected& box : kBoxes) {
        if (box.item != 11) Type(box.control, "x");
    }
    EXPECT_EQ(Caption(), caption);
}

// ---- Enter, Down, Right

TEST_F(General, Enter_LeadsOnThroughAllBoxes)
{
    ShowSample();
    for (const Expected& box : kBoxes) {
        const char* expected = box.successor == nullptr ? box.control : box.successor;
        EXPECT_EQ(Focused(box.control, Qt::Key_Return), expected);
        EXPECT_EQ(Focused(box.control, Qt::Key_Enter, Qt::KeypadModifier), expected);
    }
}

TEST_F(General, DownOrRight_LeadsOnWhereItIsTold)
{
    ShowSample();
    for (const Expected& box : kBoxes) {
        for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Right}) {
            const char* expected = key == box.also ? box.successor : box.control;
            EXPECT_EQ(Focused(box.control, key), expected) << box.control << ' ' << key;
        }
    }
}

TEST_F(General, KeyThatLeadsOn_IsSwallowed)
{
    ShowSample();
    for (const Expected& box : kBoxes) {
        if (box.successor == nullptr) continue;
        const std::string own = Text(box.control);
        Enter(box.control);
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
        QApplication::sendEvent(&Box(box.control), &press);
        EXPECT_TRUE(press.isAccepted()) << box.control;
        EXPECT_EQ(Text(box.control), own);
    }
}

TEST_F(General, RightWithShift_SelectsWithinTheDate)
{
    ShowSample("UPDATE Items SET Body = '01/02/2003' WHERE ItemKey = 61");
    Enter("txtStartDate");
    Box("txtStartDate").home(false);
    QTest::keyClick(&Box("txtStartDate"), Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_TRUE(Box("txtStartDate").hasFocus());
    EXPECT_EQ(Box("txtStartDate").selectedText().toStdString(), "0");
}

TEST_F(General, Tab_FollowsTheSameOrder)
{
    ShowSample();
    for (const Expected& box : kBoxes) {
        if (box.successor == nullptr) continue;
        EXPECT_EQ(Focused(box.control, Qt::Key_Tab), box.successor);
    }
}

// ---- Entering

TEST_F(General, Entering_SelectsTheWholeOfThreeBoxes)
{
    ShowSample();
    for (const Expected& box : kBoxes) {
        Enter(box.item == 57 ? "txtName" : "txtFireSize");
        Enter(box.control);
        const std::string selected = Box(box.control).selectedText().toStdString();
        EXPECT_EQ(selected, box.selectsWhole ? Text(box.control) : "") << box.control;
    }
}

TEST_F(General, EnteringByEnter_SelectsTheWholeTime)
{
    ShowSample();
    EXPECT_EQ(Focused("txtStartDate", Qt::Key_Return), "txtStartTime");
    EXPECT_EQ(Box("txtStartTime").selectedText().toStdString(), Body(62));
    QTest::keyClicks(&Box("txtStartTime"), QStringLiteral("0915"));
    EXPECT_EQ(Body(62), "0915");
}

TEST_F(General, EnteringByMouse_SelectsTheWholeAndTheNextClickPutsTheCaret)
{
    ShowSample();
    Enter("txtFireSize");
    EntryBox& box = Box("txtStartTime");
    QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(8, box.height() / 2));
    EXPECT_EQ(box.selectedText().toStdString(), Body(62));
    QTest::qWait(QApplication::doubleClickInterval() + 50);
    QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(8, box.height() / 2));
    EXPECT_EQ(box.selectedText().toStdString(), "");
}

TEST_F(General, BackFromTheMenu_KeepsThePartSelected)
{
    ShowSample();
    Enter("txtStartTime");
    Box("txtStartTime").setSelection(0, 2);
    QFocusEvent back(QEvent::FocusIn, Qt::MenuBarFocusReason);
    QApplication::sendEvent(&Box("txtStartTime"), &back);
    EXPECT_EQ(Box("txtStartTime").selectedText().size(), 2);
}

// ---- Names and places

TEST_F(General, AccessibleNames_AsReadBesideTheBoxes)
{
    ShowSample();
    for (const Expected& box : kBoxes) {
        QAccessibleInterface* control = QAccessible::queryAccessibleInterface(&Box(box.control));
        EXPECT_EQ(control->text(QAccessible::Name).toStdString(), box.name);
        EXPECT_EQ(control->role(), QAccessible::EditableText);
    }
}

TEST_F(General, Labels_AsGiven)
{
    ShowSample();
    std::vector<std::string> labels;
    for (const QLabel* label : Shown().findChildren<QLabel*>()) {
        if (label->objectName().isEmpty()) labels.push_back(label->text().toStdString());
    }
    EXPECT_THAT(labels,
                ::testing::IsSupersetOf({"VEXA #",
                                         "Fire Name",
                                         "Incident Number",
                                         "Start Date / Time",
                                         "Current Date / Time",
                                         "Jurisdiction(s)",
                                         "Geographic Area",
                                         "Administrative Unit",
                                         "Accounting or Management Code",
                                         "Current Size",
                                         " acres"}));
}

TEST_F(General, At800By600_NothingIsCutAndNothingOverlaps)
{
    ShowSample();
    window->resize(800, 600);
    QCoreApplication::processEvents();
    std::vector<QRect> places;
    for (const QWidget* child : Shown().findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        const std::string name = child->objectName().toStdString() + ' ' + child->metaObject()->className();
        EXPECT_TRUE(Shown().rect().contains(child->geometry())) << name;
        EXPECT_GE(child->height(), child->minimumSizeHint().height()) << name;
        EXPECT_GE(child->width(), child->minimumSizeHint().width()) << name;
        for (const QRect& place : places)
            EXPECT_FALSE(place.intersects(child->geometry())) << name;
        places.push_back(child->geometry());
    }
    EXPECT_GE(places.size(), 2 + 12 + 11U);
}

TEST_F(General, Groups_PartedByMoreThanTheirLines)
{
    ShowSample();
    const auto gap = [this](const char* upper, const char* lower) {
        return Box(lower).y() - Box(upper).geometry().bottom() - 1;
    };
    const int within = gap("txtVEXA", "txtName");
    EXPECT_EQ(gap("txtName", "txtIncident"), within);
    EXPECT_EQ(gap("txtIncident", "txtStartDate"), 2 * within);
    EXPECT_EQ(gap("txtCurrentDate", "txtJurisdiction"), 2 * within);
    EXPECT_EQ(gap("txtUnit", "txtCode"), 2 * within);
}

TEST_F(General, LongBoxes_GrowWithTheWindow)
{
    ShowSample();
    window->resize(800, 600);
    QCoreApplication::processEvents();
    const int narrow = Box("txtJurisdiction").width();
    const int date = Box("txtStartDate").width();
    window->resize(1200, 700);
    QCoreApplication::processEvents();
    EXPECT_GT(Box("txtJurisdiction").width(), narrow + 300);
    EXPECT_EQ(Box("txtStartDate").width(), date);
}

TEST_F(General, DateAndTime_OnOneLineAndTheTimeToTheRight)
{
    ShowSample();
    EXPECT_EQ(Box("txtStartDate").y(), Box("txtStartTime").y());
    EXPECT_GT(Box("txtStartTime").x(), Box("txtStartDate").geometry().right());
    EXPECT_LT(Box("txtStartDate").y(), Box("txtCurrentDate").y());
}

} // namespace
