#include "worksheets/frm56_CostSummary.h"

#include "platform/base/Errors.h"
#include "platform/base/Formats.h"
#include "platform/base/Texts.h"
#include "platform/widgets/Application.h"
#include "platform/widgets/EntryBox.h"
#include "platform/widgets/PaneSplitter.h"
#include "platform/widgets/Theme.h"
#include "session/UIMode.h"
#include "session/u91Trace.h"
#include "session/u92Utilities.h"
#include "worksheets/CostFigures.h"
#include "worksheets/CostGrids.h"
#include "worksheets/GuidelinesPanel.h"
#include "worksheets/SaveOrGoBack.h"
#include "worksheets/TypedNumber.h"
#include "worksheets/WorksheetPanes.h"
#include "worksheets/WorksheetParts.h"
#include "worksheets/frm0_VEXA.h"
#include "worksheets/frm561CostPerAcre.h"
#include "worksheets/frm562SRUseList.h"

#include <QGridLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QRadioButton>

namespace Theme = platform::Theme;
using platform::EntryBox;
using platform::Format;
using platform::Grid;
using platform::Guarded;

namespace {

constexpr Long kDigits = 3;
constexpr Long kFirstRow = 1;
constexpr int kWorkWidth = 7500; // twips
constexpr int kGuidelinesWidth = 3600;
constexpr int kGuidelinesCharacters = 30; // its longest line that cannot be broken

constexpr const char* kInstruction =
    "For each Outcome, select one of the following methods for estimating suppression cost:";
constexpr const char* kGuidelinesTitle = "Guidelines for estimating suppression cost:";
constexpr const char* kGuidelines =
    "If historical costs are available, they should be used as an initial starting point.  Revise costs as "
    "necessary to reflect the current incident.|CR|Describe the basis for the cost estimate in the space "
    "provided.|CR|Consider the following factors when making a cost estimate:|CR||PARALEFT:180|- Fire "
    "location|CR|- Distance to non-Federal lands|CR|- Access|CR|- Terrain|CR|- Land management "
    "direction|CR|- Fuel types|CR|- Duration|CR|- Values at risk|CR|- Other factors that might influence "
    "overall cost";

std::string Rounded(Single dollars, const char* format)
{
    return Format(u92Utilities::RoundSignificant(Double(dollars), kDigits), format);
}

QRadioButton* Option(const char* name, const char* caption, QWidget* pane)
{
    auto* option = new QRadioButton(QString::fromUtf8(caption), pane);
    option->setObjectName(QString::fromUtf8(name));
    return option;
}

QLabel* Amount(const char* name, QWidget* pane)
{
    auto* label = new QLabel(pane);
    label->setObjectName(QString::fromUtf8(name));
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return label;
}

} // namespace

frm56_CostSummary::frm56_CostSummary(QWidget* parent)
    : Worksheet(QStringLiteral("frm56_CostSummary"), parent), m_figures(new CostFigures(this))
{}

void frm56_CostSummary::Setup()
{
    BeginSetup(5, "tab56");
    MainWindow().DisableEditMenu();
    const UIMode::Busy busy;
    CostGrids::SetUpWithCost(*m_grdOutcomes);
    CostGrids::LoadWithTimes(*m_grdOutcomes);
    ShowCostColumn();
    m_grdOutcomes->SetRow(kFirstRow);
    m_outcome = CostGrids::OutcomeIn(*m_grdOutcomes, kFirstRow);
    ShowOutcomeCost();
}

void frm56_CostSummary::SaveChanges()
{
    u91Trace::Trace("frm56_CostSummary.SaveChanges");
    if (m_outcome != nullptr) m_outcome->SaveChanges();
}

void frm56_CostSummary::BuildControls()
{
    setWindowTitle(QStringLiteral("Describe Outcome"));
    setAccessibleName(QStringLiteral("Cost Analysis"));
    QVBoxLayout* column = WorksheetParts::Column(this);
    column->addWidget(WorksheetParts::Title(accessibleName(), this));
    column->addWidget(WorksheetParts::Instruction(QString::fromUtf8(kInstruction), this));
    auto* splitter = new platform::PaneSplitter(Qt::Horizontal, this);
    splitter->setHandleWidth(Theme::GroupGap());
    splitter->addWidget(BuildWork());
    splitter->addWidget(BuildGuidelines());
    splitter->setStretchFactor(0, 1); // the advice keeps its width
    splitter->setSizes({Theme::Pixels(kWorkWidth), Theme::Pixels(kGuidelinesWidth)});
    column->addWidget(splitter, 1);
    ConnectHandlers();
}

QWidget* frm56_CostSummary::BuildWork()
{
    auto* splitter = new platform::PaneSplitter(Qt::Vertical, this);
    splitter->setHandleWidth(Theme::GroupGap());
    m_grdOutcomes = new Grid(QStringLiteral("grdOutcomes"), QStringLiteral("Outcomes"), splitter);
    splitter->addWidget(m_grdOutcomes);
    splitter->addWidget(BuildOutcome());
    splitter->setSizes({1000, 1000});
    return splitter;
}

/// On top of its side: it is no higher than its text.
QWidget* frm56_CostSummary::BuildGuidelines()
{
    auto* pane = new QWidget(this);
    QVBoxLayout* column = WorksheetPanes::Column(pane);
    column->addWidget(new GuidelinesPanel(QString::fromUtf8(kGuidelinesTitle), kGuidelines, pane), 1);
    column->addStretch();
    pane->setMinimumWidth(kGuidelinesCharacters * fontMetrics().averageCharWidth());
    return pane;
}

QWidget* frm56_CostSummary::BuildOutcome()
{
    auto* pane = new QWidget(this);
    QVBoxLayout* column = WorksheetPanes::Column(pane);
    column->addLayout(BuildSources(pane));
    auto* caption = new QLabel(QStringLiteral("Describe the basis or rationale for the cost estimate"), pane);
    m_txtCostRationale = new QPlainTextEdit(pane);
    m_txtCostRationale->setObjectName(QStringLiteral("txtCostRationale"));
    m_txtCostRationale->setPlaceholderText(QStringLiteral("How the estimate was made, and from what."));
    m_txtCostRationale->setTabChangesFocus(true);
    m_txtCostRationale->setMinimumHeight(3 * fontMetrics().lineSpacing());
    caption->setBuddy(m_txtCostRationale);
    column->addWidget(caption);
    column->addWidget(m_txtCostRationale, 1);
    return pane;
}

QLayout* frm56_CostSummary::BuildSources(QWidget* pane)
{
    m_optSize = Option("optSize", "Estimated cost based on fire size", pane);
    m_lblSize = Amount("lblSize", pane);
    m_cmdSize = WorksheetPanes::Button("cmdSize", "Review Estimate", pane);
    m_optSRUse = Option("optSRUse", "Estimated cost of suppression resources", pane);
    m_lblSRUse = Amount("lblSRUse", pane);
    m_cmdSRUse = WorksheetPanes::Button("cmdSRUse", "Get/Edit Estimate", pane);
    m_optAdjust = Option("optAdjust", "Type in estimate and provide explanation below", pane);
    m_txtAdjustedCost = new EntryBox(QStringLiteral("txtAdjustedCost"), pane);
    m_txtAdjustedCost->setAccessibleName(QStringLiteral("Typed in estimate, dollars"));
    m_txtAdjustedCost->setPlaceholderText(QStringLiteral("dollars"));
    m_txtAdjustedCost->setAlignment(Qt::AlignRight);
    m_txtAdjustedCost->SelectWholeOnEntry();

    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(Theme::Gap());
    grid->setVerticalSpacing(Theme::Gap());
    grid->setColumnMinimumWidth(1, fontMetrics().horizontalAdvance(QStringLiteral("999,999,999")));
    grid->setColumnStretch(3, 1); // what is left over parts no amount from its option
    const QList<QList<QWidget*>> lines = {{m_optSize, m_lblSize, m_cmdSize},
                                          {m_optSRUse, m_lblSRUse, m_cmdSRUse}};
    for (int row = 0; row < lines.size(); ++row) {
        for (int column = 0; column < lines[row].size(); ++column)
            grid->addWidget(lines[row][column], row, column);
    }
    grid->addWidget(m_optAdjust, 2, 0);
    grid->addWidget(m_txtAdjustedCost, 2, 1, 1, 2);
    return grid;
}

void frm56_CostSummary::ConnectHandlers()
{
    const auto source = [this](QRadioButton* option, c53Outcome::Cost cost) {
        // Every click, also on the option that is marked: with a cost by day another outcome's mark stays.
        connect(option, &QRadioButton::clicked, this, [this, cost] {
            Guarded([this, cost] { optSource_Click(cost); });
        });
        // A screen reader marks it without a click.
        connect(option, &QRadioButton::toggled, this, [this, cost](bool marked) {
            if (marked) Guarded([this, cost] { optSource_Click(cost); });
        });
    };
    source(m_optSize, c53Outcome::costSize);
    source(m_optSRUse, c53Outcome::costSRUse);
    source(m_optAdjust, c53Outcome::costAdjust);
    connect(m_grdOutcomes, &Grid::EnterCell, this, [this] { Guarded([this] { grdOutcomes_EnterCell(); }); });
    connect(m_cmdSize, &QPushButton::clicked, this, [this] { Guarded([this] { cmdSize_Click(); }); });
    connect(m_cmdSRUse, &QPushButton::clicked, this, [this] { Guarded([this] { cmdSRUse_Click(); }); });
    connect(m_txtAdjustedCost, &QLineEdit::textChanged, this, [this] {
        Guarded([this] { txtAdjustedCost_Change(); });
    });
    connect(m_txtCostRationale, &QPlainTextEdit::textChanged, this, [this] {
        Guarded([this] { txtCostRationale_Change(); });
    });
}

std::string frm56_CostSummary::CostText(Long row)
{
    const CostGrids::Outcome outcome = CostGrids::OutcomeIn(*m_grdOutcomes, row);
    return m_figures->Text([&] { return Format(outcome->EstimatedCost(), "#,0"); });
}

void frm56_CostSummary::ShowCostColumn()
{
    for (Long row = kFirstRow; row < m_grdOutcomes->Rows(); ++row)
        m_grdOutcomes->SetText(row, CostGrids::kCost, CostText(row));
}

void frm56_CostSummary::ShowOutcomeCost()
{
    const UIMode::Busy busy;
    SetSourceOption();
    ShowSizeCost();
    ShowSRUseCost();
    m_txtAdjustedCost->setText(QString::fromStdString(Format(m_outcome->AdjustedCost(), "#,#")));
    m_txtCostRationale->setPlainText(QString::fromStdString(m_outcome->CostRationale()));
}

void frm56_CostSummary::SetSourceOption()
{
    switch (m_outcome->CostSource()) {
    case c53Outcome::costSize: m_optSize->setChecked(true); break;
    case c53Outcome::costSRUse: m_optSRUse->setChecked(true); break;
    case c53Outcome::costAdjust: m_optAdjust->setChecked(true); break;
    default: break; // kept: the mark stays where it was
    }
}

void frm56_CostSummary::ShowSizeCost()
{
    m_lblSize->setText(
        QString::fromStdString(m_figures->Text([this] { return Rounded(m_outcome->CostBySize(), "#,0"); })));
}

void frm56_CostSummary::ShowSRUseCost()
{
    // Kept: a zero is empty here, and not in the line above.
    m_lblSRUse->setText(
        QString::fromStdString(m_figures->Text([this] { return Rounded(m_outcome->SRUseCost(), "#,#"); })));
}

void frm56_CostSummary::RunDialog(ModalForm& dialog)
{
    dialog.Setup();
    dialog.exec();
    if (m_outcome == nullptr) return;
    ShowSizeCost();
    ShowSRUseCost();
    ShowCostColumn();
}

void frm56_CostSummary::ReturnToCurrentRow()
{
    const UIMode::Busy busy;
    m_grdOutcomes->SetRow(CostGrids::RowOf(*m_grdOutcomes, m_outcome));
}

void frm56_CostSummary::grdOutcomes_EnterCell()
{
    const CostGrids::Outcome outcome = CostGrids::OutcomeIn(*m_grdOutcomes, m_grdOutcomes->Row());
    if (!UIMode::NotBusy() || outcome == nullptr) return;
    SaveOrGoBack(*this, [this] { ReturnToCurrentRow(); });
    m_outcome = outcome;
    ShowOutcomeCost();
}

void frm56_CostSummary::optSource_Click(c53Outcome::Cost source)
{
    if (!UIMode::NotBusy() || m_outcome == nullptr) return;
    m_outcome->SetCostSource(source);
    ShowCostColumn();
}

void frm56_CostSummary::cmdSize_Click()
{
    frm561CostPerAcre dialog(window());
    RunDialog(dialog);
}

void frm56_CostSummary::cmdSRUse_Click()
{
    frm562SRUseList dialog(window());
    RunDialog(dialog);
}

void frm56_CostSummary::txtAdjustedCost_Change()
{
    if (!UIMode::NotBusy() || m_outcome == nullptr) return;
    const std::optional<Single> dollars = TypedNumber(m_txtAdjustedCost->text().toStdString());
    m_outcome->SetAdjustedCost(dollars.value_or(0.0F));
    if (dollars) {
        m_optAdjust->setChecked(true);
        optSource_Click(c53Outcome::costAdjust);
    }
    // Kept: a text that is no number leaves the source as it was.
    const Long row = m_grdOutcomes->Row();
    if (row >= kFirstRow) m_grdOutcomes->SetText(row, CostGrids::kCost, CostText(row));
}

void frm56_CostSummary::txtCostRationale_Change()
{
    if (!UIMode::NotBusy() || m_outcome == nullptr) return;
    m_outcome->SetCostRationale(m_txtCostRationale->toPlainText().toStdString());
}
