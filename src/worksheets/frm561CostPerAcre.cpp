#include "worksheets/frm561CostPerAcre.h"

#include "model/g53Outcomes.h"
#include "platform/base/Desktop.h"
#include "platform/base/Errors.h"
#include "platform/base/Texts.h"
#include "platform/widgets/Application.h"
#include "platform/widgets/PaneSplitter.h"
#include "platform/widgets/Theme.h"
#include "session/UIMode.h"
#include "session/u91Trace.h"
#include "values/g33FMUs.h"
#include "worksheets/CostFigures.h"
#include "worksheets/CostGrids.h"
#include "worksheets/FromBound.h"
#include "worksheets/TypedNumber.h"
#include "worksheets/WorksheetPanes.h"
#include "worksheets/WorksheetParts.h"

#include <QLabel>

namespace Theme = platform::Theme;
using platform::Alignment;
using platform::Grid;
using platform::GridContents;
using platform::Guarded;

namespace {

constexpr Long kLandUnit = 0; // the one of a file without land units
constexpr int kHelpContext = 4551;
constexpr int kWidth = 11700; // twips, as all widths here
constexpr int kHeight = 7200;
constexpr int kOutcomesWidth = 6750;
constexpr int kCostsWidth = 4350;

enum Column : Long { From = 0, To = 1, Cost = 2 };
constexpr Long kHeads = 2;      // rows
constexpr Long kFirst = kHeads; // the row of size class 1
constexpr Long kLast = kFirst + c35AACTable::kSizeClasses - 1;
constexpr Long kBoundWidth = 1400;
constexpr Long kCostWidth = 1440;
constexpr int kBoundCharacters = 9;
constexpr int kCostCharacters = 7;

// Misspelled as it has always been.
constexpr const char* kInstruction =
    "To have the program compute an estimated cost based on fire size, enter a cost per acre value below.  "
    "You may enter a single valuee or different values for different fire sizes.  \n\n"
    "To enter values for different fire sizes,enter the upper bound in the 'To' column.  For eaxample, if "
    "fires below 1000 acres have a different average cost per acre than fires above 1000 acres, enter 1000 "
    "in the 'To' column.";

Long ClassOf(Long row) { return row - kFirst + 1; }

/// What a typed text counts for: no number, a size below 0 and what a single cannot hold count as 0.
Single Counted(const std::string& text, Long column)
{
    const Single number = TypedNumber(text).value_or(0.0F);
    return column == To && number < 0.0F ? 0.0F : number;
}

void SetHeads(GridContents& grid, Long column, const char* upper, const char* lower, Long width)
{
    grid.SetText(0, column, upper);
    grid.SetText(1, column, lower);
    for (Long row = 0; row < kHeads; ++row)
        grid.SetCellAlignment(row, column, Alignment::Center);
    grid.SetColAlignment(column, Alignment::Right);
    grid.SetColWidth(column, width);
}

QWidget* Captioned(const char* caption, Grid& grid, QWidget* pane)
{
    auto* label = new QLabel(QString::fromUtf8(caption), pane);
    label->setBuddy(&grid);
    QVBoxLayout* column = WorksheetPanes::Column(pane);
    column->addWidget(label);
    column->addWidget(&grid, 1);
    return pane;
}

} // namespace

frm561CostPerAcre::frm561CostPerAcre(QWidget* parent)
    : ModalForm(QStringLiteral("frm561CostPerAcre"), kHelpContext, parent), m_figures(new CostFigures(this))
{}

void frm561CostPerAcre::Setup()
{
    BeginSetup(kWidth, kHeight);
    const UIMode::Busy busy;
    SetupGrids();
    m_grdOutcomes->Fill([](GridContents& grid) { g53Outcomes::LoadOutcomesWithSizes(grid); });
    m_figures->Try([this] { ShowOutcomeCosts(); });
    m_grdOutcomes->SetRow(0);
    m_table = &g33FMUs::GetAACTable(kLandUnit);
    DisplayPerAcreData();
    m_grdCosts->Select(kFirst, To);
    m_grdCosts->setFocus();
}

void frm561CostPerAcre::SaveChanges()
{
    m_grdCosts->FinishEdit();
    m_table->SaveChanges();
}

std::string frm561CostPerAcre::UnsavedText(const std::string& cause) const
{
    return "The costs per acre could not be saved (" + cause +
           "). If you leave, they count until this file is closed, but they are not in it.";
}

void frm561CostPerAcre::BuildControls()
{
    setWindowTitle(QStringLiteral("Suppression cost based on fire size"));
    QVBoxLayout* column = WorksheetParts::Column(this);
    QLabel* instruction = WorksheetParts::Instruction(QString::fromUtf8(kInstruction), this);
    instruction->setObjectName(QStringLiteral("Label1_1"));
    column->addWidget(instruction);
    auto* splitter = new platform::PaneSplitter(Qt::Horizontal, this);
    splitter->setHandleWidth(Theme::GroupGap());
    splitter->addWidget(BuildOutcomes());
    splitter->addWidget(BuildCosts());
    splitter->setSizes({Theme::Pixels(kOutcomesWidth), Theme::Pixels(kCostsWidth)});
    column->addWidget(splitter, 1);
    QPushButton* cmdClose = WorksheetPanes::Button("cmdClose", "Close", this);
    cmdClose->setAutoDefault(false); // Enter belongs to the grid
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::accept);
    column->addWidget(cmdClose, 0, Qt::AlignRight);
    ConnectHandlers();
}

QWidget* frm561CostPerAcre::BuildOutcomes()
{
    auto* pane = new QWidget(this);
    m_grdOutcomes = new Grid(QStringLiteral("grdOutcomes"), QStringLiteral("Outcomes"), pane);
    return Captioned("Outcomes", *m_grdOutcomes, pane);
}

QWidget* frm561CostPerAcre::BuildCosts()
{
    auto* pane = new QWidget(this);
    m_grdCosts = new Grid(QStringLiteral("grdCosts"), QStringLiteral("Cost per acre"), pane);
    return Captioned("Cost per acre", *m_grdCosts, pane);
}

void frm561CostPerAcre::SetupGrids()
{
    CostGrids::SetUpWithCostPerAcre(*m_grdOutcomes);
    m_grdCosts->SetColFormat(From, "#,#.00");
    m_grdCosts->SetColFormat(To, "#,#.00");
    m_grdCosts->SetColFormat(Cost, "$#,#");
    m_grdCosts->SetEditable(To, true);
    m_grdCosts->SetEditable(Cost, true);
    m_grdCosts->SetMergeCol(Cost, true);
    m_grdCosts->SetStretchCol(Cost);
    m_grdCosts->Fill([](GridContents& grid) {
        grid.SetCols(Cost + 1);
        grid.SetRows(kLast + 1);
        grid.SetFixedRows(kHeads);
        grid.SetMergeRow(0, true);
        SetHeads(grid, From, "Fire size, in acres", "From", kBoundWidth);
        SetHeads(grid, To, "Fire size, in acres", "To", kBoundWidth);
        SetHeads(grid, Cost, "Suppression cost\nper acre", "Suppression cost\nper acre", kCostWidth);
    });
}

void frm561CostPerAcre::ConnectHandlers()
{
    connect(m_grdCosts, &Grid::EnterCell, this, [this] { Guarded([this] { grdCosts_EnterCell(); }); });
    // The cell that is the current one already is not entered again.
    connect(m_grdCosts, &Grid::Click, this, [this] { Guarded([this] { EditCell(); }); });
    connect(m_grdCosts, &Grid::BeforeEdit, this, [this](Long, Long column, bool& cancel) {
        grdCosts_BeforeEdit(column, cancel);
    });
    connect(m_grdCosts, &Grid::ChangeEdit, this, [this] { Guarded([this] { grdCosts_ChangeEdit(); }); });
    connect(m_grdCosts, &Grid::AfterEdit, this, [this](Long row, Long column) {
        Guarded([=, this] { grdCosts_AfterEdit(row, column); });
    });
}

void frm561CostPerAcre::DisplayPerAcreData()
{
    m_grdCosts->SetText(kFirst, From, "0");
    for (Long row = kFirst; row <= kLast; ++row) {
        ShowClass(row);
        // The last class has none behind it.
        if (row < kLast) SetFromCell(row + 1, m_table->TopSize(ClassOf(row)));
    }
}

void frm561CostPerAcre::ShowClass(Long row)
{
    const Single top = m_table->TopSize(ClassOf(row));
    m_grdCosts->SetText(row, To, top <= 0.0F ? std::string() : platform::TextOf(top));
    m_grdCosts->SetText(row, Cost, platform::TextOf(m_table->Cost(ClassOf(row))));
}

void frm561CostPerAcre::SetFromCell(Long row, Single top) { m_grdCosts->SetText(row, From, FromBound(top)); }

void frm561CostPerAcre::ShowOutcomeCosts()
{
    m_costsCounted = false;
    GridContents shown = m_grdOutcomes->Contents(); // so that a figure that fails leaves the grid as it was
    g53Outcomes::ShowOutcomeCosts(shown);
    m_grdOutcomes->Fill([&shown](GridContents& grid) { grid = std::move(shown); });
    m_costsCounted = true;
}

Single frm561CostPerAcre::Stored(Long row, Long column) const
{
    return column == To ? m_table->TopSize(ClassOf(row)) : m_table->Cost(ClassOf(row));
}

void frm561CostPerAcre::Store(Long row, Long column, Single number)
{
    column == To ? m_table->SetTopSize(ClassOf(row), number) : m_table->SetCost(ClassOf(row), number);
}

void frm561CostPerAcre::Write(Long row, Long column, Single number)
{
    const Single former = Stored(row, column);
    const bool countedBefore = m_costsCounted;
    Store(row, column, number);
    try {
        ShowOutcomeCosts();
    } catch (const platform::Overflow&) {
        if (!countedBefore) return; // the file came with one that is too large: it is to be mended here
        Store(row, column, former);
        m_costsCounted = true;
        m_grdCosts->SetEditText(platform::TextOf(former)); // ahead of the box, which ends the edit
        platform::ShowMessage({"With this number the cost of an outcome would be larger than the program can "
                               "count, so the former one stays.",
                               "Enter a smaller number."});
    }
}

void frm561CostPerAcre::grdCosts_EnterCell()
{
    u91Trace::Trace("grdCosts_EnterCell");
    EditCell();
}

void frm561CostPerAcre::EditCell()
{
    if (UIMode::NotBusy() && m_grdCosts->Col() >= To) m_grdCosts->EditCell();
}

void frm561CostPerAcre::grdCosts_BeforeEdit(Long column, bool& cancel)
{
    cancel = column == From;
    m_grdCosts->SetEditMaxLength(column == To ? kBoundCharacters : kCostCharacters);
}

void frm561CostPerAcre::grdCosts_ChangeEdit()
{
    if (m_grdCosts->Row() < kFirst || m_grdCosts->Col() == From) return;
    Write(m_grdCosts->Row(), m_grdCosts->Col(), Counted(m_grdCosts->EditText(), m_grdCosts->Col()));
}

void frm561CostPerAcre::grdCosts_AfterEdit(Long row, Long column)
{
    u91Trace::Trace("grdCosts_AfterEdit " + std::to_string(row) + " " + std::to_string(column));
    if (row < kFirst) return;
    ShowClass(row); // the number that a typed text counts for
    if (column == To && row < kLast) SetFromCell(row + 1, m_table->TopSize(ClassOf(row)));
}
