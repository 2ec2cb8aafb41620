// The lines of the current outcome as they are shown.

#include "platform/base/Formats.h"
#include "platform/base/Texts.h"
#include "platform/widgets/Grid.h"
#include "session/UIMode.h"
#include "session/u91Trace.h"
#include "values/c67SRUseList.h"
#include "worksheets/CostFigures.h"
#include "worksheets/CostGrids.h"
#include "worksheets/ResourceLines.h"
#include "worksheets/frm562SRUseColumns.h"
#include "worksheets/frm562SRUseList.h"

#include <QLabel>
#include <QPushButton>

#include <vector>

using platform::Alignment;
using platform::GridContents;
using platform::TextOf;
using namespace SRUseColumns;

namespace {

constexpr Long kFirstRow = 1;
const QColor kGrey(192, 192, 192);
const QColor kWhite(255, 255, 255);

struct Head
{
    const char* text;
    Long width; // twips
    Alignment alignment;
    const char* format;
};

constexpr Head kHeads[Count] = {
    {"#", 300, Alignment::Center, "0"},
    {"Qty", 480, Alignment::Right, "#"},
    {"Name", 1500, Alignment::Left, ""},
    {"Time", 480, Alignment::Right, "#"},
    {"Units", 720, Alignment::Center, ""},
    {"Cost", 1040, Alignment::Right, "$#,0"},
};

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
        m_grdSRList->SetEditable(column, IsEdited(column));
    }
    m_grdSRList->SetStretchCol(Name);
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
