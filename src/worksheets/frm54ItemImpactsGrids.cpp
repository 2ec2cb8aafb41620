// What is typed on the worksheet of losses.
#include "platform/base/Texts.h"
#include "platform/widgets/Grid.h"
#include "session/UIMode.h"
#include "values/PotentialLoss.h"
#include "values/g36ThreatenedItems.h"
#include "worksheets/frm54ItemImpacts.h"

#include <QLabel>
#include <QPushButton>

// ---- The items

void frm54ItemImpacts::grdItems_EnterCell()
{
    if (!UIMode::NotBusy() || m_grdItems->RowObject<Item>(m_grdItems->Row()) == nullptr) return;
    if (!m_saves.Try([this] { SaveAll(); })) {
        ReturnToItem(); // showing another item would read its losses over those that are not saved
        return;
    }
    ShowItem();
    m_grdItems->EditCell();
}

void frm54ItemImpacts::ReturnToItem()
{
    const auto returning = [this] {
        m_saves.TellAgain();
        const UIMode::Busy busy;
        for (Long row = kFirstRow; row < m_grdItems->Rows(); ++row) {
            if (m_grdItems->RowObject<Item>(row) == m_item) m_grdItems->Select(row, 0);
        }
    };
    QMetaObject::invokeMethod(this, returning, Qt::QueuedConnection);
}

void frm54ItemImpacts::grdItems_ChangeEdit()
{
    if (!UIMode::NotBusy() || m_item == nullptr) return;
    const std::string name = m_grdItems->EditText();
    m_lblCriterion->setText(QString::fromStdString(name));
    m_item->SetItemName(name);
    m_saves.TellAgain();
}

void frm54ItemImpacts::grdItems_AfterEdit()
{
    if (m_leaving || m_item == nullptr) return;
    m_saves.Try([this] { m_item->SaveChanges(); });
}

void frm54ItemImpacts::cmdAddItem_Click()
{
    SaveChanges();
    {
        const UIMode::Busy busy;
        const Item item = g36ThreatenedItems::NewThreatenedItem("");
        item->SetProbabilityLabel("100");
        m_grdItems->AddItem("");
        m_grdItems->SetRowData(m_grdItems->Rows() - 1, item);
        SelectItem(m_grdItems->Rows() - 1);
        EnableDelete(true);
    }
    m_grdItems->setFocus();
    m_grdItems->EditCell(); // its name is typed at once
}

void frm54ItemImpacts::cmdDeleteItem_Click()
{
    if (m_item == nullptr) return;
    SaveChanges();
    const UIMode::Busy busy;
    g36ThreatenedItems::DeleteThreatenedItem(m_item->ItemKey());
    m_item.reset(); // ahead of the row, so that nothing saves an item that is gone
    m_grdItems->RemoveItem(m_grdItems->Row());
    if (m_grdItems->Rows() > kFirstRow) {
        ShowItem();
        return;
    }
    m_cmdAddItem->setFocus(); // ahead of the button, from which the focus would else wander off
    EnableDelete(false);
    ClearItem();
}

// ---- The losses

void frm54ItemImpacts::grdImpacts_EnterCell()
{
    if (!UIMode::NotBusy() || !HasImpact(m_grdImpacts->Row())) return;
    // Current first: what is typed next belongs to this row, even if the one before it cannot be saved.
    m_impactRow = m_grdImpacts->Row();
    m_saves.Try([this] { SaveAll(); });
    grdImpacts_Click();
}

void frm54ItemImpacts::grdImpacts_Click()
{
    // Queued by the grid, which is the yield to what else is pending.
    if (UIMode::NotBusy() && m_grdImpacts->Col() == Column::Loss) m_grdImpacts->EditCell();
}

void frm54ItemImpacts::grdImpacts_BeforeEdit(Long row, Long column, bool& cancel)
{
    cancel = column != Column::Loss || !HasImpact(row);
    if (!cancel) m_grdImpacts->SetEditMaxLength(kLongestLoss);
}

void frm54ItemImpacts::grdImpacts_ChangeEdit()
{
    if (!UIMode::NotBusy() || m_grdImpacts->Col() != Column::Loss || !HasImpact(m_impactRow)) return;
    // Kept: the number ends at a comma, so 1,500 counts as 1.
    ImpactOf(m_impactRow).SetAmount(platform::ToCurrency(platform::Val(m_grdImpacts->EditText())));
    SetPotentialLossFromImpacts(*m_item, m_impacts);
    m_saves.TellAgain();
}

void frm54ItemImpacts::grdImpacts_AfterEdit(Long row, Long column)
{
    if (column != Column::Loss || !HasImpact(row)) return;
    m_grdImpacts->SetText(row, column, AmountText(row)); // what counts, whatever was typed
    if (!m_leaving) m_saves.Try([&] { ImpactOf(row).SaveChanges(); });
}
