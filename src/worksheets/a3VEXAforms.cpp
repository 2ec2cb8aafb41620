#include "worksheets/a3VEXAforms.h"

#include "model/g51Alternatives.h"
#include "platform/base/Desktop.h"
#include "platform/widgets/Theme.h"
#include "session/SessionState.h"
#include "session/g2Situation.h"
#include "session/u91Trace.h"
#include "values/g8Summary.h"
#include "worksheets/Worksheet.h"
#include "worksheets/WorksheetTable.h"
#include "worksheets/frm02Tabs.h"
#include "worksheets/frm0_VEXA.h"
#include "worksheets/frm11Intro.h"

#include <QPointer>

#include <exception>

namespace Theme = platform::Theme;

namespace a3VEXAforms {

namespace {

// The one form that is loaded; the client area owns it.
QPointer<Worksheet> g_form;
bool g_fileWasReplaced = false;

constexpr int kLeft = 120;  // twips, as all lengths here
constexpr int kSides = 240; // left and right of a worksheet together
constexpr int kAboveStrips = 15;

void UnloadForm()
{
    if (g_form != nullptr) g_form->Unload();
    delete g_form;
}

/// The form of that entry, made unless it is the one that stands already.
Worksheet& EnsureForm(const WorksheetEntry& entry)
{
    if (g_form == nullptr || g_form->objectName() != QLatin1String(entry.form)) {
        UnloadForm();
        g_form = entry.make(MainWindow().ClientArea());
        g_form->SetHelpContextID(entry.helpContextID);
    }
    return *g_form;
}

void Update(UpdateAction action)
{
    switch (action) {
    case UpdateAction::Nothing: break;
    case UpdateAction::SituationItems: g2Situation::SaveAllItems(); break;
    case UpdateAction::FormSaveChanges:
        if (g_form != nullptr) g_form->SaveChanges();
        break;
    case UpdateAction::Alternatives: g51Alternatives::SaveAlternatives(); break;
    case UpdateAction::SummaryItems: g8Summary::SaveSummaryItems(); break;
    }
}

/// What UpdateCurrentWorksheet threw, as one sentence; empty: all is saved. Writes the cause to the logs.
std::string FailureOfUpdate()
{
    try {
        UpdateCurrentWorksheet();
        return {};
    } catch (const std::exception& error) {
        u91Trace::TraceError("UpdateCurrentWorksheet " + gCurrentTab + ": " + error.what());
        return "This worksheet could not be saved (" + std::string(error.what()) +
               "), so it stays on the screen until it can be.";
    }
}

} // namespace

void DisplayWorksheet(int worksheetNumber)
{
    u91Trace::Trace("a3VEXAforms.DisplayWorksheet " + std::to_string(worksheetNumber));
    const WorksheetEntry* entry = FindWorksheet(gCurrentSection, worksheetNumber);
    if (entry == nullptr) return;
    Worksheet& form = EnsureForm(*entry);
    if (std::string_view(entry->key) == "tab63") {
        const platform::Hourglass hourglass;
        form.Setup();
    } else {
        form.Setup();
    }
}

void ResizeCurrentWorksheet()
{
    if (g_form != nullptr && !gCurrentTab.empty()) SizeWorksheet(*g_form);
}

void UpdateCurrentWorksheet()
{
    u91Trace::Trace("a3VEXAforms.UpdateCurrentWorksheet " + gCurrentTab);
    const WorksheetEntry* entry = FindWorksheet(gCurrentTab);
    // With no file open there is nothing that could be written, nor anything unsaved.
    if (entry == nullptr || g_fileWasReplaced || !gDatabaseOpen) return;
    Update(entry->update);
}

void UnloadCurrentWorksheet()
{
    u91Trace::Trace("a3VEXAforms.UnloadCurrentWorksheet, ID = " + gCurrentTab);
    const WorksheetEntry* entry = FindWorksheet(gCurrentTab);
    UnloadForm();
    gCurrentTab.clear();
    if (entry != nullptr && entry->afterUnload == AfterUnload::ResetAlternatives)
        g51Alternatives::ResetAlternatives();
}

void SizeWorksheet(QWidget& form)
{
    const QSize client = MainWindow().ClientArea()->size();
    const int strip = MainWindow().StripHeight();
    int width = form.width();
    int height = form.height();
    if (client.height() > strip) height = client.height() - Theme::Pixels(kAboveStrips) - strip;
    if (Theme::Twips(client.width()) > kSides + 1) width = client.width() - Theme::Pixels(kSides);
    form.setGeometry(Theme::Pixels(kLeft), 0, width, height);
    form.show();
}

bool UpdateBeforeLeaving()
{
    const std::string failure = FailureOfUpdate();
    if (!failure.empty()) platform::ShowMessage({failure});
    return failure.empty();
}

Leaving UpdateBeforeClosing()
{
    const std::string failure = FailureOfUpdate();
    if (failure.empty()) return Leaving::Saved;
    platform::Message message;
    message.lines = {failure};
    message.buttons = platform::Buttons::StayLeave;
    message.preset = platform::Answer::Stay;
    message.icon = platform::Icon::Stop;
    const bool leaves = platform::TheDesktop().Show(message) == platform::Answer::Leave;
    return leaves ? Leaving::Unsaved : Leaving::Stays;
}

void ShowIntroduction(int section)
{
    static_cast<frm11Intro&>(EnsureForm(*FindWorksheet("tab11"))).Setup(section);
}

Worksheet* CurrentWorksheet() { return g_form; }

FileWasReplaced::FileWasReplaced() { g_fileWasReplaced = true; }
FileWasReplaced::~FileWasReplaced() { g_fileWasReplaced = false; }

} // namespace a3VEXAforms
