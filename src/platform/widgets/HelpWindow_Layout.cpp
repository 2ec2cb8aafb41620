#include "platform/widgets/Application.h"
#include "platform/widgets/HelpBrowser.h"
#include "platform/widgets/HelpFile.h"
#include "platform/widgets/HelpWindow.h"
#include "platform/widgets/Theme.h"

#include <QHBoxLayout>
#include <QHelpContentWidget>
#include <QHelpEngine>
#include <QHelpIndexWidget>
#include <QHelpLink>
#include <QHelpSearchEngine>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QShortcut>
#include <QSplitter>
#include <QTabBar>
#include <QTabWidget>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

// The controls of the help window and what they are connected to.

namespace platform {

namespace {

constexpr int kTabsLetters = 36; // across the contents, of average width

QVBoxLayout* Column(QWidget* widget)
{
    auto* column = new QVBoxLayout(widget);
    column->setContentsMargins(Theme::Gap(), Theme::Gap(), Theme::Gap(), Theme::Gap());
    column->setSpacing(Theme::Gap() / 2);
    return column;
}

QLineEdit* Box(QWidget* parent, const char* name, const char* spoken, const char* hint)
{
    auto* box = new QLineEdit(parent);
    box->setObjectName(QString::fromUtf8(name));
    box->setAccessibleName(QString::fromUtf8(spoken));
    box->setPlaceholderText(QString::fromUtf8(hint));
    box->setClearButtonEnabled(true);
    return box;
}

QLabel* PlainLabel(QWidget* parent, const char* name)
{
    auto* label = new QLabel(parent);
    label->setObjectName(QString::fromUtf8(name));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

} // namespace

void HelpWindow::BuildControls()
{
    m_page = new HelpBrowser(*m_file, this);
    m_page->setObjectName(QStringLiteral("HelpPage"));
    m_page->setAccessibleName(QStringLiteral("Help page"));
    auto* right = new QWidget(this);
    auto* column = new QVBoxLayout(right);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_page, 1);
    column->addWidget(BuildFindBar());
    m_tabs = BuildTabs();
    auto* split = new QSplitter(this);
    split->addWidget(m_tabs);
    split->addWidget(right);
    split->setStretchFactor(1, 1);
    split->setChildrenCollapsible(false);
    const int tabsWidth = kTabsLetters * fontMetrics().averageCharWidth();
    split->setSizes({tabsWidth, qMax(width() - tabsWidth, tabsWidth)});
    setCentralWidget(split);
    BuildBar();
    ConnectHandlers();
    BuildShortcuts();
}

void HelpWindow::BuildBar()
{
    auto* bar = addToolBar(QStringLiteral("Help"));
    bar->setObjectName(QStringLiteral("HelpBar"));
    bar->setMovable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    m_cmdBack = AddAction("cmdBack", "← &Back", "To the page before (Alt+Left)", &HelpWindow::GoBack);
    m_cmdForward =
        AddAction("cmdForward", "&Forward →", "To the page after (Alt+Right)", &HelpWindow::GoForward);
    QAction* home =
        AddAction("cmdHome", "First &page", "To the first page of the help (Alt+Home)", &HelpWindow::GoHome);
    QAction* find = AddAction(
        "cmdFind", "Find in p&age", "Looks for words in this page (Ctrl+F)", &HelpWindow::BeginFind);
    bar->addActions({m_cmdBack, m_cmdForward, home, find});
    for (QToolButton* button : bar->findChildren<QToolButton*>())
        button->setFocusPolicy(Qt::TabFocus);
}

QAction*
HelpWindow::AddAction(const char* name, const char* text, const char* tip, void (HelpWindow::*handler)())
{
    auto* action = new QAction(QString::fromUtf8(text), this);
    action->setObjectName(QString::fromUtf8(name));
    action->setToolTip(QString::fromUtf8(tip));
    connect(action, &QAction::triggered, this, [this, handler] {
        Guarded([this, handler] { (this->*handler)(); });
    });
    return action;
}

QTabWidget* HelpWindow::BuildTabs()
{
    auto* tabs = new QTabWidget(this);
    tabs->setObjectName(QStringLiteral("HelpTabs"));
    tabs->setDocumentMode(true);
    QHelpContentWidget* contents = m_file->Engine().contentWidget();
    contents->setObjectName(QStringLiteral("HelpContents"));
    contents->setAccessibleName(QStringLiteral("Contents"));
    tabs->addTab(contents, QStringLiteral("&Contents"));
    tabs->addTab(BuildIndex(tabs), QStringLiteral("&Index"));
    tabs->addTab(BuildSearch(tabs), QStringLiteral("&Search"));
    tabs->setMinimumWidth(tabs->tabBar()->sizeHint().width());
    return tabs;
}

QWidget* HelpWindow::BuildIndex(QWidget* parent)
{
    auto* tab = new QWidget(parent);
    m_txtIndex = Box(tab, "txtIndex", "Index entry", "Look for an entry");
    QHelpIndexWidget* list = m_file->Engine().indexWidget();
    list->setObjectName(QStringLiteral("HelpIndex"));
    list->setAccessibleName(QStringLiteral("Index"));
    QVBoxLayout* column = Column(tab);
    column->addWidget(m_txtIndex);
    column->addWidget(list, 1);
    return tab;
}

QWidget* HelpWindow::BuildSearch(QWidget* parent)
{
    auto* tab = new QWidget(parent);
    m_txtSearch = Box(tab, "txtSearch", "Words to look for", "Words, then Enter");
    m_lstResults = new QListWidget(tab);
    m_lstResults->setObjectName(QStringLiteral("lstResults"));
    m_lstResults->setAccessibleName(QStringLiteral("Pages found"));
    m_lstResults->setWordWrap(true);
    m_lblResults = PlainLabel(tab, "lblResults");
    QVBoxLayout* column = Column(tab);
    column->addWidget(m_txtSearch);
    column->addWidget(m_lblResults);
    column->addWidget(m_lstResults, 1);
    return tab;
}

QWidget* HelpWindow::BuildFindBar()
{
    m_findBar = new QWidget(this);
    m_findBar->setObjectName(QStringLiteral("HelpFindBar"));
    auto* row = new QHBoxLayout(m_findBar);
    row->setContentsMargins(Theme::Gap(), Theme::Gap() / 2, Theme::Gap(), Theme::Gap() / 2);
    row->setSpacing(Theme::Gap() / 2);
    m_txtFind = Box(m_findBar, "txtFind", "Find in this page", "Find in this page");
    m_lblFound = PlainLabel(m_findBar, "lblFound");
    m_lblFound->setMinimumWidth(m_lblFound->fontMetrics().horizontalAdvance(QStringLiteral("Not found")));
    row->addWidget(m_txtFind, 1);
    row->addWidget(FindButton("cmdFindPrevious", Qt::UpArrow, "Previous place (Shift+F3)", true));
    row->addWidget(FindButton("cmdFindNext", Qt::DownArrow, "Next place (F3)", false));
    row->addWidget(m_lblFound);
    m_findBar->hide();
    return m_findBar;
}

QToolButton* HelpWindow::FindButton(const char* name, Qt::ArrowType arrow, const char* spoken, bool backward)
{
    auto* button = new QToolButton(m_findBar);
    button->setObjectName(QString::fromUtf8(name));
    button->setArrowType(arrow);
    button->setAccessibleName(QString::fromUtf8(spoken));
    button->setToolTip(QString::fromUtf8(spoken));
    button->setFocusPolicy(Qt::TabFocus);
    connect(button, &QToolButton::clicked, this, [this, backward] { FindAgain(backward); });
    return button;
}

void HelpWindow::ConnectHandlers()
{
    connect(m_page, &QTextBrowser::sourceChanged, this, &HelpWindow::ShowPlace);
    connect(m_page, &QTextBrowser::historyChanged, this, [this] {
        m_cmdBack->setEnabled(m_page->isBackwardAvailable());
        m_cmdForward->setEnabled(m_page->isForwardAvailable());
    });
    QHelpEngine& engine = m_file->Engine();
    connect(engine.contentWidget(), &QHelpContentWidget::linkActivated, this, &HelpWindow::Open);
    // The contents are read beside the window; its place among them is known when they are there.
    connect(engine.contentModel(), &QHelpContentModel::contentsCreated, this, [this] {
        ShowPlace(m_page->source());
    });
    connect(m_txtFind, &QLineEdit::textChanged, this, [this] {
        m_page->moveCursor(QTextCursor::Start);
        FindAgain(false);
    });
    connect(m_txtFind, &QLineEdit::returnPressed, this, [this] { FindAgain(false); });
    ConnectIndex();
    ConnectSearch();
}

void HelpWindow::ConnectIndex()
{
    QHelpIndexWidget* list = m_file->Engine().indexWidget();
    connect(m_txtIndex, &QLineEdit::textChanged, list, [list](const QString& text) {
        list->filterIndices(text);
    });
    connect(m_txtIndex, &QLineEdit::returnPressed, list, &QHelpIndexWidget::activateCurrentItem);
    connect(
        list, &QHelpIndexWidget::documentActivated, this, [this](const QHelpLink& link) { Open(link.url); });
    connect(list, &QHelpIndexWidget::documentsActivated, this, [this](const QList<QHelpLink>& links) {
        if (!links.isEmpty()) Open(links.constFirst().url);
    });
}

void HelpWindow::ConnectSearch()
{
    connect(m_txtSearch, &QLineEdit::returnPressed, this, &HelpWindow::Search);
    const auto open = [this](const QListWidgetItem* item) { Open(item->data(Qt::UserRole).toUrl()); };
    connect(m_lstResults, &QListWidget::itemActivated, this, open);
    connect(m_lstResults, &QListWidget::itemClicked, this, open);
    QHelpSearchEngine* engine = m_file->Engine().searchEngine();
    connect(engine, &QHelpSearchEngine::indexingFinished, this, [this] {
        m_indexed = true;
        Search();
    });
    connect(engine, &QHelpSearchEngine::searchingFinished, this, &HelpWindow::ShowResults);
}

void HelpWindow::BuildShortcuts()
{
    const auto bind = [this](const QKeySequence& keys, auto act) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, act);
    };
    bind(QKeySequence::Back, [this] { GoBack(); });
    bind(QKeySequence::Forward, [this] { GoForward(); });
    bind(Qt::ALT | Qt::Key_Home, [this] { GoHome(); });
    bind(QKeySequence::Find, [this] { BeginFind(); });
    bind(Qt::Key_F3, [this] { FindAgain(false); });
    bind(Qt::SHIFT | Qt::Key_F3, [this] { FindAgain(true); });
    bind(QKeySequence::ZoomIn, [this] { m_page->zoomIn(); });
    bind(Qt::CTRL | Qt::Key_Equal, [this] { m_page->zoomIn(); });
    bind(QKeySequence::ZoomOut, [this] { m_page->zoomOut(); });
    bind(Qt::Key_Escape, [this] { Escape(); });
    bind(QKeySequence::Close, [this] { close(); });
}

} // namespace platform
