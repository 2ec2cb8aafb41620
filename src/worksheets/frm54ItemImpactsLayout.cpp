// How the worksheet of losses is laid out, and which control has which handler.
#include "platform/widgets/Grid.h"
#include "platform/widgets/QuietLabel.h"
#include "worksheets/ValueLine.h"
#include "worksheets/WorksheetPanes.h"
#include "worksheets/WorksheetParts.h"
#include "worksheets/frm54ItemImpacts.h"

#include <QLabel>

using platform::Grid;

namespace {

const QString kInstruction = QStringLiteral(
    "Input any values that are threatened by the fire, but only the potential total loss.  Include both "
    "Federal (for example, $15,000 timber value lost after salvage) or non-Federal (for example, fences "
    "around private lands destroyed).");
const QString kNoItems =
    QStringLiteral("No values threatened are listed yet. Click Add Item and type the name of one.");

} // namespace

void frm54ItemImpacts::BuildControls()
{
    setWindowTitle(QStringLiteral("Loss Analysis"));
    setAccessibleName(windowTitle());
    QLabel* instruction = WorksheetParts::Instruction(kInstruction, this);
    instruction->setObjectName(QStringLiteral("Label1"));
    QVBoxLayout* column = WorksheetParts::Column(this);
    column->addWidget(WorksheetParts::Title(windowTitle(), this));
    column->addWidget(instruction);
    QWidget* items = BuildItems(); // ahead of the impacts: in this order the Tab key leads through them
    column->addWidget(WorksheetPanes::SideBySide(items, BuildImpacts(), this), 1);
    ConnectHandlers();
    ConnectImpacts();
}

QWidget* frm54ItemImpacts::BuildItems()
{
    auto* pane = new QWidget(this);
    auto* head = new QLabel(QStringLiteral(" Values Threatened"), pane);
    head->setObjectName(QStringLiteral("Panel3D5"));
    m_grdItems = new Grid(QStringLiteral("grdItems"), head->text().trimmed(), pane);
    m_lblNoItems = new platform::QuietLabel(kNoItems, pane);
    m_cmdAddItem = WorksheetPanes::Button("cmdAddItem", "&Add Item", pane);
    m_cmdDeleteItem = WorksheetPanes::Button("cmdDeleteItem", "&Delete Item", pane);
    QVBoxLayout* column = WorksheetPanes::Column(pane);
    column->addWidget(head);
    column->addWidget(m_grdItems, 1);
    column->addWidget(m_lblNoItems);
    column->addLayout(WorksheetPanes::ButtonRow({m_cmdAddItem, m_cmdDeleteItem}));
    return pane;
}

QWidget* frm54ItemImpacts::BuildImpacts()
{
    auto* pane = new QWidget(this);
    auto* head = new QLabel(QStringLiteral("Individual item loss or damage"), pane);
    head->setObjectName(QStringLiteral("pnlHeader"));
    const ValueLine item = MakeValueLine(QStringLiteral("Item:"), QStringLiteral("lblCriterion"), pane);
    m_lblCriterion = item.value;
    m_grdImpacts = new Grid(QStringLiteral("grdImpacts"), head->text(), pane);
    QVBoxLayout* column = WorksheetPanes::Column(pane);
    column->addWidget(head);
    column->addLayout(item.layout);
    column->addWidget(m_grdImpacts, 1);
    return pane;
}

void frm54ItemImpacts::ConnectHandlers()
{
    using platform::Guarded;
    connect(m_grdItems, &Grid::EnterCell, this, [this] { Guarded([this] { grdItems_EnterCell(); }); });
    // The item that is shown already is edited at a click too.
    connect(m_grdItems, &Grid::Click, m_grdItems, &Grid::EditCell);
    connect(m_grdItems, &Grid::ChangeEdit, this, [this] { Guarded([this] { grdItems_ChangeEdit(); }); });
    connect(m_grdItems, &Grid::AfterEdit, this, [this] { Guarded([this] { grdItems_AfterEdit(); }); });
    connect(m_cmdAddItem, &QPushButton::clicked, this, [this] { Guarded([this] { cmdAddItem_Click(); }); });
    connect(
        m_cmdDeleteItem, &QPushButton::clicked, this, [this] { Guarded([this] { cmdDeleteItem_Click(); }); });
}

void frm54ItemImpacts::ConnectImpacts()
{
    using platform::Guarded;
    connect(m_grdImpacts, &Grid::EnterCell, this, [this] { Guarded([this] { grdImpacts_EnterCell(); }); });
    connect(m_grdImpacts, &Grid::Click, this, [this] { Guarded([this] { grdImpacts_Click(); }); });
    connect(m_grdImpacts, &Grid::BeforeEdit, this, [this](Long row, Long column, bool& cancel) {
        Guarded([&] { grdImpacts_BeforeEdit(row, column, cancel); });
    });
    connect(m_grdImpacts, &Grid::ChangeEdit, this, [this] { Guarded([this] { grdImpacts_ChangeEdit(); }); });
    connect(m_grdImpacts, &Grid::AfterEdit, this, [this](Long row, Long column) {
        Guarded([=, this] { grdImpacts_AfterEdit(row, column); });
    });
}
