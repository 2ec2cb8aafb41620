#include "session/a1VEXA.h"

#include "platform/base/Desktop.h"
#include "platform/base/Files.h"
#include "platform/base/ProgramFolder.h"
#include "session/SessionLinks.h"
#include "session/SessionState.h"
#include "session/g0Items.h"
#include "session/g2Situation.h"
#include "session/u11Datafile.h"
#include "session/u14Properties.h"
#include "session/u91Trace.h"

namespace a1VEXA {

namespace {

/// What each answer of a query leads to; true when a file is ready and shown.
bool Follow(u11Datafile::Status status)
{
    if (status == u11Datafile::Status::Ready) {
        Call(Links().ClosePreview); // it shows the file before
        LoadFromFile();
    } else if (status == u11Datafile::Status::Failed) {
        ReturnToStart();
    }
    return status == u11Datafile::Status::Ready;
}

} // namespace

void StartWithoutFile()
{
    u91Trace::Trace("a1VEXA.StartWithoutFile");
    gCurrentTab.clear();
    Call(Links().LoadStartForm);
    Call(Links().DisableEditMenu);
}

void StartWithFile(const std::string& path)
{
    u91Trace::Trace("a1VEXA.StartWithFile " + path);
    if (u11Datafile::OpenDatafile(path) && u11Datafile::NameDatafile(path)) {
        LoadFromFile();
    }
}

void NewFile()
{
    if (Follow(u11Datafile::QueryNewDatafile())) {
        // Whatever item 11 holds.
        Call(Links().SetTitleBar, std::string("New"));
    }
}

void OpenFile() { Follow(u11Datafile::QueryOpenDatafile()); }

void SaveFileAs() { Follow(u11Datafile::QuerySaveDatafileAs()); }

void LoadFromFile()
{
    u91Trace::Trace("a1VEXA.LoadFromFile");
    const platform::Hourglass hourglass;
    ClearAllStores();
    Call(Links().SetStartBackground);
    Call(Links().SetTitleBar, g2Situation::GetItem(g0Items::FireName)->Body());
    Call(Links().InitializeMenus);
    gCurrentSection = 1;
    Call(Links().InitializeTabs);
    // 1, not the section shown: the check mark falls on a hidden entry until the next change of section.
    Call(Links().SetupIntroduction, Long(1));
    platform::TheDesktop().NoteRecentFile(u14Properties::Property_Get("FullFileName"));
}

void ReturnToStart()
{
    const SessionLinks& links = Links();
    Call(links.ClosePreview);
    ClearAllStores();
    Call(links.UnloadStartForm);
    Call(links.UnloadCurrentWorksheet);
    Call(links.UnloadTabs);
    Call(links.SetMainCaption, std::string("VEXA"));
    Call(links.DisableFileMenus);
    StartWithoutFile();
}

void ClearAllStores()
{
    const SessionLinks& links = Links();
    g0Items::ClearItems();
    Call(links.ReleaseFMUs);
    Call(links.ResetNVCResources);
    Call(links.ReleaseThreatenedItems);
    Call(links.ReleaseSRTypes);
    Call(links.ResetSafetyIssues);
    Call(links.ResetObjectives);
    Call(links.ResetAlternatives);
    Call(links.ResetLastSRUseKey);
}

void CloseDatafileIfOpen()
{
    if (gDatabaseOpen) {
        u11Datafile::CloseDatafile();
    }
}

void GoToStandard()
{
    const std::string program = platform::InProgramFolder("VEXA.exe");
    if (!platform::FileExists(program)) {
        u91Trace::TraceError("There is no " + program);
        platform::ShowMessage(
            {"VEXA Standard was not found in the program folder.", "This session goes on."});
        return;
    }
    std::string path;
    if (gDatabaseOpen) {
        path = u14Properties::Property_Get("FullFileName");
        u11Datafile::CloseDatafile();
    }
    platform::TheDesktop().StartProgram(program, path);
    Call(Links().UnloadMainWindow);
}

} // namespace a1VEXA
