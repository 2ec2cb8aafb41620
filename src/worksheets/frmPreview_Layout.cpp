#include "platform/widgets/Application.h"
#include "platform/widgets/FlowLayout.h"
#include "platform/widgets/PageView.h"
#include "platform/widgets/Theme.h"
#include "session/u91Trace.h"
#include "worksheets/ReportRunBar.h"
#include "worksheets/frmPreview.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QToolButton>

// The controls of the preview and what they are connected to.

namespace Theme = platform::Theme;
using platform::PageView;

namespace {

constexpr int kNarrower = 120;   // twips, the pane than the window
constexpr int kFindLetters = 18; // that the find box shows

/// Controls that belong together and stay on one line.
QHBoxLayout* Group(QWidget* group)
{
    auto* line = new QHBoxLayout(group);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(Theme::Gap() / 2);
    return line;
}

QToolButton* Tool(QWidget* group, const char* name, const char* text, const char* spoken, const char* tip)
{
    auto* tool = new QToolButton(group);
    tool->setObjectName(QString::fromUtf8(name));
    tool->setText(QString::fromUtf8(text));
    tool->setAccessibleName(QString::fromUtf8(spoken));
    tool->setToolTip(QString::fromUtf8(tip));
    tool->setFocusPolicy(Qt::TabFocus);
    group->layout()->addWidget(tool);
    return tool;
}

QToolButton* Arrow(QWidget* group, const char* name, Qt::ArrowType arrow, const char* spoken, const char* tip)
{
    QToolButton* tool = Tool(group, name, "", spoken, tip);
    tool->setArrowType(arrow);
    return tool;
}

QLabel* Value(QWidget* group, const char* name, const char* widest)
{
    auto* label = new QLabel(group);
    label->setObjectName(QString::fromUtf8(name));
    label->setTextFormat(Qt::PlainText);
    // It does not move its neighbours with every page.
    label->setMinimumWidth(label->fontMetrics().horizontalAdvance(QString::fromUtf8(widest)));
    group->layout()->addWidget(label);
    return label;
}

} // namespace

void frmPreview::BuildControls()
{
    setCentralWidget(new QWidget(this));
    m_VSPrinter1 = new QWidget(centralWidget());
    m_VSPrinter1->setObjectName(QStringLiteral("VSPrinter1"));
    auto* around = new QVBoxLayout(centralWidget());
    const int edge = Theme::Pixels(kNarrower) / 2;
    around->setContentsMargins(edge, edge, edge, edge);
    around->addWidget(m_VSPrinter1);

    auto* tools = new QWidget(m_VSPrinter1);
    auto* flow = new platform::FlowLayout(tools);
    flow->setContentsMargins(0, 0, 0, 0);
    flow->setSpacing(Theme::Gap());
    m_pages = new PageView(m_VSPrinter1);
    m_pages->setObjectName(QStringLiteral("PageView1"));
    m_pages->setAccessibleName(QStringLiteral("Pages of the report"));
    m_runBar = new ReportRunBar(m_VSPrinter1);
    for (QWidget* group : {BuildCommands(), BuildPages(), BuildZoom(), BuildFind()})
        flow->addWidget(group);
    auto* column = new QVBoxLayout(m_VSPrinter1);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Theme::Gap() / 2);
    column->addWidget(tools);
    column->addWidget(m_runBar);
    column->addWidget(m_pages, 1);
    ConnectHandlers();
    BuildShortcuts();
    ShowPageNumber();
    ShowZoom();
    ShowHits();
}

QWidget* frmPreview::BuildCommands()
{
    auto* group = new QWidget(m_VSPrinter1);
    Group(group);
    AddCommand(group, "cmdSave", "Save to File", &frmPreview::cmdSave_Click);
    m_cmdPrintPage = AddCommand(group, "cmdPrintPage", "Print Page", &frmPreview::cmdPrintPage_Click);
    AddCommand(group, "cmdPrintReport", "Print Report", &frmPreview::cmdPrintReport_Click);
    AddCommand(group, "cmdClose", "Close", &frmPreview::cmdClose_Click);
    return group;
}

QPushButton*
frmPreview::AddCommand(QWidget* group, const char* name, const char* caption, void (frmPreview::*handler)())
{
    auto* button = new QPushButton(QString::fromUtf8(caption), group);
    button->setObjectName(QString::fromUtf8(name));
    button->setMinimumWidth(button->sizeHint().width() + Theme::Gap());
    group->layout()->addWidget(button);
    connect(button, &QPushButton::clicked, this, [this, button, handler] {
        u91Trace::Trace("frmPreview." + button->objectName().toStdString() + "_Click");
        platform::Guarded([this, handler] { (this->*handler)(); });
    });
    return button;
}

QWidget* frmPreview::BuildPages()
{
    auto* group = new QWidget(m_VSPrinter1);
    Group(group);
    m_cmdPreviousPage =
        Arrow(group, "cmdPreviousPage", Qt::UpArrow, "Previous page", "Previous page (Page Up)");
    m_cmdNextPage = Arrow(group, "cmdNextPage", Qt::DownArrow, "Next page", "Next page (Page Down)");
    m_lblPage = Value(group, "lblPage", "Page 100 of 100");
    auto* caption = new QLabel(QStringLiteral("Go to"), group);
    group->layout()->addWidget(caption);
    m_txtPage = new QLineEdit(group);
    m_txtPage->setObjectName(QStringLiteral("txtPage"));
    m_txtPage->setAccessibleName(QStringLiteral("Page number"));
    m_txtPage->setFixedWidth(m_txtPage->fontMetrics().horizontalAdvance(QStringLiteral("0000000")));
    caption->setBuddy(m_txtPage);
    group->layout()->addWidget(m_txtPage);
    return group;
}

QWidget* frmPreview::BuildZoom()
{
    auto* group = new QWidget(m_VSPrinter1);
    Group(group);
    m_cmdZoomOut = Tool(group, "cmdZoomOut", "\u2212", "Zoom out", "Smaller (Ctrl -)");
    m_lblZoom = Value(group, "lblZoom", "100 %");
    m_lblZoom->setAlignment(Qt::AlignCenter);
    m_cmdZoomIn = Tool(group, "cmdZoomIn", "+", "Zoom in", "Larger (Ctrl +)");
    m_cmdFitWidth = Tool(group, "cmdFitWidth", "Fit Width", "Fit Width", "As wide as the window");
    m_cmdFitPage = Tool(group, "cmdFitPage", "Fit Page", "Fit Page", "A whole page in the window");
    for (QToolButton* fit : {m_cmdFitWidth, m_cmdFitPage}) {
        fit->setCheckable(true);
        ShowFit(*fit, true); // as wide as it becomes
        fit->setMinimumWidth(fit->sizeHint().width());
    }
    return group;
}

QWidget* frmPreview::BuildFind()
{
    auto* group = new QWidget(m_VSPrinter1);
    Group(group);
    auto* caption = new QLabel(QStringLiteral("Find"), group);
    group->layout()->addWidget(caption);
    m_txtFind = new QLineEdit(group);
    m_txtFind->setObjectName(QStringLiteral("txtFind"));
    m_txtFind->setToolTip(QStringLiteral("Words to find in the pages (Ctrl F)"));
    m_txtFind->setClearButtonEnabled(true);
    m_txtFind->setFixedWidth(kFindLetters * m_txtFind->fontMetrics().averageCharWidth());
    caption->setBuddy(m_txtFind);
    group->layout()->addWidget(m_txtFind);
    m_cmdFindPrevious =
        Arrow(group, "cmdFindPrevious", Qt::LeftArrow, "Find previous", "The place before (Shift F3)");
    m_cmdFindNext = Arrow(group, "cmdFindNext", Qt::RightArrow, "Find next", "The next place (F3)");
    m_lblFound = Value(group, "lblFound", "100 of 100");
    return group;
}

void frmPreview::ConnectHandlers()
{
    connect(m_pages, &PageView::PageChanged, this, &frmPreview::ShowPageNumber);
    connect(m_pages, &PageView::ZoomChanged, this, &frmPreview::ShowZoom);
    connect(m_pages, &PageView::HitsChanged, this, &frmPreview::ShowHits);
    connect(m_cmdPreviousPage, &QToolButton::clicked, m_pages, [this] {
        m_pages->GoToPage(m_pages->CurrentPage() - 1);
    });
    connect(m_cmdNextPage, &QToolButton::clicked, m_pages, [this] {
        m_pages->GoToPage(m_pages->CurrentPage() + 1);
    });
    connect(m_txtPage, &QLineEdit::returnPressed, this, &frmPreview::txtPage_Return);
    connect(m_txtPage, &QLineEdit::editingFinished, this, &frmPreview::ShowPageNumber);
    connect(m_cmdZoomOut, &QToolButton::clicked, m_pages, &PageView::ZoomOut);
    connect(m_cmdZoomIn, &QToolButton::clicked, m_pages, &PageView::ZoomIn);
    connect(m_cmdFitWidth, &QToolButton::clicked, m_pages, [this] { m_pages->SetFit(PageView::Fit::Width); });
    connect(m_cmdFitPage, &QToolButton::clicked, m_pages, [this] { m_pages->SetFit(PageView::Fit::Page); });
    connect(m_txtFind, &QLineEdit::textChanged, m_pages, &PageView::Find);
    connect(m_txtFind, &QLineEdit::returnPressed, m_pages, &PageView::FindNext);
    connect(m_cmdFindPrevious, &QToolButton::clicked, m_pages, &PageView::FindPrevious);
    connect(m_cmdFindNext, &QToolButton::clicked, m_pages, &PageView::FindNext);
}

void frmPreview::BuildShortcuts()
{
    const auto bind = [this](QWidget* where, const QKeySequence& keys, auto act) {
        auto* shortcut = new QShortcut(keys, where);
        shortcut->setContext(where == this ? Qt::WindowShortcut : Qt::WidgetShortcut);
        connect(shortcut, &QShortcut::activated, this, act);
    };
    bind(this, Qt::CTRL | Qt::Key_F, [this] {
        m_txtFind->setFocus(Qt::ShortcutFocusReason);
        m_txtFind->selectAll();
    });
    bind(this, Qt::Key_F3, [this] { m_pages->FindNext(); });
    bind(this, Qt::SHIFT | Qt::Key_F3, [this] { m_pages->FindPrevious(); });
    bind(m_txtFind, Qt::SHIFT | Qt::Key_Return, [this] { m_pages->FindPrevious(); });
    bind(m_txtFind, Qt::Key_Escape, [this] { LeaveFind(); });
    bind(this, Qt::CTRL | Qt::Key_Plus, [this] { m_pages->ZoomIn(); });
    bind(this, Qt::CTRL | Qt::Key_Equal, [this] { m_pages->ZoomIn(); });
    bind(this, Qt::CTRL | Qt::Key_Minus, [this] { m_pages->ZoomOut(); });
    bind(this, Qt::CTRL | Qt::Key_0, [this] { m_pages->SetZoom(1.0); });
}
