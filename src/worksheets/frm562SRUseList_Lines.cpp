// The lines of the current outcome: shown, edited, moved, deleted.

#include "platform/base/Desktop.h"
#include "platform/base/Errors.h"
#include "platform/base/Formats.h"
#include "platform/base/Texts.h"
#include "platform/data/Schema.h"
#include "platform/widgets/Grid.h"
#include "platform/widgets/ListBox.h"
#include "session/SessionState.h"
#include "session/UIMode.h"
#include "session/u91Trace.h"
#include "values/c67SRUseList.h"
#include "worksheets/CostFigures.h"
#include "worksheets/CostGrids.h"
#include "worksheets/ResourceLines.h"
#include "worksheets/frm562SRUseColumns.h"
#include "worksheets/frm562SRUseList.h"

#include <QColor>
#include <QLabel>
#include <QPushButton>

#include <utility>
#include <vector>

using platform::Alignment;
using platform::GridContents;
using platform::TextOf;
using namespace SRUseColumns;

namespace {

constexpr Long kFirstRow = 1;
constexpr int kCharacters = 4;
const QColor kPale(255, 255, 224);
const QColor kYellow(255, 255, 0);
const QColor kGrey(192, 192, 192);
const QColor kWhite(255, 255, 255);

struct Head
{
    const char* text;
    Long width; // twips
    Alignment alignment;
    const char* format;
    bool editable;
};

constexpr Head kHeads[Count] = {
    {"#", 300, Alignment::Center, "0", true},
    {"Qty", 480, Alignment::Right, "#", true},
    {"Name", 1500, Alignment::Left, "", false},
    {"Time", 480, Alignment::Right, "#", true},
    {"Units", 720, Alignment::Center, "", false},
    {"Cost", 1040, Alignment::Right, "$#,0", false},
};

bool IsItem(const c68SRUse& use) { return use.SRType()->UnitType() == "item"; }

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

void frm562SRUseList::SetupSRGrid()
{
    m_grdSRList->Fill([](GridContents& grid) {
        grid.SetCols(Count);
        grid.SetRows(kFirstRow);
        grid.SetFixedRows(kFirstRow);
        for (Long column = 0; column < Count; ++column) {
            grid.SetText(0, column, kHeads[column].text);
            grid.SetColWidth(column, kHeads[column].width);
            grid.SetColAlignment(column, kHeads[column].alignment);
        }
    });
    for (Long column = 0; column < Count; ++column) {
        m_grdSRList->SetColFormat(column, kHeads[column].format);
        m_grdSRList->SetEditable(column, kHeads[column].editable);
    }
    m_grdSRList->SetStretchCol(Name);
}

void frm562SRUseList::SaveChanges()
{
    m_grdSRList->FinishEdit();
    if (m_use != nullptr) m_use->SaveChanges();
}

Long frm562SRUseList::Lines() const { return m_grdSRList->Rows() - 1; }

void frm562SRUseList::ShowOutcome()
{
    u91Trace::Trace("frm562SRUseList.ShowOutcome");
    const UIMode::Busy busy;
    m_use.reset();
    FillLines();
    m_grdSRList->SetRow(0);
    EnableDelete(false);
    ShowTotalCost();
}

void frm562SRUseList::FillLines()
{
    std::vector<Use> uses;
    m_figures->Try([&] {
        const auto& lines = m_outcome->SRUseList().SRUseCollection();
        uses.assign(lines.begin(), lines.end());
    });
    m_grdSRList->Fill([&uses](GridContents& grid) {
        grid.SetRows(kFirstRow);
        grid.SetRows(static_cast<Long>(uses.size()) + 1);
    });
    Long row = kFirstRow;
    for (const Use& use : uses)
        ShowUseRow(use, row++);
}

void frm562SRUseList::ShowUseRow(const Use& use, Long row)
{
    m_grdSRList->SetRowData(row, use);
    m_grdSRList->SetText(row, Position, TextOf(row));
    m_grdSRList->SetText(row, Quantity, TextOf(use->Quantity()));
    m_grdSRList->SetText(row, Name, use->SRType()->ShortName());
    m_grdSRList->SetText(row, Time, IsItem(*use) ? std::string() : TextOf(use->TimePeriods()));
    m_grdSRList->SetText(row, Units, use->SRType()->UnitName());
    ShowRowColors(row);
    ShowRowCost(*use, row);
}

void frm562SRUseList::ShowRowColors(Long row)
{
    const Use use = m_grdSRList->RowObject<Use>(row);
    m_grdSRList->SetCellBackColor(row, Name, kPale);
    m_grdSRList->SetCellBackColor(row, Units, kPale);
    m_grdSRList->SetCellBackColor(row, Time, IsItem(*use) ? kGrey : kWhite);
}

void frm562SRUseList::ShowRowCost(const c68SRUse& use, Long row)
{
    m_grdSRList->SetText(row, Cost, m_figures->Text([&use] { return TextOf(ResourceLines::RowCost(use)); }));
}

void frm562SRUseList::ShowTotalCost()
{
    u91Trace::Trace("ShowTotalCost");
    const std::string total = m_figures->Text([this] {
        Double sum = 0;
        for (Long row = kFirstRow; row <= Lines(); ++row) {
            if (m_grdSRList->Text(row, Cost) == CostFigures::kTooLarge)
                return std::string(CostFigures::kTooLarge);
            sum += m_grdSRList->Value(row, Cost);
        }
        return platform::Format(sum, "$#,0");
    });
    m_pnlCost->setText(QString::fromStdString(total));
    // Kept: with "$", which the column has not when it is filled.
    const Long row = m_grdOutcomes->Row();
    if (row >= kFirstRow) m_grdOutcomes->SetText(row, CostGrids::kCost, total);
}

void frm562SRUseList::ClearRowColors()
{
    for (Long row = kFirstRow; row <= Lines(); ++row)
        m_grdSRList->SetCellBackColor(row, Name, kPale);
}

void frm562SRUseList::EnableDelete(bool enable)
{
    m_cmdDelete->setEnabled(enable);
    m_cmdDelete->setToolTip(enable ? QString() : QStringLiteral("Pick the line to delete first."));
}

// ---- Saving

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
    if (m_use != nullptr && kHeads[m_grdSRList->Col()].editable) m_grdSRList->EditCell();
}

void frm562SRUseList::grdSRList_LeaveCell(Long row, Long column)
{
    u91Trace::Trace("grdSRList_LeaveCell " + TextOf(row) + " " + TextOf(column));
    if (row >= kFirstRow) m_grdSRList->SetCellBackColor(row, Name, kPale);
}

void frm562SRUseList::grdSRList_BeforeEdit(Long row, Long column, bool& cancel)
{
    const Use use = m_grdSRList->RowObject<Use>(row);
    cancel = use == nullptr || !kHeads[column].editable || (column == Time && IsItem(*use));
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
