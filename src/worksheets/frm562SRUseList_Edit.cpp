// The lines of the current outcome: entered, edited, moved, deleted, saved.

#include "platform/base/Desktop.h"
#include "platform/base/Errors.h"
#include "platform/base/Texts.h"
#include "platform/data/Schema.h"
#include "platform/widgets/Grid.h"
#include "platform/widgets/ListBox.h"
#include "session/SessionState.h"
#include "session/UIMode.h"
#include "session/u91Trace.h"
#include "values/c67SRUseList.h"
#include "worksheets/ResourceLines.h"
#include "worksheets/frm562SRUseColumns.h"
#include "worksheets/frm562SRUseList.h"

#include <utility>
#include <vector>

using platform::TextOf;
using namespace SRUseColumns;

namespace {

constexpr Long kFirstRow = 1;
constexpr int kCharacters = 4;

/// Whether the line's cost can be computed, on this screen and in the outcome.
bool Counts(const c68SRUse& use)
{
    try {
        ResourceLines::RowCost(use);
        use.UseCost();
        return true;
    } catch (const platform::Overflow&) {
        return false;
    }
}

/// A row's number as it is shown and its line's as it is stored.
struct Numbered
{
    Long row;
    std::string shown;
    std::shared_ptr<c68SRUse> use;
    Long itemIndex;
};

/// Numbers the rows as they were. What is not saved of it by now is saved with the line.
void PutBack(platform::Grid& grid, const std::vector<Numbered>& rows)
{
    for (const Numbered& former : rows) {
        grid.SetText(former.row, Position, former.shown);
        if (former.use->ItemIndex() == former.itemIndex) continue;
        try {
            former.use->SetItemIndex(former.itemIndex);
        } catch (const std::exception&) {
            // it was for this that they are put back
        }
    }
}

} // namespace

// ---- Saving

void frm562SRUseList::SaveChanges()
{
    m_grdSRList->FinishEdit();
    if (m_use != nullptr) m_use->SaveChanges();
}

bool frm562SRUseList::LineSaved()
{
    try {
        if (m_use != nullptr) m_use->SaveChanges();
        return true;
    } catch (const std::exception&) {
        if (std::exchange(m_returnsToLine, true)) return false;
        QMetaObject::invokeMethod(
            this, [this] { ReturnToLine(); }, Qt::QueuedConnection);
        throw;
    }
}

void frm562SRUseList::ReturnToLine()
{
    const UIMode::Busy busy;
    for (Long row = kFirstRow; row <= Lines(); ++row) {
        if (m_grdSRList->RowObject<Use>(row) != m_use) continue;
        m_grdSRList->Select(row, Name);
        m_grdSRList->SetCellBackColor(row, Name, kYellow);
        EnableDelete(true);
    }
    m_returnsToLine = false; // only now: the way back leaves and enters cells
}

// ---- Handlers

void frm562SRUseList::lstSRMaster_Click()
{
    const Long index = m_lstSRMaster->ListIndex();
    u91Trace::Trace("lstSRMaster_Click " + m_lstSRMaster->List(index));
    if (!LineSaved()) return;
    const Use use = m_outcome->SRUseList().NewSRUse(m_lstSRMaster->ItemData(index));
    m_grdSRList->AddItem("");
    const Long row = Lines();
    ShowUseRow(use, row);
    ShowTotalCost();
    EnableDelete(true);
    m_grdSRList->setFocus();
    m_grdSRList->Select(row, Quantity); // whose entering starts the edit
}

void frm562SRUseList::grdSRList_EnterCell()
{
    if (!LineSaved()) return;
    const Long row = m_grdSRList->Row();
    const Use use = m_grdSRList->RowObject<Use>(row);
    EnableDelete(use != nullptr);
    if (use == nullptr) return;
    m_use = use;
    m_grdSRList->SetCellBackColor(row, Name, kYellow);
    EditCell();
}

void frm562SRUseList::EditCell()
{
    if (m_use != nullptr && IsEdited(m_grdSRList->Col())) m_grdSRList->EditCell();
}

void frm562SRUseList::grdSRList_LeaveCell(Long row, Long column)
{
    u91Trace::Trace("grdSRList_LeaveCell " + TextOf(row) + " " + TextOf(column));
    if (row >= kFirstRow) m_grdSRList->SetCellBackColor(row, Name, kPale);
}

void frm562SRUseList::grdSRList_BeforeEdit(Long row, Long column, bool& cancel)
{
    const Use use = m_grdSRList->RowObject<Use>(row);
    cancel = use == nullptr || !IsEdited(column) || (column == Time && IsItem(*use));
    m_grdSRList->SetEditMaxLength(kCharacters);
    m_positionBefore = m_grdSRList->Text(row, Position);
}

Long frm562SRUseList::Number(Long column) const
{
    return column == Quantity ? m_use->Quantity() : m_use->TimePeriods();
}

void frm562SRUseList::SetNumber(Long column, Long number)
{
    column == Quantity ? m_use->SetQuantity(number) : m_use->SetTimePeriods(number);
}

void frm562SRUseList::grdSRList_ChangeEdit()
{
    const Long column = m_grdSRList->Col();
    if (m_use == nullptr || (column != Quantity && column != Time)) return;
    const Long former = Number(column);
    const bool counted = Counts(*m_use);
    try {
        SetNumber(column, platform::ToLong(platform::Val(m_grdSRList->EditText())));
        // A line that came too large from the file is mended step by step.
        if (counted && !Counts(*m_use)) throw platform::Overflow("cost of a line");
    } catch (const platform::Overflow&) {
        SetNumber(column, former);
        m_grdSRList->SetEditText(TextOf(former)); // ahead of the box, which ends the edit
        platform::ShowMessage(
            {"The cost of this line would be larger than the program can count, so the line "
             "keeps its former value.",
             "Enter a smaller number."});
    }
    ShowRowCost(*m_use, m_grdSRList->Row());
    ShowTotalCost();
}

void frm562SRUseList::grdSRList_AfterEdit(Long row, Long column)
{
    u91Trace::Trace("grdSRList_AfterEdit " + TextOf(row) + " " + TextOf(column));
    if (m_use == nullptr || !LineSaved()) return;
    if (column == Position) {
        // An edit that changed nothing moves nothing, whatever number the line is stored with.
        if (m_grdSRList->Text(row, Position) != m_positionBefore) MoveLine(row);
    } else {
        m_grdSRList->SetText(row, column, TextOf(Number(column))); // what a typed text counts for
        ShowRowCost(*m_use, row);
        ShowTotalCost();
    }
}

void frm562SRUseList::MoveLine(Long row)
{
    const Long to = ResourceLines::RowTyped(m_grdSRList->Value(row, Position), Lines());
    m_grdSRList->SetText(row, Position, TextOf(to));
    // Kept: the stored number, which after deletions need not be the row.
    const Long from = m_use->ItemIndex();
    const ResourceLines::Renumbering room = ResourceLines::MakeRoom(from, to, Lines());
    std::vector<Numbered> before{{row, m_positionBefore, m_use, from}};
    for (Long i = room.first; from != to && i <= room.last; ++i) {
        const Use use = m_grdSRList->RowObject<Use>(i);
        if (i != row) before.push_back({i, m_grdSRList->Text(i, Position), use, use->ItemIndex()});
    }
    try {
        platform::Transaction together(OpenDatabase());
        m_use->SetItemIndex(to);
        if (to != from) MoveRow(from, to);
        together.Commit();
    } catch (...) {
        PutBack(*m_grdSRList, before);
        throw;
    }
    if (to == from) return;
    m_grdSRList->SortNumeric(Position);
    ClearRowColors();
}

void frm562SRUseList::MoveRow(Long from, Long to)
{
    u91Trace::Trace("MoveRow " + TextOf(from) + " to " + TextOf(to));
    const ResourceLines::Renumbering room = ResourceLines::MakeRoom(from, to, Lines());
    for (Long row = room.first; row <= room.last; ++row) {
        m_grdSRList->SetText(row, Position, TextOf(row + room.shift));
        m_grdSRList->RowObject<Use>(row)->SetItemIndex(row + room.shift);
    }
}

void frm562SRUseList::grdSRList_LostFocus() { m_grdSRList->SetCol(Name); }

void frm562SRUseList::grdSRList_KeyDown(int key, bool& swallow)
{
    if (key != Qt::Key_Delete) return;
    const Long row = m_grdSRList->Row();
    u91Trace::Trace("grdSRList KEY_DELETE " + TextOf(row));
    if (m_grdSRList->Col() != Name) return;
    swallow = true;
    if (row >= kFirstRow) DeleteCurrentRow();
}

void frm562SRUseList::cmdDelete_Click()
{
    u91Trace::Trace("cmdDelete_Click " + TextOf(m_grdSRList->Row()));
    DeleteCurrentRow();
}

void frm562SRUseList::DeleteCurrentRow()
{
    const Long row = m_grdSRList->Row();
    if (row < kFirstRow || m_use == nullptr) return;
    m_outcome->SRUseList().DeleteSRUse(m_use->ItemKey());
    m_use.reset(); // gone with its row
    m_grdSRList->RemoveItem(row);
    if (Lines() > 0) m_grdSRList->SetCellBackColor(m_grdSRList->Row(), Name, kYellow);
    ShowTotalCost();
    // The grid's numbers close up; kept: those stored with the lines do not.
    for (Long below = row; below <= Lines(); ++below)
        m_grdSRList->SetText(below, Position, TextOf(below));
    EnableDelete(Lines() > 0);
    if (Lines() > 0) m_use = m_grdSRList->RowObject<Use>(m_grdSRList->Row());
}
