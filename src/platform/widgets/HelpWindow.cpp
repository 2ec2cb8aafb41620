#include "platform/widgets/HelpWindow.h"

#include "platform/base/HelpTopics.h"
#include "platform/widgets/HelpBrowser.h"
#include "platform/widgets/HelpFile.h"
#include "platform/widgets/HelpKey.h"

#include <QGuiApplication>
#include <QHelpContentWidget>
#include <QHelpEngine>
#include <QHelpSearchEngine>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QScreen>
#include <QTabWidget>
#include <QWindow>

namespace platform {

namespace {

constexpr int kLetters = 130; // across the window, of average width
constexpr int kLines = 45;
constexpr double kMostOfScreen = 0.9;
constexpr int kResults = 50;
constexpr int kSearchTab = 2;

} // namespace

HelpWindow::HelpWindow(std::unique_ptr<HelpFile> file) : m_file(std::move(file))
{
    setObjectName(QStringLiteral("HelpWindow"));
    setWindowTitle(QStringLiteral("VEXA Basic Help"));
    // The program ends with its main window, whatever page is open.
    setAttribute(Qt::WA_QuitOnClose, false);
    HelpKey::SetTopic(*this, HelpTopics::kHelp);
    const QSize wanted(kLetters * fontMetrics().averageCharWidth(), kLines * fontMetrics().lineSpacing());
    resize(wanted.boundedTo(screen()->availableSize() * kMostOfScreen));
    BuildControls();
    m_file->Engine().searchEngine()->reindexDocumentation();
}

// The page and the lists ask the file for what they show: they go first.
HelpWindow::~HelpWindow()
{
    disconnect(m_file->Engine().searchEngine(), nullptr, this, nullptr);
    delete takeCentralWidget();
}

// ---- Pages

void HelpWindow::ShowTopic(int topic)
{
    Open(m_file->Page(topic));
    ComeForward();
    m_page->setFocus();
}

void HelpWindow::Open(const QUrl& page)
{
    if (page.isValid() && page != m_page->source()) m_page->setSource(page);
}

void HelpWindow::ComeForward()
{
    QWindow* modal = QGuiApplication::modalWindow();
    winId(); // makes the window behind the widget
    if (isVisible() && modal != nullptr && windowHandle()->transientParent() != modal) hide();
    // A dialog keeps every window from the user but those that belong to it.
    windowHandle()->setTransientParent(modal);
    if (isMinimized()) showNormal();
    show();
    raise();
    activateWindow();
}

void HelpWindow::ShowPlace(const QUrl& page)
{
    setWindowTitle(m_page->documentTitle() + QStringLiteral(" - VEXA Basic Help"));
    QHelpContentWidget* contents = m_file->Engine().contentWidget();
    const QModelIndex place = contents->indexOf(page);
    if (!place.isValid()) return;
    contents->setCurrentIndex(place);
    contents->scrollTo(place);
}

void HelpWindow::GoBack() { m_page->backward(); }

void HelpWindow::GoForward() { m_page->forward(); }

void HelpWindow::GoHome() { Open(m_file->Page(HelpTopics::kContents)); }

// ---- Find in the page

void HelpWindow::BeginFind()
{
    m_findBar->show();
    m_txtFind->setFocus();
    m_txtFind->selectAll();
}

void HelpWindow::EndFind()
{
    m_findBar->hide();
    m_page->setFocus();
}

void HelpWindow::FindAgain(bool backward)
{
    const QString text = m_txtFind->text();
    if (text.isEmpty()) {
        m_lblFound->clear();
        return;
    }
    m_lblFound->setText(m_page->Find(text, backward) ? QString() : QStringLiteral("Not found"));
}

void HelpWindow::Escape()
{
    if (m_findBar->isVisible()) {
        EndFind();
    } else {
        close();
    }
}

// ---- Search in all pages

void HelpWindow::Search()
{
    const QString words = m_txtSearch->text().simplified();
    if (words.isEmpty()) return;
    if (m_indexed) {
        m_file->Engine().searchEngine()->search(words);
    } else {
        m_lblResults->setText(QStringLiteral("The pages are being read ..."));
    }
}

void HelpWindow::ShowResults()
{
    m_lstResults->clear();
    for (const QHelpSearchResult& found : m_file->Engine().searchEngine()->searchResults(0, kResults)) {
        auto* item = new QListWidgetItem(found.title(), m_lstResults);
        item->setData(Qt::UserRole, found.url());
    }
    const int count = m_lstResults->count();
    m_lblResults->setText(count == 0   ? QStringLiteral("No page has all these words.")
                          : count == 1 ? QStringLiteral("1 page")
                                       : QStringLiteral("%1 pages").arg(count));
    if (count > 0 && m_tabs->currentIndex() == kSearchTab) m_lstResults->setCurrentRow(0);
}

} // namespace platform
