#include "worksheets/ConnectScreens.h"

#include "platform/widgets/Application.h"
#include "session/SessionLinks.h"
#include "session/UIMode.h"
#include "session/u91Trace.h"
#include "worksheets/a3VEXAforms.h"
#include "worksheets/frm0_VEXA.h"
#include "worksheets/frmPreview.h"

void ConnectScreens(frm0_VEXA& window)
{
    SessionLinks& links = Links();
    links.LoadStartForm = [&window] { window.LoadStartForm(); };
    links.UnloadStartForm = [&window] { window.UnloadStartForm(); };
    links.SetStartBackground = [&window] { window.SetStartBackground(); };
    links.SetTitleBar = [&window](const std::string& name) { window.SetTitleBar(name); };
    links.InitializeMenus = [&window] { window.InitializeMenus(); };
    links.DisableEditMenu = [&window] { window.DisableEditMenu(); };
    links.InitializeTabs = [&window] { window.InitializeTabs(); };
    links.SetupIntroduction = [](Long section) { a3VEXAforms::ShowIntroduction(section); };
    links.UnloadCurrentWorksheet = a3VEXAforms::UnloadCurrentWorksheet;
    links.UnloadTabs = [&window] { window.UnloadTabs(); };
    links.DisableFileMenus = [&window] { window.DisableFileMenus(); };
    links.SetMainCaption = [&window](const std::string& text) {
        window.setWindowTitle(QString::fromStdString(text));
    };
    links.UnloadMainWindow = [&window] { window.close(); };
    links.ClosePreview = frmPreview::Unload;

    platform::SetErrorGuard({.trace = u91Trace::TraceError,
                             .busy = [] { return !UIMode::NotBusy(); },
                             .endBusy = UIMode::EndBusy});
}
