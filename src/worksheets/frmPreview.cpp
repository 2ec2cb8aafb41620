#include "worksheets/frmPreview.h"

#include "platform/base/Desktop.h"
#include "platform/print/PrintControl.h"
#include "platform/widgets/Application.h"
#include "platform/widgets/HelpKey.h"
#include "platform/widgets/PageView.h"
#include "platform/widgets/Theme.h"
#include "reports/ReportRun.h"
#include "reports/ReportUtilities.h"
#include "session/u91Trace.h"
#include "worksheets/GetRtfFileName.h"
#include "worksheets/ReportRunBar.h"
#include "worksheets/ReportScreenRun.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QToolButton>

#include <algorithm>
#include <cmath>

namespace Theme = platform::Theme;
using ReportUtilities::VSPrinter1;

namespace {

// Twips.
constexpr int kHeight = 15840;
constexpr int kRoomAbove = 800; // of a screen that is not higher than the height and this
constexpr int kWidth = 12240;   // 8.5 inches

constexpr int kHelpContext = 4831;
constexpr Integer kPrintPage = 8;

QPointer<frmPreview> g_form;

} // namespace

// ---- The window

frmPreview* frmPreview::Loaded() { return g_form; }

void frmPreview::Display()
{
    if (g_form == nullptr) {
        g_form = new frmPreview;
        g_form->Form_Load();
    }
    g_form->m_pages->SetFit(platform::PageView::Fit::Width);
    g_form->SetSentence();
    g_form->m_pages->ShowDocument(&VSPrinter1().Pages());
    g_form->m_txtFind->clear();
    g_form->show();
    g_form->raise();
    g_form->activateWindow();
    g_form->m_pages->setFocus();
}

void frmPreview::Unload()
{
    if (g_form != nullptr) g_form->close();
}

frmPreview::frmPreview()
{
    setObjectName(QStringLiteral("frmPreview"));
    setWindowTitle(QStringLiteral("Print Preview"));
    setAttribute(Qt::WA_DeleteOnClose);
    platform::HelpKey::SetTopic(*this, kHelpContext);
}

frmPreview::~frmPreview() = default;

void frmPreview::Form_Load()
{
    u91Trace::TraceLoad("frmPreview");
    BuildControls();
    const int screenHeight = platform::TheDesktop().ScreenHeight();
    const int screenWidth = platform::TheDesktop().ScreenWidth();
    const int height = screenHeight > kHeight + kRoomAbove ? kHeight : screenHeight - kRoomAbove;
    move(0, 0);
    resize(Theme::Pixels(std::min(kWidth, screenWidth)), Theme::Pixels(height));
}

void frmPreview::closeEvent(QCloseEvent* event)
{
    if (g_form == this) {
        g_form = nullptr; // it is deleted later
        u91Trace::TraceUnload("frmPreview");
    }
    event->accept();
}

// ---- The pages

void frmPreview::Freeze() { m_pages->Freeze(); }

void frmPreview::SetSentence()
{
    const bool nothingTicked = ReportRun::nSelected() == 0;
    m_pages->SetSentence(nothingTicked
                             ? QStringLiteral("There are no pages, since no section of the report is ticked.")
                             : QStringLiteral("There are no pages, since the report was not finished."));
}

void frmPreview::ShowPages()
{
    SetSentence();
    m_pages->ShowAgain(&VSPrinter1().Pages());
}

void frmPreview::PagesAdded() { m_pages->PagesAdded(); }

// ---- Commands

void frmPreview::cmdSave_Click()
{
    const std::string fileName = GetRtfFileName();
    if (fileName.empty()) return; // cancelled
    // The sections that were ticked last: the boxes are not read again.
    RunReport(ReportScreenRun::To::Elsewhere, *m_runBar, [&] { ReportRun::SaveSelectedSections(fileName); });
}

void frmPreview::cmdPrintPage_Click()
{
    const platform::Hourglass hourglass;
    VSPrinter1().SetPreviewPage(m_pages->CurrentPage());
    TellPrintErrors([] { VSPrinter1().SetAction(kPrintPage); });
}

void frmPreview::cmdPrintReport_Click()
{
    RunReport(ReportScreenRun::To::Elsewhere, *m_runBar, [] {
        const platform::Hourglass hourglass;
        platform::TheDesktop().LetEventsRun();
        VSPrinter1().SetPreview(false); // and stays so
        ReportRun::ProduceSelectedSections();
    });
}

void frmPreview::cmdClose_Click() { close(); }

// ---- Pages, zoom and find

void frmPreview::txtPage_Return()
{
    bool isNumber = false;
    const int page = m_txtPage->text().toInt(&isNumber);
    if (isNumber) m_pages->GoToPage(page);
    ShowPageNumber();
    m_txtPage->selectAll();
}

void frmPreview::ShowPageNumber()
{
    const int page = m_pages->CurrentPage();
    const int count = m_pages->PageCount();
    m_lblPage->setText(count == 0 ? QStringLiteral("No pages")
                                  : QStringLiteral("Page %1 of %2").arg(page).arg(count));
    m_txtPage->setText(QString::number(page));
    m_cmdPreviousPage->setEnabled(page > 1);
    m_cmdNextPage->setEnabled(page < count);
    m_cmdPrintPage->setEnabled(count > 0);
    m_cmdPrintPage->setToolTip(count > 0 ? QString() : QStringLiteral("There is no page to print."));
}

void frmPreview::ShowFit(QToolButton& button, bool fits)
{
    button.setChecked(fits);
    QFont font = button.font(); // its ground alone hardly tells in dark windows
    font.setBold(fits);
    button.setFont(font);
}

void frmPreview::ShowZoom()
{
    m_lblZoom->setText(QStringLiteral("%1 %").arg(std::lround(m_pages->Zoom() * 100.0)));
    ShowFit(*m_cmdFitWidth, m_pages->FitsTo() == platform::PageView::Fit::Width);
    ShowFit(*m_cmdFitPage, m_pages->FitsTo() == platform::PageView::Fit::Page);
}

void frmPreview::ShowHits()
{
    const int count = m_pages->HitCount();
    if (m_txtFind->text().trimmed().isEmpty()) {
        m_lblFound->clear();
    } else if (count == 0) {
        m_lblFound->setText(QStringLiteral("Not found"));
    } else {
        m_lblFound->setText(QStringLiteral("%1 of %2").arg(m_pages->CurrentHit()).arg(count));
    }
    m_cmdFindPrevious->setEnabled(count > 0);
    m_cmdFindNext->setEnabled(count > 0);
}

void frmPreview::LeaveFind()
{
    m_txtFind->clear();
    m_pages->setFocus();
}

void frmPreview::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_End: QCoreApplication::sendEvent(m_pages, event); return; // also from a button
    default: QMainWindow::keyPressEvent(event);
    }
}
