#include "worksheets/ReportScreenRun.h"

#include "platform/base/Desktop.h"
#include "platform/print/PrintControl.h"
#include "platform/widgets/PageView.h"
#include "platform/widgets/Printing.h"
#include "reports/ReportUtilities.h"
#include "session/u91Trace.h"
#include "worksheets/GetRtfFileName.h"
#include "worksheets/ReportRunBar.h"
#include "worksheets/Worksheet.h"
#include "worksheets/a3VEXAforms.h"
#include "worksheets/frm02Tabs.h"
#include "worksheets/frm0_VEXA.h"
#include "worksheets/frmPreview.h"

#include <QApplication>
#include <QEvent>
#include <QMenuBar>
#include <QShortcut>

#include <algorithm>

namespace Printing = platform::Printing;

namespace {

constexpr int kBetweenEvents = 40; // milliseconds

/// One control prints for the whole program; which printer, and on which paper, may change between runs.
void ConnectPrinter()
{
    auto& printer = ReportUtilities::VSPrinter1();
    const Printing::Paper paper = Printing::PaperInUse();
    printer.SetPaper(paper.width, paper.height);
    printer.SetPrinter([](const platform::print::Document& pages, Long first, Long last) {
        Printing::Print(pages, first, last, OpenDataFile());
    });
}

QString WordsOf(const ReportRun::Progress& progress)
{
    if (progress.section == 0) return {}; // nothing is ticked
    return QStringLiteral("%1, page %2")
        .arg(QString::fromUtf8(ReportRun::SectionName(progress.section)))
        .arg(progress.page);
}

/// A run is watched and cancelled in its bar, and its first pages are read.
bool StaysEnabled(const QWidget* widget)
{
    return qobject_cast<const ReportRunBar*>(widget) != nullptr ||
           qobject_cast<const platform::PageView*>(widget) != nullptr;
}

} // namespace

ReportScreenRun::ReportScreenRun(To to, ReportRunBar& bar) : m_to(to), m_bar(&bar)
{
    ConnectPrinter();
    m_focus = QApplication::focusWidget();
    bar.Begin();
    DisableMain();
    if (frmPreview::Loaded() != nullptr) {
        frmPreview::Loaded()->Freeze();
        DisablePreview();
    }
    m_sinceEvents.start();
    ReportRun::OnProgress([this](const ReportRun::Progress& progress) { return Follow(progress); });
}

ReportScreenRun::~ReportScreenRun()
{
    ReportRun::OnProgress({});
    m_bar->End();
    EnableAll();
    ShowPreview();
}

void ReportScreenRun::ShowPreview()
{
    if (m_finished && m_to == To::Preview) {
        if (!m_shownEarly) return frmPreview::Display();
        frmPreview::Loaded()->PagesAdded(); // the reader may be further on by now
    } else if (m_openedEarly) {
        frmPreview::Unload();
    } else if (frmPreview::Loaded() != nullptr) {
        frmPreview::Loaded()->ShowPages();
    }
}

bool ReportScreenRun::Follow(const ReportRun::Progress& progress)
{
    const double parts = std::max<double>(1.0, ReportRun::nSelected());
    m_bar->Tell(WordsOf(progress), progress.done / parts);
    const bool isFirst = !m_shownEarly;
    if (m_to == To::Preview && progress.page > 0) ShowEarly();
    if ((isFirst && m_shownEarly) || m_sinceEvents.elapsed() >= kBetweenEvents) {
        platform::TheDesktop().LetEventsRun();
        m_sinceEvents.start();
    }
    return !m_bar->IsCancelled();
}

void ReportScreenRun::ShowEarly()
{
    if (m_shownEarly) return frmPreview::Loaded()->PagesAdded();
    m_shownEarly = true;
    m_openedEarly = frmPreview::Loaded() == nullptr;
    frmPreview::Display();
    if (m_openedEarly) DisablePreview();
    ReportRunBar& bar = frmPreview::Loaded()->RunBar();
    bar.TakeOver(*m_bar);
    m_bar = &bar;
}

// ---- What is disabled meanwhile

void ReportScreenRun::DisableMain()
{
    frm0_VEXA& window = MainWindow();
    window.installEventFilter(this);
    Disable(window.menuBar());
    for (QShortcut* shortcut : window.findChildren<QShortcut*>(QString(), Qt::FindDirectChildrenOnly))
        Disable(shortcut);
    if (window.Tabs() != nullptr) Disable(window.Tabs());
    if (a3VEXAforms::CurrentWorksheet() != nullptr) DisableCommands(a3VEXAforms::CurrentWorksheet());
}

void ReportScreenRun::DisablePreview()
{
    frmPreview* preview = frmPreview::Loaded();
    preview->installEventFilter(this);
    DisableCommands(preview->centralWidget());
}

void ReportScreenRun::DisableCommands(QWidget* widget)
{
    if (StaysEnabled(widget)) return;
    const auto inside = widget->findChildren<QWidget*>();
    if (std::none_of(inside.begin(), inside.end(), StaysEnabled)) return Disable(widget);
    for (QWidget* child : widget->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
        DisableCommands(child);
}

void ReportScreenRun::Disable(QObject* object)
{
    const auto* widget = qobject_cast<QWidget*>(object);
    const bool enabled = widget == nullptr ? object->property("enabled").toBool()
                                           : !widget->testAttribute(Qt::WA_ForceDisabled);
    if (!enabled) return;
    object->setProperty("enabled", false);
    m_disabled.append(object);
}

void ReportScreenRun::EnableAll()
{
    for (const QPointer<QObject>& object : m_disabled) {
        if (object != nullptr) object->setProperty("enabled", true);
    }
    MainWindow().removeEventFilter(this);
    if (frmPreview::Loaded() != nullptr) frmPreview::Loaded()->removeEventFilter(this);
    if (m_focus != nullptr) m_focus->setFocus();
}

bool ReportScreenRun::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::Close) return QObject::eventFilter(watched, event);
    event->ignore();
    return true;
}

// ---- The commands

void TellPrintErrors(const std::function<void()>& action)
{
    try {
        action();
    } catch (const platform::print::PrintCancelled&) {
        u91Trace::Trace("The report was cancelled");
    } catch (const platform::print::PrintError& error) {
        u91Trace::TraceError(error.what());
        platform::ShowMessage({error.what()});
    }
}

void RunReport(ReportScreenRun::To to, ReportRunBar& bar, const std::function<void()>& run)
{
    TellPrintErrors([&] {
        ReportScreenRun screen(to, bar);
        run();
        screen.Finish();
    });
}

void FollowPaper()
{
    const platform::print::Document& shown = ReportUtilities::VSPrinter1().Pages();
    if (frmPreview::Loaded() == nullptr || shown.pages.empty()) return;
    const Printing::Paper paper = Printing::PaperInUse();
    if (paper.width == shown.pageWidth && paper.height == shown.pageHeight) return;
    RunReport(ReportScreenRun::To::Elsewhere, frmPreview::Loaded()->RunBar(), [] {
        ReportRun::PreviewSelectedSections();
    });
}
