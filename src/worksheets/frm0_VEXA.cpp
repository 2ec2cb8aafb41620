#include "worksheets/frm0_VEXA.h"

#include "platform/base/Desktop.h"
#include "platform/base/Errors.h"
#include "platform/base/ProgramFolder.h"
#include "platform/widgets/Application.h"
#include "platform/widgets/Theme.h"
#include "session/SessionLinks.h"
#include "session/SessionState.h"
#include "session/a1VEXA.h"
#include "session/u21Display.h"
#include "session/u91Trace.h"
#include "worksheets/a3VEXAforms.h"
#include "worksheets/frm01Start.h"
#include "worksheets/frm02Tabs.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMenuBar>

#include <cassert>
#include <exception>
#include <utility>

namespace Theme = platform::Theme;

namespace {

frm0_VEXA* g_mainWindow = nullptr;

constexpr int kStripHeight = 675; // twips

std::string ProgramAndVersion() { return std::string(kProgramTitle) + " " + kProgramVersion; }

/// The number of the last step of the start that failed.
class StartErrors
{
public:
    template <class Step> void Run(Step step)
    {
        try {
            step();
        } catch (const platform::Error& error) {
            Note(error.Number(), error.what());
        } catch (const std::exception& error) {
            Note(-1, error.what());
        }
    }
    void Tell() const
    {
        if (m_number == 0) return;
        u91Trace::TraceError("Error during startup " + std::to_string(m_number));
        platform::ShowMessage({"The program started with an error: " + m_cause + "."});
    }

private:
    void Note(int number, const char* cause)
    {
        m_number = number;
        m_cause = cause;
    }
    int m_number = 0;
    std::string m_cause;
};

} // namespace

frm0_VEXA& MainWindow()
{
    assert(g_mainWindow != nullptr);
    return *g_mainWindow;
}

frm0_VEXA::frm0_VEXA()
{
    g_mainWindow = this;
    setObjectName(QStringLiteral("frm0_VEXA"));
    setWindowTitle(QString::fromUtf8(kProgramTitle));
    m_client = new QWidget(this);
    m_client->setObjectName(QStringLiteral("ClientArea"));
    m_client->installEventFilter(this);
    setCentralWidget(m_client);
    BuildMenus();
    BuildShortcuts();
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
        const bool menu = qobject_cast<QMenuBar*>(now) != nullptr || qobject_cast<QMenu*>(now) != nullptr;
        if (now != nullptr && !menu && isAncestorOf(now)) m_activeControl = now;
    });
}

frm0_VEXA::~frm0_VEXA() { g_mainWindow = nullptr; }

// ---- Start and exit

void frm0_VEXA::MDIForm_Load(const std::string& commandLine)
{
    StartErrors errors;
    u91Trace::TraceProgramStart(ProgramAndVersion());
    errors.Run([this] { Fit(); });
    m_helpFile = platform::InProgramFolder("VEXAPlus.hlp");
    errors.Run([&commandLine] {
        if (commandLine.empty()) {
            a1VEXA::StartWithoutFile();
        } else {
            a1VEXA::StartWithFile(commandLine);
        }
    });
    errors.Tell();
    u91Trace::TraceFinished("Loading VEXA Basic");
}

void frm0_VEXA::Fit()
{
    const u21Display::Box place = u21Display::FirstPlace();
    move(Theme::Pixels(place.left), Theme::Pixels(place.top));
    resize(Theme::Pixels(place.width), Theme::Pixels(place.height));
    const auto fit = u21Display::FitMainWindow(platform::TheDesktop().ScreenHeight());
    m_maximised = fit == u21Display::MainWindowFit::Maximised;
}

void frm0_VEXA::ShowAsFitted()
{
    if (m_maximised) {
        showMaximized();
    } else {
        show();
    }
}

bool frm0_VEXA::MDIForm_Unload()
{
    if (m_unloaded) return true;
    Call(Links().ClosePreview);
    if (!m_leavesUnsaved && a3VEXAforms::UpdateBeforeClosing() == a3VEXAforms::Leaving::Stays) return false;
    m_unloaded = true;
    platform::Guarded([] { a1VEXA::CloseDatafileIfOpen(); });
    u91Trace::TraceProgramEnd(kProgramTitle);
    return true;
}

void frm0_VEXA::closeEvent(QCloseEvent* event) { event->setAccepted(MDIForm_Unload()); }

// ---- The client area

void frm0_VEXA::LoadStartForm()
{
    if (m_start == nullptr) m_start = new frm01Start(m_client);
    m_start->setGeometry(m_client->rect());
    m_start->show();
}

void frm0_VEXA::UnloadStartForm()
{
    if (m_start == nullptr) return;
    m_start->Unload();
    delete std::exchange(m_start, nullptr);
}

void frm0_VEXA::SetStartBackground()
{
    // After a start with a file no start form stands yet, and its panels are never laid out.
    if (m_start == nullptr) m_start = new frm01Start(m_client);
    m_start->SetBackground();
    LoadStartForm();
    m_start->lower();
}

void frm0_VEXA::InitializeTabs()
{
    if (m_tabs == nullptr) {
        m_tabs = new frm02Tabs(m_client);
        PlaceTabs();
        m_tabs->show();
    }
    m_tabs->InitializeTabs();
}

void frm0_VEXA::UnloadTabs()
{
    if (m_tabs == nullptr) return;
    m_tabs->Unload();
    delete std::exchange(m_tabs, nullptr);
}

int frm0_VEXA::StripHeight() { return m_tabs == nullptr ? Theme::Pixels(kStripHeight) : m_tabs->height(); }

void frm0_VEXA::PlaceTabs()
{
    const int height = m_tabs->StripHeight();
    m_tabs->setGeometry(0, m_client->height() - height, m_client->width(), height);
}

bool frm0_VEXA::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_client && event->type() == QEvent::Resize) frm0_VEXA_Resize();
    return QMainWindow::eventFilter(watched, event);
}

void frm0_VEXA::frm0_VEXA_Resize()
{
    u91Trace::Trace("frm0_VEXA_Resize " + std::to_string(Theme::Twips(width())) + " " +
                    std::to_string(Theme::Twips(height())));
    if (m_start != nullptr) m_start->setGeometry(m_client->rect());
    if (m_tabs == nullptr || gCurrentTab.empty() || m_client->height() <= m_tabs->height()) return;
    PlaceTabs();
    a3VEXAforms::ResizeCurrentWorksheet();
}
