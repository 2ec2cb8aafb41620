#include "session/SessionLinks.h"
#include "session/SessionState.h"
#include "session/a1VEXA.h"
#include "session/g0Items.h"
#include "session/u11Datafile.h"
#include "session/u14Properties.h"
#include "support/TestSession.h"

#include <utility>

using Texts = std::vector<std::string>;

namespace {

/// A session whose stores and screens write down that they were called.
class a1VEXATest : public support::TestSession
{
protected:
    a1VEXATest()
    {
        SessionLinks& links = Links();
        const auto note = [this](const char* what) { return [this, what] { calls.emplace_back(what); }; };
        links.ReleaseFMUs = note("FMUs");
        links.ResetNVCResources = note("NVCResources");
        links.ReleaseThreatenedItems = note("ThreatenedItems");
        links.ReleaseSRTypes = note("SRTypes");
        links.ResetSafetyIssues = note("SafetyIssues");
        links.ResetObjectives = note("Objectives");
        links.ResetAlternatives = note("Alternatives");
        links.ResetLastSRUseKey = note("SRUses");
        links.LoadStartForm = note("LoadStartForm");
        links.UnloadStartForm = note("UnloadStartForm");
        links.SetStartBackground = note("SetStartBackground");
        links.InitializeMenus = note("InitializeMenus");
        links.DisableEditMenu = note("DisableEditMenu");
        links.InitializeTabs = [this] {
            calls.push_back("InitializeTabs in section " + std::to_string(gCurrentSection));
        };
        links.SetupIntroduction = [this](Long section) {
            calls.push_back("SetupIntroduction " + std::to_string(section));
        };
        links.UnloadCurrentWorksheet = note("UnloadCurrentWorksheet");
        links.UnloadTabs = note("UnloadTabs");
        links.DisableFileMenus = note("DisableFileMenus");
        links.UnloadMainWindow = [this] {
            calls.emplace_back(gDatabaseOpen ? "UnloadMainWindow, open" : "UnloadMainWindow, closed");
        };
        links.ClosePreview = note("ClosePreview");
        links.SetTitleBar = [this](const std::string& title) { calls.push_back("SetTitleBar " + title); };
        links.SetMainCaption = [this](const std::string& caption) {
            calls.push_back("SetMainCaption " + caption);
        };
    }
    ~a1VEXATest() override { Links() = SessionLinks(); }

    /// What was called since the last look.
    Texts Calls() { return std::exchange(calls, {}); }

    Texts calls;
};

const Texts kStores = {"FMUs",
                       "NVCResources",
                       "ThreatenedItems",
                       "SRTypes",
                       "SafetyIssues",
                       "Objectives",
                       "Alternatives",
                       "SRUses"};

Texts operator+(Texts a, const Texts& b)
{
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

Texts Loaded(const std::string& title)
{
    return kStores + Texts{"SetStartBackground",
                           "SetTitleBar " + title,
                           "InitializeMenus",
                           "InitializeTabs in section 1",
                           "SetupIntroduction 1"};
}

const Texts kBackAtStart = Texts{"ClosePreview"} + kStores +
                           Texts{"UnloadStartForm",
                                 "UnloadCurrentWorksheet",
                                 "UnloadTabs",
                                 "SetMainCaption VEXA",
                                 "DisableFileMenus",
                                 "LoadStartForm",
                                 "DisableEditMenu"};
const Texts kNotOurs = {"The file does not appear to be a VEXA Plus file.", "It cannot be opened."};

} // namespace

TEST_F(a1VEXATest, StartWithoutFile_ShowsTheStartForm)
{
    gCurrentTab = "tab11";
    a1VEXA::StartWithoutFile();
    EXPECT_EQ(Calls(), (Texts{"LoadStartForm", "DisableEditMenu"}));
    EXPECT_EQ(gCurrentTab, "");
    EXPECT_EQ(LogLines(), Texts{"   a1VEXA.StartWithoutFile"});
}

TEST_F(a1VEXATest, StartWithFile_OpensNamesAndShowsIt)
{
    const std::string file = MakeFile("INSERT OR REPLACE INTO Items (ItemKey, Body) VALUES (11, 'Bear Paw')");
    a1VEXA::StartWithFile(file);
    EXPECT_EQ(Calls(), Loaded("Bear Paw"));
    EXPECT_EQ(u14Properties::Property_Get("FullFileName"), file);
    EXPECT_EQ(LogLines(), (Texts{"   a1VEXA.StartWithFile " + file, "   a1VEXA.LoadFromFile"}));
    EXPECT_EQ(desktop.pointer, platform::Pointer::Default);
}

TEST_F(a1VEXATest, StartWithFile_ThatFails_LeavesNoStartForm)
{
    const std::string file = MakeFile();
    for (const std::string& unusable : {folder.File("missing.qel"), "\"" + file + "\""}) {
        desktop.ExpectText(kNotOurs);
        a1VEXA::StartWithFile(unusable);
        EXPECT_EQ(Calls(), Texts());
        EXPECT_FALSE(gDatabaseOpen);
    }
    desktop.ExpectFile("Open VEXA Plus file", file); // File, Open still works
    a1VEXA::OpenFile();
    EXPECT_TRUE(gDatabaseOpen);
}

TEST_F(a1VEXATest, NewFile_IsTitledNewWhateverItem11Holds)
{
    support::ExecuteSql(folder.File("QEL.new"),
                        "INSERT OR REPLACE INTO Items (ItemKey, Body) VALUES (11, 'of the template')");
    desktop.ExpectFile("Create new VEXA Plus file", folder.File("Made.qel"));
    a1VEXA::NewFile();
    EXPECT_EQ(Calls(), Texts{"ClosePreview"} + Loaded("of the template") + Texts{"SetTitleBar New"});
}

TEST_F(a1VEXATest, OpenFile_ClosesThePreviewOfTheFileBefore)
{
    desktop.ExpectFile("Open VEXA Plus file", MakeFile());
    a1VEXA::OpenFile();
    EXPECT_EQ(Calls().front(), "ClosePreview");
}

TEST_F(a1VEXATest, OpenFile_Cancelled_LeavesTheFileOpenAndTheScreensAlone)
{
    OpenNew();
    Calls();
    gCurrentTab = "tab22";
    desktop.ExpectFile("Open VEXA Plus file", "");
    a1VEXA::OpenFile();
    EXPECT_EQ(Calls(), Texts());
    EXPECT_TRUE(gDatabaseOpen);
    EXPECT_EQ(gCurrentTab, "tab22");
}

TEST_F(a1VEXATest, OpenFile_ThatFails_GoesBackToTheStartWithTheOldFileClosed)
{
    OpenNew();
    Calls();
    desktop.ExpectFile("Open VEXA Plus file", folder.File("missing.qel"));
    desktop.ExpectText(kNotOurs);
    a1VEXA::OpenFile();
    EXPECT_EQ(Calls(), kBackAtStart);
    EXPECT_FALSE(gDatabaseOpen);
}

TEST_F(a1VEXATest, SaveFileAs_RebuildsTheScreensFromTheCopy)
{
    OpenNew("INSERT OR REPLACE INTO Items (ItemKey, Body) VALUES (11, 'Bear Paw')");
    ASSERT_TRUE(u11Datafile::NameDatafile(path));
    Calls();
    desktop.ExpectFile("Save As New VEXA Plus file", folder.File("Copy.qel"));
    a1VEXA::SaveFileAs();
    EXPECT_EQ(Calls(), Texts{"ClosePreview"} + Loaded("Bear Paw"));
}

TEST_F(a1VEXATest, FilesOpenedMadeAndSaved_AreToldToTheDesktop)
{
    const std::string file = MakeFile();
    a1VEXA::StartWithFile(file);
    desktop.ExpectFile("Create new VEXA Plus file", folder.File("Made.qel"));
    a1VEXA::NewFile();
    desktop.ExpectFile("Save As New VEXA Plus file", folder.File("Copy.qel"));
    a1VEXA::SaveFileAs();
    desktop.ExpectFile("Open VEXA Plus file", file);
    a1VEXA::OpenFile();
    EXPECT_EQ(desktop.recentFiles, (Texts{file, folder.File("Made.qel"), folder.File("Copy.qel"), file}));
}

TEST_F(a1VEXATest, FilesThatDoNotOpen_AreNotToldToTheDesktop)
{
    desktop.ExpectText(kNotOurs);
    a1VEXA::StartWithFile(folder.File("missing.qel"));
    desktop.ExpectFile("Open VEXA Plus file", "");
    a1VEXA::OpenFile();
    EXPECT_EQ(desktop.recentFiles, Texts());
}

TEST_F(a1VEXATest, ClearAllStores_DropsItemsFirstAndSavesNothing)
{
    OpenNew();
    const auto item = g0Items::GetItem(11);
    item->SetBody("not saved");
    Calls();
    Links().ReleaseFMUs = [this, &item] {
        EXPECT_NE(g0Items::GetItem(11), item) << "the items went first";
        calls.emplace_back("FMUs");
    };
    a1VEXA::ClearAllStores();
    EXPECT_EQ(Calls(), kStores);
    Links().ReleaseFMUs = nullptr;
    EXPECT_EQ(Query("SELECT * FROM Items WHERE Body = 'not saved'"), support::Rows());
}

TEST_F(a1VEXATest, CloseDatafileIfOpen_WithNoFile_DoesNothing)
{
    a1VEXA::CloseDatafileIfOpen();
    OpenNew();
    a1VEXA::CloseDatafileIfOpen();
    EXPECT_FALSE(gDatabaseOpen);
    a1VEXA::CloseDatafileIfOpen();
}

TEST_F(a1VEXATest, GoToStandard_HandsTheOpenFileOver)
{
    support::WriteFile(folder.File("VEXA.exe"), "");
    OpenNew();
    ASSERT_TRUE(u11Datafile::NameDatafile(path));
    Calls();
    a1VEXA::GoToStandard();
    EXPECT_EQ(desktop.calls, Texts{"StartProgram " + folder.File("VEXA.exe") + " " + path});
    EXPECT_EQ(Calls(), Texts{"UnloadMainWindow, closed"});
}

TEST_F(a1VEXATest, GoToStandard_WithNoFile_StartsItWithoutOne)
{
    support::WriteFile(folder.File("VEXA.exe"), "");
    a1VEXA::GoToStandard();
    EXPECT_EQ(desktop.calls, Texts{"StartProgram " + folder.File("VEXA.exe") + " "});
    EXPECT_EQ(Calls(), Texts{"UnloadMainWindow, closed"});
}

TEST_F(a1VEXATest, GoToStandard_WithoutThatProgram_SaysSoAndKeepsTheSession)
{
    OpenNew();
    Calls();
    desktop.ExpectText({"VEXA Standard was not found in the program folder.", "This session goes on."});
    a1VEXA::GoToStandard();
    EXPECT_TRUE(gDatabaseOpen);
    EXPECT_EQ(Calls(), Texts());
    EXPECT_EQ(desktop.calls, Texts());
}
