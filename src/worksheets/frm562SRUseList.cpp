#include "worksheets/frm562SRUseList.h"

#include "model/c51Alternative.h"
#include "model/g51Alternatives.h"
#include "model/g53Outcomes.h"
#include "platform/base/Desktop.h"
#include "platform/base/Formats.h"
#include "platform/data/Database.h"
#include "platform/data/Schema.h"
#include "platform/widgets/Grid.h"
#include "platform/widgets/ListBox.h"
#include "session/SessionState.h"
#include "session/UIMode.h"
#include "session/u19RowData.h"
#include "session/u91Trace.h"
#include "values/c67SRUseList.h"
#include "values/g38SRTypes.h"
#include "worksheets/CostFigures.h"
#include "worksheets/CostGrids.h"
#include "worksheets/EmptyNote.h"
#include "worksheets/ResourceTypePanel.h"

#include <QPushButton>
#include <QStackedWidget>
#include <QTabBar>

using platform::Grid;
using platform::GridContents;

namespace {

constexpr int kHelpContext = 4552;
constexpr int kWidth = 11700; // twips
constexpr int kHeight = 7605;
constexpr Long kFirstRow = 1;
constexpr Long kTarget = 1;
constexpr Long kFallback = 2;

struct CopySource
{
    std::string alternative;
    CostGrids::Outcome outcome;
};

/// The outcomes of alternatives that are shown and have a list; the Extreme one never lends its own.
std::vector<CopySource> CopySources(CostFigures& figures)
{
    std::vector<CopySource> sources;
    for (const auto& alternative : g51Alternatives::AlternativeCollection()) {
        for (const Long index : {kTarget, kFallback}) {
            figures.Try([&] {
                const CostGrids::Outcome outcome = alternative->Outcome(index);
                if (outcome->bShow() && outcome->SRUseList().SRUseCount() > 0)
                    sources.push_back({alternative->ItemName(), outcome});
            });
        }
    }
    return sources;
}

/// Adds the type to the file; its key.
Long AddTypeRow(const ResourceTypePanel::Entry& entry, Long place)
{
    platform::Recordset rows = OpenDatabase().OpenTable("SRTypes");
    rows.AddNew();
    rows.Set("ChildIndex", place);
    rows.Set("LongName", entry.longName);
    rows.Set("ShortName", entry.shortName);
    rows.Set("UnitType", entry.unitType);
    rows.Set("UnitName", entry.unitName);
    rows.Set("UnitCost", platform::ToCurrency(entry.unitCost));
    rows.Update();
    rows.MoveLast();
    return u19RowData::ReadLong(rows, "ItemKey");
}

} // namespace

frm562SRUseList::frm562SRUseList(QWidget* parent)
    : ModalForm(QStringLiteral("frm562SRUseList"), kHelpContext, parent), m_figures(new CostFigures(this))
{}

void frm562SRUseList::Setup()
{
    BeginSetup(kWidth, kHeight);
    const UIMode::Busy busy;
    SetupOutcomeGrids();
    SetupSRGrid();
    FillMasterList();
    CostGrids::LoadWithTimes(*m_grdOutcomes);
    ShowSRCostColumn();
    m_grdOutcomes->SetRow(kFirstRow);
    m_outcome = CostGrids::OutcomeIn(*m_grdOutcomes, kFirstRow);
    ShowCopyLists();
    ShowOutcome();
    m_lstSRMaster->setFocus();
}

void frm562SRUseList::Form_Unload() { m_outcome->Reset(); }

std::string frm562SRUseList::UnsavedText(const std::string& cause) const
{
    return "This line could not be saved (" + cause + "), so it stays on the screen until it can be.";
}

void frm562SRUseList::SetupOutcomeGrids()
{
    CostGrids::SetUpWithCost(*m_grdOutcomes);
    m_grdLists->Fill([](GridContents& grid) { g53Outcomes::SetupOutcomeGrid(grid); });
    m_grdLists->SetStretchCol(0);
}

void frm562SRUseList::FillMasterList()
{
    platform::ListContents types;
    m_figures->Try([&types] { g38SRTypes::AddItem(types); });
    m_lstSRMaster->Show(types);
    m_noTypes->setVisible(types.ListCount() == 0);
}

void frm562SRUseList::ShowSRCostColumn()
{
    for (Long row = kFirstRow; row < m_grdOutcomes->Rows(); ++row) {
        const Outcome outcome = CostGrids::OutcomeIn(*m_grdOutcomes, row);
        m_grdOutcomes->SetText(row, CostGrids::kCost, m_figures->Text([&outcome] {
            return platform::Format(outcome->SRUseCost(), "#,0");
        }));
    }
}

void frm562SRUseList::ShowCopyLists()
{
    const std::vector<CopySource> sources = CopySources(*m_figures);
    m_grdLists->Fill([&sources](GridContents& grid) {
        grid.SetRows(kFirstRow);
        for (const CopySource& source : sources) {
            grid.AddItem("");
            const Long row = grid.Rows() - 1;
            grid.SetText(row, 0, source.alternative);
            grid.SetText(row, 1, source.outcome->ShortName());
            grid.SetRowData(row, source.outcome);
        }
    });
    m_grdLists->SetRow(0);
}

void frm562SRUseList::ReturnToOutcome()
{
    QMetaObject::invokeMethod(
        this,
        [this] {
            const UIMode::Busy busy;
            m_grdOutcomes->SetRow(CostGrids::RowOf(*m_grdOutcomes, m_outcome));
        },
        Qt::QueuedConnection);
}

void frm562SRUseList::ShowAddPanel(bool show)
{
    m_pnlSRUse->setEnabled(!show);
    m_pnlSRUse->setToolTip(show ? QStringLiteral("Finish or cancel the new item first.") : QString());
    show ? m_pnlAdd->Open() : m_pnlAdd->Close();
}

void frm562SRUseList::grdOutcomes_EnterCell()
{
    const Outcome outcome = CostGrids::OutcomeIn(*m_grdOutcomes, m_grdOutcomes->Row());
    if (!UIMode::NotBusy() || outcome == nullptr) return;
    try {
        if (!LineSaved()) return ReturnToOutcome();
    } catch (...) {
        ReturnToOutcome();
        throw;
    }
    m_outcome->Reset();
    m_outcome = outcome;
    ShowOutcome();
    ShowCopyLists();
}

void frm562SRUseList::TabStrip1_Click(int tab)
{
    m_grdLists->SetRow(0);
    m_tabs->setCurrentIndex(tab);
}

void frm562SRUseList::grdLists_EnterCell()
{
    const bool picked = m_grdLists->Row() >= kFirstRow;
    m_cmdCopy->setEnabled(picked);
    m_cmdCopy->setToolTip(picked ? QString() : QStringLiteral("Pick the list to copy first."));
}

void frm562SRUseList::cmdCopy_Click()
{
    const Outcome source = m_grdLists->RowObject<Outcome>(m_grdLists->Row());
    m_cmdCopy->setEnabled(false);
    if (source == nullptr || !LineSaved()) return;
    try {
        const platform::Hourglass hourglass;
        platform::Transaction together(OpenDatabase());
        // Kept: the outcome's own list may be the source; its lines are then there twice.
        m_outcome->SRUseList().AppendList(source->SRUseList());
        together.Commit();
    } catch (...) {
        m_outcome->Reset(); // as the file has them: none of the lines was copied
        ShowOutcome();
        throw;
    }
    ShowOutcome();
    m_grdLists->SetRow(0);
}

void frm562SRUseList::cmdAddItem_Click() { ShowAddPanel(true); }

void frm562SRUseList::cmdOK_Click()
{
    u91Trace::Trace("AddItem.cmdOK_Click");
    const ResourceTypePanel::Entry entry = m_pnlAdd->Typed();
    const Long key = AddTypeRow(entry, platform::Add(m_lstSRMaster->ListCount(), 1));
    g38SRTypes::ReleaseSRTypes();
    m_lstSRMaster->AddItem(entry.longName, key);
    m_noTypes->hide();
    ShowAddPanel(false);
    m_lstSRMaster->SetListIndex(m_lstSRMaster->ListCount() - 1);
    m_lstSRMaster->setFocus();
}

void frm562SRUseList::cmdCancel_Click()
{
    ShowAddPanel(false);
    m_cmdAddItem->setFocus();
}
