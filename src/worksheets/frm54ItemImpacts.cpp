#include "worksheets/frm54ItemImpacts.h"

#include "model/c53Outcome.h"
#include "model/g53Outcomes.h"
#include "platform/base/Texts.h"
#include "platform/widgets/Grid.h"
#include "session/UIMode.h"
#include "values/g36ThreatenedItems.h"

#include <QLabel>
#include <QPushButton>
#include <QScopedValueRollback>

using platform::Alignment;
using platform::Grid;
using platform::GridContents;

namespace {

using Outcome = std::shared_ptr<c53Outcome>;

struct ColumnLook
{
    const char* header;
    Long width; // twips
    Alignment alignment;
};
constexpr ColumnLook kImpactColumns[] = {
    {"Alternative", 1860, Alignment::Left},
    {"Outcome", 1200, Alignment::Left},
    {"Size", 780, Alignment::Center},
    {"Estimated loss", 1200, Alignment::Right},
};

const QString kNothingToDelete = QStringLiteral("There is no item to delete.");

} // namespace

frm54ItemImpacts::frm54ItemImpacts(QWidget* parent) : Worksheet(QStringLiteral("frm54ItemImpacts"), parent) {}

frm54ItemImpacts::~frm54ItemImpacts() = default;

void frm54ItemImpacts::Setup()
{
    BeginSetup(4, "tab54");
    const UIMode::Busy busy;
    SetupItemGrid();
    SetupImpactGrid();
    m_grdItems->Fill([](GridContents& grid) { g36ThreatenedItems::FillThreatenedItemGrid(grid); });
    m_grdImpacts->Fill([](GridContents& grid) { g53Outcomes::LoadOutcomesWithSizes(grid); });
    CreateImpactObjects();
    ShowFirstItem();
}

void frm54ItemImpacts::SaveChanges()
{
    const QScopedValueRollback<bool> leaving(m_leaving, true);
    m_grdItems->FinishEdit();
    m_grdImpacts->FinishEdit();
    SaveAll();
    m_saves.TellAgain();
}

void frm54ItemImpacts::SaveAll()
{
    if (m_item != nullptr) m_item->SaveChanges();
    for (c66ItemImpact& impact : m_impacts)
        impact.SaveChanges();
}

void frm54ItemImpacts::SetupItemGrid()
{
    m_grdItems->Fill([](GridContents& grid) {
        grid.SetCols(1);
        grid.SetRows(kFirstRow);
        grid.SetFixedRows(kFirstRow);
        grid.SetText(0, 0, "Item name");
    });
    m_grdItems->SetStretchCol(0); // the whole width of the grid
    m_grdItems->SetEditable(0, true);
}

void frm54ItemImpacts::SetupImpactGrid()
{
    m_grdImpacts->Fill([](GridContents& grid) {
        grid.SetCols(static_cast<Long>(std::size(kImpactColumns)));
        grid.SetRows(kFirstRow);
        grid.SetFixedRows(kFirstRow);
        Long column = 0;
        for (const ColumnLook& look : kImpactColumns) {
            grid.SetText(0, column, look.header);
            grid.SetCellAlignment(0, column, Alignment::Center);
            grid.SetColWidth(column, look.width);
            grid.SetColAlignment(column++, look.alignment);
        }
    });
    m_grdImpacts->SetMergeCol(Column::Name, true);
    m_grdImpacts->SetStretchCol(Column::Name);
    m_grdImpacts->SetColFormat(Column::Loss, "$#,0");
    m_grdImpacts->SetEditable(Column::Loss, true);
    m_grdImpacts->SetLongestEntry(Column::Loss, kLongestLoss);
}

void frm54ItemImpacts::CreateImpactObjects()
{
    m_impacts.assign(static_cast<std::size_t>(m_grdImpacts->Rows() - kFirstRow), c66ItemImpact());
    m_impactRow = 0;
}

void frm54ItemImpacts::ShowFirstItem()
{
    const UIMode::Busy busy;
    if (m_grdItems->Rows() > kFirstRow) {
        EnableDelete(true);
        SelectItem(kFirstRow);
    } else {
        DisableImpacts();
        EnableDelete(false);
    }
}

void frm54ItemImpacts::SelectItem(Long row)
{
    const UIMode::Busy busy;
    m_grdItems->Select(row, 0);
    ShowItem();
}

void frm54ItemImpacts::ShowItem()
{
    const auto item = m_grdItems->RowObject<Item>(m_grdItems->Row());
    if (item == nullptr) return;
    m_item = item;
    m_lblCriterion->setText(QString::fromStdString(m_grdItems->Text(m_grdItems->Row(), 0)));
    ShowItemImpacts(m_item->ItemKey());
    m_grdImpacts->setEnabled(true);
    m_grdImpacts->setToolTip({});
}

void frm54ItemImpacts::ShowItemImpacts(Long itemKey)
{
    const UIMode::Busy busy;
    for (Long row = kFirstRow; row < m_grdImpacts->Rows(); ++row) {
        if (const auto outcome = m_grdImpacts->RowObject<Outcome>(row)) {
            ImpactOf(row).Initialize(outcome->ItemKey(), itemKey);
            m_grdImpacts->SetText(row, Column::Loss, AmountText(row));
        }
    }
    m_grdImpacts->SetCol(0);
}

void frm54ItemImpacts::ClearItem()
{
    m_item.reset();
    m_lblCriterion->clear();
    for (Long row = kFirstRow; row < m_grdImpacts->Rows(); ++row)
        m_grdImpacts->SetText(row, Column::Loss, "");
    DisableImpacts();
}

void frm54ItemImpacts::DisableImpacts()
{
    m_grdImpacts->setEnabled(false);
    m_grdImpacts->setToolTip(m_lblNoItems->text());
}

void frm54ItemImpacts::EnableDelete(bool enabled)
{
    m_cmdDeleteItem->setEnabled(enabled);
    m_cmdDeleteItem->setToolTip(enabled ? QString() : kNothingToDelete);
    m_lblNoItems->setVisible(!enabled);
}

bool frm54ItemImpacts::HasImpact(Long row) const
{
    return m_item != nullptr && row >= kFirstRow && row < m_grdImpacts->Rows() &&
           m_grdImpacts->RowObject<Outcome>(row) != nullptr;
}

std::string frm54ItemImpacts::AmountText(Long row)
{
    return platform::TextOf(platform::ToDouble(ImpactOf(row).Amount()));
}
