#include "platform/base/Desktop.h"
#include "platform/widgets/TabStrip.h"
#include "session/SessionState.h"
#include "session/g0Items.h"
#include "session/u14Properties.h"
#include "worksheets/WindowTest.h"
#include "worksheets/Worksheet.h"
#include "worksheets/a3VEXAforms.h"
#include "worksheets/frm01Start.h"
#include "worksheets/frm02Tabs.h"

#include <QLabel>
#include <QTest>

#include <filesystem>
#include <gmock/gmock.h>

using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

using Lines = std::vector<std::string>;

Lines From(const Lines& lines, const std::string& first)
{
    return {std::find(lines.begin(), lines.end(), first), lines.end()};
}

const std::vector<std::string> kNotAVexaFile = {"The file does not appear to be a VEXA Plus file.",
                                                "It cannot be opened."};
const char* kLegalNotice =
    "Decision support for wildfire incidents.\nProvided as is, without warranty of any "
    "kind.\nThe decision remains with the responsible official.";

class Start : public WindowTest
{
protected:
    void ExpectMenusOfNoFile()
    {
        EXPECT_TRUE(Menu("mnuFile")->isEnabled());
        EXPECT_FALSE(Entry("mnuFile", 4)->isEnabled());
        for (const char* menu : {"mnuSection", "mnuWorksheet", "mnuEdit"}) {
            EXPECT_FALSE(Menu(menu)->isEnabled()) << menu;
        }
        EXPECT_TRUE(Menu("mnuHelp")->isEnabled());
    }
    bool PanelsShow()
    {
        return Find<QWidget>("pnlOverview")->isVisible() && Find<QWidget>("pnlButtons")->isVisible();
    }
};

TEST_F(Start, NoCommandLine_TheLogTellsTheSteps)
{
    WindowTest::Start();
    EXPECT_THAT(From(Lines(), " Start VEXA Basic 06.6"),
                ElementsAre(" Start VEXA Basic 06.6",
                            "   a1VEXA.StartWithoutFile",
                            "   Load frm01Start",
                            " Finished Loading VEXA Basic"));
    EXPECT_THAT(LogLines(), ::testing::Contains("Screen: 28800 x 16200"));
}

TEST_F(Start, NoCommandLine_StartFormOverTheWholeClientArea)
{
    WindowTest::Start();
    ASSERT_NE(window->StartForm(), nullptr);
    EXPECT_EQ(window->StartForm()->geometry(), window->ClientArea()->rect());
    EXPECT_TRUE(PanelsShow());
    EXPECT_EQ(Caption(), "VEXA Basic");
    EXPECT_EQ(gCurrentTab, "");
    EXPECT_EQ(window->Tabs(), nullptr);
    ExpectMenusOfNoFile();
    window->resize(1000, 700);
    EXPECT_EQ(window->StartForm()->geometry(), window->ClientArea()->rect());
}

TEST_F(Start, NoCommandLine_TheTextsOfTheStartForm)
{
    WindowTest::Start();
    EXPECT_EQ(Find<QLabel>("lblTitle")->text(), QStringLiteral("VEXA Basic"));
    EXPECT_EQ(Find<QLabel>("lblCopyright")->text(), QString::fromUtf8(kLegalNotice));
    EXPECT_EQ(Find<QLabel>("flbOverview")->text(),
              QStringLiteral("VEXA Basic 06 assists in preparing a Vexarium (VEXA) for fires that require a "
                             "suppression-oriented response.\nThe program records and organizes information "
                             "about the fire situation, management objectives, and possible strategies.\nIt "
                             "then assists with analysis of the alternatives, comparison to select the best "
                             "option, and preparing a final report."));
    EXPECT_EQ(Find<QLabel>("flbStart")->text(),
              QStringLiteral("To create a new VEXA file,\nclick the New button.\nTo review or update an "
                             "existing VEXA file, click the Open button."));
}

TEST_F(Start, HighScreen_WindowAtItsFirstPlaceAndSize)
{
    WindowTest::Start();
    EXPECT_EQ(window->size(), QSize(12120 / 15, 9120 / 15));
    EXPECT_FALSE(window->isMaximized());
}

TEST_F(Start, ScreenOfTheWindowsHeight_Maximised)
{
    desktop.screenHeight = 9120;
    WindowTest::Start();
    EXPECT_TRUE(window->isMaximized());
}

TEST_F(Start, LowScreen_SaysSo)
{
    desktop.screenHeight = 8000;
    desktop.ExpectText({"This program is designed for display at 800 x 600 resolution or higher.",
                        "You may have difficulty using the program with your current display settings."});
    WindowTest::Start();
    EXPECT_FALSE(window->isMaximized());
}

TEST_F(Start, WithFile_TheLogTellsTheRoadToTheIntroduction)
{
    path = CopySample("smith-creek");
    WindowTest::Start(path);
    EXPECT_THAT(From(Lines(), "   a1VEXA.StartWithFile " + path),
                ElementsAre("   a1VEXA.StartWithFile " + path,
                            "   a1VEXA.LoadFromFile",
                            "   Load frm01Start",
                            "   Load frm02Tabs",
                            " Start switch to section 2",
                            "   a3VEXAforms.UpdateCurrentWorksheet ",
                            "   ChangeSections",
                            " Start switch to worksheet 1",
                            "   a3VEXAforms.UpdateCurrentWorksheet ",
                            "   a3VEXAforms.UnloadCurrentWorksheet, ID = ",
                            "   a3VEXAforms.DisplayWorksheet 1",
                            "   frm11Intro.Setup",
                            "   Load frm11Intro",
                            " Finished switching worksheets",
                            "   a3VEXAforms.DisplayWorksheet 1",
                            "   frm11Intro.Setup",
                            " Finished switching sections",
                            "   frm11Intro.Setup",
                            " Finished Loading VEXA Basic"));
}

TEST_F(Start, WithFile_IntroductionOfTheSituationSection)
{
    StartWithSample();
    EXPECT_EQ(gCurrentSection, 2);
    EXPECT_EQ(gCurrentTab, "tab11");
    EXPECT_EQ(Title(), "Situation Section");
    EXPECT_TRUE(Shown().isVisible());
}

// Kept: the check mark goes to hidden entry 1 until the next change of section.
TEST_F(Start, WithFile_NoVisibleSectionEntryIsChecked)
{
    StartWithSample();
    for (int number = 2; number <= 7; ++number)
        EXPECT_FALSE(Entry("mnuSection", number)->isChecked()) << number;
    EXPECT_TRUE(Entry("mnuSection", 1)->isChecked());
    EXPECT_FALSE(Entry("mnuSection", 1)->isVisible());
    ClickTab(Sections(), 3);
    EXPECT_TRUE(Entry("mnuSection", 3)->isChecked());
}

TEST_F(Start, WithFile_CaptionShowsFileAndFire)
{
    StartWithSample("smith-creek", "UPDATE Items SET Body = 'Smith Creek' WHERE ItemKey = 11");
    EXPECT_EQ(Caption(), "VEXA Basic:  [smith-creek.qel]  Smith Creek");
    EXPECT_TRUE(Entry("mnuFile", 4)->isEnabled());
    EXPECT_TRUE(Menu("mnuSection")->isEnabled());
    EXPECT_TRUE(Menu("mnuWorksheet")->isEnabled());
}

TEST_F(Start, WithFile_StartFormStandsBehindWithoutPanels)
{
    StartWithSample();
    ASSERT_NE(window->StartForm(), nullptr);
    EXPECT_TRUE(window->StartForm()->isVisible());
    EXPECT_FALSE(Find<QWidget>("pnlOverview")->isVisible());
    EXPECT_FALSE(Find<QWidget>("pnlButtons")->isVisible());
    // Behind: the middle of the window is the worksheet's.
    const QWidget* seen = window->ClientArea()->childAt(window->ClientArea()->rect().center());
    EXPECT_TRUE(seen == &Shown() || Shown().isAncestorOf(seen));
}

TEST_F(Start, QuotedPath_UnusableAndNoStartForm)
{
    path = CopySample("smith-creek");
    desktop.ExpectText(kNotAVexaFile);
    WindowTest::Start('"' + path + '"');
    EXPECT_EQ(window->StartForm(), nullptr);
    EXPECT_FALSE(gDatabaseOpen);
    EXPECT_EQ(Caption(), "VEXA Basic");
    ExpectMenusOfNoFile();
}

TEST_F(Start, FailedCommandLineFile_OpenAndNewStillWork)
{
    path = CopySample("smith-creek");
    desktop.ExpectText(kNotAVexaFile);
    WindowTest::Start(folder.File("missing.qel"));
    desktop.ExpectFile("Open VEXA Plus file", path);
    Pick("mnuFile", 2);
    EXPECT_TRUE(gDatabaseOpen);
    EXPECT_EQ(gCurrentTab, "tab11");
    desktop.ExpectFile("Create new VEXA Plus file", folder.File("Fire1.qel"));
    Pick("mnuFile", 1);
    EXPECT_EQ(Caption(), "VEXA Basic:  [Fire1.qel]  New");
}

TEST_F(Start, FileWithoutItems_ErrorNumberInBothLogsAndTheSequenceGoesOn)
{
    path = MakeFile("DROP TABLE Items");
    desktop.ExpectText({"The program started with an error: There is no table Items."});
    WindowTest::Start(path);
    const auto lines = Lines();
    EXPECT_THAT(lines, ::testing::Contains("   Error during startup 1"));
    EXPECT_EQ(lines.back(), " Finished Loading VEXA Basic");
    EXPECT_THAT(ErrorLog(), HasSubstr("Error during startup 1"));
    EXPECT_EQ(desktop.pointer, platform::Pointer::Default);
}

TEST_F(Start, TwoRuns_TheLogHoldsTheLast)
{
    desktop.ExpectText(kNotAVexaFile);
    WindowTest::Start("first.qel");
    window->close();
    window->MDIForm_Load("");
    EXPECT_THAT(LogLines(), ::testing::Not(::testing::Contains(HasSubstr("first.qel"))));
}

// ---- New, Open, Save As

TEST_F(Start, NewButton_NewFileTitledNew)
{
    WindowTest::Start();
    desktop.ExpectFile("Create new VEXA Plus file", folder.File("Fire1.qel"));
    Press("cmdNew");
    EXPECT_EQ(Caption(), "VEXA Basic:  [Fire1.qel]  New");
    EXPECT_EQ(gCurrentSection, 2);
    EXPECT_THAT(Lines(), ::testing::Contains("   cmdNew_Click"));
}

TEST_F(Start, OpenButtonCancelled_StartFormStays)
{
    WindowTest::Start();
    desktop.ExpectFile("Open VEXA Plus file", "");
    Press("cmdOpen");
    EXPECT_TRUE(PanelsShow());
    EXPECT_EQ(Caption(), "VEXA Basic");
}

TEST_F(Start, OpenCancelled_FileAndWorksheetStay)
{
    StartWithSample();
    GoTo(3, 2);
    const Worksheet* shown = a3VEXAforms::CurrentWorksheet();
    const std::string caption = Caption();
    desktop.ExpectFile("Open VEXA Plus file", "");
    Pick("mnuFile", 2);
    EXPECT_TRUE(gDatabaseOpen);
    EXPECT_EQ(gCurrentTab, "tab32");
    EXPECT_EQ(a3VEXAforms::CurrentWorksheet(), shown);
    EXPECT_TRUE(shown->isVisible());
    EXPECT_EQ(Caption(), caption);
}

TEST_F(Start, OpenFails_BackToTheStartForm)
{
    StartWithSample();
    GoTo(3, 2);
    support::WriteFile(folder.File("text.qel"), "not a database");
    desktop.ExpectFile("Open VEXA Plus file", folder.File("text.qel"));
    desktop.ExpectText(kNotAVexaFile);
    Mark();
    Pick("mnuFile", 2);
    EXPECT_FALSE(gDatabaseOpen);
    EXPECT_TRUE(PanelsShow());
    EXPECT_EQ(Caption(), "VEXA");
    EXPECT_EQ(gCurrentTab, "");
    EXPECT_EQ(window->Tabs(), nullptr);
    EXPECT_EQ(a3VEXAforms::CurrentWorksheet(), nullptr);
    ExpectMenusOfNoFile();
    EXPECT_THAT(From(NewLines(), "   Unloaded frm01Start"),
                ElementsAre("   Unloaded frm01Start",
                            "   a3VEXAforms.UnloadCurrentWorksheet, ID = tab32",
                            "   Unloaded frm32SafetyIssues",
                            "   Unloaded frm02Tabs",
                            "   a1VEXA.StartWithoutFile",
                            "   Load frm01Start"));
}

TEST_F(Start, OpenFromTheStripsFirstTabs_SectionIsStillTwo)
{
    StartWithSample();
    ClickTab(Sections(), 3);
    ClickTab(Sections(), 2); // the strips now stand where loading sets them, so nothing is raised
    desktop.ExpectFile("Open VEXA Plus file", CopySample("juniper-gap"));
    Pick("mnuFile", 2);
    EXPECT_EQ(gCurrentSection, 2);
    EXPECT_EQ(gCurrentTab, "tab11");
    for (int number = 2; number <= 7; ++number)
        EXPECT_FALSE(Entry("mnuSection", number)->isChecked()) << number;
    ClickTab(Worksheets(), 2);
    EXPECT_EQ(gCurrentTab, "tab22");
}

TEST_F(Start, OpenFromAnotherSection_IntroductionOfTheNewFile)
{
    StartWithSample();
    GoTo(5, 4);
    desktop.ExpectFile("Open VEXA Plus file", CopySample("juniper-gap"));
    Pick("mnuFile", 2);
    EXPECT_EQ(Sections().CurrTab(), 2);
    EXPECT_EQ(Worksheets().CurrTab(), 1);
    EXPECT_EQ(gCurrentSection, 2);
    EXPECT_EQ(gCurrentTab, "tab11");
    EXPECT_EQ(Title(), "Situation Section");
}

TEST_F(Start, SaveAs_GoesOnInTheCopy)
{
    StartWithSample();
    GoTo(3, 2);
    desktop.ExpectFile("Save As New VEXA Plus file", folder.File("Copy.qel"));
    Pick("mnuFile", 4);
    EXPECT_EQ(u14Properties::Property_Get("FullFileName"), folder.File("Copy.qel"));
    EXPECT_THAT(Caption(), HasSubstr("[Copy.qel]"));
    EXPECT_EQ(gCurrentTab, "tab11");
}

TEST_F(Start, SaveAsWithTextJustTyped_IsInTheCopy)
{
    StartWithSample();
    GoTo(2, 2);
    g0Items::GetItem(g0Items::FireName)->SetBody("Typed");
    desktop.ExpectFile("Save As New VEXA Plus file", folder.File("Copy.qel"));
    Pick("mnuFile", 4);
    EXPECT_THAT(Caption(), HasSubstr("[Copy.qel]  Typed"));
}

// ---- Exit

TEST_F(Start, ExitWithoutFile_WritesTheEnd)
{
    WindowTest::Start();
    Mark();
    EXPECT_TRUE(window->close());
    EXPECT_THAT(NewLines(),
                ElementsAre("   a3VEXAforms.UpdateCurrentWorksheet ",
                            " VEXA Basic",
                            "* * * * * Program End * * * * *"));
}

TEST_F(Start, ExitEntry_SavesClosesAndDoesNotUnloadTheForm)
{
    StartWithSample();
    GoTo(2, 2);
    g0Items::GetItem(g0Items::FireName)->SetBody("Typed");
    Mark();
    Pick("mnuFile", 9);
    EXPECT_FALSE(window->isVisible());
    EXPECT_FALSE(gDatabaseOpen);
    window.reset();
    EXPECT_THAT(NewLines(),
                ElementsAre("   mnuFile_Click 9",
                            "   a3VEXAforms.UpdateCurrentWorksheet tab22",
                            "   a3VEXAforms.UpdateCurrentWorksheet tab22",
                            " VEXA Basic",
                            "* * * * * Program End * * * * *"));
    EXPECT_EQ(Query("SELECT Body FROM Items WHERE ItemKey = 11"), (support::Rows{{"Typed"}}));
}

TEST_F(Start, ExitButton_ClosesTheWindow)
{
    WindowTest::Start();
    Press("cmdExit");
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(Lines().back(), "* * * * * Program End * * * * *");
}

TEST_F(Start, GoToStandard_StartsTheSiblingWithTheFileAndLeaves)
{
    StartWithSample();
    support::WriteFile(folder.File("VEXA.exe"), "");
    Pick("mnuFile", 8);
    EXPECT_THAT(desktop.calls, ElementsAre("StartProgram " + folder.File("VEXA.exe") + " " + path));
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(Lines().back(), "* * * * * Program End * * * * *");
}

} // namespace
