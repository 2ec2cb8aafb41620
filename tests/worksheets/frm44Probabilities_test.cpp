#include "model/c53Outcome.h"
#include "model/g51Alternatives.h"
#include "model/g53Outcomes.h"
#include "platform/widgets/EntryBox.h"
#include "platform/widgets/Theme.h"
#include "session/SessionState.h"
#include "session/UIMode.h"
#include "worksheets/AlternativeList.h"
#include "worksheets/WindowTest.h"
#include "worksheets/Worksheet.h"

#include <QAccessible>
#include <QClipboard>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTest>

#include <cstdlib>
#include <gmock/gmock.h>

using platform::EntryBox;
using ::testing::Contains;
using ::testing::ElementsAre;

namespace {

constexpr Long kA = 0; // without a Fallback
constexpr Long kB = 1; // with one

class ProbabilitiesWorksheet : public WindowTest
{
protected:
    void ShowSample(const std::string& sql = {})
    {
        StartWithSample("smith-creek", sql);
        GoTo(4, 4);
        ASSERT_EQ(gCurrentTab, "tab44");
    }
    void ShowB(const std::string& sql = {})
    {
        ShowSample(sql);
        Alternatives().SetListIndex(kB);
    }
    AlternativeList& Alternatives() { return *Find<AlternativeList>("lstAlternatives"); }
    EntryBox& Success(Long index) { return *Find<EntryBox>(index == 1 ? "txtSuccess1" : "txtSuccess2"); }
    QPlainTextEdit& Rationale(Long index)
    {
        return *Find<QPlainTextEdit>(index == 1 ? "txtRationale1" : "txtRationale2");
    }
    std::string SuccessText(Long index) { return Success(index).text().toStdString(); }
    std::shared_ptr<c53Outcome> Outcome(Long index)
    {
        return g51Alternatives::Alternative(Alternatives().ItemData(Alternatives().ListIndex()))
            ->Outcome(index);
    }
    void Type(Long index, const char* text)
    {
        Success(index).setFocus();
        Success(index).selectAll();
        QTest::keyClicks(&Success(index), QString::fromUtf8(text));
    }
    void Paste(Long index, const char* text)
    {
        QGuiApplication::clipboard()->setText(QString::fromUtf8(text));
        Success(index).setFocus();
        Success(index).selectAll();
        QTest::keyClick(&Success(index), Qt::Key_V, Qt::ControlModifier);
    }
    bool IsShown(const char* name) { return Find<QWidget>(name)->isVisible(); }
    std::string InFile(const std::string& column, Long key)
    {
        return Query("SELECT " + column + " FROM Outcomes WHERE ItemKey = " + std::to_string(key))
            .at(0)
            .at(0);
    }
    void ExpectPanel(const std::string& index, const c53Outcome& outcome)
    {
        EXPECT_EQ(LabelText(("lblSize_" + index).c_str()), outcome.FireSize()) << index;
        EXPECT_EQ(LabelText(("lblContain_" + index).c_str()), outcome.ContainTimeString()) << index;
        EXPECT_EQ(LabelText(("lblControl_" + index).c_str()), outcome.ControlTimeString()) << index;
    }
};

const std::vector<const char*> kOfTheFallback = {"pnlOutcome_2",
                                                 "txtSuccess2",
                                                 "lblFailure_2",
                                                 "lblRationale2",
                                                 "txtRationale2",
                                                 "linFallback_1",
                                                 "linFallback_2",
                                                 "linFallback_3",
                                                 "linFallback_4"};

// ---- What is shown

TEST_F(ProbabilitiesWorksheet, Setup_TheFirstAlternative)
{
    ShowSample();
    EXPECT_EQ(Alternatives().ListCount(), 3);
    EXPECT_EQ(Alternatives().ListIndex(), 0);
    EXPECT_EQ(LabelText("lblAlternative"), Alternatives().List(0));
    EXPECT_EQ(SuccessText(1), "55");
    EXPECT_EQ(LabelText("lblFailure_1"), "45");
    EXPECT_EQ(Rationale(1).toPlainText().toStdString(), Outcome(1)->SuccessRationale());
    EXPECT_FALSE(Outcome(1)->SuccessRationale().empty());
    ExpectPanel("1", *Outcome(1));
    ExpectPanel("3", *g53Outcomes::ExtremeOutcome());
    EXPECT_TRUE(UIMode::NotBusy());
}

TEST_F(ProbabilitiesWorksheet, Setup_FixedTexts)
{
    ShowB();
    const std::vector<std::string> labels = LabelTexts();
    for (const char* text : {"Alternative to describe:",
                             "Strategy Name",
                             "Target Outcome",
                             "Fallback Outcome",
                             "Extreme Outcome",
                             "%  Probability of target outcome",
                             "%  Probability fire will exceed target",
                             "Fallback",
                             "%  Probability of fallback outcome if fire exceeds target",
                             "%  Probability fire will exceed fallback if fire exceeds target"})
        EXPECT_THAT(labels, Contains(text));
    for (const char* text : {" Final fire size", " acres", " Time to contain", " Time to control"})
        EXPECT_THAT(labels, Contains(text).Times(3));
    EXPECT_THAT(labels, Contains(" days").Times(6));
    EXPECT_EQ(LabelText("lblRationale2"), "Discuss probabilities for fallback");
}

TEST_F(ProbabilitiesWorksheet, Setup_TracesAndChecksItsEntry)
{
    ShowSample();
    EXPECT_THAT(Lines(), Contains("   frm44Probabilities.Setup"));
    EXPECT_THAT(Lines(), Contains("   frm44Probabilities.lstAlternatives_Click " + Alternatives().List(0)));
    EXPECT_THAT(Lines(), Contains("   frm44Probabilities.ShowAlternative"));
    EXPECT_TRUE(Entry("mnuWorksheet", 4)->isChecked());
    EXPECT_EQ(Shown().HelpContextID(), 4440);
}

TEST_F(ProbabilitiesWorksheet, NoFallback_ItsPartsAreHidden)
{
    ShowSample();
    for (const char* name : kOfTheFallback)
        EXPECT_FALSE(IsShown(name)) << name;
    EXPECT_EQ(LabelText("lblInstructions"),
              "This box should be used to describe the thought process and rationale used in estimating the "
              "probabilities of success and failure of the strategy.");
    EXPECT_EQ(LabelText("lblDiscuss"), "Discuss probabilities");
}

TEST_F(ProbabilitiesWorksheet, FallbackOfTheFile_ItsPartsAreShown)
{
    ShowB();
    for (const char* name : kOfTheFallback)
        EXPECT_TRUE(IsShown(name)) << name;
    EXPECT_EQ(LabelText("lblInstructions"),
              "These boxes should be used to describe the thought process and rationale used in estimating "
              "the probabilities of success and failure of the primary strategy and also of the fallback "
              "plan.");
    EXPECT_EQ(LabelText("lblDiscuss"), "Discuss probabilities for primary strategy");
    ExpectPanel("2", *Outcome(2));
    EXPECT_EQ(SuccessText(2), std::to_string(Outcome(2)->Success()));
    EXPECT_EQ(LabelText("lblFailure_2"), std::to_string(100 - Outcome(2)->Success()));
    EXPECT_EQ(Rationale(2).toPlainText().toStdString(), Outcome(2)->SuccessRationale());
}

TEST_F(ProbabilitiesWorksheet, FallbackAt0_IsShownToo)
{
    ShowB("UPDATE Outcomes SET Success = 0 WHERE ChildIndex = 2 AND Success > 0");
    EXPECT_TRUE(IsShown("pnlOutcome_2"));
    EXPECT_EQ(SuccessText(2), "0");
    EXPECT_EQ(LabelText("lblFailure_2"), "100");
}

TEST_F(ProbabilitiesWorksheet, BackToOneWithoutFallback_ItsPartsAreHiddenAgain)
{
    ShowB();
    Alternatives().SetListIndex(kA);
    for (const char* name : kOfTheFallback)
        EXPECT_FALSE(IsShown(name)) << name;
    Alternatives().SetListIndex(kB);
    EXPECT_TRUE(IsShown("pnlOutcome_2"));
}

TEST_F(ProbabilitiesWorksheet, ExtremePanel_StandsInTheFallbacksPlaceOrBelowIt)
{
    ShowB();
    QCoreApplication::processEvents();
    const QWidget& fallback = *Find<QWidget>("pnlOutcome_2");
    const QWidget& extreme = *Find<QWidget>("pnlOutcome_3");
    const QPoint place = fallback.pos();
    EXPECT_EQ(extreme.x(), fallback.x());
    EXPECT_EQ(extreme.y(), platform::Theme::Pixels(3660));
    Alternatives().SetListIndex(kA);
    QCoreApplication::processEvents();
    EXPECT_EQ(extreme.pos(), place);
}

TEST_F(ProbabilitiesWorksheet, Lines_LeadToTheMiddleOfEachPanel)
{
    ShowB();
    QCoreApplication::processEvents();
    const auto middle = [this](const char* name) {
        const auto* widget = Find<QWidget>(name);
        return widget->mapTo(&Shown(), widget->rect().center()).y();
    };
    EXPECT_LE(std::abs(middle("linFallback_4") - middle("pnlOutcome_2")), 2);
    EXPECT_LE(std::abs(middle("linOutcome_3") - middle("pnlOutcome_1")), 2);
    EXPECT_LE(std::abs(middle("linOutcome_4") - middle("pnlOutcome_3")), 2);
    Alternatives().SetListIndex(kA);
    QCoreApplication::processEvents();
    EXPECT_LE(std::abs(middle("linOutcome_4") - middle("pnlOutcome_3")), 2);
}

TEST_F(ProbabilitiesWorksheet, TimesOf0_AreEmptyLabels)
{
    ShowSample("UPDATE Outcomes SET ContainTime = 0, ControlTime = 0");
    for (const char* name : {"lblContain_1", "lblControl_1", "lblContain_3", "lblControl_3"})
        EXPECT_EQ(LabelText(name), "") << name;
}

TEST_F(ProbabilitiesWorksheet, NoAlternatives_IsToldAndTheFieldsStayEmpty)
{
    StartWithNewFile();
    ClickTab(Sections(), 4);
    desktop.ExpectText({"No alternatives"});
    ClickTab(Worksheets(), 4);
    EXPECT_EQ(gCurrentTab, "tab44");
    EXPECT_TRUE(Shown().isVisible());
    EXPECT_EQ(LabelText("lblAlternative"), "");
    EXPECT_EQ(SuccessText(1), "");
    EXPECT_EQ(LabelText("lblFailure_1"), "");
    EXPECT_EQ(Rationale(1).toPlainText(), QString());
    EXPECT_FALSE(Success(1).isEnabled());
    EXPECT_TRUE(IsShown("lblNone"));
    for (const char* name : kOfTheFallback)
        EXPECT_FALSE(IsShown(name)) << name;
    ClickTab(Worksheets(), 1);
    EXPECT_EQ(gCurrentTab, "tab11");
}

TEST_F(ProbabilitiesWorksheet, TargetNotShown_ItsPanelIsEmpty)
{
    ShowSample("UPDATE Outcomes SET Success = -1 WHERE ChildIndex = 1 AND ParentKey > 0 AND ParentKey = "
               "(SELECT ItemKey FROM Items WHERE ParentKey = 26 ORDER BY ChildIndex DESC LIMIT 1)");
    Alternatives().SetListIndex(2);
    for (const char* name : {"lblSize_1", "lblContain_1", "lblControl_1"})
        EXPECT_EQ(LabelText(name), "") << name;
}

TEST_F(ProbabilitiesWorksheet, OnlyLookedAt_LeavesEveryRowAsItWas)
{
    const char* kRows = "SELECT * FROM Outcomes ORDER BY ItemKey";
    ShowSample();
    const auto before = support::QuerySql(support::BuiltFile("samples/smith-creek.qel"), kRows);
    for (Long row = 0; row < 3; ++row)
        Alternatives().SetListIndex(row);
    ClickTab(Worksheets(), 1);
    EXPECT_EQ(Query(kRows), before);
}

// ---- Chances

TEST_F(ProbabilitiesWorksheet, Success_FollowsEachKey)
{
    ShowSample();
    Mark();
    Type(1, "6");
    EXPECT_EQ(Outcome(1)->Success(), 6);
    EXPECT_EQ(LabelText("lblFailure_1"), "94");
    QTest::keyClicks(&Success(1), QStringLiteral("0"));
    EXPECT_EQ(Outcome(1)->Success(), 60);
    EXPECT_EQ(LabelText("lblFailure_1"), "40");
    EXPECT_THAT(NewLines(), ElementsAre("   Success1_Set 6", "   Success1_Set 60"));
}

TEST_F(ProbabilitiesWorksheet, Success_Above100Becomes100)
{
    ShowSample();
    Mark();
    Type(1, "150");
    EXPECT_EQ(SuccessText(1), "100");
    EXPECT_EQ(LabelText("lblFailure_1"), "0");
    EXPECT_EQ(Outcome(1)->Success(), 100);
    EXPECT_THAT(NewLines(), ElementsAre("   Success1_Set 1", "   Success1_Set 15", "   Success1_Set 150"));
}

TEST_F(ProbabilitiesWorksheet, SuccessCleared_Shows0SelectedAndTheNextKeyReplacesIt)
{
    ShowSample();
    Success(1).setFocus();
    QTest::keyClick(&Success(1), Qt::Key_Delete);
    EXPECT_EQ(SuccessText(1), "0");
    EXPECT_EQ(Success(1).selectedText(), QStringLiteral("0"));
    EXPECT_EQ(Outcome(1)->Success(), 0);
    EXPECT_EQ(LabelText("lblFailure_1"), "100");
    QTest::keyClicks(&Success(1), QStringLiteral("7"));
    EXPECT_EQ(SuccessText(1), "7");
}

TEST_F(ProbabilitiesWorksheet, Success_OnlyTheNumberAtTheStartCounts)
{
    ShowSample();
    const std::vector<std::tuple<const char*, const char*, Long, const char*>> cases = {
        {"7%", "7", 7, "93"},
        {"abc", "0", 0, "100"},
        {"-5", "0", 0, "100"},
        {"50.5", "50.5", 50, "49.5"},
        {"51.5", "51.5", 52, "48.5"},
        {"1,000", "1", 1, "99"},
        {"1e999", "100", 100, "0"},
        {"-1e999", "0", 0, "100"},
        {"007", "7", 7, "93"},
    };
    for (const auto& [text, shown, stored, failure] : cases) {
        Paste(1, text);
        EXPECT_EQ(SuccessText(1), shown) << text;
        EXPECT_EQ(Outcome(1)->Success(), stored) << text;
        EXPECT_EQ(LabelText("lblFailure_1"), failure) << text;
    }
    EXPECT_TRUE(UIMode::NotBusy());
}

TEST_F(ProbabilitiesWorksheet, SuccessTypedWithAPoint_LosesItAtOnce)
{
    ShowSample();
    Type(1, "5.5");
    EXPECT_EQ(SuccessText(1), "55");
    EXPECT_EQ(Outcome(1)->Success(), 55);
}

TEST_F(ProbabilitiesWorksheet, SuccessTypedInTheMiddle_TheCaretStays)
{
    ShowSample();
    Type(1, "5");
    Success(1).home(false);
    QTest::keyClicks(&Success(1), QStringLiteral("4"));
    EXPECT_EQ(SuccessText(1), "45");
    EXPECT_EQ(Success(1).cursorPosition(), 1);
}

TEST_F(ProbabilitiesWorksheet, SuccessOfTheFallback_IsItsOwn)
{
    ShowB();
    const Long target = Outcome(1)->Success();
    Mark();
    Type(2, "30");
    EXPECT_EQ(Outcome(2)->Success(), 30);
    EXPECT_EQ(LabelText("lblFailure_2"), "70");
    EXPECT_EQ(Outcome(1)->Success(), target);
    EXPECT_EQ(NewLines().at(0), "   Success2_Set 3");
}

TEST_F(ProbabilitiesWorksheet, EnteringSuccess_SelectsTheWhole)
{
    ShowB();
    for (const Long index : {1, 2}) {
        Success(index).setFocus();
        EXPECT_EQ(Success(index).selectedText(), Success(index).text());
    }
}

TEST_F(ProbabilitiesWorksheet, FillingWhileBusy_IsNoEdit)
{
    ShowSample();
    {
        const UIMode::Busy busy;
        Success(1).setText(QStringLiteral("12"));
        Rationale(1).setPlainText(QStringLiteral("Filled"));
    }
    EXPECT_EQ(Outcome(1)->Success(), 55);
    EXPECT_NE(Outcome(1)->SuccessRationale(), "Filled");
}

// ---- Reasons and saving

TEST_F(ProbabilitiesWorksheet, Rationales_ReachTheirOutcomesAtOnceAndTheFileOnLeaving)
{
    ShowB();
    const Long target = Outcome(1)->ItemKey();
    const Long fallback = Outcome(2)->ItemKey();
    for (const Long index : {1, 2}) {
        Rationale(index).selectAll();
        QTest::keyClicks(&Rationale(index), index == 1 ? QStringLiteral("First") : QStringLiteral("Second"));
    }
    QTest::keyClick(&Rationale(1), Qt::Key_Return);
    QTest::keyClicks(&Rationale(1), QStringLiteral("reason"));
    EXPECT_EQ(Outcome(1)->SuccessRationale(), "First\nreason");
    EXPECT_EQ(Outcome(2)->SuccessRationale(), "Second");
    Type(2, "44");
    ClickTab(Sections(), 5);
    EXPECT_EQ(InFile("SuccessRationale", target), "First\nreason");
    EXPECT_EQ(InFile("SuccessRationale", fallback), "Second");
    EXPECT_EQ(InFile("Success", fallback), "44.0");
}

TEST_F(ProbabilitiesWorksheet, Rationale_TakesPlainTextOnly)
{
    ShowSample();
    QGuiApplication::clipboard()->setText(QStringLiteral("{\\rtf1 C:\\burn {old}}"));
    Rationale(1).selectAll();
    Rationale(1).paste();
    EXPECT_EQ(Outcome(1)->SuccessRationale(), "{\\rtf1 C:\\burn {old}}");
}

TEST_F(ProbabilitiesWorksheet, AnotherAlternative_SavesBothOutcomesOfTheOneThatWasShown)
{
    ShowB();
    const Long target = Outcome(1)->ItemKey();
    const Long fallback = Outcome(2)->ItemKey();
    Type(1, "61");
    Type(2, "62");
    Mark();
    Alternatives().SetListIndex(2);
    EXPECT_THAT(NewLines(),
                ElementsAre("   frm44Probabilities.lstAlternatives_Click " + Alternatives().List(2),
                            "   frm44Probabilities.SaveChanges",
                            "   frm44Probabilities.ShowAlternative"));
    EXPECT_EQ(InFile("Success", target), "61.0");
    EXPECT_EQ(InFile("Success", fallback), "62.0");
}

TEST_F(ProbabilitiesWorksheet, ClosingTheWindow_Saves)
{
    ShowSample();
    const Long key = Outcome(1)->ItemKey();
    Type(1, "33");
    EXPECT_TRUE(window->close());
    EXPECT_EQ(InFile("Success", key), "33.0");
}

TEST_F(ProbabilitiesWorksheet, AnotherAlternativeFails_RowAndTextStay)
{
    ShowSample();
    const Long key = Outcome(1)->ItemKey();
    Type(1, "33");
    ForbidWrites();
    ExpectReport();
    Alternatives().SetListIndex(2);
    QCoreApplication::processEvents();
    EXPECT_EQ(Alternatives().ListIndex(), 0);
    EXPECT_EQ(SuccessText(1), "33");
    AllowWrites();
    Alternatives().SetListIndex(2);
    EXPECT_EQ(Alternatives().ListIndex(), 2);
    EXPECT_EQ(InFile("Success", key), "33.0");
}

TEST_F(ProbabilitiesWorksheet, LeavingFails_TheTextStaysAndTheNextLeaveSaves)
{
    ShowSample();
    const Long key = Outcome(1)->ItemKey();
    Type(1, "33");
    ForbidWrites();
    ExpectNotLeft();
    ClickTab(Worksheets(), 2);
    EXPECT_EQ(gCurrentTab, "tab44");
    EXPECT_EQ(SuccessText(1), "33");
    AllowWrites();
    ClickTab(Worksheets(), 2);
    EXPECT_EQ(InFile("Success", key), "33.0");
}

// ---- By keyboard, and places

TEST_F(ProbabilitiesWorksheet, Keyboard_TabLeadsInTheOrderAsRead)
{
    ShowB();
    Alternatives().setFocus();
    for (const char* expected : {"txtSuccess1", "txtRationale1", "txtSuccess2", "txtRationale2"}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget()->objectName(), QString::fromUtf8(expected));
    }
}

TEST_F(ProbabilitiesWorksheet, Keyboard_ArrowsInTheListChooseAlternatives)
{
    ShowSample();
    Alternatives().setFocus();
    QTest::keyClick(&Alternatives(), Qt::Key_Down);
    EXPECT_EQ(LabelText("lblAlternative"), Alternatives().List(1));
    EXPECT_TRUE(Alternatives().hasFocus());
}

TEST_F(ProbabilitiesWorksheet, LabelOf300Characters_NothingIsCut)
{
    ShowSample("UPDATE Items SET Heading = 'Long ' || replace(hex(zeroblob(60)), '00', 'word ') "
               "WHERE ParentKey = 26 AND ChildIndex = 1");
    window->resize(800, 600);
    QCoreApplication::processEvents();
    const auto* label = Find<QLabel>("lblAlternative");
    EXPECT_GE(label->text().size(), 300);
    EXPECT_GE(label->height(), label->heightForWidth(label->width()));
}

TEST_F(ProbabilitiesWorksheet, At800By600_EverythingOfAFallbackIsThere)
{
    ShowB();
    window->resize(800, 600);
    QCoreApplication::processEvents();
    for (const char* name : {"lstAlternatives",
                             "lblAlternative",
                             "lblInstructions",
                             "pnlOutcome_1",
                             "pnlOutcome_2",
                             "pnlOutcome_3",
                             "txtSuccess1",
                             "txtRationale1",
                             "txtSuccess2",
                             "txtRationale2"}) {
        const auto* control = Find<QWidget>(name);
        const QRect place(control->mapTo(&Shown(), QPoint()), control->size());
        EXPECT_TRUE(Shown().rect().contains(place)) << name;
        EXPECT_GE(control->height(), control->minimumSizeHint().height()) << name;
        EXPECT_GE(control->width(), control->minimumSizeHint().width()) << name;
    }
}

} // namespace
