#include "platform/base/Desktop.h"
#include "platform/base/HelpTopics.h"
#include "platform/widgets/Application.h"
#include "platform/widgets/EditCommands.h"
#include "platform/widgets/HelpKey.h"
#include "platform/widgets/TabStrip.h"
#include "session/SessionState.h"
#include "session/a1VEXA.h"
#include "session/u11Datafile.h"
#include "session/u21Display.h"
#include "session/u91Trace.h"
#include "worksheets/ReportScreenRun.h"
#include "worksheets/Worksheet.h"
#include "worksheets/WorksheetTable.h"
#include "worksheets/a3VEXAforms.h"
#include "worksheets/frm02Tabs.h"
#include "worksheets/frm0_VEXA.h"

#include <QApplication>
#include <QMenuBar>
#include <QShortcut>

#include <string>

// The menus of the main window and what they do.

namespace EditCommands = platform::EditCommands;

namespace {

// The entries that handlers switch on; the gaps are the menus' own.
namespace File {
enum Entry { New = 1, Open = 2, SaveAs = 4, PrinterSetup = 6, GoToStandard = 8, Exit = 9 };
}
namespace Edit {
enum Entry { Cut = 2, Copy = 3, Paste = 4 };
}
namespace Help {
enum Entry { CurrentWorksheet = 1, Contents = 2, About = 9 };
}

constexpr int kLastSectionEntry = 8;
constexpr int kLastWorksheetEntry = 6;
constexpr int kFirstSection = 2;

QString EntryName(const QString& menu, int number)
{
    return menu + QLatin1Char('_') + QString::number(number);
}

bool TakesTab(const QWidget& control)
{
    const bool stop = (control.focusPolicy() & Qt::TabFocus) != 0;
    return stop && control.isEnabled() && control.isVisible();
}

/// Keys that lead to a worksheet lead into it: its first control has the focus then, unless another one of
/// it has taken it.
void EnterWorksheet()
{
    QWidget* shown = a3VEXAforms::CurrentWorksheet();
    if (shown == nullptr || shown->isAncestorOf(QApplication::focusWidget())) return;
    for (QWidget* next = shown->nextInFocusChain(); next != shown; next = next->nextInFocusChain()) {
        if (shown->isAncestorOf(next) && TakesTab(*next)) return next->setFocus(Qt::TabFocusReason);
    }
}

} // namespace

void frm0_VEXA::BuildMenus()
{
    BuildFileMenu();
    BuildStripMenus();
    BuildEditAndHelpMenus();
    for (QMenu* menu : {m_mnuSection, m_mnuWorksheet, m_mnuEdit})
        menu->setEnabled(false);
}

void frm0_VEXA::BuildFileMenu()
{
    m_mnuFile = AddMenu("mnuFile", "&File");
    const auto click = &frm0_VEXA::mnuFile_Click;
    AddEntry(m_mnuFile, File::New, "&New", click);
    AddEntry(m_mnuFile, File::Open, "&Open", click);
    AddEntry(m_mnuFile, File::SaveAs, "&Save As...", click)->setEnabled(false);
    AddEntry(m_mnuFile, 5, "-", click);
    AddEntry(m_mnuFile, File::PrinterSetup, "Printer Setup", click);
    AddEntry(m_mnuFile, 7, "-", click);
    AddEntry(m_mnuFile, File::GoToStandard, "Go to &VEXA Standard", click);
    AddEntry(m_mnuFile, File::Exit, "E&xit", click);
}

void frm0_VEXA::BuildStripMenus()
{
    m_mnuSection = AddMenu("mnuSection", "&Section");
    for (const SectionEntry& section : Sections()) {
        QAction* entry =
            AddEntry(m_mnuSection, section.section, section.menuCaption, &frm0_VEXA::mnuSection_Click);
        entry->setCheckable(true);
        entry->setVisible(section.shown);
    }
    m_mnuWorksheet = AddMenu("mnuWorksheet", "&Worksheet");
    for (int number = 1; number <= kLastWorksheetEntry; ++number) {
        const char* caption = number == kLastWorksheetEntry ? "&6 Cost / Acre" : "";
        AddEntry(m_mnuWorksheet, number, caption, &frm0_VEXA::mnuWorksheet_Click)->setCheckable(true);
    }
    Entry("mnuWorksheet", 1)->setText(QString::fromUtf8(FindWorksheet("tab11")->menuCaption));
    SetWorksheetMenu(kFirstSection);
}

void frm0_VEXA::BuildEditAndHelpMenus()
{
    m_mnuEdit = AddMenu("mnuEdit", "&Edit");
    const auto edit = &frm0_VEXA::mnuEdit_Click;
    AddEntry(m_mnuEdit, Edit::Cut, "Cut", edit)->setShortcut(Qt::CTRL | Qt::Key_X);
    AddEntry(m_mnuEdit, Edit::Copy, "Copy", edit)->setShortcut(Qt::CTRL | Qt::Key_C);
    AddEntry(m_mnuEdit, Edit::Paste, "Paste", edit)->setShortcut(Qt::CTRL | Qt::Key_V);

    m_mnuHelp = AddMenu("mnuHelp", "&Help");
    const auto help = &frm0_VEXA::mnuHelp_Click;
    AddEntry(m_mnuHelp, Help::CurrentWorksheet, "Current &Worksheet   F1", help);
    AddEntry(m_mnuHelp, Help::Contents, "&Contents", help);
    AddEntry(m_mnuHelp, Help::About, "&About ...", help);
}

QMenu* frm0_VEXA::AddMenu(const char* name, const char* caption)
{
    QMenu* menu = menuBar()->addMenu(QString::fromUtf8(caption));
    menu->setObjectName(QString::fromUtf8(name));
    return menu;
}

QAction* frm0_VEXA::AddEntry(QMenu* menu, int number, const char* caption, void (frm0_VEXA::*click)(int))
{
    auto* entry = new QAction(QString::fromUtf8(caption), menu);
    entry->setObjectName(EntryName(menu->objectName(), number));
    entry->setSeparator(entry->text() == QLatin1String("-"));
    menu->addAction(entry);
    connect(entry, &QAction::triggered, this, [this, click, number] {
        ShowChecks(); // the toolkit has turned the mark of the entry picked; only the handlers move it
        platform::Guarded([&] { (this->*click)(number); });
    });
    return entry;
}

void frm0_VEXA::BuildShortcuts()
{
    const auto bind = [this](const QKeySequence& keys, auto act) {
        auto* shortcut = new QShortcut(keys, this);
        connect(shortcut, &QShortcut::activated, this, [act] { platform::Guarded(act); });
    };
    // The help entry's caption names its key, so it is no shortcut of the entry, which would show it twice.
    new platform::HelpKey([this](int topic) { HelpKey_Press(topic); }, this);
    bind(Qt::CTRL | Qt::Key_PageDown, [this] { StepTab(false, 1); });
    bind(Qt::CTRL | Qt::Key_PageUp, [this] { StepTab(false, -1); });
    bind(Qt::CTRL | Qt::SHIFT | Qt::Key_PageDown, [this] { StepTab(true, 1); });
    bind(Qt::CTRL | Qt::SHIFT | Qt::Key_PageUp, [this] { StepTab(true, -1); });
}

QAction* frm0_VEXA::Entry(const char* menu, int number)
{
    return findChild<QAction*>(EntryName(QString::fromUtf8(menu), number));
}

void frm0_VEXA::InitializeMenus()
{
    Entry("mnuFile", File::SaveAs)->setEnabled(true);
    m_mnuSection->setEnabled(true);
    m_mnuWorksheet->setEnabled(true);
}

void frm0_VEXA::DisableFileMenus()
{
    Entry("mnuFile", File::SaveAs)->setEnabled(false);
    m_mnuSection->setEnabled(false);
    m_mnuWorksheet->setEnabled(false);
}

void frm0_VEXA::SetTitleBar(const std::string& name)
{
    const std::string caption =
        std::string(kProgramTitle) + ":  [" + u11Datafile::DatafileName() + "]  " + name;
    // "[*]" is the toolkit's mark of a modified window; doubled it is plain text.
    setWindowTitle(QString::fromStdString(caption).replace(QLatin1String("[*]"), QLatin1String("[*][*]")));
}

void frm0_VEXA::SectionMenu_Check(int section)
{
    m_checkedSection = section;
    ShowChecks();
}

void frm0_VEXA::WorksheetMenu_Check(int worksheet)
{
    m_checkedWorksheet = worksheet;
    ShowChecks();
}

void frm0_VEXA::Check(const char* menu, int last, int checked)
{
    for (int number = 1; number <= last; ++number)
        Entry(menu, number)->setChecked(number == checked);
}

void frm0_VEXA::ShowChecks()
{
    Check("mnuSection", kLastSectionEntry, m_checkedSection);
    Check("mnuWorksheet", kLastWorksheetEntry, m_checkedWorksheet);
}

void frm0_VEXA::EnableEditMenu() { m_mnuEdit->setEnabled(true); }
void frm0_VEXA::DisableEditMenu() { m_mnuEdit->setEnabled(false); }

void frm0_VEXA::SetWorksheetMenu(int section)
{
    for (int number = 2; number <= kLastWorksheetEntry; ++number) {
        const WorksheetEntry* worksheet = FindWorksheet(section, number);
        QAction* entry = Entry("mnuWorksheet", number);
        if (worksheet != nullptr) entry->setText(QString::fromUtf8(worksheet->menuCaption));
        entry->setVisible(worksheet != nullptr);
    }
}

void frm0_VEXA::mnuFile_Click(int number)
{
    u91Trace::Trace("mnuFile_Click " + std::to_string(number));
    if (number == File::Exit) {
        const a3VEXAforms::Leaving leaving = a3VEXAforms::UpdateBeforeClosing();
        m_leavesUnsaved = leaving == a3VEXAforms::Leaving::Unsaved; // and is not asked again
        if (leaving != a3VEXAforms::Leaving::Stays) close();
        return;
    }
    if (!a3VEXAforms::UpdateBeforeLeaving()) return;
    switch (number) {
    case File::New: a1VEXA::NewFile(); break;
    case File::Open: a1VEXA::OpenFile(); break;
    case File::SaveAs: a1VEXA::SaveFileAs(); break;
    case File::PrinterSetup:
        platform::TheDesktop().PrinterSetup();
        FollowPaper();
        break;
    case File::GoToStandard: a1VEXA::GoToStandard(); break;
    default: break;
    }
}

void frm0_VEXA::mnuSection_Click(int number)
{
    u91Trace::Trace("mnuSection_Click " + std::to_string(number));
    if (m_tabs != nullptr) m_tabs->vsTab1().SetCurrTab(number);
}

void frm0_VEXA::mnuWorksheet_Click(int number)
{
    u91Trace::Trace("mnuWorksheet_Click " + std::to_string(number));
    if (m_tabs != nullptr && m_tabs->vsTab2().SetCurrTab(number)) EnterWorksheet();
}

void frm0_VEXA::StepTab(bool section, int step)
{
    if (m_tabs == nullptr) return;
    platform::TabStrip& strip = section ? m_tabs->vsTab1() : m_tabs->vsTab2();
    if (strip.SetCurrTab(strip.Neighbour(step))) EnterWorksheet();
}

void frm0_VEXA::mnuEdit_Click(int number)
{
    u91Trace::Trace("mnuEdit_Click " + std::to_string(number));
    switch (number) {
    case Edit::Cut: EditCommands::Cut(m_activeControl); break;
    case Edit::Copy: EditCommands::Copy(m_activeControl); break;
    case Edit::Paste: EditCommands::Paste(m_activeControl); break;
    default: break;
    }
}

void frm0_VEXA::mnuHelp_Click(int number)
{
    u91Trace::Trace("mnuHelp_Click " + std::to_string(number));
    switch (number) {
    case Help::CurrentWorksheet: ShowHelp(CurrentHelpContextID()); break;
    case Help::Contents: ShowHelp(platform::HelpTopics::kContents); break;
    case Help::About: ShowAbout(); break;
    default: break;
    }
}

void frm0_VEXA::HelpKey_Press(int topic)
{
    if (!menuBar()->isEnabled()) return; // while a report is made
    if (topic == platform::HelpTopics::kOnScreen) {
        mnuHelp_Click(Help::CurrentWorksheet);
    } else {
        ShowHelp(topic);
    }
}

void frm0_VEXA::ShowHelp(int topic) { platform::TheDesktop().ShowHelp(m_helpFile, topic); }

int frm0_VEXA::CurrentHelpContextID() const
{
    const Worksheet* form = a3VEXAforms::CurrentWorksheet();
    return form == nullptr ? platform::HelpTopics::kStart : form->HelpContextID();
}

void frm0_VEXA::ShowAbout()
{
    platform::ShowMessage({std::string(kProgramTitle) + " " + kProgramVersion,
                           "Vexarium, 2006 Edition, Version 6",
                           "",
                           u21Display::LegalNotice()});
}
