#include "platform/widgets/TabStrip.h"
#include "session/SessionState.h"
#include "session/UIMode.h"
#include "session/g0Items.h"
#include "worksheets/WindowTest.h"
#include "worksheets/Worksheet.h"
#include "worksheets/WorksheetTable.h"
#include "worksheets/a3VEXAforms.h"
#include "worksheets/frm02Tabs.h"

#include <QTest>

#include <functional>
#include <gmock/gmock.h>

using platform::TabStrip;
using ::testing::ElementsAre;

namespace {

class Navigation : public WindowTest
{
protected:
    std::vector<std::string> TabTexts(const TabStrip& strip)
    {
        std::vector<std::string> texts;
        for (int index = 0; index < strip.count(); ++index)
            texts.push_back(strip.tabText(index).toStdString());
        return texts;
    }
    /// The visible entries of a menu, without "&".
    std::vector<std::string> VisibleEntries(const char* menu)
    {
        std::vector<std::string> texts;
        for (const QAction* entry : Menu(menu)->actions()) {
            if (entry->isVisible()) texts.push_back(entry->text().toStdString());
        }
        return texts;
    }
    std::vector<int> Checked(const char* menu, int last)
    {
        std::vector<int> checked;
        for (int number = 1; number <= last; ++number) {
            if (Entry(menu, number)->isChecked()) checked.push_back(number);
        }
        return checked;
    }
};

TEST_F(Navigation, SectionStrip_SixSections)
{
    StartWithSample();
    EXPECT_THAT(TabTexts(Sections()),
                ElementsAre("Situation", "Objectives", "Alternatives", "Analysis", "Comparison", "Report"));
    EXPECT_EQ(Sections().CurrTab(), 2);
}

TEST_F(Navigation, EverySection_ItsWorksheetsOnStripAndMenu)
{
    using Texts = std::vector<std::string>;
    const std::vector<std::pair<int, Texts>> kWorksheets = {
        {3, {"Introduction", "Safety Issues", "Describe Objectives"}},
        {4, {"Introduction", "Identify Alternatives", "Outcomes", "Probabilities"}},
        {5, {"Introduction", "Safety Ratings", "Objective Ratings", "Loss Analysis", "Cost Analysis"}},
        {6, {"Introduction", "Decision Tree", "Decision"}},
        {7, {"Introduction", "Topics", "Preview and Print"}},
        {2, {"Introduction", "General Information", "Conditions"}},
    };
    StartWithSample();
    for (const auto& [section, captions] : kWorksheets) {
        ClickTab(Sections(), section);
        EXPECT_EQ(TabTexts(Worksheets()), captions) << section;
        Texts entries;
        for (std::size_t i = 0; i < captions.size(); ++i) {
            entries.push_back("&" + std::to_string(i + 1) + " " + captions[i]);
        }
        EXPECT_EQ(VisibleEntries("mnuWorksheet"), entries) << section;
    }
}

TEST_F(Navigation, EveryWorksheet_KeyFormCheckMarkAndEditMenu)
{
    struct Case
    {
        int section;
        int tab;
        const char* key;
        const char* form;
    };
    const Case kCases[] = {
        {2, 2, "tab22", "frm22General"},
        {2, 3, "tab23", "frm23Situation"},
        {3, 2, "tab32", "frm32SafetyIssues"},
        {3, 3, "tab33", "frm33Objectives"},
        {4, 2, "tab42", "frm42Alternatives"},
        {4, 3, "tab43", "frm43Outcomes"},
        {4, 4, "tab44", "frm44Probabilities"},
        {5, 2, "tab52", "frm52SafetyRatings"},
        {5, 3, "tab53", "frm53Ratings"},
        {5, 4, "tab54", "frm54ItemImpacts"},
        {5, 5, "tab56", "frm56_CostSummary"},
        {6, 2, "tab63", "frm63DecisionTree"},
        {6, 3, "tab65", "frm65Decision"},
        {7, 2, "tab82", "frm82Topics"},
        {7, 3, "tab83", "frm83Reports"},
    };
    StartWithSample();
    ClickTab(Sections(), 7); // right after loading no visible section is checked
    for (const Case& item : kCases) {
        SCOPED_TRACE(item.key);
        GoTo(item.section, item.tab);
        EXPECT_EQ(gCurrentTab, item.key);
        ASSERT_NE(a3VEXAforms::CurrentWorksheet(), nullptr);
        EXPECT_EQ(Shown().objectName(), QString::fromUtf8(item.form));
        EXPECT_TRUE(Shown().isVisible());
        EXPECT_THAT(Checked("mnuWorksheet", 6), ElementsAre(item.tab));
        EXPECT_THAT(Checked("mnuSection", 8), ElementsAre(item.section));
        // Kept: of those with text to edit these two alone; Preview and Print has none.
        const bool disables = gCurrentTab == "tab53" || gCurrentTab == "tab56" || gCurrentTab == "tab83";
        EXPECT_EQ(Menu("mnuEdit")->isEnabled(), !disables);
        EXPECT_TRUE(UIMode::NotBusy());
        EXPECT_EQ(window->findChildren<Worksheet*>().size(), 1);
    }
}

TEST_F(Navigation, IntroductionOfEverySection_EditMenuDisabled)
{
    StartWithSample();
    for (int section = 2; section <= 7; ++section) {
        GoTo(section, 2);
        EXPECT_TRUE(Menu("mnuEdit")->isEnabled()) << section;
        ClickTab(Worksheets(), 1);
        EXPECT_FALSE(Menu("mnuEdit")->isEnabled()) << section;
        EXPECT_EQ(gCurrentTab, "tab11");
    }
}

// ---- The order of events

TEST_F(Navigation, AnotherWorksheet_SwitchUpdateUnloadThenClickDisplay)
{
    StartWithSample();
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
}

TEST_F(Navigation, AnotherSectionFromTheIntroduction_UnloadedInTheSwitch)
{
    StartWithSample();
    Mark();
    ClickTab(Sections(), 4);
    EXPECT_THAT(NewLines(),
                ElementsAre(" Start switch to section 4",
                            "   a3VEXAforms.UpdateCurrentWorksheet tab11",
                            "   a3VEXAforms.UnloadCurrentWorksheet, ID = tab11",
                            "   Unloaded frm11Intro",
                            "   ChangeSections",
                            "   a3VEXAforms.DisplayWorksheet 1",
                            "   frm11Intro.Setup",
                            "   Load frm11Intro",
                            " Finished switching sections"));
}

// Kept: the Introduction is set up twice.
TEST_F(Navigation, AnotherSectionFromAnotherWorksheet_SavesUnloadsAndShowsTheIntroductionTwice)
{
    StartWithSample();
    GoTo(2, 2);
    g0Items::GetItem(g0Items::FireName)->SetBody("Typed");
    Mark();
    ClickTab(Sections(), 4);
    EXPECT_THAT(NewLines(),
                ElementsAre(" Start switch to section 4",
                            "   a3VEXAforms.UpdateCurrentWorksheet tab22",
                            "   ChangeSections",
                            " Start switch to worksheet 1",
                            "   a3VEXAforms.UpdateCurrentWorksheet tab22",
                            "   a3VEXAforms.UnloadCurrentWorksheet, ID = tab22",
                            "   Unloaded frm22General",
                            "   a3VEXAforms.DisplayWorksheet 1",
                            "   frm11Intro.Setup",
                            "   Load frm11Intro",
                            " Finished switching worksheets",
                            "   a3VEXAforms.DisplayWorksheet 1",
                            "   frm11Intro.Setup",
                            " Finished switching sections"));
    EXPECT_EQ(Title(), "Alternatives Section");
    EXPECT_EQ(gCurrentSection, 4);
    EXPECT_EQ(Query("SELECT Body FROM Items WHERE ItemKey = 11"), (support::Rows{{"Typed"}}));
}

TEST_F(Navigation, TheTabShown_NothingHappens)
{
    StartWithSample();
    GoTo(3, 2);
    Mark();
    ClickTab(Sections(), 3);
    ClickTab(Worksheets(), 2);
    Pick("mnuSection", 3);
    Pick("mnuWorksheet", 2);
    EXPECT_THAT(NewLines(), ElementsAre("   mnuSection_Click 3", "   mnuWorksheet_Click 2"));
    EXPECT_THAT(Checked("mnuSection", 8), ElementsAre(3));
    EXPECT_THAT(Checked("mnuWorksheet", 6), ElementsAre(2));
}

TEST_F(Navigation, MenuEntries_DriveTheStrips)
{
    StartWithSample();
    Pick("mnuSection", 5);
    EXPECT_EQ(Sections().CurrTab(), 5);
    Pick("mnuWorksheet", 5);
    EXPECT_EQ(Worksheets().CurrTab(), 5);
    EXPECT_EQ(gCurrentTab, "tab56");
}

// Kept: menu and strip were numbered apart; the entry of the Report section reads otherwise.
TEST_F(Navigation, ComplexityAnalysisEntry_OpensTheReportSectionAndBearsItsCheckMark)
{
    StartWithSample();
    EXPECT_EQ(Entry("mnuSection", 7)->text(), QStringLiteral("Comple&xity Analysis"));
    Pick("mnuSection", 7);
    EXPECT_EQ(gCurrentSection, 7);
    EXPECT_EQ(Title(), "Report Section");
    EXPECT_THAT(Checked("mnuSection", 8), ElementsAre(7));
}

TEST_F(Navigation, RatingsAndLossAnalysis_DropTheModelWhenLeft)
{
    for (const WorksheetEntry& entry : ::Worksheets()) {
        const std::string key = entry.key;
        const bool resets = key == "tab52" || key == "tab53" || key == "tab54";
        EXPECT_EQ(entry.afterUnload == AfterUnload::ResetAlternatives, resets) << key;
    }
}

TEST_F(Navigation, DecisionTree_PointerIsPlainAgain)
{
    StartWithSample();
    GoTo(6, 2);
    EXPECT_EQ(desktop.pointer, platform::Pointer::Default);
}

/// Writes down what stands last in the log whenever a form is enabled or disabled.
class EnabledWatch : public QObject
{
public:
    EnabledWatch(QWidget& form, std::function<std::string()> lastLine)
        : m_form(form), m_lastLine(std::move(lastLine))
    {
        form.installEventFilter(this);
    }
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::EnabledChange) {
            changes.push_back((m_form.isEnabled() ? "enabled after" : "disabled after") + m_lastLine());
        }
        return false;
    }
    std::vector<std::string> changes;

private:
    QWidget& m_form;
    std::function<std::string()> m_lastLine;
};

TEST_F(Navigation, WhileAWorksheetIsSetUp_TheTabFormIsDisabled)
{
    StartWithSample();
    const EnabledWatch watch(*window->Tabs(), [this] { return Lines().back(); });
    ClickTab(Worksheets(), 2);
    EXPECT_THAT(watch.changes,
                ElementsAre("disabled after   Unloaded frm11Intro", "enabled after   Load frm22General"));
}

TEST_F(Navigation, FileReplacedUnderAWorksheet_NothingOfItIsSaved)
{
    StartWithSample();
    GoTo(2, 2);
    g0Items::GetItem(g0Items::FireName)->SetBody("Of the file that was left");
    {
        const a3VEXAforms::FileWasReplaced replaced;
        a3VEXAforms::UpdateCurrentWorksheet();
    }
    EXPECT_EQ(Lines().back(), "   a3VEXAforms.UpdateCurrentWorksheet tab22");
    EXPECT_EQ(Query("SELECT COUNT(*) FROM Items WHERE Body = 'Of the file that was left'"),
              (support::Rows{{"0"}}));
}

// ---- Keys

TEST_F(Navigation, CtrlPageKeys_StepThroughWorksheets)
{
    StartWithSample();
    QTest::keyClick(window.get(), Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(gCurrentTab, "tab22");
    QTest::keyClick(window.get(), Qt::Key_PageDown, Qt::ControlModifier);
    QTest::keyClick(window.get(), Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(gCurrentTab, "tab23");
    QTest::keyClick(window.get(), Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(gCurrentTab, "tab22");
    QTest::keyClick(window.get(), Qt::Key_PageDown, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(gCurrentSection, 3);
    QTest::keyClick(window.get(), Qt::Key_PageUp, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(gCurrentSection, 2);
}

TEST_F(Navigation, ArrowKeysOnAStrip_StepAndKeepTheFocus)
{
    StartWithSample();
    Worksheets().setFocus(Qt::TabFocusReason);
    QTest::keyClick(&Worksheets(), Qt::Key_Right);
    EXPECT_EQ(gCurrentTab, "tab22");
    EXPECT_TRUE(Worksheets().hasFocus());
    QTest::keyClick(&Worksheets(), Qt::Key_Right);
    EXPECT_EQ(gCurrentTab, "tab23");
    Sections().setFocus(Qt::TabFocusReason);
    QTest::keyClick(&Sections(), Qt::Key_Right);
    EXPECT_EQ(gCurrentSection, 3);
    EXPECT_TRUE(Sections().hasFocus());
}

// ---- Layout

TEST_F(Navigation, Layout_StripsAtTheFootAndTheWorksheetAbove)
{
    StartWithSample();
    const QSize client = window->ClientArea()->size();
    const int strip = window->Tabs()->height();
    EXPECT_GE(strip, 675 / 15);
    EXPECT_EQ(window->Tabs()->geometry(), QRect(0, client.height() - strip, client.width(), strip));
    EXPECT_EQ(Sections().width(), client.width());
    EXPECT_EQ(Worksheets().width(), client.width() - 135 / 15);
    EXPECT_EQ(Shown().geometry(),
              QRect(120 / 15, 0, client.width() - 240 / 15, client.height() - 15 / 15 - strip));
}

TEST_F(Navigation, Resize_StripsAndWorksheetFollow)
{
    StartWithSample();
    window->resize(1100, 820);
    const QSize client = window->ClientArea()->size();
    EXPECT_EQ(client.width(), 1100);
    const int strip = window->Tabs()->height();
    EXPECT_EQ(window->Tabs()->y(), client.height() - strip);
    EXPECT_EQ(Shown().size(), QSize(1100 - 16, client.height() - 1 - strip));
    EXPECT_EQ(LogLines().back(), "   frm0_VEXA_Resize 16500 12300");
}

TEST_F(Navigation, ClientArea240TwipsWide_WorksheetKeepsItsWidth)
{
    StartWithSample();
    const int width = Shown().width();
    window->ClientArea()->resize(16, 500);
    EXPECT_EQ(Shown().width(), width);
    EXPECT_EQ(Shown().height(), 500 - 1 - window->Tabs()->height());
    window->ClientArea()->resize(17, 500);
    EXPECT_EQ(Shown().width(), 1);
}

TEST_F(Navigation, ClientAreaAsLowAsTheStrips_NothingMoves)
{
    StartWithSample();
    const QRect form = Shown().geometry();
    const QRect tabs = window->Tabs()->geometry();
    window->ClientArea()->resize(500, window->Tabs()->height());
    EXPECT_EQ(Shown().geometry(), form);
    EXPECT_EQ(window->Tabs()->geometry(), tabs);
}

} // namespace
