#include "model/c51Alternative.h"
#include "model/g51Alternatives.h"
#include "model/g53Outcomes.h"
#include "platform/base/Texts.h"
#include "platform/widgets/EntryBox.h"
#include "platform/widgets/Grid.h"
#include "platform/widgets/RichTextEdit.h"
#include "session/SessionState.h"
#include "session/UIMode.h"
#include "worksheets/GridHands.h"
#include "worksheets/WindowTest.h"
#include "worksheets/Worksheet.h"

#include <QClipboard>
#include <QLabel>
#include <QPushButton>

#include <gmock/gmock.h>

using platform::EntryBox;
using platform::Grid;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;

namespace {

class OutcomesWorksheet : public WindowTest
{
protected:
    void ShowSample(const std::string& sql = {}, const std::string& name = "smith-creek")
    {
        StartWithSample(name, sql);
        GoTo(4, 3);
        ASSERT_EQ(gCurrentTab, "tab43");
    }
    Grid& Rows() { return *Find<Grid>("grdOutcomes"); }
    void ClickRow(Long row) { GridHands(Rows()).Click(row, 0); }
    EntryBox& Box(const char* name) { return *Find<EntryBox>(name); }
    std::string Text(const char* name) { return Box(name).text().toStdString(); }
    platform::RichTextEdit& Body() { return *Find<platform::RichTextEdit>("txtBody"); }
    std::shared_ptr<c53Outcome> Object(Long row)
    {
        return Rows().RowObject<std::shared_ptr<c53Outcome>>(row);
    }
    Long LastRow() { return Rows().Rows() - 1; }
    void Type(const char* name, const char* text)
    {
        Box(name).setFocus();
        Box(name).selectAll();
        QTest::keyClicks(&Box(name), QString::fromUtf8(text));
    }
    void Paste(const char* name, const char* text)
    {
        QGuiApplication::clipboard()->setText(QString::fromUtf8(text));
        Box(name).setFocus();
        Box(name).selectAll();
        QTest::keyClick(&Box(name), Qt::Key_V, Qt::ControlModifier);
    }
    std::string Focused(const char* name, Qt::Key key)
    {
        Box(name).setFocus();
        QTest::keyClick(&Box(name), key);
        return QApplication::focusWidget()->objectName().toStdString();
    }
    std::string InFile(const std::string& column, Long key)
    {
        return Query("SELECT " + column + " FROM Outcomes WHERE ItemKey = " + std::to_string(key))
            .at(0)
            .at(0);
    }
};

// ---- What is shown

TEST_F(OutcomesWorksheet, Setup_EveryOutcomeWithSizeAndTimes)
{
    ShowSample();
    // A, B with its Fallback, C, and the shared one
    ASSERT_EQ(Rows().Rows(), 6);
    ASSERT_EQ(Rows().Cols(), 5);
    EXPECT_FALSE(Find<QLabel>("lblNone")->isVisible());
    EXPECT_EQ(Rows().Text(0, 0), "Outcomes");
    EXPECT_EQ(Rows().Text(0, 1), "Outcomes");
    EXPECT_EQ(Rows().Text(0, 2), "Acres");
    EXPECT_EQ(Rows().Text(0, 3), "Contain");
    EXPECT_EQ(Rows().Text(0, 4), "Control");
    EXPECT_EQ(Rows().Text(3, 1), "Fallback");
    EXPECT_EQ(Object(5), g53Outcomes::ExtremeOutcome());
    EXPECT_EQ(Rows().Text(5, 0), "Extreme Outcome");
    EXPECT_EQ(Rows().Text(5, 1), "Extreme Outcome");
    EXPECT_TRUE(Rows().Contents().MergeRow(5));
    for (Long row = 1; row <= 5; ++row) {
        EXPECT_EQ(Rows().Value(row, 2), platform::NumberOf(Object(row)->FireSize())) << row;
        EXPECT_EQ(Rows().Value(row, 3), Double(Object(row)->ContainTime())) << row;
        EXPECT_EQ(Rows().Value(row, 4), Double(Object(row)->ControlTime())) << row;
    }
}

TEST_F(OutcomesWorksheet, Setup_FixedTexts)
{
    ShowSample();
    EXPECT_EQ(Title(), "Developing outcomes");
    EXPECT_EQ(Shown().windowTitle(), QStringLiteral("Outcomes"));
    EXPECT_EQ(LabelText("Label1"),
              "The analysis of each alternative requires predicting its outcome.  Because of the "
              "uncertainties involved in predicting fire behavior, a complete analysis will consider more "
              "than one possible outcome.  VEXA Basic supports analysis of a Target outcome for each "
              "alternative as well as an Extreme outcome shared by all alternatives.");
    const std::vector<std::string> labels = LabelTexts();
    EXPECT_THAT(labels,
                ::testing::IsSupersetOf({" Final fire size",
                                         " acres",
                                         " Time to contain",
                                         " days",
                                         " Time to control",
                                         "Describe the outcome"}));
}

TEST_F(OutcomesWorksheet, Setup_TracesChecksItsEntryAndShowsRow1)
{
    ShowSample();
    EXPECT_THAT(Lines(), Contains("   frm43Outcomes.Setup"));
    EXPECT_THAT(Lines(), Contains("   ShowOutcome").Times(1));
    EXPECT_TRUE(Entry("mnuWorksheet", 3)->isChecked());
    EXPECT_EQ(Shown().HelpContextID(), 4430);
    EXPECT_EQ(Rows().Row(), 1);
    EXPECT_EQ(Text("txtSize"), Object(1)->FireSize());
    EXPECT_EQ(Text("txtContain"), std::to_string(Object(1)->ContainTime()));
    EXPECT_EQ(Text("txtControl"), std::to_string(Object(1)->ControlTime()));
    EXPECT_EQ(Body().SaveToMemory(), Object(1)->Description());
    EXPECT_TRUE(UIMode::NotBusy());
}

TEST_F(OutcomesWorksheet, Fallback_ItsButtonStaysHidden)
{
    ShowSample();
    for (Long row = 1; row <= LastRow(); ++row) {
        ClickRow(row);
        EXPECT_FALSE(Find<QPushButton>("cmdFallback")->isVisible()) << row;
    }
}

TEST_F(OutcomesWorksheet, TimesOf0_ShowAs0)
{
    ShowSample("UPDATE Outcomes SET ContainTime = 0, ControlTime = 0");
    EXPECT_EQ(Text("txtContain"), "0");
    EXPECT_EQ(Text("txtControl"), "0");
    EXPECT_EQ(Rows().Text(1, 4), " 0 ");
}

TEST_F(OutcomesWorksheet, NoAlternatives_TheExtremeOutcomeAlone)
{
    StartWithNewFile();
    GoTo(4, 3);
    ASSERT_EQ(Rows().Rows(), 2);
    EXPECT_TRUE(Find<QLabel>("lblNone")->isVisible());
    EXPECT_EQ(Object(1), g53Outcomes::ExtremeOutcome());
    Type("txtSize", "500");
    EXPECT_EQ(g53Outcomes::ExtremeOutcome()->FireSize(), "500");
}

TEST_F(OutcomesWorksheet, EnteringARow_ShowsItsOutcome)
{
    ShowSample();
    Mark();
    ClickRow(3);
    EXPECT_EQ(Text("txtSize"), Object(3)->FireSize());
    EXPECT_EQ(Body().SaveToMemory(), Object(3)->Description());
    EXPECT_THAT(NewLines(), ElementsAre("   frm43Outcomes.SaveChanges", "   ShowOutcome"));
}

TEST_F(OutcomesWorksheet, OnlyLookedAt_LeavesEveryRowAsItWas)
{
    const char* kRows = "SELECT * FROM Outcomes ORDER BY ItemKey";
    ShowSample();
    const auto before = support::QuerySql(support::BuiltFile("samples/smith-creek.qel"), kRows);
    for (Long row = 1; row <= LastRow(); ++row)
        ClickRow(row);
    ClickTab(Worksheets(), 1);
    EXPECT_EQ(Query(kRows), before);
}

// ---- Sizes

TEST_F(OutcomesWorksheet, Size_ReachesTheOutcomeAndTheGridAtEachKey)
{
    ShowSample();
    Type("txtSize", "1");
    EXPECT_EQ(Object(1)->FireSize(), "1");
    EXPECT_EQ(Rows().Text(1, 2), "1");
    QTest::keyClicks(&Box("txtSize"), QStringLiteral("2000"));
    EXPECT_EQ(Object(1)->FireSize(), "12000");
    // Not in the format of the other rows: the outcome's text as it is.
    EXPECT_EQ(Rows().Text(1, 2), "12000");
}

TEST_F(OutcomesWorksheet, Size_TakesCommasAndIsNumericWithThem)
{
    ShowSample();
    Type("txtSize", "10,000");
    EXPECT_EQ(Text("txtSize"), "10,000");
    EXPECT_EQ(Object(1)->FireSize(), "10000");
    Type("txtSize", "1,,2");
    EXPECT_EQ(Text("txtSize"), "1,,2");
    EXPECT_EQ(Object(1)->FireSize(), "0");
    EXPECT_EQ(Rows().Text(1, 2), "0");
    QTest::keyClick(&Box("txtSize"), Qt::Key_Backspace);
    EXPECT_EQ(Object(1)->FireSize(), "0");
    QTest::keyClick(&Box("txtSize"), Qt::Key_Backspace);
    QTest::keyClick(&Box("txtSize"), Qt::Key_Backspace);
    EXPECT_EQ(Object(1)->FireSize(), "1");
}

TEST_F(OutcomesWorksheet, Size_OtherKeysAreDropped)
{
    ShowSample();
    Type("txtSize", "1a. -+/5:;x$e 0");
    EXPECT_EQ(Text("txtSize"), "150");
}

TEST_F(OutcomesWorksheet, SizeCleared_Is0)
{
    ShowSample();
    Box("txtSize").setFocus();
    QTest::keyClick(&Box("txtSize"), Qt::Key_Delete);
    EXPECT_EQ(Text("txtSize"), "");
    EXPECT_EQ(Object(1)->FireSize(), "0");
    EXPECT_EQ(Rows().Text(1, 2), "0");
}

TEST_F(OutcomesWorksheet, SizePasted_WhatIsNoSizeCountsAs0)
{
    ShowSample();
    const std::vector<std::pair<const char*, const char*>> cases = {
        {"12.5", "12.5"},
        {"$1,200", "1200"},
        {"-5", "0"},
        {"-0", "0"},
        {"1e3", "1000"},
        {"1e39", "0"},
        {"1e999", "0"},
        {"acres", "0"},
        {" 7 ", "7"},
        {"3.4e38", "340000000000000000000000000000000000000"}};
    for (const auto& [text, expected] : cases) {
        Paste("txtSize", text);
        EXPECT_EQ(Text("txtSize"), text);
        EXPECT_EQ(Object(1)->FireSize(), expected) << text;
    }
}

// ---- Times

TEST_F(OutcomesWorksheet, Times_ReachTheOutcomeAndTheGridAtEachKey)
{
    ShowSample();
    Type("txtContain", "12");
    EXPECT_EQ(Object(1)->ContainTime(), 12);
    EXPECT_EQ(Rows().Text(1, 3), "12");
    Type("txtControl", "30");
    EXPECT_EQ(Object(1)->ControlTime(), 30);
    EXPECT_EQ(Rows().Text(1, 4), "30");
}

TEST_F(OutcomesWorksheet, Times_TakeDigitsOnly)
{
    ShowSample();
    for (const char* name : {"txtContain", "txtControl"}) {
        Type(name, "1,2.-a 3");
        EXPECT_EQ(Text(name), "123") << name;
    }
}

TEST_F(OutcomesWorksheet, TimesPasted_TheirNumberAtTheStartCounts)
{
    ShowSample();
    const std::vector<std::pair<const char*, Long>> cases = {
        {"12.5", 12}, {"13.5", 14}, {"3 days", 3}, {"soon", 0}, {"", 0}, {"99999999999", 0}};
    for (const auto& [text, expected] : cases) {
        Type("txtContain", "7");
        Paste("txtContain", *text == '\0' ? "x" : text);
        EXPECT_EQ(Object(1)->ContainTime(), expected) << text;
        EXPECT_EQ(Rows().Text(1, 3), std::to_string(expected)) << text;
    }
}

TEST_F(OutcomesWorksheet, TimesOfTheExtremeOutcome_AreItsOwn)
{
    ShowSample();
    ClickRow(LastRow());
    Type("txtControl", "90");
    EXPECT_EQ(g53Outcomes::ExtremeOutcome()->ControlTime(), 90);
    EXPECT_EQ(Rows().Text(LastRow(), 4), "90");
    EXPECT_EQ(Rows().Text(LastRow(), 0), "Extreme Outcome");
}

// ---- Keys

TEST_F(OutcomesWorksheet, DownAndEnter_LeadOnUpLeadsBack)
{
    ShowSample();
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Return, Qt::Key_Enter}) {
        EXPECT_EQ(Focused("txtSize", key), "txtContain") << key;
        EXPECT_EQ(Focused("txtContain", key), "txtControl") << key;
        EXPECT_EQ(Focused("txtControl", key), "txtControl") << key;
    }
    EXPECT_EQ(Focused("txtControl", Qt::Key_Up), "txtContain");
    EXPECT_EQ(Focused("txtContain", Qt::Key_Up), "txtSize");
    EXPECT_EQ(Focused("txtSize", Qt::Key_Up), "txtSize");
}

TEST_F(OutcomesWorksheet, EnteringABox_SelectsTheWhole)
{
    ShowSample();
    for (const char* name : {"txtSize", "txtContain", "txtControl"}) {
        Box(name).setFocus();
        EXPECT_EQ(Box(name).selectedText(), Box(name).text()) << name;
    }
    EXPECT_EQ(Focused("txtSize", Qt::Key_Down), "txtContain");
    QTest::keyClicks(&Box("txtContain"), QStringLiteral("4"));
    EXPECT_EQ(Text("txtContain"), "4");
}

// ---- Saving

TEST_F(OutcomesWorksheet, AnotherRow_SavesTheOneThatWasShown)
{
    ShowSample();
    const Long key = Object(1)->ItemKey();
    Type("txtSize", "4,321");
    Type("txtControl", "77");
    Body().setFocus();
    QTest::keyClicks(&Body(), QStringLiteral("Described "));
    ClickRow(2);
    EXPECT_EQ(InFile("FireSize", key), "4321.0");
    EXPECT_EQ(InFile("ControlTime", key), "77");
    EXPECT_THAT(InFile("Description", key), HasSubstr("Described "));
    EXPECT_THAT(InFile("Description", key), EndsWith("\\par }"));
}

TEST_F(OutcomesWorksheet, LeavingByTabMenuAndClose_Saves)
{
    ShowSample();
    const Long key = Object(1)->ItemKey();
    Type("txtSize", "11");
    ClickTab(Worksheets(), 4);
    ClickTab(Worksheets(), 3);
    EXPECT_EQ(Text("txtSize"), "11");
    Type("txtSize", "12");
    Pick("mnuSection", 2);
    GoTo(4, 3);
    EXPECT_EQ(Text("txtSize"), "12");
    Type("txtSize", "13");
    EXPECT_TRUE(window->close());
    EXPECT_EQ(InFile("FireSize", key), "13.0");
}

TEST_F(OutcomesWorksheet, SaveAs_TakesWhatWasTypedAlong)
{
    ShowSample();
    const std::string key = std::to_string(Object(1)->ItemKey());
    Type("txtContain", "19");
    const std::string copy = folder.File("Copy.qel");
    desktop.ExpectFile("Save As New VEXA Plus file", copy);
    Pick("mnuFile", 4);
    Close();
    EXPECT_EQ(support::QuerySql(copy, "SELECT ContainTime FROM Outcomes WHERE ItemKey = " + key),
              (support::Rows{{"19"}}));
}

TEST_F(OutcomesWorksheet, AnotherRowFails_RowAndTextStay)
{
    ShowSample();
    const Long key = Object(1)->ItemKey();
    Type("txtSize", "55");
    ForbidWrites();
    ExpectReport();
    ClickRow(4);
    QCoreApplication::processEvents();
    EXPECT_EQ(Rows().Row(), 1);
    EXPECT_EQ(Text("txtSize"), "55");
    AllowWrites();
    ClickRow(4);
    EXPECT_EQ(Rows().Row(), 4);
    EXPECT_EQ(InFile("FireSize", key), "55.0");
}

TEST_F(OutcomesWorksheet, LeavingFails_TheTextStaysAndTheNextLeaveSaves)
{
    ShowSample();
    const Long key = Object(1)->ItemKey();
    Type("txtSize", "55");
    ForbidWrites();
    ExpectNotLeft();
    ClickTab(Worksheets(), 1);
    EXPECT_EQ(gCurrentTab, "tab43");
    EXPECT_EQ(Text("txtSize"), "55");
    AllowWrites();
    ClickTab(Worksheets(), 1);
    EXPECT_EQ(InFile("FireSize", key), "55.0");
}

// ---- Places

TEST_F(OutcomesWorksheet, At800By600_NothingIsCut)
{
    ShowSample({}, "granite-fork-complex");
    window->resize(800, 600);
    QCoreApplication::processEvents();
    for (const char* name :
         {"grdOutcomes", "txtSize", "txtContain", "txtControl", "txtBody", "cmdSpellcheck"}) {
        const auto* control = Find<QWidget>(name);
        const QRect place(control->mapTo(&Shown(), QPoint()), control->size());
        EXPECT_TRUE(Shown().rect().contains(place)) << name;
        EXPECT_GE(control->height(), control->minimumSizeHint().height()) << name;
        EXPECT_GE(control->width(), control->minimumSizeHint().width()) << name;
    }
    EXPECT_LE(Rows().visualRect(Rows().model()->index(0, 4)).right(), Rows().viewport()->width());
    EXPECT_GE(Body().height(), 100);
}

} // namespace
