// How the dialog of the resource list is laid out and wired.

#include "platform/widgets/Application.h"
#include "platform/widgets/Grid.h"
#include "platform/widgets/ListBox.h"
#include "platform/widgets/PaneSplitter.h"
#include "platform/widgets/Theme.h"
#include "worksheets/EmptyNote.h"
#include "worksheets/ResourceTypePanel.h"
#include "worksheets/WorksheetPanes.h"
#include "worksheets/WorksheetParts.h"
#include "worksheets/frm562SRUseColumns.h"
#include "worksheets/frm562SRUseList.h"

#include <QLabel>
#include <QStackedWidget>
#include <QTabBar>

namespace Theme = platform::Theme;
using platform::Grid;
using platform::Guarded;

namespace {

constexpr const char* kInstructions =
    "Note: This worksheet is optional.  It can be used to get a general estimate of potential suppression "
    "costs.  A general estimate may be more useful than a precise estimate that takes a lot of analysis "
    "time.";

constexpr int kTabsWidth = 5300; // twips, as all lengths here
constexpr int kLinesWidth = 5700;
constexpr int kOutcomesHeight = 2175;
constexpr int kBelowHeight = 3600;

QSplitter* Splitter(Qt::Orientation orientation, QWidget* parent)
{
    auto* splitter = new platform::PaneSplitter(orientation, parent);
    splitter->setHandleWidth(Theme::Gap());
    return splitter;
}

QLabel* Text(const char* text, QWidget* parent)
{
    auto* label = new QLabel(QString::fromUtf8(text), parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

QLabel* Head(const char* name, const char* text, QWidget* parent)
{
    auto* label = new QLabel(QString::fromUtf8(text), parent);
    label->setObjectName(QString::fromUtf8(name));
    QFont font = label->font();
    font.setWeight(QFont::DemiBold);
    label->setFont(font);
    return label;
}

/// A button that Enter in a list or grid does not press.
QPushButton* Button(const char* name, const char* caption, QWidget* parent)
{
    QPushButton* button = WorksheetPanes::Button(name, caption, parent);
    button->setAutoDefault(false);
    return button;
}

} // namespace

void frm562SRUseList::BuildControls()
{
    setWindowTitle(QStringLiteral("Estimate  Cost based on Suppression Resources"));
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    m_pnlSRUse = new QWidget(this);
    m_pnlSRUse->setObjectName(QStringLiteral("pnlSRUse"));
    m_pnlSRUse->setAccessibleName(QStringLiteral("Suppression resources"));
    whole->addWidget(m_pnlSRUse);
    BuildUseList();
    m_pnlAdd = new ResourceTypePanel(this);
    SetTabOrders();
    ConnectHandlers();
    ConnectLines();
    ConnectPanel();
}

void frm562SRUseList::BuildUseList()
{
    QVBoxLayout* column = WorksheetParts::Column(m_pnlSRUse);
    QLabel* instructions = WorksheetParts::Instruction(QString::fromUtf8(kInstructions), m_pnlSRUse);
    instructions->setObjectName(QStringLiteral("lblInstructions"));
    column->addWidget(instructions);
    QSplitter* below = Splitter(Qt::Vertical, m_pnlSRUse);
    m_grdOutcomes = new Grid(QStringLiteral("grdOutcomes"), QStringLiteral("Outcomes"), below);
    below->addWidget(m_grdOutcomes);
    QSplitter* sides = Splitter(Qt::Horizontal, below);
    sides->addWidget(BuildTabs());
    sides->addWidget(BuildLines());
    sides->setSizes({Theme::Pixels(kTabsWidth), Theme::Pixels(kLinesWidth)});
    below->addWidget(sides);
    below->setSizes({Theme::Pixels(kOutcomesHeight), Theme::Pixels(kBelowHeight)});
    column->addWidget(below, 1);
    m_cmdClose = Button("cmdClose", "Close", m_pnlSRUse);
    column->addWidget(m_cmdClose, 0, Qt::AlignRight);
}

QWidget* frm562SRUseList::BuildTabs()
{
    auto* pane = new QWidget(m_pnlSRUse);
    pane->setAccessibleName(QStringLiteral("Resources to add"));
    m_tabStrip1 = new QTabBar(pane);
    m_tabStrip1->setObjectName(QStringLiteral("TabStrip1"));
    m_tabStrip1->setDrawBase(true);
    m_tabStrip1->setExpanding(false);
    m_tabStrip1->setUsesScrollButtons(false); // both captions show whole
    m_tabStrip1->addTab(QStringLiteral("Select individual resources"));
    m_tabStrip1->addTab(QStringLiteral("Copy an existing list"));
    m_tabs = new QStackedWidget(pane);
    m_tabs->addWidget(BuildMasterTab());
    m_tabs->addWidget(BuildCopyTab());
    QVBoxLayout* column = WorksheetPanes::Column(pane);
    column->addWidget(m_tabStrip1);
    column->addWidget(m_tabs, 1);
    return pane;
}

QWidget* frm562SRUseList::BuildMasterTab()
{
    auto* panel = new QWidget(m_pnlSRUse);
    panel->setObjectName(QStringLiteral("pnlTab_1"));
    QLabel* caption = Text("Select an item by clicking on it", panel);
    m_lstSRMaster = new platform::ListBox(
        QStringLiteral("lstSRMaster"), QStringLiteral("Select an item by clicking on it"), panel);
    m_noTypes =
        new EmptyNote(QStringLiteral("This file has no resources yet. New Item adds one."), m_lstSRMaster);
    caption->setBuddy(m_lstSRMaster);
    m_cmdAddItem = Button("cmdAddItem", "&New Item", panel);
    QVBoxLayout* column = WorksheetPanes::Column(panel);
    column->addWidget(caption);
    column->addWidget(m_lstSRMaster, 1);
    column->addLayout(WorksheetPanes::ButtonRow({m_cmdAddItem}));
    return panel;
}

QWidget* frm562SRUseList::BuildCopyTab()
{
    auto* panel = new QWidget(m_pnlSRUse);
    panel->setObjectName(QStringLiteral("pnlTab_2"));
    m_grdLists = new Grid(QStringLiteral("grdLists"), QStringLiteral("Lists to copy"), panel);
    m_grdLists->SetEmptyText(QStringLiteral(
        "No outcome of an alternative has a list to copy yet. Select individual resources first."));
    m_cmdCopy = Button("cmdCopy", "Copy List", panel);
    m_cmdCopy->setEnabled(false);
    m_cmdCopy->setToolTip(QStringLiteral("Pick the list to copy first."));
    QVBoxLayout* column = WorksheetPanes::Column(panel);
    column->addWidget(Text("Once you have created a list for one Outcome, you can copy that list to other "
                           "Outcomes.",
                           panel));
    column->addWidget(
        Text("Select the list you would like to copy and then click the Copy List button below.", panel));
    column->addWidget(m_grdLists, 1);
    column->addLayout(WorksheetPanes::ButtonRow({m_cmdCopy}));
    return panel;
}

QWidget* frm562SRUseList::BuildLines()
{
    auto* pane = new QWidget(m_pnlSRUse);
    m_grdSRList = new Grid(QStringLiteral("grdSRList"), QStringLiteral("Selected resources"), pane);
    m_grdSRList->SetEmptyText(
        QStringLiteral("No resources for this outcome yet. Click on an item in the list to add it."));
    QLabel* head = Head("Panel3D8", " Selected resources:", pane);
    head->setBuddy(m_grdSRList);
    QVBoxLayout* column = WorksheetPanes::Column(pane);
    column->addWidget(head);
    column->addWidget(m_grdSRList, 1);
    column->addLayout(BuildTotal(pane));
    return pane;
}

QLayout* frm562SRUseList::BuildTotal(QWidget* pane)
{
    m_cmdDelete = Button("cmdDelete", "&Delete Row", pane);
    m_pnlCost = Head("pnlCost", "", pane);
    QLabel* caption = Head("Panel3D2", " Total Suppression Costs:", pane);
    caption->setBuddy(m_pnlCost);
    auto* row = new QHBoxLayout;
    row->setSpacing(Theme::Gap());
    row->addWidget(m_cmdDelete);
    row->addStretch();
    row->addWidget(caption);
    row->addWidget(m_pnlCost);
    return row;
}

void frm562SRUseList::SetTabOrders()
{
    QWidget* before = m_grdOutcomes;
    for (QWidget* next : QList<QWidget*>{m_tabStrip1,
                                         m_lstSRMaster,
                                         m_cmdAddItem,
                                         m_grdLists,
                                         m_cmdCopy,
                                         m_grdSRList,
                                         m_cmdDelete,
                                         m_cmdClose}) {
        setTabOrder(before, next);
        before = next;
    }
}

void frm562SRUseList::ConnectHandlers()
{
    connect(m_grdOutcomes, &Grid::EnterCell, this, [this] { Guarded([this] { grdOutcomes_EnterCell(); }); });
    connect(m_tabStrip1, &QTabBar::currentChanged, this, [this](int tab) {
        Guarded([this, tab] { TabStrip1_Click(tab); });
    });
    // By Picked and not by Click: the arrow keys move through the list and add nothing; a click, Enter or the
    // blank adds the line at once.
    connect(m_lstSRMaster, &platform::ListBox::Picked, this, [this] {
        Guarded([this] { lstSRMaster_Click(); });
    });
    connect(m_grdLists, &Grid::EnterCell, this, [this] { Guarded([this] { grdLists_EnterCell(); }); });
    const auto onClick = [this](QPushButton* button, void (frm562SRUseList::*handler)()) {
        connect(button, &QPushButton::clicked, this, [this, handler] {
            Guarded([this, handler] { (this->*handler)(); });
        });
    };
    onClick(m_cmdCopy, &frm562SRUseList::cmdCopy_Click);
    onClick(m_cmdDelete, &frm562SRUseList::cmdDelete_Click);
    onClick(m_cmdAddItem, &frm562SRUseList::cmdAddItem_Click);
    connect(m_cmdClose, &QPushButton::clicked, this, &QDialog::accept);
}

void frm562SRUseList::ConnectLines()
{
    connect(m_grdSRList, &Grid::EnterCell, this, [this] { Guarded([this] { grdSRList_EnterCell(); }); });
    // The cell that is the current one already is not entered again.
    connect(m_grdSRList, &Grid::Click, this, [this] { Guarded([this] { EditCell(); }); });
    connect(m_grdSRList, &Grid::LeaveCell, this, [this](Long row, Long column) {
        Guarded([=, this] { grdSRList_LeaveCell(row, column); });
    });
    connect(m_grdSRList, &Grid::BeforeEdit, this, [this](Long row, Long column, bool& cancel) {
        grdSRList_BeforeEdit(row, column, cancel);
    });
    connect(m_grdSRList, &Grid::ChangeEdit, this, [this] { Guarded([this] { grdSRList_ChangeEdit(); }); });
    connect(m_grdSRList, &Grid::AfterEdit, this, [this](Long row, Long column) {
        Guarded([=, this] { grdSRList_AfterEdit(row, column); });
    });
    connect(m_grdSRList, &Grid::LostFocus, this, [this] { Guarded([this] { grdSRList_LostFocus(); }); });
    connect(m_grdSRList, &Grid::KeyDown, this, [this](int key, bool& swallow) {
        Guarded([this, key, &swallow] { grdSRList_KeyDown(key, swallow); });
    });
}

void frm562SRUseList::ConnectPanel()
{
    connect(m_pnlAdd, &ResourceTypePanel::OK, this, [this] { Guarded([this] { cmdOK_Click(); }); });
    connect(m_pnlAdd, &ResourceTypePanel::Cancel, this, [this] { Guarded([this] { cmdCancel_Click(); }); });
}
